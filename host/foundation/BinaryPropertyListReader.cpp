// Every offset, count and size is checked before anything is read or reserved, and what is taken is in proportion to
// the file: object numbers with the same offset are one node, and objects that overlap otherwise are refused.

#include <algorithm>
#include <bit>
#include <cstring>
#include <numeric>
#include <optional>
#include <utility>

#include "host/foundation/BigEndian.h"
#include "host/foundation/PropertyListFormats.h"
#include "host/foundation/Unicode.h"

namespace zor {

namespace {

using Index = PropertyListNode::Index;
using Kind = PropertyListKind;

constexpr std::size_t trailerSize = 32;

class Reader {
public:
    explicit Reader(std::span<const std::uint8_t> data) : data_(data) {}

    Result<PropertyListTables> read() {
        if (!readTrailer() || !joinEqualOffsets()) return *error_;
        tables_.source = {reinterpret_cast<const char*>(data_.data()), objectsEnd_};
        tables_.nodes.reserve(count_);
        tables_.references.reserve((objectsEnd_ - binaryPropertyListMagic.size()) / referenceSize_);
        for (std::size_t index = 0; index < count_; ++index) {
            if (!readNode(static_cast<Index>(index))) return *error_;
        }
        if (!checkContainers()) return *error_;
        return std::move(tables_);
    }

private:
    bool fail(std::string fault, std::size_t offset) {
        error_ = Error{std::move(fault) + " at offset " + std::to_string(offset)};
        return false;
    }

    /// Before the trailer's last number eight bytes can always be read.
    std::uint64_t number(std::size_t offset, std::size_t size) const {
        return loadBigEndian(data_.data() + offset, size);
    }

    bool readTrailer() {
        constexpr std::size_t smallest = binaryPropertyListMagic.size() + 1 + 1 + trailerSize;
        if (data_.size() < smallest) return fail("the property list is cut short", data_.size());
        if (!std::in_range<std::int32_t>(data_.size())) return fail("a property list of more than 2 GiB", 0);
        const std::size_t trailer = data_.size() - trailerSize;
        offsetSize_ = data_[trailer + 6];
        referenceSize_ = data_[trailer + 7];
        const std::uint64_t count = number(trailer + 8, 8);
        const std::uint64_t root = number(trailer + 16, 8);
        const std::uint64_t table = number(trailer + 24, 8);
        if (offsetSize_ < 1 || offsetSize_ > 8) return fail("wrong size of offsets", trailer + 6);
        if (referenceSize_ < 1 || referenceSize_ > 8) return fail("wrong size of references", trailer + 7);
        if (table <= binaryPropertyListMagic.size() || table >= trailer) {
            return fail("the offset table is outside the file", trailer + 24);
        }
        if (count == 0 || count > (trailer - table) / offsetSize_) {
            return fail("more objects than the file can hold", trailer + 8);
        }
        if (root >= count) return fail("the root is not among the objects", trailer + 16);
        objectsEnd_ = table;
        count_ = count;
        tables_.root = static_cast<Index>(root);
        return true;
    }

    std::uint64_t offsetOf(std::size_t index) const { return number(objectsEnd_ + index * offsetSize_, offsetSize_); }

    /// Checks the offsets and gives object numbers that share one a single number, so that naming an object a million
    /// times does not read it a million times.
    bool joinEqualOffsets() {
        bool increasing = true;
        std::uint64_t last = 0;
        for (std::size_t index = 0; index < count_; ++index) {
            const std::uint64_t offset = offsetOf(index);
            if (offset < binaryPropertyListMagic.size() || offset >= objectsEnd_) {
                return fail("an offset leads outside the objects", objectsEnd_ + index * offsetSize_);
            }
            increasing = increasing && offset > last;
            last = offset;
        }
        if (increasing) return true;
        std::vector<Index> order(count_);
        std::iota(order.begin(), order.end(), Index{0});
        std::ranges::stable_sort(order, {}, [&](Index index) { return offsetOf(index); });
        joined_.resize(count_);
        for (std::size_t place = 0; place < count_; ++place) {
            const bool shared = place > 0 && offsetOf(order[place]) == offsetOf(order[place - 1]);
            joined_[order[place]] = shared ? joined_[order[place - 1]] : order[place];
        }
        tables_.root = joined_[tables_.root];
        return true;
    }

