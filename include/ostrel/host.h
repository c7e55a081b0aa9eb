/// @file  host.h: what the program around the library must supply, and the keys of its status block.
/// The library leaves these names undefined; the program that links it defines every one of them, with C++ linkage and
/// default visibility. Threads: the UI thread calls all of them.
#pragma once
#include "ostrel/export.h"

class TextMenuItem;
/// The host's status block: opaque here, read with GetKeyShm and written with SetKeyShm alone.
struct ShmInfo;

/// Keys of the status block. Each holds one int; the settings file keeps most of them under the name given.
/// Keys 4 and 17 are not used by the library.
enum ShmKey {
    SHM_VOL = 0,           ///< "vol", master volume 0..20; below 1 the status bar shows the muted icon
    SHM_BRIGHTNESS = 1,    ///< "brightness", backlight 0..10
    SHM_KEYMAP = 2,        ///< "keymap", key map selection 0..1
    SHM_MUTE = 3,          ///< "mute", mute switch 0/1
    SHM_BGMVOL = 5,        ///< "bgmvol", background music volume
    SHM_NETPLAY = 6,       ///< "netplay", netplay switch 0/1
    SHM_CPUFREQ = 7,       ///< "cpufreq", CPU frequency mode
    SHM_LEDSWITCH = 8,     ///< "ledswitch", LED switch 0/1
    SHM_MENUSTYLEL1 = 9,   ///< "menustylel1", first-level menu style
    SHM_LEDVALUE = 10,     ///< "ledvalue", LED level
    SHM_MENUSTYLEL2 = 11,  ///< "menustylel2", second-level menu style
    SHM_RUMBLELEVEL = 12,  ///< "rumblelevel", rumble strength 0..5
    SHM_DIMTIME = 13,      ///< "dimtime", screen dimming timeout in seconds
    SHM_WIFI = 14,         ///< "wifi", Wi-Fi switch 0/1
    SHM_HOSTAP = 15,       ///< "hostap", hotspot switch 0/1
    SHM_BLUETOOTH = 16,    ///< "bluetooth", Bluetooth switch; only 1 counts as on
    SHM_OSDSHORTCUT = 18,  ///< "osdshortcut", index for getOSDShorcut
    SHM_BCONFIRM = 19,     ///< "bconfirm", non-zero: B confirms and A goes back
    SHM_FANLEVEL = 20      ///< "fanlevel", -1 is automatic
};

/// The status block that the library reads and writes; the host keeps it alive while the library runs.
extern OSTREL_API ShmInfo* gShmInfo;
/// @return the value of @p key (see ShmKey) in @p shm.
OSTREL_API int GetKeyShm(ShmInfo* shm, int key);
/// Stores @p value under @p key (see ShmKey) in @p shm.
OSTREL_API void SetKeyShm(ShmInfo* shm, int key, int value);

/// The current theme directory, ending in "/"; null means none, and images then come from the working directory.
extern OSTREL_API const char* gThemePath;

/// Left to the program, which may ask it through FileBrowserMenu::browser: the library stores it and never calls it. To
/// keep an entry out of a list, file_handler returns null.
/// @param name the entry, @p path its whole path.
OSTREL_API bool file_filter(const char* name, const char* path);
/// Makes the row of a directory entry. @param name the entry, @p path its whole path, both good during the call only.
/// @param type 101 for a regular file, 102 for a directory.
/// @return a new item that the caller owns, or null to leave the entry out.
OSTREL_API TextMenuItem* file_handler(const char* name, const char* path, int type);

/// Opens the joystick, or opens it again. wait_event calls it at SDL_CONTROLLERDEVICEADDED and
/// SDL_CONTROLLERDEVICEREMOVED, and nothing else does. SDL sends both only while SDL_INIT_GAMECONTROLLER is on: the
/// first for pads that it has a mapping for alone, the second surely for those opened with SDL_GameControllerOpen and,
/// in some versions, for others. For a plain joystick, opened with SDL_JoystickOpen, the program watches
/// SDL_JOYDEVICEADDED and SDL_JOYDEVICEREMOVED itself, as gamepad.cpp of the sample launcher does.
OSTREL_API void initJoyStick();
