// Keys on the screen, and the walk over them.
#include "letter_pad.h"

#include <gtest/gtest.h>

#include "ostrel/input.h"

using launcher::LetterPad;
using launcher::NextCharacter;
using launcher::typable;
using launcher::withoutLast;

namespace {

std::vector<NextCharacter> characters(const std::vector<std::string>& each) {
    std::vector<NextCharacter> offered;
    for (const std::string& character : each) offered.push_back({character, "词" + character});
    return offered;
}

std::string underCursor(const LetterPad& pad) { return pad.label(pad.cursor()); }

void press(LetterPad& pad, int key, int times) {
    for (int i = 0; i < times; ++i) pad.move(key);
}

TEST(LetterPadTest, ItHasTheLettersAndTheDigits) {
    const LetterPad pad;
    ASSERT_EQ(pad.count(), 36);
    EXPECT_EQ(pad.label(0), "A");
    EXPECT_EQ(pad.label(25), "Z");
    EXPECT_EQ(pad.label(26), "0");
    EXPECT_EQ(pad.label(35), "9");
}

TEST(LetterPadTest, KeysStandInSixColumns) {
    const LetterPad pad;
    EXPECT_EQ(pad.place(0).x, 22);
    EXPECT_EQ(pad.place(0).y, 156);
    EXPECT_EQ(pad.place(5).x, 342);
    EXPECT_EQ(pad.place(6).x, 22);
    EXPECT_EQ(pad.place(6).y, 220);
    EXPECT_EQ(pad.place(35).x, 342);
    EXPECT_EQ(pad.place(35).y, 476);
    EXPECT_EQ(pad.place(35).w, 56);
    EXPECT_EQ(pad.place(35).h, 56);
}

TEST(LetterPadTest, RightStopsAtTheLastColumnAndSaysSo) {
    LetterPad pad;
    for (int i = 0; i < 5; ++i) EXPECT_TRUE(pad.move(KEY_RIGHT));
    EXPECT_FALSE(pad.move(KEY_RIGHT));
    EXPECT_EQ(underCursor(pad), "F");
}

TEST(LetterPadTest, WrapRightGoesToTheFirstColumn) {
    LetterPad pad;
    pad.move(KEY_DOWN);
    press(pad, KEY_RIGHT, 5);
    EXPECT_EQ(underCursor(pad), "L");
    pad.wrapRight();
    EXPECT_EQ(underCursor(pad), "G");
}

TEST(LetterPadTest, LeftGoesRoundTheRow) {
    LetterPad pad;
    pad.move(KEY_LEFT);
    EXPECT_EQ(underCursor(pad), "F");
}

TEST(LetterPadTest, UpAndDownGoRoundTheColumn) {
    LetterPad pad;
    pad.move(KEY_UP);
    EXPECT_EQ(underCursor(pad), "4");
    pad.move(KEY_DOWN);
    EXPECT_EQ(underCursor(pad), "A");
}

TEST(LetterPadTest, OtherKeysMoveNothing) {
    LetterPad pad;
    EXPECT_TRUE(pad.move(KEY_SELECT));
    EXPECT_TRUE(pad.move(KEY_NONE));
    EXPECT_EQ(pad.cursor(), 0);
}

TEST(LetterPadTest, ALetterIsTypedInLowerCase) {
    LetterPad pad;
    pad.move(KEY_RIGHT);
    EXPECT_EQ(pad.typed("x"), "xb");
}

TEST(LetterPadTest, AWordStopsGrowingAfter24Characters) {
    const LetterPad pad;
    const std::string almost(23, 'x');
    EXPECT_EQ(pad.typed(almost), almost + "a");
    EXPECT_EQ(pad.typed(almost + "y"), almost + "y");
}

TEST(LetterPadTest, OfferedCharactersStandInARowOfTheirOwn) {
    LetterPad pad;
    pad.offer(characters({"中", "国"}));
    ASSERT_EQ(pad.count(), 38);
    EXPECT_EQ(pad.label(36), "中");
    EXPECT_EQ(pad.place(37).x, 86);
    EXPECT_EQ(pad.place(37).y, 540);
}

TEST(LetterPadTest, AnOfferedCharacterIsTypedWithItsWord) {
    LetterPad pad;
    pad.offer(characters({"中", "国"}));
    pad.move(KEY_UP);
    EXPECT_EQ(pad.typed("zg"), "词中");
}

TEST(LetterPadTest, UpFromAColumnWithoutAnOfferTakesTheLastOffer) {
    LetterPad pad;
    pad.offer(characters({"中", "国"}));
    press(pad, KEY_RIGHT, 4);
    pad.move(KEY_UP);
    EXPECT_EQ(underCursor(pad), "国");
}

TEST(LetterPadTest, InAShortRowRightLeavesBehindItsLastKey) {
    LetterPad pad;
    pad.offer(characters({"中", "国"}));
    pad.move(KEY_UP);
    EXPECT_TRUE(pad.move(KEY_RIGHT));
    EXPECT_FALSE(pad.move(KEY_RIGHT));
}

TEST(LetterPadTest, TheCursorStaysOnAKeyWhenOffersVanish) {
    LetterPad pad;
    pad.offer(characters({"中", "国", "人"}));
    pad.move(KEY_UP);
    press(pad, KEY_RIGHT, 2);
    pad.offer(characters({"茶"}));
    EXPECT_EQ(underCursor(pad), "茶");
    pad.offer({});
    EXPECT_EQ(underCursor(pad), "9");
}

TEST(LetterPadTest, PagesOfOffersGoRound) {
    LetterPad pad;
    pad.offer(characters({"一", "二", "三", "四", "五", "六", "七", "八"}));
    EXPECT_EQ(pad.count(), 42);
    pad.turnPage(1);
    EXPECT_EQ(pad.count(), 38);
    EXPECT_EQ(pad.label(36), "七");
    pad.turnPage(1);
    EXPECT_EQ(pad.label(36), "一");
    pad.turnPage(-1);
    EXPECT_EQ(pad.label(36), "七");
}

TEST(LetterPadTest, NewOffersBeginWithTheirFirstPage) {
    LetterPad pad;
    pad.offer(characters({"一", "二", "三", "四", "五", "六", "七"}));
    pad.turnPage(1);
    pad.offer(characters({"中"}));
    EXPECT_EQ(pad.label(36), "中");
}

TEST(LetterPadTest, WithoutOffersThereIsNoPageToTurn) {
    LetterPad pad;
    pad.turnPage(1);
    EXPECT_EQ(pad.count(), 36);
}

TEST(LetterPadTest, ErasingTakesAWholeCharacter) {
    EXPECT_EQ(withoutLast("zg"), "z");
    EXPECT_EQ(withoutLast("中国"), "中");
    EXPECT_EQ(withoutLast("é"), "");
    EXPECT_EQ(withoutLast(""), "");
    EXPECT_EQ(withoutLast("a\x80"), "a");
}

TEST(LetterPadTest, AWordFromElsewhereIsNoLongerThanOneThatWasTyped) {
    EXPECT_EQ(typable("中国"), "中国");
    EXPECT_EQ(typable(std::string(100000, 'x')), std::string(24, 'x'));
    EXPECT_EQ(typable(""), "");
}

}  // namespace
