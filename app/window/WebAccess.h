#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "app/WebDefaults.h"
#include "app/pages/SitePages.h"

namespace zor {

/// Whether browsers see the dashboards of the open Site Documents, as the person chose it; remembered from start to
/// start.
class WebAccess {
public:
    struct Choice {
        bool serves = false;
        /// To other machines as well, which must know the token.
        bool servesOthers = false;
        std::uint16_t port = usualWebPort;

        bool operator==(const Choice&) const = default;
    };

    /// Serves at once where that was chosen last.
    explicit WebAccess(SitePages::Documents documents);
    ~WebAccess();

    const Choice& choice() const { return choice_; }
    void choose(const Choice& choice);

    /// Where browsers find the page, with the token where one is needed; empty while nothing is served.
    std::vector<std::string> addresses() const;
    /// Why nothing is served though it was chosen; empty otherwise.
    const std::string& trouble() const { return trouble_; }

private:
    void start();

    std::shared_ptr<SitePages> pages_;
    Choice choice_;
    std::unique_ptr<WebServer> server_;
    std::string trouble_;
};

}  // namespace zor
