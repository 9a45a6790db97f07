#pragma once

#include <memory>
#include <string>

#include "host/station/SiteDocument.h"
#include "web/WebServer.h"

namespace zor {

/// What a browser sees of one Site Document: a page with every dashboard's picture, and the pictures.
class SitePages {
public:
    explicit SitePages(std::shared_ptr<SiteDocument> document);
    /// Worker threads; views are drawn on the main thread, the worker waits. 503 while the program quits.
    WebAnswer answer(const WebRequest& request) const;

private:
    std::string indexPage() const;
    WebAnswer picture(const std::string& identifier, bool pdf) const;

    std::weak_ptr<SiteDocument> document_;
};

/// Text that stands for itself in HTML, in an attribute too.
std::string htmlEscaped(std::string_view text);

}  // namespace zor
