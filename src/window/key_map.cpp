#include "window/key_map.h"

#include <cstdlib>

#include "ostrel/input.h"
#include "ostrel/log.h"

namespace ostrel {
namespace {

// Half of the 32768 steps to one side. Exactly half way is not enough.
constexpr int kHalfWay = 16384;

struct KeyRow {
    int control;  // button number, hat value or key symbol
    KeyCode key;
};

// The diagonals of the hat stand for no key.
constexpr KeyRow kHatKeys[] = {
    {SDL_HAT_UP, KEY_UP},
    {SDL_HAT_DOWN, KEY_DOWN},
    {SDL_HAT_LEFT, KEY_LEFT},
    {SDL_HAT_RIGHT, KEY_RIGHT},
};

constexpr KeyRow kButtonKeys[] = {
    {0, KEY_B},       {1, KEY_A},      {2, KEY_Y},     {3, KEY_X},    {4, KEY_HOTKEY1},
    {5, KEY_HOTKEY2}, {6, KEY_SELECT}, {7, KEY_START}, {8, KEY_MENU},
};

constexpr KeyRow kArrowKeys[] = {
    {SDLK_UP, KEY_UP},
    {SDLK_DOWN, KEY_DOWN},
    {SDLK_LEFT, KEY_LEFT},
    {SDLK_RIGHT, KEY_RIGHT},
};

// The keyboard's stand-ins for the buttons.
constexpr KeyRow kKeyboardKeys[] = {
    {SDLK_SPACE, KEY_A},      {SDLK_LCTRL, KEY_B},      {SDLK_LSHIFT, KEY_X},
    {SDLK_LALT, KEY_Y},       {SDLK_TAB, KEY_HOTKEY1},  {SDLK_BACKSPACE, KEY_HOTKEY2},
    {SDLK_RCTRL, KEY_SELECT}, {SDLK_RETURN, KEY_START}, {SDLK_ESCAPE, KEY_MENU},
};

struct AxisRow {
    int axis;
    KeyCode negative;
    KeyCode positive;
};

constexpr AxisRow kAxisKeys[] = {
    {0, KEY_LEFT, KEY_RIGHT},      // left stick
    {1, KEY_UP, KEY_DOWN},         //
    {2, KEY_NONE, KEY_TRIGGER_L},  // a trigger has one direction
    {3, KEY_LEFT, KEY_RIGHT},      // right stick
    {4, KEY_UP, KEY_DOWN},         //
    {5, KEY_NONE, KEY_TRIGGER_R},
};

template <std::size_t Count>
KeyCode findKey(const KeyRow (&rows)[Count], int control) {
    for (const KeyRow& row : rows) {
        if (row.control == control) return row.key;
    }
    return KEY_NONE;
}

KeyCode axisKey(const SDL_JoyAxisEvent& event) {
    if (!isPushed(event)) return KEY_NONE;
    for (const AxisRow& row : kAxisKeys) {
        if (row.axis == event.axis) return event.value > 0 ? row.positive : row.negative;
    }
    return KEY_NONE;
}

// Buttons act when they are released; a press is only remembered.
void notePress(KeyCode key, Modifiers& held) {
    if (key == KEY_START) held.startHeld = true;
    if (key == KEY_SELECT) held.selectHeld = true;
    if (key == KEY_HOTKEY1 && held.startHeld) held.comboHotkey1 = true;
    if (key == KEY_HOTKEY2 && held.startHeld) held.comboHotkey2 = true;
}

KeyCode hotkeyReleased(KeyCode key, const Modifiers& held) {
    tprintf("hotkey%d select=%d, start=%d\n", key == KEY_HOTKEY1 ? 1 : 2, held.selectHeld, held.startHeld);
    return held.selectHeld || held.startHeld ? KEY_NONE : key;
}

bool comboUsed(const Modifiers& held) { return held.comboHotkey1 || held.comboHotkey2; }

KeyCode startReleased(Modifiers& held) {
    held.startHeld = false;
    if (!comboUsed(held)) return KEY_START;
    held.comboHotkey1 = false;
    held.comboHotkey2 = false;
    return KEY_NONE;
}

// Select leaves the combination marked: Start, which is still held, ends it. (SelectKeepsTheComboMarkedForStart)
KeyCode selectReleased(Modifiers& held) {
    held.selectHeld = false;
    return comboUsed(held) ? KEY_NONE : KEY_SELECT;
}

KeyCode keyReleased(KeyCode key, Modifiers& held) {
    switch (key) {
        case KEY_HOTKEY1:
        case KEY_HOTKEY2:
            return hotkeyReleased(key, held);
        case KEY_START:
            return startReleased(held);
        case KEY_SELECT:
            return selectReleased(held);
        default:
            return key;
    }
}

}  // namespace

// In int: the magnitude of -32768 does not fit into the 16 bits of an axis.
bool isPushed(const SDL_JoyAxisEvent& axis) { return std::abs(int{axis.value}) > kHalfWay; }

int keyForEvent(const SDL_Event& event, Modifiers& held) {
    switch (event.type) {
        case SDL_JOYHATMOTION:
            return findKey(kHatKeys, event.jhat.value);
        case SDL_JOYAXISMOTION:
            return axisKey(event.jaxis);
        case SDL_JOYBUTTONDOWN:
            notePress(findKey(kButtonKeys, event.jbutton.button), held);
            return KEY_NONE;
        case SDL_JOYBUTTONUP:
            return keyReleased(findKey(kButtonKeys, event.jbutton.button), held);
        case SDL_KEYDOWN:
            notePress(findKey(kKeyboardKeys, event.key.keysym.sym), held);
            return findKey(kArrowKeys, event.key.keysym.sym);
        case SDL_KEYUP:
            return keyReleased(findKey(kKeyboardKeys, event.key.keysym.sym), held);
        case SDL_USEREVENT:
            return event.user.code;
        default:
            return KEY_NONE;
    }
}

}  // namespace ostrel
