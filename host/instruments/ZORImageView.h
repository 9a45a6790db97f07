#pragma once

#include <memory>

#include "host/foundation/Color.h"
#include "host/foundation/Image.h"
#include "host/instruments/ZORInstrumentView.h"

namespace zor {

/// Shows a picture centred, at its own size or as much smaller as the view demands; also the base of the canvas.
class ZORImageView : public ZORInstrumentView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using ZORInstrumentView::ZORInstrumentView;

    std::string kind() const override { return "imageView"; }
    const SettingList& settings() const override;
    /// What the property panel offers; the same list as `settings`.
    virtual const SettingList& widgetProperties() const { return settings(); }
    /// Whether the property panel offers position entries.
    virtual bool showPositionProperties() const { return true; }
    /// Whether it holds widgets. A canvas keeps its own size within its container.
    virtual bool isCanvas() const { return false; }

    std::shared_ptr<Image> image() const { return image_; }
    virtual void setImage(const std::shared_ptr<Image>& image);
    /// Below the image, over the whole view.
    Color backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(Color color) { store(backgroundColor_, color); }
    /// A stand-by picture is drawn where there is no image.
    bool drawPlaceholderImage() const { return drawPlaceholderImage_; }
    void setDrawPlaceholderImage(bool draw) { store(drawPlaceholderImage_, draw); }
    /// Whether the image is drawn at all.
    bool drawImage() const { return drawImage_; }
    void setDrawImage(bool draw) { store(drawImage_, draw); }

    void drawRect(DrawingContext& context, const Rect& dirty) override;
    void encodeWithCoder(Encoder& encoder) override;
    bool initWithCoder(Decoder& decoder) override;

protected:
    void copyStateTo(ZORInstrumentView& copy) const override;

private:
    std::shared_ptr<Image> image_;
    Color backgroundColor_ = Color::clear();
    bool drawPlaceholderImage_ = true;
    bool drawImage_ = true;
};

}  // namespace zor
