#include "qt/QtPictures.h"

#include <QBuffer>
#include <QHashSeed>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>

#include "qt/PdfFinish.h"
#include "qt/PngWriter.h"
#include "qt/QtDrawingContext.h"

namespace zor {

namespace {

/// A larger picture would take more than a gigabyte of memory.
constexpr double mostPixels = 1 << 28;

/// Qt writes a document's fonts in the order of a hash table, which differs between runs unless the table's seed is
/// fixed.
class FixedHashSeed {
public:
    FixedHashSeed() { QHashSeed::setDeterministicGlobalSeed(); }
    ~FixedHashSeed() { QHashSeed::resetRandomGlobalSeed(); }
    FixedHashSeed(const FixedHashSeed&) = delete;
    FixedHashSeed& operator=(const FixedHashSeed&) = delete;
};

bool isDrawable(Size size) {
    return zor::isDrawable(Rect{0, 0, size.width, size.height});
}

}  // namespace

std::shared_ptr<const Bytes> pdfOfDrawing(Size size, const Toolkit::Drawing& drawing) {
    if (!isDrawable(size)) return {};
    const Size page{std::max(size.width, 1.0), std::max(size.height, 1.0)};
    // Qt knows pages of whole points only. The drawing goes to the bottom of such a page, where the origin is from
    // which the exact size is then measured.
    const QSizeF whole(std::ceil(page.width), std::ceil(page.height));
    const FixedHashSeed seed;
    QByteArray document;
    QBuffer buffer(&document);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(72);
    writer.setPageSize(QPageSize(whole, QPageSize::Point, {}, QPageSize::ExactMatch));
    writer.setPageMargins({});
    PdfLines lines;
    QPainter painter;
    if (!painter.begin(&writer)) return {};
    painter.translate(0, whole.height() - page.height);
    {
        QtDrawingContext context(painter, &lines);
        drawing(context);
    }
    if (!painter.end() || !finishPdf(document, page, lines)) return {};
    return std::make_shared<const Bytes>(document.begin(), document.end());
}

std::shared_ptr<const Bytes> pngOfDrawing(Size size, const Toolkit::Drawing& drawing) {
    if (!isDrawable(size) || !(size.width > 0 && size.height > 0)) return {};
    const double width = std::ceil(size.width), height = std::ceil(size.height);
    if (width * height > mostPixels) return {};
    QImage image(static_cast<int>(width), static_cast<int>(height), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) return {};
    image.fill(Qt::transparent);
    QPainter painter(&image);
    {
        QtDrawingContext context(painter);
        drawing(context);
    }
    painter.end();
    return pngOfImage(std::move(image));
}

}  // namespace zor
