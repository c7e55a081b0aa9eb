#include "play.h"

#include <SDL.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "game_row.h"
#include "game_system.h"
#include "ostrel/file_browser_menu.h"
#include "ostrel/language.h"
#include "ostrel/window.h"
#include "popups.h"
#include "recent_games.h"
#include "session.h"
#include "windows/game_page_window.h"

namespace launcher {
namespace {

constexpr int kFoldersFirst = 1;  // above the group 0 of every other row

class GameAction : public Action {
public:
    int dowork(void* item) override {
        playGame(static_cast<GameRow*>(item)->path);
        return 0;
    }
    int xdowork(void* item) override {
        showGameMenu(static_cast<GameRow*>(item)->path, /*isFolder=*/false);
        return 0;
    }
};

class FolderAction : public GroupedAction {
public:
    FolderAction() : GroupedAction(kFoldersFirst) {}
    // The event points to a copy: the row may be gone when the menu reads it, because its list was loaded again.
    int dowork(void* item) override {
        mTarget = static_cast<GameRow*>(item)->path;
        SDL_Event event{};
        event.type = SDL_USEREVENT;
        event.user.code = FILE_BROWSER_CHANGE_DIR;
        event.user.data1 = mTarget.data();
        SDL_PushEvent(&event);
        return 0;
    }
    int xdowork(void* item) override {
        showGameMenu(static_cast<GameRow*>(item)->path, /*isFolder=*/true);
        return 0;
    }

private:
    std::string mTarget;
};

bool wasPlayed(const std::string& path) {
    const std::vector<RecentGame> games = recentGames();
    return std::any_of(games.begin(), games.end(), [&](const RecentGame& game) { return game.path == path; });
}

void showPage(const std::string& path, bool isFolder) { add2PopupList(new GamePageWindow(path, isFolder)); }

}  // namespace

Action* gameAction() {
    static GameAction action;
    return &action;
}

Action* folderAction() {
    static FolderAction action;
    return &action;
}

void playGame(const std::string& path) {
    const std::string title = titleOf(nameIn(path), /*isFolder=*/false);
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        showMessage(getLangStr(kTextCannotPlay), title + "\n" + std::strerror(ENOENT));
        return;
    }
    const GameSystem system = systemOf(path);
    rememberGame(path);
    if (system.command.empty()) {
        showPage(path, /*isFolder=*/false);
    } else {
        requestPlay({title, path, commandFor(system, path)});
    }
}

void showGameMenu(const std::string& path, bool isFolder) {
    if (isFolder) return showPage(path, isFolder);
    std::vector<Choice> choices{
        {getLangStr(kTextPlay), [path] { playGame(path); }},
        {getLangStr(kTextDetails), [path] { showPage(path, /*isFolder=*/false); }},
    };
    if (wasPlayed(path)) choices.push_back({getLangStr(kTextForget), [path] { forgetGame(path); }});
    showChoices(choices);
}

}  // namespace launcher
