#include "ostrel/log.h"

#include <sys/time.h>
#include <syslog.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "ostrel/device_root.h"
#include "support/log_capture.h"
#include "support/test_device.h"

namespace {

using ostreltest::LogCapture;

// What the library asked of the system log and the system's clock.
struct SystemCalls {
    std::vector<std::string> calls;
    const char* identity = nullptr;
    bool tellOfClosing = false;
    const timeval* now = nullptr;  // the time that gettimeofday tells; null for the real one
};

SystemCalls& sys() {
    static SystemCalls calls;
    return calls;
}

void record(int priority, const char* format, va_list values) {
    char text[256];
    std::vsnprintf(text, sizeof text, format, values);
    sys().calls.push_back("priority " + std::to_string(priority) + ": " + text);
}

}  // namespace

// A program's own definitions come before the system library's, so these four are called instead.
extern "C" {
void openlog(const char* identity, int option, int facility) {
    sys().identity = identity;
    sys().calls.push_back("open " + std::to_string(option) + " " + std::to_string(facility));
}

void vsyslog(int priority, const char* format, va_list values) { record(priority, format, values); }

// What a fortified build calls instead of vsyslog.
void __vsyslog_chk(int priority, int /*flag*/, const char* format, va_list values) {  // NOLINT
    record(priority, format, values);
}

void closelog() {
    if (sys().tellOfClosing) std::fputs("the system log was closed\n", stderr);
}

int gettimeofday(timeval* now, void* /*zone*/) noexcept {
    if (sys().now != nullptr) {
        *now = *sys().now;
        return 0;
    }
    timespec real{};
    clock_gettime(CLOCK_REALTIME, &real);
    *now = {real.tv_sec, real.tv_nsec / 1000};
    return 0;
}
}

namespace {

class LogTest : public ostreltest::DeviceTest {
protected:
    LogTest() { sys() = {}; }
    ~LogTest() override { initLogger(0); }

