#include "app/inspect/ArchiveJson.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace zor {

namespace {

/// Beyond this an object is only named, so that a file cannot deepen the nesting.
constexpr int deepestNesting = 48;
/// What a file stores once and refers to often is shown again only so far: it could otherwise ask for any amount.
constexpr std::size_t mostEntriesAgain = 10'000;
constexpr std::size_t mostTextAgain = std::size_t{1} << 20;
constexpr std::size_t mostEntriesOfSmall = 16;
constexpr const char* leftOut = "...";

class Printer {
public:
    explicit Printer(const PropertyList& list) : list_(list) {
        const auto root = list.root();
        if (const auto objects = list.find(root, "$objects"); objects && list.kind(*objects) == Kind::array) {
            objects_ = list.items(*objects);
        }
    }

    bool isArchive() const { return !objects_.empty(); }

    Json top() {
        Json result = Json::object();
        const auto top = list_.find(list_.root(), "$top");
        if (!top || list_.kind(*top) != Kind::dictionary) return result;
        const auto keys = list_.keys(*top);
        const auto values = list_.values(*top);
        for (std::size_t index = 0; index < keys.size(); ++index) {
            result[text(keys[index])] = node(values[index], 0);
        }
        return result;
    }

    Json node(PropertyList::Index index, int depth) {
        switch (list_.kind(index)) {
            case Kind::boolean:
                return list_.boolean(index);
            case Kind::integer:
                return list_.integer(index);
            case Kind::real:
                return jsonFrom(list_.real(index));
            case Kind::date:
                return {{"secondsSince2001", jsonFrom(list_.date(index).secondsSinceReference)}};
            case Kind::string:
                return text(index);
            case Kind::data:
                return {{"bytes", list_.data(index).size()}};
            case Kind::uid:
                return reference(list_.uid(index), depth);
            case Kind::array:
                return array(index, depth);
            case Kind::dictionary:
                return dictionary(index, depth);
            default:
                return nullptr;
        }
    }

private:
    using Kind = PropertyListKind;

    /// Whether a container may be shown, again where it was before.
    bool mayShow(PropertyList::Index container, std::size_t entries) {
        if (shownContainers_.insert(container).second) return true;
        if (entries > entriesAgain_) return false;
        entriesAgain_ -= entries;
        return true;
    }

    std::string text(PropertyList::Index index) {
        const auto whole = list_.string(index);
        constexpr std::size_t shortText = 64;
        if (whole.size() <= shortText || shownTexts_.insert(index).second) return std::string(whole);
        if (whole.size() > textAgain_) return std::string(whole.substr(0, shortText)).append(leftOut);
        textAgain_ -= whole.size();
        return std::string(whole);
    }

    Json array(PropertyList::Index index, int depth, bool isSmall = false) {
        const auto items = list_.items(index);
        if (depth >= deepestNesting || !(isSmall || mayShow(index, items.size()))) return leftOut;
        Json result = Json::array();
        for (const auto item : items) result.push_back(node(item, depth + 1));
        return result;
    }

    Json dictionary(PropertyList::Index index, int depth) {
        const auto keys = list_.keys(index);
        const auto values = list_.values(index);
        if (depth >= deepestNesting || !mayShow(index, keys.size())) return leftOut;
        Json result = Json::object();
        for (std::size_t at = 0; at < keys.size(); ++at) result[text(keys[at])] = node(values[at], depth + 1);
        return result;
    }

    Json reference(std::uint64_t uid, int depth) {
        if (uid == 0) return nullptr;
        if (uid >= objects_.size()) return {{"$outOfRange", uid}};
        const auto index = objects_[uid];
        if (list_.kind(index) != Kind::dictionary) return node(index, depth);
        const bool isKnown = !shown_.insert(uid).second;
        if (depth >= deepestNesting || (isKnown && !isSmallValue(index))) return {{"$ref", uid}};
        return object(uid, index, depth);
    }

