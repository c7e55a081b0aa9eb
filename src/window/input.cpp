#include "ostrel/input.h"

#include "ostrel/host.h"
#include "ostrel/log.h"
#include "platform/device_paths.h"
#include "window/key_click.h"
#include "window/key_map.h"
#include "window/key_repeat.h"

using ostrel::DevicePath;

namespace {

constexpr uint64_t kAxisIntervalMs = 150;

struct InputState {
    ostrel::Modifiers held;
    bool lastGrab = false;    // whether another program held the device at the last call
    int resetRequest = 0;     // non-zero: forget the modifiers at the next call; nothing asks for it yet
    uint64_t lastAxisMs = 0;  // when a stick or trigger last gave a key
};
InputState sInput;

// Half-pressed modifiers are forgotten when another program takes the input device or lets it go.
void followInputGrab() {
    const bool grab = ostrel::deviceFileExists(DevicePath::InputGrabMarker);
    if (grab == sInput.lastGrab && sInput.resetRequest == 0) return;
    sInput.lastGrab = grab;
    sInput.resetRequest = 0;
    sInput.held = {};
}

bool clicks(const SDL_Event& event) {
    switch (event.type) {
        case SDL_JOYBUTTONDOWN:
            return true;
        case SDL_JOYHATMOTION:
            return event.jhat.value != SDL_HAT_CENTERED;
        case SDL_KEYDOWN:
            return event.key.keysym.sym == SDLK_POWER && event.key.repeat == 0;
        default:
            return false;
    }
}

int keyOfHat(const SDL_Event& event) {
    const int key = ostrel::keyForEvent(event, sInput.held);
    if (key == KEY_NONE) {
        ostrel::clearRepeatKeys();
    } else {
        ostrel::setRepeatTime(key);
    }
    return key;
}

// A held stick repeats through this throttle, not through the repeat thread.
int keyOfAxis(const SDL_Event& event) {
    if (!ostrel::isPushed(event.jaxis)) return KEY_NONE;
    tprintf("joyaxis %d, value %d\n", event.jaxis.axis, event.jaxis.value);
    const uint64_t now = systemms();
    if (now - sInput.lastAxisMs <= kAxisIntervalMs) return KEY_NONE;
    const int key = ostrel::keyForEvent(event, sInput.held);
    if (key != KEY_NONE) sInput.lastAxisMs = now;
    return key;
}

// Every button ends the repeat of the D-pad.
int keyOfReleasedButton(const SDL_Event& event) {
    tprintf("joybuttonup %d\n", event.jbutton.button);
    ostrel::clearRepeatKeys();
    return ostrel::keyForEvent(event, sInput.held);
}

int openJoystickAgain() {
    initJoyStick();
    return KEY_NONE;
}

int handle(const SDL_Event& event) {
    switch (event.type) {
        case SDL_JOYHATMOTION:
            return keyOfHat(event);
        case SDL_JOYAXISMOTION:
            return keyOfAxis(event);
        case SDL_JOYBUTTONUP:
            return keyOfReleasedButton(event);
        case SDL_CONTROLLERDEVICEADDED:
            tprintf("joystick add %d\n", event.cdevice.which);
            return openJoystickAgain();
        case SDL_CONTROLLERDEVICEREMOVED:
            tprintf("joystick remove %d\n", event.cdevice.which);
            return openJoystickAgain();
        case SDL_QUIT:
            ostrel::quitSdlBetweenRepeats();
            return KEY_NONE;
        default:
            return ostrel::keyForEvent(event, sInput.held);
    }
}

}  // namespace

int wait_event(SDL_Event* out) {
    followInputGrab();
    SDL_Event event;
    if (SDL_PollEvent(&event) == 0) return KEY_NONE;
    if (ostrel::deviceFileExists(DevicePath::DisplayUpMarker)) return KEY_NONE;
    if (clicks(event)) ostrel::playKeyClick();
    if (out != nullptr) *out = event;
    return handle(event);
}
