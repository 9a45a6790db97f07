#include "host/foundation/Value.h"

#include <cmath>
#include <limits>

#include "host/foundation/Object.h"

namespace zor {
namespace {

TEST(ValueTest, KnowsItsKind) {
    EXPECT_TRUE(Value().isAbsent());
    EXPECT_TRUE(Value(Null{}).isNull());
    EXPECT_TRUE(Value(true).isBool());
    EXPECT_TRUE(Value(1).isInteger());
    EXPECT_TRUE(Value(1.0).isReal());
    EXPECT_TRUE(Value("text").isString());
    EXPECT_TRUE(Value(Date{1}).isDate());
    EXPECT_TRUE(Value(Bytes{1, 2}).isData());
    EXPECT_TRUE(Value(Value::Array{}).isArray());
    EXPECT_TRUE(Value(Value::Dictionary{}).isDictionary());
    EXPECT_TRUE(Value(std::make_shared<Object>()).isObject());
    EXPECT_FALSE(Value(true).isNumber());
    EXPECT_TRUE(Value(1).isNumber());
    EXPECT_TRUE(Value(1.5).isNumber());
}

TEST(ValueTest, EmptyPointersAreAbsent) {
    EXPECT_TRUE(Value(ObjectPtr{}).isAbsent());
    EXPECT_TRUE(Value(std::shared_ptr<const Bytes>{}).isAbsent());
    EXPECT_TRUE(Value(std::shared_ptr<const Value::Array>{}).isAbsent());
    EXPECT_TRUE(Value(std::shared_ptr<const Value::Dictionary>{}).isAbsent());
}

TEST(ValueTest, NumbersAndBooleansConvert) {
    EXPECT_TRUE(Value(2).asBool());
    EXPECT_FALSE(Value(0).asBool());
    EXPECT_TRUE(Value(0.5).asBool());
    EXPECT_EQ(Value(true).asInteger(), 1);
    EXPECT_EQ(Value(true).asReal(), 1.0);
    EXPECT_EQ(Value(-7).asReal(), -7.0);
    EXPECT_EQ(Value(-7.0).asInteger(), -7);
    EXPECT_EQ(Value(std::numeric_limits<std::int64_t>::max()).asInteger(), std::numeric_limits<std::int64_t>::max());
}

TEST(ValueTest, OnlyWholeRealsInRangeBecomeIntegers) {
    EXPECT_EQ(Value(7.5).asInteger(), 0);
    EXPECT_EQ(Value(0x1p63).asInteger(), 0);
    EXPECT_EQ(Value(-0x1p63).asInteger(), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(Value(std::nan("")).asInteger(), 0);
    EXPECT_EQ(Value(std::numeric_limits<double>::infinity()).asInteger(), 0);
}

TEST(ValueTest, AnotherKindGivesTheZeroAnswer) {
    const Value text("12");
    EXPECT_FALSE(text.asBool());
    EXPECT_EQ(text.asInteger(), 0);
    EXPECT_EQ(text.asReal(), 0);
    EXPECT_EQ(text.asDate(), Date{});
    EXPECT_TRUE(text.asData().empty());
    EXPECT_EQ(text.sharedData(), nullptr);
    EXPECT_TRUE(text.asArray().empty());
    EXPECT_TRUE(text.asDictionary().empty());
    EXPECT_EQ(text.asObject(), nullptr);
    EXPECT_EQ(Value(1).asString(), "");
    EXPECT_FALSE(Value(1).string());
    EXPECT_TRUE(text["key"].isAbsent());
}

TEST(ValueTest, NumberIsIntegerOrRealButNoBoolean) {
    EXPECT_EQ(Value(3).number(), 3.0);
    EXPECT_EQ(Value(3.5).number(), 3.5);
    EXPECT_FALSE(Value(true).number());
    EXPECT_FALSE(Value("3").number());
}

TEST(ValueTest, GeometryTravelsAsArraysOfNumbers) {
    EXPECT_EQ(Value(Rect{1, 2, 3, 4}), Value(Value::Array{1.0, 2.0, 3.0, 4.0}));
    EXPECT_EQ(Value(Value::Array{1, 2.5, 3, 4}).rect(), (Rect{1, 2.5, 3, 4}));
    EXPECT_EQ(Value(Point{1, 2}).point(), (Point{1, 2}));
    EXPECT_EQ(Value(Size{1, 2}).size(), (Size{1, 2}));
}

TEST(ValueTest, WrongCountsAndEntriesAreNoGeometry) {
    EXPECT_FALSE(Value(Value::Array{1, 2, 3}).rect());
    EXPECT_FALSE(Value(Value::Array{1, 2, 3, 4, 5}).rect());
    EXPECT_FALSE(Value(Value::Array{1, 2, 3, "4"}).rect());
    EXPECT_FALSE(Value(Value::Array{1, true}).point());
    EXPECT_FALSE(Value(Value::Array{1}).size());
    EXPECT_FALSE(Value("{{1, 2}, {3, 4}}").rect());
    EXPECT_FALSE(Value().point());
}

TEST(ValueTest, DictionaryEntryByKey) {
    const Value value(Value::Dictionary{{"one", 1}, {"inner", Value::Dictionary{{"two", 2}}}});
    EXPECT_EQ(value["one"], Value(1));
    EXPECT_EQ(value["inner"]["two"], Value(2));
    EXPECT_TRUE(value["three"].isAbsent());
}

TEST(ValueTest, EqualityComparesContentNotSharing) {
    EXPECT_EQ(Value(Bytes{1, 2}), Value(Bytes{1, 2}));
    EXPECT_NE(Value(Bytes{1, 2}), Value(Bytes{1, 3}));
    EXPECT_EQ(Value(Value::Array{1, "a", Value::Array{Null{}}}), Value(Value::Array{1, "a", Value::Array{Null{}}}));
    EXPECT_NE(Value(Value::Array{1}), Value(Value::Array{1, 2}));
    EXPECT_EQ(Value(Value::Dictionary{{"k", 1}}), Value(Value::Dictionary{{"k", 1}}));
    EXPECT_NE(Value(Value::Dictionary{{"k", 1}}), Value(Value::Dictionary{{"l", 1}}));
}

TEST(ValueTest, DifferentKindsAreNeverEqual) {
    EXPECT_NE(Value(1), Value(1.0));
    EXPECT_NE(Value(1), Value(true));
    EXPECT_NE(Value(), Value(Null{}));
    EXPECT_NE(Value(""), Value());
    EXPECT_NE(Value(Date{0}), Value(0.0));
    EXPECT_EQ(Value(), Value());
}

TEST(ValueTest, ObjectsAreEqualWhereTheyAreTheSame) {
    const auto object = std::make_shared<Object>();
    EXPECT_EQ(Value(object), Value(object));
    EXPECT_NE(Value(object), Value(std::make_shared<Object>()));
}

TEST(ValueTest, CopiesShareTheirContent) {
    const Value first(Value::Array{1, 2, 3});
    const Value second = first;
    EXPECT_EQ(&first.asArray(), &second.asArray());
    const auto data = std::make_shared<const Bytes>(Bytes{1, 2, 3});
    EXPECT_EQ(Value(data).sharedData(), data);
}

}  // namespace
}  // namespace zor
