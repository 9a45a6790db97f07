#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/foundation/Object.h"
#include "host/station/Reading.h"
#include "host/station/StationTime.h"
#include "host/station/TimeSpans.h"

namespace zor {

/// Posted on the main thread with the history as its sender, when fetched samples have come that were not known before.
inline constexpr std::string_view kHistoryDidFetchNotification = "kHistoryDidFetchNotification";

/// Where a station's past comes from: an archive or the history store. Called on a worker thread; may block.
class HistoryLoader {
public:
    virtual ~HistoryLoader() = default;
    /// Samples of one property in [from, to], in base units, ascending in time.
    virtual std::vector<Sample> load(std::string_view key, Seconds from, Seconds to) = 0;
};

/// A station's past, in memory. Spans not yet there are fetched in the background and announced when they have come, so
/// that drawing never waits. Main thread only.
class History : public Object {
public:
    /// The present is that of `time`; without one, the computer's.
    explicit History(std::shared_ptr<const StationTime> time = {});
    ~History() override;

    /// What the loader before gave stays; every span is asked for anew.
    void setLoader(std::shared_ptr<HistoryLoader> loader);
    /// Fetches at once in the calling thread instead (rendering to a file, scripts).
    void setSynchronous(bool synchronous);
    /// What is known now of [from, to], ascending; fetches what is missing of it up to the present.
    std::vector<Sample> samples(std::string_view key, Seconds from, Seconds to);
    /// Whether more than the latest moments has been asked for and has not come yet.
    bool isFetching() const { return coming_ > 0; }
    /// How often such samples have come that were not known before.
    std::uint64_t newsCount() const { return newsCount_; }
    /// Adds a live reading, in whatever order it comes; a value of the same moment is replaced.
    void append(const Reading& reading);
    /// Called on the main thread when fetched samples have come that were not known before.
    void setObserver(std::function<void()> observer);
    void clear();

private:
    struct Series;
    struct Request;
    class Fetcher;

    Series& seriesOf(std::string_view key);
    void fetchMissing(std::string_view key, TimeSpan span);
    void arrived(const Request& request, std::vector<Sample> samples);
    /// Whether there was anything new among the samples.
    bool merge(const Request& request, std::vector<Sample> samples);

    const std::shared_ptr<const StationTime> time_;
    std::map<std::string, std::unique_ptr<Series>, std::less<>> series_;
    std::shared_ptr<HistoryLoader> loader_;
    std::shared_ptr<Fetcher> fetcher_;
    std::function<void()> observer_;
    /// What was asked for in an earlier generation is no longer wanted when it comes.
    std::uint64_t generation_ = 0;
    bool synchronous_ = false;
    /// Requests for more than moments that the fetcher has not answered.
    std::size_t coming_ = 0;
    std::uint64_t newsCount_ = 0;
};

}  // namespace zor
