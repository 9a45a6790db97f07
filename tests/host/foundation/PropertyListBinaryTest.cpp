#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "host/foundation/PropertyList.h"
#include "tests/host/foundation/PropertyListBytes.h"

namespace zor {
namespace {

using testing::StartsWith;

Value read(const Bytes& data) {
    const auto list = PropertyList::parse(data);
    if (!list) return "error: " + list.error().message;
    const auto value = list->value(list->root());
    return value ? *value : Value("error: " + value.error().message);
}

Value readOne(std::initializer_list<int> object) {
    PropertyListBytes bytes;
    bytes.add(object);
    return read(bytes.finish());
}

std::string faultOf(const Bytes& data) {
    const auto list = PropertyList::parse(data);
    return list ? "no error" : list.error().message;
}

std::string faultOfOne(std::initializer_list<int> object) {
    PropertyListBytes bytes;
    bytes.add(object);
    return faultOf(bytes.finish());
}

TEST(PropertyListBinary, ReadsBooleansAndNull) {
    EXPECT_EQ(readOne({0x08}), Value(false));
    EXPECT_EQ(readOne({0x09}), Value(true));
    EXPECT_TRUE(readOne({0x00}).isAbsent());
}

TEST(PropertyListBinary, ReadsIntegersOfEveryWidth) {
    EXPECT_EQ(readOne({0x10, 0xFF}), Value(255));
    EXPECT_EQ(readOne({0x11, 0xFF, 0xFE}), Value(65534));
    EXPECT_EQ(readOne({0x12, 0xFF, 0xFF, 0xFF, 0xFF}), Value(std::int64_t{4294967295}));
    EXPECT_EQ(readOne({0x13, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFE}), Value(-2));
    EXPECT_EQ(readOne({0x14, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 7}), Value(7));
    EXPECT_EQ(
        readOne({0x14, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFD}),
        Value(-3));
}

TEST(PropertyListBinary, ReadsIntegersBeyond64BitsAsReals) {
    EXPECT_EQ(readOne({0x14, 0, 0, 0, 0, 0, 0, 0, 0, 0x80, 0, 0, 0, 0, 0, 0, 0}), Value(0x1p63));
    EXPECT_EQ(readOne({0x14, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0}), Value(0x1p64));
}

TEST(PropertyListBinary, ReadsRealsOf32And64Bits) {
    EXPECT_EQ(readOne({0x22, 0x3F, 0xC0, 0, 0}), Value(1.5));
    EXPECT_EQ(readOne({0x23, 0xC0, 0x04, 0, 0, 0, 0, 0, 0}), Value(-2.5));
}

TEST(PropertyListBinary, ReadsDateAndData) {
    EXPECT_EQ(readOne({0x33, 0x40, 0x59, 0, 0, 0, 0, 0, 0}), Value(Date{100}));
    EXPECT_EQ(readOne({0x42, 0xAB, 0xCD}), Value(Bytes{0xAB, 0xCD}));
}

TEST(PropertyListBinary, ReadsAsciiUtf16AndUtf8Text) {
    EXPECT_EQ(readOne({0x53, 'a', 'b', 'c'}), Value("abc"));
    EXPECT_EQ(readOne({0x52, 0xC2, 0xB0}), Value("°"));
    EXPECT_EQ(readOne({0x63, 0x00, 0xB0, 0xD8, 0x3C, 0xDF, 0x26}), Value("°🌦"));
    EXPECT_EQ(readOne({0x72, 0xC3, 0xA9}), Value("é"));
    EXPECT_EQ(readOne({0x50}), Value(""));
}

TEST(PropertyListBinary, ReadsLongCounts) {
    PropertyListBytes bytes;
    Bytes text{0x5F, 0x11, 0x01, 0x00};
    text.insert(text.end(), 256, 'x');
    bytes.add(text);
    EXPECT_EQ(read(bytes.finish()), Value(std::string(256, 'x')));
}

TEST(PropertyListBinary, ReadsSetsAsArrays) {
    PropertyListBytes bytes;
    bytes.add({0x10, 1});
    bytes.add({0x10, 2});
    bytes.add({0xC2, 0, 1});
    EXPECT_EQ(read(bytes.finish()), Value(Value::Array{1, 2}));
}

TEST(PropertyListBinary, ReadsUidsOfOneToEightBytes) {
    for (int size = 1; size <= 8; ++size) {
        PropertyListBytes bytes;
        Bytes uid{static_cast<std::uint8_t>(0x80 | (size - 1))};
        PropertyListBytes::append(uid, 200, static_cast<std::size_t>(size));
        bytes.add(uid);
        const auto list = PropertyList::parse(bytes.finish());
        ASSERT_TRUE(list) << size;
        ASSERT_EQ(list->kind(0), PropertyList::Kind::uid);
        EXPECT_EQ(list->uid(0), 200u);
    }
}

TEST(PropertyListBinary, ReadsReferencesAndOffsetsOfOddWidths) {
    PropertyListBytes bytes;
    bytes.offsetSize = 3;
    bytes.referenceSize = 5;
    bytes.add({0x10, 9});
    bytes.add({0xA1, 0, 0, 0, 0, 0});
    EXPECT_EQ(read(bytes.finish()), Value(Value::Array{9}));
}

TEST(PropertyListBinary, ReadsContainersInAnyOrder) {
    // Object 1 holds an earlier and a later container, neither of which holds itself.
    PropertyListBytes bytes;
    bytes.add({0xA0});
    bytes.add({0xA2, 0, 2});
    bytes.add({0xA1, 3});
    bytes.add({0x09});
    bytes.root = 1;
    EXPECT_EQ(read(bytes.finish()), Value(Value::Array{Value::Array{}, Value::Array{true}}));
}

TEST(PropertyListBinary, FirstOfEqualKeysCounts) {
    PropertyListBytes bytes;
    bytes.addText("k");
    bytes.add({0x10, 1});
    bytes.add({0x10, 2});
    bytes.add({0xD2, 0, 0, 1, 2});
    EXPECT_EQ(read(bytes.finish()), Value(Value::Dictionary{{"k", 1}}));
}

TEST(PropertyListBinary, RefusesWhatIsNoPropertyList) {
    EXPECT_EQ(faultOf({}), "neither \"bplist00\" nor XML at offset 0");
    EXPECT_EQ(faultOf(bytesOf("bplist15 and so on")), "neither \"bplist00\" nor XML at offset 0");
    EXPECT_EQ(faultOf(bytesOf("bplist00")), "the property list is cut short at offset 8");
}

TEST(PropertyListBinary, RefusesEveryShortenedFile) {
    PropertyListBytes bytes;
    bytes.addText("key");
    bytes.addText("value");
    bytes.add({0xD1, 0, 1});
    const Bytes whole = bytes.finish();
    ASSERT_EQ(faultOf(whole), "no error");
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_NE(faultOf(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))), "no error") << size;
    }
}

