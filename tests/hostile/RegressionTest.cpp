// Inputs that once broke a rule, found by fuzzing: every reader takes every one of them.

#include <gtest/gtest.h>

#include <filesystem>

#include "host/foundation/Geometry.h"
#include "host/foundation/KeyedArchiver.h"
#include "host/foundation/PropertyList.h"
#include "host/foundation/SafeFile.h"
#include "tests/hostile/Resources.h"
#include "tests/hostile/SampleDocuments.h"
#include "tests/support/SourceFolder.h"

namespace zor::test {
namespace {

TEST(Regression, EveryInputIsReadOrRefused) {
    for (const auto& entry : std::filesystem::directory_iterator(sourceFolder() / "tests/hostile/regressions")) {
        const auto data = readFile(entry.path());
        ASSERT_TRUE(data) << data.error().message;
        const TimeLimit limit(entry.path().filename(), 10);
        const MemoryMeter meter;
        if (const auto list = PropertyList::parse(*data)) {
            EXPECT_TRUE(PropertyList::parse(list->binary())) << entry.path();
        }
        (void)rectFromString({reinterpret_cast<const char*>(data->data()), data->size()});
        (void)KeyedUnarchiver::unarchivedRoot(*data);
        for (const auto kind : {DocumentKind::site, DocumentKind::exported, DocumentKind::pasteboard}) {
            (void)readDocument(kind, *data);
        }
        EXPECT_LT(meter.peak(), std::size_t{256} << 20) << entry.path();
    }
}

}  // namespace
}  // namespace zor::test
