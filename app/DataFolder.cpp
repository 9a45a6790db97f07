#include "app/DataFolder.h"

#include <cstdlib>

namespace zor {

std::optional<std::filesystem::path> dataFolder() {
    if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data) return std::filesystem::path(data) / "station";
    const char* home = std::getenv("HOME");
    if (!home || !*home) return std::nullopt;
    return std::filesystem::path(home) / ".local" / "share" / "station";
}

}  // namespace zor
