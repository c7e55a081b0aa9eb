#include <gmock/gmock.h>

#include <climits>
#include <ostream>

#include "menu/row_layout.h"

using ostrel::fixRange;
using ostrel::RowRange;

// Found by gtest through the types' own namespaces.
static bool operator==(const SDL_Rect& a, const SDL_Rect& b) { return SDL_RectEquals(&a, &b) == SDL_TRUE; }
static std::ostream& operator<<(std::ostream& out, const SDL_Rect& r) {
    return out << "(" << r.x << ", " << r.y << ", " << r.w << ", " << r.h << ")";
}
namespace ostrel {
static bool operator==(const RowRange& a, const RowRange& b) { return a.first == b.first && a.last == b.last; }
static std::ostream& operator<<(std::ostream& out, const RowRange& r) { return out << r.first << ".." << r.last; }
}  // namespace ostrel

namespace {

// A row of the list between the bars, and what it shows beside its text.
constexpr SDL_Rect kRow{0, 80, 1280, 88};

SDL_Rect textWithoutNumber() { return ostrel::placeColumns(kRow, {false, false, 0}).text; }

}  // namespace

TEST(RowLayoutTest, RowsShareTheHeightThatTheGapsLeave) {
    EXPECT_EQ(ostrel::rowHeight(580, 6, 10), 88);
    EXPECT_EQ(ostrel::rowHeight(580, 5, 10), 108);
    EXPECT_EQ(ostrel::rowHeight(580, 1, 10), 580);
    EXPECT_EQ(ostrel::rowHeight(432, 5, 8), 80);
}

TEST(RowLayoutTest, WithoutGapsTheHeightIsSimplyDivided) {
    EXPECT_EQ(ostrel::rowHeight(580, 6, 0), 96);
    EXPECT_EQ(ostrel::rowHeight(7, 3, 0), 2);
}

TEST(RowLayoutTest, NoRowsOnAPageHaveNoHeight) { EXPECT_EQ(ostrel::rowHeight(580, 0, 10), 0); }

TEST(RowLayoutTest, ANegativeNumberOfRowsGivesANegativeHeight) {
    EXPECT_EQ(ostrel::rowHeight(580, -2, 10), -305);
    EXPECT_EQ(ostrel::rowHeight(580, INT_MIN, 0), 0);
    EXPECT_EQ(ostrel::rowHeight(580, INT_MIN, 10), -10);
}

TEST(RowLayoutTest, AFreshRangeIsTheFirstPage) { EXPECT_EQ(fixRange({0, 0}, 0, 100, 6), (RowRange{0, 5})); }

TEST(RowLayoutTest, AFreshRangeEndsWithAShortList) {
    EXPECT_EQ(fixRange({0, 0}, 0, 1, 6), (RowRange{0, 0}));
    EXPECT_EQ(fixRange({0, 0}, 0, 5, 6), (RowRange{0, 4}));
    EXPECT_EQ(fixRange({0, 0}, 0, 6, 6), (RowRange{0, 5}));
    EXPECT_EQ(fixRange({0, 0}, 0, 7, 6), (RowRange{0, 5}));
}

TEST(RowLayoutTest, ACursorWithinTheRangeLeavesIt) {
    for (const int cursor : {3, 5, 8}) EXPECT_EQ(fixRange({3, 8}, cursor, 100, 6), (RowRange{3, 8}));
}

TEST(RowLayoutTest, ACursorAboveTheRangeBecomesItsFirstRow) {
    EXPECT_EQ(fixRange({3, 8}, 2, 100, 6), (RowRange{2, 7}));
    EXPECT_EQ(fixRange({50, 55}, 0, 100, 6), (RowRange{0, 5}));
}

TEST(RowLayoutTest, ACursorBelowTheRangeBecomesItsLastRow) {
    EXPECT_EQ(fixRange({3, 8}, 9, 100, 6), (RowRange{4, 9}));
    EXPECT_EQ(fixRange({0, 5}, 99, 100, 6), (RowRange{94, 99}));
    EXPECT_EQ(fixRange({0, 0}, 99, 100, 6), (RowRange{94, 99}));
}

