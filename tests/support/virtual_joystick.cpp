#include "support/virtual_joystick.h"

#include <gtest/gtest.h>

namespace ostreltest {

VirtualJoystick::VirtualJoystick() {
    EXPECT_EQ(SDL_InitSubSystem(SDL_INIT_JOYSTICK | SDL_INIT_EVENTS), 0) << SDL_GetError();
    mDevice = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_UNKNOWN, 6, 9, 1);
    mJoystick = SDL_JoystickOpen(mDevice);
    EXPECT_NE(mJoystick, nullptr) << SDL_GetError();
    SDL_JoystickUpdate();
    drainEvents();
}

VirtualJoystick::~VirtualJoystick() {
    if (SDL_WasInit(SDL_INIT_JOYSTICK) == 0) return;
    SDL_JoystickClose(mJoystick);
    SDL_JoystickDetachVirtual(mDevice);
    SDL_QuitSubSystem(SDL_INIT_JOYSTICK | SDL_INIT_EVENTS);
}

void VirtualJoystick::hat(Uint8 value) {
    SDL_JoystickSetVirtualHat(mJoystick, 0, value);
    SDL_JoystickUpdate();
}

void VirtualJoystick::press(int button) {
    SDL_JoystickSetVirtualButton(mJoystick, button, SDL_PRESSED);
    SDL_JoystickUpdate();
}

void VirtualJoystick::release(int button) {
    SDL_JoystickSetVirtualButton(mJoystick, button, SDL_RELEASED);
    SDL_JoystickUpdate();
}

void VirtualJoystick::axis(int axis, Sint16 value) {
    SDL_JoystickSetVirtualAxis(mJoystick, axis, value);
    SDL_JoystickUpdate();
}

void pushKey(Uint32 type, SDL_Keycode key, bool repeat) {
    SDL_Event event{};
    event.type = type;
    event.key.state = type == SDL_KEYDOWN ? SDL_PRESSED : SDL_RELEASED;
    event.key.repeat = repeat ? 1 : 0;
    event.key.keysym.sym = key;
    SDL_PushEvent(&event);
}

void pushUser(int code, void* data) {
    SDL_Event event{};
    event.type = SDL_USEREVENT;
    event.user.code = code;
    event.user.data1 = data;
    SDL_PushEvent(&event);
}

void drainEvents() {
    SDL_PumpEvents();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
}

}  // namespace ostreltest
