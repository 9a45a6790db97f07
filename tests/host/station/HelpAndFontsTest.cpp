#include <gmock/gmock.h>

#include "host/foundation/Log.h"
#include "host/station/ZORHelpManager.h"
#include "host/station/ZORKit.h"
#include "tests/support/FakeToolkit.h"
#include "tests/support/TemporaryFolder.h"

namespace zor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ZORHelpManager, OpensTheAnchorAndRemembersIt) {
    auto& toolkit = FakeToolkit::install();
    auto& manager = ZORHelpManager::sharedHelpManager();
    manager.openHelpAnchor("dashboard");
    manager.openHelpAnchor("dashboards");
    EXPECT_THAT(toolkit.helpAnchors, ElementsAre("dashboard", "dashboards"));
    EXPECT_EQ(manager.lastAnchor(), "dashboards");
    EXPECT_EQ(&ZORHelpManager::sharedHelpManager(), &manager);
}

class ActivateFont : public testing::Test {
protected:
    ActivateFont() {
        sink = setLogSink([this](std::string_view line) { log.emplace_back(line); });
        folder.write("Fonts.zorplugin/Info.plist",
                     R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>
<key>CFBundleIdentifier</key><string>test.fonts</string>
<key>CFBundleShortVersionString</key><string>1.0</string>
<key>CFBundleVersion</key><string>1</string>
<key>CFBundleExecutable</key><string>module.so</string>
<key>ZORInterfaceVersion</key><integer>1</integer>
<key>ZORPrincipalClass</key><string>TestPlugIn</string>
<key>ZORDocumentClass</key><string>TestPlugIn</string></dict></plist>)");
        font = folder.write("Fonts.zorplugin/Resources/Digits.ttf", "font");
        auto opened = Bundle::open(folder / "Fonts.zorplugin");
        EXPECT_TRUE(opened) << opened.error().message;
        bundle = opened.valueOr(nullptr);
    }
    ~ActivateFont() override { setLogSink(sink); }

    test::TemporaryFolder folder;
    std::filesystem::path font;
    std::shared_ptr<Bundle> bundle;
    FakeToolkit& toolkit = FakeToolkit::install();
    std::vector<std::string> log;
    LogSink sink;
};

TEST_F(ActivateFont, ActivatesTheBundlesFile) {
    ZORKit::activateFont("Digits", bundle);
    EXPECT_THAT(toolkit.activatedFonts, ElementsAre(font));
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(ActivateFont, AMissingFontIsLoggedAndPassedOver) {
    ZORKit::activateFont("Letters", bundle);
    ZORKit::activateFont("Digits", {});
    EXPECT_THAT(toolkit.activatedFonts, IsEmpty());
    EXPECT_THAT(log,
                ElementsAre("font Letters: the bundle has no such font", "font Digits: the bundle has no such font"));
}

TEST_F(ActivateFont, ABrokenFontIsLogged) {
    toolkit.fontStatus = Error{"no font tables"};
    ZORKit::activateFont("Digits", bundle);
    EXPECT_THAT(log, ElementsAre("font Digits: no font tables"));
}

}  // namespace
}  // namespace zor
