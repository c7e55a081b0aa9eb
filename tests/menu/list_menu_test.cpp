#include "ostrel/list_menu.h"

#include <dlfcn.h>

#include <vector>

#include "ostrel/log.h"
#include "ostrel/menu_item.h"
#include "ostrel/window.h"
#include "support/abi.h"
#include "support/driven_clock.h"
#include "support/fake_host.h"
#include "support/log_capture.h"
#include "support/test_device.h"
#include "support/virtual_joystick.h"

using ostreltest::DeviceTest;
using ostreltest::DrivenClock;
using ostreltest::host;
using ostreltest::LogCapture;
using ostreltest::offsetIn;
using ostreltest::slotOf;
using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

std::vector<int> boosts;  // every request for the faster frame rate, in milliseconds

}  // namespace

// The library's own calls arrive here, because a program's definitions come before those of its libraries.
void touchBoostFps(int ms) {
    boosts.push_back(ms);
    using Touch = void (*)(int);
    static const auto librarys = reinterpret_cast<Touch>(dlsym(RTLD_NEXT, "_Z13touchBoostFpsi"));
    librarys(ms);
}

namespace {

constexpr int kUp = 5, kDown = 6, kLeft = 7, kRight = 8;

// A list of a number of rows that counts what runs.
class CountedList : public ListMenu {
public:
    explicit CountedList(int rows, bool flag = true) : ListMenu(flag), count(rows) {}
    int select() override {
        ++selections;
        return 77;
    }
    int xselect() override {
        ++secondSelections;
        return 88;
    }
    ListItem* getItemByIndex(int) override { return nullptr; }
    void draw() override {}
    int getListNum() override { return count; }

    int count;
    int selections = 0;
    int secondSelections = 0;
};

// One that has only what it must have.
class BareList : public ListMenu {
public:
    BareList() : ListMenu(true) {}
    int select() override { return -1; }
    ListItem* getItemByIndex(int) override { return nullptr; }
    void draw() override {}
    int getListNum() override { return 1; }
};

class ListMenuTest : public DeviceTest {
protected:
    ListMenuTest() {
        initLogger(0);
        boosts.clear();
    }
    ~ListMenuTest() override { touchBoostFps(0); }

