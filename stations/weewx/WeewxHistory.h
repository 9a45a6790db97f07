#pragma once

#include <filesystem>

#include "host/station/History.h"

namespace zor {

/// A weewx archive's rows as samples, one connection per call. What the archive leaves out is derived from what it has:
/// dew points, heat index, wind chill, feels like, rain rate, rain of the day and of the last hour, pressure trend.
/// Gives nothing where the archive cannot be read; the driver's polling says why.
class WeewxHistory : public HistoryLoader {
public:
    explicit WeewxHistory(std::filesystem::path archive) : archive_(std::move(archive)) {}
    std::vector<Sample> load(std::string_view key, Seconds from, Seconds to) override;

private:
    const std::filesystem::path archive_;
};

}  // namespace zor
