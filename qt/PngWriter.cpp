#include "qt/PngWriter.h"

#ifdef ZOR_HAS_LIBDEFLATE
#include <libdeflate.h>

#include <cstring>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

#include "qt/Deflate.h"
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
constexpr QRgb opaque = 0xff000000;

std::span<const QRgb> rowOf(const QImage& image, int y) {
    return {reinterpret_cast<const QRgb*>(image.constScanLine(y)), static_cast<std::size_t>(image.width())};
}

/// Of an image of 32 bits a pixel.
bool isOpaque(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        QRgb common = opaque;
        for (const QRgb pixel : rowOf(image, y)) common &= pixel;
        if (common < opaque) return false;
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

/// Writes the difference between two rows of pixels, red first, and gives the place after it.
template <std::size_t channels>
std::uint8_t* writeDifference(std::span<const QRgb> row, const QRgb* above, std::uint8_t* out) {
    static_assert(channels == 3 || channels == 4);
    const auto part = [](QRgb pixel, int shift) { return static_cast<std::uint8_t>(pixel >> shift); };
    for (std::size_t x = 0; x < row.size();) {
        // Most of a dashboard's rows repeat the one above.
        const std::size_t end = std::min(x + 16, row.size());
        const std::size_t length = channels * (end - x);
        if (std::memcmp(&row[x], &above[x], (end - x) * sizeof(QRgb)) == 0) {
            std::memset(out, 0, length);
            out += length;
            x = end;
            continue;
        }
        for (; x < end; ++x) {
            out[0] = static_cast<std::uint8_t>(part(row[x], 16) - part(above[x], 16));
            out[1] = static_cast<std::uint8_t>(part(row[x], 8) - part(above[x], 8));
            out[2] = static_cast<std::uint8_t>(part(row[x], 0) - part(above[x], 0));
            if constexpr (channels == 4) out[3] = static_cast<std::uint8_t>(part(row[x], 24) - part(above[x], 24));
            out += channels;
        }
    }
    return out;
}

/// Every row as its difference from the row above, after the number of that filter.
template <std::size_t channels>
Buffer filteredRows(const QImage& image) {
    constexpr std::uint8_t upFilter = 2;
    const auto width = static_cast<std::size_t>(image.width()), height = static_cast<std::size_t>(image.height());
    Buffer rows((channels * width + 1) * height);
    std::uint8_t* out = rows.bytes.get();
    const std::vector<QRgb> ground(width, 0);
    const QRgb* above = ground.data();
    for (int y = 0; y < image.height(); ++y) {
        const auto row = rowOf(image, y);
        *out++ = upFilter;
        out = writeDifference<channels>(row, above, out);
        above = row.data();
    }
    return rows;
}

bool appendCompressed(Bytes& file, const Buffer& data) {
    const QByteArray compressed =
        deflated(QByteArrayView(data.bytes.get(), static_cast<qsizetype>(data.size)), compressionLevel);
    file.insert(file.end(), compressed.begin(), compressed.end());
    return !compressed.isEmpty();
}

}  // namespace

std::shared_ptr<const Bytes> pngOfImage(QImage image) {
    if (image.format() != QImage::Format_ARGB32_Premultiplied) image.convertTo(QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) return {};
    // Three bytes a pixel instead of four: most dashboards have a ground. Then there is nothing to divide by alpha.
    const bool isWhole = isOpaque(image);
    if (!isWhole) image.convertTo(QImage::Format_ARGB32);
    Bytes file{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    const std::size_t header = beginChunk(file, "IHDR");
    appendNumber(file, static_cast<std::uint32_t>(image.width()));
    appendNumber(file, static_cast<std::uint32_t>(image.height()));
    // Eight bits per channel, the only compression and filter method, not interlaced.
    file.insert(file.end(), {8, isWhole ? rgbColor : rgbaColor, 0, 0, 0});
    endChunk(file, header);
    const std::size_t resolution = beginChunk(file, "pHYs");
    appendNumber(file, pixelsPerMetre);
    appendNumber(file, pixelsPerMetre);
    file.push_back(1);
    endChunk(file, resolution);
    const std::size_t pixels = beginChunk(file, "IDAT");
    if (!appendCompressed(file, isWhole ? filteredRows<3>(image) : filteredRows<4>(image))) return {};
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
