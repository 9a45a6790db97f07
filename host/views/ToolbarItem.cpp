#include "host/views/ToolbarItem.h"

#include "host/foundation/ClassBuilder.h"

namespace zor {

const ClassRecord& ToolbarItem::staticClass() {
    static const ClassRecord& record = ClassBuilder<ToolbarItem>("ToolbarItem", &Object::staticClass())
                                           .property("itemIdentifier", &ToolbarItem::itemIdentifier)
                                           .property("label", &ToolbarItem::label, &ToolbarItem::setLabel)
                                           .property("action", &ToolbarItem::action, &ToolbarItem::setAction)
                                           .property("image", &ToolbarItem::image, &ToolbarItem::setImage)
                                           .property("target", &ToolbarItem::target, &ToolbarItem::setTarget)
                                           .registered();
    return record;
}

}  // namespace zor
