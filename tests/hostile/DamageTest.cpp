// Twenty documents of ours, shortened to every length and with every byte changed to every other: a portion of it, all
// with ZOR_ALL. Whatever comes of it, nothing crashes, hangs, or takes memory out of proportion.

#include <gtest/gtest.h>

#include "tests/hostile/Resources.h"
#include "tests/hostile/SampleDocuments.h"

namespace zor::test {
namespace {

constexpr double secondsEach = 1;
constexpr std::size_t bytesEach = std::size_t{256} << 20;
/// Prime, so that every place and every kind of change has its turn.
constexpr std::size_t portion = 499;

class Damage : public ::testing::TestWithParam<std::size_t> {
protected:
    /// Reads one of the damaged forms; `what` names it.
    Status read(const Bytes& data, const std::string& what) const {
        const TimeLimit limit(document.name + ", " + what, secondsEach);
        const MemoryMeter meter;
        const auto status = readDocument(document.kind, data);
        EXPECT_LT(meter.peak(), bytesEach) << what;
        if (!status) {
            EXPECT_FALSE(status.error().message.empty()) << what;
        }
        return status;
    }

    const SampleDocument& document = sampleDocuments().at(GetParam());
};

TEST_P(Damage, WholeItIsRead) {
    ASSERT_LT(document.data.size(), 4000u);
    const auto status = read(document.data, "whole");
    EXPECT_TRUE(status) << status.error().message;
}

TEST_P(Damage, ShortenedItIsRefused) {
    for (std::size_t size = 0; size < document.data.size(); ++size) {
        const Bytes data(document.data.begin(), document.data.begin() + static_cast<std::ptrdiff_t>(size));
        const auto status = read(data, "shortened to " + std::to_string(size));
        // An import adds a dashboard in any case.
        if (document.kind != DocumentKind::exported) {
            EXPECT_FALSE(status) << size;
        }
    }
}

TEST_P(Damage, ChangedItIsReadOrRefused) {
    constexpr std::size_t otherValues = 255;
    const std::size_t changes = document.data.size() * otherValues;
    Bytes data = document.data;
    for (std::size_t change = GetParam(); change < changes; change += wantsAll() ? 1 : portion) {
        const std::size_t place = change / otherValues;
        const auto difference = static_cast<std::uint8_t>(1 + change % otherValues);
        data[place] ^= difference;
        (void)read(data, "byte " + std::to_string(place) + " changed by " + std::to_string(difference));
        data[place] ^= difference;
        if (HasFailure()) return;
    }
}

INSTANTIATE_TEST_SUITE_P(Documents, Damage, ::testing::Range(std::size_t{0}, std::size_t{20}));

TEST(DamageDocuments, AreTwentyOfEveryKind) {
    const auto& documents = sampleDocuments();
    ASSERT_EQ(documents.size(), 20u);
    for (const auto& document : documents) EXPECT_FALSE(document.data.empty()) << document.name;
}

}  // namespace
}  // namespace zor::test
