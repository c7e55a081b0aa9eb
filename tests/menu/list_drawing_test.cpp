// Whole lists on a canvas: what a row shows and where. The expected pictures are drawn by hand, call by call.
#include <algorithm>
#include <functional>
#include <memory>

#include "ostrel/bars.h"
#include "ostrel/language.h"
#include "ostrel/log.h"
#include "ostrel/menu_item.h"
#include "ostrel/pinyin.h"
#include "ostrel/screen.h"
#include "ostrel/skin.h"
#include "ostrel/text.h"
#include "ostrel/text_menu.h"
#include "support/log_capture.h"
#include "support/screen_test.h"

using ostreltest::Canvas;
using ostreltest::Colour;
using ostreltest::kBlack;
using ostreltest::LogCapture;
using ostreltest::Picture;
using ostreltest::picturesMatch;
using ostreltest::plainSurface;
using ostreltest::ScreenTest;

namespace {

constexpr Colour kDarkRed{200, 0, 0, 255};
constexpr Colour kDarkBlue{0, 0, 200, 255};
constexpr SDL_Color kLabel{240, 240, 255, 255};
constexpr SDL_Color kSubLabel{160, 200, 0, 255};
constexpr SDL_Color kNumber{0, 200, 255, 255};
constexpr SDL_Color kCounter{255, 120, 0, 255};
constexpr SDL_Color kHit{54, 255, 160, 0};

// The font is 43 high at the labels' 36 points and 29 at the 24 of everything else. A row is 88 high and the first one
// begins at y 80, so its label stands at 80 + (88 - 43) / 2 - 2 = 100.
class ListDrawingTest : public ScreenTest {
protected:
    ListDrawingTest() {
        initLogger(0);
        device().linkFont();
        const LogCapture quiet;
        init_shared_skin();
        InitPinYinMap();
        gListColorTxt = kLabel;
        gListColorSubtxt = kSubLabel;
        gListColorSeq = kNumber;
        gStatColorTxt = kCounter;
        menu = std::make_unique<TextMenu>(nullptr, nullptr, 6, 10);
        menu->showListNum = false;
        menu->showStatNum = false;
    }
    ~ListDrawingTest() override {
        menu.reset();
        uninit_shared_skin();
    }

    TextMenuItem* add(const char* label) {
        auto* item = new TextMenuItem(label, nullptr, nullptr, false);
        menu->insertItem(item);
        return item;
    }
    void addRows(int count) {
        for (int i = 1; i <= count; ++i) add(("Row " + std::to_string(i)).c_str());
    }

    static Picture paint(const std::function<void()>& draw) {
        const Canvas canvas(1280, 720, kBlack);
        draw();
        return canvas.picture();
    }
    Picture drawn() {
        return paint([this] { menu->draw(); });
    }

    static void text(TTF_Font* font, int x, int y, const char* words, SDL_Color colour, bool shadow = false) {
        DrawString(font, {x, y, 0, 0}, words, colour, 0, shadow, false);
    }
    static void label(int x, int y, const char* words) { text(gListFontTxt, x, y, words, kLabel); }
    static int widthOf(const char* words, SDL_Color colour = kLabel) {
        return DrawString(gListFontTxt, {}, words, colour, 0, false, true);
    }

    std::unique_ptr<TextMenu> menu;
};

// A provider of one icon and its part.
class IconRow : public TextMenuItem {
public:
    IconRow(const char* words, OstrelSurface* image) : TextMenuItem(words, image, nullptr, false) {}
    SDL_Rect* getIconRect() override { return part.w > 0 ? &part : nullptr; }
    SDL_Rect part{};
};

// An image whose columns are all different, so that stretching and shifting show.
std::unique_ptr<OstrelSurface> stripes(int width, int height) {
    SDL_Surface* pixels = create_surface(width, height);
    for (int x = 0; x < width; ++x) {
        const SDL_Rect column{x, 0, 1, height};
        SDL_FillRect(pixels, &column,
                     SDL_MapRGBA(pixels->format, static_cast<Uint8>(x & 255), static_cast<Uint8>(x >> 8), 90, 255));
    }
    return std::make_unique<SDL2OstrelSurface>(SDL_CreateTextureFromSurface(gRenderer, pixels), pixels);
}

TEST_F(ListDrawingTest, TheFontHasTheHeightsThatThePlacesBelowCountOn) {
    ASSERT_NE(gListFontTxt, nullptr);
    EXPECT_EQ(TTF_FontHeight(gListFontTxt), 43);
    EXPECT_EQ(TTF_FontHeight(gListFontSubtxt), 29);
    EXPECT_EQ(TTF_FontHeight(gStatFont), 29);
}

TEST_F(ListDrawingTest, LabelsStandInTheirRowsFromXThirty) {
    addRows(3);
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  label(30, 100, "Row 1");
                                  label(30, 198, "Row 2");
                                  label(30, 296, "Row 3");
                              })));
}

