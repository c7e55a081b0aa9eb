// All games below a folder, and the search among them.
#include "game_index.h"

#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "ostrel/pinyin.h"
#include "support/log_capture.h"
#include "support/test_device.h"

namespace fs = std::filesystem;
using launcher::GameIndex;
using launcher::GameRow;
using launcher::NextCharacter;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Words = std::vector<std::string>;

class GameIndexTest : public ostreltest::DeviceTest {
protected:
    GameIndexTest() {
        InitPinYinMap();
        fs::create_directory(kGames);
    }

    void addGames(const Words& names) {
        for (const std::string& name : names) device().write(std::string(kGames) + "/" + name, "");
    }
    static Words titles(const std::vector<GameRow*>& rows) {
        Words found;
        for (const GameRow* row : rows) found.push_back(row->label);
        return found;
    }
    static Words find(const std::string& word) {
        GameIndex index(kGames);
        return titles(index.find(word));
    }
    static Words charactersAfter(const std::string& word, std::size_t most = 6) {
        GameIndex index(kGames);
        Words characters;
        for (const NextCharacter& next : index.nextCharacters(word, most)) characters.push_back(next.character);
        return characters;
    }
    static Words wordsAfter(const std::string& word) {
        GameIndex index(kGames);
        Words words;
        for (const NextCharacter& next : index.nextCharacters(word, 6)) words.push_back(next.word);
        return words;
    }

    static constexpr const char* kGames = "games";
    ostreltest::LogCapture mQuiet;  // the library logs each row
};

TEST_F(GameIndexTest, AnEmptyWordFindsTheGamesOfAllFoldersByTitle) {
    addGames({"Beta.game", "arcade/alpha.game", "arcade/old/Gamma.game"});
    EXPECT_THAT(find(""), ElementsAre("alpha", "Beta", "Gamma"));
}

TEST_F(GameIndexTest, EqualTitlesAreOrderedByPath) {
    addGames({"b/Same.game", "a/Same.game"});
    GameIndex index(kGames);
    ASSERT_EQ(index.size(), 2U);
    EXPECT_EQ(index.find("")[0]->path, "games/a/Same.game");
}

TEST_F(GameIndexTest, InitialsFindAChineseTitle) {
    addGames({"中国象棋.game", "竹谷信使.game", "Chess.game"});
    EXPECT_THAT(find("zgxq"), ElementsAre("中国象棋"));
}

TEST_F(GameIndexTest, LettersFindATitleInEitherCaseAndAnywhere) {
    addGames({"Starling Relay.game", "Evening Star.game", "Moon.game"});
    EXPECT_THAT(find("sTAR"), ElementsAre("Evening Star", "Starling Relay"));
}

TEST_F(GameIndexTest, CharactersFindTheTitleTheyStandIn) {
    addGames({"中国象棋.game", "中国茶馆.game"});
    EXPECT_THAT(find("国茶"), ElementsAre("中国茶馆"));
}

TEST_F(GameIndexTest, AWordOfNoTitleFindsNothing) {
    addGames({"Moon.game"});
    EXPECT_THAT(find("sun"), IsEmpty());
}

TEST_F(GameIndexTest, AWordTypedLetterByLetterFindsWhatItFindsAtOnce) {
    addGames({"Star.game", "Stone.game", "Last Stop.game"});
    GameIndex index(kGames);
    index.find("s");
    index.find("st");
    EXPECT_EQ(titles(index.find("sto")), find("sto"));
    EXPECT_THAT(titles(index.find("sto")), ElementsAre("Last Stop", "Stone"));
}

TEST_F(GameIndexTest, ErasingALetterBringsTheOtherGamesBack) {
    addGames({"Star.game", "Stone.game"});
    GameIndex index(kGames);
    index.find("sta");
    EXPECT_THAT(titles(index.find("st")), ElementsAre("Star", "Stone"));
    EXPECT_THAT(titles(index.find("")), ElementsAre("Star", "Stone"));
}

TEST_F(GameIndexTest, AnotherWordOfTheSameLengthIsLookedForAmongAllGames) {
    addGames({"Moon.game", "Sun.game"});
    GameIndex index(kGames);
    index.find("moon");
    EXPECT_THAT(titles(index.find("sun")), ElementsAre("Sun"));
}

TEST_F(GameIndexTest, HiddenFilesAndFoldersAreLeftOut) {
    addGames({".hidden.game", ".art/Moon.png", "Moon.game"});
    EXPECT_THAT(find(""), ElementsAre("Moon"));
}

TEST_F(GameIndexTest, TheFileThatDescribesAFolderIsNoGame) {
    addGames({"arcade/system.json", "arcade/Moon.game"});
    EXPECT_THAT(find(""), ElementsAre("Moon"));
}

TEST_F(GameIndexTest, WhatIsNeitherFileNorFolderIsLeftOut) {
    addGames({"Moon.game"});
    ASSERT_EQ(mkfifo("games/pipe.game", 0600), 0);
    fs::create_symlink("nowhere", "games/broken.game");
    EXPECT_THAT(find(""), ElementsAre("Moon"));
}

