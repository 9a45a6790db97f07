#include "qt/QtPictures.h"

#include <gmock/gmock.h>
#include <stdio.h>

#include <QImage>
#include <cmath>
#include <fstream>
#include <limits>

#include "host/views/DrawingContext.h"
#include "tests/qt/Pixels.h"
#include "tests/qt/TestCard.h"
#include "tests/support/TemporaryFolder.h"

namespace zor {

using testing::HasSubstr;

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

std::string text(const Bytes& data) {
    return {data.begin(), data.end()};
}

std::string pdf(Size size, const Toolkit::Drawing& drawing) {
    const auto data = pdfOfDrawing(size, drawing);
    return data ? text(*data) : std::string();
}

/// What a command prints; empty where it is not installed.
std::string output(const std::string& command) {
    std::string result;
    FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
    if (!pipe) return result;
    char buffer[4096];
    while (const auto count = ::fread(buffer, 1, sizeof buffer, pipe)) result.append(buffer, count);
    return ::pclose(pipe) == 0 ? result : std::string();
}

bool isInstalled(const std::string& program) {
    return !output("command -v " + program).empty();
}

/// Every entry of the cross-reference table leads to its object, and the table is where the document says.
void expectRightOffsets(const std::string& document) {
    const std::size_t start = std::stoul(document.substr(document.rfind("startxref\n") + 10));
    ASSERT_EQ(document.substr(start, 5), "xref\n");
    std::size_t line = document.find('\n', start + 5) + 1;
    int number = 0;
    for (; document[line] != 't'; line += 20, ++number) {
        if (document[line + 17] != 'n') continue;
        const std::size_t offset = std::stoul(document.substr(line, 10));
        const std::string opening = std::to_string(number) + " 0 obj\n";
        EXPECT_EQ(document.substr(offset, opening.size()), opening);
    }
    EXPECT_GT(number, 5);
}

/// What the page shows, which is the longest of the compressed parts.
std::string pageOf(const std::string& document) {
    QByteArray longest;
    const std::string opening = "stream\n";
    for (std::size_t at = 0; (at = document.find("\n" + opening, at)) != std::string::npos;) {
        at += 1 + opening.size();
        const std::size_t end = document.find("endstream", at);
        // Before the compressed bytes their length may stand, as large as one likes.
        const QByteArray size = QByteArray::fromHex("00010000");
        const QByteArray text = qUncompress(size + QByteArray::fromStdString(document.substr(at, end - at)));
        if (text.size() > longest.size()) longest = text;
    }
    return longest.toStdString();
}

void nothing(DrawingContext&) {}

}  // namespace

TEST(QtPictures, ThePageIsExactlyOfTheSizeAsked) {
    EXPECT_THAT(pdf({600, 400}, nothing), HasSubstr("/MediaBox [0 0 600.000000 400.000000]"));
    EXPECT_THAT(pdf({600.5, 400.25}, nothing), HasSubstr("/MediaBox [0 0 600.500000 400.250000]"));
    EXPECT_THAT(pdf({99.5, 9.75}, nothing), HasSubstr("/MediaBox [0 0 99.500000 9.750000  ]"));
    EXPECT_THAT(pdf({20000, 30}, nothing), HasSubstr("/MediaBox [0 0 20000.000000 30.000000]"));
}

TEST(QtPictures, AnEmptyDocumentIsAtLeastAPointLarge) {
    EXPECT_THAT(pdf({0, 0}, nothing), HasSubstr("/MediaBox [0 0 1.000000 1.000000]"));
}

