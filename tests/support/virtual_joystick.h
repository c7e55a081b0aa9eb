// A game-pad that a test moves: one hat, six axes, nine buttons, plugged in while it lives.
#pragma once
#include <SDL.h>

namespace ostreltest {

class VirtualJoystick {
public:
    VirtualJoystick();  // starts SDL's joystick part, attaches and opens the pad, and empties the event queue
    ~VirtualJoystick();
    VirtualJoystick(const VirtualJoystick&) = delete;
    VirtualJoystick& operator=(const VirtualJoystick&) = delete;

    void hat(Uint8 value);
    void press(int button);
    void release(int button);
    void axis(int axis, Sint16 value);

private:
    int mDevice;
    SDL_Joystick* mJoystick;
};

void pushKey(Uint32 type, SDL_Keycode key, bool repeat = false);  // SDL_KEYDOWN or SDL_KEYUP
void pushUser(int code, void* data = nullptr);                    // SDL_USEREVENT
void drainEvents();                                               // drops whatever is queued

}  // namespace ostreltest
