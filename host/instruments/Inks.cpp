#include "host/instruments/Inks.h"

#include "host/instruments/InstrumentDrawing.h"

namespace zor {

namespace {

constexpr Inks darkInks{palette::ink, palette::secondaryInk, palette::hairline, Color::rgb(0xe5e5ea)};

Inks lightInksOn(Color ground) {
    const Color opaque{ground.red, ground.green, ground.blue, 255};
    const auto lighter = [&](double part) { return opaque.mixedWith(Color::white(), part); };
    return {lighter(0.95), lighter(0.6), lighter(0.22), lighter(0.12)};
}

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

Inks inksOn(Color ground) {
    return isDark(ground) ? lightInksOn(ground) : darkInks;
}

}  // namespace zor
