// Popups: who is shown, who is dropped, and when.
#include "window/loop_test.h"

namespace {

using ostreltest::LogCapture;
using ostreltest::pushUser;
using ostreltest::results;
using ostreltest::ScriptWindow;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PopupQueueTest : public ostreltest::LoopTest {
protected:
    ScriptWindow* newPopup(const std::string& name) {
        ScriptWindow* popup = newWindow(name, -1);
        popup->onEvents = results({});
        return popup;
    }
};

TEST_F(PopupQueueTest, QueuedPopupWaits) {
    ScriptWindow* popup = newPopup("popup");
    add2PopupList(popup);
    EXPECT_THAT(gPopupList, ElementsAre(popup));
    EXPECT_THAT(diary(), IsEmpty());
    delete popup;
}

TEST_F(PopupQueueTest, NewestPopupWinsAndTheOlderIsDroppedUnseen) {
    add2PopupList(newPopup("older"));
    ScriptWindow* newer = newPopup("newer");
    add2PopupList(newer);
    EXPECT_THAT(gPopupList, ElementsAre(newer));
    EXPECT_THAT(diary(), ElementsAre("older quit", "older deleted"));
    delete newer;
}

TEST_F(PopupQueueTest, EveryPopupThatTheHostQueuedItselfIsDroppedFromTheFirstOn) {
    gPopupList = {newPopup("first"), newPopup("second")};
    ScriptWindow* newer = newPopup("newer");
    add2PopupList(newer);
    EXPECT_THAT(diary(), ElementsAre("first quit", "first deleted", "second quit", "second deleted"));
    delete newer;
}

TEST_F(PopupQueueTest, PopupQueuedByTheQuitOfADroppedOneIsDroppedToo) {
    ScriptWindow* older = newPopup("older");
    older->onQuit = [this] { add2PopupList(newPopup("parting")); };
    add2PopupList(older);
    ScriptWindow* newer = newPopup("newer");
    add2PopupList(newer);
    EXPECT_THAT(gPopupList, ElementsAre(newer));
    EXPECT_THAT(diary(), ElementsAre("older quit", "older deleted", "parting quit", "parting deleted"));
    delete newer;
}

// Each of them queues the next one for as long as the test lets it.
TEST_F(PopupQueueTest, PopupThatAlwaysQueuesASuccessorDoesNotHoldUpANewOne) {
    int made = 0;
    std::function<ScriptWindow*()> newRevenant = [&] {
        ScriptWindow* revenant = newPopup(std::to_string(++made));
        revenant->onQuit = [&] {
            if (made < 50) add2PopupList(newRevenant());
        };
        return revenant;
    };
    add2PopupList(newRevenant());
    ScriptWindow* newer = newPopup("newer");
    add2PopupList(newer);
    EXPECT_THAT(diary(), ElementsAre("1 quit", "1 deleted", "2 quit", "2 deleted"));
    ASSERT_EQ(gPopupList.size(), 2U);
    EXPECT_EQ(gPopupList.back(), newer);
    made = 50;  // the last of them rests
    push("bottom");
    run();
    EXPECT_EQ(std::count(diary().begin(), diary().end(), "newer draw"), 1);
    EXPECT_EQ(std::count(diary().begin(), diary().end(), "3 draw"), 0);
    EXPECT_EQ(std::count(diary().begin(), diary().end(), "3 deleted"), 1);
}

TEST_F(PopupQueueTest, PopupIsPromotedAfterTheFrameIsDrawnAndDrawnInTheVeryNextFrame) {
    push("bottom");
    add2PopupList(newPopup("popup"));
    LogCapture log;
    run();
    EXPECT_THAT(diary(), ElementsAre("bottom frame", "bottom preDraw", "bottom draw", "present", "popup init",
                                     "popup frame", "popup preDraw", "popup draw", "present", "popup events",
                                     "popup quit", "popup deleted", "bottom quit", "bottom deleted"));
    EXPECT_THAT(clock().sleeps(), IsEmpty());
    EXPECT_TRUE(log.contains("init check_repeat_thread\nadd popup window\na is 1003, quit windows\n"));
}

TEST_F(PopupQueueTest, PromotionLeavesTheBoostBudgetAlone) {
    push("bottom");
    ScriptWindow* popup = newPopup("popup");
    popup->onEvents = results({-1, -1});
    add2PopupList(popup);
    touchBoostFps(1);
    run();
    EXPECT_THAT(clock().sleeps(), ElementsAre(33000, 100000));
}

TEST_F(PopupQueueTest, LastOfSeveralIsPromotedAndTheOthersAreDropped) {
    push("bottom");
    gPopupList = {newPopup("first"), newPopup("second"), newPopup("third")};
    run();
    EXPECT_THAT(diary(), ElementsAre("bottom frame", "bottom preDraw", "bottom draw", "present", "third init",
                                     "first quit", "first deleted", "second quit", "second deleted", "third frame",
                                     "third preDraw", "third draw", "present", "third events", "third quit",
                                     "third deleted", "bottom quit", "bottom deleted"));
}

TEST_F(PopupQueueTest, PopupIsOffTheListAndNotYetOnTheStackInItsInit) {
    push("bottom");
    ScriptWindow* popup = newPopup("popup");
    std::size_t waiting = 9;
    std::size_t windows = 9;
    popup->onInit = [this, &waiting, &windows] {
        waiting = gPopupList.size();
        windows = stack().size();
    };
    add2PopupList(popup);
    run();
    EXPECT_EQ(waiting, 0U);
    EXPECT_EQ(windows, 1U);
}

TEST_F(PopupQueueTest, PopupQueuedInInitIsPromotedOnTopInTheNextFrame) {
    push("bottom");
    ScriptWindow* popup = newPopup("popup");
    popup->onInit = [this] { add2PopupList(newPopup("next")); };
    add2PopupList(popup);
    run();
    EXPECT_THAT(diary(), ElementsAre("bottom frame", "bottom preDraw", "bottom draw", "present", "popup init",
                                     "popup frame", "popup preDraw", "popup draw", "present", "next init", "next frame",
                                     "next preDraw", "next draw", "present", "next events", "next quit", "next deleted",
                                     "popup quit", "popup deleted", "bottom quit", "bottom deleted"));
}

TEST_F(PopupQueueTest, PopupQueuedByTheQuitOfADroppedOneIsPromotedInTheNextFrame) {
    push("bottom");
    ScriptWindow* dropped = newPopup("dropped");
    dropped->onQuit = [this] { add2PopupList(newPopup("parting")); };
    gPopupList = {dropped, newPopup("popup")};
    run();
    EXPECT_THAT(diary(), ElementsAre("bottom frame", "bottom preDraw", "bottom draw", "present", "popup init",
                                     "dropped quit", "dropped deleted", "popup frame", "popup preDraw", "popup draw",
                                     "present", "parting init", "parting frame", "parting preDraw", "parting draw",
                                     "present", "parting events", "parting quit", "parting deleted", "popup quit",
                                     "popup deleted", "bottom quit", "bottom deleted"));
}

TEST_F(PopupQueueTest, PopupQueuedInOnFrameIsPromotedInThatFrame) {
    ScriptWindow* bottom = push("bottom");
    bottom->onFrameBegin = [this, bottom] {
        bottom->onFrameBegin = nullptr;
        add2PopupList(newPopup("popup"));
    };
    run();
    EXPECT_THAT(diary(), ElementsAre("bottom frame", "bottom preDraw", "bottom draw", "present", "popup init",
                                     "popup frame", "popup preDraw", "popup draw", "present", "popup events",
                                     "popup quit", "popup deleted", "bottom quit", "bottom deleted"));
}

TEST_F(PopupQueueTest, PopupQueuedInPreDrawIsPromotedInThatFrame) {
    ScriptWindow* bottom = push("bottom");
    bottom->onPreDraw = [this] { add2PopupList(newPopup("popup")); };
    run();
    EXPECT_THAT(diary(), ElementsAre("bottom frame", "bottom preDraw", "bottom draw", "present", "popup init",
                                     "popup frame", "popup preDraw", "popup draw", "present", "popup events",
                                     "popup quit", "popup deleted", "bottom quit", "bottom deleted"));
}

TEST_F(PopupQueueTest, PopupQueuedInDrawIsPromotedInThatFrame) {
    ScriptWindow* bottom = push("bottom");
    bottom->onDraw = [this] { add2PopupList(newPopup("popup")); };
    run();
    EXPECT_THAT(diary(), ElementsAre("bottom frame", "bottom preDraw", "bottom draw", "present", "popup init",
                                     "popup frame", "popup preDraw", "popup draw", "present", "popup events",
                                     "popup quit", "popup deleted", "bottom quit", "bottom deleted"));
}

TEST_F(PopupQueueTest, PopupQueuedInEventHandlingIsPromotedInTheNextFrame) {
    push("bottom")->onEvents = [this] {
        add2PopupList(newPopup("popup"));
        return -1;
    };
    run();
    EXPECT_THAT(diary(), ElementsAre("bottom frame", "bottom preDraw", "bottom draw", "present", "bottom events",
                                     "bottom frame", "bottom preDraw", "bottom draw", "present", "popup init",
                                     "popup frame", "popup preDraw", "popup draw", "present", "popup events",
                                     "popup quit", "popup deleted", "bottom quit", "bottom deleted"));
    EXPECT_THAT(clock().sleeps(), ElementsAre(100000));
}

TEST_F(PopupQueueTest, PopupQueuedInQuitIsPromotedOverTheWindowBelow) {
    push("bottom");
    ScriptWindow* top = push("top");
    top->onEvents = results({1002});
    top->onQuit = [this] { add2PopupList(newPopup("popup")); };
    run();
    EXPECT_THAT(diary(), ElementsAre("top frame", "top preDraw", "top draw", "present", "top events", "top pop",
                                     "top quit", "top deleted", "bottom frame", "bottom preDraw", "bottom draw",
                                     "present", "popup init", "popup frame", "popup preDraw", "popup draw", "present",
                                     "popup events", "popup quit", "popup deleted", "bottom quit", "bottom deleted"));
}

TEST_F(PopupQueueTest, PopupQueuedInOnPopIsPromotedOverTheWindowBelow) {
    push("bottom");
    ScriptWindow* top = push("top");
    top->onEvents = results({1002});
    top->onRemoved = [this] { add2PopupList(newPopup("popup")); };
    run();
    EXPECT_THAT(diary(), ElementsAre("top frame", "top preDraw", "top draw", "present", "top events", "top pop",
                                     "top quit", "top deleted", "bottom frame", "bottom preDraw", "bottom draw",
                                     "present", "popup init", "popup frame", "popup preDraw", "popup draw", "present",
                                     "popup events", "popup quit", "popup deleted", "bottom quit", "bottom deleted"));
}

TEST_F(PopupQueueTest, EventsStayQueuedForThePopup) {
    push("bottom");
    ScriptWindow* popup = newPopup("popup");
    int seen = 0;
    popup->onEvents = [&seen] {
        seen = wait_event(nullptr);
        return 1003;
    };
    add2PopupList(popup);
    pushUser(31);
    run();
    EXPECT_EQ(seen, 31);
}

TEST_F(PopupQueueTest, PopupQueuedInTheLastFrameIsShownByTheNextLoop) {
    push("bottom")->onEvents = [this] {
        add2PopupList(newPopup("popup"));
        return 1003;
    };
    run();
    EXPECT_EQ(gPopupList.size(), 1U);
    push("next");
    run();
    EXPECT_EQ(std::count(diary().begin(), diary().end(), "popup draw"), 1);
    EXPECT_THAT(gPopupList, IsEmpty());
}

TEST_F(PopupQueueTest, PopupThatQuitsIsDeletedBeforeTheOthersAreFreed) {
    push("bottom");
    add2PopupList(newPopup("popup"));
    LogCapture log;
    run();
    EXPECT_TRUE(log.contains("1 window to free\n"));
}

}  // namespace
