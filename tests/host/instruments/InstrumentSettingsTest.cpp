#include "host/instruments/InstrumentSettings.h"

#include <limits>

#include "host/instruments/ScaledInstrumentView.h"
#include "host/instruments/ZORBoxView.h"
#include "host/instruments/ZORTextFieldView.h"
#include "tests/host/instruments/InstrumentSupport.h"
#include "tests/support/TemporaryFolder.h"

namespace zor {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

Status apply(ZORInstrumentView& view, std::string_view name, const Value& value) {
    return applySetting(view, view.settings(), name, value);
}

std::vector<std::string> namesOf(const ZORInstrumentView& view) {
    std::vector<std::string> names;
    for (const auto& setting : view.settings()) names.push_back(setting.name);
    return names;
}

Value fontOfSize(Value size) {
    return Value::Dictionary{{"family", "Crysta"}, {"size", std::move(size)}, {"bold", true}, {"italic", false}};
}

TEST(InstrumentSettings, BeginWithThoseOfTheBaseClass) {
    auto names = namesOf(ZORTextFieldView());
    ASSERT_GE(names.size(), 7u);
    names.resize(7);
    EXPECT_EQ(names, (std::vector<std::string>{"propertyName", "useProperty", "font", "alignment", "textColor",
                                               "stringToDraw", "propertyFormat"}));
    EXPECT_EQ(namesOf(ZORBoxView()),
              (std::vector<std::string>{"fillColor", "borderColor", "borderWidth", "cornerRadius"}));
    EXPECT_EQ(namesOf(ZORImageView()), (std::vector<std::string>{"image", "backgroundColor"}));
}

TEST(InstrumentSettings, EveryKindHasALabelAndTakesItsOwnValue) {
    FakeToolkit::install();
    for (const char* kind : {"textField", "dateTimeField", "box", "imageView", "led", "mapView", "webView", "plotView",
                             "levelIndicator", "roundGauge", "linearGauge"}) {
        const auto instrument = ZORWidgetHostView::widgetOfKind(kind, {0, 0, 50, 50}, {})->instrument();
        for (const auto& setting : instrument->settings()) {
            EXPECT_FALSE(setting.label.empty()) << kind << ' ' << setting.name;
            EXPECT_TRUE(setting.set(*instrument, setting.get(*instrument))) << kind << ' ' << setting.name;
        }
    }
}

TEST(InstrumentSettings, AFontTravelsAsADictionary) {
    ZORTextFieldView field;
    EXPECT_TRUE(apply(field, "font", fontOfSize(28)));
    EXPECT_EQ(field.font(), (Font{"Crysta", 28, true, false}));
    EXPECT_EQ(field.valueForKey("font"), fontOfSize(28.0));
}

TEST(InstrumentSettings, AFontOfAnAbsurdSizeIsRefused) {
    ZORTextFieldView field;
    const Font before = field.font();
    for (const double size : {nan, infinity, -infinity, 0.0, -5.0, 0.99, 2000.1, 1e300}) {
        EXPECT_FALSE(apply(field, "font", fontOfSize(size))) << size;
        field.setFont({.size = size});
        EXPECT_EQ(field.font(), before) << size;
    }
    EXPECT_FALSE(apply(field, "font", fontOfSize("28")));
    EXPECT_FALSE(apply(field, "font", "Crysta"));
    field.setFont({.family = ""});
    EXPECT_EQ(field.font(), before);
    EXPECT_TRUE(apply(field, "font", fontOfSize(1)));
    EXPECT_TRUE(apply(field, "font", fontOfSize(2000)));
}

TEST(InstrumentSettings, AnAlignmentIsOneOfThreeWords) {
    ZORTextFieldView field;
    for (const auto& [word, alignment] :
         {std::pair{"center", TextAlignment::center}, {"right", TextAlignment::right}, {"left", TextAlignment::left}}) {
        EXPECT_TRUE(apply(field, "alignment", word));
        EXPECT_EQ(field.alignment(), alignment);
        EXPECT_EQ(field.valueForKey("alignment"), Value(word));
    }
    EXPECT_FALSE(apply(field, "alignment", "middle"));
    EXPECT_FALSE(apply(field, "alignment", 1));
    EXPECT_EQ(field.alignment(), TextAlignment::left);
}

TEST(InstrumentSettings, AColourIsTextWithAlpha) {
    ZORTextFieldView field;
    EXPECT_TRUE(apply(field, "textColor", "#ff800080"));
    EXPECT_EQ(field.textColor(), (Color{0xff, 0x80, 0x00, 0x80}));
    EXPECT_EQ(field.valueForKey("textColor"), Value("#ff800080"));
    EXPECT_FALSE(apply(field, "textColor", "orange"));
}

TEST(InstrumentSettings, NumbersOutOfRangeAreRefused) {
    ZORBoxView box;
    EXPECT_TRUE(apply(box, "borderWidth", 3));
    EXPECT_EQ(box.borderWidth(), 3);
    for (const double width : {nan, infinity, -1.0, 100.5, 1e300}) EXPECT_FALSE(apply(box, "borderWidth", width));
    EXPECT_FALSE(apply(box, "borderWidth", "3"));
    EXPECT_EQ(box.borderWidth(), 3);
}

TEST(InstrumentSettings, SettersBringNumbersWithinTheirBounds) {
    ZORBoxView box;
    box.setBorderWidth(nan);
    EXPECT_EQ(box.borderWidth(), 0);
    box.setBorderWidth(infinity);
    EXPECT_EQ(box.borderWidth(), 100);
    box.setCornerRadius(-1);
    EXPECT_EQ(box.cornerRadius(), 0);
}

TEST(InstrumentSettings, AFormatIsOneOfThoseOffered) {
    ZORTextFieldView field;
    EXPECT_EQ(field.propertyFormat(), "unitStringValueWithUnitShort");
    EXPECT_TRUE(apply(field, "propertyFormat", "unitStringValue"));
    EXPECT_FALSE(apply(field, "propertyFormat", "nonsense"));
    EXPECT_EQ(field.propertyFormat(), "unitStringValue");
}

TEST(InstrumentSettings, AnArchiveNamesNoFileOfTheComputer) {
    FakeToolkit::install();
    const test::TemporaryFolder folder;
    const Bytes picture = FakeToolkit::imageData({320, 200});
    const auto file = folder.write("picture.png", std::string(picture.begin(), picture.end()));
    test::DictionaryCoder named({{"image", file.string()}});
    ZORImageView view;
    EXPECT_TRUE(view.initWithCoder(named));
    EXPECT_FALSE(view.image());
    test::DictionaryCoder held({{"image", Image::plain({7, 8})}});
    EXPECT_TRUE(view.initWithCoder(held));
    ASSERT_TRUE(view.image());
    EXPECT_EQ(view.image()->size(), (Size{7, 8}));
}

TEST(InstrumentSettings, AnImageIsAFileASizeAnImageOrNone) {
    FakeToolkit::install();
    const test::TemporaryFolder folder;
    const Bytes picture = FakeToolkit::imageData({320, 200});
    const auto file = folder.write("picture.png", std::string(picture.begin(), picture.end()));
    ZORImageView view;

    EXPECT_TRUE(apply(view, "image", file.string()));
    ASSERT_TRUE(view.image());
    EXPECT_EQ(view.image()->size(), (Size{320, 200}));
    EXPECT_EQ(*view.image()->data(), picture);

    EXPECT_FALSE(apply(view, "image", (folder / "missing.png").string()));
    EXPECT_FALSE(apply(view, "image", folder.write("text.png", "no picture").string()));
    EXPECT_FALSE(apply(view, "image", 5));
    EXPECT_FALSE(apply(view, "image", Size{nan, 20}));
    EXPECT_FALSE(apply(view, "image", Size{-10, 20}));
    EXPECT_EQ(view.image()->size(), (Size{320, 200}));

    EXPECT_TRUE(apply(view, "image", Size{40, 30}));
    EXPECT_EQ(view.image()->size(), (Size{40, 30}));
    const auto image = Image::plain({7, 8});
    EXPECT_TRUE(apply(view, "image", image));
    EXPECT_EQ(view.image()->size(), (Size{7, 8}));
    EXPECT_NE(view.image(), image);
    EXPECT_TRUE(apply(view, "image", Value()));
    EXPECT_FALSE(view.image());
}

}  // namespace
}  // namespace zor
