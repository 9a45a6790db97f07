#include "dashboard/ZORDashboardEditView.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/Coder.h"
#include "host/views/DrawingContext.h"

namespace zor {

const ClassRecord& ZORDashboardEditView::staticClass() {
    static const ClassRecord& record = ClassBuilder<ZORDashboardEditView>("ZORDashboardEditView",
                                                                          &ZORImageView::staticClass())
                                           .creatable()
                                           .action("copy:", &ZORDashboardEditView::forwardCopy)
                                           .action("paste:", &ZORDashboardEditView::forwardPaste)
                                           .property("editMode", &ZORDashboardEditView::editMode,
                                                     &ZORDashboardEditView::setEditMode)
                                           .property("drawGridLines", &ZORDashboardEditView::drawGridLines,
                                                     &ZORDashboardEditView::setDrawGridLines)
                                           .property("step", &ZORDashboardEditView::step, &ZORDashboardEditView::setStep)
                                           .property("description", &ZORDashboardEditView::description)
                                           .property("isFlipped", &ZORDashboardEditView::isFlipped)
                                           .property("acceptsFirstResponder",
                                                     &ZORDashboardEditView::acceptsFirstResponder)
                                           .property("showPositionProperties",
                                                     &ZORDashboardEditView::showPositionProperties)
                                           .property("minWidth", &ZORDashboardEditView::minWidth)
                                           .property("minHeight", &ZORDashboardEditView::minHeight)
                                           .registered();
    return record;
}

std::shared_ptr<ZORDashboardEditView> ZORDashboardEditView::initWithFrame(const Rect& frame) {
    auto canvas = std::make_shared<ZORDashboardEditView>();
    canvas->setFrame(frame);
    canvas->setDrawPlaceholderImage(false);
    canvas->setDrawImage(true);
    canvas->initCommon();
    return canvas;
}

void ZORDashboardEditView::encodeWithCoder(Encoder& encoder) {
    ZORImageView::encodeWithCoder(encoder);
    encoder.encodeBool("editMode", editMode_);
    encoder.encodeBool("drawGridLines", drawGridLines_);
}

bool ZORDashboardEditView::initWithCoder(Decoder& decoder) {
    if (!ZORImageView::initWithCoder(decoder)) return false;
    setDrawPlaceholderImage(false);
    setEditMode(decoder.decodeBool("editMode"));
    setDrawGridLines(decoder.decodeBool("drawGridLines"));
    initCommon();
    return true;
}

ObjectPtr ZORDashboardEditView::copy() {
    auto result = std::static_pointer_cast<ZORDashboardEditView>(ZORImageView::copy());
    result->setEditMode(editMode_);
    result->setDrawGridLines(drawGridLines_);
    std::vector<std::shared_ptr<ZORWidgetHostView>> copies;
    for (auto& widget : widgets()) copies.push_back(std::static_pointer_cast<ZORWidgetHostView>(widget.copy()));
    result->addSubviews(copies);
    return result;
}

void ZORDashboardEditView::setEditMode(bool editMode) {
    editMode_ = editMode;
    for (auto& widget : widgets()) widget.setEditable(editMode);
    drawGridLines_ = true;
    setNeedsDisplay(true);
}

void ZORDashboardEditView::addSubview(const std::shared_ptr<View>& widget) {
    if (!widget || !widget->isKindOf(ZORWidgetHostView::staticClass())) return;
    ZORImageView::addSubview(widget);
    numberWidgets();
}

void ZORDashboardEditView::addSubviews(const std::vector<std::shared_ptr<ZORWidgetHostView>>& widgets) {
    if (std::ranges::equal(widgets, subviews())) {
        // Each moved to the top in turn: they end as they stand.
        setNeedsDisplay(true);
    } else {
        for (const auto& widget : widgets) ZORImageView::addSubview(widget);
    }
    if (!widgets.empty()) numberWidgets();
}

void ZORDashboardEditView::numberWidgets() {
    std::int64_t number = 0;
    for (auto& each : widgets()) each.setZOrder(++number);
}

void ZORDashboardEditView::drawRect(DrawingContext& context, const Rect& dirty) {
    ZORImageView::drawRect(context, dirty);
    if (editMode_ && drawGridLines_) drawGrid(context);
}

void ZORDashboardEditView::drawGrid(DrawingContext& context) const {
    // A step below 1 would never advance.
    if (!isDrawable(frame()) || !(step_ >= 1)) return;
    const double width = frame().width;
    const double height = frame().height;
    Path lines;
    // The counters are whole numbers: the fraction of a step is dropped at every line.
    for (double x = 0; width > x; x = std::trunc(x + step_)) lines.addSegment({x, 0}, {x, height});
    for (double y = 0; height > y; y = std::trunc(y + step_)) lines.addSegment({0, y}, {width, y});
    context.strokePath(lines, {.color = Color::gray(), .width = 1, .dash = {3.0, 3.0}, .dashPhase = 0});
}

void ZORDashboardEditView::setImage(const std::shared_ptr<Image>& image) {
    if (image && superview()) {
        const Size room = superview()->bounds().size();
        const double ratio = image->size().width / image->size().height;
        if (room.width / room.height < ratio) {
            image->setSize({room.width, room.width / ratio});
        } else {
            image->setSize({room.height * ratio, room.height});
        }
    }
    ZORImageView::setImage(image);
}

double ZORDashboardEditView::minWidth() const { return std::numeric_limits<float>::max(); }
double ZORDashboardEditView::minHeight() const { return std::numeric_limits<float>::max(); }

void ZORDashboardEditView::keyDown(const EventPtr& event) { ZORImageView::keyDown(event); }

void ZORDashboardEditView::forward(std::string_view action, const ObjectPtr& sender) {
    if (auto* next = nextResponder()) next->tryToPerform(action, sender);
}

}  // namespace zor
