#pragma once

#include <stdlib.h>
#include <time.h>

namespace zor::test {

/// Central European time for the whole test program, without need of a time zone database.
struct CentralEurope {
    CentralEurope() {
        ::setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
        ::tzset();
    }
};

}  // namespace zor::test
