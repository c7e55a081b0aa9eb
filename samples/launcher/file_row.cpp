#include "file_row.h"

#include <strings.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "details_window.h"
#include "icons.h"
#include "list_window.h"
#include "ostrel/host.h"
#include "ostrel/language.h"
#include "ostrel/pinyin.h"
#include "ostrel/skin.h"
#include "preview.h"
#include "texts.h"

namespace fs = std::filesystem;

namespace launcher {
namespace {

// Runs when the row is chosen. A new window waits in the library's queue and is on top from the next frame on.
class OpenRow : public Action {
public:
    int dowork(void* item) override {
        const auto* row = static_cast<const FileRow*>(item);
        if (!row->isFolder) return xdowork(item);
        add2PopupList(new ListWindow(row->path, row->label));
        return 0;
    }
    int xdowork(void* item) override {
        const auto* row = static_cast<const FileRow*>(item);
        add2PopupList(new DetailsWindow(row->path, row->label, row->isFolder));
        return 0;
    }
};

// It keeps nothing, so all rows share one.
OpenRow sOpenRow;

std::string initialsOf(const std::string& title) {
    const std::unique_ptr<char, decltype(&std::free)> initials(GetPinyinInitials2(title.c_str()), &std::free);
    return initials == nullptr ? std::string() : std::string(initials.get());
}

bool isGame(const fs::path& path) { return path.extension() == ".game"; }

// A sample game says in its first line what it is; of anything else we know kind and size.
std::string secondLine(const std::string& path, bool isFolder) {
    std::string line;
    if (!isFolder && isGame(path)) line = readTextStart(path);
    line.erase(std::min(line.find('\n'), line.size()));
    return line.empty() ? kindText(path, isFolder) : line;
}

std::string titleOf(const std::string& name, bool isFolder) { return isFolder ? name : fs::path(name).stem().string(); }

int entryCount(const std::string& folder) {
    int count = 0;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        if (file_filter(it->path().filename().c_str(), it->path().c_str())) ++count;
    }
    return count;
}

std::string upperEnding(const std::string& path) {
    std::string ending = fs::path(path).extension().string();
    if (ending.size() < 2) return getLangStr(kTextFile);
    ending.erase(0, 1);
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](char c) { return static_cast<char>(std::toupper(static_cast<unsigned char>(c))); });
    return ending;
}

}  // namespace

FileRow::FileRow(const std::string& name, std::string rowPath, bool folder)
    : TextMenuItem(titleOf(name, folder).c_str(), rowIcon(name, folder), &sOpenRow, /*ownAction=*/false),
      path(std::move(rowPath)),
      isFolder(folder) {
    hasSubLabel = true;
    subLabel = secondLine(path, folder);
    textD = initialsOf(label);
}

bool FileRow::matches(const std::string& word) const {
    if (word.empty()) return false;
    const char* start = nullptr;
    int bytes = 0;
    return PinyinStrstr(label.c_str(), textD.c_str(), word.c_str(), &start, &bytes) == 0 ||
           strcasestr(label.c_str(), word.c_str()) != nullptr;
}

FileRow* makeFileRow(const char* name, const char* path, bool isFolder) { return new FileRow(name, path, isFolder); }

std::vector<TextMenuItem*> readDirectory(const std::string& path) {
    std::vector<TextMenuItem*> rows;
    std::error_code error;
    for (fs::directory_iterator it(path, error), end; !error && it != end; it.increment(error)) {
        const std::string name = it->path().filename().string();
        if (!file_filter(name.c_str(), it->path().c_str())) continue;
        std::error_code ignored;
        const int type = it->is_directory(ignored) ? kDirectoryEntry : kFileEntry;
        TextMenuItem* row = file_handler(name.c_str(), it->path().c_str(), type);
        if (row != nullptr) rows.push_back(row);
    }
    return rows;
}

int compareRows(void* left, void* right) {
    const auto* a = static_cast<const FileRow*>(left);
    const auto* b = static_cast<const FileRow*>(right);
    if (a->isFolder != b->isFolder) return a->isFolder ? -1 : 1;
    const int order = strcasecmp(a->label.c_str(), b->label.c_str());
    return order != 0 ? order : a->path.compare(b->path);
}

OstrelSurface* rowIcon(const std::string& path, bool isFolder) {
    if (isFolder) return gIconFolder;
    return isGame(path) ? icons().game.get() : icons().file.get();
}

std::string sizeText(std::uintmax_t bytes) {
    constexpr const char* kUnits[] = {"B", "KB", "MB", "GB"};
    auto size = static_cast<double>(bytes);
    std::size_t unit = 0;
    while (size >= 1024 && unit + 1 < std::size(kUnits)) {
        size /= 1024;
        ++unit;
    }
    char text[32];
    std::snprintf(text, sizeof(text), unit > 0 && size < 10 ? "%.1f %s" : "%.0f %s", size, kUnits[unit]);
    return text;
}

std::string kindText(const std::string& path, bool isFolder) {
    if (isFolder) return std::string(getLangStr(kTextFolder)) + " · " + std::to_string(entryCount(path));
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path, error);
    return error ? upperEnding(path) : upperEnding(path) + " · " + sizeText(size);
}

}  // namespace launcher