TEST_F(ListDrawingTest, LabelsTakeTheListsOwnColour) {
    add("Row");
    menu->textColor = {255, 0, 255, 255};
    EXPECT_TRUE(picturesMatch(drawn(), paint([] { text(gListFontTxt, 30, 100, "Row", {255, 0, 255, 255}); })));
}

TEST_F(ListDrawingTest, AnEmptyListDrawsNothing) {
    menu->showListNum = true;
    menu->showStatNum = true;
    EXPECT_EQ(drawn().count(kBlack), 1280 * 720);
    EXPECT_EQ(menu->mLastIndex, 0);
}

TEST_F(ListDrawingTest, ARowWithoutTextDrawsNone) {
    add("");
    EXPECT_EQ(drawn().count(kBlack), 1280 * 720);
}

TEST_F(ListDrawingTest, AFullPageShowsSixRowsAndKeepsTheRange) {
    addRows(8);
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  label(30, 100, "Row 1");
                                  label(30, 198, "Row 2");
                                  label(30, 296, "Row 3");
                                  label(30, 394, "Row 4");
                                  label(30, 492, "Row 5");
                                  label(30, 590, "Row 6");
                              })));
    EXPECT_EQ(menu->mFirstIndex, 0);
    EXPECT_EQ(menu->mLastIndex, 5);
}

TEST_F(ListDrawingTest, TheRangeFollowsTheCursor) {
    addRows(8);
    drawn();
    menu->mCurIndex = 7;
    const Picture bottom = drawn();
    EXPECT_EQ(menu->mFirstIndex, 2);
    EXPECT_EQ(menu->mLastIndex, 7);
    EXPECT_TRUE(picturesMatch(bottom, paint([] {
                                  label(30, 100, "Row 3");
                                  label(30, 198, "Row 4");
                                  label(30, 296, "Row 5");
                                  label(30, 394, "Row 6");
                                  label(30, 492, "Row 7");
                                  label(30, 590, "Row 8");
                              })));
    menu->mCurIndex = 1;
    drawn();
    EXPECT_EQ(menu->mFirstIndex, 1);
    EXPECT_EQ(menu->mLastIndex, 6);
}

TEST_F(ListDrawingTest, AListElsewhereDrawsInItsOwnRectangle) {
    addRows(2);
    SDL_Rect panel{386, 144, 508, 432};
    menu->updateRectAndNum(panel, 4);  // rows of 100
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  label(416, 170, "Row 1");
                                  label(416, 280, "Row 2");
                              })));
}

TEST_F(ListDrawingTest, WithNoRowsAPageNothingIsDrawn) {
    addRows(3);
    SDL_Rect screen{0, 80, 1280, 580};
    for (const int perPage : {0, -4}) {
        menu->updateRectAndNum(screen, perPage);
        EXPECT_EQ(drawn().count(kBlack), 1280 * 720) << perPage;
        EXPECT_EQ(drawn().count(kBlack), 1280 * 720) << perPage;
    }
}

TEST_F(ListDrawingTest, TheCursorsRowTakesTheSelectedBackgroundAndTheOthersTheNormalOne) {
    menu->selBg = plainSurface(100, 88, kDarkRed).release();
    menu->normalBg = plainSurface(100, 88, kDarkBlue).release();
    menu->insertItem(new TextMenuItem("", nullptr, nullptr, false));
    menu->insertItem(new TextMenuItem("", nullptr, nullptr, false));
    menu->mCurIndex = 1;
    const Picture picture = drawn();
    EXPECT_EQ(picture.count(kDarkBlue), 100 * 88);
    EXPECT_EQ(picture.count(kDarkRed), 100 * 88);
    EXPECT_EQ(picture.at(10, 80), kDarkBlue);
    EXPECT_EQ(picture.at(109, 167), kDarkBlue);
    EXPECT_EQ(picture.at(10, 178), kDarkRed);
    EXPECT_EQ(picture.at(109, 265), kDarkRed);
}

