#include "platform/json.h"

#include "ostrel/file_utils.h"
#include "platform/ascii.h"
#include "platform/c_string.h"

namespace ostrel {

void formatLocalKey(char (&out)[kLocalKeySize], const char* key, const char* language) {
    std::snprintf(out, sizeof out, "%s.%s", ostrel::orEmpty(key), ostrel::orEmpty(language));
}

cJSON* jsonPlain(const cJSON* object, const char* key) {
    if (object == nullptr || key == nullptr) return nullptr;
    for (cJSON* member = object->child; member != nullptr; member = member->next) {
        if (member->string != nullptr && equalIgnoringCase(member->string, key)) return member;
    }
    return nullptr;
}

cJSON* jsonGet(const cJSON* object, const char* key, const char* language) {
    if (object == nullptr || key == nullptr) return nullptr;
    char localKey[kLocalKeySize];
    formatLocalKey(localKey, key, language);
    cJSON* local = jsonPlain(object, localKey);
    return local != nullptr ? local : jsonPlain(object, key);
}

std::optional<int> jsonNumber(const cJSON* item) {
    if (cJSON_IsNumber(item) == 0) return std::nullopt;
    return item->valueint;
}

JsonPtr readJson(const char* name, std::FILE* file) {
    char* loaded = nullptr;
    const int result = loadContent(name, file, &loaded);
    const MallocText content{loaded};
    return JsonPtr{result == 0 ? cJSON_Parse(content.get()) : nullptr};
}

}  // namespace ostrel
