#pragma once
// Classes to archive, and archives written by hand.

#include <gtest/gtest.h>

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/KeyedArchiver.h"
#include "host/foundation/PropertyList.h"
#include "tests/host/foundation/PropertyListBytes.h"

namespace zor::archivetest {

/// Keeps what it is told under the keys of its members.
class Node : public Object {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record =
            ClassBuilder<Node>("ArchiveTestNode", &Object::staticClass()).creatable().registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }

    void encodeWithCoder(Encoder& encoder) override {
        encoder.encodeValue("name", name.empty() ? Value() : Value(name));
        encoder.encodeRect("frame", frame);
        encoder.encodePoint("point", point);
        encoder.encodeSize("size", size);
        encoder.encodeBool("flag", flag);
        encoder.encodeInteger("count", count);
        encoder.encodeDouble("ratio", ratio);
        encoder.encodeValue("other", Value(other));
        encoder.encodeValue("parent", Value(parent.lock()));
        encoder.encodeObjects("children", children);
        encoder.encodeValue("any", any);
    }

    bool initWithCoder(Decoder& decoder) override {
        ++timesRead;
        name = decoder.decodeString("name").value_or("");
        frame = decoder.decodeRect("frame");
        point = decoder.decodePoint("point");
        size = decoder.decodeSize("size");
        flag = decoder.decodeBool("flag");
        count = decoder.decodeInteger("count");
        ratio = decoder.decodeDouble("ratio");
        other = decoder.decodeObject<Object>("other");
        parent = decoder.decodeObject<Node>("parent");
        children = decoder.decodeObjects<Node>("children");
        any = decoder.decodeValue("any");
        hasAny = decoder.containsValueForKey("any");
        context = decoder.context("context");
        return name != "refuses";
    }

    std::string name;
    Rect frame;
    Point point;
    Size size;
    bool flag = false;
    std::int64_t count = 0;
    double ratio = 0;
    ObjectPtr other;
    std::weak_ptr<Node> parent;
    std::vector<std::shared_ptr<Node>> children;
    Value any;
    bool hasAny = false;
    ObjectPtr context;
    int timesRead = 0;
};

/// Of another class, with a value of its own and one that replaces its base class's.
class Leaf : public Node {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record =
            ClassBuilder<Leaf>("ArchiveTestLeaf", &Node::staticClass()).creatable().registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }

    void encodeWithCoder(Encoder& encoder) override {
        Node::encodeWithCoder(encoder);
        encoder.encodeInteger("count", count * 10);
        encoder.encodeInteger("$class", 5);
    }
    bool initWithCoder(Decoder& decoder) override {
        escaped = decoder.decodeInteger("$class");
        return Node::initWithCoder(decoder);
    }

    std::int64_t escaped = 0;
};

class Abstract : public Object {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record =
            ClassBuilder<Abstract>("ArchiveTestAbstract", &Object::staticClass()).registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }
};

inline void registerClasses() {
    Node::staticClass();
    Leaf::staticClass();
    Abstract::staticClass();
}

inline std::string uid(std::uint64_t number) {
    return "<dict><key>CF$UID</key><integer>" + std::to_string(number) + "</integer></dict>";
}

inline std::string entry(std::string_view key, std::string_view value) {
    return "<key>" + std::string(key) + "</key>" + std::string(value);
}

inline std::string dictionary(const std::vector<std::string>& entries) {
    std::string text = "<dict>";
    for (const auto& part : entries) text += part;
    return text + "</dict>";
}

inline std::string array(const std::vector<std::string>& items) {
    std::string text = "<array>";
    for (const auto& item : items) text += item;
    return text + "</array>";
}

inline std::string string(std::string_view text) {
    return "<string>" + std::string(text) + "</string>";
}

inline std::string integer(std::int64_t number) {
    return "<integer>" + std::to_string(number) + "</integer>";
}

/// A class record with its name only.
inline std::string classRecord(std::string_view name) {
    return dictionary({entry("$classname", string(name))});
}

/// An object with its class at that number.
inline std::string object(std::uint64_t itsClass, const std::vector<std::string>& entries = {}) {
    auto all = entries;
    all.push_back(entry("$class", uid(itsClass)));
    return dictionary(all);
}

/// A container of the class at that number.
inline std::string container(std::uint64_t itsClass, const std::vector<std::uint64_t>& items) {
    std::vector<std::string> references;
    for (const auto item : items) references.push_back(uid(item));
    return object(itsClass, {entry("NS.objects", array(references))});
}

/// The XML of an archive; the first object given is number 1 and the root.
inline std::string archiveText(const std::vector<std::string>& objects) {
    auto all = objects;
    all.insert(all.begin(), string("$null"));
    return dictionary({entry("$archiver", string("NSKeyedArchiver")), entry("$version", integer(100000)),
                       entry("$top", dictionary({entry("root", uid(1))})), entry("$objects", array(all))});
}

inline Bytes binaryOf(const std::string& xml) {
    const auto list = PropertyList::parse(bytesOf(xml));
    EXPECT_TRUE(list) << list.error().message;
    return list->binary();
}

/// The root of an archive written by hand, which must be the same in both forms.
inline Result<Value> unarchived(const std::vector<std::string>& objects, const UnarchivingOptions& options = {}) {
    registerClasses();
    const auto text = archiveText(objects);
    auto fromXml = KeyedUnarchiver::unarchivedRoot(bytesOf(text), options);
    auto fromBinary = KeyedUnarchiver::unarchivedRoot(binaryOf(text), options);
    EXPECT_EQ(static_cast<bool>(fromXml), static_cast<bool>(fromBinary));
    if (!fromXml && !fromBinary) {
        EXPECT_EQ(fromXml.error().message, fromBinary.error().message);
    }
    return fromBinary;
}

inline std::string faultOf(const std::vector<std::string>& objects, const UnarchivingOptions& options = {}) {
    const auto root = unarchived(objects, options);
    return root ? "no error" : root.error().message;
}

/// The same graph, written and read again.
inline Value again(const Value& root) {
    registerClasses();
    const auto data = KeyedArchiver::archivedDataWithRootObject(root);
    if (!data) return "error: " + data.error().message;
    const auto back = KeyedUnarchiver::unarchivedRoot(*data);
    return back ? *back : Value("error: " + back.error().message);
}

/// What an archive holds, read as a plain property list.
class Archived {
public:
    explicit Archived(const Value& root) {
        registerClasses();
        const auto data = KeyedArchiver::archivedDataWithRootObject(root);
        EXPECT_TRUE(data) << data.error().message;
        const auto list = PropertyList::parse(*data);
        EXPECT_TRUE(list);
        top = *list->value(list->root());
    }

    const Value& object(std::int64_t number) const {
        return top["$objects"].asArray().at(static_cast<std::size_t>(number));
    }
    const Value& at(const Value& reference) const { return object(reference["CF$UID"].asInteger()); }
    std::size_t count(const Value& value) const {
        const auto& objects = top["$objects"].asArray();
        return static_cast<std::size_t>(std::count(objects.begin(), objects.end(), value));
    }

    Value top;
};

inline std::string faultOfArchiving(const Value& root) {
    registerClasses();
    const auto data = KeyedArchiver::archivedDataWithRootObject(root);
    return data ? "no error" : data.error().message;
}

}  // namespace zor::archivetest
