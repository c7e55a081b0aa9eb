#include "options.h"

#include <getopt.h>

#include <cstdio>
#include <filesystem>

#include "data_dirs.h"

namespace fs = std::filesystem;

namespace launcher {
namespace {

enum OptionCode {
    kHelp = 'h',
    kGames = 256,
    kTheme,
    kLanguage,
    kRotate,
    kDevice,
    kRunFolder,
    kSearch,
    kVisit,
    kShots,
    kLog
};

constexpr option kChoices[] = {
    {"help", no_argument, nullptr, kHelp},
    {"games", required_argument, nullptr, kGames},
    {"theme", required_argument, nullptr, kTheme},
    {"lang", required_argument, nullptr, kLanguage},
    {"rotate", no_argument, nullptr, kRotate},
    {"device", required_argument, nullptr, kDevice},
    {"run", required_argument, nullptr, kRunFolder},
    {"search", required_argument, nullptr, kSearch},
    {"visit", required_argument, nullptr, kVisit},
    {"shots", required_argument, nullptr, kShots},
    {"log", no_argument, nullptr, kLog},
    {nullptr, 0, nullptr, 0},
};

constexpr const char* kUsage =
    "Usage: %s [OPTION]... [DIRECTORY]\n"
    "Opens the launcher, and on top the list of DIRECTORY when one is given.\n"
    "\n"
    "  --games DIR     the directory of all games, one folder for each system (the sample games when left out);\n"
    "                  it opens where the last session ended, a DIRECTORY always at its first row\n"
    "  --theme DIR     the theme to draw with: dark, light, or a folder that holds skin/\n"
    "  --lang FILE     a language file, such as ch.lang\n"
    "  --rotate        for a panel that is mounted turned\n"
    "  --search WORD   marks a word, or pinyin initials, in the titles\n"
    "  --device DIR    the folder that stands for the console's file system, / for the machine's own\n"
    "  --run DIR       the folder to work in (font link, language files)\n"
    "  --visit FILE    plays the keys of FILE without a display and leaves pictures\n"
    "  --shots DIR     where those pictures go\n"
    "  --log           the library's log on standard output, not in the system log\n"
    "  --help          this text\n"
    "\n"
    "%s";

// "" when there is none: for the empty path, and for a relative one in a folder that is gone.
std::string absolutePath(const char* path) {
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    if (error) return "";
    std::string whole = absolute.lexically_normal().string();
    while (whole.size() > 1 && whole.back() == '/') whole.pop_back();
    return whole;
}

std::string withSlash(std::string directory) {
    if (directory.empty() || directory.back() != '/') directory += '/';
    return directory;
}

// The launcher's own themes go by their names.
std::string themeDirectory(const char* value) {
    std::error_code ignored;
    const fs::path own = dataDirs().themes / fs::path(value).filename();
    const bool named =
        fs::path(value) == own.filename() && !fs::exists(value, ignored) && fs::is_directory(own, ignored);
    return withSlash(named ? own.string() : absolutePath(value));
}

// A root of "/" is the machine itself, which the library calls "".
std::string deviceRoot(const char* path) {
    const std::string root = absolutePath(path);
    return root == "/" ? "" : root;
}

void setDefaults(Options& options) {
    options.gamesDir = dataDirs().data + "/games";
    options.runFolder = defaultRunFolder(dataDirs());
}

void apply(int choice, const char* value, Options& options) {
    switch (choice) {
        case kGames:
            options.gamesDir = absolutePath(value);
            break;
        case kTheme:
            options.themeDir = themeDirectory(value);
            break;
        case kLanguage:
            options.language = value;
            break;
        case kRotate:
            options.rotate = true;
            break;
        case kDevice:
            options.deviceRoot = deviceRoot(value);
            options.deviceGiven = true;
            break;
        case kRunFolder:
            options.runFolder = absolutePath(value);
            break;
        case kSearch:
            options.searchWord = value;
            break;
        case kVisit:
            options.visitFile = absolutePath(value);
            break;
        case kShots:
            options.shotFolder = absolutePath(value);
            break;
        case kLog:
            options.logToTerminal = true;
            break;
        default:
            break;
    }
}

int complain(const char* what, const std::string& path) {
    std::fprintf(stderr, "%s: %s\n", what, path.c_str());
    return 2;
}

// All values are paths but a language's and a word to look for. @return as readOptions.
int checkValue(int choice, const char* value) {
    if (value == nullptr || choice == kLanguage || choice == kSearch || !absolutePath(value).empty()) return -1;
    return complain("This is no path", '"' + std::string(value) + '"');
}

int check(const Options& options) {
    std::error_code ignored;
    if (!fs::is_directory(options.gamesDir, ignored)) return complain("This is no directory", options.gamesDir);
    if (!options.themeDir.empty() && !fs::is_directory(options.themeDir + "skin", ignored))
        return complain("No skin/ in the theme", options.themeDir);
    return -1;
}

}  // namespace

const char* const kKeyTable =
    "  What it does                       Game-pad      Keyboard\n"
    "  move                               D-pad, stick  arrows\n"
    "  six rows on or back; change        Left, Right   Left, Right\n"
    "  open, play, confirm                A             Space\n"
    "  back; at home: quit                B             left Ctrl\n"
    "  more on a game; erase a letter     X             left Shift\n"
    "  search; clear                      Y             left Alt\n"
    "  previous or next game found        L, R          Tab, Backspace\n"
    "  row numbers or pictures            SELECT        right Ctrl\n";

int readOptions(int argc, char** argv, Options& options) {
    setDefaults(options);
    int choice = 0;
    while ((choice = getopt_long(argc, argv, "h", kChoices, nullptr)) != -1) {
        if (choice == '?') return 2;
        if (choice == kHelp) {
            std::printf(kUsage, argv[0], kKeyTable);
            return 0;
        }
        if (const int exitCode = checkValue(choice, optarg); exitCode >= 0) return exitCode;
        apply(choice, optarg, options);
    }
    if (optind < argc) {
        if (const int exitCode = checkValue(kGames, argv[optind]); exitCode >= 0) return exitCode;
        options.gamesDir = absolutePath(argv[optind++]);
        options.startAfresh = true;
    }
    if (optind < argc) return complain("One directory is enough; this is left over", argv[optind]);
    if (!options.deviceGiven) options.deviceRoot = options.runFolder + "/device";
    if (options.shotFolder.empty()) {
        options.shotFolder = options.runFolder + "/shots/" + fs::path(options.visitFile).stem().string();
    }
    return check(options);
}

}  // namespace launcher
