// One language, and the file that holds it.
#pragma once
#include <map>
#include <set>
#include <string>

namespace ostrel {

constexpr char kEnglishFileName[] = "en.lang";

struct LangRecord {
    std::string fileName;                // without folder; selects the language
    std::string langName;                // the name to show
    std::string iconPath;                // "skin/..." or empty
    std::map<int, std::string> strings;  // the text of each number
    std::set<int> standIns;              // numbers whose text is the English one because no file gave another
};

// Reads one file into the record; every number then has a text. False when the file cannot be used, after log lines
// that say why. A failure empties the texts, and leaves fileName, langName and iconPath as far as they were read. A
// file without icon keeps the icon that the record has.
bool readLangFile(const char* path, LangRecord& record);

// Writes the English texts as a language file. False when not all of it could be written.
bool writeEnglishFile(const char* path);

// The English language as it is compiled in. None of its texts is a stand-in: on the next start they are read from the
// file that was written, and both starts have to give the same languages.
LangRecord englishRecord();

// Adds the texts of a second file of the same langName. A text that was given first stays; one that only stood in makes
// way. The shorter file name selects the language from then on.
void mergeLangRecord(LangRecord& record, const LangRecord& file);

}  // namespace ostrel
