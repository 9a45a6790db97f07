#pragma once
// Quantities, their units and the unit systems a person can choose. Values are kept in one base unit per quantity.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace zor {

/// Base units: °C, K (difference), %, hPa, m/s, mm, mm/h, °, W/m², lx, UV index, km, V, ppm, µg/m³, cbar, s,
/// hPa per 3 h (pressure trend), and plain numbers.
enum class Quantity : std::uint8_t {
    none,
    temperature,
    temperatureDifference,
    humidity,
    pressure,
    pressureTrend,
    speed,
    rain,
    rainRate,
    direction,
    solarRadiation,
    illuminance,
    uvIndex,
    distance,
    voltage,
    concentrationPpm,
    concentrationMass,
    soilTension,
    duration,
};

struct Unit {
    Quantity quantity;
    /// "°C", "inHg"; empty for plain numbers. One short name belongs to one unit of a quantity.
    std::string_view shortName;
    /// "degrees Celsius".
    std::string_view longName;
    /// base value = value × scale + offset.
    double scale;
    double offset;
    /// Usual decimals for showing a value.
    int decimals;
};

enum class UnitSystem : std::uint8_t { metric, us, uk, si };

/// The one table of all units.
std::span<const Unit> allUnits();
/// The first unit with that short name, also in its common other spellings ("C", "mb", "kts", "w/m2"); none for an
/// unknown one.
const Unit* unitWithShortName(std::string_view shortName);
const Unit* unitWithShortName(std::string_view shortName, Quantity quantity);
/// The unit a system shows a quantity in. SI mix: °C, hPa, m/s, mm.
const Unit& unitForQuantity(Quantity quantity, UnitSystem system);
const Unit& baseUnit(Quantity quantity);
double toBase(double value, const Unit& unit);
double fromBase(double value, const Unit& unit);
/// "temperature", "metric" ...: stable names for documents; unknown names give none and metric.
std::string_view nameOfQuantity(Quantity quantity);
Quantity quantityNamed(std::string_view name);
std::string_view nameOfUnitSystem(UnitSystem system);
UnitSystem unitSystemNamed(std::string_view name);
/// Whether a base-unit value can be real: finite and within what the quantity can reach on earth.
bool isPlausible(double baseValue, Quantity quantity);

}  // namespace zor
