#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/foundation/Value.h"

namespace zor {

/// The type under which widgets travel: a keyed archive whose root is an array of widgets.
inline constexpr std::string_view widgetPasteType = "application/x-zor-widgets";

class Pasteboard {
public:
    virtual ~Pasteboard() = default;
    virtual void clearContents() = 0;
    virtual void setDataForType(Bytes data, std::string_view type) = 0;
    /// Empty where there is none of that type.
    virtual Bytes dataForType(std::string_view type) const = 0;
    virtual std::vector<std::string> types() const = 0;
};

}  // namespace zor
