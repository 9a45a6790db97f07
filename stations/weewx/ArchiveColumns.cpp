#include "stations/weewx/ArchiveColumns.h"

#include <algorithm>
#include <array>

#include "host/station/PropertyKeys.h"

namespace zor {
namespace {

constexpr auto kColumns = std::to_array<ArchiveColumn>({
    {"outTemp", kOutdoorTemperature},
    {"outHumidity", kOutdoorHumidity},
    {"dewpoint", kOutdoorDewPoint},
    {"heatindex", kOutdoorHeatIndex},
    {"windchill", kWindChill},
    {"windSpeed", kWindSpeed},
    {"windGust", kWindGust},
    {"windDir", kWindDirection},
    {"windGustDir", kWindGustDirection},
    {"rainRate", kRainRate},
    {"rain", kRainIncrement},
    {"barometer", kBarometricPressureRelative},
    // Reduced to sea level in another way, and all that some stations have.
    {"altimeter", kBarometricPressureRelative},
    {"pressure", kBarometricPressureAbsolute},
    {"inTemp", kIndoorTemperature},
    {"inHumidity", kIndoorHumidity},
    {"inDewpoint", kIndoorDewPoint},
    {"radiation", kSolarRadiation},
    {"UV", kUVIndex},
    {"illuminance", kIlluminance},
    {"visibility", kVisibility},
    {"lightning_distance", kLightningDistance},
    {"pm2_5", kParticulateMatter25},
    {"pm10_0", kParticulateMatter10},
    {"co2", kCarbonDioxide},
    {"consBatteryVoltage", kBatteryVoltage},
    {"extraTemp1", "extraTemperature1"},
    {"extraTemp2", "extraTemperature2"},
    {"extraTemp3", "extraTemperature3"},
    {"extraTemp4", "extraTemperature4"},
    {"extraTemp5", "extraTemperature5"},
    {"extraTemp6", "extraTemperature6"},
    {"extraTemp7", "extraTemperature7"},
    {"extraTemp8", "extraTemperature8"},
    {"extraHumid1", "extraHumidity1"},
    {"extraHumid2", "extraHumidity2"},
    {"extraHumid3", "extraHumidity3"},
    {"extraHumid4", "extraHumidity4"},
    {"extraHumid5", "extraHumidity5"},
    {"extraHumid6", "extraHumidity6"},
    {"extraHumid7", "extraHumidity7"},
    {"extraHumid8", "extraHumidity8"},
    {"soilTemp1", "soilTemperature1"},
    {"soilTemp2", "soilTemperature2"},
    {"soilTemp3", "soilTemperature3"},
    {"soilTemp4", "soilTemperature4"},
    // Centibars in all unit systems.
    {"soilMoist1", "soilTension1"},
    {"soilMoist2", "soilTension2"},
    {"soilMoist3", "soilTension3"},
    {"soilMoist4", "soilTension4"},
    {"leafTemp1", "leafTemperature1"},
    {"leafTemp2", "leafTemperature2"},
    {"leafWet1", "leafWetness1"},
    {"leafWet2", "leafWetness2"},
});

/// Where a system keeps something else than the base unit.
struct SystemUnit {
    std::int64_t usUnits;
    Quantity quantity;
    std::string_view shortName;
};

constexpr std::int64_t kUS = 1;
constexpr std::int64_t kMetric = 16;
constexpr std::int64_t kMetricWX = 17;

constexpr auto kSystemUnits = std::to_array<SystemUnit>({
    {kUS, Quantity::temperature, "°F"},
    {kUS, Quantity::pressure, "inHg"},
    {kUS, Quantity::speed, "mph"},
    {kUS, Quantity::rain, "in"},
    {kUS, Quantity::rainRate, "in/h"},
    {kUS, Quantity::distance, "mi"},
    {kMetric, Quantity::speed, "km/h"},
    {kMetric, Quantity::rain, "cm"},
    {kMetric, Quantity::rainRate, "cm/h"},
});

}  // namespace

std::span<const ArchiveColumn> archiveColumns() {
    return kColumns;
}

const Unit* archiveUnit(Quantity quantity, std::int64_t usUnits) {
    if (usUnits != kUS && usUnits != kMetric && usUnits != kMetricWX) return nullptr;
    const auto found = std::ranges::find_if(
        kSystemUnits, [&](const SystemUnit& unit) { return unit.usUnits == usUnits && unit.quantity == quantity; });
    return found == kSystemUnits.end() ? &baseUnit(quantity) : unitWithShortName(found->shortName, quantity);
}

}  // namespace zor
