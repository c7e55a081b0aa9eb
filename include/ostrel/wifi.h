/// @file  wifi.h: the state of the wireless network, asked of wpa_cli and kept fresh by a monitor thread.
/// Threads: any; the status record is shared without a lock, see rx_wifi_status.  Errors: nothing is logged or
/// returned; a tool that fails, a file that is missing and a value that is no number leave their fields at zero.
#pragma once
#include <cstdint>

#include "ostrel/export.h"

/// What the supplicant is doing. 3 and 5 do not occur; programs compare with the numbers, so the gaps stay.
enum WifiState {
    WIFI_STATE_DISABLED = 0,       ///< "DISABLED", any state not named here, or no answer
    WIFI_STATE_INACTIVE = 1,       ///< "INACTIVE"
    WIFI_STATE_SCANNING = 2,       ///< "SCANNING"
    WIFI_STATE_COMPLETED = 4,      ///< "COMPLETED": connected
    WIFI_STATE_4WAY_HANDSHAKE = 6  ///< "4WAY_HANDSHAKE": exchanging keys
};

/// What the wireless chip is used for.
enum WifiMode {
    WIFI_MODE_OFF = 1,      ///< neither daemon runs
    WIFI_MODE_STATION = 2,  ///< "wpa_supplicant" runs, whether or not "hostapd" does too
    WIFI_MODE_HOTSPOT = 3   ///< "hostapd" runs
};

/// A reading of the network's status. Programs read it by pointer: the layout is part of the binary interface.
struct WpaMsg {
    int32_t state;      ///< a WifiState, from "wpa_state="
    int32_t reserved;   ///< always 0
    char ssid[64];      ///< network name up to its first blank, "\xNN" decoded to bytes, cut to 63 and zero-terminated
    char ip[24];        ///< IPv4 address as text, from "ip_address=", cut to 23 and zero-terminated
    int32_t rssi;       ///< signal strength in dBm, from "RSSI="; see rssi2Level
    int32_t linkSpeed;  ///< Mbit/s, from "LINKSPEED="
    int32_t noise;      ///< dBm, from "NOISE="
    int32_t freq;       ///< channel frequency in MHz, from "FREQUENCY="
    int32_t id;         ///< the number after the first "id=" in the text; that is the one in "bssid=" as a rule, whose
                        ///< leading digits then stand here (0 when it begins with a letter)
};
static_assert(sizeof(WpaMsg) == 116, "programs rely on the layout");

/// The status that the monitor keeps; zero until its first refresh. Read it as rx_wifi_status says.
extern OSTREL_API WpaMsg g_wpa_msg;

/// Asks the supplicant now: runs "wpa_cli ... status" and "wpa_cli ... signal_poll" on wlan0 through the shell, which
/// write /tmp/wpa_status.txt, and reads that file. Blocks as long as both take (a second call at the same time waits
/// for the first), so not for the UI thread in a loop.
/// @return a new record; g_wpa_msg is not touched.
OSTREL_API WpaMsg rx_get_wpa_msg();

/// @return g_wpa_msg, never null. The monitor replaces the record in one copy while others read: a reader may see
///         fields of the old record beside fields of the new one, but none half parsed.
OSTREL_API WpaMsg* rx_wifi_status();

/// Sets g_wpa_msg to zeros, always, and starts the monitor thread unless it runs; then "wifi monitor already started."
/// is logged, without a line feed. The thread logs its ids and, every 3 seconds while "wpa_supplicant" runs, refreshes
/// g_wpa_msg; while it does not run, the last values stay.
OSTREL_API void rx_wifi_monitor_start();

/// Asks the monitor thread to end and returns at once. The thread ends after its current sleep, up to 3 seconds later;
/// a start within that time has a new thread take its place. The answer to a query that runs meanwhile is dropped.
OSTREL_API void rx_wifi_monitor_stop();

/// @param rssi in dBm.
/// @return the number of bars: 3 from -70 up, 2 from -80 up, 1 below; 0 for readings below -126 or above 127, which the
///         drivers give without a signal.
OSTREL_API int rssi2Level(int rssi);

/// @return a WifiMode, from the processes that run now (see check_process_exist).
OSTREL_API int getWifiMode();
