// Layout: "bplist00", the objects with the containers before what they hold, a table of their offsets, a trailer of
// 32 bytes. All numbers are big-endian.

#include <bit>
#include <cstring>

#include "host/foundation/BigEndian.h"
#include "host/foundation/PropertyListFormats.h"
#include "host/foundation/Unicode.h"

namespace zor {

namespace {

using Kind = PropertyListKind;

/// The bytes, out of 1, 2, 4 and 8, that hold the number: every reader knows these widths. Narrow integers are read as
/// unsigned, so that the bits of a negative one take all eight bytes.
constexpr std::size_t widthOf(std::uint64_t number) {
    return number <= 0xFF ? 1 : number <= 0xFFFF ? 2 : number <= 0xFFFF'FFFF ? 4 : 8;
}

constexpr std::size_t smallestLongCount = 15;

constexpr std::size_t headerSize(std::size_t count) {
    return count < smallestLongCount ? 1 : 2 + widthOf(count);
}

std::size_t utf16Units(std::string_view text) {
    std::size_t units = 0;
    for (std::size_t position = 0; position < text.size();) {
        units += nextCodePoint(text, position) < 0x10000 ? 1 : 2;
    }
    return units;
}

class Writer {
public:
    explicit Writer(const PropertyListTables& tables) : tables_(tables) {}

    Bytes write() {
        const std::size_t count = tables_.nodes.size();
        referenceWidth_ = widthOf(count - 1);
        std::size_t objects = binaryPropertyListMagic.size();
        for (const auto& node : tables_.nodes) objects += size(node);
        const std::size_t offsetWidth = widthOf(objects);
        data_.resize(objects + count * offsetWidth + trailerSize);
        put(binaryPropertyListMagic);
        std::uint8_t* offset = data_.data() + objects;
        for (std::size_t index = count; index-- > 0; offset += offsetWidth) {
            storeBigEndian(offset, position_, offsetWidth);
            putNode(tables_.nodes[index]);
        }
        position_ = data_.size() - trailerSize + unusedInTrailer;
        put(offsetWidth, 1);
        put(referenceWidth_, 1);
        put(count, 8);
        put(reference(tables_.root), 8);
        put(objects, 8);
        return std::move(data_);
    }

private:
    static constexpr std::size_t trailerSize = 32;
    static constexpr std::size_t unusedInTrailer = 6;

    /// Nodes are made children first; other readers like to meet the root first.
    std::uint64_t reference(PropertyListNode::Index index) const { return tables_.nodes.size() - 1 - index; }

    std::size_t size(const PropertyListNode& node) const {
        switch (node.kind) {
            case Kind::null:
            case Kind::boolean:
                return 1;
            case Kind::integer:
            case Kind::uid:
                return 1 + widthOf(node.payload);
            case Kind::real:
            case Kind::date:
                return 9;
            case Kind::data:
                return headerSize(node.count) + node.count;
            case Kind::array:
            case Kind::dictionary:
                return headerSize(node.count) + tables_.children(node).size() * referenceWidth_;
            case Kind::string:
                break;
        }
        const auto text = tables_.text(node);
        if (isAscii(text)) return headerSize(text.size()) + text.size();
        const std::size_t units = utf16Units(text);
        return headerSize(units) + 2 * units;
    }

    void putNode(const PropertyListNode& node) {
        switch (node.kind) {
            case Kind::null:
                return put(0x00, 1);
            case Kind::boolean:
                return put(node.payload ? 0x09 : 0x08, 1);
            case Kind::integer:
                return putInteger(node.payload);
            case Kind::uid: {
                const std::size_t width = widthOf(node.payload);
                put(0x80 | (width - 1), 1);
                return put(node.payload, width);
            }
            case Kind::real:
            case Kind::date:
                put(node.kind == Kind::real ? 0x23 : 0x33, 1);
                return put(node.payload, 8);
            case Kind::string:
                return putString(tables_.text(node));
            case Kind::data:
                putHeader(0x40, node.count);
                return put(tables_.text(node));
            case Kind::array:
            case Kind::dictionary:
                putHeader(node.kind == Kind::array ? 0xA0 : 0xD0, node.count);
                for (const auto child : tables_.children(node)) put(reference(child), referenceWidth_);
        }
    }

    void putInteger(std::uint64_t bits) {
        const std::size_t width = widthOf(bits);
        put(0x10 | static_cast<std::uint64_t>(std::countr_zero(width)), 1);
        put(bits, width);
    }

    void putHeader(std::uint64_t marker, std::size_t count) {
        put(marker | std::min(count, smallestLongCount), 1);
        if (count >= smallestLongCount) putInteger(count);
    }

    void putString(std::string_view text) {
        if (isAscii(text)) {
            putHeader(0x50, text.size());
            return put(text);
        }
        putHeader(0x60, utf16Units(text));
        for (std::size_t position = 0; position < text.size();) {
            const char32_t codePoint = nextCodePoint(text, position);
            if (codePoint < 0x10000) {
                put(codePoint, 2);
            } else {
                put(0xD800 + ((codePoint - 0x10000) >> 10), 2);
                put(0xDC00 + ((codePoint - 0x10000) & 0x3FF), 2);
            }
        }
    }

    void put(std::uint64_t number, std::size_t width) {
        storeBigEndian(data_.data() + position_, number, width);
        position_ += width;
    }

    void put(std::string_view bytes) {
        std::memcpy(data_.data() + position_, bytes.data(), bytes.size());
        position_ += bytes.size();
    }

    const PropertyListTables& tables_;
    Bytes data_;
    std::size_t position_ = 0;
    std::size_t referenceWidth_ = 1;
};

}  // namespace

Bytes writeBinaryPropertyList(const PropertyListTables& tables) {
    return Writer(tables).write();
}

}  // namespace zor
