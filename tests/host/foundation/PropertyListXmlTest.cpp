#include <gtest/gtest.h>

#include "host/foundation/PropertyList.h"
#include "tests/host/foundation/PropertyListBytes.h"

namespace zor {
namespace {

Value read(std::string_view text) {
    const auto list = PropertyList::parse(bytesOf(text));
    if (!list) return "error: " + list.error().message;
    return *list->value(list->root());
}

std::string faultOf(std::string_view text) {
    const auto list = PropertyList::parse(bytesOf(text));
    return list ? "no error" : list.error().message;
}

TEST(PropertyListXml, ReadsADocument) {
    const Value value = read(R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Example//DTD PLIST 1.0//EN" "http://example.com/PropertyList-1.0.dtd">
<!-- A bundle > of things -->
<plist version="1.0">
<dict>
    <key>CFBundleIdentifier</key> <string>com.example.dashboard</string>
    <key>CFBundleVersion</key> <integer>70</integer>
    <key>list</key>
    <array>
        <true/><false/> <real>-1.5e3</real>
        <date>2001-01-02T00:00:01Z</date>
        <data> AAEC
               /w== </data>
        <array/><dict/><string/>
    </array>
</dict>
</plist>
)");
    EXPECT_EQ(value, Value(Value::Dictionary{
                         {"CFBundleIdentifier", "com.example.dashboard"},
                         {"CFBundleVersion", 70},
                         {"list", Value::Array{true, false, -1500.0, Date{86401}, Bytes{0, 1, 2, 255}, Value::Array{},
                                               Value::Dictionary{}, ""}},
                     }));
}

TEST(PropertyListXml, ReadsValuesWithoutAFrame) {
    EXPECT_EQ(read("<string>bare</string>"), Value("bare"));
    EXPECT_EQ(read("  \n<integer> 5 </integer>\n"), Value(5));
}

TEST(PropertyListXml, KeepsTextAsItIs) {
    EXPECT_EQ(read("<string>  two\n lines </string>"), Value("  two\n lines "));
    EXPECT_EQ(read("<string>&lt;b&gt; &amp; &quot;c&quot; &apos;d&apos; &#65;&#x1F326;</string>"),
              Value("<b> & \"c\" 'd' A🌦"));
    EXPECT_EQ(read("<string>a<![CDATA[<&amp;>]]>b<!-- c -->d</string>"), Value("a<&amp;>bd"));
    EXPECT_EQ(read("<string>20 °C</string>"), Value("20 °C"));
}

TEST(PropertyListXml, ReadsIntegers) {
    EXPECT_EQ(read("<integer>-9223372036854775808</integer>"), Value(std::numeric_limits<std::int64_t>::min()));
    EXPECT_EQ(read("<integer>+12</integer>"), Value(12));
    EXPECT_EQ(read("<integer>0x1F</integer>"), Value(31));
    EXPECT_EQ(read("<integer>-0x10</integer>"), Value(-16));
    EXPECT_EQ(read("<integer>9223372036854775808</integer>"), Value(0x1p63));
}

TEST(PropertyListXml, ReadsUids) {
    const auto list =
        PropertyList::parse(bytesOf("<array><dict><key>CF$UID</key><integer>3</integer></dict>"
                                    "<dict><key>CF$UID</key><string>3</string></dict>"
                                    "<dict><key>CF$UID</key><integer>3</integer><key>b</key><true/></dict></array>"));
    ASSERT_TRUE(list);
    const auto items = list->items(list->root());
    ASSERT_EQ(list->kind(items[0]), PropertyList::Kind::uid);
    EXPECT_EQ(list->uid(items[0]), 3u);
    EXPECT_EQ(list->kind(items[1]), PropertyList::Kind::dictionary);
    EXPECT_EQ(list->kind(items[2]), PropertyList::Kind::dictionary);
}

TEST(PropertyListXml, ReadsUtf16AndByteOrderMarks) {
    EXPECT_EQ(read("\xEF\xBB\xBF<string>é</string>"), Value("é"));
    for (const bool bigEndian : {true, false}) {
        Bytes data = bigEndian ? Bytes{0xFE, 0xFF} : Bytes{0xFF, 0xFE};
        for (const char16_t unit : std::u16string_view(u"<string>é🌦</string>")) {
            const auto high = static_cast<std::uint8_t>(unit >> 8);
            const auto low = static_cast<std::uint8_t>(unit & 0xFF);
            data.push_back(bigEndian ? high : low);
            data.push_back(bigEndian ? low : high);
        }
        const auto list = PropertyList::parse(data);
        ASSERT_TRUE(list);
        EXPECT_EQ(list->string(list->root()), "é🌦");
    }
}

TEST(PropertyListXml, PassesOverADocumentTypeWithEntitiesAndExpandsNoneOfThem) {
    const std::string bomb =
        "<!DOCTYPE plist [ <!-- ]> --> <!ENTITY a \"]>aaaaaaaaaa\"> <!ENTITY b SYSTEM 'file:///etc/passwd'> ]>";
    EXPECT_EQ(read(bomb + "<string>x</string>"), Value("x"));
    EXPECT_EQ(faultOf(bomb + "<string>&a;</string>"), "an unknown entity at offset " + std::to_string(bomb.size() + 8));
    EXPECT_EQ(faultOf(bomb + "<string>&b;</string>"), "an unknown entity at offset " + std::to_string(bomb.size() + 8));
}

TEST(PropertyListXml, RefusesWrongStructure) {
    EXPECT_EQ(faultOf("<plist></plist>"), "no value at offset 15");
    EXPECT_EQ(faultOf("<true/><true/>"), "a second value at offset 7");
    EXPECT_EQ(faultOf("<array><true/>"), "an element that is not closed at offset 0");
    EXPECT_EQ(faultOf("<array></dict>"), "a closing tag that does not match at offset 7");
    EXPECT_EQ(faultOf("</array>"), "a closing tag that does not match at offset 0");
    EXPECT_EQ(faultOf("<array>text</array>"), "text outside of a value at offset 7");
    EXPECT_EQ(faultOf("<dict><true/></dict>"), "a value without a key at offset 6");
    EXPECT_EQ(faultOf("<dict><key>a</key></dict>"), "a key without a value at offset 18");
    EXPECT_EQ(faultOf("<dict><key>a</key><key>b</key></dict>"), "a key without a value at offset 18");
    EXPECT_EQ(faultOf("<array><key>a</key></array>"), "a key outside of a dictionary at offset 7");
    EXPECT_EQ(faultOf("<html><body/></html>"), "an unknown element at offset 0");
    EXPECT_EQ(faultOf("<array><plist/></array>"), "a \"plist\" inside of another element at offset 7");
}

TEST(PropertyListXml, RefusesWhatIsCutShort) {
    EXPECT_EQ(faultOf("<?xml version"), "a declaration that is not closed at offset 0");
    EXPECT_EQ(faultOf("<!-- x"), "a comment that is not closed at offset 0");
    EXPECT_EQ(faultOf("<!DOCTYPE plist ["), "a document type that is not closed at offset 0");
    EXPECT_EQ(faultOf("<string>abc"), "a value that is not closed at offset 11");
    EXPECT_EQ(faultOf("<string><![CDATA[abc"), "a CDATA section that is not closed at offset 17");
    EXPECT_EQ(faultOf("<string"), "a tag that is not closed at offset 0");
    EXPECT_EQ(faultOf("<plist version=\"1"), "a quotation that is not closed at offset 16");
    const std::string whole =
        "<plist version=\"1.0\"><dict><key>a</key><array><string>&amp;</string></array></dict></plist>";
    ASSERT_EQ(faultOf(whole), "no error");
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_NE(faultOf(whole.substr(0, size)), "no error") << size;
}

TEST(PropertyListXml, RefusesWrongContent) {
    EXPECT_EQ(faultOf("<integer>1.5</integer>"), "an element \"integer\" with wrong content at offset 0");
    EXPECT_EQ(faultOf("<integer></integer>"), "an element \"integer\" with wrong content at offset 0");
    EXPECT_EQ(faultOf("<integer>--1</integer>"), "an element \"integer\" with wrong content at offset 0");
    EXPECT_EQ(faultOf("<real>1,5</real>"), "an element \"real\" with wrong content at offset 0");
    EXPECT_EQ(faultOf("<date>2001-02-30T00:00:00Z</date>"), "an element \"date\" with wrong content at offset 0");
    EXPECT_EQ(faultOf("<date>yesterday</date>"), "an element \"date\" with wrong content at offset 0");
    EXPECT_EQ(faultOf("<data>A</data>"), "an element \"data\" with wrong content at offset 0");
    EXPECT_EQ(faultOf("<data>AA=A</data>"), "an element \"data\" with wrong content at offset 0");
    EXPECT_EQ(faultOf("<data>A*==</data>"), "an element \"data\" with wrong content at offset 0");
    EXPECT_EQ(faultOf("<string><b/></string>"), "an element inside of a value at offset 8");
    EXPECT_EQ(faultOf("<string>\xFF</string>"), "text that is not UTF-8 at offset 0");
    EXPECT_EQ(faultOf("<string>&nbsp;</string>"), "an unknown entity at offset 8");
    EXPECT_EQ(faultOf("<string>&#xD800;</string>"), "an unknown entity at offset 8");
    EXPECT_EQ(faultOf("<string>&#0;</string>"), "an unknown entity at offset 8");
    EXPECT_EQ(faultOf("<string>& </string>"), "an unknown entity at offset 8");
}

TEST(PropertyListXml, NeedsNoStackForDeepNesting) {
    std::string text;
    for (int level = 0; level < 1'000'000; ++level) text += "<array>";
    EXPECT_EQ(faultOf(text), "an element that is not closed at offset 6999993");
    for (int level = 0; level < 1'000'000; ++level) text += "</array>";
    EXPECT_EQ(faultOf(text), "no error");
}

}  // namespace
}  // namespace zor
