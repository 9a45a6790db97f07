#include "dashboard/ZORDashboardPlugIn.h"
#include "host/foundation/Coder.h"
#include "host/instruments/ZORPlotView.h"

namespace zor {

namespace {

/// Of a canvas that was never sized.
constexpr Rect defaultCanvasFrame{0, 0, 1024, 1024};

}  // namespace

void ZORDashboardPlugIn::encodeWithCoder(Encoder& encoder) {
    ZORPlugIn::encodeWithCoder(encoder);
    encoder.encodeValue("title", ValueConversion<std::optional<std::string>>::to(title()));
    // The archive keeps the absent title; only the object in memory is mended.
    if (!title()) setTitle("Unnamed");
    encoder.encodeObjects("selectedObjects", selectedObjects_);
    encoder.encodeValue("editView", editView_);
}

bool ZORDashboardPlugIn::initWithCoder(Decoder& decoder) {
    if (!ZORPlugIn::initWithCoder(decoder)) return false;
    setTitle(decoder.decodeString("title"));
    editView_ = decoder.decodeObject<ZORDashboardEditView>("editView");
    if (editView_ && !editView_->claim()) editView_.reset();
    if (editView_ && (editView_->frame().width == 0 || editView_->frame().height == 0)) {
        editView_->setFrame(defaultCanvasFrame);
    }
    undoManager_ = std::make_shared<UndoManager>();
    selectedObjects_ = decoder.decodeObjects<ZORWidgetHostView>("selectedObjects");
    for (const auto& widget : selectedObjects_) widget->setSelected(true);
    if (!editView_) return true;

    ask(agent(), [&](Agent& station) { station.linkPropertiesToWidgets(editView_->subviews()); });
    for (auto& widget : editView_->widgets()) {
        if (auto plot = std::dynamic_pointer_cast<ZORPlotView>(widget.targetView())) plot->setAgent(agent());
    }
    return true;
}

}  // namespace zor
