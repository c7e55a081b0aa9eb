#include "about_values.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>

#include "game_row.h"
#include "ostrel/language.h"
#include "ostrel/power.h"
#include "session.h"

namespace launcher {
namespace {

constexpr int kNoMeter = -1;
constexpr int kMostBars = 3;
constexpr std::size_t kMemoryBytes = 4096;  // both lines are among the kernel's first three
constexpr std::uint64_t kMostKilobytes = std::uint64_t{1} << 40U;
constexpr const char* kNothing = "–";

// The start of a file, "" when it cannot be read.
std::string readStart(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text(kMemoryBytes, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return text;
}

// The number of the line that begins with name, 0 when there is none. A number that was cut off is none either.
std::uint64_t memberOf(const std::string& text, const std::string& name) {
    const std::size_t line = ("\n" + text).find("\n" + name);
    if (line == std::string::npos || text.find('\n', line) == std::string::npos) return 0;
    const std::uint64_t number = std::strtoull(text.c_str() + line + name.size(), nullptr, 10);
    return number <= kMostKilobytes ? number : 0;
}

bool isConnected(const ConsoleState& state) {
    return state.wifiMode == WIFI_MODE_STATION && state.wifi.state == WIFI_STATE_COMPLETED;
}

// The monitor may be writing the record: a text ends at its zero byte or with its field, whichever comes first.
template <std::size_t size>
std::string fieldText(const char (&field)[size]) {
    return {field, strnlen(field, size)};
}

std::string orNothing(const std::string& text) { return text.empty() ? kNothing : text; }

AboutLine batteryLine(const ConsoleState& state) {
    const int percent = std::clamp(state.battery, 0, 100);
    const std::string charging = state.charging ? std::string(" · ") + getLangStr(kTextCharging) : "";
    return {kTextBattery, std::to_string(percent) + "%" + charging, percent};
}

AboutLine chargerLine(const ConsoleState& state) {
    return {kTextCharger, getLangStr(state.pluggedIn ? kTextPluggedIn : kTextUnplugged), kNoMeter};
}

AboutLine networkLine(const ConsoleState& state) {
    std::string text;
    if (isConnected(state)) {
        text = std::string(getLangStr(kTextConnected)) + " · " + orNothing(fieldText(state.wifi.ssid));
    } else if (state.wifiMode == WIFI_MODE_STATION) {
        text = getLangStr(kTextNotConnected);
    } else {
        text = getLangStr(state.wifiMode == WIFI_MODE_HOTSPOT ? kTextHotspot : kTextOff);
    }
    return {kTextNetwork, text, kNoMeter};
}

AboutLine addressLine(const ConsoleState& state) {
    return {kTextAddress, isConnected(state) ? orNothing(fieldText(state.wifi.ip)) : kNothing, kNoMeter};
}

AboutLine signalLine(const ConsoleState& state) {
    if (!isConnected(state)) return {kTextSignal, kNothing, kNoMeter};
    const int bars = rssi2Level(state.wifi.rssi);
    const std::string minus = state.wifi.rssi < 0 ? "−" : "";  // as wide as a plus, unlike a hyphen
    const std::string strength = std::to_string(std::abs(std::int64_t{state.wifi.rssi}));
    return {kTextSignal, minus + strength + " dBm", bars * 100 / kMostBars};
}

// The meter shows what is left, as the battery's does.
AboutLine memoryLine(const ConsoleState& state) {
    const Memory& memory = state.memory;
    if (memory.total == 0) return {kTextMemory, getLangStr(kTextUnknown), kNoMeter};
    const std::string sizes = sizeText(memory.available * 1024) + " / " + sizeText(memory.total * 1024);
    return {kTextMemory, textWithWord(kTextMemoryFree, sizes), static_cast<int>(memory.available * 100 / memory.total)};
}

}  // namespace

Memory readMemory(const std::string& path) {
    const std::string text = readStart(path);
    const Memory memory{memberOf(text, "MemAvailable:"), memberOf(text, "MemTotal:")};
    return memory.available <= memory.total ? memory : Memory{};
}

ConsoleState readConsole() {
    ConsoleState state;
    state.battery = readBatteryADC();
    state.charging = ischarging();
    state.pluggedIn = isUsbOnline();
    state.wifiMode = getWifiMode();
    state.wifi = *rx_wifi_status();
    state.memory = readMemory(deviceFile("/proc/meminfo"));
    return state;
}

std::vector<AboutLine> aboutLines(const ConsoleState& state) {
    return {batteryLine(state),
            chargerLine(state),
            networkLine(state),
            addressLine(state),
            signalLine(state),
            memoryLine(state),
            {kTextVersion, OSTREL_VERSION, kNoMeter}};
}

}  // namespace launcher
