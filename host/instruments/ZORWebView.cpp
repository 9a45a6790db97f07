#include "host/instruments/ZORWebView.h"

#include <algorithm>
#include <array>

#include "host/foundation/ClassBuilder.h"
#include "host/instruments/InstrumentDrawing.h"
#include "host/instruments/InstrumentSettings.h"

namespace zor {

const ClassRecord& ZORWebView::staticClass() {
    static const ClassRecord& record = ClassBuilder<ZORWebView>("ZORWebView", &ZORInstrumentView::staticClass())
                                           .creatable()
                                           .property("url", &ZORWebView::url, &ZORWebView::setURL)
                                           .registered();
    return record;
}

const SettingList& ZORWebView::settings() const {
    static const SettingList list =
        SettingsBuilder(staticClass(), ZORInstrumentView::settings()).add("url", "Address", SettingKind::url).build();
    return list;
}

void ZORWebView::drawRect(DrawingContext& context, const Rect&) {
    if (!isVisibleArea(bounds())) return;
    const double side = std::min(bounds().width, bounds().height);
    const double radius = std::min(8.0, side * 0.1);
    drawCard(context, bounds(), radius, palette::paper, palette::hairline);

    // The bar with the address, which is the first thing to stay when there is little room.
    const double margin = std::min(10.0, side * 0.1);
    const double barHeight = std::min({24.0, bounds().height - 2 * margin, bounds().width * 0.35});
    const Rect bar{margin, margin, bounds().width - 2 * margin, barHeight};
    drawCard(context, bar, barHeight / 2, palette::ground, Color::clear());
    const auto host = hostOfURL(url_);
    drawFittedText(context, host.empty() ? "No Address" : host, insetRect(bar, barHeight / 2, barHeight * 0.1),
                   {.size = 12}, host.empty() ? palette::secondaryInk : palette::ink);

    // Lines of a page below it.
    constexpr double lineHeight = 6;
    constexpr double lineStep = 18;
    constexpr std::size_t mostLines = 200;
    constexpr std::array<double, 4> shares{1, 0.92, 0.97, 0.6};
    double y = bar.maxY() + lineStep;
    for (std::size_t line = 0; y + lineHeight + margin <= bounds().maxY() && line < mostLines; ++line, y += lineStep) {
        const Rect text{margin, y, bar.width * shares[line % shares.size()], lineHeight};
        context.fillPath(Path::roundedRect(text, lineHeight / 2), palette::ground);
    }
}

std::string_view hostOfURL(std::string_view url) {
    if (const auto scheme = url.find("://"); scheme != std::string_view::npos) url.remove_prefix(scheme + 3);
    url = url.substr(0, url.find_first_of("/?#"));
    if (const auto user = url.rfind('@'); user != std::string_view::npos) url.remove_prefix(user + 1);
    // The colons of an address in brackets do not start a port.
    const auto port = url.find(':', url.starts_with('[') ? std::min(url.find(']'), url.size()) : 0);
    return url.substr(0, port);
}

}  // namespace zor
