// What a games folder says of itself in its system.json, and what it does not.
#include "game_system.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <filesystem>

#include "ostrel/system_settings.h"
#include "support/test_device.h"

namespace {

using launcher::commandFor;
using launcher::GameSystem;
using launcher::readSystem;
using launcher::systemOf;
using Command = std::vector<std::string>;

constexpr char kWhole[] = R"({"name": "Comet Pocket", "name.ch.lang": "彗星掌机", "icon": "skin/ic-sys-portable.png",
                               "command": ["player", "--open={file}", "{file}"]})";

class GameSystemTest : public ostreltest::DeviceTest {
protected:
    GameSystemTest() {
        setSystemLanguage("en.lang");
        std::filesystem::create_directories("games/Comet");
    }
    ~GameSystemTest() override { launcher::setGamesRoot(""); }
    GameSystem readBack(const std::string& json) {
        device().write("games/Comet/system.json", json);
        return readSystem("games/Comet");
    }
};

void expectNothingSaid(const GameSystem& system) {
    EXPECT_EQ(system.name, "Comet");
    EXPECT_EQ(system.icon, "");
    EXPECT_TRUE(system.command.empty());
}

TEST_F(GameSystemTest, AFolderTellsItsNameItsIconAndItsCommand) {
    const GameSystem system = readBack(kWhole);
    EXPECT_EQ(system.name, "Comet Pocket");
    EXPECT_EQ(system.icon, "skin/ic-sys-portable.png");
    EXPECT_EQ(system.command, (Command{"player", "--open={file}", "{file}"}));
}

TEST_F(GameSystemTest, TheNameIsInTheLanguageOfTheUserWhereTheFileHasIt) {
    setSystemLanguage("ch.lang");
    EXPECT_EQ(readBack(kWhole).name, "彗星掌机");
    setSystemLanguage("es.lang");
    EXPECT_EQ(readSystem("games/Comet").name, "Comet Pocket");
}

TEST_F(GameSystemTest, AFolderWithoutTheFileIsNamedByItself) {
    expectNothingSaid(readSystem("games/Comet"));
    EXPECT_EQ(readSystem("games/Comet/").name, "Comet");
    EXPECT_EQ(readSystem("games/gone").name, "gone");
}

TEST_F(GameSystemTest, AFileThatEndsTooEarlyCountsAsEmptyWhereverItEnds) {
    const std::string whole = R"({"name": "彗", "icon": "i", "command": ["a", "{file}"]})";
    for (std::size_t bytes = 0; bytes < whole.size(); ++bytes) {
        SCOPED_TRACE(bytes);
        expectNothingSaid(readBack(whole.substr(0, bytes)));
    }
}

TEST_F(GameSystemTest, WhatFollowsTheObjectMakesTheFileCountAsEmpty) {
    expectNothingSaid(readBack(R"({"name": "a"} b)"));
}

TEST_F(GameSystemTest, MembersOfOtherTypesCountAsMissing) {
    expectNothingSaid(readBack(R"({"name": 7, "icon": ["i"], "command": "a"})"));
    expectNothingSaid(readBack(R"({"name": null, "icon": {}, "command": {"a": "b"}})"));
    expectNothingSaid(readBack(R"({"name": "", "command": []})"));
}

TEST_F(GameSystemTest, ACommandWithAnythingButTextsInItIsNone) {
    expectNothingSaid(readBack(R"({"command": ["a", 7]})"));
    expectNothingSaid(readBack(R"({"command": [null, "a"]})"));
}

TEST_F(GameSystemTest, RootsOfOtherTypesCountAsEmpty) {
    for (const char* root : {"[]", "7", "\"name\"", "null", "true", "", " ", "\xEF\xBB\xBF"}) {
        SCOPED_TRACE(root);
        expectNothingSaid(readBack(root));
    }
}