TEST(QtPictures, ASizeThatCannotBeDrawnGivesNoPicture) {
    for (const Size size : {Size{nan, 10}, Size{10, std::numeric_limits<double>::infinity()}, Size{100'001, 10}}) {
        EXPECT_FALSE(pdfOfDrawing(size, nothing));
        EXPECT_FALSE(pngOfDrawing(size, nothing));
    }
    EXPECT_FALSE(pngOfDrawing({0, 0}, nothing));
    EXPECT_FALSE(pngOfDrawing({10, -5}, nothing));
    EXPECT_FALSE(pngOfDrawing({100'000, 100'000}, nothing));
}

TEST(QtPictures, TheSameDrawingGivesTheSameDocument) {
    const std::string first = pdf(testCardSize, drawTestCard);
    EXPECT_EQ(first, pdf(testCardSize, drawTestCard));
    EXPECT_THAT(first, testing::Not(HasSubstr("CreationDate")));
    expectRightOffsets(first);
}

TEST(QtPictures, AnotherProcessGivesTheSameDocument) {
    // This program again, running only this test, with a file to write instead.
    const std::string document = pdf(testCardSize, drawTestCard);
    if (const char* file = std::getenv("ZOR_TEST_DOCUMENT")) {
        std::ofstream(file, std::ios::binary) << document;
        return;
    }
    const test::TemporaryFolder folder;
    const auto file = folder / "again.pdf";
    output("TZ=Asia/Tokyo ZOR_TEST_DOCUMENT=" + file.string() + " /proc/" + std::to_string(::getpid()) +
           "/exe --gtest_filter=QtPictures.AnotherProcess*");
    std::ifstream stream(file, std::ios::binary);
    EXPECT_EQ(document, std::string(std::istreambuf_iterator<char>(stream), {}));
}

TEST(QtPictures, OtherProgramsReadTheDocument) {
    if (!isInstalled("pdfinfo") || !isInstalled("pdffonts") || !isInstalled("pdftotext")) GTEST_SKIP();
    const test::TemporaryFolder folder;
    const std::string file = folder.write("card.pdf", pdf({480.5, 360.25}, drawTestCard)).string();
    const std::string info = output("pdfinfo " + file);
    EXPECT_THAT(info, HasSubstr("Pages:           1\n"));
    EXPECT_THAT(info, HasSubstr("Page size:       480.5 x 360.25 pts"));
    EXPECT_THAT(output("pdffonts " + file), testing::ContainsRegex("TrueType .* yes no  yes"));
    EXPECT_THAT(output("pdftotext -layout " + file + " -"), HasSubstr("Wind 3.4 m/s"));
}

TEST(QtPictures, DocumentAndPictureLookAlike) {
    if (!isInstalled("pdftoppm")) GTEST_SKIP();
    const test::TemporaryFolder folder;
    const std::string file = folder.write("card.pdf", pdf(testCardSize, drawTestCard)).string();
    // At one pixel per point that program puts large letters on whole pixels.
    output("pdftoppm -r 288 -png -singlefile " + file + " " + (folder / "card").string());
    const QImage document =
        QImage((folder / "card.png").c_str()).scaled(480, 360, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage picture = test::picture(testCardSize, drawTestCard);
    ASSERT_EQ(document.size(), picture.size());
    // Antialiasing differs at edges; a shape at another place, of another colour or opacity does in whole areas.
    constexpr int cell = 8;
    for (int y = 0; y + cell <= picture.height(); y += cell) {
        for (int x = 0; x + cell <= picture.width(); x += cell) {
            const auto mean = [&](const QImage& image) {
                double sum = 0;
                for (int i = 0; i < cell * cell; ++i) sum += qGray(image.pixel(x + i % cell, y + i / cell));
                return sum / (cell * cell);
            };
            EXPECT_NEAR(mean(document), mean(picture), 24) << x << ", " << y;
        }
    }
}

TEST(QtPictures, ALongLineHasNoMoreDigitsThanShow) {
    const std::string document = pdf({100, 50}, [](DrawingContext& context) {
        context.translate(1, 2);
        context.strokePolyline({{9, 18}, {29.02, 37.96}, {39, 5.0091}}, {.color = Color::black(), .width = 2});
    });
    EXPECT_THAT(pageOf(document), HasSubstr("2 w"));
    EXPECT_THAT(pageOf(document), HasSubstr("10 20 m\n30.02 39.96 l\n40 7.01 l\n"));
}

TEST(QtPictures, LinesOfADocumentStayInTheirOrderAndClipsAndColors) {
    if (!isInstalled("pdftoppm")) GTEST_SKIP();
    const auto drawing = [](DrawingContext& context) {
        context.fillRect({0, 0, 100, 60}, Color::white());
        context.save();
        context.clipToRect({200, 0, 10, 10});
        context.strokePolyline({{0, 5}, {100, 5}}, {.color = Color::black(), .width = 4});
        context.restore();
        context.save();
        context.clipToRect({0, 0, 50, 60});
        context.strokePolyline({{10, 10}, {90, 10}}, {.color = Color::rgb(0xff0000), .width = 8});
        context.restore();
        context.strokePolyline({{10, 30}, {90, 30}}, {.color = Color::black().withAlpha(0.5), .width = 8});
        context.strokePolyline({{30, 30}, {60, 30}}, {.color = Color::rgb(0x00ff00), .width = 8});
        const Gradient fade{
            .start = {0, 40}, .end = {0, 60}, .stops = {{0, Color::rgb(0x0000ff)}, {1, Color::rgb(0x0000ff)}}};
        context.fillPathWithGradient(Path::rect({20, 40, 40, 10}), fade);
    };
    const test::TemporaryFolder folder;
    const std::string file = folder.write("lines.pdf", pdf({100, 60}, drawing)).string();
    output("pdftoppm -r 72 -png -singlefile " + file + " " + (folder / "lines").string());
    const QImage page((folder / "lines.png").c_str());
    ASSERT_EQ(page.size(), QSize(100, 60));
    EXPECT_EQ(page.pixel(30, 4), qRgb(255, 255, 255));
    EXPECT_EQ(page.pixel(30, 10), qRgb(255, 0, 0));
    EXPECT_EQ(page.pixel(60, 10), qRgb(255, 255, 255));
    EXPECT_NEAR(qRed(page.pixel(20, 30)), 127, 2);
    EXPECT_EQ(page.pixel(45, 30), qRgb(0, 255, 0));
    EXPECT_NEAR(qRed(page.pixel(80, 30)), 127, 2);
    EXPECT_EQ(page.pixel(40, 45), qRgb(0, 0, 255));
    EXPECT_EQ(page.pixel(40, 52), qRgb(255, 255, 255));
    EXPECT_EQ(page.pixel(62, 45), qRgb(255, 255, 255));
}

TEST(QtPictures, TheAreaBelowALineFadesInADocument) {
    if (!isInstalled("pdftoppm")) GTEST_SKIP();
    const test::TemporaryFolder folder;
    const std::string file =
        folder
            .write("fade.pdf", pdf({100, 60},
                                   [](DrawingContext& context) {
                                       context.fillRect({0, 0, 100, 60}, Color::white());
                                       context.translate(20, 10);
                                       const Gradient fade{.start = {0, 0},
                                                           .end = {0, 40},
                                                           .stops = {{0, Color::black().withAlpha(0.8)},
                                                                     {1, Color::black().withAlpha(0)}}};
                                       context.fillPathWithGradient(Path::rect({0, 0, 60, 40}), fade);
                                   }))
            .string();
    output("pdftoppm -r 72 -png -singlefile " + file + " " + (folder / "fade").string());
    const QImage page((folder / "fade.png").c_str());
    ASSERT_EQ(page.size(), QSize(100, 60));
    EXPECT_NEAR(qRed(page.pixel(50, 11)), 59, 8);
    EXPECT_NEAR(qRed(page.pixel(50, 30)), 153, 8);
    EXPECT_NEAR(qRed(page.pixel(50, 48)), 247, 8);
    EXPECT_EQ(page.pixel(15, 30), qRgb(255, 255, 255));
}

TEST(QtPictures, APixelIsAPoint) {
    const auto png = pngOfDrawing({30, 20}, [](DrawingContext& context) {
        context.fillRect({10, 5, 8, 6}, Color{0x20, 0x40, 0x80, 0x80});
    });
    ASSERT_TRUE(png);
    const std::string file = text(*png);
    // 2,835 pixels per metre are 72 per inch.
    EXPECT_THAT(file, HasSubstr(std::string("pHYs\0\0\x0B\x13\0\0\x0B\x13\x01", 13)));
    const QImage image = QImage::fromData(png->data(), static_cast<int>(png->size()));
    EXPECT_EQ(image.size(), QSize(30, 20));
    EXPECT_EQ(image.pixel(0, 0), 0u);
    EXPECT_EQ(qAlpha(image.pixel(10, 5)), 0x80);
    EXPECT_NEAR(qBlue(image.pixel(17, 10)), 0x80, 2);
    EXPECT_EQ(Toolkit::current().sizeOfImageData(*png)->width, 30 * 72 / (2835 * 0.0254));
    EXPECT_EQ(*png, *pngOfDrawing({30, 20}, [](DrawingContext& context) {
        context.fillRect({10, 5, 8, 6}, Color{0x20, 0x40, 0x80, 0x80});
    }));
}

TEST(QtPictures, AFractionOfAPointTakesAPixel) {
    EXPECT_EQ(test::picture({30.2, 19.9}, nothing).size(), QSize(31, 20));
}

}  // namespace zor
