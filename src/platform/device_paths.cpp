#include "platform/device_paths.h"

#include <unistd.h>

#include <array>

#include "ostrel/device_root.h"
#include "platform/c_string.h"

namespace ostrel {
namespace {

constexpr std::size_t kPathCount = static_cast<std::size_t>(DevicePath::Count);

constexpr std::array<const char*, kPathCount> kLiteralPaths = {
    "/proc",
    "/mnt/SDCARD/features.json",
    "/usr/ostrel/features.json",
    "/mnt/UDISK/system.json",
    "/sys/devices/virtual/disp/disp/attr/enhance_bright",
    "/sys/devices/virtual/disp/disp/attr/enhance_contrast",
    "/sys/devices/virtual/disp/disp/attr/color_temperature",
    "/sys/devices/virtual/disp/disp/attr/enhance_saturation",
    "/tmp/stay_awake",
    "/tmp/ostrel_inputd/grab",
    "/tmp/osdd_show_up",
    "/sys/class/power_supply/axp2202-battery/status",
    "/sys/class/power_supply/axp2202-battery/capacity",
    "/sys/class/power_supply/axp2202-usb/online",
    "/etc/wifi/sockets",
    "/tmp/wpa_status.txt",
    "/tmp/btdev_addr",
    "/tmp/bluetooth_ready",
    "/dev/dsp1",
};

struct RootedPaths {
    bool active = false;
    std::array<std::string, kPathCount> plain;
    std::array<std::string, kPathCount> quoted;
};

// Never destroyed: a detached thread of the library may still ask for a path while the program ends.
RootedPaths& rootedPaths() {
    static auto* paths = new RootedPaths;
    return *paths;
}

std::string quoteForShell(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) {
        if (c == '\'') {
            quoted += "'\\''";
        } else {
            quoted += c;
        }
    }
    return quoted + "'";
}

}  // namespace

const char* devicePath(DevicePath path) {
    const auto index = static_cast<std::size_t>(path);
    const RootedPaths& rooted = rootedPaths();
    return rooted.active ? rooted.plain[index].c_str() : kLiteralPaths[index];
}

bool deviceFileExists(DevicePath path) { return access(devicePath(path), F_OK) == 0; }

const char* devicePathForShell(DevicePath path) {
    const auto index = static_cast<std::size_t>(path);
    const RootedPaths& rooted = rootedPaths();
    return rooted.active ? rooted.quoted[index].c_str() : kLiteralPaths[index];
}

}  // namespace ostrel

void setDeviceRoot(const char* root) {
    std::string prefix = ostrel::orEmpty(root);
    while (!prefix.empty() && prefix.back() == '/') prefix.pop_back();
    ostrel::RootedPaths& rooted = ostrel::rootedPaths();
    rooted.active = !prefix.empty();
    if (!rooted.active) return;
    for (std::size_t i = 0; i < ostrel::kPathCount; ++i) {
        rooted.plain[i] = prefix + ostrel::kLiteralPaths[i];
        rooted.quoted[i] = ostrel::quoteForShell(rooted.plain[i]);
    }
}
