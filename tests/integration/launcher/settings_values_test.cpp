// Settings as a player changes them: what they reach, how they read, and how they are kept.
#include "settings_values.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "ostrel/host.h"
#include "ostrel/input.h"
#include "ostrel/language.h"
#include "ostrel/skin.h"
#include "ostrel/system_settings.h"
#include "ostrel/system_state.h"
#include "settings_rows.h"
#include "support/driven_clock.h"
#include "support/fake_host.h"
#include "support/test_device.h"
#include "theme.h"
#include "written_files.h"

using launcher::Setting;
using launcher::settings;
using launcher::SettingSwitch;
using launcher::SettingValue;
using launchertest::kSettingsFile;
using ostreltest::host;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

constexpr const char* kAttributes = "/sys/devices/virtual/disp/disp/attr/";

class SettingsTest : public ostreltest::DeviceTest {
protected:
    SettingsTest() {
        if (getLangIndexNum() < launcher::kTextEnd) launcher::addTexts();
        unsetenv("TZ");
        launcher::loadSettings("");
    }

    // Loads what a file says, as a start of the launcher does.
    void load(const std::string& content) {
        device().write(kSettingsFile, content);
        launcher::loadSettings("");
    }
    // Saves, forgets the status block, and starts again.
    static void restart() {
        launcher::saveSettings();
        host().shm = ShmInfo{};
        launcher::loadSettings("");
    }
    static Setting setting(launcher::Text title) {
        for (const Setting& each : settings()) {
            if (each.title == title) return each;
        }
        throw std::runtime_error("no such setting");
    }
    static void press(launcher::Text title, int key, int times = 1) {
        SettingValue handler(setting(title));
        for (int i = 0; i < times; ++i) handler.changeValue(key);
    }
    static std::string shown(launcher::Text title) { return SettingValue(setting(title)).getValueText(); }
    static void turn(launcher::Text title, bool on) { SettingSwitch(setting(title)).setValue(on); }
    static bool isOn(launcher::Text title) { return SettingSwitch(setting(title)).getValue(); }
    static int status(ShmKey key) { return GetKeyShm(gShmInfo, key); }
    std::string attribute(const std::string& name) { return device().read(kAttributes + name); }
    std::string saved() {
        launcher::saveSettings();
        return device().read(kSettingsFile);
    }

    ostreltest::DrivenClock mClock;
};

TEST_F(SettingsTest, TheyStandInTheOrderOfThePage) {
    std::vector<std::string> titles;
    for (const Setting& each : settings()) titles.emplace_back(getLangStr(each.title));
    EXPECT_THAT(titles, ElementsAre("Volume", "Brightness", "Colour brightness", "Contrast", "Colour temperature",
                                    "Saturation", "Language", "Time zone", "24-hour clock", "Wi-Fi", "B confirms",
                                    "Key tone", "Joystick", "Overlay shortcut", "Theme"));
}

TEST_F(SettingsTest, AConsoleWithBluetoothOffersIt) {
    device().write("/mnt/SDCARD/features.json", R"({"bluetooth": 1})");
    launcher::loadSettings("");
    turn(launcher::kTextBluetooth, true);
    EXPECT_EQ(status(SHM_BLUETOOTH), 1);
    restart();
    EXPECT_TRUE(isOn(launcher::kTextBluetooth));
}

// Levels: step, device, file, next start.

TEST_F(SettingsTest, VolumeReachesTheStatusBlockAndTheNextStart) {
    press(launcher::kTextVolume, KEY_LEFT, 4);
    EXPECT_EQ(status(SHM_VOL), 10);
    EXPECT_EQ(shown(launcher::kTextVolume), "10");
    restart();
    EXPECT_EQ(status(SHM_VOL), 10);
}

TEST_F(SettingsTest, VolumeStopsAtItsEnds) {
    press(launcher::kTextVolume, KEY_RIGHT, 30);
    EXPECT_EQ(status(SHM_VOL), 20);
    press(launcher::kTextVolume, KEY_LEFT, 30);
    EXPECT_EQ(status(SHM_VOL), 0);
}

