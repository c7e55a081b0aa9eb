#include "ostrel/language.h"

#include "i18n/lang_folder.h"
#include "ostrel/system_settings.h"

// 2 and 3 are two texts that happen to be alike in English; a translation may tell them apart.
std::vector<std::string> gDefaultStringList = {
    "Cancel", "OK", "LOADING...", "LOADING...", "OPEN", "BACK", "NAV", "MENU",
};

namespace {

constexpr char kNoSuchText[] = "wrongbeef";

std::vector<ostrel::LangRecord> sRecords;

const ostrel::LangRecord* selectedRecord() {
    const char* language = getSystemLanguage();
    for (const ostrel::LangRecord& record : sRecords) {
        if (record.fileName == language) return &record;
    }
    return nullptr;
}

}  // namespace

void initLang() { ostrel::readLangFolder(sRecords); }

const char* getLangStr(int index) {
    if (index < 0) return "";
    if (index >= getLangIndexNum()) return kNoSuchText;
    const ostrel::LangRecord* record = selectedRecord();
    if (record == nullptr) return getDefLang(index);
    const auto found = record->strings.find(index);
    return found == record->strings.end() ? getDefLang(index) : found->second.c_str();
}

const char* getDefLang(int index) {
    if (index < 0 || index >= getLangIndexNum()) return nullptr;
    return gDefaultStringList[static_cast<std::size_t>(index)].c_str();
}

int getLangIndexNum() { return static_cast<int>(gDefaultStringList.size()); }

int getLangIndex(const char* fileName, const char* text) {
    if (fileName == nullptr || text == nullptr) return -1;
    for (const ostrel::LangRecord& record : sRecords) {
        if (record.fileName != fileName) continue;
        for (const auto& [index, translated] : record.strings) {
            if (translated == text) return index;
        }
    }
    return -1;
}

std::vector<LangInfo>& getLangList() {
    static std::vector<LangInfo> list;
    list.clear();
    for (const ostrel::LangRecord& record : sRecords) {
        list.push_back({record.fileName, record.langName, record.iconPath});
    }
    return list;
}
