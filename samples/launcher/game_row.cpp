#include "game_row.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "art_loader.h"
#include "game_system.h"
#include "icons.h"
#include "ostrel/language.h"
#include "ostrel/pinyin.h"
#include "ostrel/skin.h"
#include "ostrel/system_settings.h"
#include "text_layout.h"
#include "texts.h"

namespace fs = std::filesystem;

namespace launcher {
namespace {

std::string initialsOf(const std::string& title) {
    const std::unique_ptr<char, decltype(&std::free)> initials(GetPinyinInitials2(title.c_str()), &std::free);
    return initials == nullptr ? std::string() : std::string(initials.get());
}

bool isGame(const fs::path& path) { return path.extension() == ".game"; }

// A sample game says in its first line what it is; of anything else we know kind and size.
std::string firstLine(const std::string& path, bool isFolder) {
    std::string line;
    if (!isFolder && isGame(path)) line = readTextStart(path);
    line.erase(std::min(line.find('\n'), line.size()));
    return line;
}

std::string withoutControls(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, ' ');
    return text;
}

std::string upperEnding(const std::string& path) {
    std::string ending = fs::path(path).extension().string();
    if (ending.size() < 2) return getLangStr(kTextFile);
    ending.erase(0, 1);
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](char c) { return static_cast<char>(std::toupper(static_cast<unsigned char>(c))); });
    return withoutControls(ending);
}

}  // namespace

// What the row has read from files, in the language of that moment.
struct GameRow::Reading {
    std::string language;
    std::string folderTitle;  // of a folder
    std::string kind;
    std::string firstLine;
    std::string art;   // of a game
    std::string icon;  // of a folder
};

GameRow::GameRow(const std::string& name, std::string rowPath, bool folder, Action* rowAction)
    : TextMenuItem(titleOf(name, folder).c_str(), /*icon=*/nullptr, rowAction, /*ownAction=*/false),
      path(std::move(rowPath)),
      isFolder(folder) {
    hasSubLabel = true;
}

GameRow::~GameRow() = default;

const GameRow::Reading& GameRow::reading() {
    if (mReading != nullptr && mReading->language == getSystemLanguage()) return *mReading;
    mReading = std::make_unique<Reading>();
    mReading->language = getSystemLanguage();
    mReading->kind = kindText(path, isFolder);
    mReading->firstLine = firstLine(path, isFolder);
    mReading->art = artOf(path, isFolder);
    if (isFolder) {
        const GameSystem system = readSystem(path);
        mReading->folderTitle = withoutControls(system.name);
        mReading->icon = system.icon;
        textD.clear();
    }
    return *mReading;
}

const std::string& GameRow::title() { return isFolder ? reading().folderTitle : label; }

std::string GameRow::getLabel() { return title(); }

std::string GameRow::getSubLabel() { return reading().firstLine.empty() ? reading().kind : reading().firstLine; }

const std::string& GameRow::kind() { return reading().kind; }

std::string GameRow::getTextD() {
    const std::string& named = title();
    if (textD.empty()) textD = initialsOf(named);
    return textD;
}

const std::string& GameRow::art() { return reading().art; }

OstrelSurface* GameRow::kindIcon() {
    const std::string& ownIcon = reading().icon;
    OstrelSurface* image = ownIcon.empty() ? nullptr : getIconFromCache(ownIcon.c_str());
    return image != nullptr ? image : launcher::kindIcon(path, isFolder);
}

// Games are told apart by their pictures, systems by the shapes of their icons.
OstrelSurface* GameRow::getIcon() {
    if (isFolder) return kindIcon();
    OstrelSurface* picture = artLoader().get(art(), kRowArtWidth, kRowArtHeight);
    return picture != nullptr ? picture : kindIcon();
}

bool GameRow::matches(const std::string& word) {
    if (word.empty()) return false;
    const std::string initials = getTextD();
    return PinyinStrstr(title().c_str(), initials.c_str(), word.c_str(), nullptr, nullptr) == 0 ||
           strcasestr(title().c_str(), word.c_str()) != nullptr;
}

bool isListed(const char* name) { return name[0] != '.' && std::strcmp(name, kSystemFile) != 0; }

GameRow* makeGameRow(const char* name, const char* path, int type, Action* action) {
    return isListed(name) ? new GameRow(name, path, type == DIR_ENTRY_FOLDER, action) : nullptr;
}

std::string titleOf(const std::string& name, bool isFolder) {
    return withoutControls(isFolder ? name : fs::path(name).stem().string());
}

std::string kindText(const std::string& path, bool isFolder) {
    if (isFolder) {
        return textWithNumber(kTextGameCount,
                              CountNumber(path, [](const char* name, const char*) { return isListed(name); }));
    }
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path, error);
    return error ? upperEnding(path) : upperEnding(path) + " · " + sizeText(size);
}

OstrelSurface* kindIcon(const std::string& path, bool isFolder) {
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

}  // namespace launcher
