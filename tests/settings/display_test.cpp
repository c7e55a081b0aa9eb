#include <climits>

#include "ostrel/system_settings.h"
#include "support/log_capture.h"
#include "support/test_device.h"

namespace {

using ostreltest::LogCapture;

// Read before main: the levels live as long as the process, and tests change them.
struct InitialLevels {
    int brightness = getColorBrightness();
    int contrast = getContrast();
    int temperature = getColorTemperature();
    int saturation = getSaturation();
};
const InitialLevels kInitialLevels;

TEST(DisplayInitialTest, LevelsBeforeAnyLoad) {
    EXPECT_EQ(kInitialLevels.brightness, 5);
    EXPECT_EQ(kInitialLevels.contrast, 5);
    EXPECT_EQ(kInitialLevels.temperature, 10);
    EXPECT_EQ(kInitialLevels.saturation, 5);
}

struct DisplayRow {
    const char* name;
    const char* attribute;
    void (*set)(int);
    int (*get)();
    void (*restore)();
    int standard;
    const char* standardText;
    std::vector<std::pair<int, const char*>> levels;  // every level and the text written for it
};

void PrintTo(const DisplayRow& row, std::ostream* out) { *out << row.name; }

const DisplayRow kBrightness = {
    "Brightness",
    "enhance_bright",
    setColorBrightness,
    getColorBrightness,
    restoreColorBrightness,
    5,
    "50",
    {{1, "10"}, {2, "20"}, {3, "30"}, {4, "40"}, {5, "50"}, {6, "60"}, {7, "70"}, {8, "80"}, {9, "90"}, {10, "100"}}};
const DisplayRow kContrast = {
    "Contrast",
    "enhance_contrast",
    setContrast,
    getContrast,
    restoreContrast,
    5,
    "50",
    {{1, "10"}, {2, "20"}, {3, "30"}, {4, "40"}, {5, "50"}, {6, "60"}, {7, "70"}, {8, "80"}, {9, "90"}, {10, "100"}}};
const DisplayRow kTemperature = {"Temperature",
                                 "color_temperature",
                                 setColorTemperature,
                                 getColorTemperature,
                                 restoreColorTemperature,
                                 10,
                                 "0",
                                 {{0, "-50"}, {1, "-45"}, {2, "-40"}, {3, "-35"}, {4, "-30"}, {5, "-25"}, {6, "-20"},
                                  {7, "-15"}, {8, "-10"}, {9, "-5"},  {10, "0"},  {11, "5"},  {12, "10"}, {13, "15"},
                                  {14, "20"}, {15, "25"}, {16, "30"}, {17, "35"}, {18, "40"}, {19, "45"}, {20, "50"}}};
const DisplayRow kSaturation = {"Saturation",
                                "enhance_saturation",
                                setSaturation,
                                getSaturation,
                                restoreSaturation,
                                5,
                                "50",
                                {{0, "0"},
                                 {1, "10"},
                                 {2, "20"},
                                 {3, "30"},
                                 {4, "40"},
                                 {5, "50"},
                                 {6, "60"},
                                 {7, "70"},
                                 {8, "80"},
                                 {9, "90"},
                                 {10, "100"}}};

class DisplayTest : public ostreltest::DeviceTest, public ::testing::WithParamInterface<DisplayRow> {
protected:
    ~DisplayTest() override { GetParam().restore(); }

    std::string attribute() const { return std::string("/sys/devices/virtual/disp/disp/attr/") + GetParam().attribute; }
};

TEST_P(DisplayTest, EveryLevelIsStoredAndWrittenWithoutALineFeed) {
    for (const auto& [level, text] : GetParam().levels) {
        GetParam().set(level);
        EXPECT_EQ(GetParam().get(), level);
        EXPECT_EQ(device().read(attribute()), text);
    }
}

TEST_P(DisplayTest, LevelsBelowTheLowestAreClamped) {
    const auto& [lowest, text] = GetParam().levels.front();
    for (const int level : {lowest - 1, -3, -1000, INT_MIN}) {
        GetParam().set(level);
        EXPECT_EQ(GetParam().get(), lowest);
        EXPECT_EQ(device().read(attribute()), text);
    }
}

TEST_P(DisplayTest, LevelsAboveTheHighestAreClamped) {
    const auto& [highest, text] = GetParam().levels.back();
    for (const int level : {highest + 1, 99, INT_MAX}) {
        GetParam().set(level);
        EXPECT_EQ(GetParam().get(), highest);
        EXPECT_EQ(device().read(attribute()), text);
    }
}

TEST_P(DisplayTest, RestoreSetsAndWritesTheStandardLevel) {
    GetParam().set(9);
    GetParam().restore();
    EXPECT_EQ(GetParam().get(), GetParam().standard);
    EXPECT_EQ(device().read(attribute()), GetParam().standardText);
}

TEST_P(DisplayTest, NoOtherAttributeIsWritten) {
    for (const char* name : {"enhance_bright", "enhance_contrast", "color_temperature", "enhance_saturation"}) {
        device().write(std::string("/sys/devices/virtual/disp/disp/attr/") + name, "untouched");
    }
    GetParam().set(3);
    for (const char* name : {"enhance_bright", "enhance_contrast", "color_temperature", "enhance_saturation"}) {
        if (std::string(name) == GetParam().attribute) continue;
        EXPECT_EQ(device().read(std::string("/sys/devices/virtual/disp/disp/attr/") + name), "untouched") << name;
    }
}

TEST_P(DisplayTest, AShorterTextReplacesALongerOne) {
    device().write(attribute(), "1000000\n");
    GetParam().restore();
    EXPECT_EQ(device().read(attribute()), GetParam().standardText);
}

TEST_P(DisplayTest, WithoutTheAttributeTheLevelIsStoredInSilence) {
    device().remove("/sys");
    LogCapture log;
    LogCapture errors(LogCapture::Stream::Error);
    GetParam().set(7);
    EXPECT_EQ(GetParam().get(), 7);
    EXPECT_EQ(log.text(), "");
    EXPECT_EQ(errors.text(), "");
    EXPECT_FALSE(device().exists(attribute()));
}

INSTANTIATE_TEST_SUITE_P(AllAttributes, DisplayTest,
                         ::testing::Values(kBrightness, kContrast, kTemperature, kSaturation),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
