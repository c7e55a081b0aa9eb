// An entry of a games folder as a row: its texts, when they are read, and what is no row.
#include "game_row.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "ostrel/dir_browser.h"
#include "ostrel/language.h"
#include "ostrel/pinyin.h"
#include "ostrel/system_settings.h"
#include "support/test_device.h"
#include "texts.h"

namespace {

using launcher::GameRow;
using launcher::isListed;
using launcher::makeGameRow;
using launcher::sizeText;
using launcher::titleOf;

class GameRowTest : public ostreltest::DeviceTest {
protected:
    GameRowTest() {
        launcher::addTexts();
        initLang();
        setSystemLanguage("en.lang");
        InitPinYinMap();
    }
    static GameRow game(const std::string& name) { return {name, "games/" + name, /*isFolder=*/false, nullptr}; }
    static GameRow folder(const std::string& name) { return {name, "games/" + name, /*isFolder=*/true, nullptr}; }
};

TEST_F(GameRowTest, AFileIsTitledWithoutItsEnding) {
    EXPECT_EQ(titleOf("Quiet Meteor.game", false), "Quiet Meteor");
    EXPECT_EQ(titleOf("No. 9.game", false), "No. 9");
    EXPECT_EQ(titleOf("none", false), "none");
    EXPECT_EQ(titleOf("竹谷信使.game", false), "竹谷信使");
}

TEST_F(GameRowTest, AFolderKeepsItsWholeName) { EXPECT_EQ(titleOf("Hearth 1.6", true), "Hearth 1.6"); }

TEST_F(GameRowTest, ControlCharactersOfANameAreSpacesInItsTitle) {
    EXPECT_EQ(titleOf("one\ntwo\tthree\x7F.game", false), "one two three ");
}

TEST_F(GameRowTest, SizesAreToldInTheLargestUnitThatFits) {
    EXPECT_EQ(sizeText(0), "0 B");
    EXPECT_EQ(sizeText(1023), "1023 B");
    EXPECT_EQ(sizeText(1536), "1.5 KB");
    EXPECT_EQ(sizeText(12U * 1024 * 1024), "12 MB");
    EXPECT_EQ(sizeText(std::uintmax_t{3} << 40), "3072 GB");
}

TEST_F(GameRowTest, HiddenEntriesTheWayUpAndDescriptionsAreNotListed) {
    EXPECT_TRUE(isListed("a.game"));
    EXPECT_TRUE(isListed("system.json.game"));
    EXPECT_FALSE(isListed(".art"));
    EXPECT_FALSE(isListed("."));
    EXPECT_FALSE(isListed(".."));
    EXPECT_FALSE(isListed("system.json"));
    EXPECT_EQ(makeGameRow("..", "games/..", DIR_ENTRY_FOLDER, nullptr), nullptr);
}

TEST_F(GameRowTest, ASampleGameTellsItsFirstLine) {
    device().write("games/a.game", "Puzzle, one player\nThe rest.\n");
    EXPECT_EQ(game("a.game").getSubLabel(), "Puzzle, one player");
}

TEST_F(GameRowTest, AnyOtherFileTellsItsKindAndSize) {
    device().write("games/a.bin", std::string(1536, '\0'));
    device().write("games/b.game", std::string(3, '\0'));
    device().write("games/c", "abc");
    EXPECT_EQ(game("a.bin").getSubLabel(), "BIN · 1.5 KB");
    EXPECT_EQ(game("b.game").getSubLabel(), "GAME · 3 B");
    EXPECT_EQ(game("c").getSubLabel(), "File · 3 B");
    EXPECT_EQ(game("gone.bin").getSubLabel(), "BIN");
}

TEST_F(GameRowTest, AFolderTellsTheNameOfItsSystemAndHowManyEntriesItHas) {
    for (const char* name : {"a.game", "b.game", ".hidden", "More/c.game", ".art/a.png"}) {
        device().write(std::string("games/Comet/") + name, "");
    }
    device().write("games/Comet/system.json", R"({"name": "Comet Pocket"})");
    GameRow row = folder("Comet");
    EXPECT_EQ(row.getLabel(), "Comet Pocket");
    EXPECT_NE(row.getSubLabel().find('3'), std::string::npos);
}

TEST_F(GameRowTest, AFolderIsRenamedWithTheLanguage) {
    device().write("games/Comet/system.json", R"({"name": "Comet Pocket", "name.ch.lang": "彗星掌机"})");
    GameRow row = folder("Comet");
    EXPECT_TRUE(row.matches("cp") || row.matches("comet"));
    setSystemLanguage("ch.lang");
    EXPECT_EQ(row.getLabel(), "彗星掌机");
    EXPECT_TRUE(row.matches("hx"));
    EXPECT_FALSE(row.matches("comet"));
}

TEST_F(GameRowTest, ARowReadsNothingBeforeItIsDrawn) {
    GameRow row = game("late.game");
    EXPECT_EQ(row.getLabel(), "late");
    EXPECT_TRUE(row.matches("LA"));
    device().write("games/late.game", "Written behind the row's back");
    EXPECT_EQ(row.getSubLabel(), "Written behind the row's back");
}

TEST_F(GameRowTest, WhatWasReadIsKept) {
    device().write("games/a.game", "First");
    GameRow row = game("a.game");
    EXPECT_EQ(row.getSubLabel(), "First");
    device().write("games/a.game", "Second");
    EXPECT_EQ(row.getSubLabel(), "First");
}

TEST_F(GameRowTest, ATitleIsFoundByItsTextAndByItsInitials) {
    GameRow row = game("竹谷 Post.game");
    EXPECT_TRUE(row.matches("zg"));
    EXPECT_TRUE(row.matches("ZG P"));
    EXPECT_TRUE(row.matches("谷"));
    EXPECT_TRUE(row.matches("post"));
    EXPECT_FALSE(row.matches("gz"));
    EXPECT_FALSE(row.matches(""));
}

TEST_F(GameRowTest, InitialsAreOneByteForEachCharacter) { EXPECT_EQ(game("竹谷 9か.game").getTextD(), "zg 9 "); }

TEST_F(GameRowTest, NamesThatAreNoTextMakeRowsToo) {
    const std::string odd = std::string("\xFF\xC3(") + std::string(240, '\x80');
    device().write("games/" + odd + ".game", "text");
    GameRow row = game(odd + ".game");
    EXPECT_EQ(row.getLabel(), odd);
    EXPECT_EQ(row.getSubLabel(), "text");
    EXPECT_FALSE(row.matches("zg"));
}

TEST_F(GameRowTest, TheFileOfThePictureIsTheGamesOwn) {
    device().write("games/.art/a.png", "");
    EXPECT_EQ(game("a.game").art(), "games/.art/a.png");
    EXPECT_EQ(game("b.game").art(), "");
    EXPECT_EQ(folder("b").art(), "");
}

TEST_F(GameRowTest, OfTwentyFiveThousandGamesTheFirstTwentyThousandAreListed) {
    std::filesystem::create_directory("many");
    device().write("seed", "");
    for (int i = 0; i < 25000; ++i) std::filesystem::create_hard_link("seed", "many/" + std::to_string(i) + ".game");
    DirBrowser browser(nullptr, [](const char* name, const char* path, int type) -> TextMenuItem* {
        return makeGameRow(name, path, type, nullptr);
    });
    EXPECT_EQ(browser.LoadDir("many", nullptr)->size(), 20000U);
}

TEST_F(GameRowTest, LinksThatLeadRoundInACircleAreNoRows) {
    std::filesystem::create_directory("games");
    std::filesystem::create_symlink("b", "games/a");
    std::filesystem::create_symlink("a", "games/b");
    DirBrowser browser(nullptr, [](const char* name, const char* path, int type) -> TextMenuItem* {
        return makeGameRow(name, path, type, nullptr);
    });
    EXPECT_TRUE(browser.LoadDir("games", nullptr)->empty());
}

}  // namespace
