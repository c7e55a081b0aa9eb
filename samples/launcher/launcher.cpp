#include "launcher.h"

#include <SDL.h>
#include <SDL_ttf.h>

#include <cstdio>
#include <vector>

#include "art_loader.h"
#include "data_dirs.h"
#include "game_system.h"
#include "host.h"
#include "ostrel/device_root.h"
#include "ostrel/host.h"
#include "ostrel/language.h"
#include "ostrel/log.h"
#include "ostrel/pinyin.h"
#include "ostrel/screen.h"
#include "ostrel/system_settings.h"
#include "popups.h"
#include "run_folder.h"
#include "run_program.h"
#include "screen_size.h"
#include "session.h"
#include "settings_values.h"
#include "texts.h"
#include "theme.h"
#include "window_state.h"
#include "windows/games_window.h"

namespace launcher {
namespace {

constexpr int kScreenDepth = 32;
constexpr int kLogToTerminal = 0;
constexpr int kLogToSystem = 1;
constexpr const char* kStatusBlock = "/dev/shm/ostrel_status";

bool openScreen(const Options& options) {
    if (ScreenInit(kScreenWidth, kScreenHeight, kScreenDepth, options.rotate ? 1 : 0) == 1) return true;
    std::fprintf(stderr, "No window: %s\n", SDL_GetError());
    ScreenUninit();
    return false;
}

// What the program keeps as long as it lives; none of it needs a screen.
bool prepare(const Options& options) {
    if (!enterRunFolder(options)) return false;
    setDeviceRoot(options.deviceRoot.c_str());
    setSessionRoot(options.deviceRoot);
    shareStatus(deviceFile(kStatusBlock));
    setGamesRoot(options.gamesDir);
    initLogger(options.logToTerminal ? kLogToTerminal : kLogToSystem);
    loadSettings(options.themeDir);
    addTexts();
    initLang();
    if (!options.language.empty()) setSystemLanguage(options.language.c_str());
    InitPinYinMap();
    listView().searchWord = options.searchWord;
    return true;
}

// A game that could not be started, and why.
struct Failure {
    std::string title;
    std::string reason;
};

void tell(const Failure& failure) {
    if (failure.reason.empty()) return;
    showMessage(getLangStr(kTextCannotPlay), failure.title + "\n" + failure.reason);
}

// Opens everything that needs a screen, runs the windows until one of them asks to leave, and lets all of it go again:
// first what holds images, then the screen.
bool runOnScreen(const Options& options, const Failure& failure) {
    if (!openScreen(options)) return false;
    loadSkin();
    startHost(dataDirs().data + "/sounds/key.wav");
    if (options.visitFile.empty()) startDevices();
    std::vector<OstrelWindow*> windows = restoreWindows(options);
    tell(failure);
    runWindows(windows);  // frees the windows before it returns
    saveSettings();
    stopHost();
    freeArt();
    freeSkin();
    ScreenUninit();
    TTF_Quit();
    SDL_Quit();
    return true;
}

Failure play(const PlayRequest& game) {
    const std::string reason = runProgram(game.command);
    if (reason.empty()) return {};
    return {game.title, game.command.front() + ": " + reason};
}

}  // namespace

int runLauncher(const Options& options) {
    if (!prepare(options)) return 1;
    if (!runOnScreen(options, {})) return 1;
    Options back = options;
    back.startAfresh = false;
    for (PlayRequest game; takePlayRequest(game);) {
        if (!runOnScreen(back, play(game))) return 1;
    }
    return 0;
}

}  // namespace launcher
