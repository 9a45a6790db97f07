#include "stations/simulator/Sun.h"

namespace zor {
namespace {

constexpr Seconds kMarchEquinoxNoon = 1742472480;      // 2025-03-20 12:08 UTC
constexpr Seconds kJuneSolsticeNoon = 1750507320;      // 2025-06-21 12:02 UTC
constexpr Seconds kDecemberSolsticeNoon = 1766318280;  // 2025-12-21 11:58 UTC
constexpr Seconds kHalfDay = 43200;

TEST(Sun, StandsWhereTheAlmanacSays) {
    // Sines of 90°, 90° - 50° + 23.44° and 90° - 50° - 23.44°.
    EXPECT_NEAR(sunHeight(kMarchEquinoxNoon, {0, 0}), 1.0, 0.001);
    EXPECT_NEAR(sunHeight(kJuneSolsticeNoon, {50, 0}), 0.8945, 0.003);
    EXPECT_NEAR(sunHeight(kDecemberSolsticeNoon, {50, 0}), 0.2850, 0.005);
    EXPECT_NEAR(noonSunHeight(kJuneSolsticeNoon, 50), 0.8945, 0.003);
    EXPECT_NEAR(noonSunHeight(kDecemberSolsticeNoon, 50), 0.2850, 0.005);
}

TEST(Sun, FollowsTheLongitude) {
    EXPECT_NEAR(sunHeight(kMarchEquinoxNoon, {0, 180}), -1.0, 0.001);
    EXPECT_NEAR(sunHeight(kMarchEquinoxNoon - 6 * 3600, {0, 90}), 1.0, 0.001);
    EXPECT_NEAR(solarHour(0, 15), 1, 1e-9);
    EXPECT_NEAR(solarHour(0, -15), 23, 1e-9);
}

TEST(Sun, ThePolesHaveDayAndNightOfHalfAYear) {
    EXPECT_GT(sunHeight(kJuneSolsticeNoon + kHalfDay, {85, 0}), 0);
    EXPECT_LT(sunHeight(kDecemberSolsticeNoon, {85, 0}), 0);
    EXPECT_GT(sunHeight(kDecemberSolsticeNoon + kHalfDay, {-85, 0}), 0);
}

TEST(Sun, RadiationIsThatOfThePublishedFormulae) {
    EXPECT_NEAR(clearSkyRadiation(1), 1035.1, 0.1);
    EXPECT_NEAR(clearSkyRadiation(0.5), 487.9, 0.1);
    EXPECT_EQ(clearSkyRadiation(0), 0);
    EXPECT_EQ(clearSkyRadiation(-0.5), 0);
    EXPECT_EQ(clearSkyUVIndex(1), 12.5);
    EXPECT_NEAR(clearSkyUVIndex(0.5), 2.336, 0.001);
    EXPECT_EQ(clearSkyUVIndex(-0.1), 0);
}

}  // namespace
}  // namespace zor
