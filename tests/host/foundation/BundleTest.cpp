#include "host/foundation/Bundle.h"

#include <gmock/gmock.h>

#include <map>

#include "host/foundation/ClassRegistry.h"
#include "host/foundation/FoundationClasses.h"
#include "host/foundation/Object.h"
#include "tests/support/TemporaryFolder.h"

namespace zor {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

class BundleTest : public testing::Test {
protected:
    BundleTest() {
        registerFoundationClasses();
        text("CFBundleIdentifier", "test.sample");
        text("CFBundleShortVersionString", "2.5");
        text("CFBundleExecutable", "module.so");
        text("ZORPrincipalClass", "SamplePlugIn");
        text("ZORDocumentClass", "SampleDocument");
        info["CFBundleVersion"] = "<integer>42</integer>";
        info["ZORInterfaceVersion"] = "<integer>1</integer>";
    }
    void text(const std::string& key, const std::string& value) { info[key] = "<string>" + value + "</string>"; }
    void classes(const std::string& principal, const std::string& document) {
        text("ZORPrincipalClass", principal);
        text("ZORDocumentClass", document);
    }

    void writeInfo() {
        std::string list = R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>)";
        for (const auto& [key, value] : info) list += "<key>" + key + "</key>" + value;
        folder.write("Sample.zorplugin/Info.plist", list + "</dict></plist>");
    }
    Result<std::shared_ptr<Bundle>> open() {
        writeInfo();
        return Bundle::open(folder / "Sample.zorplugin");
    }
    /// The bundle with a copy of the module in it.
    std::shared_ptr<Bundle> openWithModule(const fs::path& module) {
        auto bundle = open();
        fs::copy_file(module, folder / "Sample.zorplugin/module.so");
        return bundle.valueOr(nullptr);
    }
    std::string openingError() {
        const auto bundle = open();
        return bundle ? "opened" : bundle.error().message;
    }
    static std::string loadingError(Bundle& bundle) {
        const auto status = bundle.load();
        return status ? "loaded" : status.error().message;
    }

    test::TemporaryFolder folder;
    std::map<std::string, std::string> info;
};

TEST_F(BundleTest, ReadsTheInfoFile) {
    const auto bundle = open();
    ASSERT_TRUE(bundle) << bundle.error().message;
    EXPECT_EQ((*bundle)->folder(), folder / "Sample.zorplugin");
    EXPECT_EQ((*bundle)->identifier(), "test.sample");
    EXPECT_EQ((*bundle)->version(), 42);
    EXPECT_EQ((*bundle)->principalClass(), "SamplePlugIn");
    EXPECT_EQ((*bundle)->documentClass(), "SampleDocument");
    EXPECT_EQ((*bundle)->infoString("CFBundleShortVersionString"), "2.5");
    EXPECT_EQ((*bundle)->infoString("CFBundleVersion"), "42");
    EXPECT_FALSE((*bundle)->infoString("Unknown"));
}

TEST_F(BundleTest, VersionMayBeANumberAsText) {
    text("CFBundleVersion", "17");
    const auto bundle = open();
    ASSERT_TRUE(bundle) << bundle.error().message;
    EXPECT_EQ((*bundle)->version(), 17);
}

TEST_F(BundleTest, VersionMustBeAWholeNumber) {
    for (const auto* version : {"<string>1.5</string>", "<string></string>", "<real>1.5</real>", "<true/>"}) {
        info["CFBundleVersion"] = version;
        EXPECT_THAT(openingError(), AllOf(StartsWith("Sample.zorplugin: "), HasSubstr("\"CFBundleVersion\"")));
    }
}

TEST_F(BundleTest, EveryKeyIsNeededAndNamed) {
    const auto complete = info;
    for (const auto& [key, value] : complete) {
        info = complete;
        info.erase(key);
        EXPECT_THAT(openingError(), AllOf(StartsWith("Sample.zorplugin: "), HasSubstr("\"" + key + "\"")));
        info[key] = "<array/>";
        EXPECT_THAT(openingError(), AllOf(StartsWith("Sample.zorplugin: "), HasSubstr("\"" + key + "\"")));
    }
}

TEST_F(BundleTest, AnotherInterfaceVersionIsRefused) {
    info["ZORInterfaceVersion"] = "<integer>2</integer>";
    EXPECT_EQ(openingError(), "Sample.zorplugin: \"ZORInterfaceVersion\" in Info.plist is 2, this host's is 1");
}

TEST_F(BundleTest, ModuleMustLieInTheBundle) {
    for (const auto* name : {"../module.so", "/lib/module.so", "..", "."}) {
        text("CFBundleExecutable", name);
        EXPECT_THAT(openingError(), AllOf(StartsWith("Sample.zorplugin: "), HasSubstr("\"CFBundleExecutable\"")));
    }
}

