#include "host/instruments/ZORTextFieldView.h"
#include "host/views/Toolkit.h"
#include "toolbar/ZORDashboardToolbarPlugIn.h"

namespace zor {

std::shared_ptr<ZORDashboardPlugIn> ZORDashboardToolbarPlugIn::cleanSlatePlugIn() {
    constexpr std::string_view text = "<INSERT TITLE HERE>";
    const Font font = Font::named("Helvetica Neue", 28);
    const Size size = Toolkit::current().sizeOfText(text, font);
    auto label = ZORWidgetHostView::textFieldWithRect({10, 12, 1.1 * size.width, size.height});
    auto field = std::static_pointer_cast<ZORTextFieldView>(label->targetView());
    field->setFont(font);
    field->setAlignment(TextAlignment::center);
    field->setUseProperty(false);
    field->setStringToDraw(std::string(text));

    auto dashboard =
        ZORDashboardPlugIn::initWithAgent(agent(), siteWindowController(), WidgetList{std::move(label)}, {1024, 768});
    if (!dashboard) return {};
    dashboard->editView()->setEditMode(true);
    dashboard->setTitle("Blank");
    dashboard->view();
    return dashboard;
}

}  // namespace zor
