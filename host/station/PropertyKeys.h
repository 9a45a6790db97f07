#pragma once
// Names of a station's properties. A key is its constant without the k, first letter in lower case.

#include <span>
#include <string>
#include <string_view>

#include "host/station/Units.h"

namespace zor {

inline constexpr std::string_view kOutdoorTemperature = "outdoorTemperature";
inline constexpr std::string_view kTemperature = "temperature";
inline constexpr std::string_view kIndoorTemperature = "indoorTemperature";
inline constexpr std::string_view kOutdoorHumidity = "outdoorHumidity";
inline constexpr std::string_view kHumidity = "humidity";
inline constexpr std::string_view kIndoorHumidity = "indoorHumidity";
inline constexpr std::string_view kOutdoorDewPoint = "outdoorDewPoint";
inline constexpr std::string_view kDewPoint = "dewPoint";
inline constexpr std::string_view kIndoorDewPoint = "indoorDewPoint";
inline constexpr std::string_view kOutdoorHeatIndex = "outdoorHeatIndex";
inline constexpr std::string_view kHeatIndex = "heatIndex";
inline constexpr std::string_view kWindChill = "windChill";
inline constexpr std::string_view kFeelsLike = "feelsLike";
inline constexpr std::string_view kWindSpeed = "windSpeed";
inline constexpr std::string_view kWindGust = "windGust";
inline constexpr std::string_view kWindDirection = "windDirection";
inline constexpr std::string_view kWindGustDirection = "windGustDirection";
inline constexpr std::string_view kRainRate = "rainRate";
inline constexpr std::string_view kRainToday = "rainToday";
inline constexpr std::string_view kRainLastHour = "rainLastHour";
/// Amount since the reading before.
inline constexpr std::string_view kRainIncrement = "rainIncrement";
inline constexpr std::string_view kBarometricPressureRelative = "barometricPressureRelative";
inline constexpr std::string_view kBarometricPressureAbsolute = "barometricPressureAbsolute";
inline constexpr std::string_view kBarometricPressureTrend = "barometricPressureTrend";
inline constexpr std::string_view kSolarRadiation = "solarRadiation";
inline constexpr std::string_view kUVIndex = "uvIndex";
inline constexpr std::string_view kIlluminance = "illuminance";
inline constexpr std::string_view kVisibility = "visibility";
inline constexpr std::string_view kExtraTemperature = "extraTemperature";
inline constexpr std::string_view kExtraHumidity = "extraHumidity";
inline constexpr std::string_view kLeafTemperature = "leafTemperature";
/// 0 for dry to 15 for wet.
inline constexpr std::string_view kLeafWetness = "leafWetness";
inline constexpr std::string_view kSoilTemperature = "soilTemperature";
/// In percent; the suction is the soil tension.
inline constexpr std::string_view kSoilMoisture = "soilMoisture";
inline constexpr std::string_view kSoilTension = "soilTension";
inline constexpr std::string_view kLightningDistance = "lightningDistance";
/// Particles up to 2.5 and up to 10 µm.
inline constexpr std::string_view kParticulateMatter25 = "particulateMatter25";
inline constexpr std::string_view kParticulateMatter10 = "particulateMatter10";
inline constexpr std::string_view kCarbonDioxide = "carbonDioxide";
inline constexpr std::string_view kBatteryVoltage = "batteryVoltage";

struct PropertyDescription {
    std::string_view key;
    std::string_view displayName;
    Quantity quantity;
};

/// Every property that drivers and derivations know by key.
std::span<const PropertyDescription> knownProperties();
/// None for a key that is not known.
const PropertyDescription* knownProperty(std::string_view key);

struct PropertyNaming {
    std::string displayName;
    Quantity quantity;
};
/// For any key: "outdoorTemperature" as it is known, "temperature3" a further "Temperature 3", and "fooBar" the plain
/// number "Foo Bar".
PropertyNaming namingOfProperty(std::string_view key);

}  // namespace zor
