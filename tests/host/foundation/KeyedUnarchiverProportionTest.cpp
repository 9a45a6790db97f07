// Files in which little says much: what they cost must be in proportion to their size.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/foundation/PropertyListBuilder.h"
#include "tests/host/foundation/ArchiveSupport.h"

namespace zor {
namespace {

using namespace archivetest;

TEST(KeyedUnarchiverProportion, DecodesAContainerOfAMillionReferencesToOneArray) {
    registerClasses();
    Value::Array inner(1000, Value(1));
    const Value shared(std::move(inner));
    const Value back = again(Value::Array(1'000'000, shared));
    ASSERT_EQ(back.asArray().size(), 1'000'000u);
    EXPECT_EQ(&back.asArray()[0].asArray(), &back.asArray()[999'999].asArray());
}

/// Builds archives whose objects share parts in the file, as no writer does.
class SharingArchive {
public:
    using Index = PropertyListBuilder::Index;
    using Entry = PropertyListBuilder::Entry;

    SharingArchive() { objects_ = {text("$null"), 0}; }

    /// The first object that is added is number 2.
    Index uid(std::uint64_t number) { return list_.addUid(number); }
    Index text(std::string_view text) { return *list_.addString(text); }
    /// Adds an object and gives the node of its UID.
    Index add(Index node) {
        objects_.push_back(node);
        return list_.addUid(objects_.size() - 1);
    }
    Index addClass(std::string_view name) { return add(dictionary({{text("$classname"), text(name)}})); }
    Index dictionary(const std::vector<Entry>& entries) { return list_.addDictionary(entries); }
    Index array(const std::vector<Index>& items) { return list_.addArray(items); }
    Index container(Index itsClass, Index items) {
        return dictionary({{text("$class"), itsClass}, {text("NS.objects"), items}});
    }
    Index dictionaryObject(Index itsClass, Index keys, Index items) {
        return dictionary({{text("$class"), itsClass}, {text("NS.keys"), keys}, {text("NS.objects"), items}});
    }

    Result<Value> unarchived(Index root, const UnarchivingOptions& options = {}) {
        objects_[1] = root;
        const Index top = dictionary({{text("root"), list_.addUid(1)}});
        const Index all = dictionary({{text("$archiver"), text("NSKeyedArchiver")},
                                      {text("$version"), list_.addInteger(100'000)},
                                      {text("$top"), top},
                                      {text("$objects"), array(objects_)}});
        return KeyedUnarchiver::unarchivedRoot(PropertyList(list_.finish(all)).binary(), options);
    }

private:
    PropertyListBuilder list_;
    std::vector<Index> objects_;
};

TEST(KeyedUnarchiverProportion, BuildsEntriesThatContainersShareOnce) {
    // Were they built for each container, these few megabytes would take 400 GB.
    constexpr std::size_t count = 100'000;
    SharingArchive archive;
    const auto arrayClass = archive.addClass("NSArray");
    const auto items = archive.array(std::vector(count, archive.add(archive.text("item"))));
    std::vector<SharingArchive::Index> all;
    for (std::size_t index = 0; index < count; ++index)
        all.push_back(archive.add(archive.container(arrayClass, items)));
    const auto root = archive.unarchived(archive.container(arrayClass, archive.array(all)));
    ASSERT_TRUE(root) << root.error().message;
    ASSERT_EQ(root->asArray().size(), count);
    EXPECT_EQ(root->asArray()[7].asArray().size(), count);
    EXPECT_EQ(&root->asArray()[0].asArray(), &root->asArray()[count - 1].asArray());
}

TEST(KeyedUnarchiverProportion, BuildsDictionariesThatShareKeysAndValuesOnce) {
    SharingArchive archive;
    const auto arrayClass = archive.addClass("NSArray");
    const auto dictionaryClass = archive.addClass("NSDictionary");
    const auto keys = archive.array({archive.add(archive.text("key"))});
    const auto items = archive.array({archive.add(archive.text("item"))});
    const auto one = archive.add(archive.dictionaryObject(dictionaryClass, keys, items));
    const auto two = archive.add(archive.dictionaryObject(dictionaryClass, keys, items));
    const auto root = archive.unarchived(archive.container(arrayClass, archive.array({one, two})));
    ASSERT_TRUE(root) << root.error().message;
    EXPECT_EQ(root->asArray()[1], Value(Value::Dictionary{{"key", "item"}}));
    EXPECT_EQ(&root->asArray()[0].asDictionary(), &root->asArray()[1].asDictionary());
}

TEST(KeyedUnarchiverProportion, LooksAtTheKeysOfASharedDictionaryOnce) {
    // Were they looked through for each of the others, this would take an hour.
    constexpr std::size_t count = 200'000;
    SharingArchive archive;
    const auto dictionaryClass = archive.addClass("NSDictionary");
    const auto keys = archive.array({archive.add(archive.text("key"))});
    const auto items = archive.array({archive.add(archive.text("item"))});
    std::vector<SharingArchive::Entry> entries;
    for (std::size_t index = 0; index < count; ++index) {
        entries.push_back({archive.text("key " + std::to_string(index)), items});
    }
    entries.push_back({archive.text("$class"), dictionaryClass});
    entries.push_back({archive.text("NS.keys"), keys});
    entries.push_back({archive.text("NS.objects"), items});
    std::vector<SharingArchive::Index> all{archive.add(archive.dictionary(entries))};
    for (std::size_t index = 0; index < count; ++index) {
        all.push_back(archive.add(archive.dictionaryObject(dictionaryClass, keys, items)));
    }
    const auto root = archive.unarchived(archive.container(archive.addClass("NSArray"), archive.array(all)));
    ASSERT_TRUE(root) << root.error().message;
    EXPECT_EQ(root->asArray().size(), count + 1);
    EXPECT_EQ(root->asArray()[count]["key"].asString(), "item");
}

TEST(KeyedUnarchiverProportion, RefusesEveryPairOfKeysAndValues) {
    // A thousand lists of keys and a thousand of values make a million dictionaries of a thousand entries.
    constexpr std::size_t count = 1000;
    SharingArchive archive;
    const auto arrayClass = archive.addClass("NSArray");
    const auto dictionaryClass = archive.addClass("NSDictionary");
    const auto text = archive.add(archive.text("text"));
    std::vector<SharingArchive::Index> lists;
    for (std::size_t index = 0; index < 2 * count; ++index) lists.push_back(archive.array(std::vector(count, text)));
    std::vector<SharingArchive::Index> all;
    for (std::size_t key = 0; key < count; ++key) {
        for (std::size_t value = count; value < 2 * count; ++value) {
            all.push_back(archive.add(archive.dictionaryObject(dictionaryClass, lists[key], lists[value])));
        }
    }
    const auto root = archive.unarchived(archive.container(arrayClass, archive.array(all)));
    ASSERT_FALSE(root);
    EXPECT_THAT(root.error().message, testing::EndsWith("shares its entries with others out of proportion"));
}

TEST(KeyedUnarchiverProportion, LooksAtListsOfClassNamesInProportion) {
    // Ten thousand classes share ten thousand hints and ten thousand base classes.
    class Nobody : public KeyedUnarchiverDelegate {
        const ClassRecord* unarchiverCannotDecodeObjectOfClassName(const std::string&,
                                                                   std::span<const std::string> originals) override {
            seen += originals.size();
            return &nullPlaceholderClass();
        }

    public:
        std::size_t seen = 0;
    } nobody;
    constexpr std::size_t count = 10'000;
    SharingArchive archive;
    const auto names = archive.array(std::vector(count, archive.text("Unheard")));
    std::vector<SharingArchive::Index> all;
    for (std::size_t index = 0; index < count; ++index) {
        const auto itsClass =
            archive.add(archive.dictionary({{archive.text("$classname"), archive.text(std::to_string(index))},
                                            {archive.text("$classes"), names},
                                            {archive.text("$classhints"), names}}));
        all.push_back(archive.add(archive.dictionary({{archive.text("$class"), itsClass}})));
    }
    UnarchivingOptions options;
    options.delegate = &nobody;
    const auto root = archive.unarchived(archive.container(archive.addClass("NSArray"), archive.array(all)), options);
    ASSERT_TRUE(root);
    EXPECT_EQ(root->asArray(), Value::Array(count, Null{}));
    EXPECT_LT(nobody.seen, 20 * count);
}

TEST(KeyedUnarchiverProportion, ReleasesAChainWhoseLevelsCirclesHide) {
    // Head n weakly holds link n, which strongly holds head n, which strongly holds link n - 1. Met in this order each
    // head is an open circle when its link is decoded, so that nothing seems deep.
    constexpr std::uint64_t count = 200'000;
    SharingArchive archive;
    const auto nodeClass = archive.addClass("ArchiveTestNode");
    const auto arrayClass = archive.addClass("NSArray");
    const auto text = [&](std::string_view key) { return archive.text(key); };
    std::vector<SharingArchive::Index> heads;
    for (std::uint64_t index = 0; index < count; ++index) {
        const auto headNumber = 4 + 2 * index;
        const auto previousLink = archive.uid(index == 0 ? 0 : headNumber - 1);
        heads.push_back(archive.add(archive.dictionary({{text("parent"), archive.uid(headNumber + 1)},
                                                        {text("other"), previousLink},
                                                        {text("$class"), nodeClass}})));
        archive.add(archive.dictionary({{text("other"), archive.uid(headNumber)}, {text("$class"), nodeClass}}));
    }
    registerClasses();
    auto root = archive.unarchived(archive.container(arrayClass, archive.array(heads)));
    ASSERT_TRUE(root) << root.error().message;
    const std::weak_ptr<Node> first = root->asArray().front().as<Node>();
    ObjectPtr last = root->asArray().back().asObject();
    *root = {};
    EXPECT_FALSE(first.expired());
    last.reset();
    EXPECT_TRUE(first.expired());
}

TEST(KeyedUnarchiverProportion, ReadsGeometryInProportion) {
    // Ten thousand nodes whose frames, points and sizes are few texts of a megabyte: were all read, 20 GB.
    constexpr std::size_t count = 10'000;
    const std::string spaces(1 << 20, ' ');
    registerClasses();
    SharingArchive archive;
    const auto nodeClass = archive.addClass("ArchiveTestNode");
    std::vector<SharingArchive::Index> frames;
    for (const std::string text : {"{{1, 2}, {3, 4}}", "{{5, 6}, {7, 8}}", "{{9, 10}, {11, 12}}"}) {
        frames.push_back(archive.add(archive.text(spaces + text)));
    }
    const auto pair = archive.add(archive.text(spaces + "{13, 14}"));
    std::vector<SharingArchive::Index> all;
    for (std::size_t index = 0; index < count; ++index) {
        all.push_back(archive.add(archive.dictionary({{archive.text("frame"), frames[index % frames.size()]},
                                                      {archive.text("point"), pair},
                                                      {archive.text("size"), pair},
                                                      {archive.text("$class"), nodeClass}})));
    }
    const auto root = archive.unarchived(archive.container(archive.addClass("NSArray"), archive.array(all)));
    ASSERT_FALSE(root);
    EXPECT_THAT(root.error().message, testing::EndsWith("repeats text out of proportion"));
}

TEST(KeyedUnarchiverProportion, GivesManyObjectsTheSameShortList) {
    // As many instruments have the same colors.
    constexpr std::size_t count = 100'000;
    registerClasses();
    SharingArchive archive;
    const auto nodeClass = archive.addClass("ArchiveTestNode");
    const auto arrayClass = archive.addClass("NSArray");
    const auto list =
        archive.add(archive.container(arrayClass, archive.array(std::vector(30, archive.add(archive.text("#ff0000"))))));
    std::vector<SharingArchive::Index> all;
    for (std::size_t index = 0; index < count; ++index) {
        all.push_back(
            archive.add(archive.dictionary({{archive.text("any"), list}, {archive.text("$class"), nodeClass}})));
    }
    const auto root = archive.unarchived(archive.container(arrayClass, archive.array(all)));
    ASSERT_TRUE(root) << root.error().message;
    EXPECT_EQ(root->asArray().back().as<Node>()->any.asArray().size(), 30u);
}

TEST(KeyedUnarchiverProportion, ReadsGeometryThatAllShareWhateverItsLength) {
    constexpr std::size_t count = 10'000;
    registerClasses();
    SharingArchive archive;
    const auto nodeClass = archive.addClass("ArchiveTestNode");
    const auto frame = archive.add(archive.text(std::string(1 << 20, ' ') + "{{1, 2}, {3, 4}}"));
    std::vector<SharingArchive::Index> all;
    for (std::size_t index = 0; index < count; ++index) {
        all.push_back(
            archive.add(archive.dictionary({{archive.text("frame"), frame}, {archive.text("$class"), nodeClass}})));
    }
    const auto root = archive.unarchived(archive.container(archive.addClass("NSArray"), archive.array(all)));
    ASSERT_TRUE(root) << root.error().message;
    EXPECT_EQ(root->asArray().back().as<Node>()->frame, (Rect{1, 2, 3, 4}));
}

TEST(KeyedUnarchiverProportion, RefusesTextRepeatedOutOfProportion) {
    std::vector<std::uint64_t> references(100'000, 3);
    EXPECT_EQ(faultOf({container(2, references), classRecord("NSArray"), string(std::string(1 << 20, 'x'))}),
              "object 1 repeats text out of proportion");
}

}  // namespace
}  // namespace zor