    void writeComm(const std::string& content) {
        device().write("/proc/" + std::to_string(getpid()) + "/comm", content);
    }
};

TEST_F(LogTest, MessagesGoToStandardOutputAsTheyAre) {
    LogCapture log;
    tprintf("%s has %d rows\n", "list", 7);
    tprintf("no line feed");
    EXPECT_EQ(log.text(), "list has 7 rows\nno line feed");
    EXPECT_TRUE(sys().calls.empty());
}

TEST_F(LogTest, MessagesKeepTheirPlaceAmongOtherOutput) {
    LogCapture log;
    std::printf("before\n");
    tprintf("message\n");
    std::printf("after\n");
    EXPECT_EQ(log.text(), "before\nmessage\nafter\n");
}

TEST_F(LogTest, SystemLogIsOpenedUnderTheProcessName) {
    writeComm("launcher\n");
    LogCapture log;
    initLogger(1);
    EXPECT_STREQ(procname, "launcher");
    EXPECT_EQ(sys().identity, procname);
    EXPECT_EQ(sys().calls, std::vector<std::string>{"open 1 0"});  // LOG_PID, the default facility
    EXPECT_EQ(log.text(), "");
}

TEST_F(LogTest, MessagesGoToTheSystemLogAtDebugPriority) {
    initLogger(1);
    sys().calls.clear();
    LogCapture log;
    tprintf("%s has %d rows\n", "list", 7);
    EXPECT_EQ(sys().calls, std::vector<std::string>{"priority 7: list has 7 rows\n"});
    EXPECT_EQ(log.text(), "");
}

TEST_F(LogTest, AnyNonZeroModeIsTheSystemLog) {
    initLogger(-1);
    sys().calls.clear();
    tprintf("x\n");
    EXPECT_EQ(sys().calls, std::vector<std::string>{"priority 7: x\n"});
}

TEST_F(LogTest, ModeZeroGoesBackToStandardOutput) {
    initLogger(1);
    initLogger(0);
    sys().calls.clear();
    LogCapture log;
    tprintf("x\n");
    EXPECT_EQ(log.text(), "x\n");
    EXPECT_TRUE(sys().calls.empty());
}

TEST_F(LogTest, ModeZeroReadsNoName) {
    writeComm("first\n");
    initLogger(1);
    writeComm("second\n");
    initLogger(0);
    EXPECT_STREQ(procname, "first");
}

TEST_F(LogTest, NameWithoutALineFeedIsKeptWhole) {
    writeComm("launcher");
    initLogger(1);
    EXPECT_STREQ(procname, "launcher");
}

TEST_F(LogTest, OnlyTheFirstLineIsTheName) {
    writeComm("launcher\nmore\n");
    initLogger(1);
    EXPECT_STREQ(procname, "launcher");
}

TEST_F(LogTest, NameIsCutAt62Characters) {
    writeComm(std::string(80, 'n') + "\n");
    initLogger(1);
    EXPECT_EQ(procname, std::string(62, 'n'));
}

TEST_F(LogTest, UnreadableNameKeepsTheFormerOneAndOpensTheLogAllTheSame) {
    writeComm("launcher\n");
    initLogger(1);
    sys() = {};
    device().remove("/proc");
    LogCapture log;
    initLogger(1);
    EXPECT_STREQ(procname, "launcher");
    EXPECT_EQ(sys().calls, std::vector<std::string>{"open 1 0"});
    EXPECT_EQ(log.text(), "");
}

TEST_F(LogTest, EmptyNameFileKeepsTheFormerName) {
    writeComm("launcher\n");
    initLogger(1);
    writeComm("");
    initLogger(1);
    EXPECT_STREQ(procname, "launcher");
}

TEST_F(LogTest, WithoutADeviceRootTheNameIsTheProcesss) {
    setDeviceRoot(nullptr);
    char comm[64] = "";
    FILE* file = std::fopen("/proc/self/comm", "r");
    ASSERT_NE(std::fgets(comm, sizeof comm, file), nullptr);
    std::fclose(file);
    initLogger(1);
    EXPECT_EQ(procname + std::string("\n"), comm);
}

// Each of these runs in a process of its own, started anew.
class LogProcessTest : public LogTest {
protected:
    LogProcessTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
    ~LogProcessTest() override { GTEST_FLAG_SET(death_test_style, "fast"); }
};

TEST_F(LogProcessTest, NameIsEmptyUntilTheSystemLogIsAskedFor) {
    EXPECT_EXIT(
        {
            initLogger(0);
            std::_Exit(procname[0] == '\0' ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
}

TEST_F(LogProcessTest, SystemLogIsClosedAtExit) {
    EXPECT_EXIT(
        {
            sys().tellOfClosing = true;
            initLogger(1);
            std::exit(0);
        },
        ::testing::ExitedWithCode(0), "^the system log was closed\n$");
}

TEST_F(LogProcessTest, WithoutTheSystemLogNothingIsClosedAtExit) {
    EXPECT_EXIT(
        {
            sys().tellOfClosing = true;
            initLogger(0);
            std::exit(0);
        },
        ::testing::ExitedWithCode(0), "^$");
}

class ClockTest : public ::testing::Test {
protected:
    ~ClockTest() override { sys().now = nullptr; }
};

TEST_F(ClockTest, CountsMillisecondsAndDropsTheRest) {
    const timeval now{1700000012, 345999};
    sys().now = &now;
    EXPECT_EQ(systemms(), 1700000012345U);
}

TEST_F(ClockTest, FollowsTheWallClockBackwards) {
    const timeval late{2000, 0};
    const timeval early{1000, 999};
    sys().now = &late;
    EXPECT_EQ(systemms(), 2000000U);
    sys().now = &early;
    EXPECT_EQ(systemms(), 1000000U);
}

}  // namespace
