#include "host/foundation/PropertyList.h"

#include <gtest/gtest.h>

#include "host/foundation/Object.h"
#include "tests/host/foundation/PropertyListBytes.h"

namespace zor {
namespace {

Value nestedArrays(std::size_t levels) {
    Value value(Value::Array{});
    for (std::size_t level = 1; level < levels; ++level) value = Value(Value::Array{value});
    return value;
}

TEST(PropertyList, FindsValuesByKey) {
    const auto list = PropertyList::fromValue(Value::Dictionary{{"name", "Davis"}, {"count", 3}});
    ASSERT_TRUE(list);
    const auto count = list->find(list->root(), "count");
    ASSERT_TRUE(count);
    EXPECT_EQ(list->integer(*count), 3);
    EXPECT_EQ(list->string(*list->find(list->root(), "name")), "Davis");
    EXPECT_FALSE(list->find(list->root(), "missing"));
    EXPECT_FALSE(list->find(*count, "name"));
}

TEST(PropertyList, GivesUidsAsDictionaries) {
    PropertyListBytes bytes;
    bytes.add({0x80, 7});
    const auto list = PropertyList::parse(bytes.finish());
    ASSERT_TRUE(list);
    EXPECT_EQ(*list->value(list->root()), Value(Value::Dictionary{{"CF$UID", 7}}));
}

TEST(PropertyList, LeavesAbsentEntriesOut) {
    const auto list = PropertyList::fromValue(Value::Array{1, Value(), Value::Dictionary{{"a", Value()}, {"b", 2}}});
    ASSERT_TRUE(list);
    EXPECT_EQ(*list->value(list->root()), Value(Value::Array{1, Value::Dictionary{{"b", 2}}}));
}

TEST(PropertyList, RefusesToStoreWhatTheFormatLacks) {
    const auto fault = [](const Value& value) { return PropertyList::fromValue(value).error().message; };
    EXPECT_EQ(fault(Value()), "an absent value cannot be stored in a property list");
    EXPECT_EQ(fault(Value::Array{Null{}}), "a null placeholder or an object cannot be stored in a property list");
    EXPECT_EQ(fault(Value::Array{std::make_shared<Object>()}),
              "a null placeholder or an object cannot be stored in a property list");
    EXPECT_EQ(fault("\xFF"), "text that is not UTF-8 cannot be stored in a property list");
    EXPECT_EQ(fault(Value::Dictionary{{"\xC3", 1}}), "text that is not UTF-8 cannot be stored in a property list");
}

TEST(PropertyList, NestsValuesSixtyFourLevelsDeep) {
    const Value deepest = nestedArrays(64);
    const auto list = PropertyList::fromValue(deepest);
    ASSERT_TRUE(list);
    const auto back = PropertyList::parse(list->binary());
    ASSERT_TRUE(back);
    EXPECT_EQ(*back->value(back->root()), deepest);
    EXPECT_EQ(PropertyList::fromValue(nestedArrays(65)).error().message,
              "the property list nests deeper than 64 levels");
}

/// Arrays nested in each other, the innermost first in the file.
Bytes deepFile(std::uint64_t levels) {
    PropertyListBytes bytes;
    bytes.referenceSize = 4;
    bytes.offsetSize = 4;
    bytes.add({0xA0});
    for (std::uint64_t level = 1; level < levels; ++level) {
        Bytes array{0xA1};
        PropertyListBytes::append(array, level - 1, 4);
        bytes.add(array);
    }
    return bytes.finish();
}

TEST(PropertyList, RefusesDeeperNestingThanValuesMayHave) {
    for (const std::uint64_t levels : {65, 1'000'000}) {
        const auto list = PropertyList::parse(deepFile(levels));
        ASSERT_TRUE(list);
        EXPECT_EQ(list->value(list->root()).error().message, "the property list nests deeper than 64 levels");
    }
    const auto list = PropertyList::parse(deepFile(64));
    EXPECT_TRUE(list->value(list->root()));
}

TEST(PropertyList, CountsLevelsOfSharedContainersToo) {
    // The root meets the 64 levels twice: directly, one by one from the inside, and so never deeply.
    PropertyListBytes bytes;
    bytes.add({0xA0});
    Bytes all{0xAF, 0x10, 64, 0};
    for (std::uint8_t level = 1; level < 64; ++level) {
        bytes.add({0xA1, level - 1});
        all.push_back(level);
    }
    bytes.add(all);
    const auto list = PropertyList::parse(bytes.finish());
    ASSERT_TRUE(list);
    EXPECT_EQ(list->value(list->root()).error().message, "the property list nests deeper than 64 levels");
}

TEST(PropertyList, WritesNoSharedContainerDeeperThanItReads) {
    const Value tall = nestedArrays(40);
    Value deep(Value::Array{tall});
    for (int level = 0; level < 23; ++level) deep = Value(Value::Array{deep});
    // The root, 24 arrays around the 40.
    EXPECT_EQ(PropertyList::fromValue(Value(Value::Array{tall, deep})).error().message,
              "the property list nests deeper than 64 levels");
    EXPECT_TRUE(PropertyList::fromValue(Value(Value::Array{tall, tall})));
}

/// Each array holds the next one twice.
Bytes doublingFile(int levels) {
    PropertyListBytes bytes;
    bytes.add({0xA0});
    for (int level = 1; level < levels; ++level) bytes.add({0xA2, level - 1, level - 1});
    return bytes.finish();
}

TEST(PropertyList, SharesContainersInsteadOfCopyingThem) {
    const auto list = PropertyList::parse(doublingFile(60));
    ASSERT_TRUE(list);
    const auto value = list->value(list->root());
    ASSERT_TRUE(value);
    EXPECT_EQ(&value->asArray()[0].asArray(), &value->asArray()[1].asArray());
    // And back: 2 to the power of 60 arrays would never be written.
    const auto again = PropertyList::fromValue(*value);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->size(), 60u);
}

TEST(PropertyList, RefusesTextRepeatedOutOfProportion) {
    PropertyListBytes bytes;
    bytes.referenceSize = 1;
    bytes.offsetSize = 4;
    Bytes text{0x5F, 0x12};
    PropertyListBytes::append(text, 1 << 20, 4);
    text.insert(text.end(), 1 << 20, 'x');
    bytes.add(text);
    Bytes array{0xAF, 0x12};
    PropertyListBytes::append(array, 100'000, 4);
    array.insert(array.end(), 100'000, 0);
    bytes.add(array);
    const auto list = PropertyList::parse(bytes.finish());
    ASSERT_TRUE(list);
    EXPECT_EQ(list->value(list->root()).error().message, "the property list repeats its text out of proportion");
}

}  // namespace
}  // namespace zor
