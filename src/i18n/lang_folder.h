// The folder of language files, read into a list of languages.
#pragma once
#include <vector>

#include "i18n/lang_file.h"

namespace ostrel {

// Appends English and then every other language of ./lang, as initLang in ostrel/language.h says.
void readLangFolder(std::vector<LangRecord>& records);

}  // namespace ostrel
