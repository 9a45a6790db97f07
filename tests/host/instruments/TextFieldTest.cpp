#include "host/instruments/ZORTextFieldView.h"

#include "tests/host/instruments/InstrumentSupport.h"

namespace zor {
namespace {

using test::drawn;

class TextField : public ::testing::Test {
protected:
    void SetUp() override { FakeToolkit::install(); }
    ZORTextFieldView field;
};

TEST_F(TextField, ANewOneIsALabel) {
    EXPECT_EQ(field.kind(), "textField");
    EXPECT_TRUE(field.useProperty());
    EXPECT_EQ(field.text(), "Label");
    EXPECT_EQ(field.font(), (Font{"Helvetica Neue", 24, false, false}));
    EXPECT_EQ(field.alignment(), TextAlignment::left);
    field.setStringToDraw("");
    EXPECT_EQ(field.text(), "--");
}

TEST_F(TextField, ShowsFixedTextWhereNoPropertyIsUsed) {
    field.setProperty(test::temperature(21.5));
    field.setStringToDraw("Feels like");
    field.setUseProperty(false);
    EXPECT_EQ(field.text(), "Feels like");
    EXPECT_EQ(field.valueForKey("text"), Value("Feels like"));
}

TEST_F(TextField, ShowsThePropertyInItsFormat) {
    field.setProperty(test::temperature(21.5));
    EXPECT_EQ(field.text(), "21.5 °C");
    field.setPropertyFormat("unitStringValue");
    EXPECT_EQ(field.text(), "21.5");
    field.setPropertyFormat("unitStringValueWithUnitLong");
    EXPECT_EQ(field.text(), "21.5 degrees Celsius");
}

TEST_F(TextField, LinkingDoesNotSwitchThePropertyOn) {
    field.setUseProperty(false);
    field.setProperty(test::temperature(21.5));
    EXPECT_FALSE(field.useProperty());
}

TEST_F(TextField, SaysSoWithoutAValue) {
    field.setProperty(test::temperature({}));
    EXPECT_EQ(field.text(), "--");
    field.setProperty({});
    EXPECT_EQ(field.text(), "--");
}

TEST_F(TextField, DrawsOneLineInItsBoundsVerticallyCentred) {
    field.setFrame({100, 50, 256, 40});
    field.setAlignment(TextAlignment::center);
    field.setTextColor(Color::rgb(0x112233));
    const auto operations = drawn(field).operations();
    ASSERT_EQ(operations.size(), 1u);
    EXPECT_EQ(operations[0].op, "drawText");
    EXPECT_EQ(operations[0].text, "Label");
    EXPECT_EQ(operations[0].rect, (Rect{0, 0, 256, 40}));
    EXPECT_EQ(operations[0].font, (Font{"Helvetica Neue", 24, false, false}));
    EXPECT_EQ(operations[0].color, Color::rgb(0x112233));
    EXPECT_EQ(operations[0].alignment, TextAlignment::center);
    EXPECT_EQ(operations[0].verticalAlignment, VerticalAlignment::center);
}

TEST_F(TextField, ATextThatIsExactlyAsLargeAsItsFrameKeepsItsSize) {
    // Half the size for each of 5 characters, 1.2 times the size high.
    field.setFrame({0, 0, 60, 28.8});
    EXPECT_EQ(drawn(field).operations().at(0).font.size, 24);
}

TEST_F(TextField, ATextThatDoesNotFitIsDrawnSmaller) {
    field.setFrame({0, 0, 30, 40});
    EXPECT_DOUBLE_EQ(drawn(field).operations().at(0).font.size, 12);
    field.setFrame({0, 0, 256, 14.4});
    EXPECT_DOUBLE_EQ(drawn(field).operations().at(0).font.size, 12);
    // Still smaller would be dust.
    field.setFrame({0, 0, 2, 40});
    EXPECT_TRUE(drawn(field).operations().empty());
}

TEST_F(TextField, LineBreaksAreSpaces) {
    field.setFrame({0, 0, 256, 40});
    field.setStringToDraw("two\nlines");
    EXPECT_EQ(drawn(field).operations().at(0).text, "two lines");
    EXPECT_EQ(field.text(), "two\nlines");
}

TEST_F(TextField, KeepsItsSettingsInArchiveAndCopy) {
    const auto original = std::make_shared<ZORTextFieldView>();
    original->setFont({"LCDPHONE", 30.5, true, true});
    original->setAlignment(TextAlignment::right);
    original->setTextColor({1, 2, 3, 4});
    original->setStringToDraw("Grüße");
    original->setUseProperty(false);
    original->setPropertyFormat("unitStringValue");
    for (const auto& other :
         {test::roundTrip(original), std::dynamic_pointer_cast<ZORTextFieldView>(original->copy())}) {
        ASSERT_TRUE(other);
        EXPECT_EQ(other->font(), (Font{"LCDPHONE", 30.5, true, true}));
        EXPECT_EQ(other->alignment(), TextAlignment::right);
        EXPECT_EQ(other->textColor(), (Color{1, 2, 3, 4}));
        EXPECT_EQ(other->stringToDraw(), "Grüße");
        EXPECT_FALSE(other->useProperty());
        EXPECT_EQ(other->propertyFormat(), "unitStringValue");
    }
}

TEST_F(TextField, ValuesOfAnotherKindInAFileKeepTheDefaults) {
    test::DictionaryCoder coder(Value::Dictionary{{"font", 12},
                                                  {"alignment", "diagonal"},
                                                  {"textColor", Value::Array{1, 2}},
                                                  {"stringToDraw", 7},
                                                  {"useProperty", "no"},
                                                  {"propertyFormat", "unheard of"},
                                                  {"propertyName", 3}});
    ASSERT_TRUE(field.initWithCoder(coder));
    EXPECT_EQ(field.font(), (Font{"Helvetica Neue", 24, false, false}));
    EXPECT_EQ(field.alignment(), TextAlignment::left);
    EXPECT_EQ(field.textColor(), Color::rgb(0x1d1d1f));
    EXPECT_EQ(field.stringToDraw(), "Label");
    EXPECT_TRUE(field.useProperty());
    EXPECT_EQ(field.propertyFormat(), "unitStringValueWithUnitShort");
    EXPECT_FALSE(field.propertyName());
}

TEST_F(TextField, ABooleanStoredAsAnIntegerIsRead) {
    test::DictionaryCoder coder(Value::Dictionary{{"useProperty", 0}});
    ASSERT_TRUE(field.initWithCoder(coder));
    EXPECT_FALSE(field.useProperty());
}

}  // namespace
}  // namespace zor
