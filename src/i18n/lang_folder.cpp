#include "i18n/lang_folder.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "i18n/lang_file.h"
#include "ostrel/language.h"
#include "platform/handles.h"

namespace ostrel {
namespace {

constexpr char kFolder[] = "./lang";
constexpr char kEnglishPath[] = "./lang/en.lang";
constexpr char kShortForm[] = ".short";  // short forms of the texts, which other programs of the console use

bool exists(const char* path) { return access(path, F_OK) == 0; }

LangRecord readEnglish() {
    if (!exists(kEnglishPath) && writeEnglishFile(kEnglishPath)) return englishRecord();
    LangRecord record;
    const bool read = readLangFile(kEnglishPath, record);
    const bool complete = static_cast<int>(record.strings.size()) >= getLangIndexNum();
    return read && complete ? record : englishRecord();
}

bool isRegularFile(const dirent& entry, const std::string& path) {
    if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_REG;
    struct stat status {};  // some file systems do not tell types while listing
    return lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool isLangFile(const dirent& entry, const std::string& path) {
    const bool other = std::strcmp(entry.d_name, kEnglishFileName) != 0;
    return other && std::strstr(entry.d_name, kShortForm) == nullptr && isRegularFile(entry, path);
}

void keep(const LangRecord& file, std::vector<LangRecord>& records) {
    const auto same = std::find_if(records.begin(), records.end(),
                                   [&](const LangRecord& record) { return record.langName == file.langName; });
    if (same == records.end()) {
        records.push_back(file);
    } else {
        mergeLangRecord(*same, file);
    }
}

void readOthers(std::vector<LangRecord>& records) {
    const DirPtr folder{opendir(kFolder)};
    if (!folder) return;
    // One record for all files: a file without icon takes over that of the file read before.
    // (AFileWithoutIconInheritsThatOfTheFileReadBefore)
    LangRecord file;
    while (const dirent* entry = readdir(folder.get())) {
        const std::string path = std::string(kFolder) + "/" + entry->d_name;
        if (isLangFile(*entry, path) && readLangFile(path.c_str(), file)) keep(file, records);
    }
}

}  // namespace

void readLangFolder(std::vector<LangRecord>& records) {
    if (!exists(kFolder)) mkdir(kFolder, 0777);
    records.push_back(readEnglish());
    readOthers(records);
}

}  // namespace ostrel
