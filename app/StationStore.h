#pragma once

#include <memory>

namespace zor {

class HistoryStore;

/// The history of all stations of this person, in $XDG_DATA_HOME/station; empty, with a message on standard error,
/// where it cannot be opened.
std::shared_ptr<HistoryStore> openStationStore();

}  // namespace zor
