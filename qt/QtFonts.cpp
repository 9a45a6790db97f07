#include "qt/QtFonts.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QTextLayout>
#include <algorithm>
#include <array>
#include <cmath>

#include "qt/QtConversions.h"

namespace zor {

namespace {

/// The size, in points, at which text is shaped.
constexpr int shapingSize = 1000;
/// Beyond so many fonts, and sizes of one, they are made anew.
constexpr std::size_t mostFonts = 64;
constexpr std::size_t mostSizes = 256;

/// The first family of the list that is installed stands for those of the same look that are not.
QString installedFamily(const std::string& wanted) {
    constexpr std::array sansFamilies{"Helvetica Neue", "Helvetica", "Nimbus Sans", "Liberation Sans", "Arimo"};
    const QString family = toQt(wanted);
    if (std::ranges::find(sansFamilies, wanted) == sansFamilies.end() || QFontDatabase::hasFamily(family)) {
        return family;
    }
    const auto found =
        std::ranges::find_if(sansFamilies, [](const char* name) { return QFontDatabase::hasFamily(name); });
    return found == sansFamilies.end() ? QStringLiteral("sans-serif") : QString(*found);
}

QFont shapingFont(const Font& font, const QString& family) {
    QFont result(family);
    result.setStyleHint(QFont::SansSerif,
                        static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    result.setPixelSize(shapingSize);
    result.setBold(font.bold);
    result.setItalic(font.italic);
    result.setHintingPreference(QFont::PreferNoHinting);
    return result;
}

std::string faceKey(const Font& font) {
    return font.family + (font.bold ? "\nb" : "\n") + (font.italic ? "i" : "");
}

bool isDrawable(const Font& font) {
    return std::isfinite(font.size) && font.size > 0;
}

TextBlock::Line shapedLine(const QString& text, const QFont& font) {
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    option.setUseDesignMetrics(true);
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine shaped = layout.createLine();
    layout.endLayout();
    if (!shaped.isValid()) return {};
    TextBlock::Line line{shaped.naturalTextWidth(), {}};
    const QPointF baseLine(0, shaped.ascent());
    for (QGlyphRun& run : layout.glyphRuns()) {
        QList<QPointF> positions = run.positions();
        for (QPointF& position : positions) position -= baseLine;
        run.setPositions(positions);
        line.runs.push_back(run);
    }
    return line;
}

}  // namespace

/// One family in one style, at the size of shaping.
struct QtFonts::Face {
    QFont font;
    FontMetrics metrics;
};

Size TextBlock::size() const {
    double widest = 0;
    for (const Line& line : lines) widest = std::max(widest, line.width);
    return {widest, lineHeight * static_cast<double>(lines.size())};
}

QtFonts& QtFonts::shared() {
    // Never destroyed: Qt's fonts must not be let go after the application object is.
    static auto& fonts = *new QtFonts;
    return fonts;
}

const QtFonts::Face& QtFonts::face(const Font& font) {
    auto& face = faces_[faceKey(font)];
    if (!face) {
        // Looking for a family takes longer than all else here.
        const auto [family, isNew] = families_.try_emplace(font.family);
        if (isNew) family->second = installedFamily(font.family);
        const QFont shaping = shapingFont(font, family->second);
        const QFontMetricsF metrics(shaping);
        face = std::make_unique<Face>(shaping, FontMetrics{metrics.ascent(), metrics.descent(), metrics.capHeight()});
    }
    return *face;
}

FontMetrics QtFonts::metrics(const Font& font) {
    if (!isDrawable(font)) return {};
    const FontMetrics& metrics = face(font).metrics;
    const double factor = font.size / shapingSize;
    return {metrics.ascent * factor, metrics.descent * factor, metrics.capHeight * factor};
}

Size QtFonts::sizeOfText(std::string_view text, const Font& font) {
    if (!isDrawable(font)) return {};
    const Size size = shaped(text, font).size();
    const double factor = font.size / shapingSize;
    return {size.width * factor, size.height * factor};
}

const TextBlock& QtFonts::block(std::string_view text, const Font& font) {
    const std::string key = faceKey(font) + '\n' + shortestNumber(font.size) + '\n' + std::string(text);
    if (const TextBlock* known = blocks_.find(key)) return *known;
    TextBlock& block = blocks_.add(key);
    if (!isDrawable(font)) return block;
    block = shaped(text, font);
    const double factor = font.size / shapingSize;
    block.ascent *= factor;
    block.lineHeight *= factor;
    for (TextBlock::Line& line : block.lines) {
        line.width *= factor;
        for (QGlyphRun& run : line.runs) {
            QList<QPointF> positions = run.positions();
            for (QPointF& position : positions) position *= factor;
            run.setPositions(positions);
            run.setRawFont(scaled(run.rawFont(), font.size));
        }
    }
    return block;
}

const TextBlock& QtFonts::shaped(std::string_view text, const Font& font) {
    const std::string key = faceKey(font) + '\n' + std::string(text);
    if (const TextBlock* known = shaped_.find(key)) return *known;
    TextBlock& block = shaped_.add(key);
    const Face& face = this->face(font);
    block.ascent = face.metrics.ascent;
    block.lineHeight = face.metrics.ascent + face.metrics.descent;
    const QString whole = toQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\t', u' ');
    for (const QString& line : whole.split(u'\n')) block.lines.push_back(shapedLine(line, face.font));
    return block;
}

const QRawFont& QtFonts::scaled(const QRawFont& font, double size) {
    auto known = std::ranges::find(scaledFonts_, font, &std::pair<QRawFont, std::map<double, QRawFont>>::first);
    if (known == scaledFonts_.end()) {
        if (scaledFonts_.size() >= mostFonts) scaledFonts_.clear();
        known = scaledFonts_.insert(scaledFonts_.end(), {font, {}});
    }
    if (known->second.size() >= mostSizes) known->second.clear();
    auto [entry, isNew] = known->second.try_emplace(size, font);
    if (isNew) entry->second.setPixelSize(size);
    return entry->second;
}

Status QtFonts::activate(const std::filesystem::path& file) {
    if (QFontDatabase::addApplicationFont(toQt(file.string())) < 0) {
        return Error{"The file " + file.string() + " is no font that can be read"};
    }
    // A family that was missing may be there now.
    families_.clear();
    faces_.clear();
    shaped_.clear();
    blocks_.clear();
    scaledFonts_.clear();
    return success();
}

}  // namespace zor
