#include "host/views/Menu.h"

#include <algorithm>

#include "host/foundation/ClassBuilder.h"

namespace zor {

const ClassRecord& Menu::staticClass() {
    static const ClassRecord& record = ClassBuilder<Menu>("Menu", &Object::staticClass())
                                           .property("title", &Menu::title)
                                           .property("items", &Menu::itemDescriptions)
                                           .registered();
    return record;
}

Value Menu::itemDescriptions() const {
    Value::Array descriptions;
    for (const auto& item : items_) {
        descriptions.push_back(item.isSeparator ? Value::Dictionary{{"separator", true}}
                                                : Value::Dictionary{{"title", item.title}, {"action", item.action}});
    }
    return descriptions;
}

void Menu::addItem(std::string title, std::string action, std::string keyEquivalent, const ObjectPtr& target) {
    items_.push_back({std::move(title), std::move(action), std::move(keyEquivalent), target, false});
}

void Menu::addSeparator() {
    items_.push_back({{}, {}, {}, {}, true});
}

bool Menu::performItemWithTitle(std::string_view title) {
    const auto found =
        std::ranges::find_if(items_, [&](const MenuItem& item) { return !item.isSeparator && item.title == title; });
    return performItemAtIndex(static_cast<std::size_t>(found - items_.begin()));
}

bool Menu::performItemAtIndex(std::size_t index) {
    if (index >= items_.size() || items_[index].isSeparator) return false;
    // The action may fill this menu anew.
    const MenuItem item = items_[index];
    ask(item.target.lock(), [&](Object& target) { target.performWithSender(item.action, weak_from_this().lock()); });
    return true;
}

}  // namespace zor
