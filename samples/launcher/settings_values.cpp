#include "settings_values.h"

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <memory>

#include "ostrel/host.h"
#include "ostrel/log.h"
#include "ostrel/system_settings.h"
#include "ostrel/system_state.h"
#include "theme.h"

namespace fs = std::filesystem;

namespace launcher {
namespace {

constexpr uint64_t kSettledAfterMs = 1000;

bool sChanged = false;
uint64_t sChangedAtMs = 0;

// gThemePath ends in "/", whoever wrote the settings file; "" when there is no skin to be found.
std::string usableTheme(const char* directory) {
    std::error_code ignored;
    if (directory == nullptr || !fs::is_directory(fs::path(directory) / "skin", ignored)) return "";
    const std::string theme = directory;
    return theme.back() == '/' ? theme : theme + "/";
}

}  // namespace

void loadSettings(const std::string& themeDir) {
    char* saved = nullptr;
    loadSystemFunction();
    loadSystemState(gShmInfo, &saved);
    const std::unique_ptr<char, decltype(&std::free)> owned(saved, &std::free);
    std::string theme = themeDir.empty() ? usableTheme(saved) : themeDir;
    if (theme.empty()) theme = themes().front().directory;
    setTheme(theme);
    applyTimeZone();
    sChanged = false;
}

void saveSettings() {
    saveSystemState(gShmInfo, gThemePath);
    sChanged = false;
}

void settingsChanged() {
    sChanged = true;
    sChangedAtMs = systemms();
}

// A clock that was set back gives a huge difference: then they count as settled.
void saveSettledSettings() {
    if (sChanged && systemms() - sChangedAtMs >= kSettledAfterMs) saveSettings();
}

void savePendingSettings() {
    if (sChanged) saveSettings();
}

void applyTimeZone() {
    const char* zone = getTimeZone();
    setenv("TZ", zone == nullptr ? "UTC" : zone, /*replace=*/1);
    tzset();
}

std::string clockText() {
    const auto seconds = static_cast<std::time_t>(systemms() / 1000);
    std::tm now{};
    localtime_r(&seconds, &now);
    char text[16];
    if (std::strftime(text, sizeof text, get24HourClockFlag() != 0 ? "%H:%M" : "%I:%M %p", &now) == 0) return "";
    const bool leadingZero = get24HourClockFlag() == 0 && text[0] == '0';
    return leadingZero ? text + 1 : text;
}

}  // namespace launcher
