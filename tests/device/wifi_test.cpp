#include "ostrel/wifi.h"

#include <pthread.h>
#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <regex>
#include <string>
#include <thread>
#include <vector>

#include "ostrel/device_root.h"
#include "support/driven_clock.h"
#include "support/fake_shell.h"
#include "support/log_capture.h"
#include "support/test_device.h"

namespace {

using namespace std::string_literals;
using ostreltest::fakeShell;
using ostreltest::LogCapture;

constexpr char kSupplicant[] = "/proc/523/cmdline";
constexpr char kHotspot[] = "/proc/612/cmdline";
constexpr char kConnected[] =
    "bssid=72:00:00:00:01:00\nfreq=5180\nssid=Living_room\nid=3\nwpa_state=COMPLETED\nip_address=192.168.1.23\n";
constexpr char kSignal[] = "RSSI=-57\nLINKSPEED=65\nNOISE=-95\nFREQUENCY=5180\n";

int runningThreads() {
    int count = 0;
    for ([[maybe_unused]] const auto& task : std::filesystem::directory_iterator("/proc/self/task")) ++count;
    return count;
}

// What another thread is about to do needs no time of the test's clock, only of the processor.
bool becomesTrue(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        sched_yield();
    }
    return true;
}

// A console whose folder bin comes first in PATH.
class WifiTest : public ostreltest::DeviceTest {
protected:
    WifiTest() : mPath(std::getenv("PATH")) {
        setenv("PATH", (device().root() + "/bin:" + mPath).c_str(), 1);
        *rx_wifi_status() = WpaMsg{};
    }
    ~WifiTest() override {
        fakeShell() = nullptr;
        setenv("PATH", mPath.c_str(), 1);
        *rx_wifi_status() = WpaMsg{};
    }

    void answer(const std::string& status, const std::string& signal) {
        device().write("/var/wpa_status", status);
        device().write("/var/wpa_signal_poll", signal);
    }
    void run(const char* commandLineFile, const std::string& program) {
        device().write(commandLineFile, program + '\0');
    }

private:
    std::string mPath;
};

TEST_F(WifiTest, RecordHasTheLayoutThatProgramsRelyOn) {
    EXPECT_EQ(sizeof(WpaMsg), 116U);
    EXPECT_EQ(offsetof(WpaMsg, state), 0U);
    EXPECT_EQ(offsetof(WpaMsg, reserved), 4U);
    EXPECT_EQ(offsetof(WpaMsg, ssid), 8U);
    EXPECT_EQ(offsetof(WpaMsg, ip), 72U);
    EXPECT_EQ(offsetof(WpaMsg, rssi), 96U);
    EXPECT_EQ(offsetof(WpaMsg, linkSpeed), 100U);
    EXPECT_EQ(offsetof(WpaMsg, noise), 104U);
    EXPECT_EQ(offsetof(WpaMsg, freq), 108U);
    EXPECT_EQ(offsetof(WpaMsg, id), 112U);
}

TEST_F(WifiTest, StatusIsTheExportedRecord) { EXPECT_EQ(rx_wifi_status(), &g_wpa_msg); }

TEST_F(WifiTest, AsksForStatusAndSignal) {
    answer(kConnected, kSignal);
    const WpaMsg record = rx_get_wpa_msg();
    EXPECT_EQ(record.state, 4);
    EXPECT_STREQ(record.ssid, "Living_room");
    EXPECT_STREQ(record.ip, "192.168.1.23");
    EXPECT_EQ(record.rssi, -57);
    EXPECT_EQ(record.linkSpeed, 65);
    EXPECT_EQ(record.noise, -95);
    EXPECT_EQ(record.freq, 5180);
    EXPECT_EQ(record.id, 72);
}

TEST_F(WifiTest, AskingLeavesTheSharedRecordAlone) {
    answer(kConnected, kSignal);
    rx_get_wpa_msg();
    EXPECT_EQ(g_wpa_msg.state, 0);
    EXPECT_STREQ(g_wpa_msg.ssid, "");
}

TEST_F(WifiTest, TheSignalIsAppendedToTheStatus) {
    answer(kConnected, kSignal);
    rx_get_wpa_msg();
    rx_get_wpa_msg();
    EXPECT_EQ(device().read("/tmp/wpa_status.txt"), std::string(kConnected) + kSignal);
}

TEST_F(WifiTest, TheToolIsToldTheSocketFolderAndTheInterface) {
    rx_get_wpa_msg();
    const std::string sockets = "-p " + device().path("/etc/wifi/sockets");
    EXPECT_EQ(device().read("/var/wpa_calls"), sockets + " -i wlan0 status\n" + sockets + " -i wlan0 signal_poll\n");
}

