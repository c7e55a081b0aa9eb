// A program on the console's own paths that tells, for each line that it reads, what the library finds there.
#include <ostrel/ostrel.h>
#include <unistd.h>

#include <array>
#include <iostream>
#include <string>

struct ShmInfo {
    std::array<int, 21> values{};
};

namespace {

ShmInfo sShm;

bool exists(const char* path) { return access(path, F_OK) == 0; }

void tell() {
    const WpaMsg wifi = rx_get_wpa_msg();
    loadSystemState(&sShm, nullptr);
    std::cout << "battery=" << readBatteryADC() << " charging=" << ischarging() << " usb=" << isUsbOnline()
              << " mode=" << getWifiMode() << " state=" << wifi.state << " rssi=" << wifi.rssi << " ssid=" << wifi.ssid
              << " ip=" << wifi.ip << " headphones=" << exists("/dev/dsp1")
              << " overlay=" << exists("/tmp/osdd_show_up") << " grab=" << exists("/tmp/ostrel_inputd/grab")
              << " volume=" << sShm.values[SHM_VOL] << std::endl;
}

}  // namespace

ShmInfo* gShmInfo = &sShm;
const char* gThemePath = nullptr;
int GetKeyShm(ShmInfo* shm, int key) { return shm->values[static_cast<std::size_t>(key)]; }
void SetKeyShm(ShmInfo* shm, int key, int value) { shm->values[static_cast<std::size_t>(key)] = value; }
bool file_filter(const char*, const char*) { return true; }
TextMenuItem* file_handler(const char*, const char*, int) { return nullptr; }
void initJoyStick() {}

int main() {
    for (std::string line; std::getline(std::cin, line);) tell();
}