TEST(PropertyListBinary, RefusesWrongTrailers) {
    const auto fault = [](auto change) {
        PropertyListBytes bytes;
        bytes.add({0x09});
        change(bytes);
        return faultOf(bytes.finish());
    };
    // One object of a byte at 8, a table of two bytes at 9, the trailer from 11.
    EXPECT_EQ(fault([](auto& bytes) { bytes.referenceSize = 0; }), "wrong size of references at offset 18");
    EXPECT_EQ(fault([](auto& bytes) { bytes.referenceSize = 9; }), "wrong size of references at offset 18");
    EXPECT_EQ(fault([](auto& bytes) { bytes.count = 0; }), "more objects than the file can hold at offset 19");
    EXPECT_EQ(fault([](auto& bytes) { bytes.count = 2; }), "more objects than the file can hold at offset 19");
    EXPECT_EQ(fault([](auto& bytes) { bytes.count = std::uint64_t{1} << 63; }),
              "more objects than the file can hold at offset 19");
    EXPECT_EQ(fault([](auto& bytes) { bytes.root = 1; }), "the root is not among the objects at offset 27");
    EXPECT_EQ(fault([](auto& bytes) { bytes.tableOffset = 8; }), "the offset table is outside the file at offset 35");
    EXPECT_EQ(fault([](auto& bytes) { bytes.tableOffset = 11; }), "the offset table is outside the file at offset 35");
    EXPECT_EQ(fault([](auto& bytes) { bytes.tableOffset = ~std::uint64_t{0}; }),
              "the offset table is outside the file at offset 35");

    PropertyListBytes bytes;
    bytes.add({0x09});
    Bytes file = bytes.finish();
    for (const std::uint8_t size : {0, 9, 255}) {
        file[17] = size;
        EXPECT_EQ(faultOf(file), "wrong size of offsets at offset 17");
    }
}

TEST(PropertyListBinary, RefusesOffsetsOutsideOfTheObjects) {
    for (const std::uint64_t offset : {0, 7, 9, 0xFFFF}) {
        PropertyListBytes bytes;
        bytes.add({0x09});
        bytes.addOffset(offset);
        EXPECT_EQ(faultOf(bytes.finish()), "an offset leads outside the objects at offset 11") << offset;
    }
}

