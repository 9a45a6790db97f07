#include "dashboard/ZORDashboardPlugIn.h"
#include "host/foundation/KeyedArchiver.h"
#include "host/foundation/SafeFile.h"
#include "host/views/Toolkit.h"

namespace zor {

void ZORDashboardPlugIn::editDashboard(const ObjectPtr&) {
    ask(editView_, [](auto& canvas) { canvas.setEditMode(true); });
}

void ZORDashboardPlugIn::exitEditMode(const ObjectPtr&) {
    unselectAllObjects();
    ask(editView_, [](auto& canvas) {
        canvas.setEditMode(false);
        canvas.setDrawGridLines(false);
    });
    hidePropertyPanel();
}

void ZORDashboardPlugIn::exportDashboard(const ObjectPtr&) {
    const std::shared_ptr<SavePanel> panel = Toolkit::current().makeSavePanel();
    const std::string suggestedName = title().value_or("Unnamed");
    panel->allowedFileTypes = {"zordashboard"};
    panel->nameFieldStringValue = suggestedName;
    const auto canvas = dashboardEditViewFromView(view());
    if (!canvas) return;
    std::weak_ptr<Object> weakSelf = weak_from_this();
    panel->beginSheetModalForWindow(view()->window(), [=](PanelResponse response) {
        if (response == PanelResponse::ok) {
            const auto self = std::dynamic_pointer_cast<ZORDashboardPlugIn>(weakSelf.lock());
            const auto station = ask(self, [](const auto& dashboard) { return dashboard.agent(); });
            writeExport(panel->path(), canvas, suggestedName,
                        station ? std::optional(station->name()) : std::nullopt);
        }
        panel->orderOut();
    });
}

void ZORDashboardPlugIn::writeExport(const std::string& path, const std::shared_ptr<ZORDashboardEditView>& canvas,
                                     const std::string& title, const std::optional<std::string>& agentName) {
    Value::Dictionary root{{"editView", canvas}, {"title", title}};
    if (agentName) root["agentName"] = *agentName;
    const auto data = KeyedArchiver::archivedDataWithRootObject(std::move(root));
    // A failed export is silent.
    if (data) (void)writeFileAtomically(path, *data);
}

void ZORDashboardPlugIn::duplicatePlugIn(const ObjectPtr&) {
    ask(siteWindowController(), [&](auto& controller) { controller.addPlugIn(copyWithZone(), true, true); });
}

}  // namespace zor
