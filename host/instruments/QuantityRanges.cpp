#include "host/instruments/QuantityRanges.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zor {

namespace {

constexpr auto ranges = std::to_array<std::pair<Quantity, QuantityRange>>({
    {Quantity::none, {0, 100, 1, false}},
    {Quantity::temperature, {-20, 50, 4, false}},
    {Quantity::temperatureDifference, {-20, 20, 4, false}},
    {Quantity::humidity, {0, 100, 20, false}},
    {Quantity::pressure, {950, 1050, 4, false}},
    {Quantity::pressureTrend, {-10, 10, 2, false}},
    {Quantity::speed, {0, 30, 4, true}},
    {Quantity::rain, {0, 50, 2, true}},
    {Quantity::rainRate, {0, 50, 2, true}},
    {Quantity::direction, {0, 360, 360, true}},
    {Quantity::solarRadiation, {0, 1200, 100, true}},
    {Quantity::illuminance, {0, 120000, 1000, true}},
    {Quantity::uvIndex, {0, 12, 2, true}},
    {Quantity::distance, {0, 40, 2, true}},
    {Quantity::voltage, {0, 15, 0.2, false}},
    {Quantity::concentrationPpm, {0, 2000, 100, false}},
    {Quantity::concentrationMass, {0, 100, 10, true}},
    {Quantity::soilTension, {0, 200, 10, true}},
    {Quantity::duration, {0, 3600, 60, true}},
});

}  // namespace

const QuantityRange& rangeOfQuantity(Quantity quantity) {
    const auto found = std::ranges::find(ranges, quantity, &std::pair<Quantity, QuantityRange>::first);
    return found == ranges.end() ? ranges.front().second : found->second;
}

}  // namespace zor