TEST_F(ListDrawingTest, WithoutFocusTheCursorsRowTakesTheNormalBackground) {
    menu->selBg = plainSurface(100, 88, kDarkRed).release();
    menu->normalBg = plainSurface(100, 88, kDarkBlue).release();
    add("");
    menu->setFocus(false);
    const Picture picture = drawn();
    EXPECT_EQ(picture.count(kDarkBlue), 100 * 88);
    EXPECT_EQ(picture.count(kDarkRed), 0);
}

TEST_F(ListDrawingTest, AnIgnoredSelectedBackgroundLeavesTheCursorsRowBare) {
    menu->selBg = plainSurface(100, 88, kDarkRed).release();
    menu->normalBg = plainSurface(100, 88, kDarkBlue).release();
    add("");
    add("");
    menu->ignoreSelBG(true);
    const Picture picture = drawn();
    EXPECT_EQ(picture.count(kDarkBlue), 100 * 88);
    EXPECT_EQ(picture.count(kDarkRed), 0);
    EXPECT_EQ(picture.at(10, 80), kBlack);
}

TEST_F(ListDrawingTest, TheBackgroundsInsetIsTheListsOwn) {
    menu->selBg = plainSurface(100, 88, kDarkRed).release();
    menu->bgInset = 25;
    add("");
    const SDL_Rect bounds = drawn().boundsOfAllBut(kBlack);
    EXPECT_EQ(bounds.x, 25);
    EXPECT_EQ(bounds.w, 100);
}

TEST_F(ListDrawingTest, ALowerBackgroundStandsInTheMiddleOfItsRow) {
    menu->selBg = plainSurface(100, 79, kDarkRed).release();
    add("");
    const SDL_Rect bounds = drawn().boundsOfAllBut(kBlack);
    EXPECT_EQ(bounds.y, 84);
    EXPECT_EQ(bounds.h, 79);
}

TEST_F(ListDrawingTest, AWideBackgroundIsCutAtTheListsWidthAndNotStretched) {
    menu->selBg = stripes(700, 120).release();
    SDL_Rect panel{100, 200, 508, 88};
    menu->updateRectAndNum(panel, 1);
    add("");
    const Picture picture = drawn();
    const SDL_Rect bounds = picture.boundsOfAllBut(kBlack);
    EXPECT_EQ(bounds.x, 110);
    EXPECT_EQ(bounds.y, 200);
    EXPECT_EQ(bounds.w, 508);
    EXPECT_EQ(bounds.h, 88);
    EXPECT_EQ(picture.at(110, 200), (Colour{0, 0, 90, 255}));
    EXPECT_EQ(picture.at(310, 200), (Colour{200, 0, 90, 255}));
    EXPECT_EQ(picture.at(617, 287), (Colour{251, 1, 90, 255}));
}

TEST_F(ListDrawingTest, ANarrowBackgroundKeepsItsWidth) {
    menu->selBg = stripes(300, 88).release();
    add("");
    const Picture picture = drawn();
    EXPECT_EQ(picture.boundsOfAllBut(kBlack).w, 300);
    EXPECT_EQ(picture.at(309, 80), (Colour{43, 1, 90, 255}));
}

TEST_F(ListDrawingTest, TheMarkerStandsOnTheCursorsRowAndEveryRowMakesRoom) {
    const auto mark = plainSurface(16, 32, kDarkRed);
    menu->selMark = mark.get();
    addRows(2);
    menu->mCurIndex = 1;
    EXPECT_TRUE(picturesMatch(drawn(), paint([&mark] {
                                  label(48, 100, "Row 1");
                                  SDL_Rect place{28, 206, 0, 0};
                                  mark->render(nullptr, &place, true, nullptr);
                                  label(48, 198, "Row 2");
                              })));
}

TEST_F(ListDrawingTest, TheMarkerStaysWithoutFocus) {
    const auto mark = plainSurface(16, 32, kDarkRed);
    menu->selMark = mark.get();
    addRows(1);
    menu->setFocus(false);
    EXPECT_EQ(drawn().count(kDarkRed), 16 * 32);
}

