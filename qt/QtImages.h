#pragma once
// Decodes picture data once and draws it many times. Main thread only.

#include <QImage>
#include <map>
#include <memory>

#include "host/foundation/Image.h"
#include "host/foundation/Result.h"

class QPainter;
class QSvgRenderer;

namespace zor {

class QtImages {
public:
    static QtImages& shared();

    /// Fills the rectangle with the picture, stretched as needed; what cannot be decoded is a plain grey area.
    void draw(QPainter& painter, const Image& image, const Rect& rect);
    /// In points: pixels at the picture's own resolution, or one per point where it states none.
    Result<Size> sizeOfData(const Bytes& data) const;

private:
    /// Exactly one of the two is set where the data could be read.
    struct Picture {
        std::weak_ptr<const Bytes> data;
        QImage pixels;
        /// The pixels averaged down to the size at which they were drawn last.
        QImage reduced;
        std::shared_ptr<QSvgRenderer> vector;
    };
    Picture& picture(const std::shared_ptr<const Bytes>& data);

    /// By address; an entry whose data is gone counts for nothing, as its address may be in use again.
    std::map<const Bytes*, Picture> pictures_;
};

}  // namespace zor
