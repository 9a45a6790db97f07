#include "app/inspect/ArchiveJson.h"

#include <algorithm>
#include <string>
#include <unordered_set>

namespace zor {

namespace {

/// Beyond this an object is only named, so that a file cannot deepen the nesting.
constexpr int deepestNesting = 48;

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
            result[std::string(list_.string(keys[index]))] = node(values[index], 0);
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
                return std::string(list_.string(index));
            case Kind::data:
                return {{"bytes", list_.data(index).size()}};
            case Kind::uid:
                return reference(list_.uid(index), depth);
            case Kind::array:
                return array(list_.items(index), depth);
            case Kind::dictionary:
                return dictionary(index, depth);
            default:
                return nullptr;
        }
    }

private:
    using Kind = PropertyListKind;

    Json array(std::span<const PropertyList::Index> items, int depth) {
        Json result = Json::array();
        for (const auto item : items) result.push_back(depth < deepestNesting ? node(item, depth + 1) : Json("..."));
        return result;
    }

    Json dictionary(PropertyList::Index index, int depth) {
        Json result = Json::object();
        const auto keys = list_.keys(index);
        const auto values = list_.values(index);
        for (std::size_t at = 0; at < keys.size(); ++at) {
            result[std::string(list_.string(keys[at]))] =
                depth < deepestNesting ? node(values[at], depth + 1) : Json("...");
        }
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
    bool isSmallValue(PropertyList::Index index) const {
        constexpr std::size_t most = 16;
        const auto items = list_.find(index, "NS.objects");
        if (!items || list_.kind(*items) != Kind::array || list_.items(*items).size() > most) return false;
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
            if (!keys || list_.kind(*keys) != Kind::array) return array(list_.items(*items), depth);
            return collected(list_.items(*keys), list_.items(*items), depth);
        }
        Json result{{"$class", name}, {"$id", uid}};
        const auto keys = list_.keys(index);
        const auto values = list_.values(index);
        for (std::size_t at = 0; at < keys.size(); ++at) {
            const auto key = list_.string(keys[at]);
            if (key != "$class") result[std::string(key)] = node(values[at], depth + 1);
        }
        return result;
    }

    Json collected(std::span<const PropertyList::Index> keys, std::span<const PropertyList::Index> values, int depth) {
        Json result = Json::object();
        for (std::size_t at = 0; at < keys.size() && at < values.size(); ++at) {
            const Json key = node(keys[at], depth + 1);
            result[key.is_string() ? key.get<std::string>() : key.dump()] = node(values[at], depth + 1);
        }
        return result;
    }

    std::string className(PropertyList::Index object) const {
        const auto reference = list_.find(object, "$class");
        if (!reference || list_.kind(*reference) != Kind::uid || list_.uid(*reference) >= objects_.size()) return "?";
        const auto name = list_.find(objects_[list_.uid(*reference)], "$classname");
        return name && list_.kind(*name) == Kind::string ? std::string(list_.string(*name)) : "?";
    }

    const PropertyList& list_;
    std::span<const PropertyList::Index> objects_;
    std::unordered_set<std::uint64_t> shown_;
};

}  // namespace

Json archiveJson(const PropertyList& list) {
    Printer printer(list);
    return printer.isArchive() ? printer.top() : printer.node(list.root(), 0);
}

}  // namespace zor
