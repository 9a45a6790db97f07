#pragma once

#include <memory>

#include "host/foundation/Object.h"

namespace zor {

/// A picture as encoded data (PNG, JPEG, GIF, SVG ...) with the size, in points, at which it is drawn.
/// Without data it is a plain grey area of its size.
class Image : public Object {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    static std::shared_ptr<Image> withData(std::shared_ptr<const Bytes> data, Size size);
    static std::shared_ptr<Image> plain(Size size) { return withData({}, size); }

    Size size() const { return size_; }
    void setSize(Size size) { size_ = size; }
    /// Shared between copies; empty for a plain image.
    const std::shared_ptr<const Bytes>& data() const { return data_; }

    void encodeWithCoder(Encoder& encoder) override;
    bool initWithCoder(Decoder& decoder) override;
    ObjectPtr copy() override { return withData(data_, size_); }

private:
    std::shared_ptr<const Bytes> data_;
    Size size_;
};

}  // namespace zor
