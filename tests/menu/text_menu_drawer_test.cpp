#include "ostrel/text_menu_drawer.h"

#include <cstdio>
#include <memory>

#include "ostrel/log.h"
#include "ostrel/menu_item.h"
#include "ostrel/skin.h"
#include "ostrel/text_menu.h"
#include "support/abi.h"
#include "support/fake_host.h"
#include "support/log_capture.h"
#include "support/screen_test.h"

using ostreltest::host;
using ostreltest::LogCapture;
using ostreltest::plainSurface;
using ostreltest::ScreenTest;
using ostreltest::slotOf;
using ostreltest::writePlainPng;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// What a list does without drawing: its measures, the choice of a row, the change of a theme.
class TextMenuDrawerTest : public ScreenTest {
protected:
    TextMenuDrawerTest() { initLogger(0); }

    // A theme directory in the working directory with both standard backgrounds in the given width.
    void writeTheme(const std::string& name, int width) {
        writePlainPng(name + "/skin/bg-list-f.png", width, 10, {255, 0, 0, 255});
        writePlainPng(name + "/skin/bg-list-n.png", width + 1, 10, {0, 255, 0, 255});
    }
};

// An action that notes what it was given.
class NotingAction : public Action {
public:
    int dowork(void* item) override {
        chosen = item;
        return result;
    }
    int xdowork(void* item) override {
        second = item;
        return result;
    }
    void* chosen = nullptr;
    void* second = nullptr;
    int result = 0;
};

class NoRow : public ItemDrawable {
public:
    NoRow() : ItemDrawable(nullptr) {}
    int draw(SDL_Rect&, bool) override { return 0; }
};

// A list whose one row is whatever the test says.
class OneRow : public TextMenuDrawer {
public:
    explicit OneRow(ListItem* row) : TextMenuDrawer(nullptr, nullptr, 6, 10), mRow(row) {}
    ListItem* getItemByIndex(int) override { return mRow; }
    int getListNum() override { return 1; }

private:
    ListItem* mRow;
};

std::string doworkLine(const char* label, const void* item) {
    char line[64];
    std::snprintf(line, sizeof line, "%s dowork %p", label, item);
    return line;
}

TEST_F(TextMenuDrawerTest, SixRowsWithAGapOfTenAre88High) {
    const TextMenu menu(nullptr, nullptr, 6, 10);
    EXPECT_EQ(menu.mItemHeight, 88);
    EXPECT_EQ(menu.mYSpaceInList, 10);
    EXPECT_EQ(menu.itemsPerPage, 6);
}

TEST_F(TextMenuDrawerTest, NoRowsAPageHaveNoHeight) {
    const TextMenu menu(nullptr, nullptr, 0, 10);
    EXPECT_EQ(menu.mItemHeight, 0);
}

TEST_F(TextMenuDrawerTest, LogsItsRowHeightAndGap) {
    LogCapture log;
    const TextMenu menu(nullptr, nullptr, 5, 10);
    EXPECT_THAT(log.lines(), ElementsAre("mItemHeight = 108, mYSpaceInList = 10"));
}

TEST_F(TextMenuDrawerTest, StartsBetweenTheBars) {
    const TextMenu menu(nullptr, nullptr, 6, 10);
    EXPECT_EQ(menu.mRect.x, 0);
    EXPECT_EQ(menu.mRect.y, 80);
    EXPECT_EQ(menu.mRect.w, 1280);
    EXPECT_EQ(menu.mRect.h, 580);
}

TEST_F(TextMenuDrawerTest, StartsWithNumbersAndCounterAndAllElseOff) {
    const TextMenu menu(nullptr, nullptr, 6, 10);
    EXPECT_TRUE(menu.showListNum);
    EXPECT_TRUE(menu.showStatNum);
    EXPECT_FALSE(menu.reservedFlag);
    EXPECT_FALSE(menu.marquee);
    EXPECT_FALSE(menu.textMode);
    EXPECT_EQ(menu.reservedText, "");
    EXPECT_EQ(menu.bgInset, 10);
    EXPECT_EQ(menu.selMark, nullptr);
    EXPECT_EQ(menu.extraSurface, nullptr);
    EXPECT_TRUE(menu.mWrapUp);
    EXPECT_TRUE(menu.mFocus);
}