TEST_F(ListDrawingTest, NumbersStandCentredInTheirColumnBeforeTheText) {
    menu->showListNum = true;
    addRows(2);
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  DrawString(gListFontSubtxt, {28, 85, 60, 83}, "0001", kNumber, 1, false, false);
                                  label(95, 100, "Row 1");
                                  DrawString(gListFontSubtxt, {28, 183, 60, 83}, "0002", kNumber, 1, false, false);
                                  label(95, 198, "Row 2");
                              })));
}

TEST_F(ListDrawingTest, TheMarkerPushesTheNumber) {
    const auto mark = plainSurface(16, 32, kDarkRed);
    menu->selMark = mark.get();
    menu->showListNum = true;
    addRows(1);
    EXPECT_TRUE(picturesMatch(drawn(), paint([&mark] {
                                  SDL_Rect place{28, 108, 0, 0};
                                  mark->render(nullptr, &place, true, nullptr);
                                  DrawString(gListFontSubtxt, {46, 85, 60, 83}, "0001", kNumber, 1, false, false);
                                  label(113, 100, "Row 1");
                              })));
}

TEST_F(ListDrawingTest, ANumberHasFourDigitsAndEndsAt9999) {
    const std::pair<int, const char*> numbers[] = {{7, "0007"},     {42, "0042"},    {9999, "9999"},
                                                   {10000, "9999"}, {12345, "9999"}, {-3, "-003"}};
    for (const auto& [number, words] : numbers) {
        SDL_Rect box{100, 100, 80, 50};
        const Picture actual = paint([&, number = number] { menu->drawListNum(number, box, gListFontSubtxt); });
        const Picture expected =
            paint([&box, words = words] { DrawString(gListFontSubtxt, box, words, kNumber, 1, false, false); });
        EXPECT_TRUE(picturesMatch(actual, expected)) << number;
    }
}

TEST_F(ListDrawingTest, ANumberWithoutAFontIsNotDrawn) {
    SDL_Rect box{100, 100, 80, 50};
    EXPECT_EQ(paint([&] { menu->drawListNum(1, box, nullptr); }).count(kBlack), 1280 * 720);
}

TEST_F(ListDrawingTest, NumbersAreDrawnThroughTheTable) {
    class OwnNumbers : public TextMenu {
    public:
        OwnNumbers() : TextMenu(nullptr, nullptr, 6, 10) {}
        void drawListNum(int num, SDL_Rect& rect, TTF_Font* font) override {
            numbers.push_back(num);
            rects.push_back(rect);
            fonts.push_back(font);
        }
        std::vector<int> numbers;
        std::vector<SDL_Rect> rects;
        std::vector<TTF_Font*> fonts;
    } own;
    for (int i = 0; i < 9; ++i) own.insertItem(nullptr);
    own.mCurIndex = 8;
    paint([&own] { own.draw(); });
    EXPECT_EQ(own.numbers, (std::vector<int>{4, 5, 6, 7, 8, 9}));
    ASSERT_EQ(own.rects.size(), 6U);
    EXPECT_EQ(own.rects[5].x, 28);
    EXPECT_EQ(own.rects[5].y, 575);
    EXPECT_EQ(own.rects[5].w, 60);
    EXPECT_EQ(own.rects[5].h, 83);
    EXPECT_EQ(own.fonts[0], gListFontSubtxt);
}

TEST_F(ListDrawingTest, AnIconStandsBeforeTheTextWhereThereAreNoNumbers) {
    const auto icon = plainSurface(64, 50, kDarkRed);
    menu->insertItem(new IconRow("Row", icon.get()));
    EXPECT_TRUE(picturesMatch(drawn(), paint([&icon] {
                                  SDL_Rect place{30, 99, 0, 0};
                                  icon->render(nullptr, &place, true, nullptr);
                                  label(101, 100, "Row");
                              })));
}

TEST_F(ListDrawingTest, NumbersTakeThePlaceOfIcons) {
    const auto icon = plainSurface(64, 50, kDarkRed);
    menu->showListNum = true;
    menu->insertItem(new IconRow("Row", icon.get()));
    EXPECT_EQ(drawn().count(kDarkRed), 0);
}

