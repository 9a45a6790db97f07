#include <gtest/gtest.h>

#include "dashboard/ZORDashboardPlugIn.h"
#include "tests/dashboard/PlugInBundle.h"

namespace zor::test {

PlugInBundle& plugInBundle() {
    static PlugInBundle bundle;
    return bundle;
}

namespace {

class PlugInEnvironment : public ::testing::Environment {
    void SetUp() override {
        FakeToolkit::install();
        plugInBundle().registerClasses([] {
            ZORDashboardEditView::staticClass();
            ZORDashboardPlugIn::staticClass();
        });
    }
};

const auto* const environment = ::testing::AddGlobalTestEnvironment(new PlugInEnvironment);

}  // namespace
}  // namespace zor::test
