#include "device/wpa_output.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>

#include "ostrel/file_utils.h"

namespace ostrel {
namespace {

constexpr char kBlanks[] = " \t\n\v\f\r";

struct StateName {
    std::string_view text;
    WifiState state;
};

constexpr StateName kStateNames[] = {
    {"COMPLETED", WIFI_STATE_COMPLETED},           {"INACTIVE", WIFI_STATE_INACTIVE}, {"SCANNING", WIFI_STATE_SCANNING},
    {"4WAY_HANDSHAKE", WIFI_STATE_4WAY_HANDSHAKE}, {"DISABLED", WIFI_STATE_DISABLED},
};

struct NumberKey {
    const char* key;
    int32_t WpaMsg::*field;
};

constexpr NumberKey kNumberKeys[] = {
    {"id=", &WpaMsg::id},  // the first in the text is the end of "bssid=" as a rule (TheIdIsReadFromInsideTheBssid)
    {"RSSI=", &WpaMsg::rssi},      {"NOISE=", &WpaMsg::noise}, {"LINKSPEED=", &WpaMsg::linkSpeed},
    {"FREQUENCY=", &WpaMsg::freq},
};

const char* findValue(const char* text, const char* key) {
    const char* found = std::strstr(text, key);
    return found == nullptr ? "" : found + std::strlen(key);
}

std::string_view findWord(const char* text, const char* key) {
    const char* value = findValue(text, key);
    const char* word = value + std::strspn(value, kBlanks);
    return {word, std::strcspn(word, kBlanks)};
}

int32_t findNumber(const char* text, const char* key) {
    constexpr long kLowest = std::numeric_limits<int32_t>::min();
    constexpr long kHighest = std::numeric_limits<int32_t>::max();
    return static_cast<int32_t>(std::clamp(std::strtol(findValue(text, key), nullptr, 10), kLowest, kHighest));
}

WifiState stateNamed(std::string_view text) {
    for (const StateName& name : kStateNames) {
        if (name.text == text) return name.state;
    }
    return WIFI_STATE_DISABLED;
}

// The supplicant writes bytes outside ASCII as \xNN. A digit that is missing or none counts as CharToHex has it.
std::string decodeEscapes(std::string_view name) {
    const auto digit = [&](std::size_t at) {
        return CharToHex(at < name.size() ? static_cast<unsigned char>(name[at]) : '\0');
    };
    std::string bytes;
    for (std::size_t i = 0; i < name.size();) {
        if (name.substr(i, 2) != "\\x") {
            bytes += name[i++];
            continue;
        }
        bytes += static_cast<char>(digit(i + 2) << 4U | digit(i + 3));
        i += 4;
    }
    return bytes;
}

// Copies up to the first zero byte, cut to leave room for the terminator; `out` holds zeros before.
template <std::size_t Size>
void copyCut(char (&out)[Size], std::string_view text) {
    text.substr(0, std::min(text.find('\0'), Size - 1)).copy(out, Size - 1);
}

}  // namespace

WpaMsg parseWpaOutput(const char* text) {
    WpaMsg record{};
    record.state = stateNamed(findWord(text, "wpa_state="));
    copyCut(record.ip, findWord(text, "ip_address="));
    // The line feed keeps "bssid=" out. Decoded before it is cut: a name of 32 Chinese bytes is 128 characters long.
    copyCut(record.ssid, decodeEscapes(findWord(text, "\nssid=")));
    for (const NumberKey& number : kNumberKeys) record.*number.field = findNumber(text, number.key);
    return record;
}

}  // namespace ostrel
