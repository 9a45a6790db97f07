#include "host/station/PropertyKeys.h"

#include <algorithm>
#include <array>

namespace zor {

namespace {

constexpr auto known = std::to_array<PropertyDescription>({
    {kOutdoorTemperature, "Outdoor Temperature", Quantity::temperature},
    {kTemperature, "Temperature", Quantity::temperature},
    {kIndoorTemperature, "Indoor Temperature", Quantity::temperature},
    {kOutdoorHumidity, "Outdoor Humidity", Quantity::humidity},
    {kHumidity, "Humidity", Quantity::humidity},
    {kIndoorHumidity, "Indoor Humidity", Quantity::humidity},
    {kOutdoorDewPoint, "Outdoor Dew Point", Quantity::temperature},
    {kDewPoint, "Dew Point", Quantity::temperature},
    {kIndoorDewPoint, "Indoor Dew Point", Quantity::temperature},
    {kOutdoorHeatIndex, "Outdoor Heat Index", Quantity::temperature},
    {kHeatIndex, "Heat Index", Quantity::temperature},
    {kWindChill, "Wind Chill", Quantity::temperature},
    {kFeelsLike, "Feels Like", Quantity::temperature},
    {kWindSpeed, "Wind Speed", Quantity::speed},
    {kWindGust, "Wind Gust", Quantity::speed},
    {kWindDirection, "Wind Direction", Quantity::direction},
    {kWindGustDirection, "Wind Gust Direction", Quantity::direction},
    {kRainRate, "Rain Rate", Quantity::rainRate},
    {kRainToday, "Rain Today", Quantity::rain},
    {kRainLastHour, "Rain Last Hour", Quantity::rain},
    {kRainIncrement, "Rain Increment", Quantity::rain},
    {kBarometricPressureRelative, "Barometric Pressure (Relative)", Quantity::pressure},
    {kBarometricPressureAbsolute, "Barometric Pressure (Absolute)", Quantity::pressure},
    {kBarometricPressureTrend, "Barometric Pressure Trend", Quantity::pressureTrend},
    {kSolarRadiation, "Solar Radiation", Quantity::solarRadiation},
    {kUVIndex, "UV Index", Quantity::uvIndex},
    {kIlluminance, "Illuminance", Quantity::illuminance},
    {kVisibility, "Visibility", Quantity::distance},
    {kExtraTemperature, "Extra Temperature", Quantity::temperature},
    {kExtraHumidity, "Extra Humidity", Quantity::humidity},
    {kLeafTemperature, "Leaf Temperature", Quantity::temperature},
    {kLeafWetness, "Leaf Wetness", Quantity::none},
    {kSoilTemperature, "Soil Temperature", Quantity::temperature},
    {kSoilMoisture, "Soil Moisture", Quantity::humidity},
    {kSoilTension, "Soil Tension", Quantity::soilTension},
    {kLightningDistance, "Lightning Distance", Quantity::distance},
    {kParticulateMatter25, "Particulate Matter 2.5", Quantity::concentrationMass},
    {kParticulateMatter10, "Particulate Matter 10", Quantity::concentrationMass},
    {kCarbonDioxide, "Carbon Dioxide", Quantity::concentrationPpm},
    {kBatteryVoltage, "Battery Voltage", Quantity::voltage},
});

constexpr std::string_view digits = "0123456789";

bool isUpper(char character) {
    return character >= 'A' && character <= 'Z';
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// "extraSensor3" is "Extra Sensor 3".
std::string wordsOfKey(std::string_view key) {
    std::string words;
    for (std::size_t index = 0; index < key.size(); ++index) {
        const char character = key[index];
        const bool startsWord = index > 0 && ((isUpper(character) && !isUpper(key[index - 1])) ||
                                              (isDigit(character) && !isDigit(key[index - 1])));
        if (startsWord) words += ' ';
        words +=
            index == 0 && character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
    }
    return words;
}

}  // namespace

std::span<const PropertyDescription> knownProperties() {
    return known;
}

const PropertyDescription* knownProperty(std::string_view key) {
    const auto found = std::ranges::find(known, key, &PropertyDescription::key);
    return found == known.end() ? nullptr : &*found;
}

PropertyNaming namingOfProperty(std::string_view key) {
    if (const auto* description = knownProperty(key)) {
        return {std::string(description->displayName), description->quantity};
    }
    const auto stem = key.substr(0, key.find_last_not_of(digits) + 1);
    if (const auto* description = knownProperty(stem)) {
        return {std::string(description->displayName) + ' ' + std::string(key.substr(stem.size())),
                description->quantity};
    }
    return {wordsOfKey(key), Quantity::none};
}

}  // namespace zor