    bool readNode(Index index) {
        if (!joined_.empty() && joined_[index] != index) {
            // Nothing refers to it.
            tables_.nodes.emplace_back();
            return true;
        }
        const std::size_t offset = offsetOf(index);
        const std::uint8_t marker = data_[offset];
        const std::uint8_t low = marker & 0x0F;
        switch (marker >> 4) {
            case 0x0:
                if (marker == 0x00) return add(Kind::null, 0, offset, 1);
                if (marker == 0x08 || marker == 0x09) return add(Kind::boolean, low & 1, offset, 1);
                break;
            case 0x1:
                if (low <= 4) return readInteger(offset, std::size_t{1} << low);
                break;
            case 0x2:
                if (low == 2 || low == 3) return readReal(offset, std::size_t{1} << low);
                break;
            case 0x3:
                if (low == 3) return fits(offset, 9) && add(Kind::date, number(offset + 1, 8), offset, 9);
                break;
            case 0x4:
            case 0x5:
            case 0x6:
            case 0x7:
                return readBytes(offset, marker >> 4, low);
            case 0x8:
                if (low > 7) return fail("a UID of more than 8 bytes", offset);
                return fits(offset, low + 2) && add(Kind::uid, number(offset + 1, low + 1), offset, low + 2);
            case 0xA:
            case 0xB:
            case 0xC:
                return readContainer(Kind::array, offset, low);
            case 0xD:
                return readContainer(Kind::dictionary, offset, low);
        }
        return fail("an object of unknown kind", offset);
    }

    bool fits(std::size_t offset, std::size_t size) {
        return size <= objectsEnd_ - offset || fail("an object runs beyond the objects", offset);
    }

    /// Notes a node whose object takes `size` bytes of the file. No two objects share bytes, so together they cannot
    /// take more than there are.
    bool add(Kind kind, std::uint64_t payload, std::size_t offset, std::size_t size, std::size_t count = 0) {
        taken_ += size;
        if (taken_ > objectsEnd_) return fail("an object overlaps others", offset);
        tables_.nodes.push_back({kind, static_cast<std::uint32_t>(count), payload});
        return true;
    }

    bool addReal(double value, std::size_t offset, std::size_t size) {
        return add(Kind::real, std::bit_cast<std::uint64_t>(value), offset, size);
    }

    /// Integers of 1, 2 and 4 bytes are unsigned, wider ones signed.
    bool readInteger(std::size_t offset, std::size_t size) {
        if (!fits(offset, 1 + size)) return false;
        if (size <= 8) return add(Kind::integer, number(offset + 1, size), offset, 1 + size);
        const auto high = static_cast<std::int64_t>(number(offset + 1, 8));
        const std::uint64_t low = number(offset + 9, 8);
        const bool isNarrow = high == (static_cast<std::int64_t>(low) < 0 ? -1 : 0);
        if (isNarrow) return add(Kind::integer, low, offset, 1 + size);
        return addReal(static_cast<double>(high) * 0x1p64 + static_cast<double>(low), offset, 1 + size);
    }

    bool readReal(std::size_t offset, std::size_t size) {
        if (!fits(offset, 1 + size)) return false;
        const std::uint64_t bits = number(offset + 1, size);
        const double value =
            size == 4 ? double{std::bit_cast<float>(static_cast<std::uint32_t>(bits))} : std::bit_cast<double>(bits);
        return addReal(value, offset, 1 + size);
    }

    struct Extent {
        /// Of the marker and the count behind it.
        std::size_t header = 1;
        std::size_t count = 0;
    };

    /// How many entries of `entrySize` bytes an object has; nothing where the file cannot hold them.
    std::optional<Extent> extent(std::size_t offset, std::size_t low, std::size_t entrySize) {
        Extent result{1, low};
        if (low == 0x0F) {
            if (!fits(offset, 2)) return {};
            const std::uint8_t marker = data_[offset + 1];
            if (marker < 0x10 || marker > 0x13) {
                fail("a count that is not an integer", offset + 1);
                return {};
            }
            const std::size_t size = std::size_t{1} << (marker & 0x0F);
            result.header = 2 + size;
            if (!fits(offset, result.header)) return {};
            result.count = number(offset + 2, size);
        }
        if (result.count > (objectsEnd_ - offset - result.header) / entrySize) {
            fail("a count larger than the file can hold", offset);
            return {};
        }
        return result;
    }

