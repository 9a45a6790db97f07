#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/foundation/Object.h"
#include "host/station/Reading.h"

namespace zor {

/// Where a station's past comes from: an archive or the history store. Called on a worker thread; may block.
class HistoryLoader {
public:
    virtual ~HistoryLoader() = default;
    /// Samples of one property in [from, to], in base units, ascending in time.
    virtual std::vector<Sample> load(std::string_view key, Seconds from, Seconds to) = 0;
};

/// A station's past, in memory. Spans not yet there are fetched in the background and announced when they have come, so
/// that drawing never waits.
class History : public Object {
public:
    History();
    ~History() override;

    void setLoader(std::shared_ptr<HistoryLoader> loader);
    /// Fetches at once in the calling thread instead (rendering to a file, scripts).
    void setSynchronous(bool synchronous);
    /// What is known now of [from, to], ascending; fetches what is missing.
    std::vector<Sample> samples(std::string_view key, Seconds from, Seconds to);
    /// Main thread. Adds a live reading.
    void append(const Reading& reading);
    /// Called on the main thread when fetched samples have come.
    void setObserver(std::function<void()> observer);
    void clear();

private:
    struct Series;
    struct Fetcher;
    void merge(const std::string& key, Seconds from, Seconds to, std::vector<Sample> samples);

    std::map<std::string, std::unique_ptr<Series>, std::less<>> series_;
    std::shared_ptr<Fetcher> fetcher_;
    std::function<void()> observer_;
    bool synchronous_ = false;
};

}  // namespace zor