TEST_F(SettingsTest, BrightnessReachesTheStatusBlockAndTheNextStart) {
    press(launcher::kTextBrightness, KEY_RIGHT, 9);
    EXPECT_EQ(status(SHM_BRIGHTNESS), 10);
    restart();
    EXPECT_EQ(shown(launcher::kTextBrightness), "10");
}

TEST_F(SettingsTest, ColourBrightnessReachesTheDisplayAndTheNextStart) {
    press(launcher::kTextColourBrightness, KEY_RIGHT, 2);
    EXPECT_EQ(attribute("enhance_bright"), "70");
    restart();
    EXPECT_EQ(shown(launcher::kTextColourBrightness), "7");
    press(launcher::kTextColourBrightness, KEY_LEFT, 20);
    EXPECT_EQ(shown(launcher::kTextColourBrightness), "1");
}

TEST_F(SettingsTest, ContrastReachesTheDisplayAndTheNextStart) {
    press(launcher::kTextContrast, KEY_LEFT);
    EXPECT_EQ(attribute("enhance_contrast"), "40");
    restart();
    EXPECT_EQ(shown(launcher::kTextContrast), "4");
}

TEST_F(SettingsTest, ColourTemperatureIsShownAroundNeutral) {
    EXPECT_EQ(shown(launcher::kTextColourTemperature), "0");
    press(launcher::kTextColourTemperature, KEY_RIGHT, 3);
    EXPECT_EQ(shown(launcher::kTextColourTemperature), "+3");
    EXPECT_EQ(attribute("color_temperature"), "15");
    press(launcher::kTextColourTemperature, KEY_LEFT, 30);
    EXPECT_EQ(shown(launcher::kTextColourTemperature), "−10");
    restart();
    EXPECT_EQ(shown(launcher::kTextColourTemperature), "−10");
}

TEST_F(SettingsTest, SaturationReachesTheDisplayAndTheNextStart) {
    press(launcher::kTextSaturation, KEY_LEFT, 9);
    EXPECT_EQ(attribute("enhance_saturation"), "0");
    restart();
    EXPECT_EQ(shown(launcher::kTextSaturation), "0");
}

// Choices.

TEST_F(SettingsTest, TheTimeZoneIsShownByItsCity) {
    setTimeZone("America/Los_Angeles");
    EXPECT_EQ(shown(launcher::kTextTimeZone), "Los Angeles");
}

TEST_F(SettingsTest, WithoutATimeZoneItIsUtc) { EXPECT_EQ(shown(launcher::kTextTimeZone), "UTC"); }

TEST_F(SettingsTest, TheTimeZoneReachesTheProcessAndTheNextStart) {
    setTimeZone("Asia/Shanghai");
    press(launcher::kTextTimeZone, KEY_RIGHT);
    EXPECT_STREQ(getTimeZone(), "Asia/Tokyo");
    EXPECT_STREQ(getenv("TZ"), "Asia/Tokyo");
    restart();
    EXPECT_EQ(shown(launcher::kTextTimeZone), "Tokyo");
    EXPECT_STREQ(getenv("TZ"), "Asia/Tokyo");
}

TEST_F(SettingsTest, AZoneOfAnotherProgramIsShownAndLeftForTheFirstOrLastOfOurs) {
    setTimeZone("Arctic/Longyearbyen");
    EXPECT_EQ(shown(launcher::kTextTimeZone), "Longyearbyen");
    press(launcher::kTextTimeZone, KEY_RIGHT);
    EXPECT_STREQ(getTimeZone(), "UTC");
    press(launcher::kTextTimeZone, KEY_LEFT);
    EXPECT_STREQ(getTimeZone(), "Pacific/Auckland");
}

TEST_F(SettingsTest, EveryTimeZoneIsKnownToTheSystem) {
    const int count = setting(launcher::kTextTimeZone).last + 1;
    EXPECT_EQ(count, 25);
    for (int i = 0; i < count; ++i) {
        press(launcher::kTextTimeZone, KEY_RIGHT);
        EXPECT_TRUE(std::filesystem::exists(std::string("/usr/share/zoneinfo/") + getTimeZone())) << getTimeZone();
    }
}

