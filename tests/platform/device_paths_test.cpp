#include "ostrel/device_root.h"
#include "ostrel/file_utils.h"
#include "support/log_capture.h"
#include "support/test_device.h"

namespace {

using ostreltest::DeviceTest;
using ostreltest::LogCapture;

TEST_F(DeviceTest, DeviceRootStandsInFrontOfAbsolutePaths) {
    device().write("/proc/41/cmdline", std::string("/usr/sbin/only-in-the-fake-proc\0", 32));
    EXPECT_EQ(check_process_exist("only-in-the-fake-proc", 0), 41);
}

}  // namespace
