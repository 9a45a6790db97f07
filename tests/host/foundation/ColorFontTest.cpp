#include <cmath>

#include "host/foundation/Color.h"
#include "host/foundation/Font.h"

namespace zor {
namespace {

TEST(ColorTest, TextHasAllFourComponents) {
    EXPECT_EQ((Color{255, 128, 0, 16}).text(), "#ff800010");
    EXPECT_EQ(Color::black().text(), "#000000ff");
    EXPECT_EQ(Color::clear().text(), "#00000000");
    EXPECT_EQ(Color::gray(), (Color{128, 128, 128, 255}));
}

TEST(ColorTest, ReadsBothForms) {
    EXPECT_EQ(Color::fromText("#ff8000"), (Color{255, 128, 0, 255}));
    EXPECT_EQ(Color::fromText("#FF800010"), (Color{255, 128, 0, 16}));
}

TEST(ColorTest, OtherTextIsNoColor) {
    for (const auto* text : {"", "#", "red", "ff8000", "#ff80", "#ff80000", "#gg8000", "#+f8000", "#-f8000",
                             "#ff8000100", "# f8000", "#0xf800"}) {
        EXPECT_FALSE(Color::fromText(text)) << text;
    }
}

TEST(ColorTest, MixesByShare) {
    const Color red{255, 0, 0, 255}, blue{0, 0, 255, 55};
    EXPECT_EQ(red.mixedWith(blue, 0), red);
    EXPECT_EQ(red.mixedWith(blue, 1), blue);
    EXPECT_EQ(red.mixedWith(blue, 0.5), (Color{128, 0, 128, 155}));
    EXPECT_EQ(red.mixedWith(blue, -3), red);
    EXPECT_EQ(red.mixedWith(blue, 3), blue);
    EXPECT_EQ(red.mixedWith(blue, std::nan("")), red);
}

TEST(ColorTest, AlphaIsScaledWithinItsRange) {
    EXPECT_EQ(Color::white().withAlpha(0.5).alpha, 128);
    EXPECT_EQ((Color{1, 2, 3, 100}).withAlpha(0.5), (Color{1, 2, 3, 50}));
    EXPECT_EQ(Color::white().withAlpha(7).alpha, 255);
    EXPECT_EQ(Color::white().withAlpha(-1).alpha, 0);
}

TEST(FontTest, StyleWordsAreTakenFromTheName) {
    EXPECT_EQ(Font::named("Helvetica Neue", 14), (Font{"Helvetica Neue", 14, false, false}));
    EXPECT_EQ(Font::named("Helvetica Neue Bold", 14), (Font{"Helvetica Neue", 14, true, false}));
    EXPECT_EQ(Font::named("Helvetica Neue Italic", 14), (Font{"Helvetica Neue", 14, false, true}));
    EXPECT_EQ(Font::named("Helvetica Neue Bold Italic", 14), (Font{"Helvetica Neue", 14, true, true}));
}

TEST(FontTest, OtherNamesStayWhole) {
    EXPECT_EQ(Font::named("LCDPHONE", 20).family, "LCDPHONE");
    EXPECT_EQ(Font::named("Bold", 20), (Font{"Bold", 20, false, false}));
    EXPECT_EQ(Font::named("Semibold", 20).family, "Semibold");
    EXPECT_EQ(Font::named("Bold Face", 20), (Font{"Bold Face", 20, false, false}));
}

TEST(FontTest, TravelsAsADictionary) {
    const Font font{"Crysta", 32.5, true, false};
    const Value value = ValueConversion<Font>::to(font);
    EXPECT_EQ(value, Value(Value::Dictionary{{"family", "Crysta"}, {"size", 32.5}, {"bold", true}, {"italic", false}}));
    EXPECT_EQ(ValueConversion<Font>::from(value), font);
    EXPECT_EQ(ValueConversion<Font>::from(Value::Dictionary{{"family", "Crysta"}, {"size", 12}}),
              (Font{"Crysta", 12, false, false}));
}

TEST(FontTest, ManyDictionariesMayTakeTurns) {
    std::vector<Value> values;
    for (int size = 1; size <= 7; ++size) values.push_back(ValueConversion<Font>::to({"Crysta", size * 10.0}));
    values.push_back(Value::Dictionary{{"family", "Crysta"}});
    for (int round = 0; round < 3; ++round) {
        for (std::size_t index = 0; index < 7; ++index) {
            EXPECT_EQ(ValueConversion<Font>::from(values[index]), (Font{"Crysta", (index + 1.0) * 10}));
            EXPECT_EQ(ValueConversion<Font>::from(values[index / 2]), (Font{"Crysta", (index / 2 + 1.0) * 10}));
        }
        EXPECT_FALSE(ValueConversion<Font>::from(values.back()));
    }
}

TEST(FontTest, ADictionaryThatWasNotFilledYetIsAskedAgain) {
    // As with a circle through the dictionary, whose objects meet it empty.
    const auto dictionary = std::make_shared<Value::Dictionary>();
    const Value value{std::shared_ptr<const Value::Dictionary>(dictionary)};
    EXPECT_FALSE(ValueConversion<Font>::from(value));
    dictionary->emplace("family", "Crysta");
    dictionary->emplace("size", 33);
    EXPECT_EQ(ValueConversion<Font>::from(value), (Font{"Crysta", 33}));
}

TEST(FontTest, WhatADictionaryHoldsBesideAFontIsNotKept) {
    auto object = std::make_shared<Object>();
    const std::weak_ptr<Object> watched = object;
    Value value(Value::Dictionary{{"family", "Crysta"}, {"size", 12}, {"other", Value(std::move(object))}});
    EXPECT_EQ(ValueConversion<Font>::from(value), (Font{"Crysta", 12}));
    value = {};
    EXPECT_TRUE(watched.expired());
}

TEST(FontTest, IncompleteOrImpossibleFontsAreRefused) {
    EXPECT_FALSE(ValueConversion<Font>::from("Crysta"));
    EXPECT_FALSE(ValueConversion<Font>::from(Value::Dictionary{{"family", "Crysta"}}));
    EXPECT_FALSE(ValueConversion<Font>::from(Value::Dictionary{{"size", 12}}));
    EXPECT_FALSE(ValueConversion<Font>::from(Value::Dictionary{{"family", ""}, {"size", 12}}));
    EXPECT_FALSE(ValueConversion<Font>::from(Value::Dictionary{{"family", "Crysta"}, {"size", 0}}));
    EXPECT_FALSE(ValueConversion<Font>::from(Value::Dictionary{{"family", "Crysta"}, {"size", std::nan("")}}));
}

}  // namespace
}  // namespace zor
