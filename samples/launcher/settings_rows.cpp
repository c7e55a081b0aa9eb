#include "settings_rows.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include "ostrel/host.h"
#include "ostrel/input.h"
#include "ostrel/language.h"
#include "ostrel/skin.h"
#include "ostrel/system_settings.h"
#include "ostrel/system_state.h"
#include "settings_values.h"
#include "text_layout.h"
#include "theme.h"

namespace launcher {
namespace {

// By their clocks, from west to east.
constexpr const char* kZones[] = {
    "UTC",
    "Pacific/Honolulu",
    "America/Anchorage",
    "America/Los_Angeles",
    "America/Denver",
    "America/Mexico_City",
    "America/New_York",
    "America/Sao_Paulo",
    "Atlantic/Azores",
    "Europe/London",
    "Europe/Madrid",
    "Europe/Berlin",
    "Europe/Athens",
    "Africa/Nairobi",
    "Europe/Moscow",
    "Asia/Dubai",
    "Asia/Karachi",
    "Asia/Kolkata",
    "Asia/Dhaka",
    "Asia/Bangkok",
    "Asia/Shanghai",
    "Asia/Tokyo",
    "Asia/Seoul",
    "Australia/Sydney",
    "Pacific/Auckland",
};
constexpr int kZoneCount = static_cast<int>(std::size(kZones));

constexpr int kNeutralTemperature = 10;
constexpr int kNotListed = -1;
constexpr int kValueWidth = 400;  // between the arrows of a row

std::string sThemeRequest;

template <ShmKey key>
int statusOf() {
    return GetKeyShm(gShmInfo, key);
}
template <ShmKey key>
void setStatus(int value) {
    SetKeyShm(gShmInfo, key, value);
}
template <int& flag>
int flagOf() {
    return flag;
}
template <int& flag>
void setFlag(int value) {
    flag = value;
}

std::string numberText(int value) { return std::to_string(value); }

// Warmer and colder than neutral, with the sign that is as wide as the plus.
std::string temperatureText(int value) {
    const int offset = value - kNeutralTemperature;
    if (offset == 0) return "0";
    return (offset > 0 ? "+" : "−") + std::to_string(std::abs(offset));
}

std::string joystickText(int value) {
    if (value < 0 || value > kTextJoystickBoth - kTextJoystickOff) return getLangStr(kTextUnknown);
    return getLangStr(kTextJoystickOff + value);
}

std::string shortcutText(int value) {
    if (value == getOSDShortcutNumber() - 1) return getLangStr(kTextShortcutOff);
    const char* name = getOSDShorcut(value);
    return name == nullptr ? getLangStr(kTextUnknown) : name;
}

const char* zoneInUse() { return getTimeZone() == nullptr ? "UTC" : getTimeZone(); }

int zoneIndex() {
    const auto* place = std::find_if(std::begin(kZones), std::end(kZones),
                                     [](const char* zone) { return std::strcmp(zone, zoneInUse()) == 0; });
    return place == std::end(kZones) ? kNotListed : static_cast<int>(place - std::begin(kZones));
}

void setZone(int index) {
    setTimeZone(kZones[index]);
    applyTimeZone();
}

// "Los Angeles" of America/Los_Angeles, also for a zone that is not in the table.
std::string zoneText(int /*index*/) {
    std::string city = zoneInUse();
    city.erase(0, city.rfind('/') + 1);
    std::replace(city.begin(), city.end(), '_', ' ');
    return city;
}

int themeIndex() {
    const std::string theme = !sThemeRequest.empty() ? sThemeRequest : gThemePath == nullptr ? "" : gThemePath;
    const auto place = std::find_if(themes().begin(), themes().end(),
                                    [&theme](const ThemeInfo& info) { return info.directory == theme; });
    return place == themes().end() ? kNotListed : static_cast<int>(place - themes().begin());
}

void requestTheme(int index) { sThemeRequest = themes()[static_cast<std::size_t>(index)].directory; }

std::string themeText(int index) {
    if (index == kNotListed) return getLangStr(kTextUnknown);
    return getLangStr(themes()[static_cast<std::size_t>(index)].name);
}

constexpr SettingKind kLevel = SettingKind::Level;
constexpr SettingKind kChoice = SettingKind::Choice;
constexpr SettingKind kSwitch = SettingKind::Switch;

std::vector<Setting> makeSettings() {
    const int lastShortcut = getOSDShortcutNumber() - 1;
    const int lastTheme = static_cast<int>(themes().size()) - 1;
    return {
        {kTextVolume, kLevel, 0, 20, statusOf<SHM_VOL>, setStatus<SHM_VOL>, numberText},
        {kTextBrightness, kLevel, 0, 10, statusOf<SHM_BRIGHTNESS>, setStatus<SHM_BRIGHTNESS>, numberText},
        {kTextColourBrightness, kLevel, 1, 10, getColorBrightness, setColorBrightness, numberText},
        {kTextContrast, kLevel, 1, 10, getContrast, setContrast, numberText},
        {kTextColourTemperature, kLevel, 0, 20, getColorTemperature, setColorTemperature, temperatureText},
        {kTextSaturation, kLevel, 0, 10, getSaturation, setSaturation, numberText},
        {kTextLanguage, SettingKind::Language, 0, 0, nullptr, nullptr, nullptr},
        {kTextTimeZone, kChoice, 0, kZoneCount - 1, zoneIndex, setZone, zoneText},
        {kText24HourClock, kSwitch, 0, 1, get24HourClockFlag, set24HourClockFlag, nullptr},
        {kTextWifi, kSwitch, 0, 1, statusOf<SHM_WIFI>, setStatus<SHM_WIFI>, nullptr},
        {kTextBluetooth, kSwitch, 0, 1, statusOf<SHM_BLUETOOTH>, setStatus<SHM_BLUETOOTH>, nullptr},
        {kTextBConfirms, kSwitch, 0, 1, statusOf<SHM_BCONFIRM>, setStatus<SHM_BCONFIRM>, nullptr},
        {kTextKeyTone, kSwitch, 0, 1, flagOf<gEnableKeyTone>, setFlag<gEnableKeyTone>, nullptr},
        {kTextJoystick, kChoice, 0, 3, flagOf<gUseJoystick>, setFlag<gUseJoystick>, joystickText},
        {kTextShortcut, kChoice, 0, lastShortcut, statusOf<SHM_OSDSHORTCUT>, setStatus<SHM_OSDSHORTCUT>, shortcutText},
        {kTextTheme, kChoice, 0, lastTheme, themeIndex, requestTheme, themeText},
    };
}

bool isLeftOut(const Setting& setting) { return setting.title == kTextBluetooth && isBluetoothEanbled() == 0; }

}  // namespace

std::vector<Setting> settings() {
    std::vector<Setting> offered = makeSettings();
    offered.erase(std::remove_if(offered.begin(), offered.end(), isLeftOut), offered.end());
    return offered;
}

void changeSetting(const Setting& setting, int value) {
    setting.set(value);
    settingsChanged();
}

// A settings file may hold any number, so the next one is counted in a wider type.
void stepSetting(const Setting& setting, int direction) {
    const int value = setting.get();
    const std::int64_t wanted = std::int64_t{value} + direction;
    const bool goRound = setting.kind == SettingKind::Choice;
    int next = static_cast<int>(std::clamp<std::int64_t>(wanted, setting.first, setting.last));
    if (wanted < setting.first && goRound) next = setting.last;
    if (wanted > setting.last && goRound) next = setting.first;
    if (next != value) changeSetting(setting, next);
}

bool themeRequested() { return !sThemeRequest.empty(); }

std::string takeThemeRequest() {
    std::string theme;
    theme.swap(sThemeRequest);
    return theme;
}

std::string languageName() {
    for (const LangInfo& language : getLangList()) {
        if (language.fileName == getSystemLanguage()) return language.langName;
    }
    return getSystemLanguage();
}

void chooseLanguage(const std::string& fileName) {
    setSystemLanguage(fileName.c_str());
    settingsChanged();
}

void SettingValue::changeValue(int key) { stepSetting(mSetting, key == KEY_LEFT ? -1 : 1); }

const char* SettingValue::getValueText() {
    mText = cutToFit(gListFontTxt, mSetting.text(mSetting.get()), kValueWidth);
    return mText.c_str();
}

}  // namespace launcher
