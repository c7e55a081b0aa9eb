// The smallest host: it supplies what a host must, and reads one member with and without the library's own look-up.
#include <ostrel/ostrel.h>

#include <string>

ShmInfo* gShmInfo = nullptr;
const char* gThemePath = nullptr;
int GetKeyShm(ShmInfo*, int) { return 0; }
void SetKeyShm(ShmInfo*, int, int) {}
bool file_filter(const char*, const char*) { return true; }
TextMenuItem* file_handler(const char*, const char*, int) { return nullptr; }
void initJoyStick() {}

// The library reads the localised member whatever the link order. A host that links cJSON after the library does too;
// one that puts cJSON first has the plain look-up.
int main(int, char** argv) {
    setDeviceRoot(argv[1]);
    setSystemLanguage("ch.lang");
    loadSystemFunction();
    cJSON* object = cJSON_Parse(R"({"key": 1, "key.ch.lang": 2})");
    const int value = cJSON_GetObjectItem(object, "key")->valueint;
    cJSON_Delete(object);
    return isBluetoothEanbled() == 1 && value == (std::string(argv[2]) == "after" ? 2 : 1) ? 0 : 1;
}
