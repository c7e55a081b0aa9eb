#include "run_folder.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "data_dirs.h"

namespace fs = std::filesystem;

namespace launcher {
namespace {

// What the library looks for on a console, in a device folder of our own.
constexpr const char* kDeviceFolders[] = {"mnt/UDISK", "mnt/SDCARD", "tmp", "dev", "proc"};

struct DeviceFile {
    const char* path;
    const char* content;
};
constexpr DeviceFile kDeviceFiles[] = {
    {"sys/class/power_supply/axp2202-battery/capacity", "78\n"},
    {"sys/class/power_supply/axp2202-battery/status", "Discharging\n"},
    {"sys/class/power_supply/axp2202-usb/online", "0\n"},
    {"sys/devices/virtual/disp/disp/attr/enhance_bright", "50"},
    {"sys/devices/virtual/disp/disp/attr/enhance_contrast", "50"},
    {"sys/devices/virtual/disp/disp/attr/color_temperature", "0"},
    {"sys/devices/virtual/disp/disp/attr/enhance_saturation", "50"},
    {"mnt/SDCARD/features.json", "{\"bluetooth\": 1, \"suspend\": 1, \"battemp\": 0}\n"},
    {"proc/meminfo", "MemTotal:        1013780 kB\nMemFree:          402116 kB\nMemAvailable:     655360 kB\n"},
};

void linkAnew(const fs::path& target, const fs::path& link) {
    std::error_code ignored;
    fs::remove(link, ignored);
    fs::create_symlink(target, link);
}

// Copies, because the library reads regular files alone; made anew, so that an English file written by an older
// launcher does not outlive its texts.
void copyLanguages(const fs::path& folder) {
    fs::remove_all(folder);
    fs::copy(dataDirs().data + "/lang", folder);
}

void fillDevice(const fs::path& root) {
    for (const char* folder : kDeviceFolders) fs::create_directories(root / folder);
    for (const DeviceFile& file : kDeviceFiles) {
        const fs::path path = root / file.path;
        if (fs::exists(path)) continue;
        fs::create_directories(path.parent_path());
        std::ofstream(path) << file.content;
    }
}

}  // namespace

bool makeDevice(const std::string& root) {
    try {
        fillDevice(root);
    } catch (const fs::filesystem_error& error) {
        std::fprintf(stderr, "The device folder cannot be made: %s\n", error.what());
        return false;
    }
    return true;
}

bool enterRunFolder(const Options& options) {
    try {
        const fs::path folder = options.runFolder;
        fs::create_directories(folder);
        linkAnew(OSTREL_SAMPLE_FONT, folder / "regular.ttf");
        linkAnew(dataDirs().themes + "/dark/skin", folder / "skin");
        copyLanguages(folder / "lang");
        if (!options.deviceGiven) fillDevice(options.deviceRoot);
        fs::current_path(folder);
    } catch (const fs::filesystem_error& error) {
        std::fprintf(stderr, "The run folder cannot be made: %s\n", error.what());
        return false;
    }
    return true;
}

}  // namespace launcher
