#include "host/station/Units.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace zor {

namespace {

constexpr double fahrenheitDegree = 5.0 / 9.0;
/// Conventional inch and millimetre of mercury at 0 °C (NIST SP 811), in hPa.
constexpr double inchOfMercury = 33.86389;
constexpr double millimetreOfMercury = 1.333224;
constexpr double mile = 1.609344;
constexpr double inch = 25.4;

/// The first unit of a quantity is its base unit. Where quantities share a short name, the commoner one comes first.
constexpr auto units = std::to_array<Unit>({
    {Quantity::none, "", "", 1, 0, 1},
    {Quantity::temperature, "°C", "degrees Celsius", 1, 0, 1},
    {Quantity::temperature, "°F", "degrees Fahrenheit", fahrenheitDegree, -32 * fahrenheitDegree, 1},
    {Quantity::temperature, "K", "kelvins", 1, -273.15, 1},
    {Quantity::temperatureDifference, "K", "kelvins", 1, 0, 1},
    {Quantity::temperatureDifference, "°C", "degrees Celsius", 1, 0, 1},
    {Quantity::temperatureDifference, "°F", "degrees Fahrenheit", fahrenheitDegree, 0, 1},
    {Quantity::humidity, "%", "percent", 1, 0, 0},
    {Quantity::pressure, "hPa", "hectopascals", 1, 0, 1},
    {Quantity::pressure, "mbar", "millibars", 1, 0, 1},
    {Quantity::pressure, "inHg", "inches of mercury", inchOfMercury, 0, 2},
    {Quantity::pressure, "mmHg", "millimeters of mercury", millimetreOfMercury, 0, 1},
    {Quantity::pressure, "kPa", "kilopascals", 10, 0, 2},
    {Quantity::pressure, "Pa", "pascals", 0.01, 0, 0},
    {Quantity::pressureTrend, "hPa/3h", "hectopascals in three hours", 1, 0, 1},
    {Quantity::pressureTrend, "mbar/3h", "millibars in three hours", 1, 0, 1},
    {Quantity::pressureTrend, "inHg/3h", "inches of mercury in three hours", inchOfMercury, 0, 3},
    {Quantity::speed, "m/s", "meters per second", 1, 0, 1},
    {Quantity::speed, "km/h", "kilometers per hour", 1 / 3.6, 0, 1},
    {Quantity::speed, "mph", "miles per hour", mile / 3.6, 0, 1},
    {Quantity::speed, "kn", "knots", 1.852 / 3.6, 0, 1},
    {Quantity::rain, "mm", "millimeters", 1, 0, 1},
    {Quantity::rain, "cm", "centimeters", 10, 0, 2},
    {Quantity::rain, "in", "inches", inch, 0, 2},
    {Quantity::rainRate, "mm/h", "millimeters per hour", 1, 0, 1},
    {Quantity::rainRate, "cm/h", "centimeters per hour", 10, 0, 2},
    {Quantity::rainRate, "in/h", "inches per hour", inch, 0, 2},
    {Quantity::direction, "°", "degrees", 1, 0, 0},
    {Quantity::solarRadiation, "W/m²", "watts per square meter", 1, 0, 0},
    {Quantity::illuminance, "lx", "lux", 1, 0, 0},
    {Quantity::illuminance, "klx", "kilolux", 1000, 0, 1},
    {Quantity::uvIndex, "", "", 1, 0, 1},
    {Quantity::distance, "km", "kilometers", 1, 0, 1},
    {Quantity::distance, "mi", "miles", mile, 0, 1},
    {Quantity::distance, "m", "meters", 0.001, 0, 0},
    {Quantity::distance, "ft", "feet", 0.0003048, 0, 0},
    {Quantity::voltage, "V", "volts", 1, 0, 2},
    {Quantity::concentrationPpm, "ppm", "parts per million", 1, 0, 0},
    {Quantity::concentrationMass, "µg/m³", "micrograms per cubic meter", 1, 0, 1},
    {Quantity::soilTension, "cbar", "centibars", 1, 0, 0},
    {Quantity::soilTension, "kPa", "kilopascals", 1, 0, 0},
    {Quantity::duration, "s", "seconds", 1, 0, 0},
    {Quantity::duration, "min", "minutes", 60, 0, 1},
    {Quantity::duration, "h", "hours", 3600, 0, 1},
});

/// Other spellings, in lower case.
constexpr auto aliases = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"c", "°C"},          {"degc", "°C"},     {"celsius", "°C"},   {"f", "°F"},        {"degf", "°F"},
    {"fahrenheit", "°F"}, {"percent", "%"},   {"%rh", "%"},        {"mb", "mbar"},     {"millibar", "mbar"},
    {"mps", "m/s"},       {"m/sec", "m/s"},   {"kph", "km/h"},     {"kmh", "km/h"},    {"mi/h", "mph"},
    {"kt", "kn"},         {"kts", "kn"},      {"knot", "kn"},      {"knots", "kn"},    {"inch", "in"},
    {"inches", "in"},     {"\"", "in"},       {"mm/hr", "mm/h"},   {"cm/hr", "cm/h"},  {"in/hr", "in/h"},
    {"deg", "°"},         {"degree", "°"},    {"degrees", "°"},    {"w/m2", "W/m²"},   {"w/m^2", "W/m²"},
    {"wm2", "W/m²"},      {"lux", "lx"},      {"mile", "mi"},      {"miles", "mi"},    {"volt", "V"},
    {"volts", "V"},       {"ug/m3", "µg/m³"}, {"ug/m^3", "µg/m³"}, {"μg/m³", "µg/m³"}, {"cb", "cbar"},
    {"sec", "s"},         {"hr", "h"},        {"hours", "h"},      {"minutes", "min"}, {"seconds", "s"},
});

