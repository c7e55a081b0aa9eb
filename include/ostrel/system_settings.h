/// @file  system_settings.h: optional hardware features, language, clock, time zone and display tuning.
/// Threads: UI thread only.
#pragma once
#include "ostrel/export.h"
#include "ostrel/host.h"

OSTREL_API void loadSystemFunction();
OSTREL_API int isBluetoothEanbled();
OSTREL_API int isSuspendEnabled();
OSTREL_API int isBatteryTempEnabled();
OSTREL_API int getBluetoothFlag(ShmInfo* shm);

OSTREL_API const char* getSystemLanguage();
OSTREL_API void setSystemLanguage(const char* name);

OSTREL_API int get24HourClockFlag();
OSTREL_API void set24HourClockFlag(int flag);
OSTREL_API int getSyncTimeFromNetworkFlag();
OSTREL_API void setSyncTimeFromNetworkFlag(int flag);
OSTREL_API const char* getTimeZone();
OSTREL_API void setTimeZone(const char* zone);

OSTREL_API int getColorBrightness();
OSTREL_API int getContrast();
OSTREL_API int getColorTemperature();
OSTREL_API int getSaturation();
OSTREL_API void setColorBrightness(int level);
OSTREL_API void setContrast(int level);
OSTREL_API void setColorTemperature(int level);
OSTREL_API void setSaturation(int level);
OSTREL_API void restoreColorBrightness();
OSTREL_API void restoreContrast();
OSTREL_API void restoreColorTemperature();
OSTREL_API void restoreSaturation();

OSTREL_API const char* getOSDShorcut(int index);
OSTREL_API int getOSDShortcutNumber();
