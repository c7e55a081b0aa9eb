/// @file  texts.h: the launcher's own interface texts, numbered behind those of the library.
#pragma once
#include <string>

namespace launcher {

/// Numbers for getLangStr. The first eight belong to the library, which names 4 and 5 for its hint row.
enum Text {
    kTextOpen = 4,
    kTextBack = 5,
    kTextGames = 8,
    kTextQuit,
    kTextDetails,
    kTextSearch,
    kTextNumbers,
    kTextIcons,
    kTextFolder,
    kTextFile,
    kTextEmpty,
    kTextNoPreview,
    kTextFound,
    kTextAbout,
};

/// Adds the English texts to the library's list. Call it once, before initLang.
void addTexts();

/// "%d" in the text of @p index replaced by @p number. Language files are written by anybody, so their texts are never
/// used as a printf format.
std::string textWithNumber(Text index, int number);

}  // namespace launcher
