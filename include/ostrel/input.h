/// @file  input.h: logical keys from game-pad, joystick and keyboard.
/// Threads: the thread that runs runWindows.
#pragma once
#include <SDL.h>
#include <SDL_mixer.h>

#include "ostrel/export.h"

enum KeyCode {
    KEY_NONE = 0,
    KEY_A = 1,
    KEY_B = 2,
    KEY_X = 3,
    KEY_Y = 4,
    KEY_UP = 5,
    KEY_DOWN = 6,
    KEY_LEFT = 7,
    KEY_RIGHT = 8,
    KEY_START = 9,
    KEY_SELECT = 10,
    KEY_MENU = 11,
    KEY_HOTKEY1 = 12,
    KEY_HOTKEY2 = 13,
    KEY_TRIGGER_L = 14,
    KEY_TRIGGER_R = 15
};

extern OSTREL_API Mix_Chunk* gKeyChunk;

OSTREL_API int wait_event(SDL_Event* out);
