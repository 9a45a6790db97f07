#pragma once

#include <cstdint>
#include <filesystem>

namespace zor {

/// The port of the web pages where nobody asks for another.
inline constexpr std::uint16_t usualWebPort = 8087;

/// Where the web server's tokens lie; empty without a data folder, and then other machines cannot be served.
std::filesystem::path webTokenFolder();

}  // namespace zor
