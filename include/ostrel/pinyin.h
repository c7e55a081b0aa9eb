/// @file  pinyin.h: pinyin initials of titles, and the search by them.
/// A player finds 中国 by typing zg: GetPinyinInitials2 makes "zg" of the title once, PinyinStrstr looks for what was
/// typed and tells which bytes of the title to highlight. Threads: any for reading, once InitPinYinMap has returned.
/// Text: UTF-8; any bytes are taken (see utf8_string.h).
#pragma once
#include <cstdint>
#include <map>

#include "ostrel/export.h"

/// The reading of each known Chinese character: code point to syllable, lower-case letters and a tone digit ("zhong1",
/// "lv4", 5 for the neutral tone). Empty until InitPinYinMap has filled it. The texts belong to the library.
extern OSTREL_API std::map<uint32_t, const char*> gPinyinMap;

/// Fills gPinyinMap with the library's 25360 readings, dropping what it held. Call it once, before the first
/// GetPinyinInitials2.
OSTREL_API void InitPinYinMap();

/// Makes the initials of @p text: one byte a character. ASCII stays as it is, a character in gPinyinMap gives the first
/// letter of its syllable, any other (kana, hangul, symbols) a space.
/// @return a buffer as long as @p text in bytes, zero-filled behind the initials, which the caller releases with free;
///         null for a null text or when memory is short.
OSTREL_API char* GetPinyinInitials2(const char* text);

/// Searches @p key in the initials of a text without regard to case.
/// @param text the text. @param initials what GetPinyinInitials2 made of it. @param key what was typed; "" is found at
///        the first character, with no bytes.
/// @param matchStart receives where in @p text the first matched character begins. @param matchBytes receives how many
///        bytes the matched characters take. Both stay as they are when nothing is found; either may be null.
/// @return 0, or -1 when the key is not found, a text is null, or it is found past the last character of @p text
///         (in initials that are not those of @p text).
OSTREL_API int PinyinStrstr(const char* text, const char* initials, const char* key, const char** matchStart,
                            int* matchBytes);
