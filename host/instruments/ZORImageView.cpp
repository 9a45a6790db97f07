#include "host/instruments/ZORImageView.h"

#include <algorithm>

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/Coder.h"
#include "host/instruments/InstrumentDrawing.h"
#include "host/instruments/InstrumentSettings.h"

namespace zor {

namespace {

constexpr Color pictogramColor = Color::rgb(0xaeaeb2);

/// Centred, at its own size or scaled down until it fits.
Rect imageRect(Size image, const Rect& bounds) {
    const double share = std::min({1.0, bounds.width / image.width, bounds.height / image.height});
    const Size size{image.width * share, image.height * share};
    return {bounds.center().x - size.width / 2, bounds.center().y - size.height / 2, size.width, size.height};
}

/// A framed landscape with a sun on a light ground.
void drawPlaceholder(DrawingContext& context, const Rect& bounds) {
    const double side = std::min(bounds.width, bounds.height);
    drawCard(context, bounds, std::min(12.0, side * 0.1), palette::ground, Color::clear());

    const double height = std::min(72.0, side * 0.42);
    const double width = height * 1.3;
    const double line = height / 14;
    const Rect frame{bounds.center().x - width / 2, bounds.center().y - height / 2, width, height};
    const auto at = [&frame](double across, double down) {
        return Point{frame.x + across * frame.width, frame.y + down * frame.height};
    };
    context.fillPath(Path::circle(at(0.3, 0.32), height * 0.1), pictogramColor);
    Path mountains;
    mountains.moveTo(at(0.12, 0.84)).lineTo(at(0.36, 0.54)).lineTo(at(0.48, 0.67)).lineTo(at(0.67, 0.4));
    mountains.lineTo(at(0.88, 0.68)).lineTo(at(0.88, 0.84)).close();
    context.fillPath(mountains, pictogramColor);
    drawCard(context, frame, height * 0.14, Color::clear(), pictogramColor, line);
}

}  // namespace

const ClassRecord& ZORImageView::staticClass() {
    using Self = ZORImageView;
    static const ClassRecord& record =
        ClassBuilder<Self>("ZORImageView", &ZORInstrumentView::staticClass())
            .creatable()
            .property("image", &Self::image, &Self::setImage)
            .property("backgroundColor", &Self::backgroundColor, &Self::setBackgroundColor)
            .property("drawPlaceholderImage", &Self::drawPlaceholderImage, &Self::setDrawPlaceholderImage)
            .property("drawImage", &Self::drawImage, &Self::setDrawImage)
            .property("showPositionProperties", &Self::showPositionProperties)
            .registered();
    return record;
}

const SettingList& ZORImageView::settings() const {
    static const SettingList list = SettingsBuilder(staticClass(), ZORInstrumentView::settings())
                                        .imageFile("image", "Image")
                                        .add("backgroundColor", "Background Color", SettingKind::color)
                                        .build();
    return list;
}

void ZORImageView::setImage(const std::shared_ptr<Image>& image) {
    store(image_, image);
}

void ZORImageView::drawRect(DrawingContext& context, const Rect&) {
    if (!isVisibleArea(bounds())) return;
    if (backgroundColor_.alpha > 0) context.fillRect(bounds(), backgroundColor_);
    if (!image_) {
        if (drawPlaceholderImage_) drawPlaceholder(context, bounds());
        return;
    }
    const Size size = image_->size();
    if (drawImage_ && isVisibleArea({0, 0, size.width, size.height})) {
        context.drawImage(*image_, imageRect(size, bounds()));
    }
}

void ZORImageView::encodeWithCoder(Encoder& encoder) {
    ZORInstrumentView::encodeWithCoder(encoder);
    encoder.encodeBool("drawPlaceholderImage", drawPlaceholderImage_);
    encoder.encodeBool("drawImage", drawImage_);
}

bool ZORImageView::initWithCoder(Decoder& decoder) {
    if (!ZORInstrumentView::initWithCoder(decoder)) return false;
    if (decoder.containsValueForKey("drawPlaceholderImage")) {
        drawPlaceholderImage_ = decoder.decodeBool("drawPlaceholderImage");
    }
    if (decoder.containsValueForKey("drawImage")) drawImage_ = decoder.decodeBool("drawImage");
    return true;
}

void ZORImageView::copyStateTo(ZORInstrumentView& copy) const {
    ZORInstrumentView::copyStateTo(copy);
    auto& view = dynamic_cast<ZORImageView&>(copy);
    view.drawPlaceholderImage_ = drawPlaceholderImage_;
    view.drawImage_ = drawImage_;
}

}  // namespace zor
