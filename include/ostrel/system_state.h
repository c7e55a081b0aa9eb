/// @file  system_state.h: JSON members in the language of the user.
/// Any member of a JSON file that the library reads (settings, features, languages) may be given once more for one
/// language, under its name, a dot and the language file: with "en.lang" selected, "storeurl.en.lang" wins over
/// "storeurl".
/// Threads: UI thread only.
#pragma once
#include <cjson/cJSON.h>

#include "ostrel/export.h"

/// @return @p key, a dot and getSystemLanguage(), cut to 63 bytes. The text stands in one static buffer that the next
///         call overwrites; @p key may be that buffer. A null key counts as empty.
OSTREL_API char* getLocalKey(const char* key);

extern "C" {
/// Looks up the member @p string of @p object for the language of the user: the member getLocalKey(string) if there is
/// one, whatever its type, else the member of that very name. ASCII letters of either case are alike, and the first of
/// several members counts. The static buffer of getLocalKey is not touched, so its text may be passed.
/// A program that links the library before libcjson gets this look-up in place of libcjson's, in its own calls and in
/// those of libcjson (cJSON_HasObjectItem, cJSON_DetachItemFromObject and cJSON_DeleteItemFromObject).
/// @return the member, which @p object keeps; null when there is none or an argument is null.
// NOLINTNEXTLINE(readability-redundant-declaration): cJSON.h declares it without the mark that exports it.
OSTREL_API cJSON* cJSON_GetObjectItem(const cJSON* object, const char* string);
}
