#include "windows/home_window.h"

#include <functional>
#include <utility>

#include "host.h"
#include "icons.h"
#include "ostrel/input.h"
#include "ostrel/skin.h"
#include "ostrel/system_state.h"
#include "popups.h"
#include "session.h"
#include "window_state.h"
#include "windows/about_window.h"
#include "windows/games_window.h"
#include "windows/recent_window.h"
#include "windows/search_window.h"
#include "windows/settings_window.h"

namespace launcher {
namespace {

// Six rows of one line, as high as the theme's plain row images.
constexpr int kRows = 6;
constexpr int kGap = 8;
constexpr SDL_Rect kHomePlace{0, 80, 1280, 568};
constexpr const char* kFocused = "skin/bg-list-f.png";
constexpr const char* kNormal = "skin/bg-list-n.png";

void askToQuit() { askQuestion(kTextQuitTitle, kTextQuitQuestion, &requestQuit); }

class Open : public Action {
public:
    explicit Open(std::function<void()> open) : mOpen(std::move(open)) {}
    int dowork(void* /*item*/) override {
        mOpen();
        return 0;
    }

private:
    std::function<void()> mOpen;
};

// Its label is a number, so that another language shows at once; its icon is asked for at each draw, so that another
// theme does.
class HomeRow : public TextMenuItem {
public:
    HomeRow(Text text, std::function<OstrelSurface*()> image, std::function<void()> open)
        : TextMenuItem(nullptr, nullptr, new Open(std::move(open)), /*ownAction=*/true), mImage(std::move(image)) {
        labelId = text;
    }
    OstrelSurface* getIcon() override { return mImage(); }

private:
    std::function<OstrelSurface*()> mImage;
};

}  // namespace

HomeWindow::HomeWindow(std::string gamesDir)
    : LauncherWindow(kHomeWindow, kTextHome), mMenu(kFocused, kNormal, kRows, kGap), mGamesDir(std::move(gamesDir)) {
    SDL_Rect place = kHomePlace;
    mMenu.updateRectAndNum(place, kRows);
    mMenu.showListNum = false;
    mMenu.showStatNum = false;
    const std::string& games = mGamesDir;
    const auto add = [this](Text text, std::function<OstrelSurface*()> image, std::function<void()> open) {
        mMenu.insertItem(new HomeRow(text, std::move(image), std::move(open)));
    };
    add(
        kTextGames, [] { return icons().game.get(); }, [games] { add2PopupList(new GamesWindow(games, "")); });
    add(
        kTextSearch, [] { return icons().search.get(); }, [games] { add2PopupList(new SearchWindow(games)); });
    if (gEnableRecentPlayedTab != 0) {
        add(
            kTextRecent, [] { return icons().recent.get(); }, [] { add2PopupList(new RecentWindow); });
    }
    add(
        kTextSettings, [] { return icons().settings.get(); }, [] { add2PopupList(new SettingsWindow); });
    add(
        kTextAbout, [] { return icons().about.get(); }, [] { add2PopupList(new AboutWindow); });
    add(
        kTextQuit, [] { return icons().power.get(); }, &askToQuit);
}

void HomeWindow::saveState(cJSON* obj) { savePosition(obj, mMenu); }
void HomeWindow::restore(const cJSON* state) { restorePosition(state, mMenu); }
void HomeWindow::themeChanged() { reloadRowImages(mMenu, kFocused, kNormal); }

int HomeWindow::handleInput() {
    const int key = mMenu.eventHandling();
    if (key == backKey()) {
        askToQuit();
        return WIN_REDRAW;
    }
    if (key == KEY_Y) add2PopupList(new SearchWindow(mGamesDir));
    return key;
}

void HomeWindow::draw() {
    LauncherWindow::draw();
    mMenu.draw();
    drawHints(
        {{confirmButton(), kTextHintSelect}, {backButton(), kTextHintQuit}, {icons().buttonY.get(), kTextHintSearch}});
}

}  // namespace launcher
