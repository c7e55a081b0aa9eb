#include <cstdlib>
#include <filesystem>
#include <string>

#include "ostrel/device_root.h"
#include "ostrel/file_utils.h"
#include "support/test_device.h"

namespace {

using namespace std::string_literals;

class DeviceRootTest : public ostreltest::DeviceTest {};

TEST_F(DeviceRootTest, StandsInFrontOfAbsolutePaths) {
    device().write("/proc/41/cmdline", "/usr/sbin/only-in-the-fake-proc\0"s);
    EXPECT_EQ(check_process_exist("only-in-the-fake-proc", 0), 41);
}

TEST_F(DeviceRootTest, UnsetLeavesThePathsOfTheSystem) {
    device().write("/proc/41/cmdline", "/usr/sbin/only-in-the-fake-proc\0"s);
    setDeviceRoot(nullptr);
    EXPECT_EQ(check_process_exist("only-in-the-fake-proc", 0), -1);
}

TEST_F(DeviceRootTest, IsTakenAnewByEachCall) {
    device().write("/other/proc/42/cmdline", "/usr/sbin/only-there\0"s);
    EXPECT_EQ(check_process_exist("only-there", 0), -1);
    setDeviceRoot(device().path("/other/").c_str());
    EXPECT_EQ(check_process_exist("only-there", 0), 42);
}

}  // namespace
