#include "host/foundation/KeyedArchiver.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/host/foundation/ArchiveSupport.h"

namespace zor {
namespace {

using namespace archivetest;

Value reference(std::int64_t number) {
    return Value::Dictionary{{"CF$UID", number}};
}

std::shared_ptr<Node> nodeNamed(std::string name) {
    auto node = std::make_shared<Node>();
    node->name = std::move(name);
    return node;
}

TEST(KeyedArchiver, WritesTheFourTopKeys) {
    const Archived archived("hello");
    EXPECT_EQ(archived.top.asDictionary().size(), 4u);
    EXPECT_EQ(archived.top["$archiver"], Value("NSKeyedArchiver"));
    EXPECT_EQ(archived.top["$version"], Value(100000));
    EXPECT_EQ(archived.top["$top"], Value(Value::Dictionary{{"root", reference(1)}}));
    EXPECT_EQ(archived.top["$objects"], Value(Value::Array{"$null", "hello"}));
}

TEST(KeyedArchiver, WritesAnObjectWithItsValuesAndItsClass) {
    auto node = nodeNamed("gauge");
    node->frame = {0.1, -2, 1e30, 4};
    node->point = {1, 2};
    node->size = {3, 4};
    node->flag = true;
    node->count = -7;
    node->ratio = 2;
    const Archived archived((Value(node)));
    const Value& object = archived.object(1);
    EXPECT_EQ(object["flag"], Value(true));
    EXPECT_EQ(object["count"], Value(-7));
    EXPECT_EQ(object["ratio"], Value(2.0));
    EXPECT_EQ(archived.at(object["name"]), Value("gauge"));
    EXPECT_EQ(archived.at(object["frame"]), Value("{{0.1, -2}, {1e+30, 4}}"));
    EXPECT_EQ(archived.at(object["point"]), Value("{1, 2}"));
    EXPECT_EQ(archived.at(object["size"]), Value("{3, 4}"));
    EXPECT_EQ(object["other"], reference(0));
    EXPECT_EQ(object["any"], reference(0));
    EXPECT_EQ(archived.at(object["$class"]),
              Value(Value::Dictionary{{"$classname", "ArchiveTestNode"},
                                      {"$classes", Value::Array{"ArchiveTestNode", "NSObject"}}}));
}

TEST(KeyedArchiver, WritesWholeClassChainsOnce) {
    const Archived archived(Value(Value::Array{std::make_shared<Leaf>(), std::make_shared<Leaf>()}));
    EXPECT_EQ(
        archived.count(Value::Dictionary{{"$classname", "ArchiveTestLeaf"},
                                         {"$classes", Value::Array{"ArchiveTestLeaf", "ArchiveTestNode", "NSObject"}}}),
        1u);
    EXPECT_EQ(
        archived.count(Value::Dictionary{{"$classname", "NSArray"}, {"$classes", Value::Array{"NSArray", "NSObject"}}}),
        1u);
}

TEST(KeyedArchiver, WritesContainersDatesAndNullAsObjects) {
    const Archived archived(
        Value(Value::Dictionary{{"a", Value::Array{1, "x"}}, {"b", Date{12.5}}, {"c", Null{}}, {"d", Bytes{1, 2}}}));
    const Value& root = archived.object(1);
    EXPECT_EQ(archived.at(root["$class"])["$classname"], Value("NSDictionary"));
    EXPECT_EQ(archived.at(root["$class"])["$classes"], Value(Value::Array{"NSDictionary", "NSObject"}));
    const auto& keys = root["NS.keys"].asArray();
    const auto& values = root["NS.objects"].asArray();
    ASSERT_EQ(keys.size(), 4u);
    ASSERT_EQ(values.size(), 4u);
    EXPECT_EQ(archived.at(keys[0]), Value("a"));
    EXPECT_EQ(archived.at(keys[3]), Value("d"));
    const Value& array = archived.at(values[0]);
    EXPECT_EQ(archived.at(array["$class"])["$classname"], Value("NSArray"));
    ASSERT_EQ(array["NS.objects"].asArray().size(), 2u);
    EXPECT_EQ(archived.at(array["NS.objects"].asArray()[0]), Value(1));
    EXPECT_EQ(archived.at(array["NS.objects"].asArray()[1]), Value("x"));
    EXPECT_EQ(archived.at(values[1])["NS.time"], Value(12.5));
    EXPECT_EQ(archived.at(archived.at(values[1])["$class"])["$classes"], Value(Value::Array{"NSDate", "NSObject"}));
    EXPECT_EQ(archived.at(values[2]).asDictionary().size(), 1u);
    EXPECT_EQ(archived.at(archived.at(values[2])["$class"])["$classes"], Value(Value::Array{"NSNull", "NSObject"}));
    EXPECT_EQ(archived.at(values[3]), Value(Bytes{1, 2}));
}

TEST(KeyedArchiver, StoresEqualStringsAndNumbersOnce) {
    const Archived archived(Value(Value::Array{"same", "same", 5, 5, 5.0, 5.0, true, true, Null{}, Null{}}));
    EXPECT_EQ(archived.count("same"), 1u);
    EXPECT_EQ(archived.count(5), 1u);
    EXPECT_EQ(archived.count(5.0), 1u);
    EXPECT_EQ(archived.count(true), 1u);
    const auto& items = archived.object(1)["NS.objects"].asArray();
    ASSERT_EQ(items.size(), 10u);
    for (std::size_t index = 0; index < items.size(); index += 2) EXPECT_EQ(items[index], items[index + 1]);
    EXPECT_NE(items[2], items[4]);
    EXPECT_NE(items[2], items[6]);
}

TEST(KeyedArchiver, LeavesAbsentEntriesOut) {
    const Archived archived(Value(Value::Array{Value(), 1, Value(), Value::Dictionary{{"a", Value()}, {"b", 1}}}));
    const auto& items = archived.object(1)["NS.objects"].asArray();
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(archived.at(items[1])["NS.keys"].asArray().size(), 1u);
    EXPECT_EQ(archived.at(items[1])["NS.objects"].asArray().size(), 1u);
}

TEST(KeyedArchiver, NeverWritesTheTextThatStandsForAbsence) {
    const Value values(Value::Array{"$null", "$null", Value::Dictionary{{"$null", "$null"}}});
    const Archived archived(values);
    EXPECT_EQ(archived.count("$null"), 1u);
    const Value& text = archived.at(archived.object(1)["NS.objects"].asArray()[0]);
    EXPECT_EQ(text["NS.string"], Value("$null"));
    EXPECT_EQ(archived.at(text["$class"])["$classes"], Value(Value::Array{"NSMutableString", "NSString", "NSObject"}));
    EXPECT_EQ(again(values), values);
    EXPECT_EQ(again("$null"), Value("$null"));
}

TEST(KeyedArchiver, EscapesKeysThatStartWithADollar) {
    auto leaf = std::make_shared<Leaf>();
    const Archived archived((Value(leaf)));
    EXPECT_EQ(archived.object(1)["$$class"], Value(5));
    EXPECT_EQ(archived.at(archived.object(1)["$class"])["$classname"], Value("ArchiveTestLeaf"));
    EXPECT_EQ(again(leaf).as<Leaf>()->escaped, 5);
}

TEST(KeyedArchiver, LastValueUnderAKeyCounts) {
    auto leaf = std::make_shared<Leaf>();
    leaf->count = 3;
    leaf->other = std::make_shared<Leaf>();
    EXPECT_EQ(again(leaf).as<Leaf>()->count, 30);
}

TEST(KeyedArchiver, BringsEveryKindOfRootBack) {
    for (const Value& value :
         {Value(), Value(Null{}), Value(true), Value(false), Value(42), Value(-1), Value(2.5), Value(""),
          Value("20 °C 🌦"), Value(Date{-3.25}), Value(Bytes{}), Value(Bytes{1, 2, 3}), Value(Value::Array{}),
          Value(Value::Dictionary{}), Value(Value::Array{1, Value::Array{2, Null{}}, Value::Dictionary{{"k", "v"}}})}) {
        EXPECT_EQ(again(value), value);
    }
}

TEST(KeyedArchiver, BringsExtremeNumbersBack) {
    for (const std::int64_t number : {std::numeric_limits<std::int64_t>::min(), std::int64_t{-1}, std::int64_t{0},
                                      std::int64_t{1} << 32, std::numeric_limits<std::int64_t>::max()}) {
        auto node = std::make_shared<Node>();
        node->count = number;
        node->any = number;
        const auto back = again(node).as<Node>();
        EXPECT_EQ(back->count, number);
        EXPECT_EQ(back->any, Value(number));
    }
    for (const double number : {0.1, 5e-324, 1.7976931348623157e308, std::numeric_limits<double>::infinity(),
                                -std::numeric_limits<double>::infinity()}) {
        auto node = std::make_shared<Node>();
        node->ratio = number;
        node->frame = {number, 1 / 3.0, -number, 0};
        const auto back = again(node).as<Node>();
        EXPECT_EQ(back->ratio, number);
        EXPECT_EQ(back->frame, node->frame);
    }
    EXPECT_TRUE(std::isnan(again(std::nan("")).asReal()));
}

TEST(KeyedArchiver, BringsAllFieldsOfAnObjectBack) {
    auto node = nodeNamed("thermometer");
    node->frame = {1.25, -2.5, 300, 1e-9};
    node->point = {0.1, 0.2};
    node->size = {1e10, 7};
    node->flag = true;
    node->count = 123456789012345;
    node->ratio = -0.75;
    node->any = Value::Dictionary{{"list", Value::Array{1, 2.5, "x"}}};
    const auto back = again(node).as<Node>();
    ASSERT_TRUE(back);
    EXPECT_EQ(back->name, "thermometer");
    EXPECT_EQ(back->frame, node->frame);
    EXPECT_EQ(back->point, node->point);
    EXPECT_EQ(back->size, node->size);
    EXPECT_TRUE(back->flag);
    EXPECT_EQ(back->count, 123456789012345);
    EXPECT_EQ(back->ratio, -0.75);
    EXPECT_EQ(back->any, node->any);
    EXPECT_EQ(back->timesRead, 1);
}

TEST(KeyedArchiver, KeepsSharedObjectsShared) {
    auto shared = nodeNamed("shared");
    auto first = nodeNamed("first");
    auto second = nodeNamed("second");
    first->other = shared;
    second->other = shared;
    const Value back = again(Value::Array{first, second, shared, first});
    const auto& items = back.asArray();
    ASSERT_EQ(items.size(), 4u);
    EXPECT_EQ(items[0].as<Node>()->other, items[2].asObject());
    EXPECT_EQ(items[1].as<Node>()->other, items[2].asObject());
    EXPECT_EQ(items[3].asObject(), items[0].asObject());
    EXPECT_EQ(items[2].as<Node>()->timesRead, 1);
}

TEST(KeyedArchiver, KeepsSharedContainersShared) {
    const Value shared(Value::Array{1, 2});
    const Archived archived(Value(Value::Array{shared, shared}));
    EXPECT_EQ(archived.object(1)["NS.objects"].asArray()[0], archived.object(1)["NS.objects"].asArray()[1]);
    const Value back = again(Value::Array{shared, shared});
    EXPECT_EQ(&back.asArray()[0].asArray(), &back.asArray()[1].asArray());
}

TEST(KeyedArchiver, StoresDataThatIsSharedOnce) {
    const auto data = std::make_shared<const Bytes>(Bytes(1000, 1));
    const Archived archived(Value(Value::Array{Value(data), Value(data), Value(Bytes(1000, 1))}));
    EXPECT_EQ(archived.count(Value(data)), 1u);
}

TEST(KeyedArchiver, ClosesCircles) {
    auto parent = nodeNamed("parent");
    for (const auto* name : {"one", "two"}) {
        auto child = nodeNamed(name);
        child->parent = parent;
        parent->children.push_back(child);
    }
    const auto back = again(parent).as<Node>();
    ASSERT_TRUE(back);
    ASSERT_EQ(back->children.size(), 2u);
    EXPECT_EQ(back->children[1]->name, "two");
    EXPECT_EQ(back->children[0]->parent.lock(), back);
    EXPECT_EQ(back->children[1]->parent.lock(), back);
}

TEST(KeyedArchiver, TellsTemporaryArraysApart) {
    // Each node hands over an array that is gone when the next one hands over its own.
    Value::Array nodes;
    for (int index = 0; index < 100; ++index) {
        auto node = std::make_shared<Node>();
        node->children.push_back(nodeNamed(std::to_string(index)));
        nodes.push_back(Value(node));
    }
    const Value back = again(nodes);
    for (std::size_t index = 0; index < 100; ++index) {
        const auto node = back.asArray()[index].as<Node>();
        ASSERT_EQ(node->children.size(), 1u);
        EXPECT_EQ(node->children[0]->name, std::to_string(index));
    }
}

/// A chain of objects, each strongly holding the next.
Value chain(std::size_t length) {
    std::shared_ptr<Node> first;
    for (std::size_t index = 0; index < length; ++index) {
        auto node = std::make_shared<Node>();
        node->other = std::move(first);
        first = std::move(node);
    }
    return first;
}

TEST(KeyedArchiver, NestsObjects512LevelsDeep) {
    EXPECT_TRUE(again(chain(511)).isObject());
    // The last one's empty list of children is a level too.
    EXPECT_EQ(faultOfArchiving(chain(512)),
              "objects that nest deeper than 512 levels cannot be archived at key \"children\"");
    EXPECT_EQ(faultOfArchiving(chain(10'000)),
              "objects that nest deeper than 512 levels cannot be archived at key \"other\"");
}

TEST(KeyedArchiver, CountsLevelsOfObjectsThatWereMetBefore) {
    // The root meets a long chain from its end on, so that nothing is ever met deeply.
    Value::Array fromTheEnd;
    std::shared_ptr<Node> first;
    for (int index = 0; index < 600; ++index) {
        auto node = std::make_shared<Node>();
        node->other = first;
        first = node;
        fromTheEnd.push_back(Value(node));
    }
    EXPECT_EQ(faultOfArchiving(Value(fromTheEnd)).substr(0, 60),
              "objects that nest deeper than 512 levels cannot be archived ");
}

TEST(KeyedArchiver, NestsContainers512LevelsDeep) {
    Value value(Value::Array{});
    for (int level = 1; level < 512; ++level) value = Value(Value::Array{value});
    EXPECT_EQ(again(value), value);
    EXPECT_EQ(faultOfArchiving(Value(Value::Array{value})),
              "objects that nest deeper than 512 levels cannot be archived at the root");
}

TEST(KeyedArchiver, RefusesAClassThatIsNotRegistered) {
    class Stranger : public Object {
    public:
        const ClassRecord& classRecord() const override {
            static const ClassRecord record("ArchiveTestStranger", &Object::staticClass());
            return record;
        }
    };
    auto node = std::make_shared<Node>();
    node->other = std::make_shared<Stranger>();
    EXPECT_EQ(faultOfArchiving(Value(node)), "class \"ArchiveTestStranger\" is not registered at key \"other\"");
    EXPECT_EQ(faultOfArchiving(Value(node->other)), "class \"ArchiveTestStranger\" is not registered at the root");
}

TEST(KeyedArchiver, RefusesTextThatIsNotUtf8) {
    auto node = nodeNamed("\xC3(");
    EXPECT_EQ(faultOfArchiving(Value(node)), "text that is not UTF-8 cannot be archived at key \"name\"");
    node->name.clear();
    node->any = Value::Array{Value::Dictionary{{"\xFF", 1}}};
    EXPECT_EQ(faultOfArchiving(Value(node)), "text that is not UTF-8 cannot be archived at key \"any\"");
    EXPECT_EQ(faultOfArchiving("\x80"), "text that is not UTF-8 cannot be archived at the root");
}

TEST(KeyedArchiver, GivesTheSameBytesForTheSameGraph) {
    const auto make = [] {
        auto parent = nodeNamed("parent");
        parent->children = {nodeNamed("a"), nodeNamed("b")};
        return *KeyedArchiver::archivedDataWithRootObject(Value(parent));
    };
    registerClasses();
    EXPECT_EQ(make(), make());
}

}  // namespace
}  // namespace zor
