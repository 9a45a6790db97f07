#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/foundation/Object.h"

namespace zor {

struct MenuItem {
    std::string title;
    std::string action;
    std::string keyEquivalent;
    std::weak_ptr<Object> target;
    bool isSeparator = false;
};

class Menu : public Object {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    explicit Menu(std::string title = {}) : title_(std::move(title)) {}

    const std::string& title() const { return title_; }
    const std::vector<MenuItem>& items() const { return items_; }
    /// For inspection: {"title", "action"} or {"separator": true} each.
    Value itemDescriptions() const;
    void addItem(std::string title, std::string action, std::string keyEquivalent, const ObjectPtr& target);
    void addSeparator();
    /// Performs the item's action on its target with the menu as sender; false where there is no such item.
    bool performItemWithTitle(std::string_view title);
    bool performItemAtIndex(std::size_t index);

private:
    std::string title_;
    std::vector<MenuItem> items_;
};

}  // namespace zor
