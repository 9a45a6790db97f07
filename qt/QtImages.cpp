#include "qt/QtImages.h"

#include <QBuffer>
#include <QImageReader>
#include <QPaintEngine>
#include <QPainter>
#ifdef ZOR_HAS_SVG
#include <QSvgRenderer>
#endif
#include <algorithm>
#include <cmath>
#include <string_view>

#include "qt/QtConversions.h"

namespace zor {

namespace {

constexpr double pointsPerInch = 72;
constexpr double metresPerInch = 0.0254;

QByteArray borrowed(const Bytes& data) {
    return QByteArray::fromRawData(reinterpret_cast<const char*>(data.data()), static_cast<qsizetype>(data.size()));
}

bool beginsWith(const Bytes& data, std::string_view start, std::size_t offset = 0) {
    return data.size() >= offset + start.size() &&
           std::ranges::equal(start, std::span(data).subspan(offset, start.size()),
                              [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
}

std::uint32_t bigEndian(const Bytes& data, std::size_t offset, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i) value = value << 8 | data[offset + i];
    return value;
}

/// Points per pixel in each direction, (1, 1) where the file states no resolution. Qt answers the screen's resolution
/// for such a file, so that the pHYs chunk of PNG and the JFIF segment of JPEG are read here.
Size pointsPerPixel(const Bytes& data) {
    const auto perPixel = [](double x, double y, double pixelsPerInch) {
        return x > 0 && y > 0 ? Size{pointsPerInch / (x * pixelsPerInch), pointsPerInch / (y * pixelsPerInch)}
                              : Size{1, 1};
    };
    if (beginsWith(data, "\x89PNG\r\n\x1a\n")) {
        // Length, type, contents, checksum; the resolution stands before the pixels.
        std::size_t chunk = 8;
        while (chunk + 12 <= data.size() && !beginsWith(data, "IDAT", chunk + 4)) {
            const std::uint32_t length = bigEndian(data, chunk, 4);
            if (beginsWith(data, "pHYs", chunk + 4) && length == 9 && chunk + 21 <= data.size() &&
                data[chunk + 16] == 1) {
                return perPixel(bigEndian(data, chunk + 8, 4), bigEndian(data, chunk + 12, 4), metresPerInch);
            }
            chunk += 12 + std::size_t{length};
        }
    } else if (beginsWith(data, "\xff\xd8\xff\xe0") && beginsWith(data, std::string_view("JFIF\0", 5), 6) &&
               data.size() >= 18) {
        const double x = bigEndian(data, 14, 2), y = bigEndian(data, 16, 2);
        if (data[13] == 1) return perPixel(x, y, 1);
        if (data[13] == 2) return perPixel(x, y, 100 * metresPerInch);
    }
    return {1, 1};
}

#ifdef ZOR_HAS_SVG
/// Plain or compressed; only then is the renderer tried, which would report other data as faulty.
bool maybeVector(const Bytes& data) {
    const auto first = std::ranges::find_if(data, [](std::uint8_t c) { return !std::isspace(c) && c < 0x80; });
    return (first != data.end() && *first == '<') || beginsWith(data, "\x1f\x8b");
}

std::shared_ptr<QSvgRenderer> readVector(const Bytes& data) {
    if (!maybeVector(data)) return {};
    auto renderer = std::make_shared<QSvgRenderer>(borrowed(data));
    return renderer->isValid() ? renderer : nullptr;
}
#endif

/// The picture averaged down where it is drawn much smaller than it is, which the painter would do with holes.
const QImage& fitting(const QImage& pixels, QImage& reduced, QSizeF shown) {
    const QSize wanted(static_cast<int>(std::ceil(shown.width())), static_cast<int>(std::ceil(shown.height())));
    if (wanted.isEmpty() || (2 * wanted.width() > pixels.width() && 2 * wanted.height() > pixels.height())) {
        return pixels;
    }
    const QSize bounded = wanted.boundedTo(pixels.size());
    if (reduced.size() != bounded) {
        reduced = pixels.scaled(bounded, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    return reduced;
}

}  // namespace

QtImages& QtImages::shared() {
    static auto& images = *new QtImages;
    return images;
}

QtImages::Picture& QtImages::picture(const std::shared_ptr<const Bytes>& data) {
    if (const auto known = pictures_.find(data.get()); known != pictures_.end()) {
        if (known->second.data.lock() == data) return known->second;
    }
    std::erase_if(pictures_, [](const auto& entry) { return entry.second.data.expired(); });
    Picture& made = pictures_[data.get()];
    made.data = data;
#ifdef ZOR_HAS_SVG
    made.vector = readVector(*data);
    if (made.vector) return made;
#endif
    QByteArray bytes = borrowed(*data);
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    made.pixels = reader.read();
    if (!made.pixels.isNull()) {
        made.pixels.convertTo(made.pixels.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                            : QImage::Format_RGB32);
    }
    return made;
}

void QtImages::draw(QPainter& painter, const Image& image, const Rect& rect) {
    if (rect.isEmpty() || !isDrawable(rect)) return;
    Picture* shown = image.data() ? &picture(image.data()) : nullptr;
#ifdef ZOR_HAS_SVG
    if (shown && shown->vector) return shown->vector->render(&painter, toQt(rect));
#endif
    if (!shown || shown->pixels.isNull()) return painter.fillRect(toQt(rect), toQt(Color::gray()));
    const bool isRaster = painter.paintEngine()->type() == QPaintEngine::Raster;
    const QSizeF device = painter.deviceTransform().mapRect(toQt(rect)).size();
    painter.drawImage(toQt(rect), isRaster ? fitting(shown->pixels, shown->reduced, device) : shown->pixels);
}

Result<Size> QtImages::sizeOfData(const Bytes& data) const {
#ifdef ZOR_HAS_SVG
    if (const auto vector = readVector(data)) {
        const QSize size = vector->defaultSize();
        return Size{static_cast<double>(size.width()), static_cast<double>(size.height())};
    }
#endif
    QByteArray bytes = borrowed(data);
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    QSize pixels = reader.size();
    if (!pixels.isValid()) pixels = reader.read().size();
    Size scale = pointsPerPixel(data);
    if (reader.transformation() & QImageIOHandler::TransformationRotate90) {
        pixels.transpose();
        std::swap(scale.width, scale.height);
    }
    if (pixels.isEmpty()) return Error{"The data is no picture that can be read"};
    return Size{pixels.width() * scale.width, pixels.height() * scale.height};
}

}  // namespace zor
