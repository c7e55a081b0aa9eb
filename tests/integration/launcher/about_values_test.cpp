// The state of the console in words.
#include "about_values.h"

#include <gmock/gmock.h>

#include <cstring>

#include "ostrel/language.h"
#include "session.h"
#include "support/test_device.h"

using launcher::AboutLine;
using launcher::aboutLines;
using launcher::ConsoleState;
using launcher::Memory;
using launcher::readMemory;

namespace {

class AboutTest : public ostreltest::DeviceTest {
protected:
    AboutTest() {
        if (getLangIndexNum() < launcher::kTextEnd) launcher::addTexts();
        mState.battery = 78;
        mState.memory = {655360, 1048576};
    }

    AboutLine line(launcher::Text label) const {
        for (const AboutLine& each : aboutLines(mState)) {
            if (each.label == label) return each;
        }
        return {launcher::kTextNone, "", 0};
    }
    std::string value(launcher::Text label) const { return line(label).value; }
    void connect() {
        mState.wifiMode = WIFI_MODE_STATION;
        mState.wifi.state = WIFI_STATE_COMPLETED;
        std::strcpy(mState.wifi.ssid, "Lantern");
        std::strcpy(mState.wifi.ip, "10.0.0.7");
        mState.wifi.rssi = -72;
    }
    Memory memoryIn(const std::string& content) {
        device().write("/proc/meminfo", content);
        return readMemory(device().path("/proc/meminfo"));
    }
    static void expectUnknown(const Memory& memory) {
        EXPECT_EQ(memory.total, 0U);
        EXPECT_EQ(memory.available, 0U);
    }