TEST_F(ListDrawingTest, AnIconRectangleSelectsAPartAndItsSize) {
    const auto icon = stripes(200, 50);
    auto* row = new IconRow("Row", icon.get());
    row->part = {100, 0, 40, 30};
    menu->insertItem(row);
    const Picture picture = drawn();
    EXPECT_EQ(picture.at(30, 109), (Colour{100, 0, 90, 255}));
    EXPECT_EQ(picture.at(69, 138), (Colour{139, 0, 90, 255}));
    EXPECT_EQ(picture.at(29, 109), kBlack);
    EXPECT_EQ(picture.at(70, 109), kBlack);
    EXPECT_EQ(picture.at(30, 108), kBlack);
    EXPECT_EQ(picture.at(30, 139), kBlack);
    EXPECT_TRUE(picturesMatch(picture, paint([&] {
                                  SDL_Rect place{30, 109, 40, 30};
                                  icon->render(&row->part, &place, false, nullptr);
                                  label(77, 100, "Row");
                              })));
}

TEST_F(ListDrawingTest, TheMarkerPushesTheIcon) {
    const auto mark = plainSurface(16, 32, kDarkRed);
    const auto icon = plainSurface(64, 64, kDarkBlue);
    menu->selMark = mark.get();
    menu->insertItem(new IconRow("", icon.get()));
    const Picture picture = drawn();
    EXPECT_EQ(picture.at(48, 92), kDarkBlue);
    EXPECT_EQ(picture.at(47, 92), kBlack);
}

TEST_F(ListDrawingTest, TwoLinesStandAboveEachOther) {
    TextMenuItem* item = add("Row");
    item->hasSubLabel = true;
    item->subLabel = "last played yesterday";
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  label(30, 97, "Row");
                                  text(gListFontSubtxt, 30, 141, "last played yesterday", kSubLabel);
                              })));
}

TEST_F(ListDrawingTest, TheSecondLineFollowsTheTextColumn) {
    const auto icon = plainSurface(64, 64, kDarkBlue);
    menu->insertItem(new IconRow("Row", icon.get()));
    auto* item = static_cast<TextMenuItem*>(menu->getItemByIndex(0));
    item->hasSubLabel = true;
    item->subLabel = "below";
    EXPECT_TRUE(picturesMatch(drawn(), paint([&icon] {
                                  SDL_Rect place{30, 92, 0, 0};
                                  icon->render(nullptr, &place, true, nullptr);
                                  label(101, 97, "Row");
                                  text(gListFontSubtxt, 101, 141, "below", kSubLabel);
                              })));
}

TEST_F(ListDrawingTest, ARowThatIsNotThereYetShowsItsNumberAndTheLoadingText) {
    menu->showListNum = true;
    menu->selBg = plainSurface(100, 88, kDarkRed).release();
    menu->insertItem(nullptr);
    menu->mName = "load";
    EXPECT_TRUE(picturesMatch(drawn(), paint([this] {
                                  SDL_Rect place{10, 80, 0, 0};
                                  menu->selBg->render(nullptr, &place, true, nullptr);
                                  DrawString(gListFontSubtxt, {28, 85, 60, 83}, "0001", kNumber, 1, false, false);
                                  label(95, 100, "LOADING...");
                              })));
}

// A list of its own texts, because the two loading texts of the library are the same word.
TEST_F(ListDrawingTest, TheLoadingTextIsTheInterfaceTextThree) {
    const std::vector<std::string> kept = gDefaultStringList;
    gDefaultStringList = {"zero", "one", "two", "three", "four"};
    menu->insertItem(nullptr);
    EXPECT_TRUE(picturesMatch(drawn(), paint([] { label(30, 100, "three"); })));
    gDefaultStringList = kept;
}

TEST_F(ListDrawingTest, TheLoadingTextStaysLeftInACentredList) {
    menu->textMode = true;
    menu->insertItem(nullptr);
    EXPECT_TRUE(picturesMatch(drawn(), paint([] { label(30, 80, "LOADING..."); })));
}

TEST_F(ListDrawingTest, ARowThatIsNoTextRowCountsAsNotThereYet) {
    class NoRow : public ItemDrawable {
    public:
        NoRow() : ItemDrawable(nullptr) {}
        int draw(SDL_Rect&, bool) override { return 0; }
    } row;
    class OneRow : public TextMenuDrawer {
    public:
        explicit OneRow(ListItem& row) : TextMenuDrawer(nullptr, nullptr, 6, 10), mRow(row) {}
        ListItem* getItemByIndex(int) override { return &mRow; }
        int getListNum() override { return 1; }

    private:
        ListItem& mRow;
    } list(row);
    list.showListNum = false;
    list.showStatNum = false;
    EXPECT_TRUE(picturesMatch(paint([&list] { list.draw(); }), paint([] { label(30, 100, "LOADING..."); })));
}

