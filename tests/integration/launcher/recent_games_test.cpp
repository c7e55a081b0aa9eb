// The list of games played last, and the file it is kept in.
#include "recent_games.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <filesystem>

#include "session.h"
#include "support/child_process.h"
#include "support/test_device.h"
#include "written_files.h"

namespace {

using launcher::forgetGame;
using launcher::recentGames;
using launcher::rememberGame;
using launchertest::kRecentFile;
using Strings = std::vector<std::string>;

class RecentGamesTest : public ostreltest::DeviceTest {
protected:
    RecentGamesTest() {
        launcher::setSessionRoot(device().root());
        for (const char* game : {"a.game", "b.game", "c.game"}) device().write(game, "");
    }
    ~RecentGamesTest() override { launcher::setSessionRoot(""); }
    // The names of the games with the times they were played: "b.game 2".
    static Strings listed() {
        Strings list;
        for (const launcher::RecentGame& game : recentGames()) {
            list.push_back(game.path + " " + std::to_string(game.timesPlayed));
        }
        return list;
    }
    Strings listedFrom(const std::string& json) {
        device().write(kRecentFile, json);
        return listed();
    }
};

TEST_F(RecentGamesTest, NothingWasPlayedAtFirst) { EXPECT_TRUE(recentGames().empty()); }

TEST_F(RecentGamesTest, TheNewestStandsFirst) {
    rememberGame("a.game");
    rememberGame("b.game");
    EXPECT_EQ(listed(), (Strings{"b.game 1", "a.game 1"}));
}

TEST_F(RecentGamesTest, AGamePlayedAgainMovesUpAndCountsOn) {
    rememberGame("a.game");
    rememberGame("b.game");
    rememberGame("a.game");
    EXPECT_EQ(listed(), (Strings{"a.game 2", "b.game 1"}));
}

TEST_F(RecentGamesTest, TheOldestOfMoreThanFiftyIsForgotten) {
    for (int i = 0; i <= 50; ++i) {
        const std::string name = "game" + std::to_string(i);
        device().write(name, "");
        rememberGame(name);
    }
    const Strings list = listed();
    ASSERT_EQ(list.size(), 50U);
    EXPECT_EQ(list.front(), "game50 1");
    EXPECT_EQ(list.back(), "game1 1");
}

TEST_F(RecentGamesTest, AForgottenGameIsGoneAndTheOthersStay) {
    rememberGame("a.game");
    rememberGame("b.game");
    forgetGame("b.game");
    forgetGame("c.game");
    EXPECT_EQ(listed(), (Strings{"a.game 1"}));
}

TEST_F(RecentGamesTest, AClearedListIsEmpty) {
    rememberGame("a.game");
    launcher::clearRecentGames();
    EXPECT_TRUE(recentGames().empty());
    EXPECT_EQ(device().read(kRecentFile), "[]");
}

TEST_F(RecentGamesTest, AGameWhoseCardIsOutIsNotShownAndComesBackWithIt) {
    device().write("card/d.game", "");
    rememberGame("card/d.game");
    std::filesystem::rename("card", "drawer");
    EXPECT_TRUE(recentGames().empty());
    rememberGame("a.game");
    std::filesystem::rename("drawer", "card");
    EXPECT_EQ(listed(), (Strings{"a.game 1", "card/d.game 1"}));
}

TEST_F(RecentGamesTest, AFolderIsNoGame) {
    std::filesystem::create_directory("folder");
    EXPECT_TRUE(listedFrom(R"([{"path": "folder", "times": 1}])").empty());
}

TEST_F(RecentGamesTest, EachChangeGivesAnotherVersion) {
    const int before = launcher::recentGamesVersion();
    rememberGame("a.game");
    const int remembered = launcher::recentGamesVersion();
    EXPECT_NE(remembered, before);
    forgetGame("a.game");
    EXPECT_NE(launcher::recentGamesVersion(), remembered);
    EXPECT_NE(launcher::recentGamesVersion(), before);
}

TEST_F(RecentGamesTest, ABrokenFileCountsAsEmptyAndIsReplacedByTheNextGame) {
    for (const char* json : {"", "[", "{}", "7", "\"a\"", "null", "[{\"path\": \"a.game\"", "\xFF"}) {
        SCOPED_TRACE(json);
        EXPECT_TRUE(listedFrom(json).empty());
    }
    rememberGame("b.game");
    EXPECT_EQ(listed(), (Strings{"b.game 1"}));
}

TEST_F(RecentGamesTest, AFileThatEndsTooEarlyCountsAsEmptyWhereverItEnds) {
    const std::string whole = R"([{"path": "a.game", "times": 3}])";
    for (std::size_t bytes = 0; bytes < whole.size(); ++bytes) EXPECT_TRUE(listedFrom(whole.substr(0, bytes)).empty());
    EXPECT_EQ(listedFrom(whole), (Strings{"a.game 3"}));
}

TEST_F(RecentGamesTest, EntriesWithoutAPathAreLeftOut) {
    EXPECT_EQ(listedFrom(R"([7, null, [], {}, {"path": 7}, {"path": ""}, {"path": "a.game", "times": 2}])"),
              (Strings{"a.game 2"}));
}

TEST_F(RecentGamesTest, ACountThatIsNoneIsOnce) {
    EXPECT_EQ(listedFrom(R"([{"path": "a.game"}, {"path": "b.game", "times": -4}, {"path": "c.game", "times": "2"}])"),
              (Strings{"a.game 1", "b.game 1", "c.game 1"}));
}

TEST_F(RecentGamesTest, ACountStopsAtTheLargestNumber) {
    EXPECT_EQ(listedFrom(R"([{"path": "a.game", "times": 1e99}])"), (Strings{"a.game 2147483647"}));
    rememberGame("a.game");
    EXPECT_EQ(listed(), (Strings{"a.game 2147483647"}));
}

TEST_F(RecentGamesTest, AGameThatTheFileNamesTwiceStandsInTheListOnce) {
    EXPECT_EQ(listedFrom(R"([{"path": "a.game", "times": 2}, {"path": "a.game", "times": 5}])"), (Strings{"a.game 2"}));
}

TEST_F(RecentGamesTest, AnyFileNameComesBackAsItWas) {
    const std::string odd = "a \"quoted\"\n\\ %s \xFF\x01.game";
    device().write(odd, "");
    rememberGame(odd);
    ASSERT_EQ(recentGames().size(), 1U);
    EXPECT_EQ(recentGames()[0].path, odd);
}

TEST_F(RecentGamesTest, FiftyOfTheLongestPathsFitIntoTheFile) {
    std::string folder;
    for (int i = 0; i < 15; ++i) folder += std::string(250, '\x01') + "/";
    for (int i = 0; i < 50; ++i) rememberGame(folder + std::to_string(i));
    rememberGame("a.game");
    rememberGame("a.game");
    EXPECT_EQ(listed(), (Strings{"a.game 2"}));
}

TEST_F(RecentGamesTest, APipeInPlaceOfTheFileIsNotWaitedFor) {
    std::filesystem::create_directories(device().path("/mnt/UDISK/launcher"));
    ASSERT_EQ(mkfifo(device().path(kRecentFile).c_str(), 0600), 0);
    EXPECT_TRUE(recentGames().empty());
}

TEST_F(RecentGamesTest, AFileThatCannotBeWrittenStaysAsItIs) {
    rememberGame("a.game");
    const std::string before = device().read(kRecentFile);
    EXPECT_TRUE(ostreltest::passesInChild([] { rememberGame("b.game"); }, ostreltest::ChildUser::Unprivileged));
    EXPECT_EQ(device().read(kRecentFile), before);
    EXPECT_EQ(listed(), (Strings{"a.game 1"}));
}

TEST_F(RecentGamesTest, NoSecondFileIsLeftBehind) {
    rememberGame("a.game");
    EXPECT_FALSE(device().exists("/mnt/UDISK/launcher/recent.json.new"));
}

}  // namespace
