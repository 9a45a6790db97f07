#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "host/foundation/Result.h"
#include "host/station/History.h"
#include "host/station/Reading.h"

namespace zor {

class HistoryWriter;

/// Keeps what live stations send, in one SQLite file for all sites. A thread of its own writes; nobody waits for the
/// disk. What was handed over is in the file within about a second, and at the latest when the store goes.
class HistoryStore {
public:
    /// Makes the file and its folder where there are none. A damaged file is kept under another name and a fresh one
    /// begun: see `damage()`. The error says why there can be no store in that file.
    static Result<std::shared_ptr<HistoryStore>> open(const std::filesystem::path& path);
    HistoryStore(const HistoryStore&) = delete;
    HistoryStore& operator=(const HistoryStore&) = delete;
    /// Writes what is left and closes the file; loaders then give nothing.
    ~HistoryStore();

    /// What was damaged and where it is kept now, for the person to be told once.
    std::optional<Error> damage() const;
    /// What keeps the store from writing now. Meanwhile the newest readings are held, the oldest of them are lost when
    /// they become too many.
    std::optional<Error> trouble() const;

    /// Measurements without a value are left out; a reading of the same moment replaces. Returns at once.
    void append(std::string site, Reading reading);
    /// Returns when what was appended before is in the file, or could not be written.
    Status flush();
    /// The site's past, everything appended so far included. A span of more than 20,000 samples is thinned in such a
    /// way that no extreme, and of rain increments no amount, is lost.
    std::shared_ptr<HistoryLoader> loader(std::string site) const;

private:
    explicit HistoryStore(std::shared_ptr<HistoryWriter> writer) : writer_(std::move(writer)) {}

    std::shared_ptr<HistoryWriter> writer_;
};

}  // namespace zor