    ConsoleState mState;
};

TEST_F(AboutTest, TheLinesStandInTheOrderOfThePage) {
    std::vector<std::string> labels;
    for (const AboutLine& each : aboutLines(mState)) labels.emplace_back(getLangStr(each.label));
    EXPECT_THAT(labels,
                testing::ElementsAre("Battery", "Charger", "Network", "Address", "Signal", "Memory", "Version"));
}

TEST_F(AboutTest, TheBatteryHasPercentAndMeter) {
    EXPECT_EQ(value(launcher::kTextBattery), "78%");
    EXPECT_EQ(line(launcher::kTextBattery).percent, 78);
}

TEST_F(AboutTest, ABatteryThatIsChargedSaysSo) {
    mState.charging = true;
    EXPECT_EQ(value(launcher::kTextBattery), "78% · Charging");
}

TEST_F(AboutTest, ABatteryOutsideItsRangeIsEmptyOrFull) {
    mState.battery = -5;
    EXPECT_EQ(value(launcher::kTextBattery), "0%");
    mState.battery = 4000;
    EXPECT_EQ(value(launcher::kTextBattery), "100%");
    EXPECT_EQ(line(launcher::kTextBattery).percent, 100);
}

TEST_F(AboutTest, TheChargerIsPluggedInOrNot) {
    EXPECT_EQ(value(launcher::kTextCharger), "Not plugged in");
    mState.pluggedIn = true;
    EXPECT_EQ(value(launcher::kTextCharger), "Plugged in");
}

TEST_F(AboutTest, AConnectionHasNameAddressAndSignal) {
    connect();
    EXPECT_EQ(value(launcher::kTextNetwork), "Connected · Lantern");
    EXPECT_EQ(value(launcher::kTextAddress), "10.0.0.7");
    EXPECT_EQ(value(launcher::kTextSignal), "−72 dBm");
    EXPECT_EQ(line(launcher::kTextSignal).percent, 66);
}

TEST_F(AboutTest, AConnectionWithoutNameOrAddressShowsADash) {
    connect();
    mState.wifi.ssid[0] = '\0';
    mState.wifi.ip[0] = '\0';
    EXPECT_EQ(value(launcher::kTextNetwork), "Connected · –");
    EXPECT_EQ(value(launcher::kTextAddress), "–");
}

TEST_F(AboutTest, WhatIsLeftOfAnOldConnectionIsNotShown) {
    connect();
    mState.wifi.state = WIFI_STATE_SCANNING;
    EXPECT_EQ(value(launcher::kTextNetwork), "Not connected");
    EXPECT_EQ(value(launcher::kTextAddress), "–");
    EXPECT_EQ(value(launcher::kTextSignal), "–");
    EXPECT_EQ(line(launcher::kTextSignal).percent, -1);
}

TEST_F(AboutTest, ANameThatFillsItsFieldEndsWithIt) {
    connect();
    std::memset(mState.wifi.ssid, 'x', sizeof mState.wifi.ssid);
    EXPECT_EQ(value(launcher::kTextNetwork), "Connected · " + std::string(64, 'x'));
}

TEST_F(AboutTest, WithoutAStationTheNetworkIsOffOrAHotspot) {
    EXPECT_EQ(value(launcher::kTextNetwork), "Off");
    mState.wifiMode = WIFI_MODE_HOTSPOT;
    EXPECT_EQ(value(launcher::kTextNetwork), "Hotspot");
}

TEST_F(AboutTest, MemoryIsToldInItsOwnUnits) {
    EXPECT_EQ(value(launcher::kTextMemory), "640 MB / 1.0 GB free");
    EXPECT_EQ(line(launcher::kTextMemory).percent, 62);
}

TEST_F(AboutTest, MemoryThatIsNotKnownHasNoMeter) {
    mState.memory = {};
    EXPECT_EQ(value(launcher::kTextMemory), "Unknown");
    EXPECT_EQ(line(launcher::kTextMemory).percent, -1);
}

TEST_F(AboutTest, TheVersionIsThatOfTheBuild) { EXPECT_EQ(value(launcher::kTextVersion), "0.1.0"); }

TEST_F(AboutTest, TheKernelsFileGivesTotalAndAvailable) {
    const Memory memory = memoryIn("MemTotal:        1013780 kB\nMemFree:   2 kB\nMemAvailable:     655360 kB\n");
    EXPECT_EQ(memory.total, 1013780U);
    EXPECT_EQ(memory.available, 655360U);
}

TEST_F(AboutTest, AMissingFileOrAFolderIsUnknown) {
    expectUnknown(readMemory(device().path("/proc/nothing")));
    expectUnknown(readMemory(device().path("/proc")));
}

TEST_F(AboutTest, AFileWithoutTheTotalIsUnknown) {
    expectUnknown(memoryIn(""));
    expectUnknown(memoryIn("MemAvailable: 12 kB\n"));
    expectUnknown(memoryIn(std::string("\0\xff\x01MemTotal\0", 12)));
}

TEST_F(AboutTest, NumbersThatMakeNoSenseAreUnknown) {
    expectUnknown(memoryIn("MemTotal: many kB\nMemAvailable: 12 kB\n"));
    expectUnknown(memoryIn("MemTotal: -5 kB\nMemAvailable: 12 kB\n"));
    expectUnknown(memoryIn("MemTotal: 99999999999999999999999 kB\nMemAvailable: 12 kB\n"));
    expectUnknown(memoryIn("MemTotal: 10 kB\nMemAvailable: 12 kB\n"));
}

TEST_F(AboutTest, ALineWithoutEndIsUnknown) {
    expectUnknown(memoryIn("MemTotal: 10 kB"));
    expectUnknown(memoryIn(std::string(10'000'000, 'M')));
}

TEST_F(AboutTest, TheDeviceIsAskedForEverything) {
    launcher::setSessionRoot(device().root());
    device().write("/sys/class/power_supply/axp2202-battery/capacity", "41\n");
    device().write("/sys/class/power_supply/axp2202-battery/status", "Charging\n");
    device().write("/sys/class/power_supply/axp2202-usb/online", "1\n");
    device().write("/proc/meminfo", "MemTotal: 2000 kB\nMemAvailable: 1000 kB\n");
    const ConsoleState state = launcher::readConsole();
    EXPECT_EQ(state.battery, 41);
    EXPECT_TRUE(state.charging);
    EXPECT_TRUE(state.pluggedIn);
    EXPECT_EQ(state.wifiMode, WIFI_MODE_OFF);
    EXPECT_EQ(state.memory.total, 2000U);
    EXPECT_EQ(state.memory.available, 1000U);
}

}  // namespace
