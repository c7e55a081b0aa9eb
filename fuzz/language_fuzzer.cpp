// Two language files from arbitrary bytes, and the merge of both. The first byte 0xFF, which no UTF-8 text contains,
// parts the files.
#include <algorithm>

#include "fuzz_folder.h"
#include "i18n/lang_file.h"
#include "ostrel/language.h"

namespace {

using ostrel::LangRecord;
using ostrelfuzz::require;

constexpr uint8_t kSeparator = 0xFF;

const ostrelfuzz::FuzzFolder& folder() {
    static const ostrelfuzz::FuzzFolder instance;
    return instance;
}

bool read(const std::string& name, const uint8_t* data, std::size_t size, LangRecord& record) {
    folder().write(name, data, size);
    const bool ok = ostrel::readLangFile((folder().path() + "/" + name).c_str(), record);
    require(record.strings.size() == (ok ? static_cast<std::size_t>(getLangIndexNum()) : 0));
    require(!ok || record.fileName == name);
    for (const int index : record.standIns) require(record.strings.at(index) == getDefLang(index));
    return ok;
}

// What the merge has to give: the first text that a file really gave, else the English one.
std::string expectedText(const LangRecord& first, const LangRecord& second, int index) {
    return (first.standIns.count(index) == 0 ? first : second).strings.at(index);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    const auto firstSize = static_cast<std::size_t>(std::find(data, data + size, kSeparator) - data);
    const std::size_t skipped = std::min(firstSize + 1, size);
    LangRecord first;
    LangRecord second;
    const bool firstOk = read("longer.lang", data, firstSize, first);
    const bool secondOk = read("short.lang", data + skipped, size - skipped, second);
    if (!firstOk || !secondOk) return 0;
    LangRecord merged = first;
    ostrel::mergeLangRecord(merged, second);
    require(merged.fileName == "short.lang" && merged.iconPath == first.iconPath);
    for (int index = 0; index < getLangIndexNum(); ++index) {
        require(merged.strings.at(index) == expectedText(first, second, index));
    }
    return 0;
}

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    ostrelfuzz::discardLog();
    return 0;
}
