// A program on the console itself: without a device root, so every path is the literal one. run.sh lays out what it
// meets there, and what it is to read.
#include <ostrel/ostrel.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

struct ShmInfo {
    std::map<int, int> values;
};

namespace {

ShmInfo sShm;
int sFailures = 0;

void expect(const char* what, const std::string& value, const std::string& expected) {
    if (value == expected) return;
    std::fprintf(stderr, "%s: \"%s\" in place of \"%s\"\n", what, value.c_str(), expected.c_str());
    ++sFailures;
}

void expect(const char* what, int value, int expected) {
    expect(what, std::to_string(value), std::to_string(expected));
}

std::string content(const std::string& path) {
    std::ifstream file(path);
    if (!file) return "no such file";
    return {std::istreambuf_iterator<char>(file), {}};
}

void checkFeatures() {
    loadSystemFunction();
    expect("feature of the card", isBluetoothEanbled(), 1);
    expect("marker", content("/tmp/stay_awake"), "");
    unlink("/mnt/SDCARD/features.json");
    loadSystemFunction();
    expect("feature of the console", isBluetoothEanbled(), 2);
}

void checkSettings() {
    loadSystemState(&sShm, nullptr);
    expect("volume read", sShm.values[SHM_VOL], 7);
    const std::string display = "/sys/devices/virtual/disp/disp/attr/";
    expect("brightness", content(display + "enhance_bright"), "30");
    expect("contrast", content(display + "enhance_contrast"), "40");
    expect("temperature", content(display + "color_temperature"), "10");
    expect("saturation", content(display + "enhance_saturation"), "60");
    unlink("/mnt/UDISK/system.json");
    expect("saved", saveOneItemInSystemState("vol", 9), 0);
    expect("one setting written", content("/mnt/UDISK/system.json"), "{\n\t\"vol\":\t9\n}");
    saveSystemState(&sShm, nullptr);
    expect("settings written", content("/mnt/UDISK/system.json").substr(0, 12), "{\n\t\"vol\":\t7,");
}

void checkDevices() {
    expect("charging", static_cast<int>(ischarging()), 1);
    expect("on USB", static_cast<int>(isUsbOnline()), 1);
    expect("battery", readBatteryADC(), 42);
    expect("network", rx_get_wpa_msg().ssid, "/etc/wifi/sockets");
    const std::string answer = "wpa_state=COMPLETED\nssid=/etc/wifi/sockets\n";
    expect("both answers", content("/tmp/wpa_status.txt"), answer + answer);
    // Our own name as other processes see it. The dot: an emulator of our processor, which they see in our place, would
    // answer for /proc/self/cmdline itself.
    const std::string own = content("/proc/./self/cmdline").c_str();
    expect("a process", static_cast<int>(check_process_exist(own.c_str(), 0) > 0), 1);
}

}  // namespace

ShmInfo* gShmInfo = &sShm;
const char* gThemePath = nullptr;
int GetKeyShm(ShmInfo* shm, int key) { return shm->values[key]; }
void SetKeyShm(ShmInfo* shm, int key, int value) { shm->values[key] = value; }
bool file_filter(const char*, const char*) { return true; }
TextMenuItem* file_handler(const char*, const char*, int) { return nullptr; }
void initJoyStick() {}

// Spares the machine that runs the tests a sync of all its file systems.
extern "C" void sync() noexcept {}

int main() {
    if (access("/console", F_OK) != 0) {
        std::fprintf(stderr, "this is no console: start run.sh\n");
        return 1;
    }
    checkFeatures();
    checkSettings();
    checkDevices();
    return sFailures == 0 ? 0 : 1;
}
