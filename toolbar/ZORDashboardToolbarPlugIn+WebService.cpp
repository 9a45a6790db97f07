#include "host/foundation/MainQueue.h"
#include "host/station/SiteDocument.h"
#include "toolbar/ZORDashboardToolbarPlugIn.h"

namespace zor {

namespace {

/// "dir/ID.png" is split into "ID" and "png"; a last component without a dot has no extension.
struct Resource {
    std::string identifier;
    std::string extension;

    explicit Resource(std::string path) {
        while (path.ends_with('/')) path.pop_back();
        const std::string last = path.substr(path.rfind('/') + 1);
        const std::size_t dot = last.rfind('.');
        identifier = last.substr(0, dot);
        if (dot != std::string::npos) extension = last.substr(dot + 1);
    }
};

std::string headingFor(const std::string& baseURL, const ZORDashboardPlugIn& dashboard, const std::string& title) {
    return "<h2><a href=\"" + baseURL + "/" + dashboard.uniqueIdentifier() + ".png\" target=\"_blank\">" + title +
           "</a></h2>";
}

/// Drawn on the main thread, whatever the calling one; empty for an extension that is not served.
std::shared_ptr<DataResponse> render(ZORDashboardPlugIn& dashboard, const std::string& extension) {
    std::shared_ptr<const Bytes> data;
    std::string contentType;
    MainQueue::shared().sync([&] {
        if (extension == "pdf") {
            data = dashboard.pdfRepresentation();
            contentType = "application/pdf";
        } else if (extension == "png") {
            data = dashboard.pngImageWithScale(1.0);
            contentType = "image/png";
        }
    });
    return data ? DataResponse::responseWithData(data, contentType) : nullptr;
}

}  // namespace

std::string ZORDashboardToolbarPlugIn::webServiceAdvertisementForBaseURL(const std::string& baseURL) {
    std::string advertisement;
    MainQueue::shared().sync([&] { advertisement = webServiceAdvertisementOnMainThreadForBaseURL(baseURL); });
    return advertisement;
}

std::string ZORDashboardToolbarPlugIn::webServiceAdvertisementOnMainThreadForBaseURL(const std::string& baseURL) {
    std::string html = "<h1>REST API for Dashboard</h1>";
    html += "You can view PNG representations of this Site Document's available Dashboards here.<p>";
    const auto controller = siteWindowController();
    const auto document = ask(controller, [](const auto& owner) { return owner.document(); });
    for (const auto& each : ask(document, [](const auto& site) { return site.windowControllers(); })) {
        const auto shown = std::dynamic_pointer_cast<ZORDashboardPlugIn>(each->contentViewController());
        if (shown) html += headingFor(baseURL, *shown, each->window() ? each->window()->title() : std::string());
    }
    if (!controller) return html;
    for (const auto& entry : controller->itemsWithRepresentedObjectsOfClass(ZORDashboardPlugIn::staticClass())) {
        html += headingFor(baseURL, static_cast<ZORDashboardPlugIn&>(*entry.representedObject), entry.title);
    }
    return html;
}

std::shared_ptr<DataResponse> ZORDashboardToolbarPlugIn::webServiceResponseForRequest(const WebRequest& request) {
    const Resource resource(request.path);
    std::shared_ptr<DataResponse> response;
    auto controller = siteWindowController();
    if (!controller) return response;
    // Every match is drawn and the last one with a picture wins.
    const auto consider = [&](ZORDashboardPlugIn& dashboard) {
        if (dashboard.uniqueIdentifier() != resource.identifier) return;
        if (auto rendered = render(dashboard, resource.extension)) response = std::move(rendered);
    };
    for (const auto& entry : controller->itemsWithRepresentedObjectsOfClass(ZORDashboardPlugIn::staticClass())) {
        consider(static_cast<ZORDashboardPlugIn&>(*entry.representedObject));
    }
    if (!response) {
        std::vector<std::shared_ptr<WindowController>> windows;
        MainQueue::shared().sync([&] {
            windows = ask(controller->document(), [](const auto& site) { return site.windowControllers(); });
        });
        for (const auto& each : windows) {
            std::shared_ptr<ZORDashboardPlugIn> shown;
            MainQueue::shared().sync(
                [&] { shown = std::dynamic_pointer_cast<ZORDashboardPlugIn>(each->contentViewController()); });
            if (shown) consider(*shown);
            // Whatever may be the last reference to a view goes where views live.
            MainQueue::shared().post([shown = std::move(shown)] {});
        }
        MainQueue::shared().post([windows = std::move(windows)] {});
    }
    MainQueue::shared().post([controller = std::move(controller)] {});
    return response;
}

}  // namespace zor
