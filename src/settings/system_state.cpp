#include "ostrel/system_state.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <utility>

#include "ostrel/log.h"
#include "ostrel/system_settings.h"
#include "platform/device_paths.h"
#include "platform/json.h"
#include "settings/settings_internal.h"
#include "settings/settings_table.h"

int gEnableKeyTone = 1;
int gUseJoystick = 1;
int gEnableNetPlayTab = 1;
int gEnableAppsTab = 1;
int gEnablePortsTab = 1;
int gEnableRetroGameTab = 1;
int gEnableBestsTab = 1;
int gEnableRecentPlayedTab = 1;
int gAllowFocusOnTab = 1;
int gEnableFavoriteTab = 1;
int gEnableHomeWindow = 1;
int gEnableSSH = 0;
char* gStoreUrl = nullptr;

using ostrel::devicePath;
using ostrel::DevicePath;
using ostrel::FilePtr;
using ostrel::JsonPtr;
using ostrel::JsonText;
using ostrel::Kind;
using ostrel::MallocText;
using ostrel::Missing;
using ostrel::Setting;

namespace {

void setStoreUrl(const char* url) {
    const MallocText previous{gStoreUrl};
    gStoreUrl = url == nullptr ? nullptr : strdup(url);
}

// Loading.

const cJSON* member(const cJSON* root, const char* key) { return ostrel::jsonGet(root, key, getSystemLanguage()); }

int volumeMember(const cJSON* root) { return ostrel::jsonNumber(member(root, "vol")).value_or(0); }

// The number that counts for a setting; nothing when the member is missing or cannot be taken.
std::optional<int> loadedNumber(const cJSON* root, const Setting& setting) {
    const std::optional<int> number = ostrel::jsonNumber(member(root, setting.key));
    if (!number) return std::nullopt;
    // Both look at "vol", and are meant to. (MuteFollowsVolAndNotItsOwnValue, BackgroundVolumeIsBoundedByVol)
    if (setting.kind == Kind::Mute) return volumeMember(root) != 0 ? 1 : 0;
    if (setting.kind == Kind::BackgroundVolume && static_cast<unsigned>(volumeMember(root)) > 20) return std::nullopt;
    return number;
}

int acceptedNumber(const Setting& setting, int number) {
    if (setting.accepted.asSwitch) return number != 0 ? 1 : 0;
    const bool inRange = number >= setting.accepted.lowest && number <= setting.accepted.highest;
    return inRange ? number : setting.fallback;
}

void loadNumber(const cJSON* root, const Setting& setting, ShmInfo* shm) {
    const std::optional<int> number = loadedNumber(root, setting);
    if (!number && setting.missing == Missing::Unchanged) return;
    setting.place.write(shm, acceptedNumber(setting, number.value_or(setting.fallback)));
}

void loadTheme(const char* path, char** themeOut) {
    if (themeOut == nullptr) return;
    *themeOut = path != nullptr && access(path, F_OK) == 0 ? strdup(path) : nullptr;
}

void loadSetting(const cJSON* root, const Setting& setting, ShmInfo* shm, char** themeOut) {
    const char* text = cJSON_GetStringValue(member(root, setting.key));
    switch (setting.kind) {
        case Kind::Number:
        case Kind::Mute:
        case Kind::BackgroundVolume:
            loadNumber(root, setting, shm);
            break;
        case Kind::Language:
            if (text != nullptr) setSystemLanguage(text);
            break;
        case Kind::Theme:
            loadTheme(text, themeOut);
            break;
        case Kind::StoreUrl:
            setStoreUrl(text);
            break;
        case Kind::TimeZone:
            if (text != nullptr) ostrel::storeTimeZone(text);
            break;
    }
}

void resetSetting(const Setting& setting, ShmInfo* shm) {
    if (setting.kind == Kind::StoreUrl) {
        setStoreUrl(nullptr);
    } else if (setting.kind == Kind::TimeZone) {
        ostrel::storeTimeZone("");
    } else {
        setting.place.write(shm, setting.fallback);
    }
}

JsonPtr readSettingsFile() {
    const char* path = devicePath(DevicePath::SettingsFile);
    const FilePtr file{std::fopen(path, "r")};
    return file ? ostrel::readJson(path, file.get()) : nullptr;
}

// Saving.

JsonPtr textItem(const char* text) { return JsonPtr{text == nullptr ? nullptr : cJSON_CreateString(text)}; }

// Null when there is nothing to write, or no memory.
JsonPtr makeItem(const Setting& setting, ShmInfo* shm, const char* themePath) {
    switch (setting.kind) {
        case Kind::Language:
            return textItem(getSystemLanguage());
        case Kind::Theme:
            return textItem(themePath);
        case Kind::StoreUrl:
            return textItem(gStoreUrl);
        case Kind::TimeZone:
            return textItem(getTimeZone());
        case Kind::Mute:
            return JsonPtr{cJSON_CreateNumber(setting.place.read(shm) != 0 ? 1 : 0)};
        case Kind::Number:
        case Kind::BackgroundVolume:
            break;
    }
    return JsonPtr{cJSON_CreateNumber(setting.place.read(shm))};
}

JsonPtr makeDocument(ShmInfo* shm, const char* themePath) {
    JsonPtr root{cJSON_CreateObject()};
    for (std::size_t i = 0; i < ostrel::kWriteOrder.size(); ++i) {
        JsonPtr item = makeItem(*ostrel::kWriteOrder[i], shm, themePath);
        if (!item && i < ostrel::kRequiredCount) return nullptr;
        if (item && root) cJSON_AddItemToObjectCS(root.get(), ostrel::kWriteOrder[i]->key, item.release());
    }
    return root;
}

void removeMembers(cJSON* root, const char* key) {
    while (cJSON* item = ostrel::jsonPlain(root, key)) {
        const JsonPtr removed{cJSON_DetachItemViaPointer(root, item)};
    }
}

// The present document, or a new one when there is no file; null when there is a file but no JSON object in it.
JsonPtr documentToChange(const char* path) {
    const FilePtr file{std::fopen(path, "r")};
    if (!file) return JsonPtr{cJSON_CreateObject()};
    JsonPtr root = ostrel::readJson(path, file.get());
    return cJSON_IsObject(root.get()) != 0 ? std::move(root) : nullptr;
}

}  // namespace

