#include "ostrel/log.h"

#include <syslog.h>
#include <unistd.h>

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/device_paths.h"
#include "platform/handles.h"

char procname[64];

namespace {

// Only the flag itself is shared between threads, so that no order with anything else is needed.
std::atomic<int> sUseSyslog{0};

constexpr int kNameBytes = 63;  // what /proc/<pid>/comm may fill of procname, the zero byte included

void readProcessName() {
    const std::string path =
        std::string(devicePath(ostrel::DevicePath::Proc)) + "/" + std::to_string(getpid()) + "/comm";
    const ostrel::FilePtr file{std::fopen(path.c_str(), "r")};
    if (!file || std::fgets(procname, kNameBytes, file.get()) == nullptr) return;
    const std::size_t length = std::strlen(procname);
    if (length > 0 && procname[length - 1] == '\n') procname[length - 1] = '\0';
}

}  // namespace

void initLogger(int useSyslog) {
    sUseSyslog.store(useSyslog, std::memory_order_relaxed);
    if (useSyslog == 0) return;
    readProcessName();
    openlog(procname, LOG_PID, 0);
    std::atexit(closelog);
}

void tprintf(const char* format, ...) {
    va_list values;
    va_start(values, format);
    if (sUseSyslog.load(std::memory_order_relaxed) == 0) {
        std::vfprintf(stdout, format, values);
    } else {
        vsyslog(LOG_DEBUG, format, values);
    }
    va_end(values);
}
