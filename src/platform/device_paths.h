// Every absolute path of the device, named once. A path comes out of devicePath(), which puts the device root in front.
#pragma once
#include <string>

namespace ostrel {

enum class DevicePath {
    Proc,               // one directory per process
    FeaturesOnCard,     // optional hardware features, the player's card first
    FeaturesBuiltIn,    // ... and the console's own
    SettingsFile,       // what the player has set
    DisplayBrightness,  // attributes of the display engine
    DisplayContrast,
    DisplayTemperature,
    DisplaySaturation,
    StayAwakeMarker,  // exists: other programs keep the console awake
    InputGrabMarker,  // exists: another program holds the input device
    DisplayUpMarker,  // exists: the on-screen display of another program owns the input
    BatteryStatus,    // attributes of the power chip
    BatteryCapacity,
    UsbOnline,
    WpaSockets,         // the folder of the supplicant's control sockets
    WpaOutput,          // what wpa_cli answered last
    BluetoothAddress,   // exists: a device is paired
    BluetoothReady,     // exists: ... and connected
    SecondSoundDevice,  // readable while audio is plugged in
    Count
};

// The path with the device root in front; valid until the next setDeviceRoot.
const char* devicePath(DevicePath path);

// Whether something stands at the path.
bool deviceFileExists(DevicePath path);

// The same path as one word of a shell command: quoted when a root is set, else as it is.
const char* devicePathForShell(DevicePath path);

}  // namespace ostrel
