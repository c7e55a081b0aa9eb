// The loop with a real screen: dialogs over what stood there, and the end of SDL while windows go on drawing.
#include <cstdlib>

#include "ostrel/dialog.h"
#include "ostrel/input.h"
#include "ostrel/menu_item.h"
#include "ostrel/screen.h"
#include "ostrel/skin.h"
#include "ostrel/text.h"
#include "support/driven_clock.h"
#include "support/log_capture.h"
#include "support/screen_test.h"
#include "support/virtual_joystick.h"
#include "window/script_window.h"

namespace {

using ostreltest::Colour;
using ostreltest::Diary;
using ostreltest::LogCapture;
using ostreltest::Picture;
using ostreltest::plainSurface;
using ostreltest::ScriptWindow;

constexpr Colour kDarkRed{200, 0, 0, 255};

class LoopOnScreen : public ostreltest::ScreenTest {
protected:
    LoopOnScreen() {
        device().linkFont();
        const LogCapture quiet;
        init_shared_skin();
        ostreltest::drainEvents();
    }
    ~LoopOnScreen() override { uninit_shared_skin(); }

    static void postQuit() {
        SDL_Event event{};
        event.type = SDL_QUIT;
        SDL_PushEvent(&event);
    }
    // Fills the screen, and writes on it.
    ScriptWindow* pushRedWindow() {
        auto* window = new ScriptWindow(mDiary, "red", 4);
        window->onDraw = [window] {
            FillRect(nullptr, nullptr, kDarkRed.r, kDarkRed.g, kDarkRed.b, 255);
            DrawString(gNavFont, {100, 100, 400, 50}, "text", gNavColorTxt, 0, true, false);
            window->drawNavBar(0);
            window->drawStatBar(0);
        };
        mStack.push_back(window);
        return window;
    }
    std::vector<OstrelWindow*>& stack() { return mStack; }
    Diary& diary() { return mDiary; }

private:
    ostreltest::DrivenClock mClock;
    Diary mDiary;
    std::vector<OstrelWindow*> mStack;
};

class LoopLifecycle : public LoopOnScreen {};

// After that many frames.
std::function<int()> quitAfter(int frames) {
    return [frames, seen = 0]() mutable {
        wait_event(nullptr);
        return ++seen < frames ? 25 : 1003;
    };
}

TEST_F(LoopLifecycle, WindowsGoOnDrawingAfterTheQuitEvent) {
    const auto image = plainSurface(30, 20, kDarkRed);
    ScriptWindow* window = pushRedWindow();
    const auto drawRed = window->onDraw;
    window->onDraw = [&] {
        drawRed();
        image->render(nullptr, nullptr, true, nullptr);
    };
    bool screenIsGone = false;
    window->onEvents = [&screenIsGone, calls = 0]() mutable {
        wait_event(nullptr);
        if (++calls == 1) postQuit();
        if (gRenderer == nullptr) screenIsGone = true;
        return calls < 6 ? -1 : 1003;
    };
    runWindows(stack());
    EXPECT_TRUE(screenIsGone);
    EXPECT_EQ(SDL_WasInit(0), 0U);
}

TEST_F(LoopLifecycle, NextLoopRunsOnANewScreen) {
    pushRedWindow()->onEvents = quitAfter(3);
    postQuit();
    runWindows(stack());
    ASSERT_EQ(gRenderer, nullptr);
    ASSERT_EQ(ScreenInit(1280, 720, 32, 0), 1);
    pushRedWindow()->onEvents = quitAfter(2);
    runWindows(stack());
    EXPECT_EQ(Picture::ofWindow().at(640, 360), kDarkRed);
    EXPECT_NE(Picture::ofWindow().count(kDarkRed), 1280 * 720);  // the text is there
}

// The first loop ends with the quit event still queued, seen and not taken.
TEST_F(LoopLifecycle, QuitEventOfAnEarlierLoopDoesNotEndTheNext) {
    pushRedWindow()->onEvents = [calls = 0]() mutable {
        if (++calls == 1) postQuit();
        return calls == 1 ? -1 : 1003;
    };
    runWindows(stack());
    ASSERT_EQ(gRenderer, nullptr);
    ASSERT_EQ(ScreenInit(1280, 720, 32, 0), 1);
    pushRedWindow()->onEvents = quitAfter(2);
    runWindows(stack());
    EXPECT_NE(gRenderer, nullptr);
}

// No key arrives once SDL is gone, so this dialog closes by itself.
class ClosingDialog : public DialogWindow {
public:
    ClosingDialog() : DialogWindow("Title", "Message", true, nullptr, nullptr) {}
    int eventHandling() override {
        const int result = DialogWindow::eventHandling();
        return ++mCalls < 20 ? result : WIN_CLOSE;
    }

private:
    int mCalls = 0;
};

TEST_F(LoopLifecycle, DialogOutlivesTheScreen) {
    pushRedWindow()->onEvents = quitAfter(1);
    auto* dialog = new ClosingDialog;
    dialog->mExtra = plainSurface(30, 20, kDarkRed).release();
    add2PopupList(dialog);
    postQuit();
    runWindows(stack());
    EXPECT_EQ(gRenderer, nullptr);
}

class DialogLoop : public LoopOnScreen {};

TEST_F(DialogLoop, DialogStandsOverTheFrozenScreenUntilItIsAnswered) {
    ScriptWindow* window = pushRedWindow();
    window->onEvents = quitAfter(1);
    auto* dialog = new DialogWindow("", "", false, nullptr, nullptr);
    add2PopupList(dialog);
    EXPECT_EQ(dialog->mSnapshot, nullptr);
    window->onDraw = [] { FillRect(nullptr, nullptr, kDarkRed.r, kDarkRed.g, kDarkRed.b, 255); };
    ostreltest::pushKey(SDL_KEYUP, SDLK_SPACE);
    LogCapture log;
    runWindows(stack());
    EXPECT_TRUE(log.contains("add popup window\na is 1002, popup current window\n"));
    EXPECT_EQ(diary(), (Diary{"red frame", "red preDraw", "red draw", "red frame", "red preDraw", "red draw",
                              "red events", "red quit", "red deleted"}));
}

TEST_F(DialogLoop, SnapshotShowsTheFrameThatWasDrawnLast) {
    ScriptWindow* window = pushRedWindow();
    window->onDraw = [] { FillRect(nullptr, nullptr, kDarkRed.r, kDarkRed.g, kDarkRed.b, 255); };
    window->onEvents = quitAfter(1);

    struct Peeking : FloatWindow {
        explicit Peeking(Picture& seen) : FloatWindow(-1), mSeen(seen) {}
        int eventHandling() override {
            mSeen = Picture::ofSurface(static_cast<SDL2OstrelSurface*>(mSnapshot)->mSurface);
            return WIN_CLOSE;
        }
        Picture& mSeen;
    };
    Picture seen;
    add2PopupList(new Peeking(seen));
    runWindows(stack());
    EXPECT_EQ(seen.width(), 1280);
    EXPECT_EQ(seen.count(kDarkRed), 1280 * 720);
}

TEST_F(DialogLoop, ActionMayAskTheNextQuestion) {
    ScriptWindow* window = pushRedWindow();
    window->onEvents = quitAfter(1);
    const auto ask = [](void*) {
        add2PopupList(new DialogWindow("Second", "", false, nullptr, nullptr));
        return 1002;
    };
    add2PopupList(new DialogWindow("First", "", false, new GeneralAction(ask, nullptr), nullptr));
    ostreltest::pushKey(SDL_KEYUP, SDLK_SPACE);
    ostreltest::pushKey(SDL_KEYUP, SDLK_LCTRL);
    LogCapture log;
    runWindows(stack());
    EXPECT_TRUE(
        log.contains("add popup window\nDialogWindow ok\na is 1002, popup current window\n"
                     "add popup window\na is 1002, popup current window\n"));
}

TEST_F(DialogLoop, OpenDialogIsFreedWithTheRest) {
    ScriptWindow* window = pushRedWindow();
    window->onEvents = quitAfter(1);
    stack().push_back(new FloatWindow(-1));  // takes no input
    auto* closing = new ScriptWindow(diary(), "closing", -1, -1);
    closing->onEvents = [] { return 1003; };
    add2PopupList(closing);
    LogCapture log;
    runWindows(stack());
    EXPECT_TRUE(log.contains("2 window to free\nfree window:title , type -1\nfree window:title OPEN, type 0\n"));
}

TEST_F(DialogLoop, ProgramMayEndInsideAWindow) {
    pushRedWindow()->onEvents = []() -> int { std::exit(0); };
    EXPECT_EXIT(runWindows(stack()), ::testing::ExitedWithCode(0), "");
    freeWindows(stack());
}

}  // namespace
