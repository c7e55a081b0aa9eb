// Which logical key an event of game-pad, joystick or keyboard stands for. Nothing here polls, plays or reads a clock.
#pragma once
#include <SDL_events.h>

namespace ostrel {

// What is held down while other keys come and go; the event thread alone has it.
struct Modifiers {
    bool startHeld = false;
    bool selectHeld = false;
    bool comboHotkey1 = false;  // hot key 1 went down while Start was held
    bool comboHotkey2 = false;  // ... and hot key 2
};

// Whether a stick or trigger is more than half way out.
bool isPushed(const SDL_JoyAxisEvent& axis);

// The KeyCode of the event, the code of a user event, or KEY_NONE; follows the modifiers. The release of a hot key
// writes a line to the log.
int keyForEvent(const SDL_Event& event, Modifiers& held);

}  // namespace ostrel
