#include <gtest/gtest.h>

#include "tests/host/foundation/ArchiveSupport.h"

namespace zor {
namespace {

using namespace archivetest;

std::string faultOfText(const std::string& text) {
    registerClasses();
    const auto root = KeyedUnarchiver::unarchivedRoot(bytesOf(text));
    return root ? "no error" : root.error().message;
}

/// The XML of an archive with one of the top entries replaced, or left out where `value` is empty.
std::string archiveWith(const std::string& key, const std::string& value) {
    std::vector<std::string> entries;
    for (const auto& [name, usual] :
         {std::pair{"$archiver", string("NSKeyedArchiver")}, std::pair{"$version", integer(100000)},
          std::pair{"$top", dictionary({entry("root", uid(1))})},
          std::pair{"$objects", array({string("$null"), string("x")})}}) {
        const auto& content = key == name ? value : usual;
        if (!content.empty()) entries.push_back(entry(name, content));
    }
    return dictionary(entries);
}

TEST(KeyedUnarchiverRefusal, NotAPropertyList) {
    EXPECT_EQ(faultOfText("hello"), "neither \"bplist00\" nor XML at offset 0");
    EXPECT_EQ(faultOfText(""), "neither \"bplist00\" nor XML at offset 0");
}

TEST(KeyedUnarchiverRefusal, NotAnArchive) {
    EXPECT_EQ(faultOfText(array({})), "the archive is not a dictionary");
    EXPECT_EQ(faultOfText(dictionary({})), "the archive has no \"$archiver\"");
}

TEST(KeyedUnarchiverRefusal, WrongOrMissingTopEntries) {
    ASSERT_EQ(faultOfText(archiveWith("none", "")), "no error");
    EXPECT_EQ(faultOfText(archiveWith("$archiver", "")), "the archive has no \"$archiver\"");
    EXPECT_EQ(faultOfText(archiveWith("$archiver", string("NSArchiver"))),
              "\"$archiver\" is \"NSArchiver\" instead of \"NSKeyedArchiver\"");
    EXPECT_EQ(faultOfText(archiveWith("$archiver", integer(1))), "\"$archiver\" in the archive is of the wrong kind");
    EXPECT_EQ(faultOfText(archiveWith("$version", "")), "the archive has no \"$version\"");
    EXPECT_EQ(faultOfText(archiveWith("$version", integer(100001))), "\"$version\" is 100001 instead of 100000");
    EXPECT_EQ(faultOfText(archiveWith("$version", string("100000"))),
              "\"$version\" in the archive is of the wrong kind");
    EXPECT_EQ(faultOfText(archiveWith("$version", "<real>100000</real>")),
              "\"$version\" in the archive is of the wrong kind");
    EXPECT_EQ(faultOfText(archiveWith("$version", "<true/>")), "\"$version\" in the archive is of the wrong kind");
    EXPECT_EQ(faultOfText(archiveWith("$top", "")), "the archive has no \"$top\"");
    EXPECT_EQ(faultOfText(archiveWith("$top", array({}))), "\"$top\" in the archive is of the wrong kind");
    EXPECT_EQ(faultOfText(archiveWith("$top", dictionary({}))), "\"$top\" has no reference under \"root\"");
    EXPECT_EQ(faultOfText(archiveWith("$top", dictionary({entry("root", integer(1))}))),
              "\"$top\" has no reference under \"root\"");
    EXPECT_EQ(faultOfText(archiveWith("$top", dictionary({entry("root", uid(2))}))),
              "the root is object 2, which does not exist");
    EXPECT_EQ(faultOfText(archiveWith("$objects", "")), "the archive has no \"$objects\"");
    EXPECT_EQ(faultOfText(archiveWith("$objects", string("x"))), "\"$objects\" in the archive is of the wrong kind");
    EXPECT_EQ(faultOfText(archiveWith("$objects", array({}))), "the root is object 1, which does not exist");
}

TEST(KeyedUnarchiverRefusal, ReferenceToNothing) {
    EXPECT_EQ(faultOf({container(2, {3}), classRecord("NSArray")}),
              "object 1 refers to object 3, which does not exist");
    EXPECT_EQ(faultOf({container(2, {std::uint64_t{1} << 62}), classRecord("NSArray")}),
              "object 1 refers to object 4611686018427387904, which does not exist");
    EXPECT_EQ(faultOf({object(2, {entry("name", uid(9))}), classRecord("ArchiveTestNode")}),
              "object 1 refers to object 9, which does not exist");
}

TEST(KeyedUnarchiverRefusal, ReferencesToNothingOfEveryWidth) {
    registerClasses();
    for (int size = 1; size <= 8; ++size) {
        PropertyListBytes bytes;
        const auto number = (std::uint64_t{1} << (8 * size - 1)) + 1;
        Bytes uidObject{static_cast<std::uint8_t>(0x80 | (size - 1))};
        PropertyListBytes::append(uidObject, number, static_cast<std::size_t>(size));
        const auto one = [](std::uint64_t index) { return static_cast<int>(index); };
        const auto reference = one(bytes.add(uidObject));
        const auto null = one(bytes.addText("$null"));
        const auto top = one(bytes.add({0xD1, one(bytes.addText("root")), reference}));
        const auto objects = one(bytes.add({0xA1, null}));
        const auto name =
            one(bytes.add({0x5F, 0x10, 15, 'N', 'S', 'K', 'e', 'y', 'e', 'd', 'A', 'r', 'c', 'h', 'i', 'v', 'e', 'r'}));
        const auto version = one(bytes.add({0x12, 0, 1, 0x86, 0xA0}));
        const int keys[] = {one(bytes.addText("$archiver")), one(bytes.addText("$version")), one(bytes.addText("$top")),
                            one(bytes.addText("$objects"))};
        bytes.add({0xD4, keys[0], keys[1], keys[2], keys[3], name, version, top, objects});
        const auto root = KeyedUnarchiver::unarchivedRoot(bytes.finish());
        ASSERT_FALSE(root) << size;
        EXPECT_EQ(root.error().message, "the root is object " + std::to_string(number) + ", which does not exist");
    }
}

TEST(KeyedUnarchiverRefusal, ObjectsThatAreNone) {
    EXPECT_EQ(faultOf({array({})}), "object 1 is neither a dictionary nor a plain value");
    EXPECT_EQ(faultOf({uid(1)}), "object 1 is neither a dictionary nor a plain value");
    EXPECT_EQ(faultOf({container(2, {3}), classRecord("NSArray"), array({})}),
              "object 3 is neither a dictionary nor a plain value");
}

TEST(KeyedUnarchiverRefusal, MissingClasses) {
    EXPECT_EQ(faultOf({dictionary({})}), "object 1 has no \"$class\"");
    EXPECT_EQ(faultOf({dictionary({entry("$class", string("NSArray"))})}), "object 1 has no \"$class\"");
    EXPECT_EQ(faultOf({object(2)}), "object 1 refers to object 2, which does not exist");
    EXPECT_EQ(faultOf({object(2), string("NSArray")}), "object 1 has a class without \"$classname\"");
    EXPECT_EQ(faultOf({object(2), dictionary({})}), "object 1 has a class without \"$classname\"");
    EXPECT_EQ(faultOf({object(2), dictionary({entry("$classname", integer(1))})}),
              "object 1 has a class without \"$classname\"");
}

TEST(KeyedUnarchiverRefusal, UnknownClasses) {
    EXPECT_EQ(faultOf({object(2), classRecord("Unheard")}), "object 1 is of the unknown class \"Unheard\"");
    EXPECT_EQ(faultOf({object(2), classRecord("ArchiveTestAbstract")}),
              "object 1 is of the class \"ArchiveTestAbstract\", of which no object can be made");
    EXPECT_EQ(faultOf({object(2), classRecord("NSObject")}),
              "object 1 is of the class \"NSObject\", of which no object can be made");
    const auto longName = std::string(79, 'x') + "ä" + std::string(10'000, 'y');
    EXPECT_EQ(faultOf({object(2), classRecord(longName)}),
              "object 1 is of the unknown class \"" + std::string(79, 'x') + "...\"");
}

TEST(KeyedUnarchiverRefusal, UnknownClassDespiteHintsAndDelegate) {
    class Nobody : public KeyedUnarchiverDelegate {
        const ClassRecord* unarchiverCannotDecodeObjectOfClassName(const std::string&,
                                                                   std::span<const std::string>) override {
            return nullptr;
        }
    } nobody;
    UnarchivingOptions options;
    options.delegate = &nobody;
    const std::string hinted =
        dictionary({entry("$classname", string("Unheard")), entry("$classhints", array({string("Of")}))});
    EXPECT_EQ(faultOf({object(2), hinted}, options), "object 1 is of the unknown class \"Unheard\"");
}

TEST(KeyedUnarchiverRefusal, FailuresReachWhoeverAsksForThem) {
    // Directly, inside a container, inside a container of a container, inside another object.
    const std::string unknown = object(2);
    const std::string unknownClass = classRecord("Unheard");
    const std::string nodeClass = classRecord("ArchiveTestNode");
    const std::string arrayClass = classRecord("NSArray");
    const std::string fault = "object 3 is of the unknown class \"Unheard\"";
    EXPECT_EQ(faultOf({object(4, {entry("other", uid(3))}), unknownClass, unknown, nodeClass}), fault);
    EXPECT_EQ(
        faultOf({object(4, {entry("any", uid(5))}), unknownClass, unknown, nodeClass, container(6, {3}), arrayClass}),
        fault);
    EXPECT_EQ(faultOf({object(4, {entry("any", uid(7))}), unknownClass, unknown, nodeClass, container(6, {3}),
                       arrayClass, container(6, {5})}),
              fault);
    EXPECT_EQ(faultOf({object(4, {entry("other", uid(5))}), unknownClass, unknown, nodeClass,
                       object(4, {entry("other", uid(3))})}),
              fault);
}

TEST(KeyedUnarchiverRefusal, ContainersWithoutTheirContent) {
    for (const auto* name : {"NSArray", "NSMutableSet", "NSDictionary"}) {
        EXPECT_EQ(faultOf({object(2), classRecord(name)}), "object 1 has no \"NS.objects\"") << name;
        EXPECT_EQ(faultOf({object(2, {entry("NS.objects", integer(1))}), classRecord(name)}),
                  "object 1 has no \"NS.objects\"")
            << name;
    }
    for (const auto* name : {"NSString", "NSMutableData", "NSDate"}) {
        EXPECT_EQ(faultOf({object(2), classRecord(name)}), "object 1 has no text, data or time") << name;
        EXPECT_EQ(faultOf({object(2, {entry("NS.string", "<true/>"), entry("NS.data", string("x")),
                                      entry("NS.time", string("x"))}),
                           classRecord(name)}),
                  "object 1 has no text, data or time")
            << name;
    }
}

TEST(KeyedUnarchiverRefusal, DictionariesWithWrongKeys) {
    const auto fault = [](const std::vector<std::string>& keys) {
        return faultOf({object(2, {entry("NS.keys", array(keys)), entry("NS.objects", array({uid(3)}))}),
                        classRecord("NSDictionary"), integer(1), string("a")});
    };
    EXPECT_EQ(fault({uid(4)}), "no error");
    EXPECT_EQ(fault({}), "object 1 has not as many keys as values");
    EXPECT_EQ(fault({uid(4), uid(4)}), "object 1 has not as many keys as values");
    EXPECT_EQ(fault({uid(3)}), "object 1 has a key that is not text");
    EXPECT_EQ(fault({uid(0)}), "object 1 has a key that is not text");
    EXPECT_EQ(faultOf({container(2, {3}), classRecord("NSDictionary"), integer(1)}),
              "object 1 has not as many keys as values");
}

TEST(KeyedUnarchiverRefusal, ContainersThatContainThemselves) {
    EXPECT_EQ(faultOf({container(2, {1}), classRecord("NSArray")}), "object 1 contains itself");
    EXPECT_EQ(faultOf({container(2, {3}), classRecord("NSArray"), container(2, {1})}), "object 3 contains itself");
    EXPECT_EQ(faultOf({object(2, {entry("NS.keys", array({uid(3)})), entry("NS.objects", array({uid(1)}))}),
                       classRecord("NSDictionary"), string("a")}),
              "object 1 contains itself");
    // Beside a circle that is allowed, because it passes an object.
    EXPECT_EQ(faultOf({object(4, {entry("any", uid(2))}), container(3, {1, 2}), classRecord("NSArray"),
                       classRecord("ArchiveTestNode")}),
              "object 2 contains itself");
}

/// Arrays in each other; object 1 is the outermost.
std::vector<std::string> nestedArrays(std::uint64_t levels) {
    std::vector<std::string> objects;
    for (std::uint64_t level = 1; level < levels; ++level) objects.push_back(container(levels + 1, {level + 1}));
    objects.push_back(container(levels + 1, {}));
    objects.push_back(classRecord("NSArray"));
    return objects;
}

TEST(KeyedUnarchiverRefusal, ArraysNestedTooDeeply) {
    EXPECT_EQ(faultOf(nestedArrays(512)), "no error");
    EXPECT_EQ(faultOf(nestedArrays(513)), "object 513 nests deeper than 512 levels");
    EXPECT_EQ(faultOf(nestedArrays(50'000)), "object 513 nests deeper than 512 levels");
}

/// A chain of nodes, each holding the next.
std::vector<std::string> chain(std::uint64_t length) {
    std::vector<std::string> objects;
    for (std::uint64_t number = 1; number < length; ++number) {
        objects.push_back(object(length + 1, {entry("other", uid(number + 1))}));
    }
    objects.push_back(object(length + 1));
    objects.push_back(classRecord("ArchiveTestNode"));
    return objects;
}

TEST(KeyedUnarchiverRefusal, ObjectsNestedTooDeeply) {
    EXPECT_EQ(faultOf(chain(512)), "no error");
    EXPECT_EQ(faultOf(chain(513)), "object 513 nests deeper than 512 levels");
    EXPECT_EQ(faultOf(chain(50'000)), "object 513 nests deeper than 512 levels");
}

TEST(KeyedUnarchiverRefusal, NestingThatIsMetFromItsEnd) {
    // The root meets each node of the chain when the ones behind it are decoded already.
    constexpr std::uint64_t length = 50'000;
    std::vector<std::string> objects{""};
    std::vector<std::uint64_t> fromTheEnd;
    for (std::uint64_t number = 2; number < length + 2; ++number) {
        const std::vector<std::string> next{entry("other", uid(number - 1))};
        objects.push_back(object(length + 2, number == 2 ? std::vector<std::string>{} : next));
        fromTheEnd.push_back(number);
    }
    objects[0] = container(length + 3, fromTheEnd);
    objects.push_back(classRecord("ArchiveTestNode"));
    objects.push_back(classRecord("NSArray"));
    EXPECT_EQ(faultOf(objects), "object 1 nests deeper than 512 levels");
}

TEST(KeyedUnarchiverRefusal, EveryShortenedFile) {
    registerClasses();
    auto node = std::make_shared<Node>();
    node->name = "name";
    node->children.push_back(std::make_shared<Node>());
    const auto whole = KeyedArchiver::archivedDataWithRootObject(Value(node));
    ASSERT_TRUE(whole);
    for (std::size_t size = 0; size < whole->size(); ++size) {
        EXPECT_FALSE(KeyedUnarchiver::unarchivedRoot(std::span(*whole).first(size))) << size;
    }
}

TEST(KeyedUnarchiverRefusal, SurvivesEveryChangedByte) {
    registerClasses();
    auto node = std::make_shared<Node>();
    node->name = "näme";
    node->frame = {1, 2, 3, 4};
    node->any = Value::Dictionary{{"a", Value::Array{1, 2.5, Date{3}}}, {"b", Null{}}};
    node->children.push_back(std::make_shared<Leaf>());
    node->children.front()->parent = node;
    const auto whole = KeyedArchiver::archivedDataWithRootObject(Value(node));
    ASSERT_TRUE(whole);
    // Whatever comes of it: no crash, no endless loop, and an error that says something.
    for (std::size_t place = 0; place < whole->size(); ++place) {
        for (const int change : {0x01, 0x10, 0x80, 0xFF}) {
            Bytes data = *whole;
            data[place] = static_cast<std::uint8_t>(data[place] ^ change);
            const auto root = KeyedUnarchiver::unarchivedRoot(data);
            if (!root) {
                EXPECT_FALSE(root.error().message.empty());
            } else if (const auto read = root->as<Node>()) {
                // Circles that the change made are undone.
                read->any = {};
                read->other = {};
                read->children.clear();
            }
        }
    }
}

}  // namespace
}  // namespace zor
