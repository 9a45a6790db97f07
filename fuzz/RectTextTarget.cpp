// Text of rectangles, points and sizes: whatever was read is read the same from what is written of it.

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>

#include "fuzz/Check.h"
#include "host/foundation/Geometry.h"

using namespace zor;

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

// clang-format off
constexpr std::array<std::string_view, 32> tokens{
    "{", "}", ",", " ", ";", "=", "x", "y", "width", "height", "0", "-0", "1", "2.5", ".5", "+", "-", "e", "1e300",
    "1e-320", "nan", "inf", "-inf", "1e999", "0x10", "\t\n", "{x = 1; ", "{{", "}}", "}, {", "17976931348623157",
    "0.30000000000000004"};
// clang-format on

bool same(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

}  // namespace

/// Puts a word of the grammar somewhere, in place of a few characters or none.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    std::minstd_rand random(seed);
    if (random() % 3 == 0) return LLVMFuzzerMutate(data, size, maxSize);
    std::string text(reinterpret_cast<const char*>(data), size);
    text.replace(random() % (size + 1), random() % 4, tokens[random() % tokens.size()]);
    if (text.size() > maxSize) text.resize(maxSize);
    std::ranges::copy(text, data);
    return text.size();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const Rect rect = rectFromString(text);
    const Rect back = rectFromString(stringFromRect(rect));
    fuzz::check(
        same(rect.x, back.x) && same(rect.y, back.y) && same(rect.width, back.width) && same(rect.height, back.height),
        "a rectangle reads back the same");
    const Point point = pointFromString(text);
    const Point pointBack = pointFromString(stringFromPoint(point));
    fuzz::check(same(point.x, pointBack.x) && same(point.y, pointBack.y), "a point reads back the same");
    const Size extent = sizeFromString(text);
    const Size extentBack = sizeFromString(stringFromSize(extent));
    fuzz::check(same(extent.width, extentBack.width) && same(extent.height, extentBack.height),
                "a size reads back the same");
    return 0;
}
