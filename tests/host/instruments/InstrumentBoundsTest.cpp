// What every instrument must keep: it draws nothing outside its bounds, at any size, and nothing where there is no
// area.
#include <limits>

#include "host/instruments/ZORMapView.h"
#include "host/instruments/ZORTextFieldView.h"
#include "host/instruments/ZORWebView.h"
#include "tests/host/instruments/InstrumentSupport.h"

namespace zor {
namespace {

constexpr double tolerance = 0.02;

Rect inkOf(const DrawingOperation& operation) {
    Rect ink = operation.rect;
    if (operation.op == "drawText") {
        const Size text = Toolkit::current().sizeOfText(operation.text, operation.font);
        const double slack = operation.rect.width - text.width;
        const double share = operation.alignment == TextAlignment::left     ? 0
                             : operation.alignment == TextAlignment::center ? 0.5
                                                                            : 1;
        ink = {operation.rect.x + slack * share, operation.rect.center().y - text.height / 2, text.width, text.height};
    } else if (!operation.path.isEmpty()) {
        ink = operation.path.bounds();
        if (operation.op.starts_with("stroke")) {
            const double half = operation.stroke.width / 2;
            // A straight line ends square, so that it is wide only across.
            const bool isUpright = ink.width == 0;
            const bool isLevel = ink.height == 0;
            ink = insetRect(ink, isLevel ? 0 : -half, isUpright ? 0 : -half);
        }
    }
    ink = operation.transform.apply(ink);
    return operation.clip ? intersectionRect(ink, *operation.clip) : ink;
}

std::vector<std::shared_ptr<ZORInstrumentView>> instruments(bool linked) {
    std::vector<std::shared_ptr<ZORInstrumentView>> all;
    for (const char* kind : {"textField", "dateTimeField", "box", "imageView", "led", "mapView", "webView", "plotView",
                             "levelIndicator", "roundGauge", "linearGauge"}) {
        const auto widget = ZORWidgetHostView::widgetOfKind(kind, {}, {});
        const auto instrument = widget->instrument();
        widget->setTargetView({});
        if (const auto client = std::dynamic_pointer_cast<PropertyClient>(instrument); client && linked) {
            client->setProperty(test::temperature(-12.5));
        }
        all.push_back(instrument);
    }
    return all;
}

class InstrumentBounds : public ::testing::TestWithParam<Size> {
protected:
    void SetUp() override { FakeToolkit::install(); }
};

TEST_P(InstrumentBounds, HoldAllThatIsDrawn) {
    const Size size = GetParam();
    const Rect bounds{0, 0, size.width, size.height};
    const Rect allowed = insetRect(bounds, -tolerance, -tolerance);
    for (const bool linked : {false, true}) {
        for (const auto& instrument : instruments(linked)) {
            instrument->setFrame({7, 9, size.width, size.height});
            const auto operations = test::drawn(*instrument).operations();
            for (const auto& operation : operations) {
                const Rect ink = inkOf(operation);
                if (ink.isEmpty()) continue;
                EXPECT_TRUE(containsRect(allowed, ink))
                    << instrument->kind() << " at " << stringFromSize(size) << ": " << operation.line();
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, InstrumentBounds,
                         ::testing::Values(Size{10, 10}, Size{10, 400}, Size{400, 10}, Size{16, 16}, Size{24, 60},
                                           Size{40, 40}, Size{60, 24}, Size{64, 64}, Size{112, 512}, Size{180, 34},
                                           Size{240, 240}, Size{256, 40}, Size{480, 360}, Size{2000, 30},
                                           Size{30, 2000}, Size{2000, 2000}),
                         [](const auto& parameter) {
                             return std::to_string(static_cast<int>(parameter.param.width)) + "x" +
                                    std::to_string(static_cast<int>(parameter.param.height));
                         });

TEST(InstrumentBoundsWithoutArea, NothingIsDrawn) {
    FakeToolkit::install();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    for (const Size size : {Size{0, 0}, Size{0, 50}, Size{50, -1}, Size{nan, 50}, Size{50, infinity}, Size{100'001, 50},
                            Size{50, 1e300}}) {
        for (const auto& instrument : instruments(true)) {
            instrument->setFrame({0, 0, size.width, size.height});
            EXPECT_TRUE(test::drawn(*instrument).operations().empty())
                << instrument->kind() << " at " << stringFromSize(size);
        }
    }
}

TEST(InstrumentBoundsOfTexts, LongTextsStayInside) {
    FakeToolkit::install();
    const auto web = std::make_shared<ZORWebView>();
    web->setURL("https://" + std::string(200, 'w') + ".example.org/");
    const auto field = std::make_shared<ZORTextFieldView>();
    field->setUseProperty(false);
    field->setStringToDraw(std::string(500, 'W'));
    for (const std::shared_ptr<View>& view : std::vector<std::shared_ptr<View>>{web, field}) {
        view->setFrame({0, 0, 240, 60});
        for (const auto& operation : test::drawn(*view).operationsNamed("drawText")) {
            EXPECT_TRUE(
                containsRect({-tolerance, -tolerance, 240 + 2 * tolerance, 60 + 2 * tolerance}, inkOf(operation)));
        }
    }
}

TEST(InstrumentBoundsOfSaves, EverySaveIsRestored) {
    FakeToolkit::install();
    for (const auto& instrument : instruments(true)) {
        instrument->setFrame({0, 0, 240, 240});
        EXPECT_EQ(test::drawn(*instrument).depth(), 0u) << instrument->kind();
    }
}

}  // namespace
}  // namespace zor
