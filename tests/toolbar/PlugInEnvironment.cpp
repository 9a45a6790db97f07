#include "tests/toolbar/ToolbarSupport.h"

namespace zor::test {

PlugInBundle& plugInBundle() {
    static PlugInBundle bundle;
    return bundle;
}

namespace {

std::vector<std::filesystem::path> fontsAtStart;

class PlugInEnvironment : public ::testing::Environment {
    void SetUp() override {
        const auto& toolkit = FakeToolkit::install();
        plugInBundle().registerClasses([] {
            ZORDashboardEditView::staticClass();
            ZORDashboardPlugIn::staticClass();
            ZORDashboardToolbarPlugIn::staticClass();
        });
        ZORDashboardToolbarPlugIn::initWithAgent(Agent::withName("A"), {});
        fontsAtStart = toolkit.activatedFonts;
    }
};

const auto* const environment = ::testing::AddGlobalTestEnvironment(new PlugInEnvironment);

}  // namespace

const std::vector<std::filesystem::path>& fontsActivatedAtStart() {
    return fontsAtStart;
}

}  // namespace zor::test
