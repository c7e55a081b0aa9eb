#include "launcher.h"

#include <SDL.h>
#include <SDL_ttf.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <vector>

#include "host.h"
#include "icons.h"
#include "list_window.h"
#include "ostrel/device_root.h"
#include "ostrel/host.h"
#include "ostrel/language.h"
#include "ostrel/log.h"
#include "ostrel/pinyin.h"
#include "ostrel/screen.h"
#include "ostrel/skin.h"
#include "ostrel/system_settings.h"
#include "ostrel/system_state.h"
#include "run_folder.h"
#include "texts.h"
#include "theme_colours.h"

namespace launcher {
namespace {

constexpr int kScreenWidth = 1280;
constexpr int kScreenHeight = 720;
constexpr int kScreenDepth = 32;
constexpr int kLogToTerminal = 0;
constexpr int kLogToSystem = 1;

bool openScreen(const Options& options) {
    if (ScreenInit(kScreenWidth, kScreenHeight, kScreenDepth, options.rotate ? 1 : 0) == 1) return true;
    std::fprintf(stderr, "No window: %s\n", SDL_GetError());
    ScreenUninit();
    return false;
}

// What the command line does not choose, the settings file does, and the dark theme stands in when neither does.
void loadSettings(const Options& options) {
    char* theme = nullptr;
    loadSystemFunction();
    loadSystemState(gShmInfo, &theme);
    const std::unique_ptr<char, decltype(&std::free)> owned(theme, &std::free);
    if (!options.themeDir.empty()) {
        setTheme(options.themeDir);
    } else {
        setTheme(theme != nullptr ? theme : OSTREL_SOURCE_DIR "/theme/dark/");
    }
}

void loadTexts(const Options& options) {
    addTexts();
    initLang();
    if (!options.language.empty()) setSystemLanguage(options.language.c_str());
    InitPinYinMap();
}

// Words that the sample games have something for.
void chooseSearchWords(const Options& options) {
    listView().searchWords = {"zg", "star", "xy"};
    if (options.searchWords.empty()) return;
    listView().searchWords = options.searchWords;
    listView().searchWord = 1;
}

std::string headingOf(const Options& options) {
    if (options.directory == OSTREL_SAMPLE_DIR "/games") return getLangStr(kTextGames);
    const std::filesystem::path folder = options.directory;
    return folder.filename().empty() ? folder.string() : folder.filename().string();
}

}  // namespace

// The order matters: the device root before anything that reads a file of the device, the screen before any image, the
// texts before any window, and on the way out everything that holds images before the screen.
int runLauncher(const Options& options) {
    if (!enterRunFolder(options)) return 1;
    setDeviceRoot(options.deviceRoot.c_str());
    initLogger(options.logToTerminal ? kLogToTerminal : kLogToSystem);
    if (!openScreen(options)) return 1;
    loadSettings(options);
    loadTexts(options);
    init_shared_skin();
    applyThemeColours(gThemePath);
    loadIcons();
    startHost(OSTREL_SAMPLE_DIR "/sounds/key.wav");
    if (options.visitFile.empty()) startPads();

    chooseSearchWords(options);
    std::vector<OstrelWindow*> windows{new ListWindow(options.directory, headingOf(options), ListWindow::Level::First)};
    runWindows(windows);  // frees the windows before it returns

    stopHost();
    freeIcons();
    uninit_shared_skin();
    ScreenUninit();
    TTF_Quit();
    SDL_Quit();
    return 0;
}

}  // namespace launcher
