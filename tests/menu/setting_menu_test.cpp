#include "ostrel/setting_menu.h"

#include "ostrel/language.h"
#include "ostrel/skin.h"
#include "support/abi.h"
#include "support/driven_clock.h"
#include "support/fake_host.h"
#include "support/log_capture.h"
#include "support/screen_test.h"
#include "support/virtual_joystick.h"

namespace {

using ostreltest::drainEvents;
using ostreltest::host;
using ostreltest::LogCapture;
using ostreltest::offsetIn;
using ostreltest::pushKey;
using ostreltest::slotOf;

// A row that records what the menu asks of it.
class RecordingRow : public ItemDrawable {
public:
    explicit RecordingRow(Action* rowAction = nullptr, int answer = -1) : ItemDrawable(rowAction), mAnswer(answer) {}
    int draw(SDL_Rect& rect, bool isSelected) override {
        drawn.push_back(rect);
        selected = isSelected;
        return 0;
    }
    int handleEvent(int key) override {
        keys.push_back(key);
        return mAnswer;
    }
    std::vector<SDL_Rect> drawn;
    std::vector<int> keys;
    bool selected = false;

private:
    int mAnswer;
};

class RecordingAction : public Action {
public:
    RecordingAction(int result, std::vector<void*>& items) : mResult(result), mItems(items) {}
    int dowork(void* item) override {
        mItems.push_back(item);
        return mResult;
    }

private:
    int mResult;
    std::vector<void*>& mItems;
};

class SettingMenuTest : public ostreltest::ScreenTest {
protected:
    SettingMenuTest() { drainEvents(); }
    RecordingRow* addRow(int answer = -1, Action* action = nullptr) {
        auto* row = new RecordingRow(action, answer);
        menu.insertSettingItem(row);
        return row;
    }
    void addRows(int count) {
        for (int i = 0; i < count; ++i) addRow();
    }
    int press(SDL_Keycode key, Uint32 type = SDL_KEYUP) {
        drainEvents();  // the window's own events come first otherwise
        pushKey(type, key);
        return menu.eventHandling();
    }
    int pressA() { return press(SDLK_SPACE); }
    int pressB() { return press(SDLK_LCTRL); }
    int pressX() { return press(SDLK_LSHIFT); }
    int pressY() { return press(SDLK_LALT); }
    int pressArrow(SDL_Keycode key) { return press(key, SDL_KEYDOWN); }
    std::vector<void*> worked;  // outlives the rows and their actions
    SettingMenu menu;
};

TEST_F(SettingMenuTest, IsADrawerOfSixRowsWithoutBackgrounds) {
    EXPECT_EQ(menu.selBg, nullptr);
    EXPECT_EQ(menu.normalBg, nullptr);
    EXPECT_EQ(menu.itemsPerPage, 6);
    EXPECT_EQ(menu.mYSpaceInList, 0);
    EXPECT_EQ(menu.getListNum(), 0);
}

TEST_F(SettingMenuTest, KeepsTheThemeOfItsBirth) {
    host().setTheme("/themes/night/");
    SettingMenu themed;
    EXPECT_EQ(themed.themePath, "/themes/night/");
}

TEST_F(SettingMenuTest, NullRowsAreIgnored) {
    menu.insertSettingItem(nullptr);
    EXPECT_EQ(menu.getListNum(), 0);
}

TEST_F(SettingMenuTest, RowsOutsideTheListAreNull) {
    RecordingRow* row = addRow();
    EXPECT_EQ(menu.getItemByIndex(0), row);
    EXPECT_EQ(menu.getItemByIndex(-1), nullptr);
    EXPECT_EQ(menu.getItemByIndex(1), nullptr);
}

TEST_F(SettingMenuTest, UpAndDownMoveTheCursor) {
    addRows(3);
    EXPECT_EQ(pressArrow(SDLK_DOWN), -1);
    EXPECT_EQ(menu.mCurIndex, 1);
    EXPECT_EQ(pressArrow(SDLK_UP), -1);
    EXPECT_EQ(menu.mCurIndex, 0);
    EXPECT_EQ(pressArrow(SDLK_UP), -1);
    EXPECT_EQ(menu.mCurIndex, 2);
}

TEST_F(SettingMenuTest, UpAtTheTopWithoutWrapIsNotHandedOn) {
    addRows(3);
    menu.mWrapUp = false;
    EXPECT_EQ(pressArrow(SDLK_UP), -1);
}

TEST_F(SettingMenuTest, LeftAndRightGoToTheRowUnderTheCursor) {
    addRow();
    RecordingRow* second = addRow(0);
    menu.mCurIndex = 1;
    EXPECT_EQ(pressArrow(SDLK_LEFT), -1);
    EXPECT_EQ(pressArrow(SDLK_RIGHT), -1);
    EXPECT_EQ(second->keys, (std::vector<int>{7, 8}));
}

TEST_F(SettingMenuTest, XGoesBackWhateverConfirms) {
    addRow(0);
    EXPECT_EQ(pressX(), 1002);
    host().shm.values[19] = 1;
    EXPECT_EQ(pressX(), 1002);
}

TEST_F(SettingMenuTest, TheKeyThatDoesNotConfirmGoesBack) {
    RecordingRow* row = addRow(0);
    EXPECT_EQ(pressB(), 1002);
    for (const int setting : {1, 2, -1}) {
        host().shm.values[19] = setting;
        EXPECT_EQ(pressA(), 1002) << setting;
    }
    EXPECT_TRUE(row->keys.empty());
}

TEST_F(SettingMenuTest, ARowThatTakesAGivesMinusOne) {
    RecordingRow* row = addRow(0, new RecordingAction(5, worked));
    EXPECT_EQ(pressA(), -1);
    EXPECT_EQ(row->keys, (std::vector<int>{1}));
    EXPECT_TRUE(worked.empty());
}

TEST_F(SettingMenuTest, ARowThatTakesBGivesTheMenuKey) {
    RecordingRow* row = addRow(0, new RecordingAction(5, worked));
    for (const int setting : {1, 2, -1}) {
        host().shm.values[19] = setting;
        EXPECT_EQ(pressB(), 11) << setting;
    }
    EXPECT_EQ(row->keys, (std::vector<int>{2, 2, 2}));
    EXPECT_TRUE(worked.empty());
}

TEST_F(SettingMenuTest, AConfirmKeyThatNoRowTakesRunsTheAction) {
    RecordingRow* row = addRow(-1, new RecordingAction(5, worked));
    EXPECT_EQ(pressA(), 5);
    host().shm.values[19] = 1;
    EXPECT_EQ(pressB(), 5);
    EXPECT_EQ(worked, (std::vector<void*>{row, row}));
}

TEST_F(SettingMenuTest, TheActionsResultComesBackUnchanged) {
    addRow(-1, new RecordingAction(-7, worked));
    EXPECT_EQ(pressA(), -7);
}

TEST_F(SettingMenuTest, YConfirmsWhateverConfirms) {
    RecordingRow* row = addRow(0, new RecordingAction(5, worked));
    EXPECT_EQ(pressY(), -1);
    host().shm.values[19] = 1;
    EXPECT_EQ(pressY(), -1);
    EXPECT_EQ(row->keys, (std::vector<int>{4, 4}));
}

TEST_F(SettingMenuTest, YThatNoRowTakesRunsTheAction) {
    addRow(-1, new RecordingAction(5, worked));
    EXPECT_EQ(pressY(), 5);
}

TEST_F(SettingMenuTest, MenuComesBackAsTheMenuKey) {
    RecordingRow* row = addRow(0);
    EXPECT_EQ(press(SDLK_ESCAPE), 11);
    EXPECT_TRUE(row->keys.empty());
}

TEST_F(SettingMenuTest, OtherKeysAndNoKeyAreMinusOne) {
    addRow(0);
    EXPECT_EQ(press(SDLK_TAB), -1);
    EXPECT_EQ(press(SDLK_RETURN), -1);
    EXPECT_EQ(menu.eventHandling(), -1);
}

// A confirming B gives the menu key only when a row took it.
TEST_F(SettingMenuTest, AnEmptyPageHasNoRowThatTakesAKey) {
    EXPECT_EQ(pressA(), -1);
    EXPECT_EQ(pressY(), -1);
    EXPECT_EQ(pressArrow(SDLK_LEFT), -1);
    host().shm.values[19] = 1;
    EXPECT_EQ(pressB(), -1);
}

TEST_F(SettingMenuTest, UpInAnEmptyPageStandsOnNoRowAndDownComesBack) {
    EXPECT_EQ(pressArrow(SDLK_UP), -1);
    EXPECT_EQ(menu.mCurIndex, -1);
    EXPECT_EQ(pressA(), -1);
    EXPECT_EQ(pressArrow(SDLK_DOWN), -1);
    EXPECT_EQ(menu.mCurIndex, 0);
}

TEST_F(SettingMenuTest, AnEmptyPageHasAnEmptyRange) {
    menu.draw();
    EXPECT_EQ(menu.mFirstIndex, 0);
    EXPECT_EQ(menu.mLastIndex, -1);
}

TEST_F(SettingMenuTest, ARowWithoutAnActionSelectsToMinusOne) {
    addRow();
    EXPECT_EQ(menu.select(), -1);
}

// The action may close the page: nothing of it is touched afterwards.
TEST_F(SettingMenuTest, AnActionMayDeleteThePage) {
    static SettingMenu* sPage;
    sPage = new SettingMenu;
    sPage->insertSettingItem(new RecordingRow(new GeneralAction(
        [](void*) {
            // The action belongs to the row that goes, so nothing of it is read after this.
            delete sPage;
            return 9;
        },
        nullptr)));
    drainEvents();
    pushKey(SDL_KEYUP, SDLK_SPACE);
    EXPECT_EQ(sPage->eventHandling(), 9);
}

TEST_F(SettingMenuTest, RowsStandBelowEachOtherNinetySixPixelsApart) {
    addRows(3);
    menu.mCurIndex = 1;
    menu.draw();
    for (int i = 0; i < 3; ++i) {
        const auto* row = static_cast<RecordingRow*>(menu.getItemByIndex(i));
        ASSERT_EQ(row->drawn.size(), 1U);
        EXPECT_EQ(row->drawn[0].x, 10);
        EXPECT_EQ(row->drawn[0].y, 80 + 96 * i);
        EXPECT_EQ(row->drawn[0].w, 1260);
        EXPECT_EQ(row->drawn[0].h, 96);
        EXPECT_EQ(row->selected, i == 1);
    }
}

TEST_F(SettingMenuTest, TheRowHeightIsNinetySixWhateverTheDrawerSays) {
    SDL_Rect rect{20, 40, 600, 300};
    menu.updateRectAndNum(rect, 3);
    addRows(2);
    menu.draw();
    const auto* row = static_cast<RecordingRow*>(menu.getItemByIndex(1));
    EXPECT_EQ(row->drawn[0].x, 30);
    EXPECT_EQ(row->drawn[0].y, 136);
    EXPECT_EQ(row->drawn[0].w, 580);
    EXPECT_EQ(row->drawn[0].h, 96);
}

TEST_F(SettingMenuTest, EightRowsWithTheCursorOnTheLastShowRowsTwoToSeven) {
    addRows(8);
    menu.mCurIndex = 7;
    menu.draw();
    EXPECT_EQ(menu.mFirstIndex, 2);
    EXPECT_EQ(menu.mLastIndex, 7);
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(static_cast<RecordingRow*>(menu.getItemByIndex(i))->drawn.size(), i >= 2 ? 1U : 0U) << i;
    }
}