TEST_F(SettingsTest, TheJoystickModeReachesItsFlagAndTheNextStart) {
    EXPECT_EQ(shown(launcher::kTextJoystick), "Left");
    press(launcher::kTextJoystick, KEY_RIGHT, 2);
    EXPECT_EQ(shown(launcher::kTextJoystick), "Both");
    EXPECT_EQ(gUseJoystick, 3);
    restart();
    EXPECT_EQ(gUseJoystick, 3);
    press(launcher::kTextJoystick, KEY_RIGHT);
    EXPECT_EQ(shown(launcher::kTextJoystick), "Off");
}

TEST_F(SettingsTest, TheOverlayShortcutReachesTheStatusBlockAndTheNextStart) {
    EXPECT_EQ(shown(launcher::kTextShortcut), "HOME");
    press(launcher::kTextShortcut, KEY_RIGHT);
    EXPECT_EQ(shown(launcher::kTextShortcut), "MENU+SELECT");
    press(launcher::kTextShortcut, KEY_LEFT, 2);
    EXPECT_EQ(status(SHM_OSDSHORTCUT), 22);
    EXPECT_EQ(shown(launcher::kTextShortcut), "Off");
    restart();
    EXPECT_EQ(status(SHM_OSDSHORTCUT), 22);
}

// The rows are made anew with the theme, so theirs is only a request.
TEST_F(SettingsTest, AnotherThemeIsAskedForAndNotSetByItsRow) {
    press(launcher::kTextTheme, KEY_RIGHT);
    EXPECT_EQ(shown(launcher::kTextTheme), "Light");
    EXPECT_THAT(gThemePath, EndsWith("/theme/dark/"));
    EXPECT_TRUE(launcher::themeRequested());
    EXPECT_THAT(launcher::takeThemeRequest(), EndsWith("/theme/light/"));
    EXPECT_FALSE(launcher::themeRequested());
    EXPECT_EQ(launcher::takeThemeRequest(), "");
}

TEST_F(SettingsTest, TheThemeInUseIsThereAtTheNextStart) {
    launcher::setTheme(launcher::themes()[1].directory);
    restart();
    EXPECT_THAT(gThemePath, EndsWith("/theme/light/"));
    EXPECT_EQ(shown(launcher::kTextTheme), "Light");
}

TEST_F(SettingsTest, TheLanguageReachesTheTextsAndTheNextStart) {
    device().write("lang/xx.lang", R"({"lang": "Xish", "46": "Vol"})");
    initLang();
    launcher::chooseLanguage("xx.lang");
    EXPECT_EQ(launcher::languageName(), "Xish");
    EXPECT_THAT(saved(), HasSubstr("\"xx.lang\""));
    setSystemLanguage("en.lang");
    launcher::loadSettings("");
    EXPECT_STREQ(getSystemLanguage(), "xx.lang");
}

TEST_F(SettingsTest, ALanguageWithoutItsFileIsNamedByTheFile) {
    initLang();
    launcher::chooseLanguage("zz.lang");
    EXPECT_EQ(launcher::languageName(), "zz.lang");
}

// Switches.

TEST_F(SettingsTest, The24HourClockReachesItsFlagAndTheNextStart) {
    EXPECT_TRUE(isOn(launcher::kText24HourClock));
    turn(launcher::kText24HourClock, false);
    EXPECT_EQ(get24HourClockFlag(), 0);
    restart();
    EXPECT_FALSE(isOn(launcher::kText24HourClock));
}

TEST_F(SettingsTest, WifiReachesTheStatusBlockAndTheNextStart) {
    turn(launcher::kTextWifi, true);
    EXPECT_EQ(status(SHM_WIFI), 1);
    restart();
    EXPECT_TRUE(isOn(launcher::kTextWifi));
}

TEST_F(SettingsTest, BConfirmsReachesTheStatusBlockAndTheNextStart) {
    turn(launcher::kTextBConfirms, true);
    EXPECT_EQ(status(SHM_BCONFIRM), 1);
    restart();
    EXPECT_TRUE(isOn(launcher::kTextBConfirms));
}

TEST_F(SettingsTest, TheKeyToneReachesItsFlagAndTheNextStart) {
    turn(launcher::kTextKeyTone, false);
    EXPECT_EQ(gEnableKeyTone, 0);
    restart();
    EXPECT_FALSE(isOn(launcher::kTextKeyTone));
}

