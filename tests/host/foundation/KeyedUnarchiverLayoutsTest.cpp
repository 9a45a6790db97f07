// Objects whose keys are the same, nearly the same, or never the same twice.

#include <gtest/gtest.h>

#include "tests/host/foundation/ArchiveSupport.h"

namespace zor {
namespace {

using namespace archivetest;

/// Asks in another order than it was written, twice for one key, and for some keys only now and then.
class Moody : public Object {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record =
            ClassBuilder<Moody>("ArchiveTestMoody", &Object::staticClass()).creatable().registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }

    bool initWithCoder(Decoder& decoder) override {
        ratio = decoder.decodeDouble("ratio");
        isThere = decoder.containsValueForKey("flag");
        if (decoder.decodeBool("flag")) name = decoder.decodeString("name").value_or("none");
        count = decoder.decodeInteger("count");
        isThereStill = decoder.containsValueForKey("flag");
        return true;
    }

    double ratio = 0;
    bool isThere = false;
    std::string name = "not asked";
    std::int64_t count = 0;
    bool isThereStill = false;
};

std::string real(int number) {
    return "<real>" + std::to_string(number) + "</real>";
}

/// The class record comes behind the array and its objects.
Value::Array arrayOf(const std::vector<std::string>& objects, const std::vector<std::string>& classes) {
    Moody::staticClass();
    std::vector<std::uint64_t> numbers;
    for (std::size_t index = 0; index < objects.size(); ++index) numbers.push_back(index + 2);
    std::vector<std::string> all{container(objects.size() + 2, numbers)};
    all.insert(all.end(), objects.begin(), objects.end());
    all.push_back(classRecord("NSArray"));
    for (const auto& name : classes) all.push_back(classRecord(name));
    const auto root = unarchived(all);
    EXPECT_TRUE(root) << root.error().message;
    return root ? root->asArray() : Value::Array{};
}

TEST(KeyedUnarchiverLayouts, ClassesWithTheSameKeysMayAskInAnyOrder) {
    std::vector<std::string> objects;
    for (int index = 0; index < 8; ++index) {
        objects.push_back(object(index % 2 == 0 ? 11u : 12u,
                                 {entry("count", integer(index)), entry("ratio", real(10 * index)),
                                  entry("flag", index % 3 == 0 ? "<true/>" : "<false/>"), entry("name", uid(0))}));
    }
    const auto array = arrayOf(objects, {"ArchiveTestNode", "ArchiveTestMoody"});
    ASSERT_EQ(array.size(), 8u);
    for (int index = 0; index < 8; ++index) {
        const auto& value = array[static_cast<std::size_t>(index)];
        if (const auto node = value.as<Node>()) {
            EXPECT_EQ(node->count, index);
            EXPECT_EQ(node->ratio, 10 * index);
            EXPECT_EQ(node->flag, index % 3 == 0);
            EXPECT_FALSE(node->hasAny);
        } else {
            const auto moody = value.as<Moody>();
            ASSERT_TRUE(moody);
            EXPECT_EQ(moody->count, index);
            EXPECT_EQ(moody->ratio, 10 * index);
            EXPECT_EQ(moody->name, index % 3 == 0 ? "none" : "not asked");
            EXPECT_TRUE(moody->isThere);
            EXPECT_TRUE(moody->isThereStill);
        }
    }
}

TEST(KeyedUnarchiverLayouts, KeysThatOneObjectLacksAreFoundInTheNext) {
    std::vector<std::string> objects;
    for (int index = 0; index < 4; ++index) {
        std::vector<std::string> entries{entry("ratio", real(index))};
        if (index % 2 == 1) entries.push_back(entry("flag", "<true/>"));
        entries.push_back(entry("count", integer(index)));
        objects.push_back(object(7, entries));
    }
    const auto array = arrayOf(objects, {"ArchiveTestMoody"});
    ASSERT_EQ(array.size(), 4u);
    for (int index = 0; index < 4; ++index) {
        const auto moody = array[static_cast<std::size_t>(index)].as<Moody>();
        ASSERT_TRUE(moody);
        EXPECT_EQ(moody->isThere, index % 2 == 1);
        EXPECT_EQ(moody->isThereStill, index % 2 == 1);
        EXPECT_EQ(moody->name, index % 2 == 1 ? "none" : "not asked");
        EXPECT_EQ(moody->count, index);
    }
}

TEST(KeyedUnarchiverLayouts, AnyNumberOfThemIsRead) {
    constexpr int count = 1000;
    std::vector<std::string> objects;
    for (int index = 0; index < count; ++index) {
        // No two before the last ten have the same keys.
        const int own = index < count - 10 ? index : index - 10;
        objects.push_back(object(count + 3, {entry("extra" + std::to_string(own), integer(-1)),
                                             entry("count", integer(index)), entry("ratio", real(index))}));
    }
    const auto array = arrayOf(objects, {"ArchiveTestMoody"});
    ASSERT_EQ(array.size(), std::size_t{count});
    for (int index = 0; index < count; ++index) {
        const auto moody = array[static_cast<std::size_t>(index)].as<Moody>();
        ASSERT_TRUE(moody);
        EXPECT_EQ(moody->count, index);
        EXPECT_EQ(moody->ratio, index);
        EXPECT_FALSE(moody->isThere);
    }
}

TEST(KeyedUnarchiverLayouts, OfEqualKeysTheFirstCounts) {
    const std::vector<std::string> entries{entry("count", integer(1)), entry("ratio", real(2)),
                                           entry("count", integer(3)), entry("ratio", real(4))};
    for (const auto& value : arrayOf({object(5, entries), object(5, entries)}, {"ArchiveTestMoody"})) {
        const auto moody = value.as<Moody>();
        ASSERT_TRUE(moody);
        EXPECT_EQ(moody->ratio, 2);
        EXPECT_EQ(moody->count, 1);
    }
}

}  // namespace
}  // namespace zor