TEST(RowLayoutTest, TheRangeNeverBeginsBeforeTheFirstRow) {
    EXPECT_EQ(fixRange({0, 2}, 3, 100, 6), (RowRange{0, 3}));
    EXPECT_EQ(fixRange({0, 5}, -1, 100, 6), (RowRange{0, 4}));
}

TEST(RowLayoutTest, TheRangeEndsWithTheListWhenRowsHaveVanished) {
    EXPECT_EQ(fixRange({4, 9}, 5, 7, 6), (RowRange{4, 6}));
    EXPECT_EQ(fixRange({0, 5}, 0, 1, 6), (RowRange{0, 0}));
}

TEST(RowLayoutTest, ACursorPastTheListLeavesTheRowsThatThereAre) {
    EXPECT_EQ(fixRange({0, 5}, 7, 3, 6), (RowRange{2, 2}));
    EXPECT_EQ(fixRange({0, 5}, 5, 3, 6), (RowRange{0, 2}));
}

TEST(RowLayoutTest, AShortRangeInsideALongListIsKept) { EXPECT_EQ(fixRange({4, 6}, 5, 100, 6), (RowRange{4, 6})); }

TEST(RowLayoutTest, ARangeOfOneRowThatIsTheFirstCountsAsFresh) {
    EXPECT_EQ(fixRange({0, 0}, 0, 7, 1), (RowRange{0, 0}));
    EXPECT_EQ(fixRange({0, 0}, 1, 7, 1), (RowRange{1, 1}));
    EXPECT_EQ(fixRange({1, 1}, 0, 7, 1), (RowRange{0, 0}));
}

