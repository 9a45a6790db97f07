#include "dashboard/ZORDashboardPlugIn.h"

namespace zor {

void ZORDashboardPlugIn::createRubberBand() {
    shapeLayer_ = std::make_shared<ShapeLayer>();
    shapeLayer_->setLineWidth(1.0);
    shapeLayer_->setStrokeColor(Color::black());
    shapeLayer_->setFillColor(Color::clear());
    shapeLayer_->setLineDashPattern({10, 5});
    ask(editView_, [&](View& canvas) { canvas.addSublayer(shapeLayer_); });
    shapeLayer_->addAnimation({.keyPath = "lineDashPhase",
                               .fromValue = 0.0,
                               .toValue = 15.0,
                               .duration = 0.75,
                               .repeatsForever = true},
                              "linePhase");
}

void ZORDashboardPlugIn::moveRubberBand(const Rect& rect) {
    Path path;
    path.moveTo({rect.x, rect.y})
        .lineTo({rect.x + rect.width, rect.y})
        .lineTo({rect.x + rect.width, rect.y + rect.height})
        .lineTo({rect.x, rect.y + rect.height})
        .close();
    ask(shapeLayer_, [&](ShapeLayer& layer) { layer.setPath(std::move(path)); });
}

void ZORDashboardPlugIn::destroyRubberBand() {
    ask(shapeLayer_, [](ShapeLayer& layer) { layer.removeFromSuperlayer(); });
    shapeLayer_.reset();
}

void ZORDashboardPlugIn::updateRubberBand(bool extend) {
    Rect band{mouseDownPoint_.x, mouseDownPoint_.y, currentDraggedPoint_.x - mouseDownPoint_.x,
              currentDraggedPoint_.y - mouseDownPoint_.y};
    moveRubberBand(band);
    if (band.width < 0) {
        band.x += band.width;
        band.width = -band.width;
    }
    if (band.height < 0) {
        band.y += band.height;
        band.height = -band.height;
    }
    WidgetList touched, left;
    for (auto& widget : editView_->widgets()) {
        const bool covered = intersectsRect(band, widget.frame());
        if (covered && !widget.selected()) {
            touched.push_back(sharedWidget(widget));
        } else if (!covered && widget.selected() && !extend) {
            left.push_back(sharedWidget(widget));
        }
    }
    unselectObjects(left);
    selectObjects(touched);
}

}  // namespace zor
