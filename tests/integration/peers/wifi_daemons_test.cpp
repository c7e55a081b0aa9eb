// The state of the Wi-Fi as the system's own daemons tell it: wpa_supplicant and hostapd at the two ends of a cable,
// where 802.1X takes the place of the radio. Run by apart.sh, which lays the cable; no other daemons run there.
#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <functional>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "ostrel/wifi.h"
#include "support/driven_clock.h"
#include "support/program.h"
#include "support/test_device.h"

namespace fs = std::filesystem;

namespace {

using namespace std::chrono_literals;
using ostreltest::DrivenClock;
using ostreltest::Program;
using std::chrono::steady_clock;
using ::testing::HasSubstr;

bool becomesTrue(const std::function<bool()>& condition) {
    const auto deadline = steady_clock::now() + 20s;
    while (!condition()) {
        if (steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(50ms);
    }
    return true;
}

std::string hexadecimal(const std::string& bytes) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        text += {kDigits[value >> 4], kDigits[value & 15]};
    }
    return text;
}

bool isZero(const WpaMsg& record) {
    const WpaMsg zeros{};
    return std::memcmp(&record, &zeros, sizeof(record)) == 0;
}

// A console whose processes are the real ones of this place.
class WifiDaemonsTest : public ostreltest::DeviceTest {
protected:
    WifiDaemonsTest() {
        device().remove("/proc");
        fs::create_symlink("/proc", device().path("/proc"));
        fs::create_directories(device().path("/etc/wifi/sockets"));
    }

    void startAccessPoint() {
        device().write("users", "\"player\" MD5 \"secret\"\n");
        device().write("hostapd.conf",
                       "interface=ap0\ndriver=wired\nieee8021x=1\nuse_pae_group_addr=1\neap_server=1\neap_user_file=" +
                           device().path("users") + "\n");
        mAccessPoint = std::make_unique<Program>("/usr/sbin/hostapd", Arguments{device().path("hostapd.conf")});
    }
    void startStation(const std::string& networkName) {
        device().write("station.conf", "ctrl_interface=" + device().path("/etc/wifi/sockets") +
                                           "\nap_scan=0\nnetwork={\n ssid=" + hexadecimal(networkName) +
                                           "\n key_mgmt=IEEE8021X\n eap=MD5\n identity=\"player\"\n"
                                           " password=\"secret\"\n eapol_flags=0\n}\n");
        mStation = std::make_unique<Program>(
            "/usr/sbin/wpa_supplicant", Arguments{"-D", "wired", "-i", "wlan0", "-c", device().path("station.conf")});
    }
    void awaitConnection() {
        ASSERT_TRUE(becomesTrue([this] { return device().exists("/etc/wifi/sockets/wlan0"); }));
        ASSERT_TRUE(becomesTrue([] { return rx_get_wpa_msg().state == 4; })) << answers();
    }
    void connectTo(const std::string& networkName) {
        startAccessPoint();
        startStation(networkName);
        awaitConnection();
    }
    static void end(std::unique_ptr<Program>& daemon) {
        daemon->signal(SIGKILL);
        daemon->wait();
    }

    // What wpa_cli printed for the last record.
    std::string answers() { return device().read("/tmp/wpa_status.txt"); }
    std::unique_ptr<Program>& station() { return mStation; }
    std::unique_ptr<Program>& accessPoint() { return mAccessPoint; }

private:
    using Arguments = std::vector<std::string>;
    std::unique_ptr<Program> mAccessPoint;
    std::unique_ptr<Program> mStation;
};

// A cable has no frequency and no signal: there the tool's answer to signal_poll is "FAIL". The address of the other
// end begins with 01, which is what the number of the network is read from.
TEST_F(WifiDaemonsTest, ACompletedConnectionIsReadFieldByField) {
    connectTo("Hearth");
    const WpaMsg record = rx_get_wpa_msg();
    EXPECT_EQ(record.state, 4);
    EXPECT_EQ(record.reserved, 0);
    EXPECT_STREQ(record.ssid, "Hearth");
    EXPECT_STREQ(record.ip, "192.168.50.7");
    EXPECT_EQ(record.rssi, 0);
    EXPECT_EQ(record.linkSpeed, 0);
    EXPECT_EQ(record.noise, 0);
    EXPECT_EQ(record.freq, 0);
    EXPECT_EQ(record.id, 1);
    EXPECT_THAT(answers(), HasSubstr("bssid=01:80:c2:00:00:03\n"));
    EXPECT_THAT(answers(), HasSubstr("FAIL\n"));
}

