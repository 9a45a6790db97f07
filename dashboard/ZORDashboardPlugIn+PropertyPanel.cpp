#include "dashboard/ZORDashboardPlugIn.h"
#include "host/views/Toolkit.h"

namespace zor {

void ZORDashboardPlugIn::showPropertyPanel() {
    const auto widget = selectedObjects_.empty() ? nullptr : selectedObjects_.front();
    const Point mouse = Toolkit::current().mouseLocation();
    const ObjectPtr target = widget ? widget->targetView() : nullptr;
    const SettingList* properties = widget ? &widget->properties() : nullptr;

    if (propertyPanelController_) {
        propertyPanelController_->setTargetObject(target);
        propertyPanelController_->setProperties(properties);
    } else {
        propertyPanelController_ = ZORPropertyPanelController::initWithAgent(agent(), target, properties);
        // The pointer lies just inside the panel's top left corner.
        const auto& window = propertyPanelController_->window();
        const Size size = window->frame().size();
        window->setFrame({mouse.x - 10, mouse.y - size.height + 10, size.width, size.height});
    }
    propertyPanelController_->reload();
    if (widget && widget->title()) propertyPanelController_->window()->setTitle(*widget->title());
    if (!propertyPanelController_->window()->isVisible()) propertyPanelController_->showWindow();
}

void ZORDashboardPlugIn::hidePropertyPanel() {
    ask(propertyPanelController_, [](auto& panel) { panel.close(); });
}

}  // namespace zor
