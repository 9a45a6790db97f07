#include "qt/Deflate.h"

#ifdef ZOR_HAS_LIBDEFLATE
#include <libdeflate.h>

#include <memory>
#endif

namespace zor {

#ifdef ZOR_HAS_LIBDEFLATE

QByteArray deflated(QByteArrayView data, int level) {
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(level), &libdeflate_free_compressor);
    if (!compressor) return {};
    const auto size = static_cast<std::size_t>(data.size());
    QByteArray result(static_cast<qsizetype>(libdeflate_zlib_compress_bound(compressor.get(), size)),
                      Qt::Uninitialized);
    const std::size_t written = libdeflate_zlib_compress(compressor.get(), data.data(), size, result.data(),
                                                         static_cast<std::size_t>(result.size()));
    result.truncate(static_cast<qsizetype>(written));
    return result;
}

#else

QByteArray deflated(QByteArrayView data, int level) {
    // Before its result Qt writes the data's size.
    constexpr qsizetype sizeBytes = 4;
    return qCompress(reinterpret_cast<const uchar*>(data.data()), data.size(), level).sliced(sizeBytes);
}

#endif

}  // namespace zor