TEST_F(TextMenuDrawerTest, TakesBothColoursFromTheSkin) {
    const SDL_Color before = gListColorTxt;
    gListColorTxt = {1, 2, 3, 4};
    const TextMenu menu(nullptr, nullptr, 6, 10);
    gListColorTxt = before;
    for (const SDL_Color& colour : {menu.textColor, menu.altTextColor}) {
        EXPECT_EQ(colour.r, 1);
        EXPECT_EQ(colour.g, 2);
        EXPECT_EQ(colour.b, 3);
        EXPECT_EQ(colour.a, 4);
    }
}

TEST_F(TextMenuDrawerTest, LoadsItsBackgroundsFromTheTheme) {
    writePlainPng("blue/skin/sel.png", 30, 10, {0, 0, 255, 255});
    writePlainPng("blue/skin/other.png", 31, 10, {0, 0, 255, 255});
    host().setTheme("blue/");
    const TextMenu menu("skin/sel.png", "skin/other.png", 6, 10);
    ASSERT_NE(menu.selBg, nullptr);
    ASSERT_NE(menu.normalBg, nullptr);
    EXPECT_EQ(menu.selBg->getWidth(), 30);
    EXPECT_EQ(menu.normalBg->getWidth(), 31);
    EXPECT_EQ(menu.themePath, "blue/");
}

TEST_F(TextMenuDrawerTest, LoadsABackgroundThatTheThemeLacksFromTheWorkingDirectory) {
    writePlainPng("skin/sel.png", 30, 10, {0, 0, 255, 255});
    host().setTheme("blue/");
    LogCapture log;
    const TextMenu menu("skin/sel.png", nullptr, 6, 10);
    ASSERT_NE(menu.selBg, nullptr);
    EXPECT_THAT(log.lines(), ElementsAre("blue//skin/sel.png open fail, use .//skin/sel.png",
                                         "mItemHeight = 88, mYSpaceInList = 10"));
}

TEST_F(TextMenuDrawerTest, ANullPathAndAMissingFileLeaveTheBackgroundNull) {
    LogCapture log;
    const TextMenu menu(nullptr, "skin/none.png", 6, 10);
    EXPECT_EQ(menu.selBg, nullptr);
    EXPECT_EQ(menu.normalBg, nullptr);
    EXPECT_THAT(log.lines(), ElementsAre("mItemHeight = 88, mYSpaceInList = 10"));
}

TEST_F(TextMenuDrawerTest, ANullThemeIsKeptAsEmpty) {
    const TextMenu menu(nullptr, nullptr, 6, 10);
    EXPECT_EQ(menu.themePath, "");
}

TEST_F(TextMenuDrawerTest, UpdateRectAndNumSharesTheNewHeight) {
    TextMenu menu(nullptr, nullptr, 6, 8);
    SDL_Rect panel{386, 144, 508, 432};
    menu.updateRectAndNum(panel, 5);
    EXPECT_EQ(menu.mItemHeight, 80);
    EXPECT_EQ(menu.itemsPerPage, 5);
    EXPECT_EQ(menu.mYSpaceInList, 8);
    EXPECT_EQ(menu.mRect.x, 386);
    EXPECT_EQ(menu.mRect.y, 144);
    EXPECT_EQ(menu.mRect.w, 508);
    EXPECT_EQ(menu.mRect.h, 432);
}

TEST_F(TextMenuDrawerTest, UpdateRectAndNumWithoutAGapDividesTheHeight) {
    TextMenu menu(nullptr, nullptr, 6, 0);
    SDL_Rect panel{0, 0, 100, 431};
    menu.updateRectAndNum(panel, 5);
    EXPECT_EQ(menu.mItemHeight, 86);
    menu.updateRectAndNum(panel, 0);
    EXPECT_EQ(menu.mItemHeight, 0);
}

