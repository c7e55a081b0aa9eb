/// @file  log.h: the debug log and the millisecond clock.
/// Threads: any, except initLogger, which runs once at start-up before other threads log.
#pragma once
#include <cstdint>

#include "ostrel/export.h"

/// The name of this process for the system log: empty until initLogger(non-zero) has read it, up to 62 characters, from
/// /proc/<pid>/comm. The system log keeps this very buffer as its identity, so leave it alone.
extern OSTREL_API char procname[64];

/// Chooses where tprintf writes.
/// @param useSyslog 0 for standard output (the state at load); anything else for the system log, which is then opened
///        under this process's name, with its pid, and closed again at exit. When the name cannot be read, procname
///        keeps what it held and the log is opened all the same.
OSTREL_API void initLogger(int useSyslog);

/// Writes one debug message, a printf format that ends in its own "\n": to standard output without prefix, or to the
/// system log at LOG_DEBUG.
OSTREL_API void tprintf(const char* format, ...) OSTREL_PRINTF(1, 2);

/// @return milliseconds of the wall clock (gettimeofday); it jumps when the clock is set. Frame pacing, key repeat and
///         throttles all read this one clock.
OSTREL_API uint64_t systemms();
