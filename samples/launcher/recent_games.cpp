#include "recent_games.h"

#include <algorithm>
#include <climits>
#include <filesystem>

#include "json_file.h"
#include "session.h"

namespace launcher {
namespace {

constexpr std::size_t kMostListBytes = std::size_t{2} * 1024 * 1024;  // fifty of the longest paths, escaped throughout

int sVersion = 0;

std::string listFile() { return dataFile("recent.json"); }

auto findGame(std::vector<RecentGame>& games, const std::string& path) {
    return std::find_if(games.begin(), games.end(), [&](const RecentGame& game) { return game.path == path; });
}

// A count that is missing, below 1 or no number counts as once: the game does stand in the list.
RecentGame gameFrom(const cJSON* entry) {
    const cJSON* times = memberIn(entry, "times");
    return {textIn(entry, "path"), cJSON_IsNumber(times) != 0 ? std::max(times->valueint, 1) : 1};
}

std::vector<RecentGame> readList() {
    std::vector<RecentGame> games;
    const JsonTree tree = readJsonFile(listFile(), kMostListBytes);
    if (cJSON_IsArray(tree.get()) == 0) return games;
    const cJSON* entry = nullptr;
    cJSON_ArrayForEach(entry, tree.get()) {
        RecentGame game = gameFrom(entry);
        if (game.path.empty() || findGame(games, game.path) != games.end()) continue;
        if (games.size() < kMostRecentGames) games.push_back(std::move(game));
    }
    return games;
}

void writeList(const std::vector<RecentGame>& games) {
    const JsonTree tree(cJSON_CreateArray());
    for (const RecentGame& game : games) {
        JsonTree entry(cJSON_CreateObject());
        cJSON_AddStringToObject(entry.get(), "path", game.path.c_str());
        cJSON_AddNumberToObject(entry.get(), "times", game.timesPlayed);
        if (cJSON_AddItemToArray(tree.get(), entry.get()) != 0) static_cast<void>(entry.release());
    }
    const std::unique_ptr<char, decltype(&cJSON_free)> text(cJSON_Print(tree.get()), &cJSON_free);
    if (text == nullptr) return;
    replaceFile(listFile(), text.get());
    ++sVersion;
}

bool isThere(const RecentGame& game) {
    std::error_code error;
    return std::filesystem::is_regular_file(game.path, error);
}

}  // namespace

std::vector<RecentGame> recentGames() {
    std::vector<RecentGame> games = readList();
    games.erase(std::remove_if(games.begin(), games.end(), [](const RecentGame& game) { return !isThere(game); }),
                games.end());
    return games;
}

void rememberGame(const std::string& path) {
    std::vector<RecentGame> games = readList();
    RecentGame game{path, 0};
    if (const auto known = findGame(games, path); known != games.end()) {
        game = *known;
        games.erase(known);
    }
    if (game.timesPlayed < INT_MAX) ++game.timesPlayed;
    games.insert(games.begin(), std::move(game));
    if (games.size() > kMostRecentGames) games.resize(kMostRecentGames);
    writeList(games);
}

void forgetGame(const std::string& path) {
    std::vector<RecentGame> games = readList();
    const auto known = findGame(games, path);
    if (known == games.end()) return;
    games.erase(known);
    writeList(games);
}

void clearRecentGames() { writeList({}); }

int recentGamesVersion() { return sVersion; }

}  // namespace launcher
