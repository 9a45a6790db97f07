#pragma once
// A cache by text that forgets what was not asked for lately.

#include <string>
#include <unordered_map>
#include <utility>

namespace zor {

/// Keeps the last `size` entries that were asked for, and never more than twice as many. An entry stays where it is at
/// least until `size` others have been added or found.
template <typename Entry>
class RecentCache {
public:
    explicit RecentCache(std::size_t size) : size_(size) {}

    /// Null where it was never added, or forgotten.
    Entry* find(const std::string& key) {
        if (const auto known = recent_.find(key); known != recent_.end()) return &known->second;
        auto known = earlier_.extract(key);
        if (!known) return nullptr;
        makeRoom();
        return &recent_.insert(std::move(known)).position->second;
    }

    /// A new entry, which must not be there yet.
    Entry& add(std::string key) {
        makeRoom();
        return recent_[std::move(key)];
    }

    void clear() {
        recent_.clear();
        earlier_.clear();
    }

    std::size_t count() const { return recent_.size() + earlier_.size(); }

private:
    void makeRoom() {
        if (recent_.size() >= size_) earlier_ = std::exchange(recent_, {});
    }

    const std::size_t size_;
    std::unordered_map<std::string, Entry> recent_;
    std::unordered_map<std::string, Entry> earlier_;
};

}  // namespace zor
