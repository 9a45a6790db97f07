#include "toolbar/ZORDashboardPreviewView.h"

#include <algorithm>

#include "host/foundation/ClassBuilder.h"

namespace zor {

namespace {

constexpr double cornerRadius = 8;
constexpr double margin = 12;
constexpr double shadowOffset = 1.5;
constexpr double captionHeight = 40;
const Font captionFont{.size = 20, .bold = true};
const Color ink = Color::rgb(0x1E2229);
const Color ground = Color::rgb(0xE4E7EC), edge = Color::rgb(0xC9CDD5), faint = Color::rgb(0x7A818D);

/// As large as fits around the middle of `area`; nothing is enlarged.
Rect fitted(Size size, const Rect& area) {
    const double scale = std::min({1.0, area.width / size.width, area.height / size.height});
    const double width = size.width * scale, height = size.height * scale;
    return {area.x + (area.width - width) / 2, area.y + (area.height - height) / 2, width, height};
}

}  // namespace

/// Whatever changes on the stage changes the picture.
class ZORDashboardPreviewView::StagePeer : public WindowPeer {
public:
    explicit StagePeer(ZORDashboardPreviewView& preview) : preview_(preview) {}
    void show() override {}
    void hide() override {}
    void titleChanged() override {}
    void frameChanged() override {}
    void contentChanged() override {}
    void needsDisplay(const Rect&) override { preview_.setNeedsDisplay(true); }
    void beginSheet(Window&) override {}
    void endSheet(Window&) override {}

private:
    ZORDashboardPreviewView& preview_;
};

const ClassRecord& ZORDashboardPreviewView::staticClass() {
    using T = ZORDashboardPreviewView;
    static const ClassRecord& record = ClassBuilder<T>("ZORDashboardPreviewView", &View::staticClass())
                                           .creatable()
                                           .property("owner", &T::owner, &T::setOwner)
                                           .property("captioned", &T::captioned, &T::setCaptioned)
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
    dashboard_.reset();
    setNeedsDisplay(true);
}

void ZORDashboardPreviewView::viewDidMoveToWindow() {
    if (window()) return;
    stage_.reset();
    dashboard_.reset();
}

void ZORDashboardPreviewView::prepareDashboard() {
    const auto plugIn = owner();
    if (dashboard_ || !plugIn || row_ < 0) return;
    dashboard_ = plugIn->dashboardForRow(static_cast<std::size_t>(row_));
    const auto canvas = ask(dashboard_, [](const ZORDashboardPlugIn& made) { return made.editView(); });
    if (!canvas) return;
    // Large enough that no part of the canvas is scrolled away.
    const Rect area = unionRect(canvas->frame(), {0, 0, 1, 1});
    const auto root = dashboard_->view();
    root->setFrame({0, 0, area.maxX() + ScrollView::rulerThickness, area.maxY()});
    stage_ = std::make_shared<Window>();
    stage_->setContentViewController(dashboard_, root);
    stage_->setPeer(std::make_shared<StagePeer>(*this));
}

void ZORDashboardPreviewView::drawRect(DrawingContext& context, const Rect&) {
    prepareDashboard();
    Rect area = bounds();
    if (captioned_) {
        const auto title = ask(owner(), [](const auto& plugIn) { return plugIn.dashboardTitle(); });
        context.drawText(title.value_or(""), {area.x, area.y, area.width, captionHeight}, captionFont, ink,
                         TextAlignment::left, VerticalAlignment::top);
        area = {area.x, area.y + captionHeight, area.width, area.height - captionHeight};
    }
    const Path outline = Path::roundedRect(insetRect(area, 0.5, 0.5), cornerRadius);
    context.fillPath(outline, ground);
    context.strokePath(outline, {.color = edge});
    drawDashboard(context, insetRect(area, margin, margin));
}

void ZORDashboardPreviewView::drawDashboard(DrawingContext& context, const Rect& area) const {
    const auto canvas = ask(dashboard_, [](const ZORDashboardPlugIn& made) { return made.editView(); });
    if (!canvas || canvas->bounds().isEmpty() || !isDrawable(canvas->frame())) {
        context.drawText("No preview", area, Font{.size = 13}, faint, TextAlignment::center, VerticalAlignment::center);
        return;
    }
    const Rect place = fitted(canvas->frame().size(), area);
    const double scale = place.width / canvas->frame().width;
    context.fillRect(offsetRect(place, 0, shadowOffset), Color::black().withAlpha(0.18));
    context.fillRect(place, Color::white());
    context.save();
    context.clipToRect(place);
    context.translate(place.x, place.y);
    context.scale(scale, scale);
    canvas->displayTree(context, canvas->bounds(), false);
    context.restore();
    context.strokePath(Path::rect(place), {.color = Color::black().withAlpha(0.15)});
}

}  // namespace zor
