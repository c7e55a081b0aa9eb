/// @file  system_settings.h: optional hardware features, language, clock, time zone and display tuning.
/// One value of each for the whole process. loadSystemState fills most of them from the settings file and
/// saveSystemState writes them back; the setters here change the running system alone.
/// Threads: UI thread only.  Errors: none and no log lines, except those of loadContent on a features file.
/// Texts: getters return the library's own buffers, good until the next set; a null text given counts as empty, and a
/// text may be one that a getter returned.
#pragma once
#include "ostrel/export.h"
#include "ostrel/host.h"

// Optional hardware features.

/// Reads the features file: /mnt/SDCARD/features.json, or /usr/ostrel/features.json when the first cannot be opened
/// (only then). It is a JSON object with the numbers "bluetooth", "suspend" and "battemp"; a member that is missing or
/// of another type leaves its feature as it is, and so does a file that is missing, of a size that loadContent refuses
/// or no JSON. A "suspend" of 0 also runs "touch /tmp/stay_awake", which keeps other programs from suspending.
OSTREL_API void loadSystemFunction();

/// @return "bluetooth" of the features file: non-zero when the console has Bluetooth; 0 before any load.
OSTREL_API int isBluetoothEanbled();

/// @return "suspend" of the features file: non-zero when the console may be suspended; 1 before any load.
OSTREL_API int isSuspendEnabled();

/// @return "battemp" of the features file: non-zero when the battery temperature can be read; 0 before any load.
OSTREL_API int isBatteryTempEnabled();

/// @return 1 when the console has Bluetooth and key SHM_BLUETOOTH of the status block @p shm is exactly 1, else 0. On a
///         console without it the status block is not read.
OSTREL_API int getBluetoothFlag(ShmInfo* shm);

// Language.

/// @return the selected language file without directory, as it was set; "en.lang" while none is.
OSTREL_API const char* getSystemLanguage();

/// Selects the language file @p name, of which 64 bytes are kept: the texts of getLangStr change at once. For the six
/// files of the console (en, ch, es, pt, jp and ko.lang, in letters of either case) the environment variable LANG is
/// set to the matching UTF-8 locale; any other name leaves the environment alone.
OSTREL_API void setSystemLanguage(const char* name);

// Clock and time zone.

/// @return the flag for a clock of 24 hours as it was set, non-zero meaning on; 1 at first.
OSTREL_API int get24HourClockFlag();

/// Stores @p flag as it is.
OSTREL_API void set24HourClockFlag(int flag);

/// @return the flag for taking the time from the network as it was set, non-zero meaning on; 1 at first.
OSTREL_API int getSyncTimeFromNetworkFlag();

/// Stores @p flag as it is.
OSTREL_API void setSyncTimeFromNetworkFlag(int flag);

/// @return the name of the time zone, such as "Asia/Shanghai"; null while none is set.
OSTREL_API const char* getTimeZone();

/// Stores the name of a time zone, of which 256 bytes are kept. When @p zone contains "/usr/share/zoneinfo", only what
/// follows its first occurrence and the one character behind it is stored, so the path of a zone file may be given.
OSTREL_API void setTimeZone(const char* zone);

// Display tuning. Each setter clamps its level, stores it and writes the decimal text of the value to an attribute of
// the display engine in /sys/devices/virtual/disp/disp/attr/; without that file, the level is stored all the same.

/// @return the colour brightness 1..10; 5 at first.
OSTREL_API int getColorBrightness();

/// @return the contrast 1..10; 5 at first.
OSTREL_API int getContrast();

/// @return the colour temperature 0..20, 10 being neutral; 10 at first.
OSTREL_API int getColorTemperature();

/// @return the saturation 0..10; 5 at first.
OSTREL_API int getSaturation();

/// Sets the colour brightness. @param level 1..10; ten times that is written to enhance_bright.
OSTREL_API void setColorBrightness(int level);

/// Sets the contrast. @param level 1..10; ten times that is written to enhance_contrast.
OSTREL_API void setContrast(int level);

/// Sets the colour temperature. @param level 0..20; (level - 10) * 5 is written to color_temperature.
OSTREL_API void setColorTemperature(int level);

/// Sets the saturation. @param level 0..10; ten times that is written to enhance_saturation.
OSTREL_API void setSaturation(int level);

/// Sets the colour brightness to 5.
OSTREL_API void restoreColorBrightness();

/// Sets the contrast to 5.
OSTREL_API void restoreContrast();

/// Sets the colour temperature to 10.
OSTREL_API void restoreColorTemperature();

/// Sets the saturation to 5.
OSTREL_API void restoreSaturation();

// Shortcut of the on-screen display.

/// @param index the value of SHM_OSDSHORTCUT, 0 to getOSDShortcutNumber() - 1.
/// @return the name of that key combination, such as "MENU+L2"; "OFF" for the last; null for any other index. The text
///         is a constant.
OSTREL_API const char* getOSDShorcut(int index);

/// @return 23, the number of key combinations offered.
OSTREL_API int getOSDShortcutNumber();
