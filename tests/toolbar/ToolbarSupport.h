#pragma once
// What the tests of the toolbar plug-in and its dashboards share.

#include <filesystem>

#include "host/instruments/ZORPlotView.h"
#include "host/instruments/ZORTextFieldView.h"
#include "host/station/PropertyKeys.h"
#include "tests/dashboard/DashboardSupport.h"
#include "tests/dashboard/PlugInBundle.h"
#include "toolbar/ZORDashboardToolbarPlugIn.h"

namespace zor::test {

/// The font files that the toolkit was given when the plug-in's classes were registered and its first object made.
const std::vector<std::filesystem::path>& fontsActivatedAtStart();

class ToolbarTest : public ::testing::Test {
protected:
    /// A station that has these properties.
    void give(std::initializer_list<std::string_view> keys) {
        for (const auto key : keys) {
            const auto naming = namingOfProperty(key);
            agent->addProperty(key, naming.displayName, naming.quantity);
        }
    }
    std::shared_ptr<Property> property(std::string_view key) const { return agent->properties().find(key); }

    template <typename Target = ZORTextFieldView>
    static std::shared_ptr<Target> targetOf(const std::shared_ptr<ZORWidgetHostView>& widget) {
        return std::dynamic_pointer_cast<Target>(widget->targetView());
    }

    FakeToolkit& toolkit = FakeToolkit::install();
    std::shared_ptr<Agent> agent = Agent::withName("A");
    std::shared_ptr<SiteWindowController> controller = std::make_shared<SiteWindowController>();
    std::shared_ptr<ZORDashboardToolbarPlugIn> toolbar = ZORDashboardToolbarPlugIn::initWithAgent(agent, controller);
};

}  // namespace zor::test
