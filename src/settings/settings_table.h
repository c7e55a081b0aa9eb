// The members of the settings file: one row each, and the orders in which they are loaded, written and reset.
#pragma once
#include <array>
#include <climits>
#include <cstdlib>
#include <iterator>
#include <string_view>

#include "ostrel/host.h"
#include "ostrel/system_settings.h"
#include "ostrel/system_state.h"

namespace ostrel {

// Where a number lives while the console runs: in the status block, in a global, or behind two functions.
struct Place {
    int shmKey = 0;
    int* global = nullptr;
    int (*get)() = nullptr;
    void (*set)(int) = nullptr;

    int read(ShmInfo* shm) const {
        if (global != nullptr) return *global;
        return get != nullptr ? get() : GetKeyShm(shm, shmKey);
    }

    void write(ShmInfo* shm, int value) const {
        if (global != nullptr) {
            *global = value;
        } else if (set != nullptr) {
            set(value);
        } else {
            SetKeyShm(shm, shmKey, value);
        }
    }
};

constexpr Place inStatusBlock(ShmKey key) { return {key, nullptr, nullptr, nullptr}; }
constexpr Place inGlobal(int& global) { return {0, &global, nullptr, nullptr}; }
constexpr Place behind(int (*get)(), void (*set)(int)) { return {0, nullptr, get, set}; }

enum class Kind { Number, Mute, BackgroundVolume, Language, Theme, StoreUrl, TimeZone };

struct Accepted {
    int lowest = INT_MIN;
    int highest = INT_MAX;
    bool asSwitch = false;  // every number but 0 is 1
};
inline constexpr Accepted kAny = {};
inline constexpr Accepted kSwitch = {INT_MIN, INT_MAX, true};

enum class Missing { Fallback, Unchanged };  // what a missing member leads to

struct Setting {
    const char* key;
    Place place;
    Kind kind;
    int fallback = 0;  // for an unusable file and for numbers out of range; for missing members, unless unchanged
    Accepted accepted = kAny;
    Missing missing = Missing::Fallback;
};

// In the order of loading, which counts: "language" selects the localised members that follow it.
inline constexpr Setting kSettings[] = {
    {"vol", inStatusBlock(SHM_VOL), Kind::Number, 14, {0, 20}},
    {"keymap", inStatusBlock(SHM_KEYMAP), Kind::Number, 0, {0, 1}},
    {"mute", inStatusBlock(SHM_MUTE), Kind::Mute, 0},
    {"bgmvol", inStatusBlock(SHM_BGMVOL), Kind::BackgroundVolume, 10},
    {"brightness", inStatusBlock(SHM_BRIGHTNESS), Kind::Number, 6, {0, 10}},
    {"language", {}, Kind::Language},
    {"theme", {}, Kind::Theme},
    {"netplay", inStatusBlock(SHM_NETPLAY), Kind::Number, 0, kSwitch},
    {"wifi", inStatusBlock(SHM_WIFI), Kind::Number, 0, kSwitch, Missing::Unchanged},
    {"hostap", inStatusBlock(SHM_HOSTAP), Kind::Number, 0, kSwitch, Missing::Unchanged},
    {"bluetooth", inStatusBlock(SHM_BLUETOOTH), Kind::Number, 0, kSwitch, Missing::Unchanged},
    {"cpufreq", inStatusBlock(SHM_CPUFREQ), Kind::Number, 0, {0, INT_MAX}},
    {"ledswitch", inStatusBlock(SHM_LEDSWITCH), Kind::Number, 1, kSwitch},
    {"ledvalue", inStatusBlock(SHM_LEDVALUE), Kind::Number, 4},
    {"menustylel1", inStatusBlock(SHM_MENUSTYLEL1), Kind::Number, 1},
    {"menustylel2", inStatusBlock(SHM_MENUSTYLEL2), Kind::Number, 0},
    {"rumblelevel", inStatusBlock(SHM_RUMBLELEVEL), Kind::Number, 4, {0, 5}},
    {"dimtime", inStatusBlock(SHM_DIMTIME), Kind::Number, 300},
    {"storeurl", {}, Kind::StoreUrl},
    {"usenetworktime", behind(getSyncTimeFromNetworkFlag, setSyncTimeFromNetworkFlag), Kind::Number, 1, kSwitch,
     Missing::Unchanged},
    {"24hourclock", behind(get24HourClockFlag, set24HourClockFlag), Kind::Number, 1, kSwitch, Missing::Unchanged},
    {"timezone", {}, Kind::TimeZone},
    {"colortemperature", behind(getColorTemperature, setColorTemperature), Kind::Number, 10, kAny, Missing::Unchanged},
    {"colorbrightness", behind(getColorBrightness, setColorBrightness), Kind::Number, 5, kAny, Missing::Unchanged},
    {"colorcontrast", behind(getContrast, setContrast), Kind::Number, 5, kAny, Missing::Unchanged},
    {"colorsaturation", behind(getSaturation, setSaturation), Kind::Number, 5, kAny, Missing::Unchanged},
    {"enablehome", inGlobal(gEnableHomeWindow), Kind::Number, 1},
    {"focusontab", inGlobal(gAllowFocusOnTab), Kind::Number, 1},
    {"bconfirm", inStatusBlock(SHM_BCONFIRM), Kind::Number, 0, kSwitch},
    {"osdshortcut", inStatusBlock(SHM_OSDSHORTCUT), Kind::Number, 0},
    {"favoritetab", inGlobal(gEnableFavoriteTab), Kind::Number, 1},
    {"recentplayedtab", inGlobal(gEnableRecentPlayedTab), Kind::Number, 1},
    {"beststab", inGlobal(gEnableBestsTab), Kind::Number, 1},
    {"retrogametab", inGlobal(gEnableRetroGameTab), Kind::Number, 1},
    {"portstab", inGlobal(gEnablePortsTab), Kind::Number, 1},
    {"appstab", inGlobal(gEnableAppsTab), Kind::Number, 1},
    {"netplaytab", inGlobal(gEnableNetPlayTab), Kind::Number, 1},
    {"fanlevel", inStatusBlock(SHM_FANLEVEL), Kind::Number, -1},
    {"usejoystick", inGlobal(gUseJoystick), Kind::Number, 1, {0, 3}},
    {"enablekeytone", inGlobal(gEnableKeyTone), Kind::Number, 1, kSwitch, Missing::Unchanged},
    {"enablessh", inGlobal(gEnableSSH), Kind::Number, 0, kSwitch, Missing::Unchanged},
};

constexpr const Setting* settingNamed(std::string_view key) {
    for (const Setting& setting : kSettings) {
        if (key == setting.key) return &setting;
    }
    std::abort();  // only the compiler gets here, and refuses the list of names
}

// The settings of these names, which are parted by one space.
template <std::size_t kCount>
constexpr std::array<const Setting*, kCount> settingsNamed(std::string_view keys) {
    std::array<const Setting*, kCount> settings{};
    for (const Setting*& setting : settings) {
        const std::size_t length = keys.find(' ');
        setting = settingNamed(keys.substr(0, length));
        keys.remove_prefix(length == std::string_view::npos ? keys.size() : length + 1);
    }
    if (!keys.empty()) std::abort();
    return settings;
}

// In the order of the file. Without one of the first six the file stays empty.
inline constexpr std::size_t kRequiredCount = 6;
inline constexpr auto kWriteOrder = settingsNamed<std::size(kSettings)>(
    "vol keymap mute bgmvol brightness language theme hostap netplay wifi cpufreq ledswitch ledvalue menustylel1 "
    "menustylel2 storeurl bluetooth usenetworktime 24hourclock timezone rumblelevel dimtime colorbrightness "
    "colorcontrast colortemperature colorsaturation enablehome focusontab bconfirm osdshortcut favoritetab "
    "recentplayedtab beststab retrogametab portstab appstab netplaytab fanlevel usejoystick enablekeytone "
    "enablessh");

// In the order in which an unusable file sets them; the language and the theme stay.
inline constexpr auto kResetOrder = settingsNamed<std::size(kSettings) - 2>(
    "vol keymap mute bgmvol brightness netplay cpufreq ledswitch ledvalue menustylel1 menustylel2 rumblelevel "
    "dimtime wifi hostap bluetooth bconfirm fanlevel timezone 24hourclock usenetworktime storeurl colorbrightness "
    "colorcontrast colortemperature colorsaturation enablehome focusontab osdshortcut favoritetab recentplayedtab "
    "beststab retrogametab portstab appstab netplaytab usejoystick enablekeytone enablessh");

}  // namespace ostrel
