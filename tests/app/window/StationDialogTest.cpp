// What the dialog New Site asks for each kind of station, and what it makes of the answers.

#include "app/window/StationDialog.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <stdexcept>

#include "app/SiteSession.h"
#include "app/StationSource.h"

namespace zor {
namespace {

class StationDialogTest : public ::testing::Test {
protected:
    template <typename Widget>
    Widget& widget(const char* name) {
        auto* const found = dialog.findChild<Widget*>(name);
        if (!found) throw std::runtime_error(std::string("there is no ") + name);
        return *found;
    }
    void chooseStation(const QString& source) {
        auto& station = widget<QComboBox>("station");
        station.setCurrentIndex(station.findData(source));
    }
    std::string source() const { return sourceOf(dialog.configuration()); }

    StationDialog dialog{nullptr};
};

TEST_F(StationDialogTest, AsksForSpeedAndSeedOfTheSimulatedStationOnly) {
    EXPECT_TRUE(widget<QDoubleSpinBox>("speed").isEnabled());
    EXPECT_TRUE(widget<QSpinBox>("seed").isEnabled());
    EXPECT_FALSE(widget<QLineEdit>("archive").isEnabled());
    chooseStation("weewx:");
    EXPECT_FALSE(widget<QDoubleSpinBox>("speed").isEnabled());
    EXPECT_FALSE(widget<QSpinBox>("seed").isEnabled());
    EXPECT_TRUE(widget<QLineEdit>("archive").isEnabled());
    chooseStation("simulated");
    EXPECT_TRUE(widget<QDoubleSpinBox>("speed").isEnabled());
    EXPECT_TRUE(widget<QSpinBox>("seed").isEnabled());
}

TEST_F(StationDialogTest, EveryLabelsKeyLeadsToItsField) {
    for (const auto* label : dialog.findChildren<QLabel*>()) {
        EXPECT_TRUE(label->buddy()) << label->text().toStdString();
    }
}

TEST_F(StationDialogTest, UntouchedIsTheWeatherOfTheDemoInRealTime) {
    EXPECT_EQ(source(), "simulated:seed=1,speed=1");
}

TEST_F(StationDialogTest, SpeedAndSeedGoToTheStation) {
    widget<QDoubleSpinBox>("speed").setValue(0.5);
    widget<QSpinBox>("seed").setValue(7);
    EXPECT_EQ(source(), "simulated:seed=7,speed=0.5");
    EXPECT_TRUE(makeDriver(dialog.configuration()));
}

TEST_F(StationDialogTest, EverySpeedAndSeedThatCanBeEnteredIsOne) {
    auto& speed = widget<QDoubleSpinBox>("speed");
    auto& seed = widget<QSpinBox>("seed");
    for (const bool least : {true, false}) {
        speed.setValue(least ? speed.minimum() : speed.maximum());
        seed.setValue(least ? seed.minimum() : seed.maximum());
        const auto driver = makeDriver(dialog.configuration());
        EXPECT_TRUE(driver) << driver.error().message;
    }
}

TEST_F(StationDialogTest, AnArchiveGetsNeither) {
    chooseStation("weewx:");
    widget<QLineEdit>("archive").setText("/home/weewx.sdb");
    EXPECT_EQ(source(), "weewx:/home/weewx.sdb");
    EXPECT_EQ(dialog.configuration().settings, (Value::Dictionary{{"file", "/home/weewx.sdb"}}));
}

}  // namespace
}  // namespace zor
