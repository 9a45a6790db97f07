#pragma once
// The one place where fonts are chosen and text is measured. Main thread only.

#include <QGlyphRun>
#include <QRawFont>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/foundation/Font.h"
#include "host/foundation/Result.h"
#include "host/views/Toolkit.h"
#include "qt/RecentCache.h"

namespace zor {

/// Text ready to be drawn: every glyph has its place, in points from the left end of its line's base line.
struct TextBlock {
    struct Line {
        double width = 0;
        std::vector<QGlyphRun> runs;
    };
    std::vector<Line> lines;
    /// From the top of a line to its base line, and to the next line.
    double ascent = 0;
    double lineHeight = 0;

    /// The widest line, and all lines together.
    Size size() const;
};

/// Text is shaped once, at a large size without hinting, and scaled from there: its extents grow in proportion to the
/// font's size and are the same on every device, and measuring it at other sizes costs nothing.
class QtFonts {
public:
    static QtFonts& shared();

    /// Lives until the next call. A size that is no positive number gives a block without extent.
    const TextBlock& block(std::string_view text, const Font& font);
    Size sizeOfText(std::string_view text, const Font& font);
    FontMetrics metrics(const Font& font);
    /// Makes a font file available by its family name.
    Status activate(const std::filesystem::path& file);

private:
    struct Face;

    const Face& face(const Font& font);
    /// At the size of shaping, whatever the font's. Lives until the next call.
    const TextBlock& shaped(std::string_view text, const Font& font);
    const QRawFont& scaled(const QRawFont& font, double size);

    /// The installed families that stand for the wanted ones.
    std::map<std::string, QString, std::less<>> families_;
    std::map<std::string, std::unique_ptr<Face>, std::less<>> faces_;
    std::vector<std::pair<QRawFont, std::map<double, QRawFont>>> scaledFonts_;
    /// Texts change all the time; a large dashboard shows no more at once than are kept for certain.
    RecentCache<TextBlock> shaped_{2048};
    RecentCache<TextBlock> blocks_{2048};
};

}  // namespace zor
