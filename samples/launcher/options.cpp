#include "options.h"

#include <getopt.h>

#include <cstdio>
#include <filesystem>

namespace fs = std::filesystem;

namespace launcher {
namespace {

enum Choice { kHelp = 'h', kTheme = 256, kLanguage, kRotate, kDevice, kRunFolder, kSearch, kVisit, kShots, kLog };

constexpr option kChoices[] = {
    {"help", no_argument, nullptr, kHelp},
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
    "Lists the files of DIRECTORY (the sample games when left out).\n"
    "\n"
    "  --theme DIR     the theme to draw with, a folder that holds skin/\n"
    "  --lang FILE     a language file of samples/launcher/lang, such as zh.lang\n"
    "  --rotate        for a panel that is mounted turned\n"
    "  --search WORD   marks a word, or pinyin initials; give it again for more words\n"
    "  --device DIR    the folder that stands for the console's file system, / for the machine's own\n"
    "  --run DIR       the folder to work in (font link, language files)\n"
    "  --visit FILE    plays the keys of FILE without a display and leaves pictures\n"
    "  --shots DIR     where those pictures go\n"
    "  --log           the library's log on standard output, not in the system log\n"
    "  --help          this text\n"
    "\n"
    "%s";

std::string absolutePath(const char* path) {
    std::string whole = fs::absolute(path).lexically_normal().string();
    while (whole.size() > 1 && whole.back() == '/') whole.pop_back();
    return whole;
}

std::string withSlash(std::string directory) {
    if (directory.empty() || directory.back() != '/') directory += '/';
    return directory;
}

// A root of "/" is the machine itself, which the library calls "".
std::string deviceRoot(const char* path) {
    const std::string root = absolutePath(path);
    return root == "/" ? "" : root;
}

void setDefaults(Options& options) {
    options.directory = OSTREL_SAMPLE_DIR "/games";
    options.runFolder = OSTREL_SOURCE_DIR "/run";
}

void apply(int choice, const char* value, Options& options) {
    switch (choice) {
        case kTheme:
            options.themeDir = withSlash(absolutePath(value));
            break;
        case kLanguage:
            options.language = value;
            break;
        case kRotate:
            options.rotate = true;
            break;
        case kDevice:
            options.deviceRoot = deviceRoot(value);
            break;
        case kRunFolder:
            options.runFolder = absolutePath(value);
            break;
        case kSearch:
            options.searchWords.emplace_back(value);
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

int check(const Options& options) {
    std::error_code ignored;
    if (!fs::is_directory(options.directory, ignored)) return complain("This is no directory", options.directory);
    if (!options.themeDir.empty() && !fs::is_directory(options.themeDir + "skin", ignored))
        return complain("No skin/ in the theme", options.themeDir);
    return -1;
}

}  // namespace

const char* const kKeyTable =
    "  What it does                   Game-pad      Keyboard\n"
    "  move                           D-pad, stick  Up, Down\n"
    "  six rows on or back            Left, Right   Left, Right\n"
    "  open the folder or the file    A             Space\n"
    "  back; in the first list: quit  B             left Ctrl\n"
    "  details of the row             X             left Shift\n"
    "  next search word, or none      Y             left Alt\n"
    "  previous or next row found     L, R          Tab, Backspace\n"
    "  row numbers or icons           SELECT        right Ctrl\n";

int readOptions(int argc, char** argv, Options& options) {
    setDefaults(options);
    bool deviceGiven = false;
    int choice = 0;
    while ((choice = getopt_long(argc, argv, "h", kChoices, nullptr)) != -1) {
        if (choice == '?') return 2;
        if (choice == kHelp) {
            std::printf(kUsage, argv[0], kKeyTable);
            return 0;
        }
        deviceGiven = deviceGiven || choice == kDevice;
        apply(choice, optarg, options);
    }
    if (optind < argc) options.directory = absolutePath(argv[optind++]);
    if (optind < argc) return complain("One directory is enough; this is left over", argv[optind]);
    if (!deviceGiven) options.deviceRoot = options.runFolder + "/device";
    if (options.shotFolder.empty()) {
        options.shotFolder = options.runFolder + "/shots/" + fs::path(options.visitFile).stem().string();
    }
    return check(options);
}

}  // namespace launcher
