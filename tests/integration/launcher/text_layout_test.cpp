// The start of a text file, cut into lines.
#include "text_layout.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "support/test_device.h"

namespace {

using launcher::readTextStart;
using launcher::wrapLines;
using Lines = std::vector<std::string>;

class TextLayoutTest : public ostreltest::DeviceTest {
protected:
    TextLayoutTest() {
        TTF_Init();
        mFont = TTF_OpenFont(OSTREL_TEST_FONT, 36);
    }
    ~TextLayoutTest() override {
        TTF_CloseFont(mFont);
        TTF_Quit();
    }
    std::string readBack(const std::string& bytes) {
        device().write("a.txt", bytes);
        return readTextStart("a.txt");
    }
    TTF_Font* mFont;
};

TEST_F(TextLayoutTest, TextIsReadWithTabsAsSpacesAndPlainLineEnds) {
    EXPECT_EQ(readBack("one\ttwo\r\n三\n"), "one two\n三\n");
}

TEST_F(TextLayoutTest, WhatIsNoTextIsNotShown) {
    EXPECT_EQ(readBack(std::string("a\0b", 3)), "");
    EXPECT_EQ(readBack("a\xFF"), "");
    EXPECT_EQ(readBack("a\xE4 b"), "");
    EXPECT_EQ(readTextStart("missing.txt"), "");
}

TEST_F(TextLayoutTest, APipeIsNotWaitedFor) {
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    EXPECT_EQ(readTextStart("pipe"), "");
}

TEST_F(TextLayoutTest, AReadThatStopsInsideACharacterLeavesThatCharacterOut) {
    EXPECT_EQ(readBack(std::string(4095, 'a') + "中文"), std::string(4095, 'a'));
}

TEST_F(TextLayoutTest, LinesThatFitStayAsTheyAre) {
    EXPECT_EQ(wrapLines("one\n\ntwo\n", mFont, 1000, 8), (Lines{"one", "", "two"}));
}

TEST_F(TextLayoutTest, ALongLineBreaksAtASpace) {
    EXPECT_EQ(wrapLines("lantern lantern lantern", mFont, 300, 8), (Lines{"lantern lantern", "lantern"}));
}

TEST_F(TextLayoutTest, ALongLineWithoutSpacesBreaksBetweenCharacters) {
    EXPECT_EQ(wrapLines("一二三四五", mFont, 80, 8), (Lines{"一二", "三四", "五"}));
}

TEST_F(TextLayoutTest, NoMoreLinesThanAskedFor) { EXPECT_EQ(wrapLines("a\nb\nc", mFont, 300, 2), (Lines{"a", "b"})); }

TEST_F(TextLayoutTest, ACharacterWiderThanTheLineStandsAlone) {
    EXPECT_EQ(wrapLines("中文", mFont, 3, 8), (Lines{"中", "文"}));
}

TEST_F(TextLayoutTest, AHeadingIsCutWhereItsPlaceEnds) {
    EXPECT_EQ(launcher::cutToFit(mFont, "一二三", 400), "一二三");
    // (200 - 20) * 9 / 10 = 162 pixels: the fifth character of 36 reaches them.
    EXPECT_EQ(launcher::cutToFit(mFont, "一二三四五六七", 200), "一二三四五...");
}

TEST_F(TextLayoutTest, NoFontGivesNoLines) { EXPECT_TRUE(wrapLines("a", nullptr, 300, 8).empty()); }

}  // namespace
