// A mapped pad's numbers become the library's, an unmapped pad's stay.
#include "gamepad.h"

#include <gtest/gtest.h>

#include "ostrel/input.h"
#include "support/fake_host.h"
#include "support/test_device.h"
#include "support/virtual_joystick.h"

namespace {

int filter(void* /*unused*/, SDL_Event* event) { return launcher::filterPadEvent(*event) ? 1 : 0; }

// A virtual pad of SDL's own mapping: buttons in the order a b x y back guide start, the two sticks' buttons, l r and
// the four of the D-pad.
class MappedPadTest : public ostreltest::DeviceTest {
protected:
    MappedPadTest() {
        SDL_InitSubSystem(SDL_INIT_JOYSTICK | SDL_INIT_GAMECONTROLLER | SDL_INIT_EVENTS);
        mDevice = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 6, 15, 0);
        SDL_SetEventFilter(filter, nullptr);
        launcher::openFirstPad();
        mJoystick = SDL_JoystickFromInstanceID(SDL_JoystickGetDeviceInstanceID(mDevice));
        ostreltest::drainEvents();
    }
    ~MappedPadTest() override {
        launcher::closePad();
        SDL_JoystickDetachVirtual(mDevice);
        SDL_SetEventFilter(nullptr, nullptr);
        SDL_QuitSubSystem(SDL_INIT_JOYSTICK | SDL_INIT_GAMECONTROLLER | SDL_INIT_EVENTS);
    }
    void set(int button, Uint8 state) {
        SDL_JoystickSetVirtualButton(mJoystick, button, state);
        SDL_JoystickUpdate();
    }
    // The first key among the queued events, or KEY_NONE.
    static int nextKey() {
        while (SDL_HasEvents(SDL_FIRSTEVENT, SDL_LASTEVENT) == SDL_TRUE) {
            if (const int key = wait_event(nullptr); key != KEY_NONE) return key;
        }
        return KEY_NONE;
    }
    int click(int button) {
        set(button, 1);
        set(button, 0);
        return nextKey();
    }
    int mDevice;
    SDL_Joystick* mJoystick;
};

TEST_F(MappedPadTest, ButtonsAreReadByTheirPlaces) {
    const std::pair<int, int> kExpected[] = {
        {0, KEY_B},    {1, KEY_A},     {2, KEY_Y},       {3, KEY_X},        {4, KEY_SELECT},
        {5, KEY_MENU}, {6, KEY_START}, {9, KEY_HOTKEY1}, {10, KEY_HOTKEY2},
    };
    for (const auto& [button, key] : kExpected) EXPECT_EQ(click(button), key) << "button " << button;
}

TEST_F(MappedPadTest, ADpadOfButtonsIsAHat) {
    const std::pair<int, int> kExpected[] = {{11, KEY_UP}, {12, KEY_DOWN}, {13, KEY_LEFT}, {14, KEY_RIGHT}};
    for (const auto& [button, key] : kExpected) EXPECT_EQ(click(button), key) << "button " << button;
}

TEST_F(MappedPadTest, TwoDirectionsAreADiagonalAndNoKey) {
    set(11, 1);
    EXPECT_EQ(nextKey(), KEY_UP);
    set(14, 1);
    EXPECT_EQ(nextKey(), KEY_NONE);
    set(11, 0);
    EXPECT_EQ(nextKey(), KEY_RIGHT);
}

TEST_F(MappedPadTest, AButtonTheLibraryDoesNotKnowIsDropped) {
    EXPECT_EQ(click(7), KEY_NONE);
    EXPECT_EQ(click(8), KEY_NONE);
}

TEST_F(MappedPadTest, TheRightTriggerIsTheRightTrigger) {
    SDL_JoystickSetVirtualAxis(mJoystick, 5, 32767);
    SDL_JoystickUpdate();
    EXPECT_EQ(nextKey(), KEY_TRIGGER_R);
}

TEST_F(MappedPadTest, TheRightStickIsAxesThreeAndFour) {
    for (const int axis : {2, 3}) {
        SDL_JoystickSetVirtualAxis(mJoystick, axis, 32767);
        SDL_JoystickUpdate();
        SDL_Event event{};
        ASSERT_GT(SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_JOYAXISMOTION, SDL_JOYAXISMOTION), 0);
        EXPECT_EQ(event.jaxis.axis, axis + 1);
        SDL_FlushEvent(SDL_JOYAXISMOTION);
    }
}

TEST_F(MappedPadTest, AnotherPadsEventsStayAsTheyAre) {
    SDL_Event event{};
    event.type = SDL_JOYBUTTONUP;
    event.jbutton.which = SDL_JoystickInstanceID(mJoystick) + 1;
    event.jbutton.button = 11;
    EXPECT_TRUE(launcher::filterPadEvent(event));
    EXPECT_EQ(event.type, Uint32{SDL_JOYBUTTONUP});
    EXPECT_EQ(event.jbutton.button, 11);
}

// The triggers of this pad are axes 4 and 5, and rest at their lower ends; the library's axis 4 is a stick.
TEST_F(MappedPadTest, OpeningItPressesNothing) {
    launcher::openFirstPad();
    EXPECT_EQ(nextKey(), KEY_NONE);
}

class UnmappedPadTest : public ostreltest::DeviceTest {
protected:
    ostreltest::VirtualJoystick mPad;
};

TEST_F(UnmappedPadTest, ItsNumbersAreTheLibrarysAlready) {
    SDL_SetEventFilter(filter, nullptr);
    launcher::openFirstPad();
    ostreltest::drainEvents();
    mPad.press(1);
    mPad.release(1);
    wait_event(nullptr);
    EXPECT_EQ(wait_event(nullptr), KEY_A);
    launcher::closePad();
    SDL_SetEventFilter(nullptr, nullptr);
}

TEST_F(UnmappedPadTest, ItsComingStartsTheJoystickAgain) {
    SDL_Event event{};
    event.type = SDL_JOYDEVICEADDED;
    event.jdevice.which = 0;
    EXPECT_TRUE(launcher::filterPadEvent(event));
    SDL_PushEvent(&event);
    EXPECT_EQ(wait_event(nullptr), KEY_NONE);
    EXPECT_EQ(ostreltest::host().joystickStarts, 1);
}

TEST_F(UnmappedPadTest, ItsGoingStartsTheJoystickAgain) {
    launcher::openFirstPad();
    SDL_Event event{};
    event.type = SDL_JOYDEVICEREMOVED;
    event.jdevice.which = SDL_JoystickGetDeviceInstanceID(0);
    EXPECT_TRUE(launcher::filterPadEvent(event));
    EXPECT_EQ(event.type, Uint32{SDL_CONTROLLERDEVICEREMOVED});
    launcher::closePad();
}

}  // namespace
