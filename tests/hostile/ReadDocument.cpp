#include <sys/mman.h>
#include <unistd.h>

#include "host/foundation/KeyedArchiver.h"
#include "host/station/SiteDocument.h"
#include "tests/dashboard/PlugInBundle.h"
#include "tests/hostile/SampleDocuments.h"

namespace zor::test {

namespace {

/// A file in memory whose content changes from call to call.
class MemoryFile {
public:
    std::string holding(const Bytes& data) const {
        const bool written = ::ftruncate(number_, 0) == 0 &&
                             ::pwrite(number_, data.data(), data.size(), 0) == static_cast<ssize_t>(data.size());
        return written ? "/proc/self/fd/" + std::to_string(number_) : "";
    }

private:
    const int number_ = ::memfd_create("document", MFD_CLOEXEC);
};

const std::vector<std::shared_ptr<Bundle>>& bundles() {
    static const std::vector<std::shared_ptr<Bundle>> all{plugInBundle().bundle()};
    return all;
}

}  // namespace

Status openSite(const Bytes& data) {
    FakeToolkit::install();
    const auto document = SiteDocument::fromArchive(data, bundles());
    if (!document) return document.error();
    const auto again = (*document)->archive();
    (*document)->close();
    return again ? success() : Status(again.error());
}

Status importDashboard(const Bytes& data) {
    static const MemoryFile file;
    auto& toolkit = FakeToolkit::install();
    toolkit.openAnswers.push_back({PanelResponse::ok, file.holding(data)});
    toolkit.alertAnswers.push_back(alertFirstButtonReturn);
    const auto agent = Agent::withName("Garden");
    agent->addProperty("outdoorTemperature", "Outdoor Temperature", Quantity::temperature);
    const auto document = SiteDocument::create(agent, bundles());
    const auto toolbar = std::dynamic_pointer_cast<ZORDashboardToolbarPlugIn>(document->entryPlugIns().at(0));
    toolbar->importDashboard({});
    Status status = Error{"no dashboard was added"};
    const auto dashboard =
        std::dynamic_pointer_cast<ZORDashboardPlugIn>(document->siteWindowController()->selectedPlugIn());
    if (dashboard) {
        dashboard->pdfRepresentation();
        const auto again = KeyedArchiver::archivedDataWithRootObject(Value(dashboard));
        status = again ? success() : Status(again.error());
    }
    document->close();
    return status;
}

Status pasteWidgets(const Bytes& data) {
    auto& toolkit = FakeToolkit::install();
    toolkit.pasteboard.setDataForType(data, widgetPasteType);
    const auto dashboard = ZORDashboardPlugIn::initWithAgent(Agent::withName("Garden"), {}, WidgetList{}, {400, 300});
    dashboard->editDashboard({});
    dashboard->paste({});
    const bool pasted = !dashboard->editView()->subviews().empty();
    dashboard->undo({});
    return pasted ? success() : Status(Error{"nothing was pasted"});
}

Status readDocument(DocumentKind kind, const Bytes& data) {
    switch (kind) {
        case DocumentKind::site:
            return openSite(data);
        case DocumentKind::exported:
            return importDashboard(data);
        case DocumentKind::pasteboard:
            return pasteWidgets(data);
    }
    return Error{"a document of no kind"};
}

}  // namespace zor::test
