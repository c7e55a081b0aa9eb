#include <dirent.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "ostrel/device_root.h"
#include "ostrel/file_utils.h"
#include "support/log_capture.h"
#include "support/test_device.h"

namespace {

using namespace std::string_literals;
using ostreltest::LogCapture;

class ProcessTest : public ostreltest::DeviceTest {
protected:
    void run(const std::string& pid, const std::string& commandLine) {
        device().write("/proc/" + pid + "/cmdline", commandLine);
    }
};

TEST_F(ProcessTest, FindsAProgramByTheEndOfItsPath) {
    run("41", "/usr/sbin/hostapd\0-B\0/etc/hostapd.conf\0"s);
    LogCapture log;
    EXPECT_EQ(check_process_exist("hostapd", 0), 41);
    EXPECT_EQ(log.text(), "");
}

TEST_F(ProcessTest, AnotherProgramWithALongerNameIsNotIt) {
    run("41", "/usr/bin/hostapd_cli\0-i\0wlan0\0"s);
    LogCapture log;
    EXPECT_EQ(check_process_exist("hostapd", 0), -1);
    EXPECT_EQ(log.text(), "");
}

TEST_F(ProcessTest, ASpaceEndsTheNameToo) {
    run("41", "hostapd -B /etc/hostapd.conf\0"s);
    EXPECT_EQ(check_process_exist("hostapd", 0), 41);
}

TEST_F(ProcessTest, OtherBlanksDoNotEndTheName) {
    for (const char* blank : {"\t", "\n", "\r", "\v", "\f"}) {
        run("41", "/usr/sbin/hostapd"s + blank + "-B\0"s);
        EXPECT_EQ(check_process_exist("hostapd", 0), -1) << static_cast<int>(*blank);
    }
}

TEST_F(ProcessTest, NameMayBeTheEndOfALongerOne) {
    run("41", "/usr/bin/xhostapd\0"s);
    EXPECT_EQ(check_process_exist("hostapd", 0), 41);
}

TEST_F(ProcessTest, OnlyTheFirstPlaceInThePathCounts) {
    run("41", "/opt/hostapd_tools/hostapd\0"s);
    EXPECT_EQ(check_process_exist("hostapd", 0), -1);
}

TEST_F(ProcessTest, OnlyTheFirstArgumentCounts) {
    run("41", "/bin/sh\0hostapd\0"s);
    EXPECT_EQ(check_process_exist("hostapd", 0), -1);
}

TEST_F(ProcessTest, CaseCounts) {
    run("41", "/usr/bin/Hostapd\0"s);
    EXPECT_EQ(check_process_exist("hostapd", 0), -1);
}

TEST_F(ProcessTest, EntriesThatAreNoProcessesAreLeftOut) {
    run("self", "/usr/bin/hostapd\0"s);
    run("x41", "/usr/bin/hostapd\0"s);
    EXPECT_EQ(check_process_exist("hostapd", 0), -1);
}

TEST_F(ProcessTest, FirstDigitMakesAProcess) {
    run("41abc", "/usr/bin/hostapd\0"s);
    EXPECT_EQ(check_process_exist("hostapd", 0), 41);
}

TEST_F(ProcessTest, FirstMatchInDirectoryOrderWins) {
    for (const char* pid : {"7", "300", "41", "12", "9"}) run(pid, "/usr/bin/hostapd\0"s);
    int first = 0;
    DIR* processes = opendir(device().path("/proc").c_str());
    while (const dirent* entry = readdir(processes)) {
        first = std::atoi(entry->d_name);
        if (first > 0) break;
    }
    closedir(processes);
    EXPECT_EQ(check_process_exist("hostapd", 0), first);
}

TEST_F(ProcessTest, ProcessWithoutACommandLineDoesNotMatchWithItsPredecessors) {
    run("41", "/usr/bin/hostapd_cli\0"s);
    device().write("/proc/42/comm", "gone\n");
    run("43", "/usr/bin/hostapd_cli\0"s);
    run("44", "");
    LogCapture log;
    EXPECT_EQ(check_process_exist("hostapd", 1), -1);
    EXPECT_EQ(log.text(),
              "[check: hostapd] p=hostapd_cli in /usr/bin/hostapd_cli, pnlen=7, cmp 0, p[7]=95\n"
              "[check: hostapd] p=hostapd_cli in /usr/bin/hostapd_cli, pnlen=7, cmp 0, p[7]=95\n"
              "[check: hostapd] fail\n");
}

TEST_F(ProcessTest, OnlyTheFirst511BytesAreRead) {
    run("41", std::string(504, '/') + "hostapd\0"s);
    EXPECT_EQ(check_process_exist("hostapd", 0), 41);
    run("41", std::string(505, '/') + "hostapd\0"s);
    EXPECT_EQ(check_process_exist("hostapd", 0), -1);
    // What lies beyond is cut off, so that a longer name ends there.
    run("41", std::string(504, '/') + "hostapd_cli\0"s);
    EXPECT_EQ(check_process_exist("hostapd", 0), 41);
}

TEST_F(ProcessTest, VerboseTellsOfACandidateAndThePid) {
    run("41", "/usr/sbin/hostapd -B\0"s);
    LogCapture log;
    EXPECT_EQ(check_process_exist("hostapd", 1), 41);
    EXPECT_EQ(log.text(),
              "[check: hostapd] p=hostapd -B in /usr/sbin/hostapd -B, pnlen=7, cmp 0, p[7]=32\n"
              "[check: hostapd] pid 41\n");
}

TEST_F(ProcessTest, VerboseTellsTheByteBehindTheNameWithoutASign) {
    run("41", "/usr/sbin/hostapd\x80\0"s);
    run("42", "/bin/sh\0"s);
    LogCapture log;
    EXPECT_EQ(check_process_exist("hostapd", 1), -1);
    EXPECT_EQ(log.text(),
              "[check: hostapd] p=hostapd\x80 in /usr/sbin/hostapd\x80, pnlen=7, cmp 0, p[7]=128\n"
              "[check: hostapd] fail\n");
}

TEST_F(ProcessTest, VerboseTellsThatNoneWasFound) {
    run("41", "/bin/sh\0"s);
    LogCapture log;
    EXPECT_EQ(check_process_exist("hostapd", 1), -1);
    EXPECT_EQ(log.text(), "[check: hostapd] fail\n");
}

TEST_F(ProcessTest, ProcessThatAppearsLaterIsFound) {
    EXPECT_EQ(check_process_exist("hostapd", 0), -1);
    run("41", "/usr/sbin/hostapd\0"s);
    EXPECT_EQ(check_process_exist("hostapd", 0), 41);
    device().remove("/proc/41");
    EXPECT_EQ(check_process_exist("hostapd", 0), -1);
}

TEST_F(ProcessTest, UnreadableProcIsLoggedInAnyCase) {
    device().remove("/proc");
    LogCapture log;
    EXPECT_EQ(check_process_exist("hostapd", 0), -1);
    EXPECT_EQ(log.text(), "can not open /proc\n");
    log.clear();
    EXPECT_EQ(check_process_exist("hostapd", 1), -1);
    EXPECT_EQ(log.text(), "can not open /proc\n");
}

TEST_F(ProcessTest, NoNameIsNoProcess) {
    run("41", "/usr/sbin/hostapd\0"s);
    LogCapture log;
    EXPECT_EQ(check_process_exist(nullptr, 1), -1);
    EXPECT_EQ(log.text(), "");
}

TEST_F(ProcessTest, WithoutADeviceRootTheSystemsOwnProcessesAreSearched) {
    setDeviceRoot(nullptr);
    // Our own name as other processes see it. The dot: an emulator of our processor, which they see in our place, would
    // answer for /proc/self/cmdline itself.
    std::string own;
    std::getline(std::ifstream("/proc/./self/cmdline"), own, '\0');
    EXPECT_GT(check_process_exist(own.c_str(), 0), 0);
    EXPECT_EQ(check_process_exist("no-such-program-runs-here", 0), -1);
}

}  // namespace
