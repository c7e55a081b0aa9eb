// A game-pad that is pulled out in the middle of a press and plugged in again, in real time: the pad is SDL's, the
// host's half is the launcher's, and the key-repeat thread runs as on a console.
#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <ostream>
#include <thread>
#include <vector>

#include "gamepad.h"
#include "ostrel/input.h"
#include "ostrel/window.h"
#include "support/fake_host.h"
#include "support/test_device.h"
#include "support/virtual_joystick.h"
#include "window/script_window.h"

namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;
using std::chrono::steady_clock;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

int filter(void* /*unused*/, SDL_Event* event) { return launcher::filterPadEvent(*event) ? 1 : 0; }

// The console's own pad has a hat; those that SDL has a mapping for have four buttons instead, and their buttons in
// another order.
struct PadKind {
    const char* name;
    SDL_JoystickType type;
    int axes, buttons, hats;
    int buttonA;
    int buttonDown;  // unused with a hat
};
constexpr PadKind kPlainPad{"plain", SDL_JOYSTICK_TYPE_UNKNOWN, 6, 9, 1, 1, -1};
constexpr PadKind kMappedPad{"mapped", SDL_JOYSTICK_TYPE_GAMECONTROLLER, 6, 15, 0, 1, 12};
std::ostream& operator<<(std::ostream& out, const PadKind& kind) { return out << kind.name; }

class PadReplugTest : public ostreltest::DeviceTest, public ::testing::WithParamInterface<PadKind> {
protected:
    PadReplugTest() {
        SDL_InitSubSystem(SDL_INIT_JOYSTICK | SDL_INIT_GAMECONTROLLER | SDL_INIT_EVENTS);
        SDL_SetEventFilter(filter, nullptr);
        ostreltest::drainEvents();
    }
    ~PadReplugTest() override {
        launcher::closePad();
        if (SDL_NumJoysticks() > 0) SDL_JoystickDetachVirtual(0);
        SDL_SetEventFilter(nullptr, nullptr);
        SDL_QuitSubSystem(SDL_INIT_JOYSTICK | SDL_INIT_GAMECONTROLLER | SDL_INIT_EVENTS);
    }

    // Runs the steps inside the main loop.
    template <typename Steps>
    static void whileRunning(Steps steps) {
        ostreltest::Diary diary;
        auto* window = new ostreltest::ScriptWindow(diary, "only");
        window->onEvents = [steps] {
            steps();
            return WIN_QUIT;
        };
        std::vector<OstrelWindow*> stack{window};
        runWindows(stack);
    }

    void plugIn() {
        const PadKind& kind = GetParam();
        EXPECT_GE(SDL_JoystickAttachVirtual(kind.type, kind.axes, kind.buttons, kind.hats), 0) << SDL_GetError();
        EXPECT_THAT(keysDuring(50ms), IsEmpty());
    }
    static void pullOut() {
        SDL_JoystickDetachVirtual(0);
        keysDuring(50ms);  // a repeat that was on its way already may still arrive
    }
    // The pad that the host has opened.
    static SDL_Joystick* pad() { return SDL_JoystickFromInstanceID(SDL_JoystickGetDeviceInstanceID(0)); }
    static void setButton(int button, Uint8 state) {
        SDL_JoystickSetVirtualButton(pad(), button, state);
        SDL_JoystickUpdate();
    }
    static void setDown(bool held) {
        if (GetParam().hats == 0) {
            setButton(GetParam().buttonDown, held ? SDL_PRESSED : SDL_RELEASED);
            return;
        }
        SDL_JoystickSetVirtualHat(pad(), 0, held ? SDL_HAT_DOWN : SDL_HAT_CENTERED);
        SDL_JoystickUpdate();
    }

    // What the library makes of that time's events. The host opens the pad whenever it is asked to.
    static std::vector<int> keysDuring(milliseconds span) {
        std::vector<int> keys;
        const auto end = steady_clock::now() + span;
        while (steady_clock::now() < end) {
            const int asked = ostreltest::host().joystickStarts;
            if (const int key = wait_event(nullptr); key != KEY_NONE) keys.push_back(key);
            if (ostreltest::host().joystickStarts != asked) launcher::openFirstPad();
            std::this_thread::sleep_for(1ms);
        }
        return keys;
    }
};

TEST_P(PadReplugTest, PullingItOutEndsTheRepeatOfAHeldDirection) {
    whileRunning([this] {
        plugIn();
        setDown(true);
        const std::vector<int> held = keysDuring(1100ms);
        EXPECT_GE(held.size(), 3U);  // the press, and repeats after half a second
        EXPECT_THAT(held, Each(int{KEY_DOWN}));
        pullOut();
        EXPECT_THAT(keysDuring(900ms), IsEmpty());
    });
}

TEST_P(PadReplugTest, PluggedInAgainItWorksAndRepeatsAsBefore) {
    whileRunning([this] {
        plugIn();
        setDown(true);
        EXPECT_THAT(keysDuring(50ms), ElementsAre(KEY_DOWN));
        pullOut();
        plugIn();
        setButton(GetParam().buttonA, SDL_PRESSED);
        setButton(GetParam().buttonA, SDL_RELEASED);
        EXPECT_THAT(keysDuring(50ms), ElementsAre(KEY_A));
        setDown(true);
        const std::vector<int> held = keysDuring(1100ms);
        EXPECT_GE(held.size(), 3U);
        EXPECT_THAT(held, Each(int{KEY_DOWN}));
        setDown(false);
        keysDuring(50ms);
        EXPECT_THAT(keysDuring(700ms), IsEmpty());
    });
}

INSTANTIATE_TEST_SUITE_P(Kinds, PadReplugTest, ::testing::Values(kPlainPad, kMappedPad),
                         [](const auto& kind) { return std::string(kind.param.name); });

}  // namespace
