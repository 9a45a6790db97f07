#include "qt/PdfLines.h"

#include <gtest/gtest.h>

#include <limits>

#include "qt/Deflate.h"

namespace zor {

namespace {

/// As Qt writes it.
QByteArray written(const QPolygonF& line) {
    QByteArray text;
    for (const QPointF point : line) {
        text += QByteArray::number(point.x(), 'f', 0) + ' ' + QByteArray::number(point.y(), 'f', 0);
        text += text.contains('m') ? " l\n" : " m\n";
    }
    return text;
}

}  // namespace

TEST(PdfLines, TakeThePlacesOfWhatStandsForThem) {
    PdfLines lines;
    EXPECT_TRUE(lines.isEmpty());
    const auto first = lines.add({{1.4, 2.6281}, {-3.05, 4}, {5, 6}}), hidden = lines.add({{7, 7}, {8, 8}});
    const auto third = lines.add({{9, 10}, {11, 12}});
    EXPECT_FALSE(lines.isEmpty());
    EXPECT_EQ(lines.putInto("q\n" + written(first) + "S\n1 w\n" + written(third) + "f\nQ\n"),
              "q\n1.4 2.63 m\n-3.05 4 l\n5 6 l\nS\n1 w\n9 10 m\n11 12 l\nf\nQ\n");
    EXPECT_EQ(lines.putInto("0 0 m\n"), "0 0 m\n");
}

TEST(PdfLines, HoldLinesThatAPageCanShow) {
    EXPECT_TRUE(PdfLines::canHold({{0, 0}, {2'000'000, -2'000'000}}));
    EXPECT_FALSE(PdfLines::canHold({}));
    EXPECT_FALSE(PdfLines::canHold({{1, 1}}));
    EXPECT_FALSE(PdfLines::canHold({{0, 0}, {1e7, 0}}));
    EXPECT_FALSE(PdfLines::canHold({{0, 0}, {0, std::numeric_limits<double>::quiet_NaN()}}));
    EXPECT_FALSE(PdfLines::canHold({{0, 0}, {0, -std::numeric_limits<double>::infinity()}}));
}

TEST(Deflate, GivesWhatQtReadsAgain) {
    const QByteArray text = QByteArray("weather ").repeated(1000);
    for (const int level : {1, 4, 9}) {
        const QByteArray small = deflated(text, level);
        EXPECT_LT(small.size(), 200);
        EXPECT_EQ(qUncompress(QByteArray("\0\0\x1f\x40", 4) + small), text);
    }
}

}  // namespace zor
