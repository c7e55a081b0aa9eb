// The main loop: what it calls in which order, and what the results of eventHandling do.
#include <dlfcn.h>

#include "ostrel/screen.h"
#include "ostrel/window.h"
#include "window/loop_test.h"

namespace ostreltest {
std::function<void()> onPresent;
}

// The library binds to this one, because a program's definitions come before those of its libraries.
int ScreenUpdateAndFlip() {
    if (ostreltest::onPresent) {
        ostreltest::onPresent();
        return 0;
    }
    static const auto librarys = reinterpret_cast<int (*)()>(dlsym(RTLD_NEXT, "_Z19ScreenUpdateAndFlipv"));
    return librarys();
}

namespace {

using ostreltest::Diary;
using ostreltest::LogCapture;
using ostreltest::pushUser;
using ostreltest::results;
using ostreltest::ScriptWindow;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using RunWindowsTest = ostreltest::LoopTest;

TEST_F(RunWindowsTest, EmptyStackStartsAndStopsTheRepeatThreadAlone) {
    LogCapture log;
    run();
    EXPECT_THAT(log.lines(), ElementsAre("runWindows", "clear repeat time", "init check_repeat_thread",
                                         "0 window to free", "deinit check_repeat_thread"));
}

TEST_F(RunWindowsTest, FrameCallsTheTopWindowInOrder) {
    push("bottom");
    push("top")->onEvents = results({1003});
    run();
    EXPECT_THAT(diary(), ElementsAre("top frame", "top preDraw", "top draw", "present", "top events", "top quit",
                                     "top deleted", "bottom quit", "bottom deleted"));
}

TEST_F(RunWindowsTest, WholeRunLogsTheseLines) {
    push("bottom", 3);
    ScriptWindow* top = push("top", 4);
    top->onEvents = results({1002});
    static_cast<ScriptWindow*>(stack()[0])->onEvents = results({1003});
    LogCapture log;
    run();
    EXPECT_THAT(log.lines(),
                ElementsAre("runWindows", "clear repeat time", "init check_repeat_thread",
                            "a is 1002, popup current window", "a is 1003, quit windows", "1 window to free",
                            "free window:title , type 3", "deinit check_repeat_thread"));
}

TEST_F(RunWindowsTest, StackIsEmptyWhenTheLoopReturns) {
    push("bottom");
    push("top")->onEvents = results({1003});
    run();
    EXPECT_THAT(stack(), IsEmpty());
}

TEST_F(RunWindowsTest, NamesTheRunningStackAndKeepsTheName) {
    gWinList = nullptr;
    std::vector<OstrelWindow*>* seen = nullptr;
    push("only")->onEvents = [&seen] {
        seen = gWinList;
        return 1003;
    };
    run();
    EXPECT_EQ(seen, &stack());
    EXPECT_EQ(gWinList, &stack());
}

TEST_F(RunWindowsTest, SwitchedOffDrawingLeavesInputAlone) {
    push("only")->onEvents = results({-1, 1003});
    toggleDrawState(false);
    run();
    EXPECT_THAT(diary(),
                ElementsAre("only frame", "only events", "only frame", "only events", "only quit", "only deleted"));
    EXPECT_THAT(clock().sleeps(), ElementsAre(100000));
}

TEST_F(RunWindowsTest, DrawingSwitchedOffInOnFrameIsOffForThatFrame) {
    ScriptWindow* only = push("only");
    only->onFrameBegin = [] { toggleDrawState(false); };
    only->onEvents = results({1003});
    run();
    EXPECT_THAT(diary(), ElementsAre("only frame", "only events", "only quit", "only deleted"));
}

TEST_F(RunWindowsTest, SwitchingDrawingOnPostsARedraw) {
    toggleDrawState(false);
    EXPECT_FALSE(gDrawWindow);
    EXPECT_EQ(wait_event(nullptr), 0);
    toggleDrawState(true);
    EXPECT_TRUE(gDrawWindow);
    SDL_Event event{};
    EXPECT_EQ(wait_event(&event), 25);
    EXPECT_EQ(event.type, Uint32{0x8000});
}

TEST_F(RunWindowsTest, EventsAreHandledOncePerFrameWithNothingQueued) {
    push("only")->onEvents = results({-1, -1, 1003});
    run();
    EXPECT_EQ(std::count(diary().begin(), diary().end(), "present"), 3);
}

TEST_F(RunWindowsTest, QueuedEventsAreHandledInOneFrame) {
    std::vector<int> seen;
    push("only")->onEvents = [&seen] {
        seen.push_back(wait_event(nullptr));
        return seen.back() == 33 ? 1003 : seen.back();
    };
    for (const int code : {31, 32, 33}) pushUser(code);
    run();
    EXPECT_THAT(seen, ElementsAre(31, 32, 33));
    EXPECT_EQ(std::count(diary().begin(), diary().end(), "present"), 1);
}

class RunWindowsResultTest : public ostreltest::LoopTest, public ::testing::WithParamInterface<int> {
protected:
    // Two events are queued; the first call gives the result, the second ends the loop.
    void runWith(int result) {
        push("bottom")->onEvents = results({});
        push("top")->onEvents = [calls = 0, result]() mutable {
            wait_event(nullptr);
            return ++calls == 1 ? result : 1003;
        };
        pushUser(31);
        pushUser(32);
        run();
    }
};

class RunWindowsOtherResultTest : public RunWindowsResultTest {};

TEST_P(RunWindowsOtherResultTest, GoesOnWithTheNextEvent) {
    runWith(GetParam());
    EXPECT_THAT(diary(), ElementsAre("top frame", "top preDraw", "top draw", "present", "top events", "top events",
                                     "top quit", "top deleted", "bottom quit", "bottom deleted"));
}

INSTANTIATE_TEST_SUITE_P(Codes, RunWindowsOtherResultTest,
                         ::testing::Values(-1, -2147483647 - 1, 0, 1, 24, 26, 1001, 1006, 1008, 2147483647),
                         [](const auto& row) {
                             return (row.param < 0 ? "Minus" : "") + std::to_string(std::abs(int64_t{row.param}));
                         });

TEST_F(RunWindowsResultTest, RedrawEndsTheFrameWithEventsStillQueued) {
    runWith(25);
    EXPECT_THAT(diary(), ElementsAre("top frame", "top preDraw", "top draw", "present", "top events", "top frame",
                                     "top preDraw", "top draw", "present", "top events", "top quit", "top deleted",
                                     "bottom quit", "bottom deleted"));
    EXPECT_THAT(clock().sleeps(), ElementsAre(100000));
}

TEST_F(RunWindowsResultTest, BackRemovesTheTopWindowAndEndsTheFrame) {
    runWith(1002);
    EXPECT_THAT(diary(), ElementsAre("top frame", "top preDraw", "top draw", "present", "top events", "top pop",
                                     "top quit", "top deleted", "bottom frame", "bottom preDraw", "bottom draw",
                                     "present", "bottom events", "bottom quit", "bottom deleted"));
    EXPECT_THAT(clock().sleeps(), ElementsAre(100000));
}

TEST_F(RunWindowsResultTest, CloseRemovesTheTopWindowAndEndsTheFrame) {
    LogCapture log;
    runWith(1005);
    EXPECT_THAT(diary(), ElementsAre("top frame", "top preDraw", "top draw", "present", "top events", "top pop",
                                     "top quit", "top deleted", "bottom frame", "bottom preDraw", "bottom draw",
                                     "present", "bottom events", "bottom quit", "bottom deleted"));
    EXPECT_TRUE(log.contains("a is 1005, popup current window\n"));
}

TEST_F(RunWindowsTest, BackOnTheLastWindowIsIgnored) {
    push("only")->onEvents = results({1002, 1003});
    LogCapture log;
    run();
    EXPECT_THAT(diary(),
                ElementsAre("only frame", "only preDraw", "only draw", "present", "only events", "only frame",
                            "only preDraw", "only draw", "present", "only events", "only quit", "only deleted"));
    EXPECT_FALSE(log.contains("popup current window"));
}

TEST_F(RunWindowsTest, IgnoredBackGoesOnWithTheNextEvent) {
    push("only")->onEvents = results({1002, 1003});
    pushUser(31);
    run();
    EXPECT_EQ(std::count(diary().begin(), diary().end(), "present"), 1);
}

TEST_F(RunWindowsTest, CloseOnTheLastWindowEndsTheLoopWithNothingLeftToFree) {
    push("only")->onEvents = results({1005});
    LogCapture log;
    run();
    EXPECT_THAT(log.lines(),
                ElementsAre("runWindows", "clear repeat time", "init check_repeat_thread",
                            "a is 1005, popup current window", "0 window to free", "deinit check_repeat_thread"));
    EXPECT_THAT(diary(), ElementsAre("only frame", "only preDraw", "only draw", "present", "only events", "only pop",
                                     "only quit", "only deleted"));
}

TEST_F(RunWindowsTest, ClosingTheLastWindowIsPacedLikeAnyFrame) {
    push("only")->onEvents = results({1005});
    run();
    EXPECT_THAT(clock().sleeps(), ElementsAre(100000));
}

TEST_F(RunWindowsTest, RemovedWindowStandsOnTheStackUntilItIsDeleted) {
    push("bottom");
    ScriptWindow* top = push("top");
    std::vector<std::size_t> sizes;
    const auto noteSize = [this, &sizes] { sizes.push_back(stack().size()); };
    top->onRemoved = noteSize;
    top->onQuit = noteSize;
    top->onDelete = noteSize;
    top->onEvents = results({1002});
    static_cast<ScriptWindow*>(stack()[0])->onEvents = results({});
    run();
    EXPECT_THAT(sizes, ElementsAre(2, 2, 2));
}

class RunWindowsQuitTest : public ostreltest::LoopTest, public ::testing::WithParamInterface<int> {};

TEST_P(RunWindowsQuitTest, LeavesTheLoopAtOnceWithoutSleeping) {
    push("only")->onEvents = results({GetParam()});
    pushUser(31);
    run();
    EXPECT_THAT(diary(), ElementsAre("only frame", "only preDraw", "only draw", "present", "only events", "only quit",
                                     "only deleted"));
    EXPECT_THAT(clock().sleeps(), IsEmpty());
}

TEST_P(RunWindowsQuitTest, LeavesAnOrdinaryWindowToBeFreedWithTheRest) {
    push("bottom", 1);
    push("top", 0)->onEvents = results({GetParam()});
    LogCapture log;
    run();
    EXPECT_TRUE(log.contains("2 window to free\nfree window:title , type 0\nfree window:title , type 1\n"));
}

TEST_P(RunWindowsQuitTest, DeletesATransientWindowFirstAndWithoutOnPop) {
    push("bottom", 1);
    push("top", -1)->onEvents = results({GetParam()});
    LogCapture log;
    run();
    EXPECT_THAT(diary(), ElementsAre("top frame", "top preDraw", "top draw", "present", "top events", "top quit",
                                     "top deleted", "bottom quit", "bottom deleted"));
    EXPECT_TRUE(log.contains("a is " + std::to_string(GetParam()) +
                             ", quit windows\n1 window to free\nfree window:title , type 1\n"));
}

TEST_P(RunWindowsQuitTest, TransientWindowsBelowTheTopAreFreedWithTheRest) {
    push("bottom", -1);
    push("top", 0)->onEvents = results({GetParam()});
    LogCapture log;
    run();
    EXPECT_TRUE(log.contains("2 window to free\n"));
}

INSTANTIATE_TEST_SUITE_P(Codes, RunWindowsQuitTest, ::testing::Values(1003, 1004),
                         [](const auto& row) { return std::to_string(row.param); });

TEST_F(RunWindowsTest, WindowMayPushAnotherAndCloseItself) {
    ScriptWindow* first = push("first");
    ScriptWindow* second = newWindow("second");
    second->onEvents = results({1003});
    first->onEvents = [this, second] {
        stack().push_back(second);
        return 1002;
    };
    run();
    EXPECT_THAT(diary(), ElementsAre("first frame", "first preDraw", "first draw", "present", "first events",
                                     "first pop", "first quit", "first deleted", "second frame", "second preDraw",
                                     "second draw", "present", "second events", "second quit", "second deleted"));
}

TEST_F(RunWindowsTest, WindowThatPushedAnotherGoesOnHandlingTheQueuedEvents) {
    ScriptWindow* second = newWindow("second");
    second->onEvents = results({1003});
    push("first")->onEvents = [this, second, calls = 0]() mutable {
        wait_event(nullptr);
        if (++calls == 1) stack().push_back(second);
        return -1;
    };
    pushUser(31);
    pushUser(32);
    run();
    EXPECT_THAT(diary(), ElementsAre("first frame", "first preDraw", "first draw", "present", "first events",
                                     "first events", "second frame", "second preDraw", "second draw", "present",
                                     "second events", "second quit", "second deleted", "first quit", "first deleted"));
}

TEST_F(RunWindowsTest, WindowMayDeleteItsNeighbours) {
    push("bottom");
    push("middle");
    push("top")->onEvents = [this] {
        while (stack().size() > 1) {
            OstrelWindow* neighbour = stack().front();
            stack().erase(stack().begin());
            neighbour->quit();
            delete neighbour;
        }
        return 1005;
    };
    run();
    EXPECT_THAT(diary(),
                ElementsAre("top frame", "top preDraw", "top draw", "present", "top events", "bottom quit",
                            "bottom deleted", "middle quit", "middle deleted", "top pop", "top quit", "top deleted"));
}

TEST_F(RunWindowsTest, NeighbourDeletedFromQuitIsNotFreedAgain) {
    push("bottom");
    push("middle");
    ScriptWindow* top = push("top");
    top->onEvents = results({1003});
    top->onQuit = [this] {
        OstrelWindow* neighbour = stack().back();
        stack().pop_back();
        delete neighbour;
    };
    run();
    EXPECT_THAT(diary(), ElementsAre("top frame", "top preDraw", "top draw", "present", "top events", "top quit",
                                     "middle deleted", "top deleted", "bottom quit", "bottom deleted"));
}

TEST_F(RunWindowsTest, WindowTakenOffTheStackByItsOwnHandlingIsNotTouchedAgain) {
    push("bottom")->onEvents = results({});
    ScriptWindow* top = push("top");
    top->onEvents = [this, top] {
        stack().pop_back();
        Diary& notes = diary();
        delete top;
        notes.push_back("gone");
        return -1;
    };
    pushUser(31);
    run();
    EXPECT_THAT(diary(), ElementsAre("top frame", "top preDraw", "top draw", "present", "top events", "top deleted",
                                     "gone", "bottom frame", "bottom preDraw", "bottom draw", "present",
                                     "bottom events", "bottom quit", "bottom deleted"));
}

// Takes the top window off the stack and deletes it, as the call that this runs in may do with its own window.
void deleteTop(std::vector<OstrelWindow*>& stack) {
    OstrelWindow* top = stack.back();
    stack.pop_back();
    delete top;
}

TEST_F(RunWindowsTest, WindowThatDeletesItselfInOnFrameIsNotTouchedAgain) {
    push("bottom")->onEvents = results({});
    push("top")->onFrameBegin = [this] { deleteTop(stack()); };
    run();
    EXPECT_THAT(diary(), ElementsAre("top frame", "top deleted", "bottom frame", "bottom preDraw", "bottom draw",
                                     "present", "bottom events", "bottom quit", "bottom deleted"));
}

TEST_F(RunWindowsTest, WindowThatDeletesItselfInOnFrameWithDrawingOffIsNotTouchedAgain) {
    push("bottom")->onEvents = results({});
    push("top")->onFrameBegin = [this] { deleteTop(stack()); };
    toggleDrawState(false);
    run();
    EXPECT_THAT(diary(), ElementsAre("top frame", "top deleted", "bottom frame", "bottom events", "bottom quit",
                                     "bottom deleted"));
}

TEST_F(RunWindowsTest, WindowThatDeletesItselfInPreDrawIsNotTouchedAgain) {
    push("bottom")->onEvents = results({});
    push("top")->onPreDraw = [this] { deleteTop(stack()); };
    run();
    EXPECT_THAT(diary(), ElementsAre("top frame", "top preDraw", "top deleted", "bottom frame", "bottom preDraw",
                                     "bottom draw", "present", "bottom events", "bottom quit", "bottom deleted"));
}

TEST_F(RunWindowsTest, WindowThatDeletesItselfInDrawIsNeitherPresentedNorTouchedAgain) {
    push("bottom")->onEvents = results({});
    push("top")->onDraw = [this] { deleteTop(stack()); };
    run();
    EXPECT_THAT(diary(),
                ElementsAre("top frame", "top preDraw", "top draw", "top deleted", "bottom frame", "bottom preDraw",
                            "bottom draw", "present", "bottom events", "bottom quit", "bottom deleted"));
}

TEST_F(RunWindowsTest, LoopEndsWhenTheLastWindowDeletesItselfInDraw) {
    push("only")->onDraw = [this] { deleteTop(stack()); };
    run();
    EXPECT_THAT(diary(), ElementsAre("only frame", "only preDraw", "only draw", "only deleted"));
}

TEST_F(RunWindowsTest, WindowThatTookItselfOffAndAsksToCloseIsNotDeletedTwice) {
    push("bottom")->onEvents = results({});
    push("lower");
    ScriptWindow* top = push("top");
    top->onEvents = [this, top] {
        stack().pop_back();
        delete top;
        return 1005;
    };
    static_cast<ScriptWindow*>(stack()[1])->onEvents = results({});
    LogCapture log;
    run();
    EXPECT_EQ(std::count(diary().begin(), diary().end(), "top deleted"), 1);
    EXPECT_EQ(std::count(diary().begin(), diary().end(), "top pop"), 0);
    EXPECT_TRUE(log.contains("2 window to free\n"));
}

TEST_F(RunWindowsTest, WindowThatNeverPollsEndsItsFrameAfter64Passes) {
    ScriptWindow* only = push("only");
    only->onEvents = [calls = 0]() mutable { return ++calls == 65 ? 1003 : -1; };
    pushUser(31);
    run();
    EXPECT_EQ(std::count(diary().begin(), diary().end(), "present"), 2);
    EXPECT_THAT(clock().sleeps(), ElementsAre(100000));
}

TEST_F(RunWindowsTest, WindowThatNeverPollsGetsTwoPassesForEachOfManyEvents) {
    push("only")->onEvents = [calls = 0]() mutable { return ++calls == 81 ? 1003 : -1; };
    for (int i = 0; i < 40; ++i) pushUser(31);
    run();
    EXPECT_EQ(std::count(diary().begin(), diary().end(), "present"), 2);
    EXPECT_THAT(clock().sleeps(), ElementsAre(100000));
}

TEST_F(RunWindowsTest, ManyQueuedEventsAreAllHandledInOneFrame) {
    int seen = 0;
    push("only")->onEvents = [&seen] { return wait_event(nullptr) == 31 && ++seen == 500 ? 1003 : -1; };
    for (int i = 0; i < 500; ++i) pushUser(31);
    run();
    EXPECT_EQ(std::count(diary().begin(), diary().end(), "present"), 1);
}

TEST_F(RunWindowsTest, QuitEventShutsSdlDownAndTheLoopGoesOn) {
    push("only")->onEvents = [calls = 0]() mutable {
        wait_event(nullptr);
        return ++calls == 3 ? 1003 : -1;
    };
    SDL_Event event{};
    event.type = SDL_QUIT;
    SDL_PushEvent(&event);
    run();
    EXPECT_EQ(SDL_WasInit(0), 0U);
    EXPECT_EQ(std::count(diary().begin(), diary().end(), "only draw"), 3);
}

TEST_F(RunWindowsTest, QuitEventThatWaitedBehindAnotherShutsSdlDownWithoutBeingPolled) {
    push("only")->onEvents = [calls = 0]() mutable {
        if (++calls == 1) return -1;
        return calls == 2 ? 25 : 1003;
    };
    SDL_Event event{};
    event.type = SDL_QUIT;
    SDL_PushEvent(&event);
    run();
    EXPECT_EQ(SDL_WasInit(0), 0U);
}

TEST_F(RunWindowsTest, QuitResultWithAPeekedQuitEventShutsSdlDown) {
    bool running = true;
    ScriptWindow* only = push("only");
    only->onEvents = results({-1, 1003});
    only->onQuit = [&running] { running = SDL_WasInit(0) != 0; };
    SDL_Event event{};
    event.type = SDL_QUIT;
    SDL_PushEvent(&event);
    run();
    EXPECT_EQ(SDL_WasInit(0), 0U);
    EXPECT_FALSE(running);
}

TEST_F(RunWindowsTest, TransientWindowIsDeletedBeforeThePeekedQuitEventShutsSdlDown) {
    bool running = false;
    ScriptWindow* only = push("only", -1);
    only->onEvents = results({-1, 1003});
    only->onQuit = [&running] { running = SDL_WasInit(0) != 0; };
    SDL_Event event{};
    event.type = SDL_QUIT;
    SDL_PushEvent(&event);
    run();
    EXPECT_EQ(SDL_WasInit(0), 0U);
    EXPECT_TRUE(running);
}

TEST_F(RunWindowsTest, QuitEventNobodySawLeavesSdlAlone) {
    push("only")->onEvents = results({25, 1003});
    SDL_Event event{};
    event.type = SDL_QUIT;
    SDL_PushEvent(&event);
    run();
    EXPECT_NE(SDL_WasInit(SDL_INIT_JOYSTICK), 0U);
}

TEST_F(RunWindowsTest, LoopInsideALoopPutsTheOuterStackBack) {
    std::vector<OstrelWindow*> inner{newWindow("inner")};
    std::vector<OstrelWindow*>* during = nullptr;
    static_cast<ScriptWindow*>(inner[0])->onEvents = [&during] {
        during = gWinList;
        return 1003;
    };
    push("outer")->onEvents = [&inner] {
        runWindows(inner);
        return 1003;
    };
    run();
    EXPECT_EQ(during, &inner);
    EXPECT_EQ(gWinList, &stack());
}

TEST_F(RunWindowsTest, LoopInsideALoopSharesTheRepeatThread) {
    std::vector<OstrelWindow*> inner{newWindow("inner")};
    static_cast<ScriptWindow*>(inner[0])->onEvents = results({1003});
    push("outer")->onEvents = [&inner] {
        runWindows(inner);
        return 1003;
    };
    LogCapture log;
    run();
    EXPECT_THAT(log.lines(), ElementsAre("runWindows", "clear repeat time", "init check_repeat_thread", "runWindows",
                                         "clear repeat time", "a is 1003, quit windows", "1 window to free",
                                         "free window:title , type 0", "a is 1003, quit windows", "1 window to free",
                                         "free window:title , type 0", "deinit check_repeat_thread"));
}

TEST_F(RunWindowsTest, WindowsAreFreedFromTheTopDown) {
    push("bottom", 1);
    push("middle", -2);
    push("top", 3);
    LogCapture log;
    freeWindows(stack());
    EXPECT_EQ(
        log.text(),
        "3 window to free\nfree window:title , type 3\nfree window:title , type -2\nfree window:title , type 1\n");
    EXPECT_THAT(diary(), ElementsAre("top quit", "top deleted", "middle quit", "middle deleted", "bottom quit",
                                     "bottom deleted"));
}

TEST_F(RunWindowsTest, FreedWindowIsOffTheStackBeforeItsQuit) {
    push("bottom");
    ScriptWindow* top = push("top");
    std::size_t size = 0;
    top->onQuit = [this, &size] { size = stack().size(); };
    freeWindows(stack());
    EXPECT_EQ(size, 1U);
}

}  // namespace
