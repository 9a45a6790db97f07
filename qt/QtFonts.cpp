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
/// Texts change all the time; beyond this many the cache starts anew.
constexpr std::size_t mostBlocks = 4096;

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

QFont shapingFont(const Font& font) {
    QFont result(installedFamily(font.family));
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
        const QFont shaping = shapingFont(font);
        const QFontMetricsF metrics(shaping);
        face = std::make_unique<Face>(shaping, FontMetrics{metrics.ascent(), metrics.descent(), metrics.capHeight()});
    }
    return *face;
}

FontMetrics QtFonts::metrics(const Font& font) {
    if (!std::isfinite(font.size) || font.size <= 0) return {};
    const FontMetrics& metrics = face(font).metrics;
    const double factor = font.size / shapingSize;
    return {metrics.ascent * factor, metrics.descent * factor, metrics.capHeight * factor};
}

const TextBlock& QtFonts::block(std::string_view text, const Font& font) {
    const std::string key = faceKey(font) + '\n' + shortestNumber(font.size) + '\n' + std::string(text);
    if (const auto known = blocks_.find(key); known != blocks_.end()) return known->second;
    if (blocks_.size() >= mostBlocks) {
        blocks_.clear();
        scaledFonts_.clear();
    }
    TextBlock& block = blocks_[key];
    const FontMetrics metrics = this->metrics(font);
    block.ascent = metrics.ascent;
    block.lineHeight = metrics.ascent + metrics.descent;
    if (block.lineHeight <= 0) return block;
    const QString whole = toQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\t', u' ');
    for (const QString& line : whole.split(u'\n')) block.lines.push_back(shape(line, face(font), font.size));
    return block;
}

TextBlock::Line QtFonts::shape(const QString& text, const Face& face, double size) {
    QTextLayout layout(text, face.font);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    option.setUseDesignMetrics(true);
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine shaped = layout.createLine();
    layout.endLayout();
    if (!shaped.isValid()) return {};

    const double factor = size / shapingSize;
    TextBlock::Line line{shaped.naturalTextWidth() * factor, {}};
    const QPointF baseLine(0, shaped.ascent());
    for (QGlyphRun& run : layout.glyphRuns()) {
        QList<QPointF> positions = run.positions();
        for (QPointF& position : positions) position = (position - baseLine) * factor;
        run.setPositions(positions);
        run.setRawFont(scaled(run.rawFont(), size));
        line.runs.push_back(run);
    }
    return line;
}

const QRawFont& QtFonts::scaled(const QRawFont& font, double size) {
    auto known = std::ranges::find(scaledFonts_, font, &std::pair<QRawFont, std::map<double, QRawFont>>::first);
    if (known == scaledFonts_.end()) known = scaledFonts_.insert(known, {font, {}});
    auto [entry, isNew] = known->second.try_emplace(size, font);
    if (isNew) entry->second.setPixelSize(size);
    return entry->second;
}

Status QtFonts::activate(const std::filesystem::path& file) {
    if (QFontDatabase::addApplicationFont(toQt(file.string())) < 0) {
        return Error{"The file " + file.string() + " is no font that can be read"};
    }
    // A family that was missing may be there now.
    faces_.clear();
    blocks_.clear();
    scaledFonts_.clear();
    return success();
}

}  // namespace zor
