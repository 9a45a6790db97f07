#pragma once

#include <memory>

#include "host/foundation/Image.h"
#include "host/instruments/ZORInstrumentView.h"

namespace zor {

/// Shows a picture at the picture's own size, centred; also the base of the canvas.
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

    std::shared_ptr<Image> image() const { return image_; }
    virtual void setImage(const std::shared_ptr<Image>& image);
    /// A stand-by picture is drawn where there is no image.
    bool drawPlaceholderImage() const { return drawPlaceholderImage_; }
    void setDrawPlaceholderImage(bool draw);
    /// Whether the image is drawn at all.
    bool drawImage() const { return drawImage_; }
    void setDrawImage(bool draw);

    void drawRect(DrawingContext& context, const Rect& dirty) override;
    void encodeWithCoder(Encoder& encoder) override;
    bool initWithCoder(Decoder& decoder) override;

protected:
    void copyStateTo(ZORInstrumentView& copy) const override;

private:
    std::shared_ptr<Image> image_;
    bool drawPlaceholderImage_ = true;
    bool drawImage_ = true;
};

}  // namespace zor
