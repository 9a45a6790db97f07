#include "host/instruments/Inks.h"

#include "host/instruments/InstrumentDrawing.h"

namespace zor {

namespace {

constexpr Inks darkInks{palette::ink, palette::secondaryInk, palette::hairline, Color::rgb(0xe5e5ea)};
constexpr Inks lightInks{Color::rgb(0xf5f5f7), Color::rgb(0xa1a1a6), Color::rgb(0x48484a),
                         Color::rgb(0x303034)};

/// 0 to 1, with the weights of ITU-R BT.709, on white paper.
double lightness(Color color) {
    const double light = (0.2126 * color.red + 0.7152 * color.green + 0.0722 * color.blue) / 255;
    const double cover = color.alpha / 255.0;
    return cover * light + (1 - cover);
}

}  // namespace

bool isDark(Color ground) {
    return lightness(ground) <= 0.5;
}

const Inks& inksOn(Color ground) {
    return isDark(ground) ? lightInks : darkInks;
}

}  // namespace zor
