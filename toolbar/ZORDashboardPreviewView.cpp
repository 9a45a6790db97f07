#include "toolbar/ZORDashboardPreviewView.h"

#include "host/foundation/ClassBuilder.h"
#include "host/views/ControlColors.h"

namespace zor {

namespace {

constexpr double cornerRadius = 8;
constexpr double margin = 14;
constexpr double captionHeight = 40;
const Font captionFont{.size = 20, .bold = true};
/// Of the ground: how far it is from the form's towards its text.
constexpr double groundTone = 0.07;

}  // namespace

const ClassRecord& ZORDashboardPreviewView::staticClass() {
    using T = ZORDashboardPreviewView;
    static const ClassRecord& record = ClassBuilder<T>("ZORDashboardPreviewView", &View::staticClass())
                                           .creatable()
                                           .property("owner", &T::owner, &T::setOwner)
                                           .property("captioned", &T::captioned, &T::setCaptioned)
                                           .action("takeRowFrom:", &T::takeRowFrom)
                                           .registered();
    return record;
}

void ZORDashboardPreviewView::takeRowFrom(const std::shared_ptr<TableView>& list) {
    const std::int64_t row = list ? list->selectedRow() : -1;
    if (row == row_) return;
    row_ = row;
    stage_.reset();
    setNeedsDisplay(true);
}

void ZORDashboardPreviewView::viewDidMoveToWindow() {
    if (!window()) stage_.reset();
}

void ZORDashboardPreviewView::drawRect(DrawingContext& context, const Rect&) {
    if (!stage_) {
        const auto plugIn = owner();
        stage_.emplace(plugIn && row_ >= 0 ? plugIn->dashboardForRow(static_cast<std::size_t>(row_)) : nullptr,
                       [this] { setNeedsDisplay(true); });
    }
    Rect area = bounds();
    if (captioned_) {
        drawCaption(context, {area.x, area.y, area.width, captionHeight});
        area = {area.x, area.y + captionHeight, area.width, area.height - captionHeight};
    }
    const auto& colors = ControlColors::current();
    const Path outline = Path::roundedRect(insetRect(area, 0.5, 0.5), cornerRadius);
    context.fillPath(outline, colors.ground.mixedWith(colors.text, groundTone));
    context.strokePath(outline, {.color = colors.edge});
    stage_->draw(context, insetRect(area, margin, margin));
}

void ZORDashboardPreviewView::drawCaption(DrawingContext& context, const Rect& area) const {
    const auto title = ask(owner(), [](const auto& plugIn) { return plugIn.dashboardTitle(); });
    context.drawText(title.value_or(""), area, captionFont, ControlColors::current().text, TextAlignment::left,
                     VerticalAlignment::top);
}

}  // namespace zor
