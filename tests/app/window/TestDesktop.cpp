#include "tests/app/window/TestDesktop.h"

#include <gtest/gtest.h>

#include "app/Runtime.h"
#include "app/window/Desktop.h"
#include "app/window/SiteWindow.h"
#include "tests/support/TemporaryFolder.h"

namespace zor::test {
namespace {

class Application : public ::testing::Environment {
    void SetUp() override {
        for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME"}) {
            setenv(name, home_.path().c_str(), 1);
        }
        home_.write("station/PlugIns/Damaged.zorplugin/Info.plist", "<plist><dict><key>");
        runtime_ = std::make_unique<DesktopRuntime>();
        shown = std::make_unique<Desktop>(runtime_->plugIns());
        ASSERT_TRUE(shown->openSite("demo", nullptr));
    }
    void TearDown() override {
        shown.reset();
        runtime_.reset();
    }

public:
    static inline std::unique_ptr<Desktop> shown;

private:
    TemporaryFolder home_;
    std::unique_ptr<DesktopRuntime> runtime_;
};

[[maybe_unused]] const auto* const application = ::testing::AddGlobalTestEnvironment(new Application);

}  // namespace

Desktop& desktop() {
    return *Application::shown;
}

SiteWindow& siteWindow() {
    return *desktop().windows().front();
}

}  // namespace zor::test
