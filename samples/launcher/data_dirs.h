/// @file  data_dirs.h: where the launcher's own files lie, and where it works.
/// An installed launcher has its themes, games, languages and sounds in one folder, which is found from where the
/// program lies: a package may be unpacked anywhere. A launcher that was only built has them in the source tree.
#pragma once
#include <filesystem>
#include <string>

namespace launcher {

/// The places for one program.
struct DataDirs {
    std::string themes;  ///< holds a folder for each theme
    std::string data;    ///< holds "games", "lang", "sounds" and, when installed, "visits"
    bool installed = false;
};

/// The places for a program in @p programDir: the folder that belongs to it when there is one, else the source tree.
DataDirs dataDirsFor(const std::filesystem::path& programDir);

/// The places of the program that runs. They are looked up once.
const DataDirs& dataDirs();

/// The folder to work in when none is named: "run" in the source tree, or the user's own when @p dirs are installed
/// ones, since their neighbours are read-only: "ostrel-launcher" in XDG_STATE_HOME, which counts when it is absolute,
/// else in ".local/state" of the home directory.
std::string defaultRunFolder(const DataDirs& dirs);

}  // namespace launcher
