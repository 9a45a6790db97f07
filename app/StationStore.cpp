#include "app/StationStore.h"

#include "app/CommandLine.h"
#include "app/DataFolder.h"
#include "stations/history/HistoryStore.h"

namespace zor {

std::shared_ptr<HistoryStore> openStationStore() {
    const auto folder = dataFolder();
    if (!folder) {
        fail("no history is kept: neither XDG_DATA_HOME nor HOME is set");
        return {};
    }
    auto store = HistoryStore::open(*folder / "history.sqlite");
    if (!store) {
        fail(store.error().message);
        return {};
    }
    if (const auto damage = (*store)->damage()) fail(damage->message);
    return *store;
}

}  // namespace zor
