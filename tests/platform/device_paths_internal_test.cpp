#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "ostrel/device_root.h"
#include "platform/device_paths.h"

namespace {

using ostrel::DevicePath;
using ostrel::devicePath;
using ostrel::devicePathForShell;

class DevicePathsTest : public ::testing::Test {
protected:
    DevicePathsTest() { setDeviceRoot(nullptr); }
    ~DevicePathsTest() override { setDeviceRoot(nullptr); }
};

TEST_F(DevicePathsTest, WithoutARootPathsAreLiteral) {
    const std::vector<std::pair<DevicePath, const char*>> expected = {
        {DevicePath::Proc, "/proc"},
        {DevicePath::FeaturesOnCard, "/mnt/SDCARD/features.json"},
        {DevicePath::FeaturesBuiltIn, "/usr/ostrel/features.json"},
        {DevicePath::SettingsFile, "/mnt/UDISK/system.json"},
        {DevicePath::DisplayBrightness, "/sys/devices/virtual/disp/disp/attr/enhance_bright"},
        {DevicePath::DisplayContrast, "/sys/devices/virtual/disp/disp/attr/enhance_contrast"},
        {DevicePath::DisplayTemperature, "/sys/devices/virtual/disp/disp/attr/color_temperature"},
        {DevicePath::DisplaySaturation, "/sys/devices/virtual/disp/disp/attr/enhance_saturation"},
        {DevicePath::StayAwakeMarker, "/tmp/stay_awake"},
        {DevicePath::InputGrabMarker, "/tmp/ostrel_inputd/grab"},
        {DevicePath::DisplayUpMarker, "/tmp/osdd_show_up"},
        {DevicePath::BatteryStatus, "/sys/class/power_supply/axp2202-battery/status"},
        {DevicePath::BatteryCapacity, "/sys/class/power_supply/axp2202-battery/capacity"},
        {DevicePath::UsbOnline, "/sys/class/power_supply/axp2202-usb/online"},
        {DevicePath::WpaSockets, "/etc/wifi/sockets"},
        {DevicePath::WpaOutput, "/tmp/wpa_status.txt"},
        {DevicePath::BluetoothAddress, "/tmp/btdev_addr"},
        {DevicePath::BluetoothReady, "/tmp/bluetooth_ready"},
        {DevicePath::SecondSoundDevice, "/dev/dsp1"},
    };
    ASSERT_EQ(expected.size(), static_cast<std::size_t>(DevicePath::Count));
    for (const auto& [path, text] : expected) {
        EXPECT_STREQ(devicePath(path), text);
        EXPECT_STREQ(devicePathForShell(path), text);
    }
}

TEST_F(DevicePathsTest, RootStandsInFront) {
    setDeviceRoot("/srv/console");
    EXPECT_STREQ(devicePath(DevicePath::Proc), "/srv/console/proc");
    EXPECT_STREQ(devicePath(DevicePath::DisplayUpMarker), "/srv/console/tmp/osdd_show_up");
}

TEST_F(DevicePathsTest, RootMayBeRelative) {
    setDeviceRoot("console");
    EXPECT_STREQ(devicePath(DevicePath::StayAwakeMarker), "console/tmp/stay_awake");
}

TEST_F(DevicePathsTest, TrailingSlashesOfTheRootAreDropped) {
    setDeviceRoot("/srv/console//");
    EXPECT_STREQ(devicePath(DevicePath::Proc), "/srv/console/proc");
}

TEST_F(DevicePathsTest, EmptyRootAndSlashAloneAreNone) {
    for (const char* none : {static_cast<const char*>(nullptr), "", "/"}) {
        setDeviceRoot("/srv/console");
        setDeviceRoot(none);
        EXPECT_STREQ(devicePath(DevicePath::Proc), "/proc");
        EXPECT_STREQ(devicePathForShell(DevicePath::StayAwakeMarker), "/tmp/stay_awake");
    }
}

TEST_F(DevicePathsTest, LaterRootReplacesTheFormer) {
    setDeviceRoot("/srv/one");
    setDeviceRoot("/srv/two");
    EXPECT_STREQ(devicePath(DevicePath::Proc), "/srv/two/proc");
}

TEST_F(DevicePathsTest, RootIsCopied) {
    std::string root = "/srv/console";
    setDeviceRoot(root.c_str());
    root = "/srv/changed";
    EXPECT_STREQ(devicePath(DevicePath::Proc), "/srv/console/proc");
}

TEST_F(DevicePathsTest, RootedPathIsOneWordOfACommand) {
    setDeviceRoot("/srv/my console; it's $HOME");
    EXPECT_STREQ(devicePath(DevicePath::StayAwakeMarker), "/srv/my console; it's $HOME/tmp/stay_awake");
    EXPECT_STREQ(devicePathForShell(DevicePath::StayAwakeMarker), "'/srv/my console; it'\\''s $HOME/tmp/stay_awake'");
}

}  // namespace
