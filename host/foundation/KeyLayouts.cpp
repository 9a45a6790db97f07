#include "host/foundation/KeyLayouts.h"

#include <algorithm>

#include "host/foundation/ArchiveFormat.h"

namespace zor {

namespace {

/// Of one layout that are remembered.
constexpr std::size_t mostQuestions = 128;

using Keys = std::span<const PropertyList::Index>;

bool isEqual(Keys one, Keys other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end());
}

std::uint64_t hashOfKeys(Keys keys) {
    std::uint64_t hash = keys.size();
    for (const auto key : keys) hash = (hash ^ key) * 0x9E37'79B9'7F4A'7C15;
    return hashOfBits(hash);
}

}  // namespace

KeyLayout::KeyLayout(const PropertyList& list, std::span<const Index> keys)
    : list_(list), keys_(keys), classPlace_(placeOf(archive::classKey)) {}

KeyLayout::Place KeyLayout::placeOf(std::string_view key) const {
    const auto found = std::ranges::find(keys_, key, [&](Index node) { return list_.string(node); });
    if (found == keys_.end()) return {};
    return static_cast<std::uint32_t>(found - keys_.begin());
}

KeyLayout::Place KeyLayout::unexpectedPlace(std::string_view key, std::size_t& step) {
    for (std::size_t next = step; next < questions_.size(); ++next) {
        if (questions_[next].key != key) continue;
        step = next + 1;
        return questions_[next].place;
    }
    const Place found = placeOf(key);
    if (step == questions_.size() && step < mostQuestions) {
        questions_.push_back({std::string(key), found});
        ++step;
    }
    return found;
}

KeyLayout* KeyLayouts::of(std::span<const Index> keys) {
    for (KeyLayout* recent : recent_) {
        if (recent && isEqual(recent->keys(), keys)) return recent;
    }
    KeyLayout* const found = find(keys);
    if (found) recent_ = {found, recent_[0]};
    return found;
}

KeyLayout* KeyLayouts::find(std::span<const Index> keys) {
    const std::uint64_t hash = hashOfKeys(keys);
    const auto isOf = [&](FlatIndex::Number number) { return isEqual(layouts_[number].keys(), keys); };
    if (layouts_.size() == most) {
        const auto known = index_.find(hash, isOf);
        return known ? &layouts_[*known] : nullptr;
    }
    return &layouts_[index_.findOrMake(hash, isOf, [&] {
        layouts_.emplace_back(list_, keys);
        return static_cast<FlatIndex::Number>(layouts_.size() - 1);
    })];
}

}  // namespace zor
