#include "window_state.h"

#include <filesystem>

#include "json_file.h"
#include "ostrel/list_menu.h"
#include "session.h"
#include "windows/about_window.h"
#include "windows/game_page_window.h"
#include "windows/games_window.h"
#include "windows/home_window.h"
#include "windows/recent_window.h"
#include "windows/search_window.h"
#include "windows/settings_window.h"

namespace fs = std::filesystem;

namespace launcher {
namespace {

constexpr std::size_t kMostStateBytes = std::size_t{1024} * 1024;  // of the saved stack

int numberMember(const cJSON* state, const char* name, int otherwise) {
    const cJSON* item = memberIn(state, name);
    return cJSON_IsNumber(item) != 0 ? item->valueint : otherwise;
}

template <typename Window>
OstrelWindow* restored(Window* window, const cJSON* state) {
    window->restore(state);
    return window;
}

OstrelWindow* restoreGames(const cJSON* state, const Options& options) {
    std::error_code ignored;
    const std::string folder = textIn(state, "folder");
    // Only a folder below the games directory of today: the card may be another one.
    const bool inside = folder.rfind(options.gamesDir + "/", 0) == 0 && fs::is_directory(folder, ignored);
    return restored(new GamesWindow(options.gamesDir, inside ? folder : ""), state);
}

OstrelWindow* restorePage(const cJSON* state) {
    const std::string path = textIn(state, "path");
    std::error_code ignored;
    if (!fs::exists(path, ignored)) return nullptr;
    auto* page = new GamePageWindow(path, fs::is_directory(path, ignored));
    page->init();  // a window that is pushed gets no such call from the loop
    return page;
}

// Null for what is not one of the launcher's full-screen windows, such as a question that was open.
OstrelWindow* restoreWindow(const cJSON* state, const Options& options) {
    switch (numberMember(state, "type", 0)) {
        case kHomeWindow:
            return restored(new HomeWindow(options.gamesDir), state);
        case kGamesWindow:
            return restoreGames(state, options);
        case kGamePageWindow:
            return restorePage(state);
        case kSearchWindow:
            return restored(new SearchWindow(options.gamesDir, textIn(state, "word")), state);
        case kRecentWindow:
            return restored(new RecentWindow, state);
        case kSettingsWindow:
            return restored(new SettingsWindow, state);
        case kAboutWindow:
            return new AboutWindow;
        default:
            return nullptr;
    }
}

JsonTree readState() { return readJsonFile(dataFile("windows.json"), kMostStateBytes); }

std::vector<OstrelWindow*> firstWindows(const Options& options) {
    return {new HomeWindow(options.gamesDir), new GamesWindow(options.gamesDir, "")};
}

}  // namespace

std::vector<OstrelWindow*> restoreWindows(const Options& options) {
    if (options.startAfresh) return firstWindows(options);
    const JsonTree root = readState();
    std::vector<OstrelWindow*> windows;
    const cJSON* state = nullptr;
    cJSON_ArrayForEach(state, memberIn(root.get(), "list")) {
        const bool home = numberMember(state, "type", 0) == kHomeWindow;
        if (home != windows.empty()) continue;  // home stands at the bottom, and there alone
        OstrelWindow* window = restoreWindow(state, options);
        if (window != nullptr) windows.push_back(window);
    }
    return windows.empty() ? firstWindows(options) : windows;
}

void savePosition(cJSON* state, const ListMenu& menu) {
    cJSON_AddNumberToObject(state, "cursor", menu.mCurIndex);
    cJSON_AddNumberToObject(state, "first", menu.mFirstIndex);
    cJSON_AddNumberToObject(state, "last", menu.mLastIndex);
}

void restorePosition(const cJSON* state, ListMenu& menu) {
    menu.restorePos(numberMember(state, "cursor", 0), numberMember(state, "first", 0), numberMember(state, "last", 0));
}

}  // namespace launcher
