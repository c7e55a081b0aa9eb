/// @file  game_system.h: what a games folder says of itself.
/// A folder may hold "system.json":
///     {"name": "Comet Pocket", "name.ch.lang": "彗星掌机", "icon": "skin/ic-sys-portable.png",
///      "command": ["program", "--option", "{file}"]}
/// All members may be missing. "{file}" in an argument stands for the game's path. A folder without a command shows a
/// page of the game instead.
/// Threads: UI thread.
#pragma once
#include <string>
#include <vector>

namespace launcher {

struct GameSystem {
    std::string name;                  ///< in the language of the user; the folder's name when none is given
    std::string icon;                  ///< relative to the theme; "" when none is given
    std::vector<std::string> command;  ///< empty when none is given
};

/// The file that describes a folder.
constexpr const char* kSystemFile = "system.json";

/// Reads "system.json" of @p folder; a file that is missing, too large or broken counts as empty, and so does a member
/// of another type. A command counts only when it is texts throughout.
GameSystem readSystem(const std::string& folder);

/// Tells which directory holds all games: systemOf looks no further up.
void setGamesRoot(const std::string& folder);
/// The system of a game: of its folder, or of the nearest folder above that describes itself, up to the games' root.
/// Without any it is the game's own folder, which has a name and no command.
GameSystem systemOf(const std::string& gamePath);

/// The command of @p system for one game.
std::vector<std::string> commandFor(const GameSystem& system, const std::string& gamePath);

/// The name of the last folder or file of a path, whether it ends in "/" or not.
std::string nameIn(const std::string& path);
/// The folder that @p path stands in; "" for the root and for a bare name.
std::string folderOf(const std::string& path);

}  // namespace launcher
