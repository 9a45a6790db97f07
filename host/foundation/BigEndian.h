#pragma once
// Numbers with their most significant byte first.

#include <bit>
#include <cstdint>
#include <cstring>

namespace zor {

constexpr std::uint64_t swappedBytes(std::uint64_t number) {
    number = (number & 0x00FF'00FF'00FF'00FF) << 8 | (number >> 8 & 0x00FF'00FF'00FF'00FF);
    number = (number & 0x0000'FFFF'0000'FFFF) << 16 | (number >> 16 & 0x0000'FFFF'0000'FFFF);
    return number << 32 | number >> 32;
}

constexpr std::uint64_t bigEndian(std::uint64_t number) {
    return std::endian::native == std::endian::little ? swappedBytes(number) : number;
}

/// The number in `size` bytes, 1 to 8. Eight bytes must be readable.
inline std::uint64_t loadBigEndian(const std::uint8_t* bytes, std::size_t size) {
    std::uint64_t number;
    std::memcpy(&number, bytes, sizeof number);
    return bigEndian(number) >> (64 - 8 * size);
}

/// Stores the low `size` bytes, 1 to 8, of the number.
inline void storeBigEndian(std::uint8_t* bytes, std::uint64_t number, std::size_t size) {
    number = bigEndian(number << (64 - 8 * size));
    switch (size) {
        case 1:
            std::memcpy(bytes, &number, 1);
            break;
        case 2:
            std::memcpy(bytes, &number, 2);
            break;
        case 4:
            std::memcpy(bytes, &number, 4);
            break;
        default:
            std::memcpy(bytes, &number, size);
    }
}

}  // namespace zor
