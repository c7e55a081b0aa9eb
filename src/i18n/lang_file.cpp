#include "i18n/lang_file.h"

#include <cstdio>
#include <cstring>

#include "ostrel/file_utils.h"
#include "ostrel/language.h"
#include "ostrel/log.h"
#include "ostrel/system_settings.h"
#include "platform/json.h"

namespace ostrel {
namespace {

constexpr char kEnglishName[] = "English";
constexpr char kIconFolder[] = "skin/";

struct IndexKey {
    char text[16];
    explicit IndexKey(int index) { std::snprintf(text, sizeof text, "%d", index); }
};

const char* stringMember(const cJSON* root, const char* key) {
    return cJSON_GetStringValue(jsonGet(root, key, getSystemLanguage()));
}

void readStrings(const cJSON* root, LangRecord& record) {
    for (int index = 0; index < getLangIndexNum(); ++index) {
        const char* given = stringMember(root, IndexKey(index).text);
        if (given == nullptr) record.standIns.insert(index);
        record.strings[index] = given == nullptr ? getDefLang(index) : given;
    }
}

bool readOpenFile(const char* path, std::FILE* file, LangRecord& record) {
    char* loaded = nullptr;
    const int result = loadContent(path, file, &loaded);
    const MallocText content{loaded};
    if (result != 0) {
        tprintf("read %s content fail\n", path);
        return false;
    }
    const char* slash = std::strrchr(path, '/');
    if (slash == nullptr) return false;
    record.fileName = slash + 1;
    const JsonPtr root{cJSON_Parse(content.get())};
    if (!root) {
        tprintf("parse %s content fail:%s\n", path, cJSON_GetErrorPtr());
        return false;
    }
    const char* name = stringMember(root.get(), "lang");
    if (name == nullptr) {
        tprintf("%s have no lang string\n", path);
        return false;
    }
    record.langName = name;
    const char* icon = stringMember(root.get(), "icon");
    if (icon != nullptr) record.iconPath = std::string(kIconFolder) + icon;
    readStrings(root.get(), record);
    return true;
}

}  // namespace

bool readLangFile(const char* path, LangRecord& record) {
    record.strings.clear();
    record.standIns.clear();
    const FilePtr file{std::fopen(path, "r")};
    if (file) tprintf("lang file %s\n", path);
    const bool ok = file && readOpenFile(path, file.get(), record);
    tprintf("read lang file %s ok=%d\n", path, ok ? 1 : 0);
    return ok;
}

bool writeEnglishFile(const char* path) {
    const JsonPtr root{cJSON_CreateObject()};
    cJSON_AddStringToObject(root.get(), "lang", kEnglishName);
    for (int index = 0; index < getLangIndexNum(); ++index) {
        cJSON_AddStringToObject(root.get(), IndexKey(index).text, getDefLang(index));
    }
    const JsonText text{cJSON_Print(root.get())};
    if (!text) return false;
    const FilePtr file{std::fopen(path, "w+")};
    if (!file) return false;
    const std::size_t length = std::strlen(text.get());
    return std::fwrite(text.get(), 1, length, file.get()) == length && std::fflush(file.get()) == 0;
}

LangRecord englishRecord() {
    LangRecord record;
    record.fileName = kEnglishFileName;
    record.langName = kEnglishName;
    for (int index = 0; index < getLangIndexNum(); ++index) record.strings[index] = getDefLang(index);
    return record;
}

void mergeLangRecord(LangRecord& record, const LangRecord& file) {
    for (const auto& [index, text] : file.strings) {
        const bool given = file.standIns.count(index) == 0;
        if (record.strings.count(index) == 0) {
            record.strings[index] = text;
            if (!given) record.standIns.insert(index);
        } else if (given && record.standIns.erase(index) != 0) {
            record.strings[index] = text;
        }
    }
    // The length decides, not the order of reading, which is that of the directory.
    if (file.fileName.size() < record.fileName.size()) record.fileName = file.fileName;
}

}  // namespace ostrel
