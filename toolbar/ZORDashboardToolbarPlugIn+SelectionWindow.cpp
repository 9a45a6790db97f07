#include "host/station/SiteWindowController.h"
#include "toolbar/ZORDashboardToolbarPlugIn.h"

namespace zor {

namespace {

/// What the sheet ends with.
enum SheetCode { cancelCode = 0, doneCode = 1, importCode = 2 };

/// Puts `next` into the window's content where `shown` is there first.
void turnPage(const std::shared_ptr<Window>& window, const std::shared_ptr<View>& shown,
              const std::shared_ptr<View>& next) {
    const auto content = ask(window, [](const Window& sheet) { return sheet.contentView(); });
    if (!content || !shown || content->subviews().empty() || content->subviews().front() != shown) return;
    content->replaceSubview(shown, next);
}

}  // namespace

void ZORDashboardToolbarPlugIn::awakeFromNib() {
    const auto list = tableView();
    if (!list) return;
    std::vector<std::string> titles;
    for (const auto& entry : *dashboardsArray()) titles.push_back(entry["title"].asString());
    list->setRows(std::move(titles));
    list->selectRow(0);
    tableViewShouldSelectRow(list, 0);
}

bool ZORDashboardToolbarPlugIn::tableViewShouldSelectRow(const std::shared_ptr<TableView>&, std::size_t row) {
    const auto catalogue = dashboardsArray();
    if (row < catalogue->size()) {
        const Value& entry = (*catalogue)[row];
        ask(descriptionView(), [&](TextField& field) { field.setStringValue(entry["description"].asString()); });
        setDashboardTitle(entry["title"].asString());
    }
    return true;
}

void ZORDashboardToolbarPlugIn::showDashboardSelectionWindow() {
    // Asking for the view loads the interface the first time.
    view();
    const auto sheet = configurationWindow();
    const auto content = ask(sheet, [](const Window& window) { return window.contentView(); });
    const auto window = ask(siteWindowController(), [](const auto& controller) { return controller.window(); });
    if (!content || !window) return;
    const auto shown = content->subviews();
    for (const auto& each : shown) each->removeFromSuperview();
    if (const auto first = page1()) content->addSubview(first);
    std::weak_ptr<Object> weakSelf = weak_from_this();
    window->beginSheet(sheet, [weakSelf](int code) {
        const auto self = std::dynamic_pointer_cast<ZORDashboardToolbarPlugIn>(weakSelf.lock());
        if (!self) return;
        if (code == doneCode) self->addSelectedDashboard();
        if (code == importCode) self->importDashboard({});
    });
}

void ZORDashboardToolbarPlugIn::addSelectedDashboard() {
    // A list without a selection makes Done a Cancel.
    const std::int64_t row = ask(tableView(), [](const TableView& list) { return list.selectedRow(); });
    const auto dashboard = tableView() && row >= 0 ? dashboardForRow(static_cast<std::size_t>(row)) : nullptr;
    if (!dashboard) return;
    dashboard->setTitle(dashboardTitle());
    ask(siteWindowController(), [&](auto& controller) { controller.addPlugIn(dashboard, true); });
}

void ZORDashboardToolbarPlugIn::endSelectionSheet(int code) {
    const auto window = ask(siteWindowController(), [](const auto& controller) { return controller.window(); });
    ask(window, [&](Window& parent) { parent.endSheet(configurationWindow(), code); });
}

void ZORDashboardToolbarPlugIn::importClicked(const ObjectPtr&) { endSelectionSheet(importCode); }

void ZORDashboardToolbarPlugIn::doneClicked(const ObjectPtr&) { endSelectionSheet(doneCode); }

void ZORDashboardToolbarPlugIn::cancelClicked(const ObjectPtr&) { endSelectionSheet(cancelCode); }

void ZORDashboardToolbarPlugIn::continueClicked(const ObjectPtr&) { turnPage(configurationWindow(), page1(), page2()); }

void ZORDashboardToolbarPlugIn::backClicked(const ObjectPtr&) { turnPage(configurationWindow(), page2(), page1()); }

}  // namespace zor
