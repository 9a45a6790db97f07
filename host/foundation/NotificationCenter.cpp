#include "host/foundation/NotificationCenter.h"

#include <algorithm>

namespace zor {

NotificationCenter& NotificationCenter::defaultCenter() {
    // Never destroyed: observers that outlive main still remove themselves.
    static auto& center = *new NotificationCenter;
    return center;
}

void NotificationCenter::addObserver(const Object* observer, std::string_view name, const Object* sender,
                                     Handler handler) {
    registrations_.push_back(
        std::make_shared<Registration>(Registration{observer, std::string(name), sender, std::move(handler)}));
}

void NotificationCenter::removeObserver(const Object* observer, std::string_view name, const Object* sender) {
    // Kept alive until the end, as a handler may own what removes further observers when it dies.
    std::vector<std::shared_ptr<Registration>> removed;
    std::erase_if(registrations_, [&](const auto& registration) {
        if (registration->observer != observer || registration->name != name || registration->sender != sender) {
            return false;
        }
        registration->removed = true;
        removed.push_back(registration);
        return true;
    });
}

void NotificationCenter::post(std::string_view name, const Object* sender) {
    std::vector<std::shared_ptr<Registration>> told;
    std::ranges::copy_if(registrations_, std::back_inserter(told), [&](const auto& registration) {
        return registration->name == name && (!registration->sender || registration->sender == sender);
    });
    const Notification notification{std::string(name), sender};
    for (const auto& registration : told) {
        if (!registration->removed) registration->handler(notification);
    }
}

std::size_t NotificationCenter::observerCount(std::string_view name) const {
    return static_cast<std::size_t>(
        std::ranges::count_if(registrations_, [&](const auto& registration) { return registration->name == name; }));
}

}  // namespace zor
