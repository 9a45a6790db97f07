#include "tests/qt/TestCard.h"

#include <cmath>

#include "host/views/DrawingContext.h"

namespace zor {

namespace {

void drawShapes(DrawingContext& context) {
    context.fillRect({10, 10, 100, 60}, Color::rgb(0xE8EEF4));
    Gradient linear;
    linear.start = {120, 10};
    linear.end = {220, 70};
    linear.stops = {{0, Color::rgb(0xFF8000)}, {0.5, Color::white()}, {1, Color::rgb(0x0060C0)}};
    context.fillPathWithGradient(Path::roundedRect({120, 10, 100, 60}, 12), linear);
    Gradient radial;
    radial.kind = Gradient::Kind::radial;
    radial.start = {265, 35};
    radial.radius = 34;
    radial.stops = {{0, Color::white()}, {0.6, Color::rgb(0x30C030)}, {1, Color::rgb(0x30C030).withAlpha(0)}};
    context.fillPathWithGradient(Path::circle({270, 40}, 34), radial);
    context.strokePath(Path().arc({60, 40}, 24, 135, 405), {.color = Color::rgb(0xC02020), .width = 5});
    context.strokePath(Path::rect({320.5, 10.5, 70, 59}), {.color = Color::black(), .dash = {10, 5}});
    context.strokePath(Path().moveTo({400, 60}).lineTo({420, 15}).lineTo({440, 60}).lineTo({465, 30}),
                       {.color = Color::rgb(0x604080).withAlpha(0.6), .width = 8, .join = LineJoin::miter});
    context.fillPath(Path().addOval({330, 20, 50, 40}).addOval({342, 28, 26, 24}), Color::rgb(0xD0A000).withAlpha(0.5));
}

void drawTexts(DrawingContext& context) {
    const Rect box{10, 80, 220, 90};
    context.strokePath(Path::rect(box), {.color = Color::gray()});
    for (const auto vertical : {VerticalAlignment::top, VerticalAlignment::center, VerticalAlignment::bottom}) {
        for (const auto alignment : {TextAlignment::left, TextAlignment::center, TextAlignment::right}) {
            context.drawText("AVa gj\n21.5 °C", box, Font{.size = 11}, Color::rgb(0x1D1D1F), alignment, vertical);
        }
    }
    context.drawText("76.8 pt", {240, 80, 230, 90}, Font{.size = 57.6, .bold = true}, Color::rgb(0x0A6ED1),
                     TextAlignment::center, VerticalAlignment::center);
    context.save();
    context.translate(40, 260);
    context.rotate(-60);
    context.drawText("Rotated by 60°", {0, 0, 100, 20}, Font{.size = 14, .italic = true}, Color::rgb(0x803000));
    context.restore();
    double y = 180;
    for (const double size : {7.0, 9.5, 12.0, 17.3, 24.0}) {
        context.drawText("Wind 3.4 m/s", {90, y, 150, size}, Font{.size = size}, Color::black());
        y += size * 1.3;
    }
}

void drawLines(DrawingContext& context) {
    std::vector<Point> dense, corners;
    for (int i = 0; i < 720; ++i) {
        dense.push_back({240 + i / 3.2, 220 + 25 * std::sin(i / 60.0) + 6 * std::sin(i * 2.7)});
    }
    context.strokePolyline(dense, {.color = Color::rgb(0x0A6ED1), .width = 1.6, .join = LineJoin::round});
    for (int i = 0; i < 12; ++i) corners.push_back({250 + i * 18.0, i % 2 ? 275.0 : 335.0});
    context.strokePolyline(corners,
                           {.color = Color::rgb(0x208040), .width = 7, .cap = LineCap::round, .join = LineJoin::round});
    for (auto& point : corners) point.y += 15;
    context.strokePolyline(corners, {.color = Color::black().withAlpha(0.4), .width = 5});
}

}  // namespace

void drawTestCard(DrawingContext& context) {
    context.fillRect({0, 0, testCardSize.width, testCardSize.height}, Color::white());
    drawShapes(context);
    drawTexts(context);
    drawLines(context);
    context.save();
    context.clipToPath(Path::circle({130, 310}, 40));
    for (int i = 0; i < 20; ++i) context.fillRect({90 + i * 8.0, 270, 4, 80}, Color::rgb(0xA03060));
    context.restore();
    context.drawImage(*Image::plain({30, 20}), {190, 300, 30, 20});
}

}  // namespace zor
