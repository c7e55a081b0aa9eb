#include <algorithm>
#include <cstdio>

#include "ostrel/system_settings.h"
#include "platform/device_paths.h"
#include "platform/handles.h"

using ostrel::DevicePath;

namespace {

struct Tuning {
    DevicePath attribute;
    int lowest;
    int highest;
    int standard;  // the level at first, and after a restore
    int origin;    // the level that is written as 0
    int factor;    // what one level more adds to the value written
};

constexpr Tuning kBrightness = {DevicePath::DisplayBrightness, 1, 10, 5, 0, 10};
constexpr Tuning kContrast = {DevicePath::DisplayContrast, 1, 10, 5, 0, 10};
constexpr Tuning kTemperature = {DevicePath::DisplayTemperature, 0, 20, 10, 10, 5};
constexpr Tuning kSaturation = {DevicePath::DisplaySaturation, 0, 10, 5, 0, 10};

int sBrightness = kBrightness.standard;
int sContrast = kContrast.standard;
int sTemperature = kTemperature.standard;
int sSaturation = kSaturation.standard;

void apply(const Tuning& tuning, int& stored, int level) {
    stored = std::clamp(level, tuning.lowest, tuning.highest);  // first: it counts where the attribute is missing too
    const ostrel::FilePtr file{std::fopen(ostrel::devicePath(tuning.attribute), "w")};
    if (file) std::fprintf(file.get(), "%d", (stored - tuning.origin) * tuning.factor);
}

}  // namespace

int getColorBrightness() { return sBrightness; }

int getContrast() { return sContrast; }

int getColorTemperature() { return sTemperature; }

int getSaturation() { return sSaturation; }

void setColorBrightness(int level) { apply(kBrightness, sBrightness, level); }

void setContrast(int level) { apply(kContrast, sContrast, level); }

void setColorTemperature(int level) { apply(kTemperature, sTemperature, level); }

void setSaturation(int level) { apply(kSaturation, sSaturation, level); }

void restoreColorBrightness() { setColorBrightness(kBrightness.standard); }

void restoreContrast() { setContrast(kContrast.standard); }

void restoreColorTemperature() { setColorTemperature(kTemperature.standard); }

void restoreSaturation() { setSaturation(kSaturation.standard); }
