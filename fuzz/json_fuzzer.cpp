// The features file, the settings file, and the look-up of members in any JSON document, from arbitrary bytes.
#include <cjson/cJSON.h>

#include "fuzz_folder.h"
#include "ostrel/device_root.h"
#include "ostrel/system_settings.h"
#include "ostrel/system_state.h"
#include "support/fake_host.h"

// "suspend": 0 runs a command; starting a shell for every other input would leave no time for the parser.
extern "C" int system(const char* /*command*/) { return 0; }

namespace {

using ostrelfuzz::require;

const ostrelfuzz::FuzzFolder& console() {
    static const ostrelfuzz::FuzzFolder instance;
    return instance;
}

void loadFeatures(const uint8_t* data, std::size_t size) {
    console().write("mnt/SDCARD/features.json", data, size);
    loadSystemFunction();
    require(getBluetoothFlag(gShmInfo) == 0 || isBluetoothEanbled() != 0);
}

bool within(int value, int lowest, int highest) { return value >= lowest && value <= highest; }

void loadSettings(const uint8_t* data, std::size_t size) {
    ostreltest::host().reset();  // it records every value that it is given
    console().write("mnt/UDISK/system.json", data, size);
    char* theme = nullptr;
    loadSystemState(gShmInfo, &theme);
    std::free(theme);
    require(within(GetKeyShm(gShmInfo, SHM_VOL), 0, 20) && within(GetKeyShm(gShmInfo, SHM_RUMBLELEVEL), 0, 5));
    require(within(gUseJoystick, 0, 3) && within(getColorBrightness(), 1, 10));
    const int result = saveOneItemInSystemState("fuzzed member", 5);
    require(result == 0 || result == -1);
}

bool isMember(const cJSON* item, const cJSON* object) {
    for (const cJSON* member = object->child; member != nullptr; member = member->next) {
        if (member == item) return true;
    }
    return false;
}

void lookUp(const std::string& text) {
    cJSON* root = cJSON_Parse(text.c_str());
    if (root == nullptr) return;
    for (const cJSON* member = root->child; member != nullptr; member = member->next) {
        if (member->string == nullptr) continue;
        require(isMember(cJSON_GetObjectItem(root, member->string), root));
        require(std::string(getLocalKey(member->string)).size() < 64);
    }
    for (const char* key : {"vol", "bluetooth", "", "no such member"}) {
        const cJSON* found = cJSON_GetObjectItem(root, key);
        require(found == nullptr || isMember(found, root));
    }
    cJSON_Delete(root);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    loadFeatures(data, size);
    loadSettings(data, size);
    const std::string text(reinterpret_cast<const char*>(data), size);
    setSystemLanguage("ch.lang");
    lookUp(text);
    setSystemLanguage(text.c_str());
    lookUp(text);
    setTimeZone(text.c_str());
    return 0;
}

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    ostrelfuzz::discardLog();
    std::filesystem::create_directories(console().path() + "/mnt/SDCARD");
    std::filesystem::create_directories(console().path() + "/mnt/UDISK");
    setDeviceRoot(console().path().c_str());
    return 0;
}
