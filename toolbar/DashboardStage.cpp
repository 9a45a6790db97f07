#include "toolbar/DashboardStage.h"

#include <algorithm>

#include "host/views/ControlColors.h"

namespace zor {

namespace {

constexpr double shadowOffset = 1.5;
constexpr double noticeSize = 13;

/// As large as fits around the middle of `area`; nothing is enlarged.
Rect fitted(Size size, const Rect& area) {
    const double scale = std::min({1.0, area.width / size.width, area.height / size.height});
    const double width = size.width * scale, height = size.height * scale;
    return {area.x + (area.width - width) / 2, area.y + (area.height - height) / 2, width, height};
}

std::shared_ptr<ZORDashboardEditView> canvasOf(const std::shared_ptr<ZORDashboardPlugIn>& dashboard) {
    return ask(dashboard, [](const ZORDashboardPlugIn& shown) { return shown.editView(); });
}

}  // namespace

/// Whatever changes in the window changes the picture.
class DashboardStage::Peer : public WindowPeer {
public:
    explicit Peer(std::function<void()> changed) : changed_(std::move(changed)) {}
    void show() override {}
    void hide() override {}
    void titleChanged() override {}
    void frameChanged() override {}
    void contentChanged() override {}
    void needsDisplay(const Rect&) override { changed_(); }
    void beginSheet(Window&) override {}
    void endSheet(Window&) override {}

private:
    std::function<void()> changed_;
};

DashboardStage::DashboardStage(std::shared_ptr<ZORDashboardPlugIn> dashboard, std::function<void()> changed)
    : dashboard_(std::move(dashboard)) {
    const auto canvas = canvasOf(dashboard_);
    if (!canvas) return;
    // Large enough that no part of the canvas is scrolled away.
    const Rect area = unionRect(canvas->frame(), {0, 0, 1, 1});
    const auto root = dashboard_->view();
    root->setFrame({0, 0, area.maxX() + ScrollView::rulerThickness, area.maxY()});
    window_ = std::make_shared<Window>();
    window_->setContentViewController(dashboard_, root);
    window_->setPeer(std::make_shared<Peer>(std::move(changed)));
}

void DashboardStage::draw(DrawingContext& context, const Rect& area) const {
    const auto canvas = canvasOf(dashboard_);
    if (!canvas || canvas->bounds().isEmpty() || !isDrawable(canvas->frame())) {
        context.drawText("No preview", area, Font{.size = noticeSize}, ControlColors::current().quiet,
                         TextAlignment::center, VerticalAlignment::center);
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
