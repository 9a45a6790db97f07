#include "tests/host/foundation/ArchiveSupport.h"

namespace zor {
namespace {

using namespace archivetest;

TEST(KeyedArchiverDictionaries, StoresEqualSmallDictionariesOnce) {
    const auto font = [](double size) {
        return Value::Dictionary{{"family", "Sans"}, {"size", size}, {"bold", false}};
    };
    const Archived archived(Value::Array{font(12), font(12), font(13), Value::Dictionary{}, Value::Dictionary{}});
    const auto& items = archived.object(1)["NS.objects"].asArray();
    ASSERT_EQ(items.size(), 5u);
    EXPECT_EQ(items[0], items[1]);
    EXPECT_NE(items[0], items[2]);
    EXPECT_EQ(items[3], items[4]);
    EXPECT_NE(items[0], items[3]);
    EXPECT_EQ(again(Value::Array{font(12), font(12), font(13)}), Value(Value::Array{font(12), font(12), font(13)}));
}

TEST(KeyedArchiverDictionaries, TellsSmallDictionariesApartByKeysValuesAndKinds) {
    const Value all = Value::Array{Value::Dictionary{{"a", "b"}},
                                   Value::Dictionary{{"b", "a"}},
                                   Value::Dictionary{{"a", 1}},
                                   Value::Dictionary{{"a", 1.0}},
                                   Value::Dictionary{{"a", true}},
                                   Value::Dictionary{{"a", "$null"}},
                                   Value::Dictionary{{"a", Null{}}},
                                   Value::Dictionary{{"a", Value()}, {"c", 1}},
                                   Value::Dictionary{{"a", 1}, {"c", Value::Dictionary{{"a", 1}}}}};
    Value::Array expected = all.asArray();
    expected[7] = Value::Dictionary{{"c", 1}};
    EXPECT_EQ(again(all), Value(expected));
}

TEST(KeyedArchiverDictionaries, ASmallDictionaryAsRootIsNumberOne) {
    const Archived archived(Value::Dictionary{{"a", 1}});
    EXPECT_TRUE(archived.object(1)["NS.keys"].isArray());
    EXPECT_EQ(again(Value::Dictionary{{"a", 1}}), Value(Value::Dictionary{{"a", 1}}));
}

TEST(KeyedArchiverDictionaries, CountsTheLevelOfASmallDictionary) {
    const auto nested = [](int levels) {
        Value value = Value::Dictionary{{"a", 1}};
        for (int level = 1; level < levels; ++level) value = Value::Array{std::move(value)};
        return value;
    };
    EXPECT_EQ(again(nested(512)), nested(512));
    EXPECT_NE(faultOfArchiving(nested(513)).find("512 levels"), std::string::npos);
}

}  // namespace
}  // namespace zor
