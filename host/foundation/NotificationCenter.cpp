#include "host/foundation/NotificationCenter.h"

#include <algorithm>
#include <iterator>

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
    ofObserver_.emplace(observer, std::prev(registrations_.end()));
}

void NotificationCenter::removeObserver(const Object* observer, std::string_view name, const Object* sender) {
    // Kept alive until the end, as a handler may own what removes further observers when it dies.
    std::vector<std::shared_ptr<Registration>> removed;
    const auto [first, last] = ofObserver_.equal_range(observer);
    for (auto each = first; each != last;) {
        const auto& registration = *each->second;
        if (registration->name != name || registration->sender != sender) {
            ++each;
            continue;
        }
        registration->removed = true;
        removed.push_back(registration);
        registrations_.erase(each->second);
        each = ofObserver_.erase(each);
    }
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
