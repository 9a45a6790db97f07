// Writes what fuzzing starts from: a folder per target, below the folder named.

#include <filesystem>
#include <fstream>
#include <iostream>

#include "tests/hostile/SampleDocuments.h"

using namespace zor;

namespace {

void write(const std::filesystem::path& file, std::string_view content) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
}

}  // namespace

int main(int count, char** words) {
    if (count != 2) {
        std::cerr << "usage: fuzz_seeds FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = words[1];
    test::loadPlugIn();
    for (const auto& document : test::sampleDocuments()) {
        const std::string_view content(reinterpret_cast<const char*>(document.data.data()), document.data.size());
        write(folder / "property_list" / document.name, content);
        write(folder / "keyed_decoding" / document.name, content);
        if (document.kind == test::DocumentKind::exported) write(folder / "import" / document.name, content);
    }
    write(folder / "property_list" / "xml",
          "<?xml version=\"1.0\"?><!DOCTYPE plist [<!ENTITY a \"b\">]><plist version=\"1.0\"><dict><key>a&amp;</key>"
          "<array><true/><integer>-0x1F</integer><real>1e3</real><date>2001-01-02T00:00:01Z</date><data>AAEC</data>"
          "<string><![CDATA[<]]>&#x41;</string><dict><key>CF$UID</key><integer>1</integer></dict></array></dict>"
          "</plist>");
    int number = 0;
    for (const auto* text : {"{{10, 12.5}, {480, 360}}", "{1e300, -0}", "{x = 1; y = 2; width = 3; height = 4}",
                             "{width = 3; height = 4}", " { {\t1.5e2 , -12.25}\n,{ 4.8E+2,.5 } } ", "{nan, inf}"}) {
        write(folder / "rect_text" / std::to_string(++number), text);
    }
    return 0;
}
