#include "app/inspect/ArchiveJson.h"

#include <gtest/gtest.h>

#include "host/foundation/PropertyListBuilder.h"

namespace zor {
namespace {

using Index = PropertyListBuilder::Index;

/// Builds the lists that files of others may hold.
class ArchiveJson : public testing::Test {
protected:
    Index text(std::string_view text) { return *list.addString(text); }
    Index dictionary(const std::vector<PropertyListBuilder::Entry>& entries) { return list.addDictionary(entries); }
    Index array(const std::vector<Index>& items) { return list.addArray(items); }
    Index uid(std::uint64_t number) { return list.addUid(number); }
    Json shown(Index root) { return archiveJson(PropertyList(list.finish(root))); }
    /// An archive of these objects, from number 1 on; its root is the first.
    Json shownArchive(const std::vector<Index>& objects) {
        std::vector<Index> all{text("$null")};
        all.insert(all.end(), objects.begin(), objects.end());
        const Index top = dictionary({{text("root"), uid(1)}});
        return shown(dictionary({{text("$top"), top}, {text("$objects"), array(all)}}));
    }
    PropertyListBuilder list;
};

TEST_F(ArchiveJson, ShowsAPlainListAsItStands) {
    const Index pair = array({list.addInteger(1), text("two")});
    EXPECT_EQ(shown(dictionary({{text("pair"), pair}, {text("again"), pair}})),
              Json({{"pair", {1, "two"}}, {"again", {1, "two"}}}));
}

TEST_F(ArchiveJson, ShowsAnObjectOnceAndThenItsNumber) {
    const Index itsClass = dictionary({{text("$classname"), text("Thing")}});
    const Index thing = dictionary({{text("$class"), uid(3)}, {text("size"), list.addInteger(7)}});
    const Index root = dictionary({{text("$class"), uid(3)}, {text("first"), uid(2)}, {text("then"), uid(2)}});
    EXPECT_EQ(shownArchive({root, thing, itsClass}), Json({{"root",
                                                            {{"$class", "Thing"},
                                                             {"$id", 1},
                                                             {"first", {{"$class", "Thing"}, {"$id", 2}, {"size", 7}}},
                                                             {"then", {{"$ref", 2}}}}}}));
}

TEST_F(ArchiveJson, ContainersThatDoubleWithEachLevelEnd) {
    Index nested = array({list.addInteger(1)});
    Index entries = nested;
    for (int level = 0; level < 40; ++level) {
        nested = array({nested, nested});
        entries = dictionary({{text("a"), entries}, {text("b"), entries}});
    }
    EXPECT_LT(shown(array({nested, entries})).dump().size(), 1'000'000u);
}

TEST_F(ArchiveJson, ObjectsThatShareOneArrayAreShownInProportion) {
    constexpr std::size_t count = 2'000;
    const Index items = array(std::vector(count, list.addInteger(12345)));
    std::vector<Index> objects{0};
    std::vector<Index> references;
    for (std::size_t index = 0; index < count; ++index) {
        objects.push_back(dictionary({{text("NS.objects"), items}}));
        references.push_back(uid(index + 2));
    }
    objects[0] = dictionary({{text("NS.objects"), array(references)}});
    // Each in full would be 24 MB.
    EXPECT_LT(shownArchive(objects).dump().size(), 1'000'000u);
}

TEST_F(ArchiveJson, LongTextIsRepeatedInProportion) {
    const Index manuscript = text(std::string(100'000, 'x'));
    const Json all = shown(array(std::vector<Index>(5'000, manuscript)));
    EXPECT_EQ(all[0].get<std::string>().size(), 100'000u);
    EXPECT_EQ(all[4'999].get<std::string>(), std::string(64, 'x') + "...");
    EXPECT_LT(all.dump().size(), 2'000'000u);
}

TEST_F(ArchiveJson, KeysThatAreContainersAreLeftOut) {
    // Their quotes would double with each level.
    std::vector<Index> objects;
    constexpr std::uint64_t count = 40;
    for (std::uint64_t number = 1; number <= count; ++number) {
        const Index key = number < count ? uid(number + 1) : text("innermost");
        objects.push_back(dictionary({{text("NS.keys"), array({key})}, {text("NS.objects"), array({text("value")})}}));
    }
    EXPECT_EQ(shownArchive(objects), Json({{"root", {{"...", "value"}}}}));
}

}  // namespace
}  // namespace zor
