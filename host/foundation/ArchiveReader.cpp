#include "host/foundation/ArchiveReader.h"

#include <algorithm>

#include "host/foundation/ArchiveFormat.h"
#include "host/foundation/ObjectDecoder.h"

namespace zor {

namespace {

using Reason = ArchiveFailure::Reason;

/// Of what an entry takes where the container is copied, beside its text; in bytes.
constexpr std::uint64_t weightOfItem = 16;
constexpr std::uint64_t weightOfPair = 64;

std::size_t textSize(const std::optional<Value>& value) {
    return value ? value->asString().size() : 0;
}

}  // namespace

ArchiveReader::ArchiveReader(const PropertyList& list, std::span<const Index> objects, std::size_t fileSize,
                             const UnarchivingOptions& options)
    : list_(list),
      objects_(objects),
      options_(options),
      classes_(list, options.delegate),
      textAllowance_(Allowance::ofText(fileSize)),
      containerAllowance_(Allowance::ofContainers(fileSize)),
      entryAllowance_(list.referenceCount()),
      layouts_(list),
      slotOfNode_(list.size(), none) {
    // Levels are referred to while others are pushed.
    levels_.reserve(archive::deepestLevel);
}

ArchiveReader::Taken ArchiveReader::decode(std::uint64_t root) {
    visit(root);
    while (!levels_.empty()) {
        const std::size_t depth = levels_.size();
        visitRest(levels_.back());
        if (levels_.size() == depth) finishLevel();
    }
    std::optional<Value> value;
    const auto failure = takeObject(root, 0, Taker::container, value);
    return {std::move(value).value_or(Value()), failure};
}

void ArchiveReader::visitRest(Level& level) {
    const std::size_t depth = levels_.size();
    const std::size_t inFirst = level.first.size();
    const std::size_t end = inFirst + level.second.size();
    for (std::size_t next = level.next; next < end;) {
        const Index node = next < inFirst ? level.first[next] : level.second[next - inFirst];
        ++next;
        if (list_.kind(node) != PropertyList::Kind::uid) continue;
        level.next = next;
        visit(list_.uid(node));
        if (levels_.size() != depth) return;
    }
    level.next = end;
}

void ArchiveReader::visit(std::uint64_t reference) {
    // A wrong number is the fault of whoever asks for its value.
    if (reference == 0 || reference >= objects_.size()) return;
    const Index node = objects_[reference];
    if (list_.kind(node) != PropertyList::Kind::dictionary) return;
    if (slotOfNode_[node] != none) {
        meetAgain(decoded_[slotOfNode_[node]]);
    } else {
        begin(static_cast<Number>(reference), node);
    }
}

void ArchiveReader::meetAgain(const Decoded& decoded) {
    if (levels_.empty()) return;
    Level& level = levels_.back();
    if (!decoded.isOpen) {
        level.height = std::max(level.height, decoded.level);
        return;
    }
    // A circle that passes no object could never be filled.
    const bool isContainer = decoded.kind != Kind::object && level.isContainer;
    if (isContainer && level.objectLevel < decoded.level) fail(decoded_[level.slot], Reason::containsItself);
}

void ArchiveReader::begin(Number number, Index node) {
    const auto slot = static_cast<Slot>(decoded_.size());
    slotOfNode_[node] = slot;
    Decoded& decoded = decoded_.emplace_back();
    decoded.number = number;
    KeyLayout* const layout = layouts_.of(list_.keys(node));
    const auto reference = classReference(node, layout);
    if (!reference || list_.kind(*reference) != PropertyList::Kind::uid) return fail(decoded, Reason::noClass);
    const std::uint64_t classNumber = list_.uid(*reference);
    if (classNumber >= objects_.size()) {
        return fail(decoded, {Reason::referenceOutOfRange, number, classNumber});
    }
    const ArchivedClass& itsClass = classes_.at(objects_[classNumber]);
    decoded.kind = itsClass.kind;
    switch (itsClass.kind) {
        case Kind::unusable:
            return fail(decoded, {itsClass.failure.reason, number, itsClass.failure.detail});
        case Kind::object:
            decoded.value = Value(itsClass.record->create());
            return push({.slot = slot, .second = list_.values(node), .layout = layout});
        case Kind::array:
        case Kind::dictionary:
            return beginContainer(slot);
        default: {
            std::optional<Value> value;
            if (const auto failure = takeLeaf(decoded, value)) return fail(decoded, failure);
            if (!value) return;
            decoded.value = *std::move(value);
            decoded.weight = static_cast<Weight>(decoded.value.asString().size());
        }
    }
}

std::optional<ArchiveReader::Index> ArchiveReader::classReference(Index node, const KeyLayout* layout) const {
    if (!layout) return list_.find(node, archive::classKey);
    const auto place = layout->classPlace();
    return place ? std::optional(list_.values(node)[*place]) : std::nullopt;
}

void ArchiveReader::beginContainer(Slot slot) {
    Decoded& decoded = decoded_[slot];
    const bool isDictionary = decoded.kind == Kind::dictionary;
    const Index node = nodeOf(decoded);
    const auto items = list_.find(node, archive::itemsKey);
    if (!items || list_.kind(*items) != PropertyList::Kind::array) return fail(decoded, Reason::noItems);
    if (isDictionary) decoded.keys = list_.find(node, archive::keysKey).value_or(noNode);
    if (const Slot other = slotOfNode_[*items]; other != none) {
        const Decoded& owner = decoded_[other];
        if (owner.kind == decoded.kind && owner.keys == decoded.keys) {
            slotOfNode_[node] = other;
            decoded_.pop_back();
            return meetAgain(decoded_[other]);
        }
    } else {
        slotOfNode_[*items] = slot;
    }
    Level level{.slot = slot, .isContainer = true, .second = list_.items(*items)};
    if (isDictionary) {
        const bool hasKeys = decoded.keys != noNode && list_.kind(decoded.keys) == PropertyList::Kind::array;
        if (hasKeys) level.first = list_.items(decoded.keys);
        if (level.first.size() != level.second.size()) return fail(decoded, Reason::unequalCounts);
        level.dictionary = std::make_shared<Value::Dictionary>();
        decoded.value = Value(std::shared_ptr<const Value::Dictionary>(level.dictionary));
    } else {
        level.array = std::make_shared<Value::Array>();
        decoded.value = Value(std::shared_ptr<const Value::Array>(level.array));
    }
    const std::size_t entries = level.first.size() + level.second.size();
    if (entries > entryAllowance_) return fail(decoded, Reason::sharedOutOfProportion);
    entryAllowance_ -= entries;
    push(std::move(level));
}

void ArchiveReader::push(Level level) {
    Decoded& decoded = decoded_[level.slot];
    if (levels_.size() == archive::deepestLevel) return fail(decoded, Reason::tooDeep);
    const std::size_t place = levels_.size() + 1;
    decoded.isOpen = true;
    decoded.level = static_cast<Depth>(place);
    level.objectLevel = level.isContainer ? (levels_.empty() ? 0 : levels_.back().objectLevel) : place;
    levels_.push_back(std::move(level));
}

void ArchiveReader::finishLevel() {
    Level& level = levels_.back();
    Decoded& decoded = decoded_[level.slot];
    if (level.height == archive::deepestLevel) fail(decoded, Reason::tooDeep);
    if (!decoded.failure) fill(level, decoded);
    decoded.isOpen = false;
    decoded.level = decoded.failure ? 0 : static_cast<Depth>(level.height + 1);
    if (decoded.failure) decoded.value = {};
    levels_.pop_back();
    if (!levels_.empty()) levels_.back().height = std::max(levels_.back().height, decoded.level);
}

void ArchiveReader::fill(Level& level, Decoded& decoded) {
    if (!level.isContainer) {
        ObjectDecoder decoder(*this, nodeOf(decoded), decoded.number, level.layout);
        const ObjectPtr object = decoded.value.asObject();
        if (!object || !object->initWithCoder(decoder)) decoded.value = {};
        if (decoder.failure()) fail(decoded, decoder.failure());
        return;
    }
    std::uint64_t weight = 0;
    if (level.array) level.array->reserve(level.second.size());
    for (std::size_t index = 0; index < level.second.size(); ++index) {
        ArchiveFailure failure;
        std::optional<Value> key;
        if (level.dictionary) failure = take(level.first[index], decoded.number, Taker::container, key);
        std::optional<Value> item;
        if (!failure) failure = take(level.second[index], decoded.number, Taker::container, item);
        if (failure) return fail(decoded, failure);
        weight += (level.array ? weightOfItem : weightOfPair) + textSize(key) + textSize(item);
        if (level.array) {
            level.array->push_back(std::move(item).value_or(Value()));
        } else if (!key || !key->isString()) {
            return fail(decoded, Reason::keyNotText);
        } else if (item) {
            level.dictionary->emplace(key->asString(), *std::move(item));
        }
    }
    decoded.weight = static_cast<Weight>(std::min<std::uint64_t>(weight, std::numeric_limits<Weight>::max()));
}

void ArchiveReader::fail(Decoded& decoded, const ArchiveFailure& failure) {
    decoded.failure = std::make_unique<const ArchiveFailure>(failure);
}

void ArchiveReader::fail(Decoded& decoded, Reason reason) {
    fail(decoded, {reason, decoded.number});
}

ArchiveFailure ArchiveReader::takeLeaf(const Decoded& decoded, std::optional<Value>& value) {
    if (decoded.kind == Kind::null) {
        value.emplace(Null{});
        return {};
    }
    const auto key = decoded.kind == Kind::string ? archive::stringKey
                     : decoded.kind == Kind::data ? archive::dataKey
                                                  : archive::timeKey;
    const auto node = list_.find(nodeOf(decoded), key);
    const auto content = node ? plainNode(*node) : std::nullopt;
    const auto contentKind = content ? list_.kind(*content) : PropertyList::Kind::null;
    const bool isNumber = contentKind == PropertyList::Kind::real || contentKind == PropertyList::Kind::integer;
    if (decoded.kind == Kind::string && contentKind == PropertyList::Kind::string) {
        return takeText(*content, decoded.number, value);
    }
    if (decoded.kind == Kind::data && contentKind == PropertyList::Kind::data) {
        return takePlain(*content, decoded.number, value);
    }
    if (decoded.kind != Kind::date || !isNumber) return {Reason::noContent, decoded.number};
    const bool isWhole = contentKind == PropertyList::Kind::integer;
    value.emplace(Date{isWhole ? static_cast<double>(list_.integer(*content)) : list_.real(*content)});
    return {};
}

std::optional<ArchiveReader::Index> ArchiveReader::plainNode(Index node) const {
    if (list_.kind(node) == PropertyList::Kind::uid) {
        const std::uint64_t reference = list_.uid(node);
        if (reference == 0 || reference >= objects_.size()) return {};
        node = objects_[reference];
    }
    switch (list_.kind(node)) {
        case PropertyList::Kind::uid:
        case PropertyList::Kind::array:
        case PropertyList::Kind::dictionary:
            return {};
        default:
            return node;
    }
}

std::optional<std::string_view> ArchiveReader::text(Index node) {
    const auto content = list_.string(node);
    return textAllowance_.take(content.size()) ? std::optional(content) : std::nullopt;
}

std::optional<Rect> ArchiveReader::rect(Index node) {
    auto& [last, other] = recentRects_;
    if (last.first != node) std::swap(last, other);
    if (last.first != node) {
        const auto content = text(node);
        if (!content) return {};
        last = {node, rectFromString(*content)};
    }
    return last.second;
}

ArchiveFailure ArchiveReader::take(Index node, Number holder, Taker taker, std::optional<Value>& value) {
    const bool isReference = list_.kind(node) == PropertyList::Kind::uid;
    return isReference ? takeObject(list_.uid(node), holder, taker, value) : takePlain(node, holder, value);
}

ArchiveFailure ArchiveReader::takeObject(std::uint64_t reference, Number holder, Taker taker,
                                         std::optional<Value>& value) {
    if (reference == 0) return {};
    if (reference >= objects_.size()) return {Reason::referenceOutOfRange, holder, reference};
    const Index node = objects_[reference];
    switch (list_.kind(node)) {
        case PropertyList::Kind::uid:
        case PropertyList::Kind::array:
            return {Reason::notAnObject, static_cast<Number>(reference)};
        case PropertyList::Kind::dictionary:
            break;
        default:
            return takePlain(node, holder, value);
    }
    const Decoded& decoded = decoded_[slotOfNode_[node]];
    if (decoded.failure) return *decoded.failure;
    if (decoded.kind == Kind::string && !textAllowance_.take(decoded.weight)) {
        return {Reason::textOutOfProportion, holder};
    }
    const bool isContainer = decoded.kind == Kind::array || decoded.kind == Kind::dictionary;
    if (isContainer && taker == Taker::object && !containerAllowance_.take(decoded.weight)) {
        return {Reason::givenOutOfProportion, holder};
    }
    if (!decoded.value.isAbsent()) value.emplace(decoded.value);
    return {};
}

ArchiveFailure ArchiveReader::takePlain(Index node, Number holder, std::optional<Value>& value) {
    switch (list_.kind(node)) {
        case PropertyList::Kind::boolean:
            value.emplace(list_.boolean(node));
            break;
        case PropertyList::Kind::integer:
            value.emplace(list_.integer(node));
            break;
        case PropertyList::Kind::real:
            value.emplace(list_.real(node));
            break;
        case PropertyList::Kind::date:
            value.emplace(list_.date(node));
            break;
        case PropertyList::Kind::string:
            if (list_.string(node) != archive::absentText) return takeText(node, holder, value);
            break;
        case PropertyList::Kind::data: {
            const auto [known, isNew] = data_.try_emplace(node);
            if (isNew) known->second = list_.data(node);
            value.emplace(known->second);
            break;
        }
        default:
            break;
    }
    return {};
}

ArchiveFailure ArchiveReader::takeText(Index node, Number holder, std::optional<Value>& value) {
    const auto text = list_.string(node);
    if (!textAllowance_.take(text.size())) return {Reason::textOutOfProportion, holder};
    value.emplace(text);
    return {};
}

}  // namespace zor
