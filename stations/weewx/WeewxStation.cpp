#include "stations/weewx/WeewxStation.h"

#include "host/station/PropertyKeys.h"
#include "stations/weewx/ReadArchive.h"
#include "stations/weewx/WeewxHistory.h"

namespace zor {
namespace {

constexpr std::size_t kRowsAtOnce = 500;

}  // namespace

DriverResult WeewxStation::create(const Value::Dictionary& settings) {
    const Value all = settings;
    Options options;
    options.file = all["file"].asString();
    if (options.file.empty()) return Error{"“file” must name the weewx archive to read"};
    options.name = all["name"].asString();
    if (options.name.empty()) options.name = options.file.stem().string();
    if (const Value& poll = all["pollSeconds"]; !poll.isAbsent()) {
        options.pollSeconds = poll.asReal();
        if (!(options.pollSeconds >= 0.01 && options.pollSeconds <= 86400)) {
            return Error{"“pollSeconds” must be a number of seconds from 0.01 to a day"};
        }
    }

    struct Start {
        std::set<std::string> used;
        Reading newest;
    };
    auto start = readArchive(options.file, {}, [](const WeewxArchive& archive) -> Result<Start> {
        auto used = archive.keysInUse();
        if (!used) return used.error();
        auto newest = archive.newestReading();
        if (!newest) return newest.error();
        return Start{std::move(*used), std::move(*newest)};
    });
    if (!start) return start.error();
    std::shared_ptr<StationDriver> station(
        new WeewxStation(std::move(options), std::move(start->used), std::move(start->newest)));
    return station;
}

WeewxStation::WeewxStation(Options options, std::set<std::string> used, Reading newest)
    : options_(std::move(options)), used_(std::move(used)) {
    newest_ = withoutUnused(std::move(newest));
    clock_.record(newest_.time);
}

/// The table has columns for sensors that the station lacks; they are no properties of it.
Reading WeewxStation::withoutUnused(Reading reading) {
    for (const auto& [key, value] : reading.measurements) {
        if (value) used_.insert(key);
    }
    std::erase_if(reading.measurements,
                  [this](const Measurement& measurement) { return !used_.contains(measurement.key); });
    return reading;
}

Reading WeewxStation::currentReading() {
    const std::lock_guard lock(mutex_);
    return newest_;
}

Seconds WeewxStation::now() const {
    const std::lock_guard lock(mutex_);
    return clock_.now();
}

void WeewxStation::start(Events events) {
    thread_.start(std::move(events), [this](const std::stop_token& stop) { run(stop); });
}

void WeewxStation::run(const std::stop_token& stop) {
    for (;;) {
        const Seconds last = currentReading().time;
        auto readings = readArchive(options_.file, {.stop = stop}, [last](const WeewxArchive& archive) {
            return archive.readingsAfter(last, static_cast<int>(kRowsAtOnce));
        });
        if (stop.stop_requested()) return;
        thread_.report(readings ? "" : readings.error().message);
        bool isMore = false;
        if (readings) {
            isMore = readings->size() == kRowsAtOnce;
            for (auto& reading : *readings) take(std::move(reading));
        }
        if (!isMore && !thread_.sleep(stop, options_.pollSeconds)) return;
    }
}

void WeewxStation::take(Reading reading) {
    reading = withoutUnused(std::move(reading));
    {
        const std::lock_guard lock(mutex_);
        newest_ = reading;
        clock_.record(reading.time);
    }
    thread_.deliver(std::move(reading));
}

std::shared_ptr<HistoryLoader> WeewxStation::historyLoader() {
    return std::make_shared<WeewxHistory>(options_.file);
}

}  // namespace zor