    // Presses a key again and again, as often and with as much time between as asked.
    static void hold(ListMenu& list, int key, int times, uint64_t gapMs, DrivenClock& clock) {
        for (int i = 0; i < times; ++i) {
            clock.advance(gapMs);
            list.handleEvent(key);
        }
    }
};

TEST_F(ListMenuTest, StartsShownWrappingAndFocusedOnItsFirstRow) {
    for (const bool flag : {true, false}) {
        const CountedList list(10, flag);
        EXPECT_TRUE(list.mShowFlag);
        EXPECT_TRUE(list.mWrapUp);
        EXPECT_TRUE(list.mFocus);
        EXPECT_EQ(list.mCurIndex, 0);
        EXPECT_EQ(list.mFirstIndex, 0);
        EXPECT_EQ(list.mLastIndex, 0);
        EXPECT_EQ(list.mName, "");
        EXPECT_THAT(list.mPressedKeys, IsEmpty());
    }
}

TEST_F(ListMenuTest, DownMovesOneRow) {
    CountedList list(10);
    EXPECT_EQ(list.moveForward(), 0);
    EXPECT_EQ(list.mCurIndex, 1);
}

TEST_F(ListMenuTest, DownOnTheLastRowGoesToTheFirst) {
    CountedList list(10);
    list.mCurIndex = 9;
    EXPECT_EQ(list.moveForward(), 0);
    EXPECT_EQ(list.mCurIndex, 0);
}

TEST_F(ListMenuTest, DownWrapsWithWrapUpOff) {
    CountedList list(10);
    list.mWrapUp = false;
    list.mCurIndex = 9;
    EXPECT_EQ(list.handleEvent(kDown), 6);
    EXPECT_EQ(list.mCurIndex, 0);
}

TEST_F(ListMenuTest, DownBeyondTheLastRowGoesToTheFirst) {
    CountedList list(3);
    list.mCurIndex = 7;
    list.moveForward();
    EXPECT_EQ(list.mCurIndex, 0);
}

TEST_F(ListMenuTest, DownInAnEmptyListStandsOnZero) {
    CountedList list(0);
    list.mCurIndex = -1;
    list.moveForward();
    EXPECT_EQ(list.mCurIndex, 0);
}

TEST_F(ListMenuTest, UpMovesOneRow) {
    CountedList list(10);
    list.mCurIndex = 4;
    EXPECT_EQ(list.moveBackward(), -1);
    EXPECT_EQ(list.mCurIndex, 3);
}

TEST_F(ListMenuTest, UpOnTheFirstRowGoesToTheLast) {
    CountedList list(10);
    EXPECT_EQ(list.moveBackward(), -1);
    EXPECT_EQ(list.mCurIndex, 9);
}

TEST_F(ListMenuTest, UpOnTheFirstRowWithoutWrapReturnsListAtTop) {
    CountedList list(10);
    list.mWrapUp = false;
    EXPECT_EQ(list.moveBackward(), 1008);
    EXPECT_EQ(list.mCurIndex, 0);
}

TEST_F(ListMenuTest, PageDownMovesSixRows) {
    CountedList list(100);
    list.mCurIndex = 3;
    EXPECT_EQ(list.pageDown(), 0);
    EXPECT_EQ(list.mCurIndex, 9);
}

TEST_F(ListMenuTest, PageDownStopsAtTheLastRow) {
    CountedList list(10);
    for (const int start : {4, 7, 9}) {
        list.mCurIndex = start;
        EXPECT_EQ(list.pageDown(), 0);
        EXPECT_EQ(list.mCurIndex, 9) << start;
    }
    list.mCurIndex = 3;
    list.pageDown();
    EXPECT_EQ(list.mCurIndex, 9);
}

TEST_F(ListMenuTest, PageDownInAnEmptyListGivesMinusOne) {
    CountedList list(0);
    list.pageDown();
    EXPECT_EQ(list.mCurIndex, -1);
}

TEST_F(ListMenuTest, PageUpMovesSixRowsAndStopsAtTheFirst) {
    CountedList list(100);
    list.mCurIndex = 50;
    EXPECT_EQ(list.pageUp(), 0);
    EXPECT_EQ(list.mCurIndex, 44);
    for (const int start : {6, 3, 0}) {
        list.mCurIndex = start;
        EXPECT_EQ(list.pageUp(), 0);
        EXPECT_EQ(list.mCurIndex, 0) << start;
    }
}

TEST_F(ListMenuTest, RestorePosPutsCursorAndRangeBack) {
    CountedList list(10);
    list.restorePos(9, 4, 9);
    EXPECT_EQ(list.mCurIndex, 9);
    EXPECT_EQ(list.mFirstIndex, 4);
    EXPECT_EQ(list.mLastIndex, 9);
}

TEST_F(ListMenuTest, RestorePosLeavesAnInvalidRangeOutAndKeepsTheCursor) {
    CountedList list(10);
    list.mFirstIndex = 1;
    list.mLastIndex = 6;
    list.restorePos(5, 0, 99);
    EXPECT_EQ(list.mCurIndex, 5);
    EXPECT_EQ(list.mFirstIndex, 1);
    EXPECT_EQ(list.mLastIndex, 6);
    for (const std::pair<int, int>& range : {std::pair{-1, 5}, {2, -1}, {10, 9}, {0, 10}}) {
        list.restorePos(5, range.first, range.second);
        EXPECT_EQ(list.mFirstIndex, 1);
        EXPECT_EQ(list.mLastIndex, 6);
    }
}

TEST_F(ListMenuTest, RestorePosLeavesAnInvalidCursorOutAndTakesTheRange) {
    CountedList list(10);
    list.mCurIndex = 2;
    for (const int cursor : {-1, 10, 99}) {
        list.restorePos(cursor, 3, 8);
        EXPECT_EQ(list.mCurIndex, 2) << cursor;
    }
    EXPECT_EQ(list.mFirstIndex, 3);
    EXPECT_EQ(list.mLastIndex, 8);
}

TEST_F(ListMenuTest, RestorePosInAnEmptyListChangesNothing) {
    CountedList list(0);
    list.mCurIndex = 4;
    list.restorePos(0, 0, 0);
    EXPECT_EQ(list.mCurIndex, 4);
}

TEST_F(ListMenuTest, SetFocusAndSetRectStoreWhatTheyGet) {
    CountedList list(1);
    list.setFocus(false);
    EXPECT_FALSE(list.mFocus);
    SDL_Rect rect{1, 2, 3, 4};
    list.setRect(rect);
    rect.x = 99;
    EXPECT_EQ(list.mRect.x, 1);
    EXPECT_EQ(list.mRect.y, 2);
    EXPECT_EQ(list.mRect.w, 3);
    EXPECT_EQ(list.mRect.h, 4);
}

TEST_F(ListMenuTest, TheOperationsThatDoNothingByDefaultDoNothing) {
    BareList list;
    list.mCurIndex = 3;
    EXPECT_EQ(list.getItemThemePath(0), nullptr);
    EXPECT_EQ(list.xselect(), 0);
    list.refresh();
    list.removeItem(0);
    list.clearItemList();
    list.onShow();
    list.onHide();
    list.checkRepeatKey();
    EXPECT_EQ(list.mCurIndex, 3);
}

TEST_F(ListMenuTest, DownMovesOnceAsksForTheFastRateAndReturnsItsKey) {
    CountedList list(10);
    EXPECT_EQ(list.handleEvent(kDown), 6);
    EXPECT_EQ(list.mCurIndex, 1);
    EXPECT_THAT(boosts, ElementsAre(3000));
}

TEST_F(ListMenuTest, UpMovesOnceAsksForTheFastRateAndReturnsItsKey) {
    CountedList list(10);
    list.mCurIndex = 5;
    EXPECT_EQ(list.handleEvent(kUp), 5);
    EXPECT_EQ(list.mCurIndex, 4);
    EXPECT_THAT(boosts, ElementsAre(3000));
}

TEST_F(ListMenuTest, UpReturnsItsKeyWhenItWraps) {
    CountedList list(10);
    EXPECT_EQ(list.handleEvent(kUp), 5);
    EXPECT_EQ(list.mCurIndex, 9);
}

TEST_F(ListMenuTest, UpHandsListAtTopToTheOwner) {
    CountedList list(10);
    list.mWrapUp = false;
    EXPECT_EQ(list.handleEvent(kUp), 1008);
    EXPECT_EQ(list.mCurIndex, 0);
    EXPECT_THAT(boosts, ElementsAre(3000));
}

TEST_F(ListMenuTest, UpHandsAnyPositiveResultOfMoveBackwardToTheOwner) {
    class Tabbed : public CountedList {
    public:
        using CountedList::CountedList;
        int moveBackward() override { return result; }
        int result = 0;
    } list(10);
    for (const std::pair<int, int>& expected : {std::pair{3, 3}, {2000, 2000}, {0, 5}, {-1, 5}}) {
        list.result = expected.first;
        EXPECT_EQ(list.handleEvent(kUp), expected.second);
    }
}

TEST_F(ListMenuTest, KeysMoveThroughTheOperationsOfADerivedList) {
    class Moving : public CountedList {
    public:
        using CountedList::CountedList;
        int moveForward() override { return move("moveForward"); }
        int pageUp() override { return move("pageUp"); }
        int pageDown() override { return move("pageDown"); }
        std::vector<std::string> moves;

    private:
        int move(const char* name) {
            moves.emplace_back(name);
            return 0;
        }
    } list(10);
    const DrivenClock clock;
    list.handleEvent(kDown);
    for (const int key : {kDown, kUp}) {
        list.mPressedKeys.assign(11, key);
        list.mLastKeyTime = clock.now();
        list.handleEvent(key);
    }
    EXPECT_THAT(list.moves, ElementsAre("moveForward", "pageDown", "pageUp"));
}

TEST_F(ListMenuTest, AConfirmsUnlessBDoes) {
    CountedList list(10);
    EXPECT_EQ(list.handleEvent(1), 77);
    EXPECT_EQ(list.selections, 1);
    EXPECT_THAT(boosts, ElementsAre(3000));
}

TEST_F(ListMenuTest, AIsHandedBackWhenBConfirms) {
    host().shm.values[19] = 1;
    CountedList list(10);
    EXPECT_EQ(list.handleEvent(1), 1);
    EXPECT_EQ(list.selections, 0);
    EXPECT_THAT(boosts, ElementsAre(3000));
}

TEST_F(ListMenuTest, BIsHandedBackUnlessItConfirms) {
    CountedList list(10);
    EXPECT_EQ(list.handleEvent(2), 2);
    EXPECT_EQ(list.selections, 0);
    EXPECT_THAT(boosts, ElementsAre(3000));
}

TEST_F(ListMenuTest, BConfirmsWithAnySettingButZero) {
    CountedList list(10);
    for (const int setting : {1, 2, -1}) {
        host().shm.values[19] = setting;
        EXPECT_EQ(list.handleEvent(2), 77) << setting;
    }
    EXPECT_EQ(list.selections, 3);
    EXPECT_THAT(boosts, AllOf(SizeIs(3), Each(3000)));
}

TEST_F(ListMenuTest, XRunsTheSecondActionWhateverConfirms) {
    CountedList list(10);
    for (const int setting : {0, 1}) {
        host().shm.values[19] = setting;
        LogCapture log;
        EXPECT_EQ(list.handleEvent(3), 88);
        EXPECT_THAT(log.lines(), ElementsAre("key_x"));
    }
    EXPECT_EQ(list.secondSelections, 2);
    EXPECT_EQ(list.selections, 0);
    EXPECT_THAT(boosts, ElementsAre(3000, 3000));
}

TEST_F(ListMenuTest, KeysWithoutAnActionOfTheListAreHandedBackAtTheFastRate) {
    CountedList list(10);
    list.mCurIndex = 5;
    for (const int setting : {0, 1}) {
        host().shm.values[19] = setting;
        for (const int key : {7, 8, 9, 10, 11, 42}) EXPECT_EQ(list.handleEvent(key), key);
    }
    EXPECT_THAT(boosts, AllOf(SizeIs(12), Each(3000)));
    EXPECT_EQ(list.mCurIndex, 5);
    EXPECT_EQ(list.selections + list.secondSelections, 0);
}

TEST_F(ListMenuTest, OtherKeysAreHandedBackAtThePresentRate) {
    CountedList list(10);
    for (const int setting : {0, 1}) {
        host().shm.values[19] = setting;
        for (const int key : {4, 0, -1, -1000, 12, 13, 14, 15, 16, 25, 41, 43, 1002, 1003, 1008}) {
            EXPECT_EQ(list.handleEvent(key), key);
        }
    }
    EXPECT_THAT(boosts, IsEmpty());
    EXPECT_EQ(list.mCurIndex, 0);
    EXPECT_EQ(list.selections + list.secondSelections, 0);
}

TEST_F(ListMenuTest, EventHandlingTakesOneKeyFromTheQueue) {
    ostreltest::VirtualJoystick pad;
    CountedList list(10);
    ostreltest::pushUser(6);
    ostreltest::pushUser(6);
    EXPECT_EQ(list.eventHandling(), 6);
    EXPECT_EQ(list.mCurIndex, 1);
    EXPECT_EQ(list.eventHandling(), 6);
    EXPECT_EQ(list.mCurIndex, 2);
    EXPECT_EQ(list.eventHandling(), 0);
    EXPECT_EQ(list.mCurIndex, 2);
}

TEST_F(ListMenuTest, TheFirstKeyAfterAPauseIsNotEntered) {
    DrivenClock clock;
    CountedList list(10);
    list.addToPressedKeys(kDown);
    EXPECT_THAT(list.mPressedKeys, IsEmpty());
    EXPECT_EQ(list.mLastKeyTime, clock.now());
}

TEST_F(ListMenuTest, AKeyWithin199MillisecondsJoinsTheChain) {
    DrivenClock clock;
    CountedList list(10);
    list.addToPressedKeys(kDown);
    clock.advance(199);
    list.addToPressedKeys(kDown);
    EXPECT_THAT(list.mPressedKeys, ElementsAre(6));
    clock.advance(199);
    list.addToPressedKeys(kDown);
    EXPECT_THAT(list.mPressedKeys, ElementsAre(6, 6));
    EXPECT_EQ(list.mLastKeyTime, clock.now());
}

TEST_F(ListMenuTest, AKeyAfter200MillisecondsEmptiesTheChain) {
    DrivenClock clock;
    CountedList list(10);
    hold(list, kDown, 5, 100, clock);
    ASSERT_THAT(list.mPressedKeys, SizeIs(4));
    clock.advance(200);
    list.addToPressedKeys(kDown);
    EXPECT_THAT(list.mPressedKeys, IsEmpty());
    EXPECT_EQ(list.mLastKeyTime, clock.now());
}

TEST_F(ListMenuTest, AnyDirectionMayBeginAChain) {
    DrivenClock clock;
    for (const int key : {kUp, kDown, kLeft, kRight}) {
        CountedList list(10);
        list.addToPressedKeys(kDown);
        clock.advance(10);
        list.addToPressedKeys(key);
        EXPECT_THAT(list.mPressedKeys, ElementsAre(key));
    }
}

TEST_F(ListMenuTest, AnotherDirectionChangesNothing) {
    DrivenClock clock;
    CountedList list(10);
    hold(list, kDown, 2, 100, clock);
    const uint64_t lastDown = clock.now();
    clock.advance(150);
    list.addToPressedKeys(kUp);
    EXPECT_THAT(list.mPressedKeys, ElementsAre(6));
    EXPECT_EQ(list.mLastKeyTime, lastDown);
}

TEST_F(ListMenuTest, ADownWithin200MillisecondsOfTheLastOneExtendsTheChainPastAnUp) {
    DrivenClock clock;
    CountedList list(10);
    hold(list, kDown, 2, 100, clock);
    clock.advance(150);
    list.addToPressedKeys(kUp);
    clock.advance(49);
    list.addToPressedKeys(kDown);
    EXPECT_THAT(list.mPressedKeys, ElementsAre(6, 6));
}

TEST_F(ListMenuTest, AnUpDoesNotKeepTheChainAliveForTheNextDown) {
    DrivenClock clock;
    CountedList list(10);
    hold(list, kDown, 2, 100, clock);
    clock.advance(150);
    list.addToPressedKeys(kUp);
    clock.advance(50);
    list.addToPressedKeys(kDown);
    EXPECT_THAT(list.mPressedKeys, IsEmpty());
}

TEST_F(ListMenuTest, KeysThatAreNoDirectionLeaveTheChainAlone) {
    DrivenClock clock;
    CountedList list(10);
    hold(list, kDown, 3, 100, clock);
    const uint64_t lastDown = clock.now();
    clock.advance(500);
    for (const int key : {-1, 0, 1, 2, 3, 4, 9, 10, 11, 12, 42}) list.addToPressedKeys(key);
    EXPECT_THAT(list.mPressedKeys, ElementsAre(6, 6));
    EXPECT_EQ(list.mLastKeyTime, lastDown);
}

TEST_F(ListMenuTest, AClockThatWentBackwardsCountsAsAPause) {
    DrivenClock clock;
    CountedList list(10);
    hold(list, kDown, 3, 100, clock);
    clock.set(clock.now() - 1);
    list.addToPressedKeys(kDown);
    EXPECT_THAT(list.mPressedKeys, IsEmpty());
}

TEST_F(ListMenuTest, AChainOfTenIsNoHeldKeyAndOneOfElevenIs) {
    CountedList list(10);
    list.mPressedKeys.assign(10, kDown);
    LogCapture log;
    EXPECT_FALSE(list.pressedForAWhile());
    list.mPressedKeys.push_back(kDown);
    EXPECT_TRUE(list.pressedForAWhile());
    EXPECT_THAT(log.lines(), ElementsAre("pressedForAWhile 10", "pressedForAWhile 11"));
}

TEST_F(ListMenuTest, HeldDownMovesOneRowElevenTimesAndThenSix) {
    DrivenClock clock;
    CountedList list(100);
    hold(list, kDown, 11, 100, clock);
    EXPECT_EQ(list.mCurIndex, 11);
    hold(list, kDown, 1, 100, clock);
    EXPECT_EQ(list.mCurIndex, 17);
    hold(list, kDown, 1, 100, clock);
    EXPECT_EQ(list.mCurIndex, 23);
}

TEST_F(ListMenuTest, HeldDownStopsAtTheLastRow) {
    DrivenClock clock;
    CountedList list(15);
    hold(list, kDown, 13, 100, clock);
    EXPECT_EQ(list.mCurIndex, 14);
    EXPECT_EQ(list.handleEvent(kDown), 6);
    EXPECT_EQ(list.mCurIndex, 14);
}

TEST_F(ListMenuTest, HeldUpMovesSixRowsAndStopsAtTheFirst) {
    DrivenClock clock;
    CountedList list(100);
    list.mWrapUp = false;
    list.mCurIndex = 20;
    hold(list, kUp, 11, 100, clock);
    EXPECT_EQ(list.mCurIndex, 9);
    EXPECT_EQ(list.handleEvent(kUp), 5);
    EXPECT_EQ(list.mCurIndex, 3);
    EXPECT_EQ(list.handleEvent(kUp), 5);
    EXPECT_EQ(list.mCurIndex, 0);
    EXPECT_EQ(list.handleEvent(kUp), 5);
    EXPECT_EQ(list.mCurIndex, 0);
}

TEST_F(ListMenuTest, AReleaseOf200MillisecondsGoesBackToSingleRows) {
    DrivenClock clock;
    CountedList list(100);
    hold(list, kDown, 12, 100, clock);
    ASSERT_EQ(list.mCurIndex, 17);
    clock.advance(200);
    list.handleEvent(kDown);
    EXPECT_EQ(list.mCurIndex, 18);
}

TEST_F(ListMenuTest, EveryMoveLogsTheLengthOfTheChain) {
    DrivenClock clock;
    CountedList list(100);
    LogCapture log;
    hold(list, kDown, 2, 100, clock);
    hold(list, kUp, 1, 300, clock);
    EXPECT_THAT(log.lines(), ElementsAre("pressedForAWhile 0", "pressedForAWhile 1", "pressedForAWhile 0"));
}

TEST_F(ListMenuTest, TheOperationsHaveTheirSlots) {
    EXPECT_EQ(slotOf(&ListMenu::restorePos), 3);
    EXPECT_EQ(slotOf(&ListMenu::eventHandling), 4);
    EXPECT_EQ(slotOf(&ListMenu::select), 5);
    EXPECT_EQ(slotOf(&ListMenu::getItemByIndex), 6);
    EXPECT_EQ(slotOf(&ListMenu::getItemThemePath), 7);
    EXPECT_EQ(slotOf(&ListMenu::draw), 8);
    EXPECT_EQ(slotOf(&ListMenu::getListNum), 9);
    EXPECT_EQ(slotOf(&ListMenu::moveForward), 10);
    EXPECT_EQ(slotOf(&ListMenu::moveBackward), 11);
    EXPECT_EQ(slotOf(&ListMenu::xselect), 12);
    EXPECT_EQ(slotOf(&ListMenu::refresh), 13);
    EXPECT_EQ(slotOf(&ListMenu::removeItem), 14);
    EXPECT_EQ(slotOf(&ListMenu::clearItemList), 15);
    EXPECT_EQ(slotOf(&ListMenu::onShow), 16);
    EXPECT_EQ(slotOf(&ListMenu::onHide), 17);
    EXPECT_EQ(slotOf(&ListMenu::pageUp), 18);
    EXPECT_EQ(slotOf(&ListMenu::pageDown), 19);
}

TEST_F(ListMenuTest, TheFieldsHaveTheirPlaces) {
    const CountedList list(0);
    EXPECT_EQ(offsetIn(list, list.mShowFlag), 8);
    EXPECT_EQ(offsetIn(list, list.mWrapUp), 9);
    EXPECT_EQ(offsetIn(list, list.mCurIndex), 12);
    EXPECT_EQ(offsetIn(list, list.mFirstIndex), 16);
    EXPECT_EQ(offsetIn(list, list.mLastIndex), 20);
    EXPECT_EQ(offsetIn(list, list.mName), 24);
    EXPECT_EQ(offsetIn(list, list.mRect), 56);
    EXPECT_EQ(offsetIn(list, list.mLastKeyTime), 72);
    EXPECT_EQ(offsetIn(list, list.mPressedKeys), 80);
    EXPECT_EQ(offsetIn(list, list.mFocus), 104);
}

}  // namespace