    /// A collection of a few plain values, as fonts are stored: it reads best in full wherever it is used.
    bool isSmallValue(PropertyList::Index index) {
        const auto [known, isNew] = smallValues_.try_emplace(index, false);
        if (isNew) known->second = looksSmall(index);
        return known->second;
    }

    bool looksSmall(PropertyList::Index index) const {
        if (list_.keys(index).size() > mostEntriesOfSmall) return false;
        const auto items = list_.find(index, "NS.objects");
        if (!items || list_.kind(*items) != Kind::array || list_.items(*items).size() > mostEntriesOfSmall)
            return false;
        return std::ranges::all_of(list_.items(*items), [this](PropertyList::Index item) {
            if (list_.kind(item) != Kind::uid) return list_.kind(item) != Kind::array;
            const auto uid = list_.uid(item);
            if (uid >= objects_.size()) return true;
            const auto kind = list_.kind(objects_[uid]);
            return kind != Kind::dictionary && kind != Kind::array;
        });
    }

    Json object(std::uint64_t uid, PropertyList::Index index, int depth) {
        const std::string name = className(index);
        // Collections read best as what they are.
        if (const auto items = list_.find(index, "NS.objects"); items && list_.kind(*items) == Kind::array) {
            const auto keys = list_.find(index, "NS.keys");
            const bool isSmall = isSmallValue(index);
            if (!keys || list_.kind(*keys) != Kind::array) return array(*items, depth, isSmall);
            return collected(*keys, *items, depth, isSmall);
        }
        Json result{{"$class", name}, {"$id", uid}};
        const auto keys = list_.keys(index);
        const auto values = list_.values(index);
        for (std::size_t at = 0; at < keys.size(); ++at) {
            if (list_.string(keys[at]) != "$class") result[text(keys[at])] = node(values[at], depth + 1);
        }
        return result;
    }

    Json collected(PropertyList::Index keysArray, PropertyList::Index itemsArray, int depth, bool isSmall) {
        const auto keys = list_.items(keysArray);
        const auto items = list_.items(itemsArray);
        const bool mayBeShown = isSmall || (mayShow(keysArray, keys.size()) && mayShow(itemsArray, items.size()));
        if (!mayBeShown) return leftOut;
        Json result = Json::object();
        for (std::size_t at = 0; at < keys.size() && at < items.size(); ++at) {
            const Json key = node(keys[at], depth + 1);
            // Nested quotes would double with each level.
            const auto shown = key.is_string() ? key.get<std::string>() : key.is_primitive() ? key.dump() : leftOut;
            result[shown] = node(items[at], depth + 1);
        }
        return result;
    }

    std::string className(PropertyList::Index object) {
        const auto reference = list_.find(object, "$class");
        if (!reference || list_.kind(*reference) != Kind::uid || list_.uid(*reference) >= objects_.size()) return "?";
        const auto itsClass = objects_[list_.uid(*reference)];
        const auto [known, isNew] = classNames_.try_emplace(itsClass, "?");
        if (!isNew) return known->second;
        const auto name = list_.find(itsClass, "$classname");
        if (name && list_.kind(*name) == Kind::string) known->second = text(*name);
        return known->second;
    }

    const PropertyList& list_;
    std::span<const PropertyList::Index> objects_;
    std::unordered_set<std::uint64_t> shown_;
    std::unordered_set<PropertyList::Index> shownContainers_;
    std::unordered_set<PropertyList::Index> shownTexts_;
    std::unordered_map<PropertyList::Index, bool> smallValues_;
    std::unordered_map<PropertyList::Index, std::string> classNames_;
    std::size_t entriesAgain_ = mostEntriesAgain;
    std::size_t textAgain_ = mostTextAgain;
};

}  // namespace

Json archiveJson(const PropertyList& list) {
    Printer printer(list);
    return printer.isArchive() ? printer.top() : printer.node(list.root(), 0);
}

}  // namespace zor