// Values that nobody could have chosen.

TEST_F(SettingsTest, AStatusOutOfRangeComesBackWithTheFirstStep) {
    SetKeyShm(gShmInfo, SHM_VOL, 99);
    press(launcher::kTextVolume, KEY_LEFT);
    EXPECT_EQ(status(SHM_VOL), 20);
    SetKeyShm(gShmInfo, SHM_VOL, -7);
    press(launcher::kTextVolume, KEY_RIGHT);
    EXPECT_EQ(status(SHM_VOL), 0);
}

TEST_F(SettingsTest, AShortcutThatDoesNotExistIsUnknownAndCanBeLeft) {
    load(R"({"osdshortcut": 77})");
    EXPECT_EQ(shown(launcher::kTextShortcut), "Unknown");
    press(launcher::kTextShortcut, KEY_RIGHT);
    EXPECT_EQ(shown(launcher::kTextShortcut), "HOME");
}

TEST_F(SettingsTest, AValueThatIsWiderThanItsPlaceIsCut) {
    TTF_Init();
    gListFontTxt = TTF_OpenFont(OSTREL_TEST_FONT, 36);
    setTimeZone(std::string(200, 'x').c_str());
    const std::string text = shown(launcher::kTextTimeZone);
    int width = 0;
    TTF_SizeUTF8(gListFontTxt, text.c_str(), &width, nullptr);
    TTF_CloseFont(gListFontTxt);
    gListFontTxt = nullptr;
    EXPECT_THAT(text, EndsWith("..."));
    EXPECT_LE(width, 400);
    EXPECT_GE(width, 300);
}

TEST_F(SettingsTest, AJoystickModeThatDoesNotExistIsUnknown) {
    gUseJoystick = -1;
    EXPECT_EQ(shown(launcher::kTextJoystick), "Unknown");
    gUseJoystick = 4;
    EXPECT_EQ(shown(launcher::kTextJoystick), "Unknown");
    gUseJoystick = 1;
}

TEST_F(SettingsTest, AThemeOfTheFileThatHasGoneGivesTheDarkOne) {
    load(R"({"theme": "/nowhere/theme/"})");
    EXPECT_THAT(gThemePath, EndsWith("/theme/dark/"));
}

TEST_F(SettingsTest, AThemeOfTheFileThatIsNoThemeGivesTheDarkOne) {
    load(R"({"theme": "."})");
    EXPECT_THAT(gThemePath, EndsWith("/theme/dark/"));
    load(R"({"theme": ""})");
    EXPECT_THAT(gThemePath, EndsWith("/theme/dark/"));
    load(R"({"theme": 7})");
    EXPECT_THAT(gThemePath, EndsWith("/theme/dark/"));
}

TEST_F(SettingsTest, AThemeOfSomebodyElseIsUsedAndUnknown) {
    device().write("own/skin/bg.png", "");
    load(R"({"theme": "own"})");
    EXPECT_STREQ(gThemePath, "own/");
    EXPECT_EQ(shown(launcher::kTextTheme), "Unknown");
}

TEST_F(SettingsTest, TheThemeOfTheCommandLineWins) {
    device().write(kSettingsFile, R"({"theme": "own"})");
    launcher::loadSettings("/some/theme/");
    EXPECT_STREQ(gThemePath, "/some/theme/");
}

TEST_F(SettingsTest, AFileThatIsNoSettingsGivesTheDefaults) {
    const std::string deep(100000, '[');
    for (const std::string& content : {std::string(), std::string("{"), std::string("[1, 2]"), deep,
                                       std::string("\0\xff\xfe", 3), std::string(200000, ' ')}) {
        SetKeyShm(gShmInfo, SHM_VOL, 3);
        load(content);
        EXPECT_EQ(status(SHM_VOL), 14);
        EXPECT_THAT(gThemePath, EndsWith("/theme/dark/"));
    }
}

TEST_F(SettingsTest, MembersOfWrongTypesGiveTheirDefaults) {
    load(R"({"vol": "loud", "brightness": [], "usejoystick": 9, "timezone": {}, "colorcontrast": "7"})");
    EXPECT_EQ(shown(launcher::kTextVolume), "14");
    EXPECT_EQ(shown(launcher::kTextBrightness), "6");
    EXPECT_EQ(shown(launcher::kTextJoystick), "Left");
    EXPECT_EQ(shown(launcher::kTextTimeZone), "UTC");
    EXPECT_EQ(shown(launcher::kTextContrast), "5");
}

