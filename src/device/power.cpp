#include "ostrel/power.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "platform/device_paths.h"
#include "platform/handles.h"

using ostrel::DevicePath;

namespace {

// Reads the first line into `line`, cut to its size; a file that cannot be read leaves `line` as it was.
template <std::size_t Size>
void readLine(DevicePath path, char (&line)[Size]) {
    const ostrel::FilePtr file{std::fopen(ostrel::devicePath(path), "r")};
    if (!file) return;
    [[maybe_unused]] const char* ignored = std::fgets(line, Size, file.get());
}

}  // namespace

bool ischarging() {
    constexpr std::string_view kCharging = "Charging";
    char line[32] = "";
    readLine(DevicePath::BatteryStatus, line);
    return std::string_view{line}.substr(0, kCharging.size()) == kCharging;
}

bool isUsbOnline() {
    char line[32] = "";
    readLine(DevicePath::UsbOnline, line);
    return line[0] == '1';
}

int readBatteryADC() {
    char line[16] = "0";
    readLine(DevicePath::BatteryCapacity, line);
    return static_cast<int>(std::strtol(line, nullptr, 10));
}
