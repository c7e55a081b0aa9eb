#include <cstring>

#include "ostrel/system_settings.h"
#include "ostrel/system_state.h"
#include "platform/json.h"

char* getLocalKey(const char* key) {
    static char buffer[ostrel::kLocalKeySize];
    char fresh[ostrel::kLocalKeySize] = {};  // hosts pass the result of an earlier call, which is the buffer itself
    ostrel::formatLocalKey(fresh, key, getSystemLanguage());
    std::memcpy(buffer, fresh, sizeof fresh);
    return buffer;
}

cJSON* cJSON_GetObjectItem(const cJSON* object, const char* string) {
    return ostrel::jsonGet(object, string, getSystemLanguage());
}
