#include "host/station/ZORPropertyPanelController.h"

#include "host/foundation/ClassBuilder.h"
#include "host/station/SiteDocument.h"
#include "host/views/Toolkit.h"

namespace zor {

namespace {

constexpr Rect initialFrame = {0, 0, 320, 300};

}  // namespace

const ClassRecord& ZORPropertyPanelController::staticClass() {
    static const ClassRecord& record =
        ClassBuilder<ZORPropertyPanelController>("ZORPropertyPanelController", &Object::staticClass())
            .property("window", &ZORPropertyPanelController::window)
            .property("targetObject", &ZORPropertyPanelController::targetObject)
            .property("visible", &ZORPropertyPanelController::isVisible)
            .registered();
    return record;
}

std::shared_ptr<ZORPropertyPanelController> ZORPropertyPanelController::initWithAgent(
    const std::shared_ptr<Agent>& agent, const ObjectPtr& targetObject, const SettingList* properties) {
    auto panel = std::make_shared<ZORPropertyPanelController>();
    panel->agent_ = agent;
    panel->targetObject_ = targetObject;
    panel->properties_ = properties;
    panel->window_ = std::make_shared<Window>();
    panel->window_->setFrame(initialFrame);
    return panel;
}

void ZORPropertyPanelController::reload() {
    // The observer may replace itself.
    const auto observer = observer_;
    if (observer) observer();
}

bool ZORPropertyPanelController::isVisible() const {
    return ask(window_, [](const Window& panel) { return panel.isVisible(); });
}

void ZORPropertyPanelController::showWindow() {
    if (!peer_) peer_ = Toolkit::current().makePropertyPanelPeer(*this);
    ask(window_, [](Window& panel) { panel.show(); });
}

void ZORPropertyPanelController::close() {
    ask(window_, [](Window& panel) { panel.close(); });
}

void ZORPropertyPanelController::noteChange() {
    const auto site = ask(agent_, [](const Agent& agent) { return agent.siteWindowController(); });
    const auto document = ask(site, [](const SiteWindowController& controller) { return controller.document(); });
    ask(document, [](SiteDocument& changed) { changed.setDirty(true); });
}

}  // namespace zor