// Keeping them.

TEST_F(SettingsTest, AChangeIsWrittenAfterASecondAndNotBefore) {
    press(launcher::kTextVolume, KEY_LEFT);
    mClock.advance(999);
    launcher::saveSettledSettings();
    EXPECT_FALSE(device().exists(kSettingsFile));
    mClock.advance(1);
    launcher::saveSettledSettings();
    EXPECT_THAT(device().read(kSettingsFile), HasSubstr("\"vol\":\t13"));
}

TEST_F(SettingsTest, AFurtherChangePutsTheWritingOff) {
    press(launcher::kTextVolume, KEY_LEFT);
    mClock.advance(600);
    press(launcher::kTextVolume, KEY_LEFT);
    mClock.advance(600);
    launcher::saveSettledSettings();
    EXPECT_FALSE(device().exists(kSettingsFile));
    mClock.advance(400);
    launcher::saveSettledSettings();
    EXPECT_TRUE(device().exists(kSettingsFile));
}

TEST_F(SettingsTest, WhatIsWrittenIsNotWrittenAgain) {
    press(launcher::kTextVolume, KEY_LEFT);
    mClock.advance(1000);
    launcher::saveSettledSettings();
    device().remove(kSettingsFile);
    mClock.advance(5000);
    launcher::saveSettledSettings();
    launcher::savePendingSettings();
    EXPECT_FALSE(device().exists(kSettingsFile));
}

TEST_F(SettingsTest, WithoutAChangeNothingIsWritten) {
    mClock.advance(5000);
    launcher::saveSettledSettings();
    launcher::savePendingSettings();
    EXPECT_FALSE(device().exists(kSettingsFile));
}

TEST_F(SettingsTest, AStepThatChangesNothingWritesNothing) {
    SetKeyShm(gShmInfo, SHM_VOL, 20);
    press(launcher::kTextVolume, KEY_RIGHT);
    launcher::savePendingSettings();
    EXPECT_FALSE(device().exists(kSettingsFile));
}

TEST_F(SettingsTest, WhoLeavesWithinTheSecondLosesNothing) {
    turn(launcher::kTextWifi, true);
    launcher::savePendingSettings();
    EXPECT_THAT(device().read(kSettingsFile), HasSubstr("\"wifi\":\t1"));
}

TEST_F(SettingsTest, AClockThatIsSetBackDoesNotHoldTheWritingUp) {
    press(launcher::kTextVolume, KEY_LEFT);
    mClock.set(10);
    launcher::saveSettledSettings();
    EXPECT_TRUE(device().exists(kSettingsFile));
}

// The clock in the heading. The zones are spelled out, so that no zone files are needed.

TEST_F(SettingsTest, TheClockShowsHoursAndMinutesOfTheZone) {
    mClock.set(uint64_t{21 * 3600 + 7 * 60} * 1000);
    EXPECT_EQ(launcher::clockText(), "21:07");
    setTimeZone("XYZ-3:30");
    launcher::applyTimeZone();
    EXPECT_EQ(launcher::clockText(), "00:37");
}

TEST_F(SettingsTest, ATwelveHourClockSaysWhichHalfOfTheDayItIs) {
    set24HourClockFlag(0);
    mClock.set(uint64_t{21 * 3600 + 7 * 60} * 1000);
    EXPECT_EQ(launcher::clockText(), "9:07 PM");
    mClock.set(uint64_t{5 * 60} * 1000);
    EXPECT_EQ(launcher::clockText(), "12:05 AM");
    mClock.set(uint64_t{12 * 3600} * 1000);
    EXPECT_EQ(launcher::clockText(), "12:00 PM");
}

TEST_F(SettingsTest, AZoneThatTheSystemDoesNotKnowIsUtc) {
    setTimeZone("Nowhere/Atall");
    launcher::applyTimeZone();
    mClock.set(uint64_t{3600} * 1000);
    EXPECT_EQ(launcher::clockText(), "01:00");
}

}  // namespace
