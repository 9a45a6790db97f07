#include "host/foundation/KeyedArchiver.h"

#include <algorithm>
#include <array>
#include <deque>
#include <unordered_map>

#include "host/foundation/ArchiveFormat.h"
#include "host/foundation/ClassRegistry.h"
#include "host/foundation/PropertyListBuilder.h"
#include "host/foundation/PropertyListFormats.h"

namespace zor {

namespace {

using Index = PropertyListBuilder::Index;
using Entry = PropertyListBuilder::Entry;
/// An object's place among the archive's objects; zero stands for absence.
using Number = std::uint32_t;

/// A class of the format's own, with its base classes.
using StandardClass = std::span<const std::string_view>;
constexpr std::string_view arrayClass[] = {"NSArray", "NSObject"};
constexpr std::string_view dictionaryClass[] = {"NSDictionary", "NSObject"};
constexpr std::string_view dateClass[] = {"NSDate", "NSObject"};
constexpr std::string_view nullClass[] = {"NSNull", "NSObject"};
constexpr std::string_view mutableStringClass[] = {"NSMutableString", "NSString", "NSObject"};

/// Objects are written as they are met, depth first. Those begun and not finished share two stacks, of entries and of
/// items, on which each has the top part to itself while it is written.
class ArchiveWriter final : public Encoder {
public:
    Result<Bytes> write(const Value& root) {
        addObject(string(archive::absentText));
        const Index rootReference = reference(root);
        if (error_) return *error_;
        for (const auto& object : objects_) items_.push_back(object.node);
        const Entry top{string(archive::rootKey), rootReference};
        const std::array entries{
            Entry{string(archive::versionKey), list_.addInteger(archive::version)},
            Entry{string(archive::archiverKey), string(archive::archiverName)},
            Entry{string(archive::topKey), list_.addDictionary({&top, 1})},
            Entry{string(archive::objectsKey), list_.addArray(items_)},
        };
        return writeBinaryPropertyList(list_.finish(list_.addDictionary(entries)));
    }

    void encodeBool(std::string_view key, bool value) override { putUnder(key, list_.addBool(value)); }
    void encodeInteger(std::string_view key, std::int64_t value) override { putUnder(key, list_.addInteger(value)); }
    void encodeDouble(std::string_view key, double value) override { putUnder(key, list_.addReal(value)); }
    void encodeRect(std::string_view key, const Rect& value) override { putText(key, stringFromRect(value)); }
    void encodePoint(std::string_view key, Point value) override { putText(key, stringFromPoint(value)); }
    void encodeSize(std::string_view key, Size value) override { putText(key, stringFromSize(value)); }
    void encodeValue(std::string_view key, const Value& value) override {
        key_ = key;
        const Index node = reference(value);
        putUnder(key, node);
    }

private:
    struct Object {
        Index node = 0;
        /// The UID that refers to it.
        Index reference = 0;
        /// Levels of objects and containers from here down; zero for scalars.
        std::uint32_t height = 0;
    };
    struct Identity {
        const void* address = nullptr;
        Number number = 0;
    };
    struct PlainDictionary {
        /// The references to its keys, then to its values.
        std::vector<Index> content;
        Number number = 0;
    };

    void fail(std::string fault) {
        if (error_) return;
        error_ = Error{std::move(fault) + (key_.empty() ? " at the root" : " at key \"" + std::string(key_) + "\"")};
    }

    Index string(std::string_view text) {
        const auto node = list_.addString(text);
        if (!node) fail("text that is not UTF-8 cannot be archived");
        return node.value_or(0);
    }

    Index reference(const Value& value) { return objects_[number(value)].reference; }

    void put(std::string_view key, Index value) { entries_.push_back({keyNode(key), value}); }

    /// The same for a key that an object gave.
    void putUnder(std::string_view key, Index value) {
        key_ = key;
        put(key, value);
    }

    void putText(std::string_view key, std::string_view text) {
        putUnder(key, objects_[scalar(string(text))].reference);
    }

    /// Most keys are literals of the classes' code, met again and again at the same address.
    Index keyNode(std::string_view key) {
        if (key.starts_with('$')) return string('$' + std::string(key));
        auto& known = keys_[hashOfBits(reinterpret_cast<std::uintptr_t>(key.data())) % keys_.size()];
        if (!known || list_.string(*known) != key) known = string(key);
        return *known;
    }

    Number nextNumber() const { return static_cast<Number>(objects_.size()); }

    Number addObject(Index node = 0) {
        const Number number = nextNumber();
        objects_.push_back({node, list_.addNewUid(number)});
        return number;
    }

    /// The object that is this very item of the property list.
    Number scalar(Index node) {
        if (numberOfNode_.size() <= node) numberOfNode_.resize(std::max<std::size_t>(node + 1, list_.size()));
        Number& known = numberOfNode_[node];
        if (known == 0) known = addObject(node);
        return known;
    }

