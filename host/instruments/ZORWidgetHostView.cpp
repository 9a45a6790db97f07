#include "host/instruments/ZORWidgetHostView.h"

#include <cmath>

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/Coder.h"
#include "host/instruments/ZORImageView.h"

namespace zor {

namespace {

std::int64_t nextHash() {
    static std::int64_t last = 0;
    return ++last;
}

/// What a file may hold, with a zero for each number that is none.
Rect finite(const Rect& rect) {
    const auto number = [](double value) { return std::isfinite(value) ? value : 0.0; };
    return {number(rect.x), number(rect.y), number(rect.width), number(rect.height)};
}

}  // namespace

const ClassRecord& ZORWidgetHostView::staticClass() {
    using Self = ZORWidgetHostView;
    static const ClassRecord& record =
        ClassBuilder<Self>("ZORWidgetHostView", &View::staticClass())
            .creatable()
            .property("kind", &Self::kind)
            .property("targetView", &Self::targetView, &Self::setTargetView)
            .property("frameXCoordinate", &Self::frameXCoordinate, &Self::setFrameXCoordinate)
            .property("frameYCoordinate", &Self::frameYCoordinate, &Self::setFrameYCoordinate)
            .property("frameWidth", &Self::frameWidth, &Self::setFrameWidth)
            .property("frameHeight", &Self::frameHeight, &Self::setFrameHeight)
            .property("zOrder", &Self::zOrder, &Self::setZOrder)
            .property("selected", &Self::selected, &Self::setSelected)
            .property("allowResize", &Self::allowResize, &Self::setAllowResize)
            .property("editable", &Self::editable, &Self::setEditable)
            .property("inLiveResize", &Self::inLiveResize, &Self::setInLiveResize)
            .property("title", &Self::title, &Self::setTitle)
            .property("hash", &Self::hash)
            .property("mouseDownRelativeOffset", &Self::mouseDownRelativeOffset, &Self::setMouseDownRelativeOffset)
            .property("mouseDownPoint", &Self::mouseDownPoint, &Self::setMouseDownPoint)
            .property("clickOffsetX", &Self::clickOffsetX, &Self::setClickOffsetX)
            .property("clickOffsetY", &Self::clickOffsetY, &Self::setClickOffsetY)
            .registered();
    return record;
}

ZORWidgetHostView::ZORWidgetHostView() : hash_(nextHash()) {}

std::shared_ptr<ZORWidgetHostView> ZORWidgetHostView::initWithFrame(const Rect& frame) {
    auto widget = std::make_shared<ZORWidgetHostView>();
    widget->setFrame(frame);
    return widget;
}

std::shared_ptr<View> ZORWidgetHostView::targetView() const {
    return subviews().empty() ? nullptr : subviews().front();
}

void ZORWidgetHostView::setTargetView(const std::shared_ptr<View>& view) {
    while (const auto old = targetView()) {
        if (old == view && subviews().size() == 1) break;
        old->removeFromSuperview();
    }
    if (view) addSubview(view);
    layout();
}

std::shared_ptr<ZORInstrumentView> ZORWidgetHostView::instrument() const {
    return std::dynamic_pointer_cast<ZORInstrumentView>(targetView());
}

bool ZORWidgetHostView::hostsCanvas() const {
    const View* const target = subviews().empty() ? nullptr : subviews().front().get();
    // Asked of each of thousands: nearly all targets' records tell that they are none, without a cast.
    if (!target || !target->isKindOf(ZORImageView::staticClass())) return false;
    const auto* image = dynamic_cast<const ZORImageView*>(target);
    return image && image->isCanvas();
}

std::string ZORWidgetHostView::kind() const {
    if (hostsCanvas()) return "container";
    return ask(instrument(), [](const ZORInstrumentView& shown) { return shown.kind(); });
}

const SettingList& ZORWidgetHostView::properties() const {
    static const SettingList none;
    const auto shown = instrument();
    if (const auto* image = dynamic_cast<const ZORImageView*>(shown.get())) return image->widgetProperties();
    return shown ? shown->settings() : none;
}

void ZORWidgetHostView::layout() {
    View::layout();
    const auto target = targetView();
    if (target && !hostsCanvas()) target->setFrame(bounds());
}

void ZORWidgetHostView::setFrameXCoordinate(double x) {
    setFrame({x, frame().y, frame().width, frame().height});
}

void ZORWidgetHostView::setFrameYCoordinate(double y) {
    setFrame({frame().x, y, frame().width, frame().height});
}

void ZORWidgetHostView::setFrameWidth(double width) {
    setFrame({frame().x, frame().y, width, frame().height});
}

void ZORWidgetHostView::setFrameHeight(double height) {
    setFrame({frame().x, frame().y, frame().width, height});
}

void ZORWidgetHostView::setSelected(bool selected) {
    if (selected == selected_) return;
    selected_ = selected;
    setNeedsDisplay(true);
}

void ZORWidgetHostView::setAllowResize(bool allow) {
    if (allow == allowResize_) return;
    allowResize_ = allow;
    setNeedsDisplay(true);
}

ObjectPtr ZORWidgetHostView::copy() {
    auto widget = initWithFrame(frame());
    widget->zOrder_ = zOrder_;
    widget->title_ = title_;
    widget->editable_ = editable_;
    if (const auto target = targetView()) {
        widget->setTargetView(std::dynamic_pointer_cast<View>(target->copy()));
    }
    return widget;
}

void ZORWidgetHostView::encodeWithCoder(Encoder& encoder) {
    // Not as a view with children, which would name the target twice.
    Responder::encodeWithCoder(encoder);
    encoder.encodeRect("frame", frame());
    encoder.encodeInteger("zOrder", zOrder_);
    if (title_) encoder.encodeValue("title", *title_);
    encoder.encodeBool("editable", editable_);
    encoder.encodeValue("targetView", targetView());
}

bool ZORWidgetHostView::initWithCoder(Decoder& decoder) {
    if (!Responder::initWithCoder(decoder)) return false;
    setFrame(finite(decoder.decodeRect("frame")));
    zOrder_ = decoder.decodeInteger("zOrder");
    title_ = decoder.decodeString("title");
    editable_ = decoder.decodeBool("editable");
    // An instrument that is not known leaves an empty widget, which can still be selected and deleted.
    const Value target = decoder.decodeValue("targetView");
    // Archives hold thousands: the class record tells without a cast through all the levels.
    const bool isInstrument = target.isObject() && target.asObject()->isKindOf(ZORInstrumentView::staticClass());
    if (isInstrument) {
        // Nobody below is told: a file may nest widgets deeply, and give many of them the same instrument.
        restoreSubviews({std::static_pointer_cast<ZORInstrumentView>(target.asObject())});
        layout();
    }
    return true;
}

}  // namespace zor
