/// @file  options.h: what the command line says.
#pragma once
#include <string>

namespace launcher {

/// Every path is absolute; every directory that the library gets ends in "/".
struct Options {
    std::string gamesDir;      ///< the directory of all games, without "/" at its end
    std::string themeDir;      ///< where the theme's "skin/" lies; empty leaves the choice to the settings
    std::string language;      ///< a file name in lang/, such as "zh.lang"; empty leaves the choice to the settings
    std::string runFolder;     ///< where the launcher works: font, language files, fallback images
    std::string deviceRoot;    ///< the folder that stands for the console's file system; "" is the machine itself
    std::string searchWord;    ///< highlighted in the titles from the start; empty for none
    std::string visitFile;     ///< keys to play instead of a player's; empty in the ordinary case
    std::string shotFolder;    ///< where a visit leaves its pictures
    bool deviceGiven = false;  ///< whether deviceRoot was chosen; else it is the run folder's own, which is made
    bool rotate = false;       ///< the panel is mounted turned
    bool logToTerminal = false;
    bool startAfresh = false;  ///< whether to begin with the games list and not where the last session ended
};

/// Fills @p options. @return -1 to go on, else the exit code: 0 after --help, 2 after a message on standard error.
int readOptions(int argc, char** argv, Options& options);

/// What the launcher prints when it starts: one line for each key of the game-pad and its place on a keyboard.
extern const char* const kKeyTable;

}  // namespace launcher