    Number number(const Value& value) {
        if (error_ || value.isAbsent()) return 0;
        if (value.isObject()) return object(value);
        if (value.isArray()) return array(value);
        if (value.isDictionary()) return dictionary(value);
        if (value.isData()) return data(value);
        if (value.isString()) return text(value.asString());
        if (value.isBool()) return scalar(list_.addBool(value.asBool()));
        if (value.isInteger()) return scalar(list_.addInteger(value.asInteger()));
        if (value.isReal()) return scalar(list_.addReal(value.asReal()));
        if (value.isDate()) {
            return leaf(dateClass, archive::timeKey, list_.addReal(value.asDate().secondsSinceReference));
        }
        if (null_ == 0) null_ = leaf(nullClass);
        return null_;
    }

    /// The one text that readers take for absence needs an object around it.
    Number text(std::string_view text) {
        if (text != archive::absentText) return scalar(string(text));
        if (absentText_ == 0) absentText_ = leaf(mutableStringClass, archive::stringKey, string(text));
        return absentText_;
    }

    Number data(const Value& value) {
        return identity(value, &value.asData(),
                        [&]() -> Number {
                            const auto node = list_.addData(value.asData());
                            if (!node) fail("data of 4 GiB and more cannot be archived");
                            return node ? scalar(*node) : 0;
                        })
            .number;
    }

    Number object(const Value& value) {
        const ObjectPtr object = value.asObject();
        return nested(value, object.get(), object->classRecord(), [&] { object->encodeWithCoder(*this); });
    }

    Number array(const Value& value) {
        const auto& array = value.asArray();
        return nested(value, &array, StandardClass(arrayClass), [&] {
            putItems(archive::itemsKey, array, [](const Value& entry) -> const Value& { return entry; });
        });
    }

    Number dictionary(const Value& value) {
        const auto& dictionary = value.asDictionary();
        // The root has a number of its own.
        if (level_ > 0 && isSmallAndPlain(dictionary)) return plainDictionary(dictionary);
        return nested(value, &dictionary, StandardClass(dictionaryClass), [&] {
            const auto first = items_.size();
            for (const auto& [key, entry] : dictionary) {
                if (!entry.isAbsent()) items_.push_back(objects_[text(key)].reference);
            }
            put(archive::keysKey, list_.addArray(std::span(items_).subspan(first)));
            items_.resize(first);
            putItems(archive::itemsKey, dictionary, [](const auto& entry) -> const Value& { return entry.second; });
        });
    }

    /// Fonts and their like. The bounds keep what is compared by content, each time it is met, small.
    static bool isSmallAndPlain(const Value::Dictionary& dictionary) {
        constexpr std::size_t mostEntries = 8;
        constexpr std::size_t longestText = 100;
        return dictionary.size() <= mostEntries && std::ranges::all_of(dictionary, [](const auto& entry) {
                   const auto& [key, value] = entry;
                   const bool isPlain = value.isBool() || value.isNumber() || value.isString() || value.isAbsent();
                   return isPlain && key.size() <= longestText && value.asString().size() <= longestText;
               });
    }

    /// Equal ones are one object, so that ten thousand labels of one font hold it once.
    Number plainDictionary(const Value::Dictionary& dictionary) {
        const auto first = items_.size();
        for (const auto& [key, entry] : dictionary) {
            if (!entry.isAbsent()) items_.push_back(objects_[text(key)].reference);
        }
        for (const auto& [key, entry] : dictionary) {
            if (!entry.isAbsent()) items_.push_back(reference(entry));
        }
        const auto content = std::span(items_).subspan(first);
        std::uint64_t hash = 0;
        for (const Index each : content) hash = hashOfBits(hash + each);
        const auto found = plainIndex_.findOrMake(
            hash, [&](FlatIndex::Number known) { return std::ranges::equal(plain_[known].content, content); },
            [&] {
                const auto half = content.size() / 2;
                plain_.push_back({{content.begin(), content.end()}, addObject()});
                const auto outerFirst = std::exchange(firstEntry_, entries_.size());
                put(archive::keysKey, list_.addArray(content.first(half)));
                put(archive::itemsKey, list_.addArray(content.last(half)));
                finish(plain_.back().number, classNumber(StandardClass(dictionaryClass)));
                firstEntry_ = outerFirst;
                objects_[plain_.back().number].height = 1;
                return static_cast<FlatIndex::Number>(plain_.size() - 1);
            });
        items_.resize(first);
        if (level_ == archive::deepestLevel) failTooDeep();
        height_ = std::max(height_, std::uint32_t{1});
        return plain_[found].number;
    }

    template <typename Container, typename ValueOf>
    void putItems(std::string_view key, const Container& container, ValueOf valueOf) {
        const auto first = items_.size();
        for (const auto& entry : container) {
            if (!valueOf(entry).isAbsent()) items_.push_back(reference(valueOf(entry)));
        }
        put(key, list_.addArray(std::span(items_).subspan(first)));
        items_.resize(first);
    }