struct Range {
    double least;
    double greatest;
};

struct QuantityRow {
    Quantity quantity;
    std::string_view name;
    /// What can occur on earth, in the base unit, with a little to spare; nothing else is a measurement.
    Range range;
    /// Short units in the metric, US, UK and SI systems; empty for the base unit.
    std::array<std::string_view, 4> shown = {};
};

constexpr double unbounded = std::numeric_limits<double>::max();

constexpr auto quantities = std::to_array<QuantityRow>({
    {Quantity::none, "none", {-unbounded, unbounded}},
    {Quantity::temperature, "temperature", {-100, 100}, {"°C", "°F", "°C", "°C"}},
    {Quantity::temperatureDifference, "temperatureDifference", {-200, 200}, {"K", "°F", "K", "K"}},
    {Quantity::humidity, "humidity", {0, 100}},
    {Quantity::pressure, "pressure", {300, 1150}, {"hPa", "inHg", "hPa", "hPa"}},
    {Quantity::pressureTrend, "pressureTrend", {-100, 100}, {"hPa/3h", "inHg/3h", "hPa/3h", "hPa/3h"}},
    {Quantity::speed, "speed", {0, 150}, {"km/h", "mph", "mph", "m/s"}},
    {Quantity::rain, "rain", {0, 30000}, {"mm", "in", "mm", "mm"}},
    {Quantity::rainRate, "rainRate", {0, 3000}, {"mm/h", "in/h", "mm/h", "mm/h"}},
    {Quantity::direction, "direction", {0, 360}},
    {Quantity::solarRadiation, "solarRadiation", {0, 2000}},
    {Quantity::illuminance, "illuminance", {0, 250000}},
    {Quantity::uvIndex, "uvIndex", {0, 50}},
    {Quantity::distance, "distance", {0, 40100}, {"km", "mi", "mi", "km"}},
    {Quantity::voltage, "voltage", {-1000, 1000}},
    {Quantity::concentrationPpm, "concentrationPpm", {0, 1e6}},
    {Quantity::concentrationMass, "concentrationMass", {0, 1e6}},
    {Quantity::soilTension, "soilTension", {0, 1500}},
    {Quantity::duration, "duration", {0, unbounded}},
});

constexpr bool rowsFollowTheEnumeration() {
    for (std::size_t index = 0; index < quantities.size(); ++index) {
        if (static_cast<std::size_t>(quantities[index].quantity) != index) return false;
    }
    return true;
}
static_assert(rowsFollowTheEnumeration());

constexpr std::array<std::string_view, 4> systemNames = {"metric", "us", "uk", "si"};

const QuantityRow& rowOf(Quantity quantity) {
    return quantities[static_cast<std::size_t>(quantity)];
}

std::string lowerCase(std::string_view text) {
    std::string result(text);
    for (auto& character : result) {
        if (character >= 'A' && character <= 'Z') character = static_cast<char>(character - 'A' + 'a');
    }
    return result;
}

/// The first unit that passes, by its short name, then by one of its other spellings, then whatever the case.
template <typename Filter>
const Unit* findUnit(std::string_view shortName, const Filter& passes) {
    const auto exactly = [&](std::string_view name) {
        const auto found =
            std::ranges::find_if(units, [&](const Unit& unit) { return unit.shortName == name && passes(unit); });
        return found == units.end() ? nullptr : &*found;
    };
    if (const auto* unit = exactly(shortName)) return unit;
    const auto lower = lowerCase(shortName);
    for (const auto& [alias, name] : aliases) {
        if (alias != lower) continue;
        if (const auto* unit = exactly(name)) return unit;
    }
    const auto found = std::ranges::find_if(
        units, [&](const Unit& unit) { return lowerCase(unit.shortName) == lower && passes(unit); });
    return found == units.end() ? nullptr : &*found;
}

}  // namespace

std::span<const Unit> allUnits() {
    return units;
}

const Unit* unitWithShortName(std::string_view shortName) {
    return findUnit(shortName, [](const Unit&) { return true; });
}

const Unit* unitWithShortName(std::string_view shortName, Quantity quantity) {
    return findUnit(shortName, [quantity](const Unit& unit) { return unit.quantity == quantity; });
}

const Unit& unitForQuantity(Quantity quantity, UnitSystem system) {
    const auto name = rowOf(quantity).shown[static_cast<std::size_t>(system)];
    const auto* unit = name.empty() ? nullptr : unitWithShortName(name, quantity);
    return unit ? *unit : baseUnit(quantity);
}

const Unit& baseUnit(Quantity quantity) {
    return *std::ranges::find(units, quantity, &Unit::quantity);
}

double toBase(double value, const Unit& unit) {
    return value * unit.scale + unit.offset;
}

double fromBase(double value, const Unit& unit) {
    return (value - unit.offset) / unit.scale;
}

std::string_view nameOfQuantity(Quantity quantity) {
    return rowOf(quantity).name;
}

Quantity quantityNamed(std::string_view name) {
    const auto found = std::ranges::find(quantities, name, &QuantityRow::name);
    return found == quantities.end() ? Quantity::none : found->quantity;
}

std::string_view nameOfUnitSystem(UnitSystem system) {
    return systemNames[static_cast<std::size_t>(system)];
}

UnitSystem unitSystemNamed(std::string_view name) {
    const auto found = std::ranges::find(systemNames, name);
    return found == systemNames.end() ? UnitSystem::metric : static_cast<UnitSystem>(found - systemNames.begin());
}

bool isPlausible(double baseValue, Quantity quantity) {
    const auto [least, greatest] = rowOf(quantity).range;
    return baseValue >= least && baseValue <= greatest;
}

}  // namespace zor
