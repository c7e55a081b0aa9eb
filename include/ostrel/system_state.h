/// @file  system_state.h: JSON members in the language of the user.
/// Threads: UI thread only.
#pragma once
#include <cjson/cJSON.h>

#include "ostrel/export.h"

OSTREL_API char* getLocalKey(const char* key);
