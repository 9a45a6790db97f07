#pragma once
// Decodes the objects of an archive without recursion: what an object refers to is decoded before it is filled, each
// object once, and every object is noted before what it refers to is looked at.

#include <array>
#include <deque>
#include <limits>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/foundation/Allowance.h"
#include "host/foundation/ArchiveFormat.h"
#include "host/foundation/ArchivedClasses.h"
#include "host/foundation/KeyLayouts.h"

namespace zor {

class ArchiveReader {
public:
    using Index = PropertyList::Index;
    /// An object's place among the archive's objects; zero stands for absence.
    using Number = std::uint32_t;

    struct Taken {
        Value value = {};
        ArchiveFailure failure = {};
    };

    /// `objects` are the nodes of the archive's objects. The list and the options must outlive the reader.
    ArchiveReader(const PropertyList& list, std::span<const Index> objects, std::size_t fileSize,
                  const UnarchivingOptions& options);

    /// Decodes the object and all that it refers to.
    Taken decode(std::uint64_t root);

    const PropertyList& list() const { return list_; }
    const UnarchivingOptions& options() const { return options_; }
    /// Gives the value of a node that is a plain value or a reference to what is decoded already, or why it cannot;
    /// `holder` is the object that asks. `value` comes empty and stays so for what is absent, as are containers that
    /// are no objects of the archive.
    ArchiveFailure take(Index node, Number holder, std::optional<Value>& value) {
        return take(node, holder, Taker::object, value);
    }
    /// The text at the node, to be read at once; nothing where the archive repeats texts out of proportion.
    std::optional<std::string_view> text(Index node);
    /// What it says: widgets mostly have the size of others, so that their contents share a text.
    std::optional<Rect> rect(Index node);
    /// The node itself, or the one that it refers to, where that is a plain value.
    std::optional<Index> plainNode(Index node) const;

private:
    using Kind = ArchivedClass::Kind;
    using Slot = std::uint32_t;
    using Weight = std::uint32_t;
    /// Of objects and containers that hold each other.
    using Depth = std::uint16_t;
    static_assert(archive::deepestLevel < std::numeric_limits<Depth>::max());
    /// An object looks through what it is given; a container only holds it.
    enum class Taker { object, container };
    static constexpr Slot none = 0xFFFF'FFFF;
    static constexpr Index noNode = 0xFFFF'FFFF;

    /// An object or container that is decoded, or being decoded. There are as many as the archive has objects: each
    /// fits a line of the processor's cache.
    struct Decoded {
        Value value = {};
        /// Absent where all is well.
        std::unique_ptr<const ArchiveFailure> failure = {};
        Number number = 0;
        /// The node of a dictionary's keys.
        Index keys = noNode;
        /// Bytes of a text, or of a container's entries and their texts; zero while it is open.
        Weight weight = 0;
        /// Its place on the stack, counted from one, while it is open; then the levels of objects and containers from
        /// here down, zero for leaves and for what failed.
        Depth level = 0;
        Kind kind = Kind::unusable;
        bool isOpen = false;
    };
    static_assert(sizeof(Decoded) <= 64);

    /// One that is being decoded: the nodes of `first` and then of `second` are looked at one after the other.
    struct Level {
        Slot slot = none;
        bool isContainer = false;
        Depth height = 0;
        std::span<const Index> first = {};
        std::span<const Index> second = {};
        std::size_t next = 0;
        /// The highest level up to this one that holds an object; zero for none.
        std::size_t objectLevel = 0;
        std::shared_ptr<Value::Array> array = {};
        std::shared_ptr<Value::Dictionary> dictionary = {};
        /// Of an object's keys, where it is known.
        KeyLayout* layout = nullptr;
    };

    /// Until one of them becomes a level of its own, or to the end.
    void visitRest(Level& level);
    void visit(std::uint64_t reference);
    void meetAgain(const Decoded& decoded);
    void begin(Number number, Index node);
    Index nodeOf(const Decoded& decoded) const { return objects_[decoded.number]; }
    void beginContainer(Slot slot);
    void push(Level level);
    void finishLevel();
    void fill(Level& level, Decoded& decoded);
    static void fail(Decoded& decoded, const ArchiveFailure& failure);
    static void fail(Decoded& decoded, ArchiveFailure::Reason reason);
    ArchiveFailure takeLeaf(const Decoded& decoded, std::optional<Value>& value);
    ArchiveFailure take(Index node, Number holder, Taker taker, std::optional<Value>& value);
    ArchiveFailure takeObject(std::uint64_t reference, Number holder, Taker taker, std::optional<Value>& value);
    std::optional<Index> classReference(Index node, const KeyLayout* layout) const;
    ArchiveFailure takePlain(Index node, Number holder, std::optional<Value>& value);
    ArchiveFailure takeText(Index node, Number holder, std::optional<Value>& value);

    const PropertyList& list_;
    const std::span<const Index> objects_;
    const UnarchivingOptions& options_;
    ArchivedClasses classes_;
    Allowance textAllowance_;
    Allowance containerAllowance_;
    /// How many entries containers may still have: no more, all together, than the file has references.
    std::size_t entryAllowance_;
    KeyLayouts layouts_;
    std::deque<Decoded> decoded_;
    /// By node, so that one object under many numbers is decoded once. The node of a container's items leads to the
    /// container that has them, so that containers which share them are one.
    std::vector<Slot> slotOfNode_;
    std::vector<Level> levels_;
    std::unordered_map<Index, Value> data_;
    /// By their texts' nodes, the last one first.
    std::array<std::pair<Index, Rect>, 2> recentRects_{{{noNode, {}}, {noNode, {}}}};
};

}  // namespace zor
