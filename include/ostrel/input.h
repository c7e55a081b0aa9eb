/// @file  input.h: logical keys out of game-pad, joystick and keyboard.
/// Buttons act when they are released, directions when they are pressed. A direction of the D-pad that stays pressed is
/// repeated while runWindows runs: first after half a second, then about ten times a second.
/// Threads: the UI thread (the one that runs runWindows). Repeats are posted with SDL_PushEvent and clicked by the
/// key-repeat thread, so an event filter or watch of the host's runs there too: it must not wait for the UI thread.
#pragma once
#include <SDL.h>
#include <SDL_mixer.h>

#include "ostrel/export.h"

/// What wait_event returns. The game-pad's D-pad is hat 0 of the joystick; the keys in brackets stand in for it on a
/// development machine.
enum KeyCode {
    KEY_NONE = 0,        ///< nothing pending, or an event that no window needs to see
    KEY_A = 1,           ///< button 1 released [Space]
    KEY_B = 2,           ///< button 0 released [left Ctrl]
    KEY_X = 3,           ///< button 3 released [left Shift]
    KEY_Y = 4,           ///< button 2 released [left Alt]
    KEY_UP = 5,          ///< hat up pressed; axis 1 or 4 pushed to the negative side [arrow pressed]
    KEY_DOWN = 6,        ///< hat down pressed; axis 1 or 4 pushed to the positive side [arrow pressed]
    KEY_LEFT = 7,        ///< hat left pressed; axis 0 or 3 pushed to the negative side [arrow pressed]
    KEY_RIGHT = 8,       ///< hat right pressed; axis 0 or 3 pushed to the positive side [arrow pressed]
    KEY_START = 9,       ///< button 7 released, unless a hot key was pressed while it was held [Return]
    KEY_SELECT = 10,     ///< button 6 released, unless Start and a hot key were used together [right Ctrl]
    KEY_MENU = 11,       ///< button 8 released [Escape]
    KEY_HOTKEY1 = 12,    ///< button 4 released while neither Start nor Select is held [Tab]
    KEY_HOTKEY2 = 13,    ///< button 5 released while neither Start nor Select is held [Backspace]
    KEY_TRIGGER_L = 14,  ///< axis 2 pushed to the positive side
    KEY_TRIGGER_R = 15   ///< axis 5 pushed to the positive side
};

/// The key click, played at each press of a button or of the D-pad, at each repeat and at the power key; null (the
/// state at load) means silent keys. The host sets it and keeps the chunk alive: set null first and free the chunk
/// after runWindows has returned. When it cannot be played, "Mix_PlayChunk: <cause>" is logged.
extern OSTREL_API Mix_Chunk* gKeyChunk;

/// Takes at most one event from SDL's queue and names the key it stands for; never blocks. A window calls it once per
/// eventHandling. Besides naming a key, an event may start or stop the repeat, open the joystick again (initJoyStick,
/// at SDL_CONTROLLERDEVICEADDED and SDL_CONTROLLERDEVICEREMOVED), or shut SDL down (SDL_QUIT). A stick or trigger gives
/// a key when it is pushed more than half way, and at most one key in 150 ms. While /tmp/osdd_show_up exists, the
/// on-screen display of another program owns the input: events are dropped. When /tmp/ostrel_inputd/grab appears or
/// disappears, held Start, Select and hot keys are forgotten.
/// @param out receives the raw event when one was taken and not dropped; else it is left alone. May be null.
/// @return a KeyCode, the code of an SDL_USEREVENT unchanged, or KEY_NONE.
OSTREL_API int wait_event(SDL_Event* out);
