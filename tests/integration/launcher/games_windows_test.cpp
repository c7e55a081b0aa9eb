// The lists of games and what they do, seen by the windows and the list that a session leaves behind.
#include <gtest/gtest.h>

#include "played_visit.h"
#include "written_files.h"

namespace {

using launchertest::kRecentFile;
using launchertest::kWindowsFile;
using Strings = std::vector<std::string>;
using JsonTree = std::unique_ptr<cJSON, decltype(&cJSON_Delete)>;

class GamesWindowsTest : public ostreltest::PlayedVisitTest {
protected:
    // The member of the window that stood on top when the visit ended.
    std::string onTop(const char* member) {
        const JsonTree root = parse(kWindowsFile);
        const cJSON* list = cJSON_GetObjectItemCaseSensitive(root.get(), "list");
        const cJSON* top = cJSON_GetArrayItem(list, cJSON_GetArraySize(list) - 1);
        return text(cJSON_GetObjectItemCaseSensitive(top, member));
    }
    // The games played lately, without their folder, and how often: "a.game 2".
    Strings recent() {
        const JsonTree root = parse(kRecentFile);
        Strings games;
        const cJSON* game = nullptr;
        cJSON_ArrayForEach(game, root.get()) {
            const std::string path = text(cJSON_GetObjectItemCaseSensitive(game, "path"));
            games.push_back(path.substr(path.rfind('/') + 1) + " " +
                            text(cJSON_GetObjectItemCaseSensitive(game, "times")));
        }
        return games;
    }
    void visit(const std::string& keys, Strings more = {}) {
        more.insert(more.end(), {"--games", gamesDir()});
        play(keys, more);
    }
    void addGames(const Strings& names) {
        for (const std::string& name : names) addGame(name);
    }

private:
    JsonTree parse(const char* file) { return {cJSON_Parse(device().read(file).c_str()), &cJSON_Delete}; }
    static std::string text(const cJSON* item) {
        if (cJSON_IsString(item) != 0) return item->valuestring;
        return cJSON_IsNumber(item) != 0 ? std::to_string(item->valueint) : "";
    }
};

TEST_F(GamesWindowsTest, AFolderIsEntered) {
    addGames({"a.game", "Comet/b.game", "Hearth/c.game"});
    visit("key down\nkey a\n");
    EXPECT_EQ(onTop("folder"), gamesDir() + "/Hearth");
    EXPECT_EQ(onTop("cursor"), "0");
}

TEST_F(GamesWindowsTest, BackStandsOnTheFolderThatWasLeft) {
    addGames({"A/x.game", "B/x.game", "C/x.game", "D/x.game", "E/x.game", "F/x.game", "G/x.game"});
    visit("key up\nkey up\nkey a\nkey b\n");  // up from the first row leads to the last
    EXPECT_EQ(onTop("folder"), gamesDir());
    EXPECT_EQ(onTop("cursor"), "5");
    EXPECT_EQ(onTop("first"), "1");
    EXPECT_EQ(onTop("last"), "5");
}

TEST_F(GamesWindowsTest, FiveRowsAreShownOfALongFolder) {
    addGames({"A/1.game", "A/2.game", "A/3.game", "A/4.game", "A/5.game", "A/6.game", "A/7.game"});
    visit("key a\n");
    EXPECT_EQ(onTop("first"), "0");
    EXPECT_EQ(onTop("last"), "4");
}

TEST_F(GamesWindowsTest, BackFromTheGamesDirectoryLeadsHome) {
    addGame("a.game");
    visit("key b\n");
    EXPECT_EQ(onTop("type"), "1");
}

TEST_F(GamesWindowsTest, FoldersStandBeforeGames) {
    addGames({"A.game", "Z/b.game"});
    visit("key a\n");
    EXPECT_EQ(onTop("folder"), gamesDir() + "/Z");
}

TEST_F(GamesWindowsTest, LeftAndRightMoveByAPage) {
    for (char c = 'a'; c < 'k'; ++c) addGame(std::string(1, c) + ".game");
    visit("key right\nkey right\nkey left\n");
    EXPECT_EQ(onTop("cursor"), "3");
}

TEST_F(GamesWindowsTest, TheShoulderKeysGoRoundTheRowsThatAreFound) {
    addGames({"a.game", "b star.game", "c.game", "d star.game", "e.game"});
    visit("key r\nkey r\n", {"--search", "STAR"});
    EXPECT_EQ(onTop("cursor"), "3");
    visit("restart\nkey r\n", {"--search", "STAR"});
    EXPECT_EQ(onTop("cursor"), "1");
}

TEST_F(GamesWindowsTest, TheShoulderKeysMoveByAPageWithoutAWord) {
    for (char c = 'a'; c < 'k'; ++c) addGame(std::string(1, c) + ".game");
    visit("key r\nkey r\nkey l\n");
    EXPECT_EQ(onTop("cursor"), "3");
}

TEST_F(GamesWindowsTest, AGameWithoutACommandOpensItsPageAndIsRemembered) {
    addGames({"a.game", "b.game"});
    visit("key down\nkey a\n");
    EXPECT_EQ(onTop("type"), "3");
    EXPECT_EQ(onTop("path"), gamesDir() + "/b.game");
    EXPECT_EQ(recent(), (Strings{"b.game 1"}));
}

TEST_F(GamesWindowsTest, AGameIsRunByTheCommandOfItsFolder) {
    addGames({"C/a.game", "C/two  'words' %s.game"});
    device().write("/roms/C/system.json", R"({"command": ["cp", "{file}", ")" + device().path("played") + R"("]})");
    device().write("/roms/C/two  'words' %s.game", "this one");
    visit("key a\nkey down\nkey a\nwait 4\n");
    EXPECT_EQ(device().read("played"), "this one");
    EXPECT_EQ(recent(), (Strings{"two  'words' %s.game 1"}));
}

TEST_F(GamesWindowsTest, AfterAGameTheListIsAsItWas) {
    addGames({"C/a.game", "C/b.game", "C/c.game"});
    device().write("/roms/C/system.json", R"({"command": ["true"]})");
    visit("key a\nkey down\nkey a\nwait 4\n");
    EXPECT_EQ(onTop("folder"), gamesDir() + "/C");
    EXPECT_EQ(onTop("cursor"), "1");
}

TEST_F(GamesWindowsTest, AFolderThatAGameTookAwayIsLeftOut) {
    addGames({"C/a.game", "b.game"});
    device().write("/roms/C/system.json", R"({"command": ["rm", "-r", ")" + gamesDir() + R"(/C"]})");
    visit("key a\nkey a\nwait 4\n");
    EXPECT_EQ(onTop("folder"), gamesDir());
}

TEST_F(GamesWindowsTest, AFolderThatVanishesIsEmptyAfterASecond) {
    addGames({"C/a.game", "C/b.game", "C/c.game"});
    visit("key a\nkey down\nkey down\nremove roms/C\nwait 40\n");
    EXPECT_EQ(onTop("cursor"), "0");
}

TEST_F(GamesWindowsTest, AFolderThatComesBackIsListedAgain) {
    addGame("C/a.game");
    visit("key a\nremove roms/C\nwait 40\ndevice roms/C/b.game Back.\nwait 40\nkey a\n");
    EXPECT_EQ(onTop("path"), gamesDir() + "/C/b.game");
}

TEST_F(GamesWindowsTest, AGameThatHasGoneIsNotRemembered) {
    addGames({"a.game", "b.game"});
    visit("wait 2\nremove roms/a.game\nkey a\nshot told\nkey a\n");
    EXPECT_TRUE(recent().empty());
    EXPECT_EQ(onTop("type"), "2");
}

TEST_F(GamesWindowsTest, TheSmallMenuPlaysShowsThePageAndForgets) {
    addGame("a.game");
    visit("key x\nkey a\nkey b\n");
    EXPECT_EQ(recent(), (Strings{"a.game 1"}));
    visit("key x\nkey down\nkey a\n");
    EXPECT_EQ(onTop("type"), "3");
    visit("key b\nkey x\nkey down\nkey down\nkey a\n");
    EXPECT_TRUE(recent().empty());
}

TEST_F(GamesWindowsTest, MoreOnAFolderIsItsPage) {
    addGame("C/a.game");
    visit("key x\n");
    EXPECT_EQ(onTop("type"), "3");
    EXPECT_EQ(onTop("path"), gamesDir() + "/C");
}

TEST_F(GamesWindowsTest, AGamePlayedFromTheRecentListComesFirstAndTheCursorGoesWithIt) {
    addGames({"a.game", "b.game"});
    visit("key a\nkey b\nkey down\nkey a\nkey b\n");
    ASSERT_EQ(recent(), (Strings{"b.game 1", "a.game 1"}));
    startIn(kRecent);
    visit("key down\nkey a\nkey b\n");
    EXPECT_EQ(recent(), (Strings{"a.game 2", "b.game 1"}));
    EXPECT_EQ(onTop("type"), "5");
    EXPECT_EQ(onTop("cursor"), "0");
}

TEST_F(GamesWindowsTest, TheRecentListIsClearedAfterAQuestion) {
    addGame("a.game");
    visit("key a\nkey b\n");
    startIn(kRecent);
    visit("key y\nkey b\n");
    EXPECT_EQ(recent(), (Strings{"a.game 1"}));
    visit("key y\nkey a\n");
    EXPECT_TRUE(recent().empty());
}

TEST_F(GamesWindowsTest, TheLastRowForgottenMovesTheCursorUp) {
    addGames({"a.game", "b.game"});
    visit("key a\nkey b\nkey down\nkey a\nkey b\n");
    startIn(kRecent);
    visit("key down\nkey x\nkey down\nkey down\nkey a\nwait 2\n");
    EXPECT_EQ(recent(), (Strings{"b.game 1"}));
    EXPECT_EQ(onTop("cursor"), "0");
}

TEST_F(GamesWindowsTest, AnEmptyRecentListTakesEveryKey) {
    addGame("a.game");
    startIn(kRecent);
    visit("key a\nkey x\nkey y\nkey left\nkey right\nkey l\nkey r\nkey down\nkey up\nkey select\nshot empty\n");
    EXPECT_EQ(onTop("type"), "5");
}

}  // namespace
