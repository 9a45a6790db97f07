// Between property lists and values.

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "host/foundation/Allowance.h"
#include "host/foundation/PropertyList.h"
#include "host/foundation/PropertyListBuilder.h"

namespace zor {

namespace {

using Index = PropertyList::Index;
using Kind = PropertyList::Kind;

constexpr std::string_view uidKey = "CF$UID";

Error tooDeep() {
    return {"the property list nests deeper than " + std::to_string(PropertyList::deepestValue) + " levels"};
}

/// Makes values bottom up, each container and each piece of data once.
class ValueMaker {
public:
    explicit ValueMaker(const PropertyList& list)
        : list_(list), allowance_(Allowance::ofText(list.size() + list.referenceCount())) {}

    Result<Value> make(Index root) {
        if (!isContainer(root)) return scalar(root);
        levels_.push_back({root});
        for (;;) {
            Level& level = levels_.back();
            const auto children =
                isArray(level.container) ? list_.items(level.container) : list_.values(level.container);
            if (level.next == children.size()) {
                Made made{finished(level), level.height + 1};
                if (made.height > PropertyList::deepestValue) return tooDeep();
                const Index container = level.container;
                levels_.pop_back();
                if (levels_.empty()) return std::move(made.value);
                made_.emplace(container, std::move(made));
                continue;
            }
            const Index child = children[level.next];
            if (!isContainer(child)) {
                add(level, scalar(child));
            } else if (const auto found = made_.find(child); found != made_.end()) {
                level.height = std::max(level.height, found->second.height);
                add(level, found->second.value);
            } else {
                if (levels_.size() == PropertyList::deepestValue) return tooDeep();
                levels_.push_back({child});
            }
            if (overdrawn_) return Error{"the property list repeats its text out of proportion"};
        }
    }

private:
    struct Made {
        Value value;
        /// Levels of containers.
        std::size_t height = 0;
    };
    struct Level {
        Index container = 0;
        std::size_t next = 0;
        std::size_t height = 0;
        Value::Array array = {};
        Value::Dictionary dictionary = {};
    };

    bool isArray(Index index) const { return list_.kind(index) == Kind::array; }
    bool isContainer(Index index) const { return isArray(index) || list_.kind(index) == Kind::dictionary; }

    std::string text(Index index) {
        const auto text = list_.string(index);
        overdrawn_ = overdrawn_ || !allowance_.take(text.size());
        return std::string(overdrawn_ ? std::string_view() : text);
    }

    Value finished(Level& level) const {
        return isArray(level.container) ? Value(std::move(level.array)) : Value(std::move(level.dictionary));
    }

    void add(Level& level, Value value) {
        if (isArray(level.container)) {
            level.array.push_back(std::move(value));
        } else if (!value.isAbsent()) {
            level.dictionary.emplace(text(list_.keys(level.container)[level.next]), std::move(value));
        }
        ++level.next;
    }

    Value scalar(Index index) {
        switch (list_.kind(index)) {
            case Kind::boolean:
                return list_.boolean(index);
            case Kind::integer:
                return list_.integer(index);
            case Kind::real:
                return list_.real(index);
            case Kind::date:
                return list_.date(index);
            case Kind::string:
                return text(index);
            case Kind::data:
                return data(index);
            case Kind::uid:
                return Value::Dictionary{{std::string(uidKey), static_cast<std::int64_t>(list_.uid(index))}};
            default:
                return {};
        }
    }

    Value data(Index index) {
        const auto [made, isNew] = made_.try_emplace(index);
        if (isNew) made->second.value = list_.data(index);
        return made->second.value;
    }

    const PropertyList& list_;
    Allowance allowance_;
    bool overdrawn_ = false;
    std::vector<Level> levels_;
    std::unordered_map<Index, Made> made_;
};

/// Adds a value's content to a builder, each shared container once. The value must outlive it.
class ValueStorer {
public:
    Result<PropertyList> store(const Value& value) {
        const auto root = add(value, 1);
        if (error_) return *error_;
        if (!root) return Error{"an absent value cannot be stored in a property list"};
        return PropertyList(builder_.finish(*root));
    }

private:
    std::optional<Index> fail(std::string message) {
        if (!error_) error_ = Error{std::move(message)};
        return {};
    }

    /// Nothing for an absent value, and after an error.
    std::optional<Index> add(const Value& value, std::size_t level) {
        if (error_ || value.isAbsent()) return {};
        if (value.isBool()) return builder_.addBool(value.asBool());
        if (value.isInteger()) return builder_.addInteger(value.asInteger());
        if (value.isReal()) return builder_.addReal(value.asReal());
        if (value.isDate()) return builder_.addDate(value.asDate());
        if (value.isString()) return addString(value.asString());
        if (value.isData()) {
            const auto data = builder_.addData(value.asData());
            return data ? data : fail("data of 4 GiB and more cannot be stored in a property list");
        }
        if (!value.isArray() && !value.isDictionary()) {
            return fail("a null placeholder or an object cannot be stored in a property list");
        }
        return value.isArray() ? addContainer(value.asArray(), level) : addContainer(value.asDictionary(), level);
    }

    std::optional<Index> addString(std::string_view text) {
        const auto string = builder_.addString(text);
        return string ? string : fail("text that is not UTF-8 cannot be stored in a property list");
    }

    template <typename Container>
    std::optional<Index> addContainer(const Container& container, std::size_t level) {
        if (level > PropertyList::deepestValue) return fail(tooDeep().message);
        if (const auto known = stored_.find(&container); known != stored_.end()) {
            deepest_ = std::max(deepest_, level + known->second.height - 1);
            return deepest_ <= PropertyList::deepestValue ? known->second.node : fail(tooDeep().message);
        }
        const auto deepestBeside = std::exchange(deepest_, level);
        const Index node = addEntries(container, level);
        stored_[&container] = {node, deepest_ - level + 1};
        deepest_ = std::max(deepest_, deepestBeside);
        return node;
    }

    Index addEntries(const Value::Array& array, std::size_t level) {
        std::vector<Index> items;
        for (const auto& entry : array) {
            if (const auto item = add(entry, level + 1)) items.push_back(*item);
        }
        return builder_.addArray(items);
    }

    Index addEntries(const Value::Dictionary& dictionary, std::size_t level) {
        std::vector<PropertyListBuilder::Entry> entries;
        for (const auto& [name, entry] : dictionary) {
            const auto value = add(entry, level + 1);
            const auto key = value ? addString(name) : std::nullopt;
            if (key) entries.push_back({*key, *value});
        }
        return builder_.addDictionary(entries);
    }

    struct Stored {
        Index node = 0;
        /// Levels of containers.
        std::size_t height = 0;
    };

    PropertyListBuilder builder_;
    std::optional<Error> error_;
    std::unordered_map<const void*, Stored> stored_;
    /// The deepest level met inside of the container that is being added.
    std::size_t deepest_ = 0;
};

}  // namespace

Result<Value> PropertyList::value(Index index) const {
    return ValueMaker(*this).make(index);
}

Result<PropertyList> PropertyList::fromValue(const Value& value) {
    return ValueStorer().store(value);
}

}  // namespace zor
