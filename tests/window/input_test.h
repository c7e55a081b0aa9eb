// A fixture with a game-pad, an empty event queue, a clock that stands still and no modifier held.
#pragma once
#include <SDL.h>

#include <vector>

#include "ostrel/input.h"
#include "support/driven_clock.h"
#include "support/log_capture.h"
#include "support/test_device.h"
#include "support/virtual_joystick.h"

namespace ostreltest {

// Keys have a throttle that remembers the last one: each test begins long after the one before it.
inline uint64_t laterStart() {
    static uint64_t start = 0;
    return start += 1'000'000;
}

class InputTest : public DeviceTest {
protected:
    InputTest() {
        forgetModifiers();
        gKeyChunk = nullptr;
    }
    ~InputTest() override { gKeyChunk = nullptr; }

    // Another program that takes the input device and lets it go leaves no key held.
    void forgetModifiers() {
        device().write("/tmp/ostrel_inputd/grab", "");
        wait_event(nullptr);
        device().remove("/tmp/ostrel_inputd/grab");
        wait_event(nullptr);
        drainEvents();
    }

    // What the queued events give, one call after the other; calls without a key are left out.
    static std::vector<int> keys() {
        std::vector<int> result;
        SDL_PumpEvents();
        while (SDL_HasEvents(SDL_FIRSTEVENT, SDL_LASTEVENT) == SDL_TRUE) {
            const int key = wait_event(nullptr);
            if (key != 0) result.push_back(key);
        }
        return result;
    }

    static std::vector<int> keyDown(SDL_Keycode symbol) {
        pushKey(SDL_KEYDOWN, symbol);
        return keys();
    }
    static std::vector<int> keyUp(SDL_Keycode symbol) {
        pushKey(SDL_KEYUP, symbol);
        return keys();
    }
    std::vector<int> press(int button) {
        mPad.press(button);
        return keys();
    }
    std::vector<int> release(int button) {
        mPad.release(button);
        return keys();
    }
    std::vector<int> hat(Uint8 value) {
        mPad.hat(value);
        return keys();
    }
    std::vector<int> axis(int index, Sint16 value) {
        mPad.axis(index, value);
        return keys();
    }

    DrivenClock& clock() { return mClock; }

private:
    DrivenClock mClock{laterStart()};
    VirtualJoystick mPad;
};

}  // namespace ostreltest
