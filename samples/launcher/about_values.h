/// @file  about_values.h: the state of the console in words.
/// Threads: UI thread.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "ostrel/wifi.h"
#include "texts.h"

namespace launcher {

/// In kilobytes; both are 0 when they are not known.
struct Memory {
    std::uint64_t available = 0;
    std::uint64_t total = 0;
};
/// Reads the kernel's "/proc/meminfo" at @p path. Any file will do: what is missing or makes no sense is not known.
Memory readMemory(const std::string& path);

struct ConsoleState {
    int battery = 0;  ///< percent
    bool charging = false;
    bool pluggedIn = false;
    int wifiMode = WIFI_MODE_OFF;
    WpaMsg wifi{};
    Memory memory;
};
/// Asks the device. It costs a walk through /proc, so not for every frame.
ConsoleState readConsole();

/// One line of the page. Its meter shows @p percent, and is left out below 0.
struct AboutLine {
    Text label;
    std::string value;
    int percent;
};
std::vector<AboutLine> aboutLines(const ConsoleState& state);

}  // namespace launcher