TEST(PropertyListBinary, RefusesObjectsOfUnknownKind) {
    for (const int marker : {0x01, 0x0F, 0x15, 0x20, 0x21, 0x24, 0x30, 0x32, 0x90, 0xE0, 0xF0}) {
        EXPECT_EQ(faultOfOne({marker, 0, 0, 0, 0, 0, 0, 0, 0}), "an object of unknown kind at offset 8") << marker;
    }
    EXPECT_EQ(faultOfOne({0x88, 0, 0, 0, 0, 0, 0, 0, 0, 0}), "a UID of more than 8 bytes at offset 8");
}

TEST(PropertyListBinary, RefusesObjectsThatRunBeyondTheEnd) {
    for (const auto& object : {Bytes{0x13, 0, 0}, Bytes{0x22, 0}, Bytes{0x33, 0}, Bytes{0x81, 0}}) {
        PropertyListBytes bytes;
        bytes.add(object);
        EXPECT_EQ(faultOf(bytes.finish()), "an object runs beyond the objects at offset 8");
    }
    EXPECT_EQ(faultOfOne({0x5F}), "an object runs beyond the objects at offset 8");
    EXPECT_EQ(faultOfOne({0x5F, 0x13, 0}), "an object runs beyond the objects at offset 8");
}

TEST(PropertyListBinary, RefusesCountsThatTheFileCannotHold) {
    for (const int marker : {0x40, 0x50, 0x60, 0x70, 0xA0, 0xC0, 0xD0}) {
        EXPECT_EQ(faultOfOne({marker | 3, 0}), "a count larger than the file can hold at offset 8") << marker;
        EXPECT_EQ(faultOfOne({marker | 0xF, 0x13, 0x80, 0, 0, 0, 0, 0, 0, 0}),
                  "a count larger than the file can hold at offset 8")
            << marker;
        EXPECT_EQ(faultOfOne({marker | 0xF, 0x13, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}),
                  "a count larger than the file can hold at offset 8")
            << marker;
    }
    EXPECT_EQ(faultOfOne({0x5F, 0x23, 0, 0, 0, 0, 0, 0, 0, 0}), "a count that is not an integer at offset 9");
    EXPECT_EQ(faultOfOne({0x5F, 0x14, 0, 0, 0, 0, 0, 0, 0, 0}), "a count that is not an integer at offset 9");
}

TEST(PropertyListBinary, RefusesReferencesToNothing) {
    EXPECT_EQ(faultOfOne({0xA2, 0, 1}), "a reference to an object that does not exist at offset 10");
}

TEST(PropertyListBinary, RefusesWrongText) {
    EXPECT_EQ(faultOfOne({0x51, 0xFF}), "text that is not UTF-8 at offset 8");
    EXPECT_EQ(faultOfOne({0x52, 0xC0, 0x80}), "text that is not UTF-8 at offset 8");
    EXPECT_EQ(faultOfOne({0x73, 0xED, 0xA0, 0x80}), "text that is not UTF-8 at offset 8");
    EXPECT_EQ(faultOfOne({0x51, 0xC3}), "text that is not UTF-8 at offset 8");
    EXPECT_EQ(faultOfOne({0x61, 0xD8, 0x00}), "text that is not UTF-16 at offset 8");
    EXPECT_EQ(faultOfOne({0x62, 0xD8, 0x00, 0x00, 0x41}), "text that is not UTF-16 at offset 8");
    EXPECT_EQ(faultOfOne({0x61, 0xDC, 0x00}), "text that is not UTF-16 at offset 8");
}

TEST(PropertyListBinary, RefusesKeysThatAreNotStrings) {
    PropertyListBytes bytes;
    bytes.add({0x10, 1});
    bytes.add({0xD1, 0, 0});
    EXPECT_EQ(faultOf(bytes.finish()), "a dictionary key that is not a string at offset 10");
}

TEST(PropertyListBinary, RefusesContainersThatContainThemselves) {
    EXPECT_EQ(faultOfOne({0xA1, 0}), "a container that contains itself at offset 8");

    PropertyListBytes indirect;
    indirect.addText("k");
    indirect.add({0xD1, 0, 2});
    indirect.add({0xA2, 0, 1});
    EXPECT_THAT(faultOf(indirect.finish()), StartsWith("a container that contains itself at offset "));
}

