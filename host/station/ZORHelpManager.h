#pragma once

#include <string>
#include <string_view>

namespace zor {

class ZORHelpManager {
public:
    static ZORHelpManager& sharedHelpManager();
    /// Opens the help book there through the toolkit.
    void openHelpAnchor(std::string_view anchor);
    /// The anchor asked for last; empty before the first.
    const std::string& lastAnchor() const { return lastAnchor_; }

private:
    std::string lastAnchor_;
};

}  // namespace zor
