#include "qt/PdfLines.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace zor {

namespace {

/// Nothing is drawn as far out as what stands for the lines.
constexpr int standInX = -5'000'000;
constexpr int standInY = -5'000'000;
constexpr double farthest = 4'000'000;

/// In hundredths, finer than anybody sees, without zeros at the end.
void appendNumber(QByteArray& text, double number) {
    const long hundredths = std::lround(number * 100);
    const int tenths = static_cast<int>(std::abs(hundredths) / 10 % 10),
              rest = static_cast<int>(std::abs(hundredths) % 10);
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, std::abs(hundredths) / 100).ptr;
    if (hundredths < 0) text.append('-');
    text.append(digits, end - digits);
    if (tenths > 0 || rest > 0) text.append('.').append(static_cast<char>('0' + tenths));
    if (rest > 0) text.append(static_cast<char>('0' + rest));
    text.append(' ');
}

QByteArray pathOf(const QPolygonF& line) {
    QByteArray text;
    text.reserve(line.size() * 14);
    for (const QPointF point : line) {
        const char* verb = text.isEmpty() ? "m\n" : "l\n";
        appendNumber(text, point.x());
        appendNumber(text, point.y());
        text.append(verb);
    }
    return text;
}

QPolygonF standIn(std::size_t number) {
    const double x = standInX - static_cast<double>(number);
    return QPolygonF({{x, standInY}, {x, standInY - 1}});
}

}  // namespace

bool PdfLines::canHold(const QPolygonF& line) {
    return line.size() > 1 && std::ranges::all_of(line, [](QPointF point) {
               return std::abs(point.x()) < farthest && std::abs(point.y()) < farthest;
           });
}

QPolygonF PdfLines::add(const QPolygonF& line) {
    lines_.push_back(pathOf(line));
    return standIn(lines_.size() - 1);
}

QByteArray PdfLines::putInto(const QByteArray& page) const {
    QByteArray result;
    qsizetype done = 0;
    for (std::size_t number = 0; number < lines_.size(); ++number) {
        const QByteArray sought = pathOf(standIn(number));
        const qsizetype place = page.indexOf(sought, done);
        // What is clipped away Qt has not written.
        if (place < 0) continue;
        result.append(page.data() + done, place - done).append(lines_[number]);
        done = place + sought.size();
    }
    return result.append(page.data() + done, page.size() - done);
}

}  // namespace zor