TEST_F(WifiTest, ADeviceRootWithBlanksAndQuotesReachesTheToolWhole) {
    const std::string root = device().path("/it's a \"console\" $HOME");
    std::filesystem::create_directories(root + "/tmp");
    answer(kConnected, kSignal);
    setDeviceRoot(root.c_str());
    EXPECT_EQ(rx_get_wpa_msg().state, 4);
    EXPECT_THAT(device().read("/var/wpa_calls"),
                testing::StartsWith("-p " + root + "/etc/wifi/sockets -i wlan0 status\n"));
}

TEST_F(WifiTest, WithoutADeviceRootTheCommandsAreLiteral) {
    std::vector<std::string> commands;
    fakeShell() = [&](const std::string& command) {
        commands.push_back(command);
        return 0;
    };
    setDeviceRoot(nullptr);
    rx_get_wpa_msg();
    EXPECT_THAT(commands,
                testing::ElementsAre("wpa_cli -p /etc/wifi/sockets -i wlan0 status > /tmp/wpa_status.txt",
                                     "wpa_cli -p /etc/wifi/sockets -i wlan0 signal_poll >> /tmp/wpa_status.txt"));
}

TEST_F(WifiTest, TheExitStatusOfTheToolIsIgnored) {
    fakeShell() = [&](const std::string&) {
        device().write("/tmp/wpa_status.txt", kConnected);
        return 256;
    };
    EXPECT_EQ(rx_get_wpa_msg().state, 4);
}

TEST_F(WifiTest, AMissingFileGivesARecordOfZeros) {
    fakeShell() = [](const std::string&) { return -1; };
    const WpaMsg record = rx_get_wpa_msg();
    const WpaMsg zeros{};
    EXPECT_EQ(std::memcmp(&record, &zeros, sizeof(record)), 0);
}

TEST_F(WifiTest, AToolThatPrintsNothingGivesARecordOfZeros) {
    device().write("/tmp/wpa_status.txt", kConnected);
    const WpaMsg record = rx_get_wpa_msg();
    const WpaMsg zeros{};
    EXPECT_EQ(std::memcmp(&record, &zeros, sizeof(record)), 0);
}

TEST_F(WifiTest, AnswersLongerThanAnyBufferAreReadWhole) {
    answer(std::string(65536, '.') + "\nssid=far\nwpa_state=SCANNING\n", std::string(65536, '.') + "RSSI=-81\n");
    const WpaMsg record = rx_get_wpa_msg();
    EXPECT_STREQ(record.ssid, "far");
    EXPECT_EQ(record.state, 2);
    EXPECT_EQ(record.rssi, -81);
}

TEST_F(WifiTest, ZeroBytesEndTheText) {
    answer("wpa_state=SCANNING\n\0ip_address=10.0.0.1\n"s, kSignal);
    const WpaMsg record = rx_get_wpa_msg();
    EXPECT_EQ(record.state, 2);
    EXPECT_STREQ(record.ip, "");
    EXPECT_EQ(record.rssi, 0);
}

TEST_F(WifiTest, AskingLogsNothing) {
    device().remove("/bin/wpa_cli");
    setenv("PATH", "/usr/bin:/bin", 1);
    fakeShell() = [](const std::string&) { return 127 << 8; };
    LogCapture output;
    LogCapture errors{LogCapture::Stream::Error};
    rx_get_wpa_msg();
    EXPECT_EQ(output.text(), "");
    EXPECT_EQ(errors.text(), "");
}

TEST_F(WifiTest, TwoCallsAtOnceDoNotMixTheirQueries) {
    std::mutex lock;
    std::vector<std::string> queries;
    fakeShell() = [&](const std::string& command) {
        {
            const std::lock_guard<std::mutex> guard(lock);
            queries.emplace_back(command.find(" signal_poll >> ") == std::string::npos ? "status" : "signal_poll");
        }
        sched_yield();
        return 0;
    };
    const auto ask = [] {
        for (int i = 0; i < 100; ++i) rx_get_wpa_msg();
    };
    std::thread other(ask);
    ask();
    other.join();
    ASSERT_EQ(queries.size(), 400U);
    for (std::size_t i = 0; i < queries.size(); ++i) ASSERT_EQ(queries[i], i % 2 == 0 ? "status" : "signal_poll") << i;
}

