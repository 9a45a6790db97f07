#include <gtest/gtest.h>

#include "host/foundation/ClassRegistry.h"
#include "tests/host/foundation/ArchiveSupport.h"

namespace zor {
namespace {

using namespace archivetest;

Value valueOf(const std::vector<std::string>& objects, const UnarchivingOptions& options = {}) {
    const auto root = unarchived(objects, options);
    return root ? *root : Value("error: " + root.error().message);
}

std::shared_ptr<Node> nodeOf(const std::vector<std::string>& objects, const UnarchivingOptions& options = {}) {
    return valueOf(objects, options).as<Node>();
}

/// Answers with one class and remembers what it was asked.
class Delegate : public KeyedUnarchiverDelegate {
public:
    explicit Delegate(const ClassRecord* answer) : answer_(answer) {}

    const ClassRecord* unarchiverCannotDecodeObjectOfClassName(const std::string& className,
                                                               std::span<const std::string> originalClasses) override {
        names.push_back(className);
        originals.assign(originalClasses.begin(), originalClasses.end());
        return answer_;
    }

    std::vector<std::string> names;
    std::vector<std::string> originals;

private:
    const ClassRecord* answer_;
};

TEST(KeyedUnarchiver, ReadsTopKeysInAnyOrderAndPassesOverOthers) {
    const std::string text =
        dictionary({entry("extra", "<true/>"), entry("$objects", array({string("$null"), string("x")})),
                    entry("$top", dictionary({entry("other", uid(0)), entry("root", uid(1))})),
                    entry("$version", integer(100000)), entry("$archiver", string("NSKeyedArchiver"))});
    const auto root = KeyedUnarchiver::unarchivedRoot(bytesOf(text));
    ASSERT_TRUE(root);
    EXPECT_EQ(*root, Value("x"));
}

TEST(KeyedUnarchiver, ReadsObjectsAndTheirKeysInAnyOrder) {
    registerClasses();
    // The class comes before its objects and first among their keys, the root last of all.
    const auto text = dictionary(
        {entry("$top", dictionary({entry("root", uid(4))})), entry("$version", integer(100000)),
         entry("$objects", array({string("$null"), classRecord("ArchiveTestNode"), string("inner"),
                                  dictionary({entry("$class", uid(1)), entry("name", uid(2))}),
                                  dictionary({entry("$class", uid(1)), entry("later", uid(2)), entry("other", uid(3)),
                                              entry("count", integer(4))})})),
         entry("$archiver", string("NSKeyedArchiver"))});
    for (const Bytes& data : {bytesOf(text), binaryOf(text)}) {
        const auto root = KeyedUnarchiver::unarchivedRoot(data);
        ASSERT_TRUE(root) << root.error().message;
        const auto node = root->as<Node>();
        ASSERT_TRUE(node);
        EXPECT_EQ(node->count, 4);
        ASSERT_TRUE(std::dynamic_pointer_cast<Node>(node->other));
        EXPECT_EQ(std::static_pointer_cast<Node>(node->other)->name, "inner");
    }
}

TEST(KeyedUnarchiver, ReadsPlainRoots) {
    EXPECT_EQ(valueOf({string("text")}), Value("text"));
    EXPECT_EQ(valueOf({integer(5)}), Value(5));
    EXPECT_EQ(valueOf({"<real>2.5</real>"}), Value(2.5));
    EXPECT_EQ(valueOf({"<true/>"}), Value(true));
    EXPECT_EQ(valueOf({"<date>2001-01-01T00:01:00Z</date>"}), Value(Date{60}));
    EXPECT_EQ(valueOf({"<data>AAE=</data>"}), Value(Bytes{0, 1}));
    EXPECT_TRUE(valueOf({string("$null")}).isAbsent());
}

TEST(KeyedUnarchiver, ReadsEveryStandardContainer) {
    for (const auto* name : {"NSArray", "NSMutableArray", "NSSet", "NSMutableSet"}) {
        EXPECT_EQ(valueOf({container(2, {3, 4}), classRecord(name), string("a"), integer(1)}),
                  Value(Value::Array{"a", 1}))
            << name;
    }
    for (const auto* name : {"NSDictionary", "NSMutableDictionary"}) {
        EXPECT_EQ(valueOf({object(2, {entry("NS.keys", array({uid(3)})), entry("NS.objects", array({uid(4)}))}),
                           classRecord(name), string("key"), integer(1)}),
                  Value(Value::Dictionary{{"key", 1}}))
            << name;
    }
}

TEST(KeyedUnarchiver, ReadsStringsDataAndDatesInBothForms) {
    for (const auto* name : {"NSString", "NSMutableString"}) {
        EXPECT_EQ(valueOf({object(2, {entry("NS.string", string("text"))}), classRecord(name)}), Value("text"));
        EXPECT_EQ(valueOf({object(2, {entry("NS.string", uid(3))}), classRecord(name), string("text")}), Value("text"));
    }
    for (const auto* name : {"NSData", "NSMutableData"}) {
        EXPECT_EQ(valueOf({object(2, {entry("NS.data", "<data>AAE=</data>")}), classRecord(name)}), Value(Bytes{0, 1}));
        EXPECT_EQ(valueOf({object(2, {entry("NS.data", uid(3))}), classRecord(name), "<data>AAE=</data>"}),
                  Value(Bytes{0, 1}));
    }
    EXPECT_EQ(valueOf({object(2, {entry("NS.time", "<real>1.5</real>")}), classRecord("NSDate")}), Value(Date{1.5}));
    EXPECT_EQ(valueOf({object(2, {entry("NS.time", integer(2))}), classRecord("NSDate")}), Value(Date{2}));
}

TEST(KeyedUnarchiver, ReadsNullPlaceholders) {
    EXPECT_EQ(valueOf({object(2), classRecord("NSNull")}), Value(Null{}));
    EXPECT_EQ(
        valueOf({container(2, {3, 0, 5}), classRecord("NSArray"), object(4), classRecord("NSNull"), string("$null")}),
        Value(Value::Array{Null{}, Value(), Value()}));
}

TEST(KeyedUnarchiver, TheRegistryKnowsTheNullPlaceholder) {
    EXPECT_EQ(ClassRegistry::shared().find("NSNull"), &nullPlaceholderClass());
    EXPECT_EQ(nullPlaceholderClass().name(), "NSNull");
    EXPECT_FALSE(nullPlaceholderClass().isCreatable());
}

TEST(KeyedUnarchiver, LeavesAbsentEntriesOfDictionariesOut) {
    EXPECT_EQ(
        valueOf({object(2, {entry("NS.keys", array({uid(3), uid(4)})), entry("NS.objects", array({uid(0), uid(5)}))}),
                 classRecord("NSDictionary"), string("a"), string("b"), integer(1)}),
        Value(Value::Dictionary{{"b", 1}}));
}

TEST(KeyedUnarchiver, ReadsAnObjectsValues) {
    const auto node = nodeOf({object(2, {entry("name", uid(3)), entry("frame", uid(4)), entry("point", uid(5)),
                                         entry("size", uid(6)), entry("flag", "<true/>"), entry("count", integer(-4)),
                                         entry("ratio", "<real>0.5</real>"), entry("any", uid(7))}),
                              classRecord("ArchiveTestNode"), string("name"), string("{{1, 2}, {3, 4}}"),
                              string("{5, 6}"), string("{7, 8}"), integer(9)});
    ASSERT_TRUE(node);
    EXPECT_EQ(node->name, "name");
    EXPECT_EQ(node->frame, (Rect{1, 2, 3, 4}));
    EXPECT_EQ(node->point, (Point{5, 6}));
    EXPECT_EQ(node->size, (Size{7, 8}));
    EXPECT_TRUE(node->flag);
    EXPECT_EQ(node->count, -4);
    EXPECT_EQ(node->ratio, 0.5);
    EXPECT_EQ(node->any, Value(9));
    EXPECT_TRUE(node->hasAny);
}

TEST(KeyedUnarchiver, ReadsRectanglesInTheirOtherForms) {
    const auto frameOf = [](const std::string& text) {
        return nodeOf({object(2, {entry("frame", uid(3))}), classRecord("ArchiveTestNode"), text})->frame;
    };
    EXPECT_EQ(frameOf(string(" {{ 1e1 ,2 } , {3,4} } ")), (Rect{10, 2, 3, 4}));
    EXPECT_EQ(frameOf(string("{x = 1; y = 2; width = 3; height = 4}")), (Rect{1, 2, 3, 4}));
    EXPECT_EQ(frameOf(string("nonsense")), Rect{});
    EXPECT_EQ(frameOf(integer(3)), Rect{});
    const auto node = nodeOf(
        {object(2, {entry("frame", string("{{1, 2}, {3, 4}}")), entry("point", uid(3)), entry("size", uid(5))}),
         classRecord("ArchiveTestNode"), object(4, {entry("NS.string", string("{5, 6}"))}),
         classRecord("NSMutableString"), container(6, {7, 8}), classRecord("NSArray"), "<real>7.5</real>", integer(8)});
    EXPECT_EQ(node->frame, (Rect{1, 2, 3, 4}));
    EXPECT_EQ(node->point, (Point{5, 6}));
    EXPECT_EQ(node->size, (Size{7.5, 8}));
}

TEST(KeyedUnarchiver, ConvertsNumbers) {
    const auto with = [](const std::string& value) {
        return nodeOf({object(2, {entry("flag", value), entry("count", value), entry("ratio", value)}),
                       classRecord("ArchiveTestNode"), integer(6)});
    };
    EXPECT_TRUE(with(integer(1))->flag);
    EXPECT_FALSE(with(integer(0))->flag);
    EXPECT_EQ(with(integer(7))->ratio, 7.0);
    EXPECT_EQ(with("<real>7</real>")->count, 7);
    EXPECT_EQ(with("<true/>")->count, 1);
    EXPECT_EQ(with("<true/>")->ratio, 1.0);
    // By reference, as number objects are stored.
    EXPECT_TRUE(with(uid(3))->flag);
    EXPECT_EQ(with(uid(3))->count, 6);
    EXPECT_EQ(with(uid(3))->ratio, 6.0);
}

TEST(KeyedUnarchiver, GivesZeroOrAbsentForMissingKeysAndOtherKinds) {
    const auto empty = nodeOf({object(2), classRecord("ArchiveTestNode")});
    ASSERT_TRUE(empty);
    EXPECT_EQ(empty->name, "");
    EXPECT_EQ(empty->frame, Rect{});
    EXPECT_FALSE(empty->flag);
    EXPECT_EQ(empty->count, 0);
    EXPECT_EQ(empty->ratio, 0.0);
    EXPECT_TRUE(empty->children.empty());
    EXPECT_FALSE(empty->hasAny);

    const auto wrong = nodeOf(
        {object(2, {entry("name", uid(3)), entry("flag", uid(4)), entry("count", uid(4)), entry("ratio", string("1")),
                    entry("other", uid(4)), entry("children", uid(4)), entry("any", array({integer(1)}))}),
         classRecord("ArchiveTestNode"), integer(5), string("text")});
    ASSERT_TRUE(wrong);
    EXPECT_EQ(wrong->name, "");
    EXPECT_FALSE(wrong->flag);
    EXPECT_EQ(wrong->count, 0);
    EXPECT_EQ(wrong->ratio, 0.0);
    EXPECT_FALSE(wrong->other);
    EXPECT_TRUE(wrong->children.empty());
    EXPECT_TRUE(wrong->any.isAbsent());
    EXPECT_TRUE(wrong->hasAny);
}

TEST(KeyedUnarchiver, ReadsReals32BitsWideAndWideIntegers) {
    registerClasses();
    PropertyListBytes bytes;
    const auto null = bytes.addText("$null");
    const auto name =
        bytes.add({0x5F, 0x10, 15, 'A', 'r', 'c', 'h', 'i', 'v', 'e', 'T', 'e', 's', 't', 'N', 'o', 'd', 'e'});
    const auto classNameKey = bytes.addText("$classname");
    const auto classObject = bytes.add({0xD1, static_cast<int>(classNameKey), static_cast<int>(name)});
    const auto ratioKey = bytes.addText("ratio");
    const auto ratio = bytes.add({0x22, 0x3F, 0xC0, 0, 0});
    const auto countKey = bytes.addText("count");
    const auto count = bytes.add({0x14, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 77});
    const auto classKey = bytes.addText("$class");
    // Eight bytes wide.
    const auto classUid = bytes.add({0x87, 0, 0, 0, 0, 0, 0, 0, 2});
    const auto rootUid = bytes.add({0x82, 0, 0, 1});
    const auto one = [](std::uint64_t index) { return static_cast<int>(index); };
    const auto node =
        bytes.add({0xD3, one(ratioKey), one(countKey), one(classKey), one(ratio), one(count), one(classUid)});
    const auto objects = bytes.add({0xA3, one(null), one(node), one(classObject)});
    const auto rootKey = bytes.addText("root");
    const auto top = bytes.add({0xD1, one(rootKey), one(rootUid)});
    const auto keyedArchiver =
        bytes.add({0x5F, 0x10, 15, 'N', 'S', 'K', 'e', 'y', 'e', 'd', 'A', 'r', 'c', 'h', 'i', 'v', 'e', 'r'});
    const auto version = bytes.add({0x12, 0, 1, 0x86, 0xA0});
    const auto archiverKey = bytes.addText("$archiver");
    const auto versionKey = bytes.addText("$version");
    const auto topKey = bytes.addText("$top");
    const auto objectsKey = bytes.addText("$objects");
    bytes.add({0xD4, one(archiverKey), one(versionKey), one(topKey), one(objectsKey), one(keyedArchiver), one(version),
               one(top), one(objects)});
    const auto root = KeyedUnarchiver::unarchivedRoot(bytes.finish());
    ASSERT_TRUE(root) << root.error().message;
    ASSERT_TRUE(root->as<Node>());
    EXPECT_EQ(root->as<Node>()->ratio, 1.5);
    EXPECT_EQ(root->as<Node>()->count, 77);
}

TEST(KeyedUnarchiver, DecodesReferencesBeforeTheObjectThatHasThem) {
    // The array is complete when the node that asks for it is filled.
    const auto node =
        nodeOf({object(5, {entry("children", uid(2))}), container(4, {3, 6}), object(5), classRecord("NSArray"),
                classRecord("ArchiveTestNode"), object(5, {entry("count", integer(3))})});
    ASSERT_TRUE(node);
    ASSERT_EQ(node->children.size(), 2u);
    EXPECT_EQ(node->children[1]->count, 3);
}

TEST(KeyedUnarchiver, MeetsObjectsOfACircleMadeButNotFilled) {
    const auto first =
        nodeOf({object(3, {entry("any", uid(2)), entry("count", integer(1))}),
                object(3, {entry("parent", uid(1)), entry("count", integer(2))}), classRecord("ArchiveTestNode")});
    ASSERT_TRUE(first);
    const auto second = first->any.as<Node>();
    ASSERT_TRUE(second);
    EXPECT_EQ(second->count, 2);
    EXPECT_EQ(second->parent.lock(), first);
    EXPECT_EQ(first->timesRead, 1);
    EXPECT_EQ(second->timesRead, 1);
}

TEST(KeyedUnarchiver, MeetsAnArrayOfACircleThroughAnObject) {
    registerClasses();
    const auto root = KeyedUnarchiver::unarchivedRoot(
        binaryOf(archiveText({container(2, {3}), classRecord("NSArray"), object(4, {entry("any", uid(1))}),
                              classRecord("ArchiveTestNode")})));
    ASSERT_TRUE(root);
    ASSERT_EQ(root->asArray().size(), 1u);
    const auto node = root->asArray()[0].as<Node>();
    ASSERT_TRUE(node);
    EXPECT_EQ(&node->any.asArray(), &root->asArray());
    // Such a circle is its owner's to break.
    node->any = {};
}

TEST(KeyedUnarchiver, AnObjectThatRefusesIsAbsentInItsPlace) {
    const std::string refusing = object(3, {entry("name", uid(4))});
    EXPECT_TRUE(valueOf({refusing, string("unused"), classRecord("ArchiveTestNode"), string("refuses")}).isAbsent());
    const Value array = valueOf({container(5, {2, 6, 2}), refusing, classRecord("ArchiveTestNode"), string("refuses"),
                                 classRecord("NSArray"), integer(1)});
    EXPECT_EQ(array, Value(Value::Array{Value(), 1, Value()}));
    const auto node =
        nodeOf({object(3, {entry("other", uid(2))}), refusing, classRecord("ArchiveTestNode"), string("refuses")});
    ASSERT_TRUE(node);
    EXPECT_FALSE(node->other);
}

TEST(KeyedUnarchiver, HandsTheContextOver) {
    const auto site = std::make_shared<Node>();
    UnarchivingOptions options;
    options.context["context"] = site;
    const auto node = nodeOf({object(2), classRecord("ArchiveTestNode")}, options);
    ASSERT_TRUE(node);
    EXPECT_EQ(node->context, site);
    EXPECT_FALSE(nodeOf({object(2), classRecord("ArchiveTestNode")})->context);
}

TEST(KeyedUnarchiver, TakesAClassFromTheHints) {
    Delegate delegate(&Leaf::staticClass());
    UnarchivingOptions options;
    options.delegate = &delegate;
    const std::string hinted = dictionary(
        {entry("$classname", string("Newer")), entry("$classes", array({string("Newer"), string("NSObject")})),
         entry("$classhints", array({string("Unknown"), string("ArchiveTestNode")}))});
    const Value root = valueOf({object(2), hinted}, options);
    ASSERT_TRUE(root.isObject());
    EXPECT_EQ(&root.asObject()->classRecord(), &Node::staticClass());
    EXPECT_TRUE(delegate.names.empty());
}

TEST(KeyedUnarchiver, PrefersTheClassNameToTheHints) {
    const std::string hinted = dictionary(
        {entry("$classname", string("ArchiveTestLeaf")), entry("$classhints", array({string("ArchiveTestNode")}))});
    EXPECT_EQ(&valueOf({object(2), hinted}).asObject()->classRecord(), &Leaf::staticClass());
}

TEST(KeyedUnarchiver, AsksTheDelegateOncePerClassName) {
    registerClasses();
    Delegate delegate(&Node::staticClass());
    UnarchivingOptions options;
    options.delegate = &delegate;
    const auto archive = archiveText(
        {container(2, {3, 4, 6}), classRecord("NSArray"), object(5), object(5),
         dictionary({entry("$classname", string("Old")), entry("$classes", array({string("Old"), string("Base")}))}),
         object(7), classRecord("Old")});
    const auto root = KeyedUnarchiver::unarchivedRoot(binaryOf(archive), options);
    ASSERT_TRUE(root);
    for (const auto& item : root->asArray()) EXPECT_TRUE(item.as<Node>());
    EXPECT_EQ(delegate.names, (std::vector<std::string>{"Old"}));
    EXPECT_EQ(delegate.originals, (std::vector<std::string>{"Old", "Base"}));
}

TEST(KeyedUnarchiver, GivesTheDelegateTheNameWhereThereAreNoClasses) {
    registerClasses();
    Delegate delegate(&Node::staticClass());
    UnarchivingOptions options;
    options.delegate = &delegate;
    ASSERT_TRUE(KeyedUnarchiver::unarchivedRoot(binaryOf(archiveText({object(2), classRecord("Old")})), options));
    EXPECT_EQ(delegate.originals, (std::vector<std::string>{"Old"}));
}

TEST(KeyedUnarchiver, AsksTheDelegateForNamesOfUpTo1000Bytes) {
    Delegate delegate(&Node::staticClass());
    UnarchivingOptions options;
    options.delegate = &delegate;
    registerClasses();
    const auto readWithName = [&](std::size_t size) {
        const auto archive = archiveText({object(2), classRecord(std::string(size, 'x'))});
        return static_cast<bool>(KeyedUnarchiver::unarchivedRoot(binaryOf(archive), options));
    };
    EXPECT_TRUE(readWithName(1000));
    EXPECT_EQ(delegate.names.size(), 1u);
    EXPECT_FALSE(readWithName(1001));
    EXPECT_EQ(delegate.names.size(), 1u);
}

TEST(KeyedUnarchiver, TheDelegateMayAnswerWithTheNullPlaceholder) {
    Delegate delegate(&nullPlaceholderClass());
    UnarchivingOptions options;
    options.delegate = &delegate;
    EXPECT_EQ(
        valueOf({container(2, {3, 5}), classRecord("NSArray"), object(4), classRecord("Gone"), integer(1)}, options),
        Value(Value::Array{Null{}, 1}));
}

TEST(KeyedUnarchiver, FailuresThatNobodyAsksForFailNothing) {
    // An unknown key leads to an unknown class, one to an object that does not exist, one to an array of both.
    const auto node = nodeOf({object(2, {entry("count", integer(3)), entry("later", uid(3)), entry("wrong", uid(99)),
                                         entry("both", uid(5)), entry("raw", uid(7))}),
                              classRecord("ArchiveTestNode"), object(4), classRecord("Unknown"), container(6, {3, 99}),
                              classRecord("NSArray"), array({uid(3)})});
    ASSERT_TRUE(node);
    EXPECT_EQ(node->count, 3);
}

TEST(KeyedUnarchiver, FailuresOfValuesOfAnotherKindFailNothing) {
    const auto node = nodeOf({object(2, {entry("count", uid(3)), entry("frame", uid(3)), entry("flag", uid(99))}),
                              classRecord("ArchiveTestNode"), object(4), classRecord("Unknown")});
    ASSERT_TRUE(node);
    EXPECT_EQ(node->count, 0);
}

}  // namespace
}  // namespace zor
