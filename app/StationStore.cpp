#include "app/StationStore.h"

#include <cstdlib>

#include "app/CommandLine.h"
#include "stations/history/HistoryStore.h"

namespace zor {

namespace {

std::filesystem::path dataFolder() {
    if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data) return std::filesystem::path(data) / "station";
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home && *home ? home : ".") / ".local" / "share" / "station";
}

}  // namespace

std::shared_ptr<HistoryStore> openStationStore() {
    auto store = HistoryStore::open(dataFolder() / "history.sqlite");
    if (!store) {
        fail(store.error().message);
        return {};
    }
    if (const auto damage = (*store)->damage()) fail(damage->message);
    return *store;
}

}  // namespace zor