TEST_F(GameSystemTest, AFileOfMoreThan64KilobytesCountsAsEmpty) {
    const std::string name = R"({"name": "a"})";
    EXPECT_EQ(readBack(name + std::string(64 * 1024 - name.size(), ' ')).name, "a");
    expectNothingSaid(readBack(name + std::string(64 * 1024 - name.size() + 1, ' ')));
}

TEST_F(GameSystemTest, ThousandsOfOpenBracketsCountAsEmpty) { expectNothingSaid(readBack(std::string(60000, '['))); }

TEST_F(GameSystemTest, WhatIsNoRegularFileIsNotWaitedFor) {
    ASSERT_EQ(mkfifo("games/Comet/system.json", 0600), 0);
    expectNothingSaid(readSystem("games/Comet"));
    device().remove("games/Comet/system.json");
    std::filesystem::create_directory("games/Comet/system.json");
    expectNothingSaid(readSystem("games/Comet"));
}

TEST_F(GameSystemTest, BytesThatAreNoTextStayAsTheyAre) { EXPECT_EQ(readBack("{\"name\": \"a\xFF\"}").name, "a\xFF"); }

TEST_F(GameSystemTest, EachMarkInACommandBecomesTheGame) {
    const GameSystem system{"", "", {"{file}", "a{file}b{file}", "--c", "{file"}};
    EXPECT_EQ(commandFor(system, "/g/one two.game"),
              (Command{"/g/one two.game", "a/g/one two.gameb/g/one two.game", "--c", "{file"}));
}

TEST_F(GameSystemTest, AGameWithTheMarkInItsNameIsPutInOnce) {
    EXPECT_EQ(commandFor({"", "", {"{file}!"}}, "/g/{file}.game"), (Command{"/g/{file}.game!"}));
}

TEST_F(GameSystemTest, AGameBelongsToTheNearestFolderAboveThatDescribesItself) {
    launcher::setGamesRoot("games/");
    device().write("games/Comet/system.json", kWhole);
    device().write("games/Comet/Puzzles/Easy/a.game", "");
    EXPECT_EQ(systemOf("games/Comet/Puzzles/Easy/a.game").name, "Comet Pocket");
    device().write("games/Comet/Puzzles/system.json", R"({"name": "Puzzles of the Comet"})");
    EXPECT_EQ(systemOf("games/Comet/Puzzles/Easy/a.game").name, "Puzzles of the Comet");
}

TEST_F(GameSystemTest, TheFolderOfAllGamesIsTheLastOneThatCounts) {
    launcher::setGamesRoot("games");
    device().write("system.json", R"({"name": "outside", "command": ["no"]})");
    EXPECT_EQ(systemOf("games/Comet/a.game").name, "Comet");
    EXPECT_TRUE(systemOf("games/Comet/a.game").command.empty());
    device().write("games/system.json", R"({"name": "root"})");
    EXPECT_EQ(systemOf("games/Comet/a.game").name, "root");
}

TEST_F(GameSystemTest, OfAGameFromElsewhereItsOwnFolderCountsAlone) {
    launcher::setGamesRoot("games/Comet");
    device().write("games/system.json", R"({"name": "above"})");
    EXPECT_EQ(systemOf("games/Comets/a.game").name, "Comets");
    EXPECT_EQ(systemOf("games/a.game").name, "above");
}

TEST_F(GameSystemTest, PathsAreTakenApartAtTheirLastSlash) {
    EXPECT_EQ(launcher::nameIn("/a/b.c"), "b.c");
    EXPECT_EQ(launcher::nameIn("/a/b/"), "b");
    EXPECT_EQ(launcher::nameIn("b"), "b");
    EXPECT_EQ(launcher::nameIn("/"), "/");
    EXPECT_EQ(launcher::nameIn(""), "");
    EXPECT_EQ(launcher::folderOf("/a/b.c"), "/a");
    EXPECT_EQ(launcher::folderOf("/a//b/"), "/a");
    EXPECT_EQ(launcher::folderOf("/a"), "/");
    EXPECT_EQ(launcher::folderOf("/"), "");
    EXPECT_EQ(launcher::folderOf("b"), "");
}

}  // namespace
