// A fixture for the main loop: a diary of what happens, a clock and a repeat thread that stand still, no events queued.
#pragma once
#include <SDL.h>

#include <vector>

#include "ostrel/input.h"
#include "ostrel/window.h"
#include "support/driven_clock.h"
#include "support/driven_wait.h"
#include "support/log_capture.h"
#include "support/test_device.h"
#include "support/virtual_joystick.h"
#include "window/script_window.h"

namespace ostreltest {

// Called by every present while it is set, with the presents of the screen left out.
extern std::function<void()> onPresent;

class LoopTest : public DeviceTest {
protected:
    LoopTest() {
        onPresent = [this] { mDiary.push_back("present"); };
        touchBoostFps(0);
        setOstrelWindowFps(10, 30);
        toggleDrawState(true);
        drainEvents();
    }
    ~LoopTest() override {
        freeWindows(mStack);
        onPresent = nullptr;
        touchBoostFps(0);
        setOstrelWindowFps(10, 30);
        toggleDrawState(true);
        gPopupList.clear();
    }

    ScriptWindow* newWindow(const std::string& name, int type = 0) { return new ScriptWindow(mDiary, name, -1, type); }
    ScriptWindow* push(const std::string& name, int type = 0) {
        ScriptWindow* window = newWindow(name, type);
        mStack.push_back(window);
        return window;
    }
    // Runs the loop on the fixture's stack.
    void run() { runWindows(mStack); }

    Diary& diary() { return mDiary; }
    std::vector<OstrelWindow*>& stack() { return mStack; }
    DrivenClock& clock() { return mClock; }
    DrivenWait& repeatWait() { return mWait; }
    VirtualJoystick& pad() { return mPad; }

private:
    Diary mDiary;
    std::vector<OstrelWindow*> mStack;
    DrivenClock mClock;
    DrivenWait mWait;
    VirtualJoystick mPad;
};

}  // namespace ostreltest