TEST_F(ListDrawingTest, ACentredLabelStandsInTheMiddleOfTheTextColumn) {
    menu->textMode = true;
    add("Row");
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  DrawString(gListFontTxt, {30, 80, 1220, 88}, "Row", kLabel, 1, false, false);
                              })));
}

TEST_F(ListDrawingTest, ACentredLabelOfTwoLinesIsCentredInARowMovedUp) {
    menu->textMode = true;
    TextMenuItem* item = add("Row");
    item->hasSubLabel = true;
    item->subLabel = "below";
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  DrawString(gListFontTxt, {30, 97, 1220, 88}, "Row", kLabel, 1, false, false);
                                  text(gListFontSubtxt, 30, 141, "below", kSubLabel);
                              })));
}

TEST_F(ListDrawingTest, AMarqueeListDrawsTheCursorsRowWithAShadow) {
    menu->marquee = true;
    for (int i = 0; i < 2; ++i) {
        TextMenuItem* item = add("Row");
        item->hasSubLabel = true;
        item->subLabel = "below";
    }
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  text(gListFontTxt, 30, 97, "Row", kLabel, /*shadow=*/true);
                                  text(gListFontSubtxt, 30, 141, "below", kSubLabel, /*shadow=*/true);
                                  text(gListFontTxt, 30, 195, "Row", kLabel);
                                  text(gListFontSubtxt, 30, 239, "below", kSubLabel);
                              })));
}

TEST_F(ListDrawingTest, AMarqueeListDrawsTheLoadingTextOfTheCursorsRowWithAShadow) {
    menu->marquee = true;
    menu->insertItem(nullptr);
    EXPECT_TRUE(
        picturesMatch(drawn(), paint([] { text(gListFontTxt, 30, 100, "LOADING...", kLabel, /*shadow=*/true); })));
}

TEST_F(ListDrawingTest, ALongLabelIsCutAndEndsInDots) {
    const std::string wide(100, 'W');
    add(wide.c_str());
    const int kept = getTruncateLen(gListFontTxt, wide.c_str(), 0, 1220);
    ASSERT_GT(kept, 10);
    const std::string cut(static_cast<std::size_t>(kept), 'W');
    EXPECT_TRUE(picturesMatch(drawn(), paint([&cut] { label(30, 100, (cut + "...").c_str()); })));
}

TEST_F(ListDrawingTest, ALongLabelIsCutBetweenCharacters) {
    std::string wide;
    for (int i = 0; i < 60; ++i) wide += "中";
    add(wide.c_str());
    const int kept = getTruncateLen(gListFontTxt, wide.c_str(), 0, 1220);
    ASSERT_GT(kept, 10);
    const std::string cut = wide.substr(0, static_cast<std::size_t>(kept) * 3) + "...";
    EXPECT_TRUE(picturesMatch(drawn(), paint([&cut] { label(30, 100, cut.c_str()); })));
}

TEST_F(ListDrawingTest, NumberMarkerAndIconTakeTheirRoomFromBothLines) {
    const std::string wide(300, 'i');
    const auto mark = plainSurface(16, 32, kDarkRed);
    const auto icon = plainSurface(300, 64, kDarkBlue);
    menu->selMark = mark.get();
    auto* row = new IconRow(wide.c_str(), icon.get());
    row->hasSubLabel = true;
    row->subLabel = wide;
    menu->insertItem(row);
    const auto linesAt = [&wide](int x, int width) {
        const auto cut = [&wide, width](TTF_Font* font) {
            return std::string(static_cast<std::size_t>(getTruncateLen(font, wide.c_str(), 0, width)), 'i') + "...";
        };
        label(x, 97, cut(gListFontTxt).c_str());
        text(gListFontSubtxt, x, 141, cut(gListFontSubtxt).c_str(), kSubLabel);
    };
    EXPECT_TRUE(picturesMatch(drawn(), paint([&] {
                                  SDL_Rect place{28, 108, 0, 0};
                                  mark->render(nullptr, &place, true, nullptr);
                                  place = {48, 92, 0, 0};
                                  icon->render(nullptr, &place, true, nullptr);
                                  linesAt(355, 1220 - 16 - 305);
                              })));
    menu->showListNum = true;
    EXPECT_TRUE(picturesMatch(drawn(), paint([&] {
                                  SDL_Rect place{28, 108, 0, 0};
                                  mark->render(nullptr, &place, true, nullptr);
                                  DrawString(gListFontSubtxt, {46, 85, 60, 83}, "0001", kNumber, 1, false, false);
                                  linesAt(113, 1160 - 16);
                              })));
}

