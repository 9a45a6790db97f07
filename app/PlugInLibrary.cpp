#include "app/PlugInLibrary.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "app/DataFolder.h"

namespace zor {

namespace fs = std::filesystem;

namespace {

fs::path programFolder() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::current_path() : program.parent_path();
}

std::vector<fs::path> bundlesIn(const fs::path& folder) {
    std::vector<fs::path> found;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        if (entry.path().extension() == ".zorplugin") found.push_back(entry.path());
    }
    std::ranges::sort(found);
    return found;
}

}  // namespace

std::vector<fs::path> PlugInLibrary::standardFolders() {
    std::vector<fs::path> folders;
    if (const char* listed = std::getenv("STATION_PLUGIN_PATH")) {
        std::istringstream paths(listed);
        for (std::string path; std::getline(paths, path, ':');) {
            if (!path.empty()) folders.emplace_back(path);
        }
    }
    if (const auto data = dataFolder()) folders.push_back(*data / "PlugIns");
    const fs::path program = programFolder();
    folders.push_back(program / ".." / "PlugIns");
    folders.push_back(program / ".." / "lib" / "station" / "PlugIns");
    return folders;
}

PlugInLibrary PlugInLibrary::load(const std::vector<fs::path>& folders) {
    PlugInLibrary library;
    for (const auto& folder : folders) {
        for (const auto& path : bundlesIn(folder)) {
            auto bundle = Bundle::open(path);
            if (!bundle) {
                library.problems_.push_back(bundle.error().message);
                continue;
            }
            const auto& identifier = (*bundle)->identifier();
            const bool known = std::ranges::any_of(
                library.bundles_, [&](const auto& other) { return other->identifier() == identifier; });
            if (known) continue;
            if (const auto status = (*bundle)->load(); !status) {
                library.problems_.push_back(status.error().message);
                continue;
            }
            library.bundles_.push_back(*bundle);
        }
    }
    return library;
}

}  // namespace zor