TEST_F(BundleTest, MissingOrBrokenInfoFileIsAnError) {
    const auto missing = Bundle::open(folder / "Missing.zorplugin");
    ASSERT_FALSE(missing);
    EXPECT_THAT(missing.error().message, AllOf(StartsWith("Missing.zorplugin: "), HasSubstr("No such file")));

    folder.write("Broken.zorplugin/Info.plist", "<plist><dict>");
    const auto broken = Bundle::open(folder / "Broken.zorplugin/");
    ASSERT_FALSE(broken);
    EXPECT_THAT(broken.error().message, StartsWith("Broken.zorplugin: Info.plist"));

    folder.write("Array.zorplugin/Info.plist", "<plist version=\"1.0\"><array/></plist>");
    const auto array = Bundle::open(folder / "Array.zorplugin");
    ASSERT_FALSE(array);
    EXPECT_EQ(array.error().message, "Array.zorplugin: Info.plist holds no dictionary");
}

TEST_F(BundleTest, FindsResourcesByNameAndType) {
    const auto file = folder.write("Sample.zorplugin/Resources/Hi-Def.zordashboard", "x");
    folder.write("Sample.zorplugin/Resources/inner/deep.txt", "x");
    folder.write("Sample.zorplugin/Resources/README", "x");
    const auto bundle = open();
    ASSERT_TRUE(bundle);
    EXPECT_EQ((*bundle)->pathForResource("Hi-Def", "zordashboard"), file);
    EXPECT_EQ((*bundle)->pathForResource("README", ""), folder / "Sample.zorplugin/Resources/README");
    EXPECT_FALSE((*bundle)->pathForResource("Hi-Def", "png"));
    EXPECT_FALSE((*bundle)->pathForResource("Hi-Def-Agent", "zordashboard"));
    EXPECT_FALSE((*bundle)->pathForResource("inner/deep", "txt"));
    EXPECT_FALSE((*bundle)->pathForResource("inner", ""));
    EXPECT_FALSE((*bundle)->pathForResource("../Info", "plist"));
    EXPECT_FALSE((*bundle)->pathForResource("", ""));
}

TEST_F(BundleTest, ClassesOfTheModuleRegisterWhileItIsLoaded) {
    classes("StaticPlugIn", "StaticDocument");
    auto bundle = openWithModule(ZOR_StaticModule);
    ASSERT_TRUE(bundle);
    ASSERT_EQ(loadingError(*bundle), "loaded");
    EXPECT_EQ(loadingError(*bundle), "loaded");

    const auto* record = ClassRegistry::shared().find("StaticDocument");
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(Bundle::bundleForClass(*record), bundle);
    EXPECT_EQ(record->create()->valueForKey("greeting"), Value("hello from the module"));
    EXPECT_EQ(Bundle::bundleForClass(Object::staticClass()), nullptr);

    const auto* address = bundle.get();
    bundle.reset();
    EXPECT_EQ(Bundle::bundleForClass(*record).get(), address);
}

TEST_F(BundleTest, ModuleMayRegisterThroughItsExportedFunction) {
    classes("FunctionPlugIn", "FunctionDocument");
    const auto bundle = openWithModule(ZOR_FunctionModule);
    ASSERT_TRUE(bundle);
    ASSERT_EQ(loadingError(*bundle), "loaded");
    ASSERT_NE(ClassRegistry::shared().find("FunctionPlugIn"), nullptr);
    EXPECT_EQ(ClassRegistry::shared().find("FunctionPlugIn")->bundle(), bundle);
}

TEST_F(BundleTest, ModuleMustDeclareTheClassesNamed) {
    classes("AbsentPlugIn", "AbsentDocument");
    const auto bundle = openWithModule(ZOR_EmptyModule);
    ASSERT_TRUE(bundle);
    EXPECT_EQ(loadingError(*bundle), "Sample.zorplugin: the module declares no class \"AbsentPlugIn\"");
}

TEST_F(BundleTest, ClassOfTheHostIsNotTheModules) {
    classes("Object", "Object");
    const auto bundle = openWithModule(ZOR_EmptyModule);
    ASSERT_TRUE(bundle);
    EXPECT_EQ(loadingError(*bundle), "Sample.zorplugin: the class \"Object\" is another's already");
}

TEST_F(BundleTest, MissingOrBrokenModuleIsAnErrorThatSaysWhy) {
    const auto bundle = open();
    ASSERT_TRUE(bundle);
    EXPECT_THAT(loadingError(**bundle),
                AllOf(StartsWith("Sample.zorplugin: "), HasSubstr("module.so"), HasSubstr("No such file")));
    folder.write("Sample.zorplugin/module.so", "no module at all");
    EXPECT_THAT(loadingError(**bundle), AllOf(StartsWith("Sample.zorplugin: "), HasSubstr("module.so")));
}

}  // namespace
}  // namespace zor
