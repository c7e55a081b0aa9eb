// What the library reads out of the real wpa_cli when a station with a radio answers it. The test is the station: it
// listens at the socket that wpa_cli asks, and answers from a script.
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "ostrel/wifi.h"
#include "support/test_device.h"

namespace {

using ::testing::ElementsAre;

constexpr char kConnected[] =
    "bssid=72:00:00:00:01:00\nfreq=5180\nssid=Living_room\nid=3\nmode=station\nwpa_state=COMPLETED\n"
    "ip_address=192.168.1.23\naddress=02:00:00:00:00:01\n";
constexpr char kSignal[] = "RSSI=-57\nLINKSPEED=65\nNOISE=-95\nFREQUENCY=5180\n";

// Answers each request by its text, and an unknown one as a station does.
class ScriptedStation {
public:
    using Answers = std::map<std::string, std::string>;

    ScriptedStation(const std::string& path, Answers answers)
        : mAnswers(std::move(answers)), mSocket(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        if (path.size() >= sizeof(address.sun_path)) throw std::runtime_error("too long for a socket: " + path);
        std::strcpy(address.sun_path, path.c_str());
        if (bind(mSocket, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0) {
            throw std::runtime_error("no socket at " + path);
        }
        mThread = std::thread([this] { serve(); });
    }
    ~ScriptedStation() {
        shutdown(mSocket, SHUT_RDWR);  // wakes the thread with an empty datagram
        mThread.join();
        close(mSocket);
    }
    ScriptedStation(const ScriptedStation&) = delete;
    ScriptedStation& operator=(const ScriptedStation&) = delete;

    std::vector<std::string> requests() {
        const std::lock_guard<std::mutex> guard(mLock);
        return mRequests;
    }

private:
    void serve() {
        char request[256];
        sockaddr_un asker{};
        for (;;) {
            socklen_t askerSize = sizeof(asker);
            auto* from = reinterpret_cast<sockaddr*>(&asker);
            const ssize_t size = recvfrom(mSocket, request, sizeof(request), 0, from, &askerSize);
            if (size <= 0) return;
            const std::string answer = answerTo({request, static_cast<std::size_t>(size)});
            sendto(mSocket, answer.data(), answer.size(), 0, from, askerSize);
        }
    }
    std::string answerTo(const std::string& request) {
        const std::lock_guard<std::mutex> guard(mLock);
        mRequests.push_back(request);
        const auto known = mAnswers.find(request);
        return known == mAnswers.end() ? "UNKNOWN COMMAND\n" : known->second;
    }

    const Answers mAnswers;
    std::mutex mLock;
    std::vector<std::string> mRequests;
    int mSocket;
    std::thread mThread;
};

class WifiSignalTest : public ostreltest::DeviceTest {
protected:
    WifiSignalTest() {
        setenv("PATH", (std::string("/usr/sbin:/sbin:") + std::getenv("PATH")).c_str(), 1);
        std::filesystem::create_directories(device().path("/etc/wifi/sockets"));
    }
    std::string socketPath() { return device().path("/etc/wifi/sockets/wlan0"); }
    WpaMsg recordOf(const std::string& status, const std::string& signal) {
        const ScriptedStation station(socketPath(), {{"STATUS", status}, {"SIGNAL_POLL", signal}});
        const WpaMsg record = rx_get_wpa_msg();
        unlink(socketPath().c_str());
        return record;
    }
};

// An answer fills at most one byte less than the 4096 that the tool has room for.
std::string ofFullLength(const std::string& last) { return std::string(4095 - last.size(), '.') + last; }

TEST_F(WifiSignalTest, AConnectionWithItsSignalIsReadFieldByField) {
    const WpaMsg record = recordOf(kConnected, kSignal);
    EXPECT_EQ(record.state, 4);
    EXPECT_STREQ(record.ssid, "Living_room");
    EXPECT_STREQ(record.ip, "192.168.1.23");
    EXPECT_EQ(record.rssi, -57);
    EXPECT_EQ(record.linkSpeed, 65);
    EXPECT_EQ(record.noise, -95);
    EXPECT_EQ(record.freq, 5180);
    EXPECT_EQ(record.id, 72);
}

TEST_F(WifiSignalTest, TheToolAsksTheStationForStatusAndSignal) {
    ScriptedStation station(socketPath(), {{"STATUS", kConnected}, {"SIGNAL_POLL", kSignal}});
    rx_get_wpa_msg();
    EXPECT_THAT(station.requests(), ElementsAre("STATUS", "SIGNAL_POLL"));
}

TEST_F(WifiSignalTest, EveryStateHasItsNumber) {
    const std::pair<const char*, int> rows[] = {{"COMPLETED", 4},      {"INACTIVE", 1},       {"SCANNING", 2},
                                                {"4WAY_HANDSHAKE", 6}, {"DISCONNECTED", 0},   {"INTERFACE_DISABLED", 0},
                                                {"ASSOCIATING", 0},    {"GROUP_HANDSHAKE", 0}};
    for (const auto& [text, state] : rows) {
        EXPECT_EQ(recordOf(std::string("wpa_state=") + text + "\n", "FAIL\n").state, state) << text;
    }
}

TEST_F(WifiSignalTest, TheEndOfTwoAnswersOfFullLengthIsRead) {
    const WpaMsg record = recordOf(ofFullLength("\nssid=far\nwpa_state=SCANNING\n"), ofFullLength("\nRSSI=-81\n"));
    EXPECT_STREQ(record.ssid, "far");
    EXPECT_EQ(record.state, 2);
    EXPECT_EQ(record.rssi, -81);
}

TEST_F(WifiSignalTest, ASignalThatFadesLosesItsBars) {
    EXPECT_EQ(rssi2Level(recordOf(kConnected, "RSSI=-70\n").rssi), 3);
    EXPECT_EQ(rssi2Level(recordOf(kConnected, "RSSI=-71\n").rssi), 2);
    EXPECT_EQ(rssi2Level(recordOf(kConnected, "RSSI=-81\n").rssi), 1);
    EXPECT_EQ(rssi2Level(recordOf(kConnected, "RSSI=-127\n").rssi), 0);
}

}  // namespace
