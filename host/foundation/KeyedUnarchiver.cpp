#include "host/foundation/ArchiveFormat.h"
#include "host/foundation/ArchiveReader.h"
#include "host/foundation/KeyedArchiver.h"

namespace zor {

namespace {

using Index = PropertyList::Index;
using Kind = PropertyList::Kind;

/// What is under the key in the archive's top level, which must be of that kind.
Result<Index> topLevel(const PropertyList& list, std::string_view key, Kind kind) {
    const auto node = list.find(list.root(), key);
    if (!node) return Error{"the archive has no " + quoted(key)};
    if (list.kind(*node) != kind) return Error{quoted(key) + " in the archive is of the wrong kind"};
    return *node;
}

Status checkOrigin(const PropertyList& list) {
    if (list.kind(list.root()) != Kind::dictionary) return Error{"the archive is not a dictionary"};
    const auto archiver = topLevel(list, archive::archiverKey, Kind::string);
    if (!archiver) return archiver.error();
    if (const auto name = list.string(*archiver); name != archive::archiverName) {
        return Error{quoted(archive::archiverKey) + " is " + quoted(name) + " instead of " +
                     quoted(archive::archiverName)};
    }
    const auto version = topLevel(list, archive::versionKey, Kind::integer);
    if (!version) return version.error();
    if (const auto number = list.integer(*version); number != archive::version) {
        return Error{quoted(archive::versionKey) + " is " + std::to_string(number) + " instead of " +
                     std::to_string(archive::version)};
    }
    return success();
}

Result<std::uint64_t> rootNumber(const PropertyList& list) {
    const auto top = topLevel(list, archive::topKey, Kind::dictionary);
    if (!top) return top.error();
    const auto root = list.find(*top, archive::rootKey);
    if (!root || list.kind(*root) != Kind::uid) {
        return Error{quoted(archive::topKey) + " has no reference under " + quoted(archive::rootKey)};
    }
    return list.uid(*root);
}

}  // namespace

Result<Value> KeyedUnarchiver::unarchivedRoot(std::span<const std::uint8_t> data, const UnarchivingOptions& options) {
    const auto list = PropertyList::parseInPlace(data);
    if (!list) return list.error();
    const auto origin = checkOrigin(*list);
    if (!origin) return origin.error();
    const auto root = rootNumber(*list);
    if (!root) return root.error();
    const auto objects = topLevel(*list, archive::objectsKey, Kind::array);
    if (!objects) return objects.error();
    const auto items = list->items(*objects);
    if (*root >= items.size()) {
        return Error{"the root is object " + std::to_string(*root) + ", which does not exist"};
    }
    auto decoded = ArchiveReader(*list, items, data.size(), options).decode(*root);
    if (decoded.failure) return Error{decoded.failure.description(*list)};
    return std::move(decoded.value);
}

}  // namespace zor
