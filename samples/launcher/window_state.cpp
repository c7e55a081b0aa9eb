#include "window_state.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

#include "ostrel/list_menu.h"
#include "ostrel/system_state.h"
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

using JsonOwner = std::unique_ptr<cJSON, decltype(&cJSON_Delete)>;

int numberMember(const cJSON* state, const char* name, int otherwise) {
    const cJSON* item = cJSON_GetObjectItem(state, name);
    return cJSON_IsNumber(item) != 0 ? item->valueint : otherwise;
}

template <typename Window>
OstrelWindow* restored(Window* window, const cJSON* state) {
    window->restore(state);
    return window;
}

OstrelWindow* restoreGames(const cJSON* state, const Options& options) {
    std::error_code ignored;
    const std::string folder = textMember(state, "folder");
    // Only a folder below the games directory of today: the card may be another one.
    const bool inside = folder.rfind(options.gamesDir + "/", 0) == 0 && fs::is_directory(folder, ignored);
    return restored(new GamesWindow(options.gamesDir, inside ? folder : ""), state);
}

OstrelWindow* restorePage(const cJSON* state) {
    const std::string path = textMember(state, "path");
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
            return restored(new SearchWindow(options.gamesDir, textMember(state, "word")), state);
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

JsonOwner readState() {
    std::ifstream file(dataFile("windows.json"), std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    return {cJSON_Parse(text.c_str()), &cJSON_Delete};
}

std::vector<OstrelWindow*> firstWindows(const Options& options) {
    return {new HomeWindow(options.gamesDir), new GamesWindow(options.gamesDir, "")};
}

}  // namespace

std::vector<OstrelWindow*> restoreWindows(const Options& options) {
    if (options.startAfresh) return firstWindows(options);
    const JsonOwner root = readState();
    std::vector<OstrelWindow*> windows;
    const cJSON* state = nullptr;
    cJSON_ArrayForEach(state, cJSON_GetObjectItem(root.get(), "list")) {
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

std::string textMember(const cJSON* state, const char* name) {
    const cJSON* item = cJSON_GetObjectItem(state, name);
    return cJSON_IsString(item) != 0 ? item->valuestring : "";
}

}  // namespace launcher
