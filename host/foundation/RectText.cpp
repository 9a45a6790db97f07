// The text of points, sizes and rectangles, and of the numbers in them, whatever the locale.

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <span>

#include "host/foundation/Geometry.h"

namespace zor {

namespace {

using Digits = std::array<char, 64>;

std::string_view writtenNumber(double value, Digits& digits) {
    if (std::isnan(value)) return "nan";
    // A plain number reads better than an exponent, as long as it stays short.
    const double magnitude = std::abs(value);
    const bool plain = magnitude == 0 || (magnitude >= 1e-6 && magnitude < 1e17);
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                       plain ? std::chars_format::fixed : std::chars_format::scientific);
    return {digits.data(), written.ptr};
}

void appendPair(std::string& text, double first, double second) {
    Digits digits;
    text += '{';
    text += writtenNumber(first, digits);
    text += ", ";
    text += writtenNumber(second, digits);
    text += '}';
}

std::string pairText(double first, double second) {
    std::string text;
    appendPair(text, first, second);
    return text;
}

/// Reads one pass from left to right; each step says whether it found what it looks for, spaces before it skipped.
class TextReader {
public:
    explicit TextReader(std::string_view text) : next_(text.data()), end_(text.data() + text.size()) {}

    bool accept(char wanted) {
        skipSpace();
        const bool isHere = next_ != end_ && *next_ == wanted;
        if (isHere) ++next_;
        return isHere;
    }

    bool acceptWord(std::string_view wanted) {
        skipSpace();
        if (!std::string_view(next_, end_).starts_with(wanted)) return false;
        next_ += wanted.size();
        return true;
    }

    bool number(double& value) {
        skipSpace();
        return wholeNumber(value) || anyNumber(value);
    }

    /// "{a, b}"
    bool pair(double& first, double& second) {
        return accept('{') && number(first) && accept(',') && number(second) && accept('}');
    }

    bool atEnd() {
        skipSpace();
        return next_ == end_;
    }

private:
    /// The short whole numbers that most coordinates are, which need no rounding.
    bool wholeNumber(double& value) {
        constexpr std::ptrdiff_t mostDigits = 15;
        const bool isNegative = next_ != end_ && *next_ == '-';
        const char* const first = next_ + (isNegative ? 1 : 0);
        const char* const last = first + std::min(end_ - first, mostDigits + 1);
        const char* digit = first;
        std::int64_t whole = 0;
        for (; digit != last; ++digit) {
            const auto figure = static_cast<unsigned>(*digit - '0');
            if (figure > 9) break;
            whole = whole * 10 + figure;
        }
        if (digit == first || digit - first > mostDigits) return false;
        if (digit != end_ && (*digit == '.' || *digit == 'e' || *digit == 'E')) return false;
        // Minus zero keeps its sign.
        value = isNegative ? -static_cast<double>(whole) : static_cast<double>(whole);
        next_ = digit;
        return true;
    }

    bool anyNumber(double& value) {
        const std::string_view rest(next_, end_);
        if (rest.starts_with('+') && !rest.starts_with("+-")) ++next_;
        const auto [end, error] = std::from_chars(next_, end_, value);
        if (error != std::errc{}) return false;
        next_ = end;
        return true;
    }

    void skipSpace() {
        // Mostly there is none, and one comparison tells.
        while (next_ != end_ && *next_ <= ' ' && (*next_ == ' ' || (*next_ >= '\t' && *next_ <= '\r'))) ++next_;
    }

    const char* next_;
    const char* end_;
};

struct NamedNumber {
    std::string_view name;
    double value = 0;
    bool found = false;
};

/// "{name = number; ...}": every name once, in any order, the last semicolon optional.
bool readNamed(std::string_view text, std::span<NamedNumber> numbers) {
    TextReader reader(text);
    if (!reader.accept('{')) return false;
    for (std::size_t count = 0; count < numbers.size(); ++count) {
        if (count > 0 && !reader.accept(';')) return false;
        auto wanted = numbers.begin();
        while (wanted != numbers.end() && !reader.acceptWord(wanted->name)) ++wanted;
        if (wanted == numbers.end() || wanted->found) return false;
        wanted->found = true;
        if (!reader.accept('=') || !reader.number(wanted->value)) return false;
    }
    reader.accept(';');
    return reader.accept('}') && reader.atEnd();
}

std::optional<Point> readPair(std::string_view text, std::string_view firstName, std::string_view secondName) {
    Point pair;
    TextReader reader(text);
    if (reader.pair(pair.x, pair.y) && reader.atEnd()) return pair;
    std::array<NamedNumber, 2> named{{{firstName}, {secondName}}};
    if (!readNamed(text, named)) return {};
    return Point{named[0].value, named[1].value};
}

}  // namespace

std::string shortestNumber(double value) {
    Digits digits;
    return std::string(writtenNumber(value, digits));
}

std::string stringFromPoint(Point point) {
    return pairText(point.x, point.y);
}

std::string stringFromSize(Size size) {
    return pairText(size.width, size.height);
}

std::string stringFromRect(const Rect& rect) {
    std::string text;
    text.reserve(48);
    text += '{';
    appendPair(text, rect.x, rect.y);
    text += ", ";
    appendPair(text, rect.width, rect.height);
    text += '}';
    return text;
}

Point pointFromString(std::string_view text) {
    return readPair(text, "x", "y").value_or(Point{});
}

Size sizeFromString(std::string_view text) {
    const Point pair = readPair(text, "width", "height").value_or(Point{});
    return {pair.x, pair.y};
}

Rect rectFromString(std::string_view text) {
    Rect rect;
    TextReader reader(text);
    if (reader.accept('{') && reader.pair(rect.x, rect.y) && reader.accept(',') &&
        reader.pair(rect.width, rect.height) && reader.accept('}') && reader.atEnd()) {
        return rect;
    }
    std::array<NamedNumber, 4> named{{{"x"}, {"y"}, {"width"}, {"height"}}};
    if (!readNamed(text, named)) return {};
    return {named[0].value, named[1].value, named[2].value, named[3].value};
}

}  // namespace zor
