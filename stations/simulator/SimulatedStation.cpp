#include "stations/simulator/SimulatedStation.h"

#include <time.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>

#include "stations/simulator/SimulatedHistory.h"

namespace zor {
namespace {

/// Seconds between two readings in real time, however fast the station's time runs.
constexpr double kLeastPause = 0.02;

/// Not the host's clock: that one may be set to follow this station's time.
Seconds wallClock() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

/// The longitude whose mean sun keeps the time zone's winter time.
double longitudeOfTimeZone(Seconds time) {
    long offset = std::numeric_limits<long>::max();
    for (const int halfYear : {0, 1}) {
        const auto moment = static_cast<time_t>(time) + halfYear * 182 * 86400;
        tm local{};
        if (localtime_r(&moment, &local)) offset = std::min(offset, local.tm_gmtoff);
    }
    return std::clamp(static_cast<double>(offset) / 240, -180.0, 180.0);
}

/// The named numbers among settings; keeps the first fault.
class NumberSettings {
public:
    explicit NumberSettings(const Value::Dictionary& settings) : settings_(settings) {}

    double get(const std::string& name, double fallback, double minimum, double maximum, const char* meaning) {
        const auto found = settings_.find(name);
        if (found == settings_.end() || found->second.isAbsent()) return fallback;
        const auto number = found->second.number();
        if (number && *number >= minimum && *number <= maximum) return *number;
        if (fault.message.empty()) fault.message = "“" + name + "” of the simulated station must be " + meaning;
        return fallback;
    }

    Error fault;

private:
    const Value::Dictionary& settings_;
};

}  // namespace

StationClock::StationClock(Seconds start, double speed) : start_(start), speed_(speed), realStart_(wallClock()) {}

Seconds StationClock::now() const {
    return start_ + (wallClock() - realStart_) * speed_;
}

DriverResult SimulatedStation::create(const Value::Dictionary& settings) {
    NumberSettings numbers(settings);
    const double least = std::numeric_limits<double>::min();
    const Seconds start = numbers.get("start", wallClock(), 0, 1e11, "a moment in seconds since 1970");
    const double speed = numbers.get("speed", 1, least, 1e6, "a number above 0 and at most a million");
    Options options;
    options.clock = StationClock(start, speed);
    options.interval = numbers.get("interval", options.interval, 0.1, 86400, "a number of seconds from 0.1 to a day");
    options.place.latitude = numbers.get("latitude", 50, -90, 90, "a number of degrees from -90 to 90");
    options.place.longitude =
        numbers.get("longitude", longitudeOfTimeZone(start), -180, 180, "a number of degrees from -180 to 180");
    if (!numbers.fault.message.empty()) return numbers.fault;

    if (const auto seed = settings.find("seed"); seed != settings.end() && !seed->second.isAbsent()) {
        if (!seed->second.isInteger()) return Error{"“seed” of the simulated station must be an integer"};
        options.seed = seed->second.asInteger();
    }
    if (const auto name = settings.find("name"); name != settings.end() && !name->second.asString().empty()) {
        options.name = name->second.asString();
    }
    return DriverResult(std::make_shared<SimulatedStation>(std::move(options)));
}

SimulatedStation::SimulatedStation(Options options)
    : options_(std::move(options)), model_(options_.seed, options_.place) {}

Reading SimulatedStation::currentReading() {
    const Seconds time = options_.clock.now();
    return model_.reading(time, time);
}

void SimulatedStation::start(Events events) {
    thread_.start(std::move(events), [this](const std::stop_token& stop) { run(stop); });
}

void SimulatedStation::run(const std::stop_token& stop) {
    const auto& clock = options_.clock;
    const auto multiple = [&] { return std::floor(clock.now() / options_.interval) * options_.interval; };
    Seconds last = multiple();
    thread_.deliver(model_.reading(last, last));
    for (;;) {
        const double pause = (last + options_.interval - clock.now()) / clock.speed();
        if (!thread_.sleep(stop, std::max(kLeastPause, pause))) return;
        const Seconds time = multiple();
        if (time <= last || !thread_.isDelivered()) continue;
        thread_.deliver(model_.reading(time, last));
        last = time;
    }
}

std::shared_ptr<HistoryLoader> SimulatedStation::historyLoader() {
    return std::make_shared<SimulatedHistory>(model_, options_.clock);
}

}  // namespace zor