TEST_F(SettingMenuTest, TheCursorAboveTheRangeBecomesItsFirstRow) {
    addRows(20);
    menu.restorePos(4, 8, 13);
    menu.draw();
    EXPECT_EQ(menu.mFirstIndex, 4);
    EXPECT_EQ(menu.mLastIndex, 9);
}

TEST_F(SettingMenuTest, AShortPageThatGrowsStillBeginsAtItsTop) {
    addRows(3);
    menu.draw();
    RecordingRow* appended = addRow();
    menu.mCurIndex = 3;
    menu.draw();
    EXPECT_EQ(menu.mFirstIndex, 0);
    EXPECT_EQ(static_cast<RecordingRow*>(menu.getItemByIndex(0))->drawn.back().y, 80);
    ASSERT_EQ(appended->drawn.size(), 1U);
    EXPECT_EQ(appended->drawn[0].y, 80 + 96 * 3);
}

TEST_F(SettingMenuTest, TheRangeEndsAtTheLastRow) {
    addRows(8);
    menu.mFirstIndex = 5;
    menu.mLastIndex = 10;
    menu.mCurIndex = 5;
    menu.draw();
    EXPECT_EQ(menu.mFirstIndex, 5);
    EXPECT_EQ(menu.mLastIndex, 7);
}