TEST(RowLayoutTest, AMillionRowsAreNoDifferentFromAHundred) {
    EXPECT_EQ(fixRange({0, 0}, 999'999, 1'000'000, 6), (RowRange{999'994, 999'999}));
    EXPECT_EQ(fixRange({999'994, 999'999}, 0, 1'000'000, 6), (RowRange{0, 5}));
}

TEST(RowLayoutTest, WithNoRowsOnAPageNoneIsVisible) {
    for (const int perPage : {0, -1, -3}) {
        RowRange range{0, 0};
        for (const int cursor : {0, 1, 5, 0}) {
            range = fixRange(range, cursor, 7, perPage);
            EXPECT_GT(range.first, range.last) << perPage;
        }
    }
}

TEST(RowLayoutTest, ExtremePageSizesOverflowNothing) {
    EXPECT_EQ(fixRange({0, 0}, 0, 7, INT_MAX), (RowRange{0, 6}));
    const RowRange none = fixRange({0, 0}, 3, 7, INT_MIN + 10);
    EXPECT_GT(none.first, none.last);
}

TEST(RowLayoutTest, RowsFollowEachOtherWithTheirGap) {
    const SDL_Rect list{4, 80, 1280, 580};
    EXPECT_EQ(ostrel::placeRow(list, 88, 10, 0), (SDL_Rect{4, 80, 1280, 88}));
    EXPECT_EQ(ostrel::placeRow(list, 88, 10, 1), (SDL_Rect{4, 178, 1280, 88}));
    EXPECT_EQ(ostrel::placeRow(list, 88, 10, 5), (SDL_Rect{4, 570, 1280, 88}));
}

TEST(RowLayoutTest, ABackgroundOfTheRowsHeightStandsAtItsInset) {
    const ostrel::ImagePart part = ostrel::placeBackground(kRow, {1260, 88}, 10);
    EXPECT_EQ(part.source, (SDL_Rect{0, 0, 1260, 88}));
    EXPECT_EQ(part.target, (SDL_Rect{10, 80, 1260, 88}));
}

TEST(RowLayoutTest, ALowerBackgroundMovesDownByHalfOfWhatIsMissing) {
    const ostrel::ImagePart part = ostrel::placeBackground(kRow, {1260, 79}, 10);
    EXPECT_EQ(part.source, (SDL_Rect{0, 0, 1260, 79}));
    EXPECT_EQ(part.target, (SDL_Rect{10, 84, 1260, 79}));
}

TEST(RowLayoutTest, ALargerBackgroundIsCutToTheRowAndNotStretched) {
    const ostrel::ImagePart part = ostrel::placeBackground({5, 80, 600, 88}, {1260, 108}, 10);
    EXPECT_EQ(part.source, (SDL_Rect{0, 0, 600, 88}));
    EXPECT_EQ(part.target, (SDL_Rect{15, 80, 600, 88}));
}

TEST(RowLayoutTest, TheMarkerStandsInTheMiddleOfTheRow) {
    EXPECT_EQ(ostrel::placeMarker(kRow, {16, 32}), (SDL_Rect{28, 108, 16, 32}));
    EXPECT_EQ(ostrel::placeMarker(kRow, {16, 33}), (SDL_Rect{28, 107, 16, 33}));
}

TEST(RowLayoutTest, ANumberColumnPushesTheText) {
    const ostrel::RowColumns columns = ostrel::placeColumns(kRow, {true, false, 0});
    EXPECT_EQ(columns.number, (SDL_Rect{28, 85, 60, 83}));
    EXPECT_EQ(columns.text, (SDL_Rect{95, 80, 1160, 88}));
}

TEST(RowLayoutTest, WithoutANumberTheTextBeginsAtTheLeft) {
    EXPECT_EQ(textWithoutNumber(), (SDL_Rect{30, 80, 1220, 88}));
}

TEST(RowLayoutTest, TheMarkerPushesNumberAndTextByItsWidthAndTwo) {
    const ostrel::RowColumns columns = ostrel::placeColumns(kRow, {true, true, 16});
    EXPECT_EQ(columns.number, (SDL_Rect{46, 85, 60, 83}));
    EXPECT_EQ(columns.text, (SDL_Rect{113, 80, 1144, 88}));
    EXPECT_EQ(ostrel::placeColumns(kRow, {false, true, 16}).text, (SDL_Rect{48, 80, 1204, 88}));
}

TEST(RowLayoutTest, AMarkerWithoutWidthStillPushesByTwo) {
    EXPECT_EQ(ostrel::placeColumns(kRow, {false, true, 0}).text, (SDL_Rect{32, 80, 1220, 88}));
}

TEST(RowLayoutTest, TheIconStandsAtTheStartOfTheTextInTheMiddleOfTheRow) {
    EXPECT_EQ(ostrel::placeIcon(textWithoutNumber(), {64, 64}), (SDL_Rect{30, 92, 64, 64}));
    EXPECT_EQ(ostrel::placeIcon(textWithoutNumber(), {64, 100}), (SDL_Rect{30, 74, 64, 100}));
}

TEST(RowLayoutTest, AnIconMovesTheTextBySevenAndShortensItByFive) {
    EXPECT_EQ(ostrel::textPastIcon(textWithoutNumber(), 64), (SDL_Rect{101, 80, 1151, 88}));
}

TEST(RowLayoutTest, ALabelStandsTwoPixelsAboveTheMiddle) {
    EXPECT_EQ(ostrel::placeLabel(textWithoutNumber(), 43, false), (SDL_Rect{30, 100, 1220, 88}));
    EXPECT_EQ(ostrel::placeLabel(textWithoutNumber(), 44, false), (SDL_Rect{30, 100, 1220, 88}));
    EXPECT_EQ(ostrel::placeLabel(textWithoutNumber(), 0, false), (SDL_Rect{30, 122, 1220, 88}));
}

TEST(RowLayoutTest, ACentredLabelTakesTheRowAsItIs) {
    EXPECT_EQ(ostrel::placeLabel(textWithoutNumber(), 43, true), (SDL_Rect{30, 80, 1220, 88}));
}

TEST(RowLayoutTest, TheTwoLinesOfARowEndSixtyAndNinetyBelowItsTop) {
    EXPECT_EQ(ostrel::placeUpperLabel(textWithoutNumber(), 43), (SDL_Rect{30, 97, 1220, 88}));
    EXPECT_EQ(ostrel::placeSubLabel(textWithoutNumber(), 29), (SDL_Rect{30, 141, 1220, 29}));
}
