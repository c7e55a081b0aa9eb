/// @file  language.h: the numbered interface texts in the language of the user.
/// Every fixed text has a number; gDefaultStringList holds the English ones. Translations come from the folder "lang"
/// in the working directory, one UTF-8 JSON object a file:
///     {"lang": "Deutsch", "icon": "de.png", "0": "Abbrechen", "1": "OK"}
/// "lang", the name to show, is required; "icon" names a picture in the theme's folder "skin"; "0", "1", ... are the
/// texts, and English stands in for those that are missing or no strings. Other members are ignored. As in every JSON
/// file, the member "lang.en.lang" wins over "lang" while "en.lang" is selected.
/// setSystemLanguage selects the language by its file name.
/// Threads: UI thread only.  Errors: none; a file that cannot be used is left out, with log lines that say why.
#pragma once
#include <string>
#include <vector>

#include "ostrel/export.h"

/// One entry of getLangList.
struct LangInfo {
    std::string fileName;  ///< the language file without folder, "en.lang": what setSystemLanguage takes
    std::string langName;  ///< the name to show, "English"
    std::string iconPath;  ///< "skin/" and the icon's file name; empty when no file gave one
};

/// The English text of each number, 8 texts at load: "Cancel", "OK", "LOADING...", "LOADING...", "OPEN", "BACK", "NAV"
/// and "MENU". A program adds its own at the end, before initLang; the first 8 keep their meaning, because the library
/// shows them itself.
extern OSTREL_API std::vector<std::string> gDefaultStringList;

/// Reads all languages. English comes first: from ./lang/en.lang, which is written from gDefaultStringList when it is
/// missing (and its folder made), or from gDefaultStringList itself when the file is of no use. Then follow the other
/// regular files of the folder in directory order, without those that have ".short" in their name.
/// A file without "icon" takes over the icon of the file that was read before it, en.lang not counted. Two files of the
/// same "lang" make one language: where both give a text, that of the file read first counts, and the shorter of the
/// two file names selects it.
/// Called once at start-up. A second call adds English again and merges every other file into the language there is.
OSTREL_API void initLang();

/// @return the text number @p index in the selected language; in English when that language has none or was not found;
///         "" for a negative index; "wrongbeef", which shows the mistake on the screen, from getLangIndexNum() on.
///         Never null, and valid until initLang or a change of gDefaultStringList.
OSTREL_API const char* getLangStr(int index);

/// @return the English text number @p index, valid until gDefaultStringList changes; null outside the list.
OSTREL_API const char* getDefLang(int index);

/// @return the number of texts: the present size of gDefaultStringList.
OSTREL_API int getLangIndexNum();

/// @return the lowest number that has exactly @p text in the language of the file @p fileName; -1 when there is none,
///         such a language was not read, or an argument is null.
OSTREL_API int getLangIndex(const char* fileName, const char* text);

/// @return one entry for each language, in the order in which they were read. The list is the library's own: each call
///         clears and fills it again.
OSTREL_API std::vector<LangInfo>& getLangList();