TEST_F(WifiTest, SignalStrengthGivesBars) {
    EXPECT_EQ(rssi2Level(-127), 0);
    EXPECT_EQ(rssi2Level(-126), 1);
    EXPECT_EQ(rssi2Level(-81), 1);
    EXPECT_EQ(rssi2Level(-80), 2);
    EXPECT_EQ(rssi2Level(-71), 2);
    EXPECT_EQ(rssi2Level(-70), 3);
    EXPECT_EQ(rssi2Level(0), 3);
    EXPECT_EQ(rssi2Level(127), 3);
    EXPECT_EQ(rssi2Level(128), 0);
    EXPECT_EQ(rssi2Level(-2147483647 - 1), 0);
}

TEST_F(WifiTest, ModeIsOffWithoutADaemon) {
    run(kSupplicant, "/sbin/init");
    EXPECT_EQ(getWifiMode(), 1);
}

TEST_F(WifiTest, ModeIsStationWhileTheSupplicantRuns) {
    run(kSupplicant, "/usr/sbin/wpa_supplicant");
    EXPECT_EQ(getWifiMode(), 2);
}

TEST_F(WifiTest, ModeIsHotspotWhileTheAccessPointDaemonRuns) {
    run(kHotspot, "/usr/sbin/hostapd");
    EXPECT_EQ(getWifiMode(), 3);
}

TEST_F(WifiTest, TheSupplicantComesBeforeTheAccessPoint) {
    run(kSupplicant, "/usr/sbin/wpa_supplicant");
    run(kHotspot, "/usr/sbin/hostapd");
    EXPECT_EQ(getWifiMode(), 2);
}

TEST_F(WifiTest, ModeLogsNothing) {
    LogCapture log;
    getWifiMode();
    EXPECT_EQ(log.text(), "");
}

// Every test ends with the monitor stopped and its threads gone.
class WifiMonitorTest : public WifiTest {
protected:
    WifiMonitorTest() {
        startAndEndAThread();  // a sanitizer starts a thread of its own with the first
        mThreadsBefore = runningThreads();
        answer(kConnected, kSignal);
    }
    ~WifiMonitorTest() override {
        rx_wifi_monitor_stop();
        EXPECT_TRUE(mClock.waitForSleepers(monitorThreads()));
        mClock.advance(3000);
        EXPECT_TRUE(becomesTrue([&] { return monitorThreads() == 0; }));
    }

    int monitorThreads() const { return runningThreads() - mThreadsBefore; }
    void startAndSettle() {
        rx_wifi_monitor_start();
        ASSERT_TRUE(mClock.waitForSleepers(1));
    }
    void passAndSettle(uint64_t ms) {
        mClock.advance(ms);
        ASSERT_TRUE(mClock.waitForSleepers(1));
    }
    int refreshes() {
        const std::string calls = device().read("/var/wpa_calls");
        return static_cast<int>(std::count(calls.begin(), calls.end(), '\n')) / 2;
    }
    ostreltest::DrivenClock& clock() { return mClock; }

private:
    // A thread that was joined is listed for a moment still, and would be counted.
    static void startAndEndAThread() {
        pid_t thread = 0;
        std::thread([&thread] { thread = gettid(); }).join();
        const std::string entry = "/proc/self/task/" + std::to_string(thread);
        EXPECT_TRUE(becomesTrue([&entry] { return access(entry.c_str(), F_OK) != 0; }));
    }

    ostreltest::DrivenClock mClock;
    int mThreadsBefore = 0;
};

TEST_F(WifiMonitorTest, RefreshesTheRecordAtOnce) {
    run(kSupplicant, "wpa_supplicant");
    startAndSettle();
    EXPECT_EQ(g_wpa_msg.state, 4);
    EXPECT_STREQ(g_wpa_msg.ssid, "Living_room");
    EXPECT_STREQ(g_wpa_msg.ip, "192.168.1.23");
    EXPECT_EQ(g_wpa_msg.rssi, -57);
    EXPECT_EQ(g_wpa_msg.id, 72);
}

TEST_F(WifiMonitorTest, TheRecordIsReadWithoutALock) {
    run(kSupplicant, "wpa_supplicant");
    rx_wifi_monitor_start();
    EXPECT_TRUE(becomesTrue([] { return rx_wifi_status()->state == 4; }));
}

TEST_F(WifiMonitorTest, RefreshesEveryThreeSeconds) {
    run(kSupplicant, "wpa_supplicant");
    startAndSettle();
    EXPECT_EQ(refreshes(), 1);
    passAndSettle(2999);
    EXPECT_EQ(refreshes(), 1);
    answer(kConnected, "RSSI=-80\n");
    passAndSettle(1);
    EXPECT_EQ(refreshes(), 2);
    EXPECT_EQ(g_wpa_msg.rssi, -80);
    EXPECT_EQ(g_wpa_msg.noise, 0);
}

