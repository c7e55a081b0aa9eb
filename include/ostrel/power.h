/// @file  power.h: charger and battery, as the AXP2202 power chip reports them through the kernel.
/// Each function opens its file below /sys/class/power_supply, reads one line and closes it; nothing is kept.
/// Threads: any.  Errors: a file that cannot be read is silent and counts as stated with each function.
#pragma once
#include "ostrel/export.h"

/// @return whether the battery is being charged: axp2202-battery/status begins with "Charging". "Not charging",
///         "Discharging", "Full" and an unreadable file give false.
OSTREL_API bool ischarging();

/// @return whether a USB supply is plugged in: axp2202-usb/online begins with "1". An unreadable file gives false.
OSTREL_API bool isUsbOnline();

/// Reads how full the battery is. The name is historical: it is the driver's estimate, not a converter reading.
/// @return percent, the decimal number at the start of axp2202-battery/capacity, passed on as it is even outside
///         0..100; 0 when the file cannot be read or does not begin with a number.
OSTREL_API int readBatteryADC();
