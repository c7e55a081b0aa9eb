// The log as the system's log daemon gets it: datagrams at /dev/log, which the test takes. Run by apart.sh, whose /dev
// has nobody there.
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <regex>
#include <stdexcept>
#include <string>

#include "ostrel/file_utils.h"
#include "ostrel/log.h"
#include "support/log_capture.h"

namespace {

using ostreltest::LogCapture;

constexpr char kSocket[] = "/dev/log";
constexpr int kPatienceSeconds = 5;

// Takes the place of the log daemon while it lives.
class LogDaemon {
public:
    LogDaemon() : mSocket(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strcpy(address.sun_path, kSocket);
        const timeval patience{kPatienceSeconds, 0};
        setsockopt(mSocket, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof(patience));
        if (bind(mSocket, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0) {
            throw std::runtime_error("somebody else is at /dev/log");
        }
    }
    ~LogDaemon() {
        close(mSocket);
        unlink(kSocket);
    }
    LogDaemon(const LogDaemon&) = delete;
    LogDaemon& operator=(const LogDaemon&) = delete;

    // The next datagram, "" when none comes.
    std::string next() { return receive(0); }
    bool isIdle() { return receive(MSG_DONTWAIT).empty(); }

private:
    std::string receive(int flags) const {
        char buffer[4096];
        const ssize_t size = recv(mSocket, buffer, sizeof(buffer), flags);
        return {buffer, size > 0 ? static_cast<std::size_t>(size) : 0};
    }

    int mSocket;
};

// Everything before the program's own words.
std::string header(const std::string& datagram) { return datagram.substr(0, datagram.find("]: ") + 3); }
std::string words(const std::string& datagram) { return datagram.substr(header(datagram).size()); }

class SyslogTest : public ::testing::Test {
protected:
    // The name by which the system knows this process. Set, because an emulator of our processor goes by its own.
    SyslogTest() { prctl(PR_SET_NAME, "ostrel_apart_tests"); }
    ~SyslogTest() override { initLogger(0); }
};

// 7 is the priority "debug". The facility is left to the C library, which means "user", 1 * 8, or none. The kernel
// keeps 15 letters of a process's name.
TEST_F(SyslogTest, ALineArrivesWithDebugPriorityProcessNameAndPid) {
    LogDaemon daemon;
    initLogger(1);
    tprintf("battery %d %%\n", 42);
    const std::string datagram = daemon.next();
    const std::string process = "ostrel_apart_te\\[" + std::to_string(getpid()) + "\\]: ";
    EXPECT_TRUE(std::regex_match(header(datagram),
                                 std::regex("<(7|15)>[A-Z][a-z]{2} [ 1-3][0-9] [0-9]{2}:[0-9]{2}:[0-9]{2} " + process)))
        << datagram;
    EXPECT_EQ(words(datagram), "battery 42 %\n");
    EXPECT_STREQ(procname, "ostrel_apart_te");
}

TEST_F(SyslogTest, NothingGoesToStandardOutputMeanwhile) {
    LogDaemon daemon;
    initLogger(1);
    LogCapture output;
    tprintf("quiet\n");
    EXPECT_EQ(words(daemon.next()), "quiet\n");
    EXPECT_EQ(output.text(), "");
}

TEST_F(SyslogTest, EachLineOfTheLibraryIsADatagramOfItsOwn) {
    LogDaemon daemon;
    initLogger(1);
    check_process_exist("no such daemon", 1);
    check_process_exist("none either", 1);
    EXPECT_EQ(words(daemon.next()), "[check: no such daemon] fail\n");
    EXPECT_EQ(words(daemon.next()), "[check: none either] fail\n");
    EXPECT_TRUE(daemon.isIdle());
}

TEST_F(SyslogTest, LinesGoToStandardOutputAgainWhenAskedTo) {
    LogDaemon daemon;
    initLogger(1);
    initLogger(0);
    LogCapture output;
    tprintf("aloud\n");
    EXPECT_EQ(output.text(), "aloud\n");
    EXPECT_TRUE(daemon.isIdle());
}

TEST_F(SyslogTest, ADaemonThatComesLaterGetsTheLinesFromThen) {
    initLogger(1);
    tprintf("to nobody\n");
    LogDaemon daemon;
    tprintf("to the daemon\n");
    EXPECT_EQ(words(daemon.next()), "to the daemon\n");
}

TEST_F(SyslogTest, ADaemonThatRestartsGetsTheNextLine) {
    initLogger(1);
    {
        LogDaemon first;
        tprintf("first\n");
        EXPECT_EQ(words(first.next()), "first\n");
    }
    LogDaemon second;
    tprintf("second\n");
    EXPECT_EQ(words(second.next()), "second\n");
}

}  // namespace
