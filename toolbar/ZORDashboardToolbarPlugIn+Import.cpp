#include "host/foundation/ClassRegistry.h"
#include "host/foundation/Log.h"
#include "host/foundation/SafeFile.h"
#include "host/views/Toolkit.h"
#include "toolbar/ZORDashboardToolbarPlugIn.h"

namespace zor {

namespace {

std::string warningFor(const std::optional<std::string>& agentName) {
    return "This Dashboard was exported from a Site Document configured for the " + agentName.value_or("(null)") +
           ".\n\nSince property names can vary between agents, some widgets may need to be relinked to a property in "
           "this agent.";
}

}  // namespace

void ZORDashboardToolbarPlugIn::importDashboard(const ObjectPtr&) {
    const std::shared_ptr<OpenPanel> panel = Toolkit::current().makeOpenPanel();
    panel->allowedFileTypes = {"zordashboard", "qm4dashboard", "qmxdashboard"};
    std::weak_ptr<Object> weakSelf = weak_from_this();
    auto* window = ask(siteWindowController(), [](const auto& controller) { return controller.window().get(); });
    panel->beginSheetModalForWindow(window, [=](PanelResponse response) {
        const auto self = std::dynamic_pointer_cast<ZORDashboardToolbarPlugIn>(weakSelf.lock());
        if (response == PanelResponse::ok && self) {
            self->importFile(panel);
        } else {
            panel->orderOut();
        }
    });
}

void ZORDashboardToolbarPlugIn::importFile(const std::shared_ptr<OpenPanel>& panel) {
    // What cannot be read leaves everything absent, and the warning says so in its way.
    const auto data = readFile(panel->path());
    UnarchivingOptions options;
    options.delegate = this;
    const Value root = data ? KeyedUnarchiver::unarchivedRoot(*data, options).valueOr({}) : Value();
    auto canvas = root["editView"].as<ZORDashboardEditView>();
    const auto title = root["title"].string();
    const auto agentName = root["agentName"].string();
    if (agentName && agent() && *agentName == agent()->name()) {
        installDashboard(canvas, title);
        panel->orderOut();
        return;
    }
    const std::shared_ptr<Alert> alert = Toolkit::current().makeAlert();
    alert->messageText = "Warning";
    alert->informativeText = warningFor(agentName);
    alert->buttons = {"OK"};
    std::weak_ptr<Object> weakSelf = weak_from_this();
    const auto controller = ask(agent(), [](const Agent& station) { return station.siteWindowController(); });
    auto* window = ask(controller, [](const auto& owner) { return owner.window().get(); });
    alert->beginSheetModalForWindow(window, [weakSelf, alert, canvas, title](int code) {
        const auto self = std::dynamic_pointer_cast<ZORDashboardToolbarPlugIn>(weakSelf.lock());
        if (self && code == alertFirstButtonReturn) self->installDashboard(canvas, title);
    });
}

void ZORDashboardToolbarPlugIn::installDashboard(const std::shared_ptr<ZORDashboardEditView>& canvas,
                                                 const std::optional<std::string>& title) {
    const auto dashboard = dashboardWithCanvas(canvas, title);
    if (!dashboard) return;
    ask(siteWindowController(), [&](auto& controller) { controller.addPlugIn(dashboard, true); });
    relinkDashboardWidgetsToProperties(canvas);
}

void ZORDashboardToolbarPlugIn::relinkDashboardWidgetsToProperties(
    const std::shared_ptr<ZORDashboardEditView>& canvas) {
    if (!canvas) return;
    for (auto& widget : canvas->widgets()) {
        const auto client = std::dynamic_pointer_cast<PropertyClient>(widget.targetView());
        if (!client) continue;
        const auto name = client->propertyName();
        client->setProperty(name && agent() ? agent()->properties().find(*name) : nullptr);
        logLine("OK");
    }
}

const ClassRecord* ZORDashboardToolbarPlugIn::unarchiverCannotDecodeObjectOfClassName(const std::string& className,
                                                                                      std::span<const std::string>) {
    std::string candidate = className == "ZORDirectionGaugeView" ? "ZORRoundGaugeView"
                            : className == "DashboardEditView"   ? "ZORDashboardEditView"
                                                                 : "NSNull";
    if (className.starts_with("QM4")) candidate = "ZOR" + className.substr(3);
    return ClassRegistry::shared().find(candidate);
}

}  // namespace zor
