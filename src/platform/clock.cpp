// Alone in its file, so that a program's own systemms() takes the place of this one everywhere.
#include <sys/time.h>

#include "ostrel/log.h"

uint64_t systemms() {
    timeval now{};
    gettimeofday(&now, nullptr);
    return static_cast<uint64_t>(now.tv_sec) * 1000 + static_cast<uint64_t>(now.tv_usec) / 1000;
}