void loadSystemState(ShmInfo* shm, char** themeOut) {
    const JsonPtr root = readSettingsFile();
    if (!root) {
        for (const Setting* setting : ostrel::kResetOrder) resetSetting(*setting, shm);
        return;
    }
    for (const Setting& setting : ostrel::kSettings) loadSetting(root.get(), setting, shm, themeOut);
}

void loadThemeInfo(char** themeOut) {
    const JsonPtr root = readSettingsFile();
    if (root) loadTheme(cJSON_GetStringValue(member(root.get(), "theme")), themeOut);
}

void saveSystemState(ShmInfo* shm, const char* themePath) {
    FilePtr file{std::fopen(devicePath(DevicePath::SettingsFile), "w+")};
    if (!file) return;
    const JsonPtr root = makeDocument(shm, themePath);
    if (!root) return;
    const JsonText text{cJSON_Print(root.get())};
    if (text) std::fwrite(text.get(), 1, std::strlen(text.get()), file.get());
    file.reset();
    sync();
}

int saveOneItemInSystemState(const char* key, int value) {
    if (key == nullptr) return -1;
    const char* path = devicePath(DevicePath::SettingsFile);
    const JsonPtr root = documentToChange(path);
    if (!root) {
        tprintf("parse json %s fail while save %s\n", path, key);
        return -1;
    }
    removeMembers(root.get(), key);
    // The text is ready before the file is opened, because opening empties it.
    const bool added = cJSON_AddNumberToObject(root.get(), key, value) != nullptr;
    const JsonText text{added ? cJSON_Print(root.get()) : nullptr};
    if (!text) return -1;
    const FilePtr file{std::fopen(path, "w")};
    if (!file) {
        tprintf("open %s fail\n", path);
        return -1;
    }
    // A full storage is not looked for: what counts is that the file was opened.
    std::fputs(text.get(), file.get());
    tprintf("write %s to %s\n", text.get(), path);
    return 0;
}
