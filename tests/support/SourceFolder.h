#pragma once

#include <filesystem>

namespace zor::test {

/// The folder of the sources that the tests were built from.
std::filesystem::path sourceFolder();

}  // namespace zor::test