TEST_F(ListDrawingTest, ALongSecondLineIsCutByItsOwnFont) {
    const std::string wide(200, 'W');
    TextMenuItem* item = add("Row");
    item->hasSubLabel = true;
    item->subLabel = wide;
    const int kept = getTruncateLen(gListFontSubtxt, wide.c_str(), 0, 1220);
    ASSERT_GT(kept, getTruncateLen(gListFontTxt, wide.c_str(), 0, 1220));
    const std::string cut(static_cast<std::size_t>(kept), 'W');
    EXPECT_TRUE(picturesMatch(drawn(), paint([&cut] {
                                  label(30, 97, "Row");
                                  text(gListFontSubtxt, 30, 141, (cut + "...").c_str(), kSubLabel);
                              })));
}

TEST_F(ListDrawingTest, AListOfTwentyPixelsCutsNothing) {
    SDL_Rect narrow{0, 80, 80, 580};
    menu->updateRectAndNum(narrow, 6);
    add("A label");
    EXPECT_TRUE(picturesMatch(drawn(), paint([] { label(30, 100, "A label"); })));
}

TEST_F(ListDrawingTest, InvalidBytesAreCutAndDrawnWithoutHarm) {
    std::string broken;
    for (int i = 0; i < 80; ++i) broken += "\xE4\xB8\x96\xFF";
    broken += '\xE4';
    add(broken.c_str());
    add("\xFF\xFE");
    add("abc\xE4\xB8");
    menu->mName = "c";
    drawn();
}

TEST_F(ListDrawingTest, AHitIsDrawnInTheHighlightColourBetweenTheRest) {
    add("Super Racing 2");
    menu->mName = "racing";
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  const int hitX = 30 + widthOf("Super ");
                                  const int restX = hitX + widthOf("Racing", kHit);
                                  label(30, 100, "Super ");
                                  text(gListFontTxt, hitX, 100, "Racing", kHit);
                                  label(restX, 100, " 2");
                              })));
}

TEST_F(ListDrawingTest, AHitAtTheStartAndOneAtTheEndLeaveNoEmptyPiece) {
    add("Racing");
    menu->mName = "rac";
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  text(gListFontTxt, 30, 100, "Rac", kHit);
                                  label(30 + widthOf("Rac", kHit), 100, "ing");
                              })));
    menu->mName = "ing";
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  label(30, 100, "Rac");
                                  text(gListFontTxt, 30 + widthOf("Rac"), 100, "ing", kHit);
                              })));
    menu->mName = "racing";
    EXPECT_TRUE(picturesMatch(drawn(), paint([] { text(gListFontTxt, 30, 100, "Racing", kHit); })));
}

TEST_F(ListDrawingTest, AChineseLabelIsHighlightedByItsInitials) {
    add("超级中国");
    menu->mName = "ZG";
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  label(30, 100, "超级");
                                  text(gListFontTxt, 30 + widthOf("超级"), 100, "中国", kHit);
                              })));
}

TEST_F(ListDrawingTest, TheRowsOwnInitialsAreAsked) {
    TextMenuItem* item = add("中国");
    item->textD = "xy";
    menu->mName = "y";
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  label(30, 100, "中");
                                  text(gListFontTxt, 30 + widthOf("中"), 100, "国", kHit);
                              })));
}

TEST_F(ListDrawingTest, EveryVisibleRowIsHighlighted) {
    add("Racing");
    add("Chess");
    add("Tracing");
    menu->mName = "rac";
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  text(gListFontTxt, 30, 100, "Rac", kHit);
                                  label(30 + widthOf("Rac", kHit), 100, "ing");
                                  label(30, 198, "Chess");
                                  label(30, 296, "T");
                                  text(gListFontTxt, 30 + widthOf("T"), 296, "rac", kHit);
                                  label(30 + widthOf("T") + widthOf("rac", kHit), 296, "ing");
                              })));
}

