#include "dashboard/ZORDashboardPlugIn.h"
#include "host/views/Printing.h"
#include "host/views/Toolkit.h"

namespace zor {

std::shared_ptr<const Bytes> ZORDashboardPlugIn::picture(std::shared_ptr<const Bytes> (View::*render)(const Rect&)) {
    auto copy = std::static_pointer_cast<ZORDashboardPlugIn>(copyWithZone());
    // In its container's corner, so that nothing of a canvas that lies elsewhere is cut off.
    const Rect page = editView_->bounds();
    copy->editView()->setFrame(page);
    Window window;
    window.setContentViewController(copy, copy->view());
    window.contentView()->setFrame(page);
    // The container rather than the canvas alone, for the paper behind the widgets.
    return (copy->canvasContainer().get()->*render)(page);
}

std::shared_ptr<const Bytes> ZORDashboardPlugIn::pdfRepresentation() {
    if (!editView_) return Toolkit::current().pdfOfDrawing({}, [](DrawingContext&) {});
    return picture(&View::dataWithPDFInsideRect);
}

std::shared_ptr<const Bytes> ZORDashboardPlugIn::pngImageWithScale(double /*scale*/) {
    if (!editView_) return {};
    return picture(&View::dataWithPNGInsideRect);
}

void ZORDashboardPlugIn::printDocument() {
    PrintSettings settings;
    settings.orientation = PaperOrientation::landscape;
    settings.horizontal = Pagination::fit;
    settings.vertical = Pagination::fit;
    PrintOperation operation{editView_, settings, weak_from_this()};
    operation.runModalForWindow(ask(editView_, [](const View& canvas) { return canvas.window(); }));
}

}  // namespace zor
