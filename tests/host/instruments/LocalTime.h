#pragma once

#include <stdlib.h>
#include <time.h>

namespace zor::test {

/// A local time zone in POSIX notation while it lives.
class LocalTime {
public:
    explicit LocalTime(const char* zone) {
        ::setenv("TZ", zone, 1);
        ::tzset();
    }
    ~LocalTime() {
        ::unsetenv("TZ");
        ::tzset();
    }
    LocalTime(const LocalTime&) = delete;
    LocalTime& operator=(const LocalTime&) = delete;
};

inline constexpr const char* centralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";

}  // namespace zor::test