TEST_F(WifiDaemonsTest, AChineseNameIsDecodedFromTheToolsEscapes) {
    connectTo("客厅");
    EXPECT_STREQ(rx_get_wpa_msg().ssid, "客厅");
    EXPECT_THAT(answers(), HasSubstr("\nssid=\\xe5\\xae\\xa2\\xe5\\x8e\\x85\n"));
}

TEST_F(WifiDaemonsTest, AChineseNameOfFullLengthIsReadWhole) {
    const std::string name = "一二三四五六七八九十ab";  // 32 bytes, more than 120 in escapes
    connectTo(name);
    EXPECT_EQ(rx_get_wpa_msg().ssid, name);
}

TEST_F(WifiDaemonsTest, ANameEndsAtItsFirstBlank) {
    connectTo("Living room");
    EXPECT_STREQ(rx_get_wpa_msg().ssid, "Living");
    EXPECT_THAT(answers(), HasSubstr("\nssid=Living room\n"));
}

TEST_F(WifiDaemonsTest, TheModeFollowsTheDaemonsThatRun) {
    EXPECT_EQ(getWifiMode(), 1);
    startAccessPoint();
    EXPECT_TRUE(becomesTrue([] { return getWifiMode() == 3; })) << getWifiMode();
    startStation("Hearth");
    EXPECT_TRUE(becomesTrue([] { return getWifiMode() == 2; })) << getWifiMode();
    end(station());
    EXPECT_EQ(getWifiMode(), 3);
    end(accessPoint());
    EXPECT_EQ(getWifiMode(), 1);
}

TEST_F(WifiDaemonsTest, AStationThatIsKilledGivesARecordOfZerosAtOnce) {
    connectTo("Hearth");
    end(station());
    EXPECT_TRUE(device().exists("/etc/wifi/sockets/wlan0"));  // it had no time to clean up
    const auto begin = steady_clock::now();
    EXPECT_TRUE(isZero(rx_get_wpa_msg()));
    EXPECT_LT(steady_clock::now() - begin, 5s);
}

// A daemon that hangs keeps its process and its socket. The tool gives up by itself, after some ten seconds.
TEST_F(WifiDaemonsTest, AStationThatHangsCostsTheToolsPatienceAndNothingElse) {
    connectTo("Hearth");
    station()->signal(SIGSTOP);
    std::future<WpaMsg> record = std::async(std::launch::async, rx_get_wpa_msg);
    EXPECT_EQ(record.wait_for(1s), std::future_status::timeout);
    EXPECT_EQ(getWifiMode(), 2);
    EXPECT_TRUE(becomesTrue([this] { return answers() == "'STATUS' command timed out.\n"; })) << answers();
    station()->signal(SIGCONT);
    EXPECT_TRUE(isZero(record.get()));
    EXPECT_TRUE(becomesTrue([] { return rx_get_wpa_msg().state == 4; }));
}

// The monitor's sleep of three seconds passes at once.
class WifiMonitorDaemonsTest : public WifiDaemonsTest {
protected:
    ~WifiMonitorDaemonsTest() override {
        rx_wifi_monitor_stop();
        mClock.advance(3000);
    }
    void watch() {
        rx_wifi_monitor_start();
        ASSERT_TRUE(mClock.waitForSleepers(1));
    }
    void letThreeSecondsPass() {
        mClock.advance(3000);
        ASSERT_TRUE(mClock.waitForSleepers(1));
    }

private:
    DrivenClock mClock;
};

TEST_F(WifiMonitorDaemonsTest, TheMonitorKeepsTheLastRecordOfAStationThatWasKilled) {
    connectTo("Hearth");
    watch();
    end(station());
    letThreeSecondsPass();
    EXPECT_EQ(rx_wifi_status()->state, 4);
    EXPECT_STREQ(rx_wifi_status()->ssid, "Hearth");
    EXPECT_STREQ(rx_wifi_status()->ip, "192.168.50.7");
}

TEST_F(WifiMonitorDaemonsTest, TheMonitorReadsAStationThatCameBack) {
    connectTo("Hearth");
    watch();
    end(station());
    startStation("Attic");
    ASSERT_TRUE(becomesTrue([] { return getWifiMode() == 2; }));
    awaitConnection();
    letThreeSecondsPass();
    EXPECT_EQ(rx_wifi_status()->state, 4);
    EXPECT_STREQ(rx_wifi_status()->ssid, "Attic");
}

}  // namespace
