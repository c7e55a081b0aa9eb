// What wpa_cli prints, from arbitrary bytes.
#include <algorithm>
#include <cstring>

#include "device/wpa_output.h"
#include "fuzz_folder.h"

namespace {

using ostrelfuzz::require;

template <std::size_t Size>
void requireTextThenZeros(const char (&field)[Size]) {
    const char* end = std::find(field, field + Size, '\0');
    require(end != field + Size);
    require(std::all_of(end, field + Size, [](char c) { return c == '\0'; }));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const WpaMsg record = ostrel::parseWpaOutput(text.c_str());
    requireTextThenZeros(record.ssid);
    requireTextThenZeros(record.ip);
    require(record.reserved == 0);
    require(record.state == WIFI_STATE_DISABLED || std::strstr(text.c_str(), "wpa_state=") != nullptr);
    require(rssi2Level(record.rssi) >= 0 && rssi2Level(record.rssi) <= 3);
    return 0;
}
