/// @file  language.h: the numbered interface texts in the language of the user.
/// Threads: UI thread only.
#pragma once
#include <string>
#include <vector>

#include "ostrel/export.h"

/// One entry of getLangList.
struct LangInfo {
    std::string fileName;  ///< the language file without directory, "en.lang"
    std::string langName;  ///< the name to show, "English"
    std::string iconPath;  ///< "skin/..." or empty
};

extern OSTREL_API std::vector<std::string> gDefaultStringList;

OSTREL_API void initLang();
OSTREL_API const char* getLangStr(int index);
OSTREL_API const char* getDefLang(int index);
OSTREL_API int getLangIndexNum();
OSTREL_API int getLangIndex(const char* fileName, const char* text);
OSTREL_API std::vector<LangInfo>& getLangList();
