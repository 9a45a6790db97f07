#include "host/station/History.h"

#include <algorithm>
#include <cmath>
#include <condition_variable>
#include <deque>
#include <iterator>
#include <mutex>
#include <thread>
#include <utility>

#include "host/foundation/MainQueue.h"
#include "host/foundation/NotificationCenter.h"

namespace zor {

namespace {

/// A live reading accounts for this long after it, as what comes in then comes in live; only a longer silence, such as
/// a computer asleep, is asked of the loader.
constexpr Seconds liveSpan = 600;

/// A loader may be wrong in every way: what is left is finite, within the span and strictly ascending.
void clean(std::vector<Sample>& samples, const TimeSpan& span) {
    std::erase_if(samples, [&](const Sample& sample) {
        return !(sample.time >= span.from && sample.time <= span.to && std::isfinite(sample.value));
    });
    if (!std::ranges::is_sorted(samples, {}, &Sample::time)) std::ranges::stable_sort(samples, {}, &Sample::time);
    const auto sameTime = [](const Sample& a, const Sample& b) { return a.time == b.time; };
    samples.erase(std::unique(samples.begin(), samples.end(), sameTime), samples.end());
}

void insert(std::vector<Sample>& samples, const Sample& sample) {
    // Nearly always the newest.
    if (samples.empty() || samples.back().time < sample.time) {
        samples.push_back(sample);
        return;
    }
    const auto place = std::ranges::lower_bound(samples, sample.time, {}, &Sample::time);
    if (place->time == sample.time) {
        *place = sample;
    } else {
        samples.insert(place, sample);
    }
}

}  // namespace

struct History::Series {
    /// Strictly ascending in time.
    std::vector<Sample> samples;
    /// Never asked for again; some of it may still be on its way.
    TimeSpans asked;
    TimeSpans loaded;
};

struct History::Request {
    std::shared_ptr<HistoryLoader> loader;
    std::string key;
    TimeSpan span;
    std::uint64_t generation;

    /// The newest moments are asked for again and again, as the clock goes on.
    bool isMoment() const { return span.to - span.from <= liveSpan; }
};

/// The thread on which loaders may block. It starts with the first request and ends with the history.
class History::Fetcher : public std::enable_shared_from_this<Fetcher> {
public:
    explicit Fetcher(History& history) : history_(history) {}

    ~Fetcher() {
        {
            const std::lock_guard lock(mutex_);
            ended_ = true;
        }
        changed_.notify_one();
        if (thread_.joinable()) thread_.join();
    }

    void fetch(Request request) {
        {
            const std::lock_guard lock(mutex_);
            waiting_.push_back(std::move(request));
        }
        changed_.notify_one();
        if (!thread_.joinable()) thread_ = std::thread([this, self = weak_from_this()] { run(self); });
    }

private:
    void run(const std::weak_ptr<Fetcher>& self) {
        std::unique_lock lock(mutex_);
        while (true) {
            changed_.wait(lock, [this] { return ended_ || !waiting_.empty(); });
            if (ended_) return;
            auto request = std::move(waiting_.front());
            waiting_.pop_front();
            lock.unlock();
            auto samples = request.loader->load(request.key, request.span.from, request.span.to);
            // The history is alive where its fetcher is, and both end on the main thread.
            MainQueue::shared().post([self, request = std::move(request), samples = std::move(samples)]() mutable {
                if (const auto fetcher = self.lock()) fetcher->history_.arrived(request, std::move(samples));
            });
            lock.lock();
        }
    }

    History& history_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Request> waiting_;
    bool ended_ = false;
    std::thread thread_;
};

History::History(std::shared_ptr<const StationTime> time)
    : time_(time ? std::move(time) : std::make_shared<const StationTime>()),
      fetcher_(std::make_shared<Fetcher>(*this)) {}

History::~History() = default;

void History::setLoader(std::shared_ptr<HistoryLoader> loader) {
    loader_ = std::move(loader);
    ++generation_;
    for (auto& [key, series] : series_) {
        series->asked.clear();
        series->loaded.clear();
    }
}

void History::setSynchronous(bool synchronous) {
    synchronous_ = synchronous;
    if (!synchronous) return;
    // Nobody waits for what is still on its way.
    for (auto& [key, series] : series_) series->asked = series->loaded;
}

std::vector<Sample> History::samples(std::string_view key, Seconds from, Seconds to) {
    if (!(from <= to)) return {};
    // What has not happened yet is not in any archive.
    if (loader_) fetchMissing(key, {from, std::min(to, time_->now())});
    const auto found = series_.find(key);
    if (found == series_.end()) return {};
    const auto& samples = found->second->samples;
    const auto first = std::ranges::lower_bound(samples, from, {}, &Sample::time);
    return {first, std::ranges::upper_bound(first, samples.end(), to, {}, &Sample::time)};
}

void History::append(const Reading& reading) {
    if (!std::isfinite(reading.time)) return;
    const TimeSpan span = {reading.time, reading.time + liveSpan};
    for (const auto& measurement : reading.measurements) {
        auto& series = seriesOf(measurement.key);
        series.asked.add(span);
        series.loaded.add(span);
        if (measurement.value && std::isfinite(*measurement.value)) {
            insert(series.samples, {reading.time, *measurement.value});
        }
    }
}

void History::setObserver(std::function<void()> observer) {
    observer_ = std::move(observer);
}

void History::clear() {
    ++generation_;
    series_.clear();
}

History::Series& History::seriesOf(std::string_view key) {
    const auto found = series_.find(key);
    if (found != series_.end()) return *found->second;
    return *series_.emplace(key, std::make_unique<Series>()).first->second;
}

void History::fetchMissing(std::string_view key, TimeSpan span) {
    auto& series = seriesOf(key);
    for (const auto& gap : series.asked.missing(span)) {
        series.asked.add(gap);
        Request request = {loader_, std::string(key), gap, generation_};
        if (synchronous_) {
            merge(request, loader_->load(key, gap.from, gap.to));
        } else {
            if (!request.isMoment()) ++coming_;
            fetcher_->fetch(std::move(request));
        }
    }
}

void History::arrived(const Request& request, std::vector<Sample> samples) {
    if (!request.isMoment()) --coming_;
    if (request.generation != generation_ || !merge(request, std::move(samples))) return;
    if (!request.isMoment()) ++newsCount_;
    // The observers may replace themselves or drop the history.
    const auto keepAlive = weak_from_this().lock();
    const auto observer = observer_;
    if (observer) observer();
    NotificationCenter::defaultCenter().post(kHistoryDidFetchNotification, this);
}

bool History::merge(const Request& request, std::vector<Sample> samples) {
    auto& series = seriesOf(request.key);
    series.loaded.add(request.span);
    clean(samples, request.span);
    // What came live wins over the archive's value of the same moment.
    std::vector<Sample> merged;
    merged.reserve(series.samples.size() + samples.size());
    std::ranges::set_union(series.samples, samples, std::back_inserter(merged), {}, &Sample::time, &Sample::time);
    const bool hasNews = merged.size() > series.samples.size();
    series.samples = std::move(merged);
    return hasNews;
}

}  // namespace zor