TEST_F(GameIndexTest, LinksThatLeadRoundAreFollowedOnce) {
    addGames({"a/Moon.game", "b/Sun.game"});
    fs::create_directory_symlink("..", "games/a/up");
    fs::create_directory_symlink("../b", "games/a/across");
    fs::create_directory_symlink("self", "games/self");
    EXPECT_THAT(find(""), ElementsAre("Moon", "Sun"));
}

TEST_F(GameIndexTest, AFolderBehindALinkIsRead) {
    device().write("card/Moon.game", "");
    fs::create_directory_symlink("../card", "games/card");
    EXPECT_THAT(find(""), ElementsAre("Moon"));
}

TEST_F(GameIndexTest, AMissingFolderAndAFileInItsPlaceHoldNoGames) {
    addGames({"Moon.game"});
    EXPECT_EQ(GameIndex("nowhere").size(), 0U);
    EXPECT_EQ(GameIndex("games/Moon.game").size(), 0U);
}

// Root may read everything, so the reading is done by another user where the test runs as root.
TEST_F(GameIndexTest, AFolderThatCannotBeReadIsLeftOut) {
    addGames({"locked/Moon.game", "open/Sun.game"});
    chmod(device().root().c_str(), 0755);
    chmod("games/locked", 0);
    const pid_t child = fork();
    if (child == 0) {
        if (getuid() == 0 && setuid(65534) != 0) _exit(2);
        GameIndex index(kGames);
        _exit(titles(index.find("")) == Words{"Sun"} ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    chmod("games/locked", 0755);
    EXPECT_EQ(status, 0);
}

TEST_F(GameIndexTest, NamesOf255BytesAndBrokenTextAreGamesLikeAnyOther) {
    const std::string longName = std::string(250, 'x') + ".game";
    addGames({longName, "\xff\xfe\x80.game", "\xe4\xb8.game"});
    GameIndex index(kGames);
    EXPECT_EQ(index.size(), 3U);
    EXPECT_EQ(index.find("xxx").size(), 1U);
    EXPECT_THAT(index.find("\xfe"), testing::SizeIs(1));
}

TEST_F(GameIndexTest, ReadingStopsAtTheMostGames) {
    for (int i = 0; i < 30; ++i) addGames({std::to_string(i) + ".game"});
    EXPECT_EQ(GameIndex(kGames, 20).size(), 20U);
}

TEST_F(GameIndexTest, OfTwentyFiveThousandFilesTwentyThousandAreGames) {
    for (int i = 0; i < 25000; ++i) std::ofstream("games/" + std::to_string(i) + ".game").flush();
    GameIndex index(kGames);
    EXPECT_EQ(index.size(), 20000U);
}

TEST_F(GameIndexTest, BeforeAnythingIsTypedTheFirstCharactersOfTitlesAreOffered) {
    addGames({"中国茶馆.game", "中国象棋.game", "竹谷信使.game", "Moon.game"});
    EXPECT_THAT(charactersAfter(""), ElementsAre("中", "竹"));
}

TEST_F(GameIndexTest, CharactersBehindTheWordAreOfferedTheMostFrequentFirst) {
    addGames({"一中心.game", "一中央.game", "一大.game"});
    EXPECT_THAT(charactersAfter("一"), ElementsAre("中", "大"));
    EXPECT_THAT(wordsAfter("一"), ElementsAre("一中", "一大"));
}

TEST_F(GameIndexTest, BehindInitialsTheTitlesOwnTextGoesOn) {
    addGames({"新中国象棋.game", "竹谷信使.game"});
    EXPECT_THAT(charactersAfter("zg"), ElementsAre("象", "信"));
    EXPECT_THAT(wordsAfter("zg"), ElementsAre("中国象", "竹谷信"));
}

TEST_F(GameIndexTest, WhatAGamePadCanTypeIsNotOffered) {
    addGames({"Captain 竹谷.game", "Café Noir.game"});
    EXPECT_THAT(charactersAfter("ca"), IsEmpty());
    EXPECT_THAT(charactersAfter("caf"), ElementsAre("é"));
    EXPECT_THAT(wordsAfter("caf"), ElementsAre("Café"));
}

TEST_F(GameIndexTest, AWordAtTheEndOfItsTitleOffersNothing) {
    addGames({"中国.game"});
    EXPECT_THAT(charactersAfter("中国"), IsEmpty());
}

TEST_F(GameIndexTest, NoMoreCharactersAreOfferedThanAskedFor) {
    addGames({"一.game", "二.game", "三.game"});
    EXPECT_EQ(charactersAfter("", 2).size(), 2U);
}

TEST_F(GameIndexTest, ACharacterIsOfferedOnceWhateverItFollows) {
    addGames({"中国人.game", "竹谷人.game"});
    EXPECT_THAT(charactersAfter("zg"), ElementsAre("人"));
}

TEST_F(GameIndexTest, BytesThatAreNoCharacterAreNotOffered) {
    addGames({"\x80\x80.game", "a\xe4\xb8.game"});
    EXPECT_THAT(charactersAfter(""), IsEmpty());
    EXPECT_THAT(charactersAfter("a"), IsEmpty());
}

}  // namespace