TEST(PropertyListBinary, RefusesObjectsThatOverlap) {
    // Every "S" of the text is, read by itself, a text of three characters.
    PropertyListBytes bytes;
    Bytes text{0x5F, 0x10, 40};
    text.insert(text.end(), 40, 'S');
    bytes.add(text);
    for (std::uint64_t step = 0; step < 3; ++step) bytes.addOffset(11 + step);
    EXPECT_EQ(faultOf(bytes.finish()), "an object overlaps others at offset 13");
}

TEST(PropertyListBinary, ReadsAMillionNumbersOfOneObjectOnce) {
    // Were each of them read by itself, a million arrays of a thousand entries would take gigabytes.
    PropertyListBytes bytes;
    bytes.referenceSize = 4;
    bytes.offsetSize = 4;
    bytes.add({0x09});
    Bytes array{0xAF, 0x11, 0x03, 0xE8};
    for (int index = 0; index < 1000; ++index) PropertyListBytes::append(array, 0, 4);
    const auto shared = bytes.add(array);
    for (int index = 0; index < 1'000'000; ++index) bytes.addOffset(bytes.offsetOf(shared));
    Bytes all{0xAF, 0x12};
    PropertyListBytes::append(all, 1'000'000, 4);
    for (std::uint64_t index = 0; index < 1'000'000; ++index) PropertyListBytes::append(all, 2 + index, 4);
    bytes.add(all);
    const Value value = read(bytes.finish());
    ASSERT_EQ(value.asArray().size(), 1'000'000u);
    EXPECT_EQ(value.asArray()[999'999].asArray().size(), 1000u);
    EXPECT_EQ(&value.asArray()[0].asArray(), &value.asArray()[999'999].asArray());
}

TEST(PropertyListBinary, WritesEveryKindSoThatItReadsBackTheSame) {
    const Value::Array values{
        true,
        false,
        0,
        1,
        255,
        256,
        65536,
        std::int64_t{4294967296},
        std::numeric_limits<std::int64_t>::max(),
        std::numeric_limits<std::int64_t>::min(),
        -1,
        0.1,
        -0.0,
        1e300,
        std::numeric_limits<double>::infinity(),
        Date{725846400.5},
        "",
        "plain",
        "20 °C 🌦 — żółć",
        std::string(70'000, 'x'),
        std::string("null \0 inside", 13),
        Bytes{},
        Bytes{0, 1, 255},
        Bytes(300, 7),
        Value::Array{},
        Value::Array(20, 1.5),
        Value::Dictionary{},
        Value::Dictionary{{"a", 1}, {"ä", Value::Array{"b"}}},
    };
    const auto list = PropertyList::fromValue(values);
    ASSERT_TRUE(list);
    const Value back = read(list->binary());
    ASSERT_EQ(back.asArray().size(), values.size());
    for (std::size_t index = 0; index < values.size(); ++index)
        EXPECT_EQ(back.asArray()[index], values[index]) << index;
    EXPECT_TRUE(std::signbit(back.asArray()[12].asReal()));
}

TEST(PropertyListBinary, WritesExactlyTheseBytes) {
    const auto list = PropertyList::fromValue(Value::Dictionary{{"k", -1}});
    ASSERT_TRUE(list);
    const Bytes expected{'b', 'p', 'l', 'i', 's', 't', '0', '0',
                         // The dictionary, its key, its value.
                         0xD1, 1, 2, 0x51, 'k', 0x13, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                         // Their offsets.
                         8, 11, 13,
                         // The trailer.
                         0, 0, 0, 0, 0, 0, 1, 1, 0, 0, 0, 0, 0, 0, 0, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                         22};
    EXPECT_EQ(list->binary(), expected);
}

TEST(PropertyListBinary, WritesEqualScalarsOnce) {
    const auto list = PropertyList::fromValue(
        Value::Array{"same", "same", 5, 5, 5.0, 5.0, true, true, Bytes{1}, Bytes{1}, Value::Dictionary{{"same", 5}}});
    ASSERT_TRUE(list);
    // The text, the integer, the real, the boolean, the data and two containers.
    EXPECT_EQ(list->size(), 7u);
}

TEST(PropertyListBinary, WritesWideReferencesWhereThereAreManyObjects) {
    for (const int count : {255, 256, 65'535, 65'536, 100'000}) {
        Value::Array array;
        for (int index = 0; index < count; ++index) array.emplace_back(index);
        const Value value(std::move(array));
        EXPECT_EQ(read(PropertyList::fromValue(value)->binary()), value) << count;
    }
}

}  // namespace
}  // namespace zor