    /// The identity of what lives at the address; `number` is asked for one that is new.
    template <typename NumberFor>
    const Identity& identity(const Value& value, const void* address, NumberFor&& number) {
        return identities_[identityIndex_.findOrMake(
            hashOfBits(reinterpret_cast<std::uintptr_t>(address)),
            [&](FlatIndex::Number known) { return identities_[known].address == address; },
            [&] {
                kept_.push_back(value);
                identities_.push_back({address, number()});
                return static_cast<FlatIndex::Number>(identities_.size() - 1);
            })];
    }

    /// An object or container: noted, then filled by `fill`.
    template <typename Class, typename Fill>
    Number nested(const Value& value, const void* address, const Class& itsClass, Fill&& fill) {
        const Number next = nextNumber();
        const Number found = identity(value, address, [&] { return next; }).number;
        if (found == next) {
            addObject();
            if (level_ == archive::deepestLevel) {
                failTooDeep();
                return found;
            }
            ++level_;
            const auto outerHeight = std::exchange(height_, 0);
            const auto outerFirst = std::exchange(firstEntry_, entries_.size());
            const auto outerKey = key_;
            fill();
            key_ = outerKey;
            finish(found, classNumber(itsClass));
            objects_[found].height = height_ + 1;
            if (objects_[found].height > archive::deepestLevel) failTooDeep();
            firstEntry_ = outerFirst;
            height_ = outerHeight;
            --level_;
        }
        height_ = std::max(height_, objects_[found].height);
        return found;
    }

    void failTooDeep() {
        fail("objects that nest deeper than " + std::to_string(archive::deepestLevel) + " levels cannot be archived");
    }

    /// An object of one value or none that refers to no other.
    Number leaf(StandardClass itsClass, std::string_view key = {}, Index value = 0) {
        const Number number = addObject();
        const auto outerFirst = std::exchange(firstEntry_, entries_.size());
        if (!key.empty()) put(key, value);
        finish(number, classNumber(itsClass));
        firstEntry_ = outerFirst;
        return number;
    }

    /// Makes the top entries an object. Of equal keys, as where a class overrides a value of its base class, the last
    /// one's value stays.
    void finish(Number number, Number itsClass) {
        entries_.push_back({classKey_, objects_[itsClass].reference});
        ++finished_;
        auto kept = firstEntry_;
        for (auto position = firstEntry_; position < entries_.size(); ++position) {
            const Entry entry = entries_[position];
            if (lastUse_.size() <= entry.key) lastUse_.resize(entry.key + 1);
            KeyUse& use = lastUse_[entry.key];
            if (use.object != finished_) use = {finished_, kept++};
            entries_[use.position] = entry;
        }
        objects_[number].node = list_.addDictionary(std::span(entries_).subspan(firstEntry_, kept - firstEntry_));
        entries_.resize(firstEntry_);
    }

    Number classNumber(const ClassRecord& record) {
        const auto [known, isNew] = classNumbers_.try_emplace(&record, 0);
        if (!isNew) return known->second;
        if (ClassRegistry::shared().find(record.name()) != &record) {
            fail("class \"" + record.name() + "\" is not registered");
        }
        std::vector<std::string_view> chain;
        const ClassRecord* link = &record;
        for (; link && link != &zor::Object::staticClass(); link = link->base()) chain.push_back(link->name());
        chain.push_back(archive::rootClassName);
        return known->second = addClass(chain);
    }

    Number classNumber(StandardClass itsClass) {
        const auto [known, isNew] = classNumbers_.try_emplace(itsClass.data(), 0);
        return isNew ? known->second = addClass(itsClass) : known->second;
    }

    Number addClass(std::span<const std::string_view> chain) {
        std::vector<Index> names;
        for (const auto name : chain) names.push_back(string(name));
        const std::array entries{Entry{string(archive::classNameKey), names.front()},
                                 Entry{string(archive::classesKey), list_.addArray(names)}};
        return addObject(list_.addDictionary(entries));
    }

    struct KeyUse {
        /// The count of finished objects tells one object's use of a key from another's.
        std::size_t object = 0;
        std::size_t position = 0;
    };

    PropertyListBuilder list_;
    std::optional<Error> error_;
    const Index classKey_ = string(archive::classKey);
    /// The one that an object gave last, for error texts.
    std::string_view key_;
    std::vector<Object> objects_;
    std::vector<Number> numberOfNode_;
    std::vector<Identity> identities_;
    /// Kept alive, so that nothing else can come to live at a known address.
    std::deque<Value> kept_;
    FlatIndex identityIndex_;
    std::vector<PlainDictionary> plain_;
    FlatIndex plainIndex_;
    std::unordered_map<const void*, Number> classNumbers_;
    std::array<std::optional<Index>, 256> keys_;
    Number null_ = 0;
    Number absentText_ = 0;

    std::vector<Entry> entries_;
    std::size_t firstEntry_ = 0;
    std::vector<Index> items_;
    std::size_t level_ = 0;
    /// Of what the innermost unfinished object has referred to so far.
    std::uint32_t height_ = 0;
    std::size_t finished_ = 0;
    std::vector<KeyUse> lastUse_;
};

}  // namespace

Result<Bytes> KeyedArchiver::archivedDataWithRootObject(const Value& root) {
    return ArchiveWriter().write(root);
}

}  // namespace zor
