#include "qt/PngWriter.h"

#include <cmath>

#ifdef ZOR_HAS_LIBDEFLATE
#include <libdeflate.h>

#include <cstring>
#include <initializer_list>
#include <string_view>
#else
#include <QBuffer>
#endif

namespace zor {

namespace {
constexpr int pixelsPerMetre = 2835;  // 72 per inch, rounded
}

#ifdef ZOR_HAS_LIBDEFLATE

// The format is that of ISO/IEC 15948: a signature, then chunks of length, type, contents and CRC-32.
namespace {

/// Higher levels take up to three times as long and save a few percent of a dashboard's picture.
constexpr int compressionLevel = 1;
/// Of the header: true colour, without and with alpha.
constexpr std::uint8_t rgbColor = 2;
constexpr std::uint8_t rgbaColor = 6;

bool isOpaque(const QImage& image) {
    if (!image.hasAlphaChannel()) return true;
    if (image.format() != QImage::Format_ARGB32_Premultiplied) return false;
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        QRgb common = 0xff000000;
        for (int x = 0; x < image.width(); ++x) common &= row[x];
        if (common != 0xff000000) return false;
    }
    return true;
}

void appendNumber(Bytes& file, std::uint32_t value) {
    for (const int shift : {24, 16, 8, 0}) file.push_back(static_cast<std::uint8_t>(value >> shift));
}

/// Begins a chunk whose contents are then appended; gives its place for endChunk.
std::size_t beginChunk(Bytes& file, std::string_view type) {
    const std::size_t start = file.size();
    appendNumber(file, 0);
    file.insert(file.end(), type.begin(), type.end());
    return start;
}

void endChunk(Bytes& file, std::size_t start) {
    Bytes length;
    appendNumber(length, static_cast<std::uint32_t>(file.size() - start - 8));
    std::ranges::copy(length, file.begin() + static_cast<std::ptrdiff_t>(start));
    appendNumber(file, libdeflate_crc32(0, file.data() + start + 4, file.size() - start - 4));
}

/// Memory that is about to be written is not cleared first.
struct Buffer {
    explicit Buffer(std::size_t count) : bytes(std::make_unique_for_overwrite<std::uint8_t[]>(count)), size(count) {}

    std::unique_ptr<std::uint8_t[]> bytes;
    std::size_t size;
};

/// Every row as its difference from the row above, after the number of that filter.
Buffer filteredRows(const QImage& pixels) {
    constexpr std::uint8_t upFilter = 2;
    const auto rowBytes = static_cast<std::size_t>(pixels.width()) * static_cast<std::size_t>(pixels.depth()) / 8;
    Buffer rows((rowBytes + 1) * static_cast<std::size_t>(pixels.height()));
    std::uint8_t* out = rows.bytes.get();
    const Bytes ground(rowBytes, 0);
    const std::uint8_t* above = ground.data();
    for (int y = 0; y < pixels.height(); ++y) {
        const std::uint8_t* row = pixels.constScanLine(y);
        *out++ = upFilter;
        for (std::size_t i = 0; i < rowBytes; ++i) out[i] = static_cast<std::uint8_t>(row[i] - above[i]);
        out += rowBytes;
        above = row;
    }
    return rows;
}

bool appendCompressed(Bytes& file, const Buffer& data) {
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(compressionLevel), &libdeflate_free_compressor);
    if (!compressor) return false;
    Buffer compressed(libdeflate_zlib_compress_bound(compressor.get(), data.size));
    const std::size_t written = libdeflate_zlib_compress(compressor.get(), data.bytes.get(), data.size,
                                                         compressed.bytes.get(), compressed.size);
    file.insert(file.end(), compressed.bytes.get(), compressed.bytes.get() + written);
    return written > 0;
}

}  // namespace

std::shared_ptr<const Bytes> pngOfImage(QImage image) {
    // Three bytes a pixel instead of four: most dashboards have a ground.
    const bool opaque = isOpaque(image);
    // There is nothing to divide by alpha, and Qt has a short way for images without it.
    if (opaque && image.depth() == 32) image.reinterpretAsFormat(QImage::Format_RGB32);
    image.convertTo(opaque ? QImage::Format_RGB888 : QImage::Format_RGBA8888);
    if (image.isNull()) return {};
    Bytes file{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    const std::size_t header = beginChunk(file, "IHDR");
    appendNumber(file, static_cast<std::uint32_t>(image.width()));
    appendNumber(file, static_cast<std::uint32_t>(image.height()));
    // Eight bits per channel, the only compression and filter method, not interlaced.
    file.insert(file.end(), {8, opaque ? rgbColor : rgbaColor, 0, 0, 0});
    endChunk(file, header);
    const std::size_t resolution = beginChunk(file, "pHYs");
    appendNumber(file, pixelsPerMetre);
    appendNumber(file, pixelsPerMetre);
    file.push_back(1);
    endChunk(file, resolution);
    const std::size_t pixels = beginChunk(file, "IDAT");
    if (!appendCompressed(file, filteredRows(image))) return {};
    endChunk(file, pixels);
    endChunk(file, beginChunk(file, "IEND"));
    return std::make_shared<const Bytes>(std::move(file));
}

#else

std::shared_ptr<const Bytes> pngOfImage(QImage rgba) {
    rgba.convertTo(QImage::Format_RGBA8888);
    rgba.setDotsPerMeterX(pixelsPerMetre);
    rgba.setDotsPerMeterY(pixelsPerMetre);
    QByteArray file;
    QBuffer buffer(&file);
    if (!rgba.save(&buffer, "PNG")) return {};
    return std::make_shared<const Bytes>(file.begin(), file.end());
}

#endif

}  // namespace zor
