#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "device/wpa_output.h"

namespace {

using ostrel::parseWpaOutput;

WpaMsg parse(const std::string& text) { return parseWpaOutput(text.c_str()); }
std::string ssidOf(const std::string& value) { return parse("bssid=aa\nssid=" + value + "\nid=0\n").ssid; }
int stateOf(const std::string& value) { return parse("wpa_state=" + value + "\n").state; }

void expectZero(const WpaMsg& record) {
    const char zeros[116] = {};
    EXPECT_EQ(std::memcmp(&record, zeros, sizeof(zeros)), 0);
}

TEST(WpaOutputTest, ReadsEveryFieldOfBothReplies) {
    const WpaMsg record = parse(
        "bssid=02:00:00:00:01:00\nfreq=2437\nssid=Living_room\nid=3\nmode=station\npairwise_cipher=CCMP\n"
        "group_cipher=CCMP\nkey_mgmt=WPA2-PSK\nwpa_state=COMPLETED\nip_address=192.168.1.23\np2p_device_address=02:11\n"
        "address=02:00:00:00:00:00\nuuid=12345678-9abc\n"
        "RSSI=-57\nLINKSPEED=65\nNOISE=-95\nFREQUENCY=2437\n");
    EXPECT_EQ(record.state, 4);
    EXPECT_EQ(record.reserved, 0);
    EXPECT_STREQ(record.ssid, "Living_room");
    EXPECT_STREQ(record.ip, "192.168.1.23");
    EXPECT_EQ(record.rssi, -57);
    EXPECT_EQ(record.linkSpeed, 65);
    EXPECT_EQ(record.noise, -95);
    EXPECT_EQ(record.freq, 2437);
    EXPECT_EQ(record.id, 2);
}

TEST(WpaOutputTest, AnEmptyTextGivesARecordOfZeros) { expectZero(parse("")); }

TEST(WpaOutputTest, TextWithoutAnyKeyGivesARecordOfZeros) {
    expectZero(parse("Failed to connect to non-global ctrl_iface: wlan0  error: No such file or directory\n"));
    expectZero(parse("FAIL\n"));
}

TEST(WpaOutputTest, StatesHaveTheirNumbers) {
    EXPECT_EQ(stateOf("COMPLETED"), 4);
    EXPECT_EQ(stateOf("INACTIVE"), 1);
    EXPECT_EQ(stateOf("SCANNING"), 2);
    EXPECT_EQ(stateOf("4WAY_HANDSHAKE"), 6);
    EXPECT_EQ(stateOf("DISABLED"), 0);
}

TEST(WpaOutputTest, AnyOtherStateCountsAsDisabled) {
    for (const char* state : {"COMPLETEDX", "COMPLETE", "XCOMPLETED", "completed", "ASSOCIATING", "ASSOCIATED",
                              "DISCONNECTED", "GROUP_HANDSHAKE", "4WAY", "4"}) {
        EXPECT_EQ(stateOf(state), 0) << state;
    }
}

TEST(WpaOutputTest, TheStateEndsAtABlank) {
    EXPECT_EQ(stateOf("COMPLETED now"), 4);
    EXPECT_EQ(stateOf("COMPLETED\r"), 4);
    EXPECT_EQ(stateOf("\tSCANNING"), 2);
    EXPECT_EQ(parse("wpa_state=INACTIVE").state, 1);
}

TEST(WpaOutputTest, OnlyTheFirstOfAKeyCounts) {
    const WpaMsg record = parse("wpa_state=SCANNING\nwpa_state=COMPLETED\nRSSI=-50\nAVG_RSSI=-60\nRSSI=-70\n");
    EXPECT_EQ(record.state, 2);
    EXPECT_EQ(record.rssi, -50);
}

TEST(WpaOutputTest, KeysAreFoundInsideALine) {
    const WpaMsg record = parse("AVG_RSSI=-60\nXwpa_state=COMPLETED\nmy_ip_address=10.0.0.1\n");
    EXPECT_EQ(record.rssi, -60);
    EXPECT_EQ(record.state, 4);
    EXPECT_STREQ(record.ip, "10.0.0.1");
}

TEST(WpaOutputTest, TheNameIsNotReadFromTheBssidLine) {
    EXPECT_STREQ(parse("bssid=02:00:00:00:01:00\nfreq=2437\n").ssid, "");
    EXPECT_STREQ(parse("x\nbssid=02:00:00:00:01:00\nssid=home\n").ssid, "home");
}

TEST(WpaOutputTest, TheNameIsNotReadFromTheFirstLine) { EXPECT_STREQ(parse("ssid=home\nid=0\n").ssid, ""); }

TEST(WpaOutputTest, TheNameEndsAtItsFirstBlank) {
    EXPECT_EQ(ssidOf("Living room"), "Living");
    EXPECT_EQ(ssidOf("  Living room"), "Living");
    EXPECT_EQ(ssidOf("a\tb"), "a");
}

TEST(WpaOutputTest, AnEmptyValueTakesTheNextLine) {
    EXPECT_EQ(ssidOf(""), "id=0");
    EXPECT_STREQ(parse("ip_address=\nmode=station\n").ip, "mode=station");
    EXPECT_EQ(parse("wpa_state=\nCOMPLETED\n").state, 4);
    EXPECT_EQ(parse("RSSI=\n-44\n").rssi, -44);
}

TEST(WpaOutputTest, AnEmptyValueAtTheEndIsEmpty) {
    const WpaMsg record = parse("wpa_state=\nssid=");
    EXPECT_EQ(record.state, 0);
    EXPECT_STREQ(record.ssid, "");
}

TEST(WpaOutputTest, EscapesBecomeBytes) {
    EXPECT_EQ(ssidOf("\\xe4\\xb8\\xad"), "\xE4\xB8\xAD");
    EXPECT_EQ(ssidOf("\\xE4\\xB8\\xAD"), "\xE4\xB8\xAD");
    EXPECT_EQ(ssidOf("\\xe5\\xae\\xb6-5G"), "\xE5\xAE\xB6-5G");
    EXPECT_EQ(ssidOf("a\\x41b\\x5a"), "aAbZ");
}

TEST(WpaOutputTest, AnEscapedZeroEndsTheName) { EXPECT_EQ(ssidOf("ab\\x00cd"), "ab"); }

TEST(WpaOutputTest, BytesBehindAnEscapedZeroStayZero) {
    const WpaMsg record = parse("\nssid=ab\\x00cd\n");
    EXPECT_EQ(record.ssid[3], '\0');
    EXPECT_EQ(record.ssid[4], '\0');
}

TEST(WpaOutputTest, OtherBackslashesStay) {
    EXPECT_EQ(ssidOf("a\\\"b"), "a\\\"b");
    EXPECT_EQ(ssidOf("a\\nb"), "a\\nb");
    EXPECT_EQ(ssidOf("a\\Xe4"), "a\\Xe4");
    EXPECT_EQ(ssidOf("end\\"), "end\\");
    EXPECT_EQ(ssidOf("\\\\x41"), "\\A");
}

TEST(WpaOutputTest, DigitsThatAreNoneCountAsAllBits) {
    EXPECT_EQ(ssidOf("\\x4gh"), "\xFFh");
    EXPECT_EQ(ssidOf("\\xg4h"), "\xF4h");
}

TEST(WpaOutputTest, AnEscapeCutShortAtTheEndIsOneByte) {
    EXPECT_EQ(ssidOf("ab\\x"), "ab\xFF");
    EXPECT_EQ(ssidOf("ab\\xe"), "ab\xFF");
}

TEST(WpaOutputTest, AnEscapedNameOf32BytesIsWhole) {
    std::string escaped, bytes;
    for (int i = 0; i < 10; ++i) {
        escaped += "\\xe4\\xb8\\xad";
        bytes += "\xE4\xB8\xAD";
    }
    EXPECT_EQ(ssidOf(escaped + "\\x41\\x42"), bytes + "AB");
}

TEST(WpaOutputTest, TextsAreCutToTheirFields) {
    EXPECT_EQ(ssidOf(std::string(63, 'n')), std::string(63, 'n'));
    EXPECT_EQ(ssidOf(std::string(64, 'n')), std::string(63, 'n'));
    EXPECT_EQ(ssidOf(std::string(65536, 'n')), std::string(63, 'n'));
    EXPECT_EQ(parse("ip_address=" + std::string(23, '1')).ip, std::string(23, '1'));
    EXPECT_EQ(parse("ip_address=" + std::string(24, '1')).ip, std::string(23, '1'));
    EXPECT_EQ(parse("ip_address=" + std::string(65536, '1')).ip, std::string(23, '1'));
    EXPECT_EQ(stateOf("COMPLETED" + std::string(65536, 'X')), 0);
}

TEST(WpaOutputTest, FieldsThatOverflowLeaveTheirNeighboursAlone) {
    const std::string longText(300, '7');
    const WpaMsg record = parse("wpa_state=SCANNING\nssid=" + longText + "\nip_address=" + longText +
                                "\nRSSI=-60\nLINKSPEED=54\nNOISE=-90\nFREQUENCY=5180\n");
    EXPECT_EQ(record.state, 2);
    EXPECT_EQ(record.reserved, 0);
    EXPECT_EQ(record.rssi, -60);
    EXPECT_EQ(record.linkSpeed, 54);
    EXPECT_EQ(record.noise, -90);
    EXPECT_EQ(record.freq, 5180);
}

TEST(WpaOutputTest, TheIdIsReadFromInsideTheBssid) {
    EXPECT_EQ(parse("bssid=12:34:56:78:9a:bc\nssid=home\nid=7\n").id, 12);
    EXPECT_EQ(parse("bssid=ac:34:56:78:9a:bc\nssid=home\nid=7\n").id, 0);
    EXPECT_EQ(parse("bssid=9e:34:56:78:9a:bc\nid=7\n").id, 9);
}

TEST(WpaOutputTest, TheIdLineIsReadWhenNothingBeforeItHasTheKey) { EXPECT_EQ(parse("wpa_state=X\nid=7\n").id, 7); }

TEST(WpaOutputTest, NumbersThatDoNotReadAreZero) {
    const WpaMsg record = parse("RSSI=weak\nNOISE=--3\nLINKSPEED=\nFREQUENCY=+");
    EXPECT_EQ(record.rssi, 0);
    EXPECT_EQ(record.noise, 0);
    EXPECT_EQ(record.linkSpeed, 0);
    EXPECT_EQ(record.freq, 0);
}

TEST(WpaOutputTest, NumbersEndAtWhatIsNoDigit) {
    EXPECT_EQ(parse("RSSI=-57dBm\n").rssi, -57);
    EXPECT_EQ(parse("LINKSPEED= +54.5\n").linkSpeed, 54);
    EXPECT_EQ(parse("FREQUENCY=0x10\n").freq, 0);
}

TEST(WpaOutputTest, NumbersOutOfRangeAreBroughtIntoIt) {
    EXPECT_EQ(parse("RSSI=2147483648").rssi, 2147483647);
    EXPECT_EQ(parse("RSSI=-99999999999999999999").rssi, -2147483647 - 1);
}

}  // namespace
