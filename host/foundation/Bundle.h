#pragma once
// A plug-in bundle: a folder with Info.plist, the loadable module and Resources/.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/foundation/Result.h"
#include "host/foundation/Value.h"

namespace zor {

class ClassRecord;

/// Bundles built for another version of the host's interface are refused.
inline constexpr std::int64_t hostInterfaceVersion = 1;

class Bundle : public std::enable_shared_from_this<Bundle> {
public:
    /// Reads and checks Info.plist: "CFBundleIdentifier", "CFBundleShortVersionString", "CFBundleVersion" (a whole
    /// number), "CFBundleExecutable", "ZORInterfaceVersion", "ZORPrincipalClass", "ZORDocumentClass".
    /// The error names the bundle and the key at fault.
    static Result<std::shared_ptr<Bundle>> open(const std::filesystem::path& folder);
    /// The bundle whose module declared the class; empty for the host's own classes.
    static std::shared_ptr<Bundle> bundleForClass(const ClassRecord& record);

    /// Loads the module, whose classes register themselves in static initialisers or in an exported C function
    /// "zorRegisterClasses"; the principal and the document class must be among them. A module is never unloaded, and
    /// its bundle lives as long as the process.
    Status load();

    const std::filesystem::path& folder() const { return folder_; }
    const std::string& identifier() const { return identifier_; }
    /// The value under an Info key as text, absent where there is none.
    std::optional<std::string> infoString(std::string_view key) const;
    std::int64_t version() const { return version_; }
    const std::string& principalClass() const { return principalClass_; }
    const std::string& documentClass() const { return documentClass_; }
    /// The file Resources/name.type, or none. A name with a path separator finds nothing.
    std::optional<std::filesystem::path> pathForResource(std::string_view name, std::string_view type) const;

private:
    Bundle() = default;

    std::filesystem::path folder_;
    Value info_;
    std::string identifier_;
    std::int64_t version_ = 0;
    std::string principalClass_;
    std::string documentClass_;
    bool loaded_ = false;
};

}  // namespace zor