TEST_F(WifiMonitorTest, AsksNothingWhileTheSupplicantDoesNotRun) {
    run(kHotspot, "hostapd");
    startAndSettle();
    EXPECT_EQ(refreshes(), 0);
    EXPECT_EQ(g_wpa_msg.state, 0);
    run(kSupplicant, "wpa_supplicant");
    passAndSettle(3000);
    EXPECT_EQ(refreshes(), 1);
    EXPECT_EQ(g_wpa_msg.state, 4);
}

TEST_F(WifiMonitorTest, KeepsTheLastValuesWhenTheSupplicantEnds) {
    run(kSupplicant, "wpa_supplicant");
    startAndSettle();
    device().remove("/proc/523");
    passAndSettle(3000);
    EXPECT_EQ(refreshes(), 1);
    EXPECT_EQ(g_wpa_msg.state, 4);
    EXPECT_STREQ(g_wpa_msg.ssid, "Living_room");
}

TEST_F(WifiMonitorTest, AFailedQueryClearsTheValues) {
    run(kSupplicant, "wpa_supplicant");
    startAndSettle();
    answer("", "");
    passAndSettle(3000);
    EXPECT_EQ(g_wpa_msg.state, 0);
    EXPECT_STREQ(g_wpa_msg.ssid, "");
}

TEST_F(WifiMonitorTest, TheThreadLogsItsNumbers) {
    LogCapture log;
    startAndSettle();
    const std::string text = log.text();
    std::smatch found;
    ASSERT_TRUE(std::regex_match(text, found,
                                 std::regex(R"(new thread_wifi_monitor: pid (\d+) tid (\d+) \(0x([0-9a-f]+)\)\n)")));
    EXPECT_EQ(found[1], std::to_string(getpid()));
    EXPECT_EQ(std::stoul(found[3], nullptr, 16), std::stoul(found[2]));
    EXPECT_TRUE(std::filesystem::exists("/proc/self/task/" + found[2].str()));
    EXPECT_NE(found[2], std::to_string(getpid()));
}

TEST_F(WifiMonitorTest, StartingClearsTheRecord) {
    g_wpa_msg.state = 4;
    g_wpa_msg.reserved = 1;
    g_wpa_msg.id = 9;
    startAndSettle();
    EXPECT_EQ(g_wpa_msg.state, 0);
    EXPECT_EQ(g_wpa_msg.reserved, 0);
    EXPECT_EQ(g_wpa_msg.id, 0);
}

TEST_F(WifiMonitorTest, StartingTwiceSaysSoKeepsOneThreadAndClearsTheRecordAgain) {
    run(kSupplicant, "wpa_supplicant");
    startAndSettle();
    EXPECT_EQ(g_wpa_msg.state, 4);
    LogCapture log;
    rx_wifi_monitor_start();
    EXPECT_EQ(log.text(), "wifi monitor already started.");
    EXPECT_EQ(monitorThreads(), 1);
    EXPECT_EQ(g_wpa_msg.state, 0);
    EXPECT_STREQ(g_wpa_msg.ssid, "");
}

TEST_F(WifiMonitorTest, StoppingEndsTheThreadAfterItsSleep) {
    run(kSupplicant, "wpa_supplicant");
    startAndSettle();
    rx_wifi_monitor_stop();
    passAndSettle(2999);
    EXPECT_EQ(monitorThreads(), 1);
    clock().advance(1);
    EXPECT_TRUE(becomesTrue([&] { return monitorThreads() == 0; }));
    EXPECT_EQ(refreshes(), 1);
    EXPECT_EQ(g_wpa_msg.state, 4);
}

TEST_F(WifiMonitorTest, StoppingWithoutStartChangesNothing) {
    LogCapture log;
    rx_wifi_monitor_stop();
    EXPECT_EQ(monitorThreads(), 0);
    EXPECT_EQ(log.text(), "");
}

TEST_F(WifiMonitorTest, AStartWithinTheSleepAfterAStopLeavesOnlyTheNewThread) {
    run(kSupplicant, "wpa_supplicant");
    startAndSettle();
    clock().advance(1000);
    rx_wifi_monitor_stop();
    LogCapture log;
    rx_wifi_monitor_start();
    EXPECT_EQ(monitorThreads(), 2);
    ASSERT_TRUE(clock().waitForSleepers(2));
    EXPECT_THAT(log.lines(), testing::ElementsAre(testing::StartsWith("new thread_wifi_monitor: pid ")));
    EXPECT_EQ(refreshes(), 2);
    clock().advance(2000);
    EXPECT_TRUE(becomesTrue([&] { return monitorThreads() == 1; }));
    EXPECT_EQ(refreshes(), 2);
    passAndSettle(1000);
    EXPECT_EQ(refreshes(), 3);
}

