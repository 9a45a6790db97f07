#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/pages/RenderGate.h"
#include "host/station/SiteDocument.h"
#include "web/WebServer.h"

namespace zor {

/// What a browser sees of the open Site Documents: at "/" what their plug-ins advertise, below "/plugins/ID/" what the
/// plug-in of that identifier answers.
class SitePages {
public:
    /// Called on the main thread only.
    using Documents = std::function<std::vector<std::shared_ptr<SiteDocument>>()>;

    explicit SitePages(Documents documents) : documents_(std::move(documents)) {}
    explicit SitePages(const std::shared_ptr<SiteDocument>& document);

    /// Worker threads, several at once; what concerns views is done on the main thread while the worker waits. 404
    /// where nothing answers, 503 for pictures while too many wait for theirs, and for everything while the program
    /// quits. A picture waits a moment for the past that its plots have asked for, without keeping others from theirs.
    WebAnswer answer(const WebRequest& request);

private:
    struct HostedPlugIn;
    struct Asked;

    WebAnswer index() const;
    WebAnswer plugInsAnswer(const WebRequest& request);
    WebAnswer answerOf(ZORPlugIn& plugIn, const WebRequest& request);
    std::vector<HostedPlugIn> hostedPlugIns() const;
    std::vector<Asked> askForAdvertisements() const;

    Documents documents_;
    RenderGate gate_;
};

}  // namespace zor
