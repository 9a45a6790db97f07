#pragma once
// Named notifications between objects that do not know each other. Main thread only.

#include <functional>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "host/foundation/Value.h"

namespace zor {

/// Posted by the host every full minute.
inline constexpr std::string_view kAppTimerOneMinuteNotification = "kAppTimerOneMinuteNotification";

struct Notification {
    std::string name;
    /// May be absent.
    const Object* sender = nullptr;
};

class NotificationCenter {
public:
    using Handler = std::function<void(const Notification&)>;

    static NotificationCenter& defaultCenter();

    /// `observer` is only a key; it must be removed before it dies. Without a sender, any sender's are delivered.
    void addObserver(const Object* observer, std::string_view name, const Object* sender, Handler handler);
    /// Removes exactly the observer's registrations for that name and sender.
    void removeObserver(const Object* observer, std::string_view name, const Object* sender);
    /// Delivers in the order of registration; handlers may add and remove observers, also the one being told.
    void post(std::string_view name, const Object* sender = nullptr);
    std::size_t observerCount(std::string_view name) const;

private:
    struct Registration {
        const Object* observer;
        std::string name;
        const Object* sender;
        Handler handler;
        /// A round of telling that has begun passes it over.
        bool removed = false;
    };
    using Registrations = std::list<std::shared_ptr<Registration>>;

    /// In their order, and each found by its observer, of whom there may be very many.
    Registrations registrations_;
    std::unordered_multimap<const Object*, Registrations::iterator> ofObserver_;
};

}  // namespace zor
