#include "ostrel/power.h"

#include <filesystem>
#include <string>

#include "support/log_capture.h"
#include "support/test_device.h"

namespace {

using ostreltest::LogCapture;

constexpr char kStatus[] = "/sys/class/power_supply/axp2202-battery/status";
constexpr char kCapacity[] = "/sys/class/power_supply/axp2202-battery/capacity";
constexpr char kOnline[] = "/sys/class/power_supply/axp2202-usb/online";

class PowerTest : public ostreltest::DeviceTest {
protected:
    bool chargingWith(const std::string& status) {
        device().write(kStatus, status);
        return ischarging();
    }
    bool onlineWith(const std::string& online) {
        device().write(kOnline, online);
        return isUsbOnline();
    }
    int capacityWith(const std::string& capacity) {
        device().write(kCapacity, capacity);
        return readBatteryADC();
    }
};

TEST_F(PowerTest, ChargesWhenTheStatusBeginsWithCharging) {
    EXPECT_TRUE(chargingWith("Charging\n"));
    EXPECT_TRUE(chargingWith("Charging"));
    EXPECT_TRUE(chargingWith("Charging (fast)\n"));
    EXPECT_TRUE(chargingWith("Charging" + std::string(100, ' ')));
}

TEST_F(PowerTest, DoesNotChargeWithAnyOtherStatus) {
    EXPECT_FALSE(chargingWith("Full\n"));
    EXPECT_FALSE(chargingWith("Not charging\n"));
    EXPECT_FALSE(chargingWith("Discharging\n"));
    EXPECT_FALSE(chargingWith("charging\n"));
    EXPECT_FALSE(chargingWith(" Charging\n"));
    EXPECT_FALSE(chargingWith("Chargin\n"));
    EXPECT_FALSE(chargingWith(""));
}

TEST_F(PowerTest, ReadsOnlyTheFirstLineOfTheStatus) { EXPECT_FALSE(chargingWith("Full\nCharging\n")); }

TEST_F(PowerTest, DoesNotChargeWithoutAStatusFile) {
    device().remove(kStatus);
    EXPECT_FALSE(ischarging());
}

TEST_F(PowerTest, UsbIsOnlineWhenTheFileBeginsWithOne) {
    EXPECT_TRUE(onlineWith("1\n"));
    EXPECT_TRUE(onlineWith("1"));
    EXPECT_TRUE(onlineWith("10\n"));
}

TEST_F(PowerTest, UsbIsNotOnlineWithAnythingElse) {
    EXPECT_FALSE(onlineWith("0\n"));
    EXPECT_FALSE(onlineWith(" 1\n"));
    EXPECT_FALSE(onlineWith("01\n"));
    EXPECT_FALSE(onlineWith("\n1\n"));
    EXPECT_FALSE(onlineWith(""));
}

TEST_F(PowerTest, UsbIsNotOnlineWithoutTheFile) {
    device().remove(kOnline);
    EXPECT_FALSE(isUsbOnline());
}

TEST_F(PowerTest, CapacityIsTheDecimalNumberAtTheStart) {
    EXPECT_EQ(capacityWith("100\n"), 100);
    EXPECT_EQ(capacityWith("7"), 7);
    EXPECT_EQ(capacityWith("42%\n"), 42);
    EXPECT_EQ(capacityWith("010\n"), 10);
    EXPECT_EQ(capacityWith("0x10\n"), 0);
}

TEST_F(PowerTest, CapacityOutsideHundredPercentIsPassedOn) {
    EXPECT_EQ(capacityWith("101\n"), 101);
    EXPECT_EQ(capacityWith("-5\n"), -5);
}

TEST_F(PowerTest, CapacityIsZeroWithoutANumber) {
    EXPECT_EQ(capacityWith("full\n"), 0);
    EXPECT_EQ(capacityWith("\n55\n"), 0);
    EXPECT_EQ(capacityWith(""), 0);
}

TEST_F(PowerTest, CapacityIsReadFromFifteenCharacters) { EXPECT_EQ(capacityWith("0000000000000123"), 12); }

TEST_F(PowerTest, CapacityIsZeroWithoutTheFile) {
    device().remove(kCapacity);
    EXPECT_EQ(readBatteryADC(), 0);
}

TEST_F(PowerTest, FoldersInPlaceOfFilesCountAsUnreadable) {
    for (const char* file : {kStatus, kCapacity, kOnline}) {
        device().remove(file);
        std::filesystem::create_directories(device().path(file));
    }
    EXPECT_FALSE(ischarging());
    EXPECT_FALSE(isUsbOnline());
    EXPECT_EQ(readBatteryADC(), 0);
}

// A file that never comes to a line's end, and bytes that are no text.
TEST_F(PowerTest, LinesWithoutEndAndOtherBytesCountAsNothing) {
    using namespace std::string_literals;
    for (const std::string& content : {std::string(1'000'000, '\xFF'), "\0\1\2\n1\n"s, std::string(1'000'000, ' ')}) {
        EXPECT_FALSE(chargingWith(content));
        EXPECT_FALSE(onlineWith(content));
        EXPECT_EQ(capacityWith(content), 0);
    }
    EXPECT_EQ(capacityWith("77" + std::string(1'000'000, ' ')), 77);
}

TEST_F(PowerTest, FollowsTheFilesFromCallToCall) {
    EXPECT_EQ(capacityWith("64\n"), 64);
    EXPECT_EQ(capacityWith("63\n"), 63);
    EXPECT_TRUE(chargingWith("Charging\n"));
    EXPECT_FALSE(chargingWith("Full\n"));
}

TEST_F(PowerTest, SaysNothingAboutFilesThatAreMissing) {
    for (const char* file : {kStatus, kCapacity, kOnline}) device().remove(file);
    LogCapture output;
    LogCapture errors{LogCapture::Stream::Error};
    ischarging();
    isUsbOnline();
    readBatteryADC();
    EXPECT_EQ(output.text(), "");
    EXPECT_EQ(errors.text(), "");
}

int openDescriptors() {
    int count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) ++count;
    return count;
}

TEST_F(PowerTest, ClosesEveryFile) {
    const int before = openDescriptors();
    for (int i = 0; i < 10; ++i) {
        ischarging();
        isUsbOnline();
        readBatteryADC();
    }
    EXPECT_EQ(openDescriptors(), before);
}

}  // namespace
