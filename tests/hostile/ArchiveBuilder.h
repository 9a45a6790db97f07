#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "host/foundation/PropertyList.h"
#include "host/foundation/PropertyListBuilder.h"

namespace zor::test {

/// Puts keyed archives together object by object, right or wrong. Objects are told by their numbers, from 1 on.
class ArchiveBuilder {
public:
    using Index = PropertyListBuilder::Index;
    using Number = std::uint64_t;
    using Entries = std::vector<std::pair<std::string_view, Index>>;

    /// A node to stand under a key.
    Index uid(Number number) { return list_.addUid(number); }
    Index integer(std::int64_t number) { return list_.addInteger(number); }
    Index real(double number) { return list_.addReal(number); }
    Index boolean(bool value) { return list_.addBool(value); }
    Index rawText(std::string_view text) { return *list_.addString(text); }

    /// The number that the object added next will have.
    Number next() const { return objects_.size(); }
    Number text(std::string_view text) { return add(rawText(text)); }
    Number classOf(std::string_view name) { return add(dictionary({{"$classname", rawText(name)}})); }
    Number object(Number itsClass, Entries entries = {}) {
        entries.emplace_back("$class", uid(itsClass));
        return add(dictionary(entries));
    }
    /// Of the class "NSArray" at that number.
    Number array(Number arrayClass, const std::vector<Number>& items) {
        std::vector<Index> references;
        references.reserve(items.size());
        for (const Number item : items) references.push_back(uid(item));
        return object(arrayClass, {{"NS.objects", list_.addArray(references)}});
    }

    Number number(double number) { return add(real(number)); }
    /// Of the class "NSDictionary" at that number.
    Number dictionaryObject(Number dictionaryClass, const std::vector<std::pair<Number, Number>>& entries) {
        std::vector<Index> keys;
        std::vector<Index> values;
        for (const auto& [key, value] : entries) {
            keys.push_back(uid(key));
            values.push_back(uid(value));
        }
        return object(dictionaryClass, {{"NS.keys", list_.addArray(keys)}, {"NS.objects", list_.addArray(values)}});
    }

    Bytes finish(Number root) {
        const Index top = dictionary({{"root", uid(root)}});
        const Index objects = list_.addArray(objects_);
        const Index all = dictionary({{"$archiver", rawText("NSKeyedArchiver")},
                                      {"$version", integer(100'000)},
                                      {"$top", top},
                                      {"$objects", objects}});
        return PropertyList(list_.finish(all)).binary();
    }

private:
    Index dictionary(const Entries& entries) {
        std::vector<PropertyListBuilder::Entry> nodes;
        for (const auto& [key, value] : entries) nodes.push_back({rawText(key), value});
        return list_.addDictionary(nodes);
    }
    Number add(Index node) {
        objects_.push_back(node);
        return objects_.size() - 1;
    }

    PropertyListBuilder list_;
    std::vector<Index> objects_{rawText("$null")};
};

}  // namespace zor::test
