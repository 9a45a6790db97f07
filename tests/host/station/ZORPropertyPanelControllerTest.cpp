#include "host/station/ZORPropertyPanelController.h"

#include <gmock/gmock.h>

#include "host/station/SiteDocument.h"
#include "tests/support/FakeToolkit.h"

namespace zor {
namespace {

using testing::ElementsAre;

class ZORPropertyPanelControllerTest : public testing::Test {
protected:
    ZORPropertyPanelControllerTest() { FakeToolkit::install(); }

    std::shared_ptr<Agent> agent = Agent::withName("Garden");
    std::shared_ptr<View> target = std::make_shared<View>();
    SettingList settings;
    std::shared_ptr<ZORPropertyPanelController> panel =
        ZORPropertyPanelController::initWithAgent(agent, target, &settings);
};

TEST_F(ZORPropertyPanelControllerTest, BeginsHiddenWithoutATitle) {
    EXPECT_EQ(panel->agent(), agent);
    EXPECT_EQ(panel->targetObject(), target);
    EXPECT_EQ(panel->properties(), &settings);
    EXPECT_EQ(panel->window()->title(), "");
    EXPECT_EQ(panel->window()->frame(), (Rect{0, 0, 320, 300}));
    EXPECT_FALSE(panel->isVisible());
}

TEST_F(ZORPropertyPanelControllerTest, MayBeEmpty) {
    const auto empty = ZORPropertyPanelController::initWithAgent({}, {}, nullptr);
    EXPECT_EQ(empty->targetObject(), nullptr);
    EXPECT_EQ(empty->properties(), nullptr);
    empty->reload();
    EXPECT_EQ(empty->valueForKey("targetObject"), Value());
}

TEST_F(ZORPropertyPanelControllerTest, ReloadTellsTheToolkitWhatToShow) {
    ObjectPtr shown;
    panel->setObserver([&] { shown = panel->targetObject(); });
    const auto other = std::make_shared<View>();
    panel->setTargetObject(other);
    panel->setProperties(nullptr);
    EXPECT_EQ(shown, nullptr);
    panel->reload();
    EXPECT_EQ(shown, other);
    EXPECT_EQ(panel->properties(), nullptr);
}

TEST_F(ZORPropertyPanelControllerTest, ShowsAndClosesItsWindow) {
    panel->showWindow();
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(panel->valueForKey("visible"), Value(true));
    EXPECT_EQ(panel->valueForKey("window"), Value(panel->window()));
    EXPECT_EQ(panel->valueForKey("targetObject"), Value(target));
    panel->close();
    EXPECT_FALSE(panel->isVisible());
    EXPECT_EQ(panel->valueForKey("visible"), Value(false));
}

TEST_F(ZORPropertyPanelControllerTest, AChangeOfTheTargetMakesTheDocumentOneToBeSaved) {
    const auto document = SiteDocument::create(agent, {});
    document->setDirty(false);
    panel->noteChange();
    EXPECT_TRUE(document->isDirty());
    ZORPropertyPanelController::initWithAgent({}, {}, nullptr)->noteChange();
}

TEST_F(ZORPropertyPanelControllerTest, AsksTheToolkitForItsPeerAtTheFirstShowing) {
    class PanelToolkit : public FakeToolkit {
    public:
        std::shared_ptr<PropertyPanelPeer> makePropertyPanelPeer(ZORPropertyPanelController&) override {
            ++made;
            return std::make_shared<PropertyPanelPeer>();
        }
        int made = 0;
    };
    auto installed = std::make_unique<PanelToolkit>();
    auto& toolkit = *installed;
    Toolkit::install(std::move(installed));
    panel->reload();
    EXPECT_EQ(toolkit.made, 0);
    panel->showWindow();
    panel->close();
    panel->showWindow();
    EXPECT_EQ(toolkit.made, 1);
}

}  // namespace
}  // namespace zor
