#include "host/station/Settings.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zor {
namespace {

class Lamp : public Object {
public:
    double brightness() const { return brightness_; }
    void setBrightness(double brightness) { brightness_ = brightness; }
    std::string label() const { return label_; }
    void setLabel(const std::string& label) { label_ = label; }
    std::int64_t mode() const { return mode_; }
    void setMode(std::int64_t mode) { mode_ = mode; }

private:
    double brightness_ = 1;
    std::string label_;
    std::int64_t mode_ = 0;
};

const SettingList& lampSettings() {
    static const SettingList list = [] {
        auto brightness =
            makeSetting<Lamp>("brightness", "Brightness", SettingKind::number, &Lamp::brightness, &Lamp::setBrightness);
        brightness.minimum = 0.5;
        brightness.maximum = 10;
        auto mode = makeSetting<Lamp>("mode", "Mode", SettingKind::choice, &Lamp::mode, &Lamp::setMode);
        mode.choices = {{0, "Off"}, {2, "On"}};
        return SettingList{brightness, mode,
                           makeSetting<Lamp>("label", "Label", SettingKind::text, &Lamp::label, &Lamp::setLabel)};
    }();
    return list;
}

std::string apply(Lamp& lamp, std::string_view name, const Value& value) {
    const auto status = applySetting(lamp, lampSettings(), name, value);
    return status ? "" : status.error().message;
}

TEST(Settings, AreReadAndWrittenThroughGetterAndSetter) {
    Lamp lamp;
    EXPECT_EQ(apply(lamp, "brightness", 2.5), "");
    EXPECT_EQ(apply(lamp, "label", "Porch"), "");
    EXPECT_EQ(lamp.brightness(), 2.5);
    EXPECT_EQ(lamp.label(), "Porch");
    EXPECT_EQ(lampSettings()[0].get(lamp), Value(2.5));
    EXPECT_EQ(lampSettings()[2].get(lamp), Value("Porch"));
}

TEST(Settings, NumbersAreKeptInTheirRange) {
    Lamp lamp;
    EXPECT_EQ(apply(lamp, "brightness", 0.5), "");
    EXPECT_EQ(apply(lamp, "brightness", 10), "");
    EXPECT_EQ(apply(lamp, "brightness", 0.4), "brightness: must be at least 0.5");
    EXPECT_EQ(apply(lamp, "brightness", 11), "brightness: must be at most 10");
    EXPECT_EQ(apply(lamp, "brightness", std::nan("")), "brightness: must be a finite number");
    EXPECT_EQ(apply(lamp, "brightness", "5"), "brightness: must be a finite number");
    EXPECT_EQ(lamp.brightness(), 10);
}

TEST(Settings, ChoicesAreTheOnesOffered) {
    Lamp lamp;
    EXPECT_EQ(apply(lamp, "mode", 2), "");
    EXPECT_EQ(apply(lamp, "mode", 1), "mode: the value is none of the choices");
    EXPECT_EQ(apply(lamp, "mode", "On"), "mode: the value is none of the choices");
    EXPECT_EQ(lamp.mode(), 2);
}

TEST(Settings, WrongNamesAndKindsAreNamed) {
    Lamp lamp;
    EXPECT_EQ(apply(lamp, "colour", 1), "colour: there is no such setting");
    EXPECT_EQ(apply(lamp, "label", 1), "label: the value is of the wrong kind");
    EXPECT_EQ(lamp.label(), "");
}

}  // namespace
}  // namespace zor
