// The features file, and the look-up of members in any JSON document, from arbitrary bytes.
#include <cjson/cJSON.h>

#include "fuzz_folder.h"
#include "ostrel/device_root.h"
#include "ostrel/system_settings.h"
#include "ostrel/system_state.h"

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
    setDeviceRoot(console().path().c_str());
    return 0;
}