TEST_F(ListDrawingTest, TheSecondLineIsNotSearched) {
    TextMenuItem* item = add("Row");
    item->hasSubLabel = true;
    item->subLabel = "racing";
    menu->mName = "racing";
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  label(30, 97, "Row");
                                  text(gListFontSubtxt, 30, 141, "racing", kSubLabel);
                              })));
}

TEST_F(ListDrawingTest, ACutLabelIsSearchedWhole) {
    std::string wide = "Racing ";
    wide += std::string(100, 'W');
    add(wide.c_str());
    menu->mName = "ng WWW";
    const auto kept = static_cast<std::size_t>(getTruncateLen(gListFontTxt, wide.c_str(), 0, 1220));
    const std::string rest = wide.substr(10, kept - 10) + "...";
    EXPECT_TRUE(picturesMatch(drawn(), paint([&rest] {
                                  label(30, 100, "Raci");
                                  const int hitX = 30 + widthOf("Raci");
                                  text(gListFontTxt, hitX, 100, "ng WWW", kHit);
                                  label(hitX + widthOf("ng WWW", kHit), 100, rest.c_str());
                              })));
}

TEST_F(ListDrawingTest, ACentredHitIsDrawnInPiecesFromTheLeftEdgeOfTheWhole) {
    menu->textMode = true;
    add("Super Racing");
    menu->mName = "racing";
    EXPECT_TRUE(picturesMatch(drawn(), paint([] {
                                  const int first = widthOf("Super ");
                                  const int x = 30 + (1220 - first - widthOf("Racing", kHit)) / 2;
                                  DrawString(gListFontTxt, {x, 80, 0, 88}, "Super ", kLabel, 3, false, false);
                                  DrawString(gListFontTxt, {x + first, 80, 0, 88}, "Racing", kHit, 3, false, false);
                              })));
}

TEST_F(ListDrawingTest, AHighlightedMarqueeRowHasOneShadowAPiece) {
    for (const bool centred : {false, true}) {
        menu->clearItemList();
        menu->textMode = centred;
        menu->marquee = true;
        add("Super Racing");
        menu->mName = "racing";
        EXPECT_TRUE(picturesMatch(drawn(), paint([centred] {
                                      const int first = widthOf("Super ");
                                      const int whole = first + widthOf("Racing", kHit);
                                      const int x = centred ? 30 + (1220 - whole) / 2 : 30;
                                      const SDL_Rect left{x, centred ? 80 : 100, 0, 88};
                                      const SDL_Rect right{x + first, left.y, 0, 88};
                                      const int align = centred ? 3 : 0;
                                      DrawString(gListFontTxt, left, "Super ", kLabel, align, true, false);
                                      DrawString(gListFontTxt, right, "Racing", kHit, align, true, false);
                                  })))
            << centred;
    }
}

TEST_F(ListDrawingTest, TheCounterShowsTheCursorFromOneAndAllRows) {
    menu->showStatNum = true;
    for (int i = 0; i < 12; ++i) add("");
    menu->mCurIndex = 8;
    EXPECT_TRUE(picturesMatch(drawn(), paint([] { drawListNumAtStatBar(9, 12); })));
}

TEST_F(ListDrawingTest, WithoutFontsTheBackgroundsAndIconsAreStillDrawn) {
    uninit_shared_skin();
    const auto icon = plainSurface(64, 64, kDarkBlue);
    menu->showStatNum = true;
    menu->selBg = plainSurface(1260, 88, kDarkRed).release();
    menu->insertItem(new IconRow("Row", icon.get()));
    menu->mName = "r";
    const Picture picture = drawn();
    EXPECT_EQ(picture.count(kDarkBlue), 64 * 64);
    EXPECT_EQ(picture.count(kDarkRed), 1260 * 88 - 64 * 64);
}

TEST_F(ListDrawingTest, ACursorPastTheEndOfAShrunkenListMarksNoRow) {
    menu->selBg = plainSurface(100, 88, kDarkRed).release();
    menu->normalBg = plainSurface(100, 88, kDarkBlue).release();
    addRows(6);
    menu->mCurIndex = 5;
    drawn();
    menu->removeItem(5);
    const Picture picture = drawn();
    EXPECT_EQ(picture.count(kDarkRed), 0);
    EXPECT_EQ(menu->mFirstIndex, 0);
    EXPECT_EQ(menu->mLastIndex, 4);
}

}  // namespace
