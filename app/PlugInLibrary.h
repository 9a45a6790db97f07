#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "host/foundation/Bundle.h"

namespace zor {

/// The plug-in bundles of this installation, loaded once per process.
class PlugInLibrary {
public:
    /// Looks through the folders in order for "*.zorplugin", by name within each. A bundle whose identifier was met
    /// before is passed over. One of another interface version, a damaged one or one whose module does not load is
    /// skipped and named among the problems.
    static PlugInLibrary load(const std::vector<std::filesystem::path>& folders);
    /// The folders of $STATION_PLUGIN_PATH (colon-separated), the person's own, the program's own.
    static std::vector<std::filesystem::path> standardFolders();

    const std::vector<std::shared_ptr<Bundle>>& bundles() const { return bundles_; }
    /// One sentence each.
    const std::vector<std::string>& problems() const { return problems_; }

private:
    std::vector<std::shared_ptr<Bundle>> bundles_;
    std::vector<std::string> problems_;
};

}  // namespace zor