// Queries that end when the test lets them. Shared with the shell of the test, which the threads may outlive.
struct SlowQueries {
    std::atomic<int> begun{0};
    std::atomic<int> allowed{0};
};

class WifiMonitorSlowQueryTest : public WifiMonitorTest {
protected:
    WifiMonitorSlowQueryTest() {
        run(kSupplicant, "wpa_supplicant");
        fakeShell() = [this, queries = mQueries](const std::string& command) {
            if (command.find(" status > ") == std::string::npos) return 0;
            const int number = ++queries->begun;
            becomesTrue([&] { return queries->allowed >= number; });
            device().write("/tmp/wpa_status.txt", kConnected);
            return 0;
        };
        rx_wifi_monitor_start();
        EXPECT_TRUE(becomesTrue([&] { return mQueries->begun == 1; }));
    }
    ~WifiMonitorSlowQueryTest() override { letEnd(1000); }

    void letEnd(int queries) { mQueries->allowed = queries; }

private:
    std::shared_ptr<SlowQueries> mQueries = std::make_shared<SlowQueries>();
};

TEST_F(WifiMonitorSlowQueryTest, AnAnswerThatComesAfterTheStopIsDropped) {
    rx_wifi_monitor_stop();
    letEnd(1);
    ASSERT_TRUE(clock().waitForSleepers(1));
    EXPECT_EQ(g_wpa_msg.state, 0);
}

TEST_F(WifiMonitorSlowQueryTest, AnAnswerToAFormerThreadIsDropped) {
    rx_wifi_monitor_stop();
    rx_wifi_monitor_start();  // returns while the former thread still asks
    EXPECT_EQ(monitorThreads(), 2);
    letEnd(1);
    ASSERT_TRUE(clock().waitForSleepers(1));
    EXPECT_EQ(g_wpa_msg.state, 0);
    letEnd(2);
    ASSERT_TRUE(clock().waitForSleepers(2));
    EXPECT_EQ(g_wpa_msg.state, 4);
}

TEST_F(WifiMonitorSlowQueryTest, StartingTwiceDoesNotWaitForAQueryAndKeepsItsAnswer) {
    rx_wifi_monitor_start();
    EXPECT_EQ(monitorThreads(), 1);
    letEnd(1);
    ASSERT_TRUE(clock().waitForSleepers(1));
    EXPECT_EQ(g_wpa_msg.state, 4);
}

TEST_F(WifiMonitorTest, StartsAgainAfterItEnded) {
    run(kSupplicant, "wpa_supplicant");
    startAndSettle();
    rx_wifi_monitor_stop();
    clock().advance(3000);
    ASSERT_TRUE(becomesTrue([&] { return monitorThreads() == 0; }));
    startAndSettle();
    EXPECT_EQ(monitorThreads(), 1);
    EXPECT_EQ(refreshes(), 2);
    EXPECT_EQ(g_wpa_msg.state, 4);
}

// While it lives no thread can be started: each asks for a stack larger than any address space.
class NoMoreThreads {
public:
    NoMoreThreads() {
        pthread_getattr_default_np(&mBefore);
        pthread_attr_t tooLarge;
        pthread_attr_init(&tooLarge);
        EXPECT_EQ(pthread_attr_setstacksize(&tooLarge, std::size_t{1} << 48U), 0);
        EXPECT_EQ(pthread_setattr_default_np(&tooLarge), 0);
        pthread_attr_destroy(&tooLarge);
    }
    ~NoMoreThreads() {
        EXPECT_EQ(pthread_setattr_default_np(&mBefore), 0);
        pthread_attr_destroy(&mBefore);
    }
    NoMoreThreads(const NoMoreThreads&) = delete;
    NoMoreThreads& operator=(const NoMoreThreads&) = delete;

private:
    pthread_attr_t mBefore{};
};

TEST_F(WifiMonitorTest, WithoutAThreadItCountsAsStarted) {
    const NoMoreThreads none;
    LogCapture log;
    rx_wifi_monitor_start();
    EXPECT_EQ(log.text(), "");
    EXPECT_EQ(monitorThreads(), 0);
    rx_wifi_monitor_start();
    EXPECT_EQ(log.text(), "wifi monitor already started.");
}

}  // namespace
