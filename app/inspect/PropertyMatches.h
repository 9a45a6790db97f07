#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/station/Agent.h"

namespace zor {

/// A station's properties, sorted by how well each could stand in for one that it lacks.
struct PropertyMatches {
    /// Of the quantity that the name stands for, those that share most words with it first.
    std::vector<std::shared_ptr<Property>> nearest;
    /// The others, in the station's order.
    std::vector<std::shared_ptr<Property>> others;
};

/// The quantity is the one that is known for the name ("indoorHumidity", "temperature3"); for a name that nobody knows
/// ("outTemp") that of the property whose name shares most words with it, a word standing for one that it begins.
/// Without any likeness nothing is near.
PropertyMatches matchesForProperty(const Agent& agent, const std::string& name);

}  // namespace zor
