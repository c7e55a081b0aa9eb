/// @file  play.h: what can be done with a game or a folder of games.
/// Threads: UI thread.
#pragma once
#include <string>

#include "ostrel/menu_item.h"

namespace launcher {

/// The actions of every GameRow, which keep nothing. That of a game plays it, and as the second action shows the small
/// menu. That of a folder asks the FileBrowserMenu to enter it, and as the second action shows the folder's page; in a
/// list its rows stand before those of games.
Action* gameAction();
Action* folderAction();

/// Runs the command of the game's system (game_system.h), and remembers that it was played; without a command opens the
/// game's page. A game whose file has gone is told, and not remembered.
void playGame(const std::string& path);
/// The small menu of a game: play, details, and for a game that was played lately to forget it. A folder has nothing
/// but its page, which is opened at once.
void showGameMenu(const std::string& path, bool isFolder);

}  // namespace launcher
