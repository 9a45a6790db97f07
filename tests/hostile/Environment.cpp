#include <gtest/gtest.h>

#include "host/foundation/Log.h"
#include "tests/hostile/SampleDocuments.h"

namespace zor::test {
namespace {

class PlugInEnvironment : public ::testing::Environment {
    void SetUp() override {
        setLogSink({});
        loadPlugIn();
    }
};

const auto* const environment = ::testing::AddGlobalTestEnvironment(new PlugInEnvironment);

}  // namespace
}  // namespace zor::test