TEST_F(SettingMenuTest, DestructionIsLoggedAndDeletesTheRows) {
    static int sDeleted;
    sDeleted = 0;
    struct CountedRow : RecordingRow {
        ~CountedRow() override { ++sDeleted; }
    };
    auto* page = new SettingMenu;
    page->insertSettingItem(new CountedRow);
    page->insertSettingItem(new CountedRow);
    LogCapture log;
    delete page;
    EXPECT_EQ(log.text(), "SettingMenu::~SettingMenu\n");
    EXPECT_EQ(sDeleted, 2);
}

TEST_F(SettingMenuTest, NarrowerResultsAddNoSlotAndTheRowsFollowTheDrawersFields) {
    EXPECT_EQ(slotOf(&SettingMenu::eventHandling), 4);
    EXPECT_EQ(slotOf(&SettingMenu::select), 5);
    EXPECT_EQ(slotOf(&SettingMenu::getItemByIndex), 6);
    EXPECT_EQ(slotOf(&SettingMenu::draw), 8);
    EXPECT_EQ(slotOf(&SettingMenu::getListNum), 9);
    EXPECT_EQ(slotOf(&SettingMenu::drawListNum), 20);
    EXPECT_EQ(offsetIn(menu, menu.items), 344);
}

}  // namespace
