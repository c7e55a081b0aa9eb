#include "ostrel/wifi.h"

#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <string>

#include "device/wpa_output.h"
#include "ostrel/file_utils.h"
#include "ostrel/log.h"
#include "platform/device_paths.h"
#include "platform/handles.h"

using ostrel::DevicePath;

WpaMsg g_wpa_msg{};

namespace {

constexpr useconds_t kRefreshPeriodUs = 3'000'000;

std::atomic<int> sRunning{0};
std::atomic<unsigned> sNewestMonitor{0};  // threads are numbered from 1, in the order in which they are started
std::mutex sRefreshing;                   // two refreshes would write the same file
std::mutex sPublishing;                   // keeps writers of the record apart; never held while a query runs

bool isRunning(const char* process) { return check_process_exist(process, 0) >= 0; }

enum class Redirect { Truncate, Append };

void runWpaCli(const char* query, Redirect redirect) {
    const std::string command = std::string("wpa_cli -p ") + ostrel::devicePathForShell(DevicePath::WpaSockets) +
                                " -i wlan0 " + query + (redirect == Redirect::Append ? " >> " : " > ") +
                                ostrel::devicePathForShell(DevicePath::WpaOutput);
    [[maybe_unused]] const int ignored = std::system(command.c_str());
}

// Grows with what it reads: the two answers can be longer than any size fixed before, and than the file was a moment
// ago when another program writes it too.
std::string readOutput() {
    std::string text;
    const ostrel::FilePtr file{std::fopen(ostrel::devicePath(DevicePath::WpaOutput), "r")};
    if (!file) return text;
    char part[4096];
    while (const std::size_t size = std::fread(part, 1, sizeof(part), file.get())) text.append(part, size);
    return text;
}

// The one unlocked exchange of the library: readers on other threads may see a mix of two records, as the header says,
// and never wait for a refresh. The suppressions of the thread sanitizer name this function.
void publishWifiRecord(const WpaMsg& record) { std::memcpy(&g_wpa_msg, &record, sizeof(record)); }

// A thread that is still asleep when the monitor is stopped and started again would find the flag set: the number keeps
// it from going on beside its successor.
bool isWanted(unsigned number) { return sRunning != 0 && sNewestMonitor == number; }

// The monitor may have been stopped, and started again, while the query ran: its answer is then no longer wanted.
void publishIfWanted(unsigned number, const WpaMsg& record) {
    const std::lock_guard<std::mutex> writing{sPublishing};
    if (isWanted(number)) publishWifiRecord(record);
}

void* monitorWifi(void* argument) {
    const unsigned number = *std::unique_ptr<unsigned>{static_cast<unsigned*>(argument)};
    const auto tid = static_cast<unsigned>(gettid());
    tprintf("%s pid %u tid %u (0x%x)\n", "new thread_wifi_monitor:", static_cast<unsigned>(getpid()), tid, tid);
    while (isWanted(number)) {
        if (isRunning("wpa_supplicant")) publishIfWanted(number, rx_get_wpa_msg());
        usleep(kRefreshPeriodUs);
    }
    return nullptr;
}

// Clears the record. @return the number of the thread to start, or 0 when the monitor runs already.
unsigned beginMonitoring() {
    const std::lock_guard<std::mutex> writing{sPublishing};
    publishWifiRecord(WpaMsg{});
    if (sRunning != 0) return 0;
    const unsigned number = ++sNewestMonitor;
    sRunning = 1;  // after the number, or a former thread could take the flag for its own
    return number;
}

}  // namespace

WpaMsg rx_get_wpa_msg() {
    const std::lock_guard<std::mutex> alone{sRefreshing};
    runWpaCli("status", Redirect::Truncate);
    runWpaCli("signal_poll", Redirect::Append);
    return ostrel::parseWpaOutput(readOutput().c_str());
}

WpaMsg* rx_wifi_status() { return &g_wpa_msg; }

void rx_wifi_monitor_start() {
    auto number = std::make_unique<unsigned>(beginMonitoring());
    if (*number == 0) {
        tprintf("wifi monitor already started.");
        return;
    }
    // Without a thread the status stays zero, which the bar shows as not connected.
    pthread_t monitor{};
    if (pthread_create(&monitor, nullptr, monitorWifi, number.get()) != 0) return;
    [[maybe_unused]] const unsigned* theThreads = number.release();
    pthread_detach(monitor);
}

void rx_wifi_monitor_stop() { sRunning = 0; }

int rssi2Level(int rssi) {
    if (rssi < -126 || rssi > 127) return 0;
    if (rssi < -80) return 1;
    return rssi < -70 ? 2 : 3;
}

int getWifiMode() {
    if (isRunning("wpa_supplicant")) return WIFI_MODE_STATION;
    return isRunning("hostapd") ? WIFI_MODE_HOTSPOT : WIFI_MODE_OFF;
}
