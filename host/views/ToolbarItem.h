#pragma once

#include <string>

#include "host/foundation/Image.h"

namespace zor {

class ToolbarItem : public Object {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    explicit ToolbarItem(std::string identifier = {}) : identifier_(std::move(identifier)) {}

    std::string itemIdentifier() const { return identifier_; }
    std::string label() const { return label_; }
    void setLabel(std::string label) { label_ = std::move(label); }
    std::shared_ptr<Image> image() const { return image_; }
    void setImage(std::shared_ptr<Image> image) { image_ = std::move(image); }
    ObjectPtr target() const { return target_.lock(); }
    void setTarget(const ObjectPtr& target) { target_ = target; }
    std::string action() const { return action_; }
    void setAction(std::string action) { action_ = std::move(action); }

private:
    std::string identifier_;
    std::string label_;
    std::shared_ptr<Image> image_;
    std::weak_ptr<Object> target_;
    std::string action_;
};

}  // namespace zor
