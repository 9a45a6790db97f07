#include "host/foundation/Image.h"

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/Coder.h"

namespace zor {

const ClassRecord& Image::staticClass() {
    static const ClassRecord& record = ClassBuilder<Image>("Image", &Object::staticClass())
                                           .creatable()
                                           .property("size", &Image::size, &Image::setSize)
                                           .registered();
    return record;
}

std::shared_ptr<Image> Image::withData(std::shared_ptr<const Bytes> data, Size size) {
    auto image = std::make_shared<Image>();
    image->data_ = std::move(data);
    image->size_ = size;
    return image;
}

void Image::encodeWithCoder(Encoder& encoder) {
    Object::encodeWithCoder(encoder);
    encoder.encodeSize("size", size_);
    if (data_) encoder.encodeValue("data", Value(data_));
}

bool Image::initWithCoder(Decoder& decoder) {
    if (!Object::initWithCoder(decoder)) return false;
    size_ = decoder.decodeSize("size");
    data_ = decoder.decodeValue("data").sharedData();
    return true;
}

}  // namespace zor
