/// @file  pinyin.h: pinyin initials of titles, and the search by them.
/// Threads: any for reading, once InitPinYinMap has returned.
#pragma once
#include <cstdint>
#include <map>

#include "ostrel/export.h"

extern OSTREL_API std::map<uint32_t, const char*> gPinyinMap;

OSTREL_API void InitPinYinMap();
OSTREL_API char* GetPinyinInitials2(const char* text);
OSTREL_API int PinyinStrstr(const char* text, const char* initials, const char* key, const char** matchStart,
                            int* matchBytes);
