// Members of JSON objects by name, and their values.
//
// Only these functions search by name inside the library. Which cJSON_GetObjectItem a call reaches (ours, libcjson's or
// the host's) depends on the order in which the host was linked, and libcjson's own searches by name call it in turn.
#pragma once
#include <cjson/cJSON.h>

#include <cstddef>
#include <cstdio>
#include <optional>

#include "platform/handles.h"

namespace ostrel {

// Room for a localised key with its terminator; a longer key is cut.
constexpr std::size_t kLocalKeySize = 64;

// Writes "key.language" into out. A null text counts as empty.
void formatLocalKey(char (&out)[kLocalKeySize], const char* key, const char* language);

// The first member of that name, ASCII letters of either case alike; null when there is none or an argument is null.
cJSON* jsonPlain(const cJSON* object, const char* key);

// The member "key.language" if there is one, whatever its type, else the member "key". Callers pass
// getSystemLanguage().
cJSON* jsonGet(const cJSON* object, const char* key, const char* language);

// The integer of a number, fractions cut off and values out of range brought to INT_MIN or INT_MAX. Nothing for a null
// item and for every other type: true is no number, though cJSON gives it the integer 1.
std::optional<int> jsonNumber(const cJSON* item);

// Parses the whole stream. @param name for the messages of loadContent. Null when it cannot be read or parsed.
JsonPtr readJson(const char* name, std::FILE* file);

}  // namespace ostrel
