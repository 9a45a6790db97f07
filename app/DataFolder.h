#pragma once

#include <filesystem>
#include <optional>

namespace zor {

/// Where this person's data of the program lies: $XDG_DATA_HOME/station, by default ~/.local/share/station; nowhere
/// where neither is named.
std::optional<std::filesystem::path> dataFolder();

}  // namespace zor
