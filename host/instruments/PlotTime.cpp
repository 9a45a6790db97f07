#include "host/instruments/PlotTime.h"

#include <algorithm>
#include <array>
#include <ctime>

#include "host/instruments/DateFormat.h"
#include "host/station/DerivedValues.h"

namespace zor {

namespace {

constexpr Seconds hour = 3600;
constexpr Seconds day = 24 * hour;
/// Names of days are known to the reader within this span; dates are better beyond.
constexpr Seconds longestNamedSpan = 14 * day;

enum class Grain { hours, days, months };

struct TickStep {
    Grain grain;
    int count;
    /// Roughly, in seconds.
    Seconds length;
};

constexpr auto tickSteps = std::to_array<TickStep>({
    {Grain::hours, 1, hour},
    {Grain::hours, 2, 2 * hour},
    {Grain::hours, 3, 3 * hour},
    {Grain::hours, 4, 4 * hour},
    {Grain::hours, 6, 6 * hour},
    {Grain::hours, 12, 12 * hour},
    {Grain::days, 1, day},
    {Grain::days, 2, 2 * day},
    {Grain::days, 5, 5 * day},
    {Grain::days, 10, 10 * day},
    {Grain::months, 1, 30.4 * day},
    {Grain::months, 2, 60.8 * day},
    {Grain::months, 3, 91.2 * day},
    {Grain::months, 6, 182.5 * day},
    {Grain::months, 12, 365 * day},
});

Seconds localMoment(const DateParts& date, int dayOfMonth, int hourOfDay) {
    std::tm parts{};
    parts.tm_year = date.year - 1900;
    parts.tm_mon = date.month - 1;
    parts.tm_mday = dayOfMonth;
    parts.tm_hour = hourOfDay;
    // Whether the clock stands on summer time then is for the system to know.
    parts.tm_isdst = -1;
    return static_cast<Seconds>(std::mktime(&parts));
}

/// The midnight at which the day that many days later begins. Days of 23 and 25 hours count as one.
Seconds midnightLater(Seconds moment, int days) {
    const auto date = localDateParts(moment);
    return date ? localMoment(*date, date->day + days, 0) : moment;
}

const TickStep& stepFor(Seconds length, int mostTicks) {
    const auto fits = [&](const TickStep& step) { return length <= step.length * mostTicks * 1.01; };
    const auto found = std::ranges::find_if(tickSteps, fits);
    return found == tickSteps.end() ? tickSteps.back() : *found;
}

/// Days as 1, 6, 11 ... of each month, so that months begin alike; the last before a month's end stands off from it.
bool isMarkedDay(const DateParts& date, const TickStep& step) {
    if (step.grain == Grain::months) return date.day == 1 && (date.month - 1) % step.count == 0;
    if (step.count == 2) return static_cast<long>(localMoment(date, date.day, 12) / day) % 2 == 0;
    return (date.day - 1) % step.count == 0 && (step.count == 1 || date.day + step.count / 2 <= 30);
}

std::string dayLabel(const DateParts& date, const TickStep& step, const TimeSpan& span) {
    if (step.grain == Grain::months) return formatDate(date.month == 1 ? "yyyy" : "MMM", date);
    if (span.to - span.from <= longestNamedSpan) return formatDate("EEE d", date);
    return formatDate("d MMM", date);
}

}  // namespace

TimeSpan spanOfPeriod(std::uint32_t code, Seconds now) {
    switch (static_cast<PlotPeriod>(code)) {
        case PlotPeriod::twoDays:
            return {midnightLater(now, -1), midnightLater(now, 1)};
        case PlotPeriod::last24Hours:
            return {now - day, now};
        case PlotPeriod::last7Days:
            return {now - 7 * day, now};
        case PlotPeriod::last30Days:
            return {now - 30 * day, now};
        case PlotPeriod::lastYear:
            return {now - 365 * day, now};
        case PlotPeriod::today:
            break;
    }
    return {localMidnight(now), midnightLater(now, 1)};
}

std::vector<PlotTick> timeTicks(const TimeSpan& span, int mostTicks) {
    std::vector<PlotTick> ticks;
    const auto& step = stepFor(span.to - span.from, std::max(mostTicks, 1));
    const bool isOneDay = localMidnight(span.from) == span.from && midnightLater(span.from, 1) == span.to;
    const auto add = [&](Seconds time, std::string label) {
        if (time < span.from || time > span.to) return;
        if (ticks.empty() || ticks.back().position < time) ticks.push_back({time, std::move(label)});
    };
    Seconds midnight = localMidnight(span.from);
    while (midnight <= span.to) {
        const auto date = localDateParts(midnight);
        if (!date) break;
        if (step.grain != Grain::hours) {
            if (isMarkedDay(*date, step)) add(midnight, dayLabel(*date, step, span));
        } else {
            add(midnight, isOneDay ? "00:00" : dayLabel(*date, step, span));
            for (int hourOfDay = step.count; hourOfDay < 24; hourOfDay += step.count) {
                const Seconds time = localMoment(*date, date->day, hourOfDay);
                // An hour that the clock skips has no mark.
                const auto shown = localDateParts(time);
                if (shown && shown->hour == hourOfDay) add(time, formatDate("HH:mm", *shown));
            }
        }
        const Seconds next = midnightLater(midnight, 1);
        if (!(next > midnight)) break;
        midnight = next;
    }
    return ticks;
}

}  // namespace zor
