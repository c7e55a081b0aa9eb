/// @file  recent_games.h: the games played last, newest first, kept in a JSON file among the launcher's data.
/// Threads: UI thread.  Failures: a file that is missing or broken counts as empty; one that cannot be written changes
/// nothing. The file is replaced as a whole, so that a power cut loses at most the newest entry.
#pragma once
#include <string>
#include <vector>

namespace launcher {

struct RecentGame {
    std::string path;
    int timesPlayed = 0;
};

/// As many are kept.
constexpr int kMostRecentGames = 50;

/// What the file says. Games whose file is not there are left out, but not forgotten: their card may come back.
std::vector<RecentGame> recentGames();
/// Puts @p path first and counts one more time.
void rememberGame(const std::string& path);
void forgetGame(const std::string& path);
void clearRecentGames();
/// Another number after each of these changes, for a list that shows them.
int recentGamesVersion();

}  // namespace launcher
