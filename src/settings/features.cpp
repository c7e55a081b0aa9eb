#include <cstdio>
#include <cstdlib>
#include <string>

#include "ostrel/system_settings.h"
#include "platform/device_paths.h"
#include "platform/handles.h"
#include "platform/json.h"

using ostrel::DevicePath;
using ostrel::FilePtr;

namespace {

int sBluetooth = 0;
int sSuspend = 1;
int sBatteryTemp = 0;

FilePtr openFeatures() {
    // The card comes first, so that a developer can try features without writing to the console.
    FilePtr file{std::fopen(ostrel::devicePath(DevicePath::FeaturesOnCard), "r")};
    if (!file) file.reset(std::fopen(ostrel::devicePath(DevicePath::FeaturesBuiltIn), "r"));
    return file;
}

void makeStayAwakeMarker() {
    const std::string command = std::string("touch ") + ostrel::devicePathForShell(DevicePath::StayAwakeMarker);
    [[maybe_unused]] const int ignored = std::system(command.c_str());
}

}  // namespace

void loadSystemFunction() {
    const FilePtr file = openFeatures();
    if (!file) return;
    const ostrel::JsonPtr root = ostrel::readJson("features.json", file.get());
    const auto number = [&](const char* key) {
        return ostrel::jsonNumber(ostrel::jsonGet(root.get(), key, getSystemLanguage()));
    };
    if (const auto bluetooth = number("bluetooth")) sBluetooth = *bluetooth;
    if (const auto suspend = number("suspend")) {
        sSuspend = *suspend;
        if (sSuspend == 0) makeStayAwakeMarker();
    }
    if (const auto batteryTemp = number("battemp")) sBatteryTemp = *batteryTemp;
}

int isBluetoothEanbled() { return sBluetooth; }

int isSuspendEnabled() { return sSuspend; }

int isBatteryTempEnabled() { return sBatteryTemp; }

int getBluetoothFlag(ShmInfo* shm) {
    if (sBluetooth == 0) return 0;
    return GetKeyShm(shm, SHM_BLUETOOTH) == 1 ? 1 : 0;
}