TEST_F(TextMenuDrawerTest, IgnoreSelBGFreesTheBackgroundForGood) {
    writePlainPng("skin/sel.png", 30, 10, {0, 0, 255, 255});
    TextMenu menu("skin/sel.png", "skin/sel.png", 6, 10);
    menu.ignoreSelBG(false);
    EXPECT_NE(menu.selBg, nullptr);
    menu.ignoreSelBG(true);
    EXPECT_EQ(menu.selBg, nullptr);
    EXPECT_NE(menu.normalBg, nullptr);
    menu.ignoreSelBG(true);
    menu.ignoreSelBG(false);
    EXPECT_EQ(menu.selBg, nullptr);
}

TEST_F(TextMenuDrawerTest, RefreshWithTheSameThemeLoadsNothing) {
    writeTheme("blue", 30);
    host().setTheme("blue/");
    TextMenu menu("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 10);
    const OstrelSurface* selected = menu.selBg;
    const OstrelSurface* normal = menu.normalBg;
    writeTheme("blue", 50);
    host().setTheme("blue/");  // equal text at another address
    menu.refresh();
    EXPECT_EQ(menu.selBg, selected);
    EXPECT_EQ(menu.normalBg, normal);
    EXPECT_EQ(menu.selBg->getWidth(), 30);
}

TEST_F(TextMenuDrawerTest, RefreshLoadsTheStandardBackgroundsOfANewTheme) {
    writeTheme("blue", 30);
    writeTheme("red", 40);
    writePlainPng("blue/skin/own.png", 99, 10, {0, 0, 255, 255});
    writePlainPng("red/skin/own.png", 98, 10, {0, 0, 255, 255});
    host().setTheme("blue/");
    TextMenu menu("skin/own.png", "skin/own.png", 6, 10);
    host().setTheme("red/");
    menu.refresh();
    EXPECT_EQ(menu.selBg->getWidth(), 40);
    EXPECT_EQ(menu.normalBg->getWidth(), 41);
    EXPECT_EQ(menu.themePath, "red/");
}

TEST_F(TextMenuDrawerTest, RefreshLeavesANullBackgroundNull) {
    writeTheme("red", 40);
    TextMenu menu(nullptr, nullptr, 6, 10);
    host().setTheme("red/");
    menu.refresh();
    EXPECT_EQ(menu.selBg, nullptr);
    EXPECT_EQ(menu.normalBg, nullptr);
    EXPECT_EQ(menu.themePath, "red/");
}

TEST_F(TextMenuDrawerTest, RefreshToAThemeWithoutBackgroundsLeavesNone) {
    writeTheme("blue", 30);
    host().setTheme("blue/");
    TextMenu menu("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 10);
    host().setTheme("bare/");
    menu.refresh();
    EXPECT_EQ(menu.selBg, nullptr);
    EXPECT_EQ(menu.normalBg, nullptr);
}

TEST_F(TextMenuDrawerTest, RefreshToNoThemeLoadsFromTheWorkingDirectory) {
    writeTheme("blue", 30);
    writeTheme(".", 40);
    host().setTheme("blue/");
    TextMenu menu("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 10);
    gThemePath = nullptr;
    menu.refresh();
    EXPECT_EQ(menu.selBg->getWidth(), 40);
    EXPECT_EQ(menu.themePath, "");
    const OstrelSurface* loaded = menu.selBg;
    host().setTheme("");
    menu.refresh();
    EXPECT_EQ(menu.selBg, loaded);
}

TEST_F(TextMenuDrawerTest, SelectRunsTheActionOfTheCursorsRowWithTheRow) {
    NotingAction action;
    action.result = 1005;
    TextMenu menu(nullptr, nullptr, 6, 10);
    menu.insertItem(new TextMenuItem("first", nullptr, nullptr, false));
    menu.insertItem(new TextMenuItem("second", nullptr, &action, false));
    menu.mCurIndex = 1;
    LogCapture log;
    EXPECT_EQ(menu.select(), 1005);
    EXPECT_EQ(action.chosen, menu.getItemByIndex(1));
    EXPECT_EQ(action.second, nullptr);
    EXPECT_THAT(log.lines(), ElementsAre(doworkLine("second", menu.getItemByIndex(1))));
}

TEST_F(TextMenuDrawerTest, SelectMapsEveryNegativeResultToMinusOne) {
    NotingAction action;
    TextMenu menu(nullptr, nullptr, 6, 10);
    menu.insertItem(new TextMenuItem("row", nullptr, &action, false));
    for (const int result : {-1, -7, -2147483647}) {
        action.result = result;
        EXPECT_EQ(menu.select(), -1) << result;
    }
    action.result = 0;
    EXPECT_EQ(menu.select(), 0);
}

TEST_F(TextMenuDrawerTest, SelectOnAnEmptyListOrARowWithoutActionDoesNothing) {
    TextMenu menu(nullptr, nullptr, 6, 10);
    LogCapture log;
    EXPECT_EQ(menu.select(), -1);
    menu.insertItem(new TextMenuItem("row", nullptr, nullptr, false));
    EXPECT_EQ(menu.select(), -1);
    menu.mCurIndex = -1;
    EXPECT_EQ(menu.select(), -1);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(TextMenuDrawerTest, SelectLogsTheLanguageStringOfAnItemWithoutLabel) {
    NotingAction action;
    TextMenu menu(nullptr, nullptr, 6, 10);
    auto* item = new TextMenuItem(nullptr, nullptr, &action, false);
    item->labelId = 1;
    menu.insertItem(item);
    LogCapture log;
    menu.select();
    EXPECT_THAT(log.lines(), ElementsAre(doworkLine("OK", item)));
}

TEST_F(TextMenuDrawerTest, XselectRunsTheSecondAction) {
    NotingAction action;
    action.result = 26;
    TextMenu menu(nullptr, nullptr, 6, 10);
    menu.insertItem(new TextMenuItem("row", nullptr, &action, false));
    LogCapture log;
    EXPECT_EQ(menu.xselect(), 26);
    EXPECT_EQ(action.second, menu.getItemByIndex(0));
    EXPECT_EQ(action.chosen, nullptr);
    EXPECT_THAT(log.lines(), ElementsAre("TextMenuDrawer::xselect"));
    action.result = -9;
    EXPECT_EQ(menu.xselect(), -1);
}

TEST_F(TextMenuDrawerTest, XselectOfAnActionWithoutASecondOneIsZero) {
    GeneralAction action(nullptr, nullptr);
    TextMenu menu(nullptr, nullptr, 6, 10);
    menu.insertItem(new TextMenuItem("row", nullptr, &action, false));
    EXPECT_EQ(menu.xselect(), 0);
}

TEST_F(TextMenuDrawerTest, XselectWithoutRowOrActionIsMinusOneAndStillLogged) {
    TextMenu menu(nullptr, nullptr, 6, 10);
    LogCapture log;
    EXPECT_EQ(menu.xselect(), -1);
    menu.insertItem(new TextMenuItem("row", nullptr, nullptr, false));
    EXPECT_EQ(menu.xselect(), -1);
    EXPECT_THAT(log.lines(), ElementsAre("TextMenuDrawer::xselect", "TextMenuDrawer::xselect"));
}

TEST_F(TextMenuDrawerTest, ASettingsRowIsNoTextRowAndCannotBeChosen) {
    NoRow row;
    OneRow menu(&row);
    EXPECT_EQ(menu.select(), -1);
    EXPECT_EQ(menu.xselect(), -1);
}

TEST_F(TextMenuDrawerTest, AnActionMayDeleteItsMenu) {
    static TextMenu* menu;
    class Closing : public Action {
    public:
        int dowork(void*) override {
            delete menu;
            return 1002;
        }
        int xdowork(void*) override {
            delete menu;
            return -3;
        }
    };
    for (const int key : {1, 3}) {
        menu = new TextMenu(nullptr, nullptr, 6, 10);
        menu->insertItem(new TextMenuItem("a label too long for the string itself", nullptr, new Closing, true));
        EXPECT_EQ(menu->handleEvent(key), key == 1 ? 1002 : -1);
    }
}

TEST_F(TextMenuDrawerTest, AnActionMayDeleteItsItem) {
    static TextMenu* menu;
    class Removing : public Action {
    public:
        int dowork(void*) override {
            menu->removeItem(0);
            return -5;
        }
    };
    TextMenu list(nullptr, nullptr, 6, 10);
    menu = &list;
    list.insertItem(new TextMenuItem("a label too long for the string itself", nullptr, new Removing, true));
    EXPECT_EQ(list.handleEvent(1), -1);
    EXPECT_EQ(list.getListNum(), 0);
}

TEST_F(TextMenuDrawerTest, TheThemeOfARowIsTheListsChoiceElseTheRowsOwn) {
    class Themed : public TextMenuItem {
    public:
        Themed() : TextMenuItem("row", nullptr, nullptr, false) {}
        std::string getThemePath() override { return "row/"; }
    } item;
    class Choosing : public TextMenu {
    public:
        Choosing() : TextMenu(nullptr, nullptr, 6, 10) {}
        const char* getItemThemePath(int index) override { return index == 3 ? "third/" : choice; }
        const char* choice = nullptr;
    } menu;
    TextMenuItem plain("row", nullptr, nullptr, false);
    EXPECT_EQ(menu.getThemePath(&item, 3), "third/");
    EXPECT_EQ(menu.getThemePath(&item, 0), "row/");
    EXPECT_EQ(menu.getThemePath(&plain, 0), "");
    EXPECT_EQ(menu.getThemePath(nullptr, 3), "third/");
    EXPECT_EQ(menu.getThemePath(nullptr, 0), "");
    menu.choice = "";
    EXPECT_EQ(menu.getThemePath(&item, 0), "row/");
}

TEST_F(TextMenuDrawerTest, TheCachesFreeTheirSurfacesWithTheList) {
    static int deaths;
    deaths = 0;
    class Counted : public SDL2OstrelSurface {
    public:
        Counted() : SDL2OstrelSurface(nullptr, nullptr) {}
        ~Counted() override { ++deaths; }
    };
    {
        TextMenu menu(nullptr, nullptr, 6, 10);
        menu.iconCache.put("a", static_cast<OstrelSurface*>(new Counted));
        menu.thumbCache.put("a", static_cast<OstrelSurface*>(new Counted));
        EXPECT_EQ(deaths, 0);
    }
    EXPECT_EQ(deaths, 2);
}

TEST_F(TextMenuDrawerTest, EachCacheHoldsAHundredAndOneSurfaces) {
    TextMenu menu(nullptr, nullptr, 6, 10);
    for (LRUCache* cache : {&menu.iconCache, &menu.thumbCache}) {
        for (int i = 0; i < 102; ++i) {
            cache->put(std::to_string(i), static_cast<OstrelSurface*>(new SDL2OstrelSurface(nullptr, nullptr)));
        }
        EXPECT_EQ(cache->get("0"), nullptr);
        EXPECT_NE(cache->get("1"), nullptr);
    }
}

TEST_F(TextMenuDrawerTest, TheListDoesNotFreeItsMarker) {
    const auto mark = plainSurface(16, 32, {255, 0, 0, 255});
    {
        TextMenu menu(nullptr, nullptr, 6, 10);
        menu.selMark = mark.get();
    }
    EXPECT_EQ(mark->getWidth(), 16);
}

TEST_F(TextMenuDrawerTest, TheNumberHasTheSlotBehindThoseOfTheList) {
    EXPECT_EQ(slotOf(&TextMenuDrawer::drawListNum), 20);
}

}  // namespace
