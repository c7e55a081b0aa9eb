#include "ostrel/system_settings.h"

#include <cstdlib>
#include <cstring>
#include <iterator>

#include "platform/ascii.h"
#include "settings/settings_internal.h"

namespace {

constexpr std::size_t kLanguageSize = 64;
constexpr std::size_t kZoneSize = 256;

// One byte longer than the text that is kept, so that the longest one ends in a zero too.
char sLanguage[kLanguageSize + 1];
char sZone[kZoneSize + 1];
int s24HourClock = 1;
int sSyncTimeFromNetwork = 1;

constexpr char kDefaultLanguage[] = "en.lang";
constexpr char kZoneFolder[] = "/usr/share/zoneinfo";

struct Locale {
    const char* languageFile;
    const char* environment;
};

constexpr Locale kLocales[] = {
    {"en.lang", "LANG=en_US.UTF8"}, {"ch.lang", "LANG=zh_CN.UTF8"}, {"es.lang", "LANG=es_ES.UTF8"},
    {"pt.lang", "LANG=pt_BR.UTF8"}, {"jp.lang", "LANG=ja_JP.UTF8"}, {"ko.lang", "LANG=ko_KR.UTF8"},
};

// Key combinations that open the on-screen display; the settings file keeps the index.
constexpr const char* kOsdShortcuts[] = {
    "HOME",     "MENU+SELECT", "MENU+START", "MENU+MENU", "MENU+L2",      "MENU+R2",    "MENU+L",    "MENU+R",
    "MENU+A",   "MENU+B",      "MENU+X",     "MENU+Y",    "SELECT+START", "SELECT+L2",  "SELECT+R2", "SELECT+L",
    "SELECT+R", "START+L2",    "START+R2",   "START+L",   "START+R",      "MENU+L2+R2", "OFF",
};
constexpr int kOsdShortcutCount = static_cast<int>(std::size(kOsdShortcuts));

// The text may lie in the buffer itself.
template <std::size_t kSize>
void store(char (&buffer)[kSize], const char* text) {
    const std::size_t length = text == nullptr ? 0 : strnlen(text, kSize - 1);
    if (length > 0) std::memmove(buffer, text, length);
    buffer[length] = '\0';
}

}  // namespace

const char* getSystemLanguage() { return sLanguage[0] == '\0' ? kDefaultLanguage : sLanguage; }

void setSystemLanguage(const char* name) {
    store(sLanguage, name);
    for (const Locale& locale : kLocales) {
        if (!ostrel::equalIgnoringCase(sLanguage, locale.languageFile)) continue;
        putenv(const_cast<char*>(locale.environment));  // keeps the pointer, never writes through it
        return;
    }
}

int get24HourClockFlag() { return s24HourClock; }

void set24HourClockFlag(int flag) { s24HourClock = flag; }

int getSyncTimeFromNetworkFlag() { return sSyncTimeFromNetwork; }

void setSyncTimeFromNetworkFlag(int flag) { sSyncTimeFromNetwork = flag; }

const char* getTimeZone() { return sZone[0] == '\0' ? nullptr : sZone; }

void setTimeZone(const char* zone) {
    const char* folder = zone == nullptr ? nullptr : std::strstr(zone, kZoneFolder);
    if (folder != nullptr) {
        zone = folder + std::strlen(kZoneFolder);
        if (*zone != '\0') ++zone;  // the slash; the folder alone names no zone
    }
    ostrel::storeTimeZone(zone);
}

const char* getOSDShorcut(int index) {
    return index >= 0 && index < kOsdShortcutCount ? kOsdShortcuts[index] : nullptr;
}

int getOSDShortcutNumber() { return kOsdShortcutCount; }

namespace ostrel {

void storeTimeZone(const char* zone) { store(sZone, zone); }

}  // namespace ostrel