    bool readBytes(std::size_t offset, std::uint8_t type, std::size_t low) {
        const bool isUtf16 = type == 0x6;
        const auto extentOf = extent(offset, low, isUtf16 ? 2 : 1);
        if (!extentOf) return false;
        const std::size_t start = offset + extentOf->header;
        const std::size_t size = extentOf->count * (isUtf16 ? 2 : 1);
        const std::size_t whole = extentOf->header + size;
        if (type == 0x4) return add(Kind::data, start, offset, whole, size);
        if (!isUtf16) {
            if (!isUtf8(tables_.source.substr(start, size))) return fail("text that is not UTF-8", offset);
            return add(Kind::string, start, offset, whole, size);
        }
        const std::size_t converted = tables_.bytes.size();
        if (!appendUtf8FromUtf16(tables_.bytes, data_.subspan(start, size), true)) {
            return fail("text that is not UTF-16", offset);
        }
        return add(Kind::string, tables_.source.size() + converted, offset, whole, tables_.bytes.size() - converted);
    }

    bool readContainer(Kind kind, std::size_t offset, std::size_t low) {
        const std::size_t perEntry = kind == Kind::dictionary ? 2 : 1;
        const auto extentOf = extent(offset, low, perEntry * referenceSize_);
        if (!extentOf) return false;
        const std::size_t references = extentOf->count * perEntry;
        const std::size_t first = tables_.references.size();
        if (!add(kind, first, offset, extentOf->header + references * referenceSize_, extentOf->count)) return false;
        tables_.references.resize(first + references);
        const std::span<Index> children = std::span(tables_.references).subspan(first);
        std::size_t place = offset + extentOf->header;
        for (Index& reference : children) {
            const std::uint64_t child = number(place, referenceSize_);
            if (child >= count_) return fail("a reference to an object that does not exist", place);
            reference = static_cast<Index>(child);
            place += referenceSize_;
        }
        if (joined_.empty()) return true;
        for (Index& reference : children) reference = joined_[reference];
        return true;
    }

    /// Keys must be strings. Where containers only hold later ones, or only earlier ones, as every writer has it, none
    /// can hold itself; otherwise the containers are followed.
    bool checkContainers() {
        bool onlyLater = true;
        bool onlyEarlier = true;
        for (std::size_t index = 0; index < count_; ++index) {
            const PropertyListNode& node = tables_.nodes[index];
            if (!node.isContainer()) continue;
            auto children = tables_.children(node);
            if (node.kind == Kind::dictionary) {
                const auto isString = [&](Index key) { return tables_.nodes[key].kind == Kind::string; };
                if (!std::ranges::all_of(children.first(node.count), isString)) {
                    return fail("a dictionary key that is not a string", offsetOf(index));
                }
                children = children.subspan(node.count);
            }
            for (const Index child : children) {
                if (!tables_.nodes[child].isContainer()) continue;
                onlyLater = onlyLater && child > index;
                onlyEarlier = onlyEarlier && child < index;
            }
        }
        return onlyLater || onlyEarlier || followContainers();
    }

    bool followContainers() {
        enum class State : std::uint8_t { unseen, open, closed };
        struct Level {
            Index container;
            std::size_t next;
        };
        std::vector<State> states(count_, State::unseen);
        std::vector<Level> levels;
        const auto enter = [&](Index index) {
            states[index] = State::open;
            levels.push_back({index, 0});
        };
        for (Index start = 0; start < count_; ++start) {
            if (tables_.nodes[start].isContainer() && states[start] == State::unseen) enter(start);
            while (!levels.empty()) {
                Level& level = levels.back();
                const auto children = tables_.children(tables_.nodes[level.container]);
                if (level.next == children.size()) {
                    states[level.container] = State::closed;
                    levels.pop_back();
                    continue;
                }
                const Index child = children[level.next++];
                if (!tables_.nodes[child].isContainer()) continue;
                if (states[child] == State::open) return fail("a container that contains itself", offsetOf(child));
                if (states[child] == State::unseen) enter(child);
            }
        }
        return true;
    }

    std::span<const std::uint8_t> data_;
    PropertyListTables tables_;
    std::optional<Error> error_;
    std::size_t objectsEnd_ = 0;
    std::size_t offsetSize_ = 0;
    std::size_t referenceSize_ = 0;
    std::size_t count_ = 0;
    std::size_t taken_ = 0;
    /// For each object number the one that stands for it; empty where each stands for itself.
    std::vector<Index> joined_;
};

}  // namespace

Result<PropertyListTables> readBinaryPropertyList(std::span<const std::uint8_t> data) {
    return Reader(data).read();
}

}  // namespace zor
