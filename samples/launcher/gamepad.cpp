#include "gamepad.h"

#include <map>
#include <memory>
#include <optional>

namespace launcher {
namespace {

struct Closer {
    void operator()(SDL_Joystick* pad) const { SDL_JoystickClose(pad); }
    void operator()(SDL_GameController* pad) const { SDL_GameControllerClose(pad); }
};

struct ButtonRow {
    SDL_GameControllerButton button;
    int number;
};
constexpr ButtonRow kButtons[] = {
    {SDL_CONTROLLER_BUTTON_A, 0},
    {SDL_CONTROLLER_BUTTON_B, 1},
    {SDL_CONTROLLER_BUTTON_X, 2},
    {SDL_CONTROLLER_BUTTON_Y, 3},
    {SDL_CONTROLLER_BUTTON_LEFTSHOULDER, 4},
    {SDL_CONTROLLER_BUTTON_RIGHTSHOULDER, 5},
    {SDL_CONTROLLER_BUTTON_BACK, 6},
    {SDL_CONTROLLER_BUTTON_START, 7},
    {SDL_CONTROLLER_BUTTON_GUIDE, 8},
};

struct DirectionRow {
    SDL_GameControllerButton button;
    Uint8 hatBit;
};
constexpr DirectionRow kDirections[] = {
    {SDL_CONTROLLER_BUTTON_DPAD_UP, SDL_HAT_UP},
    {SDL_CONTROLLER_BUTTON_DPAD_RIGHT, SDL_HAT_RIGHT},
    {SDL_CONTROLLER_BUTTON_DPAD_DOWN, SDL_HAT_DOWN},
    {SDL_CONTROLLER_BUTTON_DPAD_LEFT, SDL_HAT_LEFT},
};

struct AxisRow {
    SDL_GameControllerAxis axis;
    Uint8 number;
};
constexpr AxisRow kAxes[] = {
    {SDL_CONTROLLER_AXIS_LEFTX, 0},  {SDL_CONTROLLER_AXIS_LEFTY, 1},  {SDL_CONTROLLER_AXIS_TRIGGERLEFT, 2},
    {SDL_CONTROLLER_AXIS_RIGHTX, 3}, {SDL_CONTROLLER_AXIS_RIGHTY, 4}, {SDL_CONTROLLER_AXIS_TRIGGERRIGHT, 5},
};

// What the buttons and axes of one mapped pad are to the library. Keys are the pad's own numbers.
struct PadLayout {
    std::map<int, int> buttons;
    std::map<int, Uint8> directions;      // a D-pad made of buttons
    std::map<int, Uint8> triggerButtons;  // triggers that are plain buttons
    std::map<int, Uint8> axes;
    Uint8 heldDirections = SDL_HAT_CENTERED;
};

struct OpenPad {
    std::unique_ptr<SDL_Joystick, Closer> plain;
    std::unique_ptr<SDL_GameController, Closer> mapped;
    SDL_JoystickID instance = -1;
    PadLayout layout;
};
OpenPad sPad;
bool sOpening = false;

PadLayout layoutOf(SDL_GameController* pad) {
    PadLayout layout;
    for (const ButtonRow& row : kButtons) {
        const SDL_GameControllerButtonBind bind = SDL_GameControllerGetBindForButton(pad, row.button);
        if (bind.bindType == SDL_CONTROLLER_BINDTYPE_BUTTON) layout.buttons[bind.value.button] = row.number;
    }
    for (const DirectionRow& row : kDirections) {
        const SDL_GameControllerButtonBind bind = SDL_GameControllerGetBindForButton(pad, row.button);
        if (bind.bindType == SDL_CONTROLLER_BINDTYPE_BUTTON) layout.directions[bind.value.button] = row.hatBit;
    }
    for (const AxisRow& row : kAxes) {
        const SDL_GameControllerButtonBind bind = SDL_GameControllerGetBindForAxis(pad, row.axis);
        if (bind.bindType == SDL_CONTROLLER_BINDTYPE_AXIS) layout.axes[bind.value.axis] = row.number;
        if (bind.bindType == SDL_CONTROLLER_BINDTYPE_BUTTON) layout.triggerButtons[bind.value.button] = row.number;
    }
    return layout;
}

SDL_Event hatEvent(const SDL_JoyButtonEvent& button, Uint8 value) {
    SDL_Event event{};
    event.jhat = {SDL_JOYHATMOTION, button.timestamp, button.which, 0, value, 0, 0};
    return event;
}

SDL_Event axisEvent(const SDL_JoyButtonEvent& button, Uint8 axis, Sint16 value) {
    SDL_Event event{};
    event.jaxis = {SDL_JOYAXISMOTION, button.timestamp, button.which, axis, 0, 0, 0, value, 0};
    return event;
}

// Nothing for a button that the library has no number for.
std::optional<SDL_Event> rewriteButton(const SDL_JoyButtonEvent& button, PadLayout& layout) {
    const bool pressed = button.state == SDL_PRESSED;
    if (const auto direction = layout.directions.find(button.button); direction != layout.directions.end()) {
        const int bit = direction->second;
        layout.heldDirections =
            static_cast<Uint8>(pressed ? layout.heldDirections | bit : layout.heldDirections & ~bit);
        return hatEvent(button, layout.heldDirections);
    }
    if (const auto trigger = layout.triggerButtons.find(button.button); trigger != layout.triggerButtons.end()) {
        return axisEvent(button, trigger->second, pressed ? SDL_JOYSTICK_AXIS_MAX : Sint16{0});
    }
    const auto known = layout.buttons.find(button.button);
    if (known == layout.buttons.end()) return std::nullopt;
    SDL_Event event{};
    event.jbutton = button;
    event.jbutton.button = static_cast<Uint8>(known->second);
    return event;
}

std::optional<SDL_Event> rewriteAxis(const SDL_JoyAxisEvent& axis, const PadLayout& layout) {
    const auto known = layout.axes.find(axis.axis);
    if (known == layout.axes.end()) return std::nullopt;
    SDL_Event event{};
    event.jaxis = axis;
    event.jaxis.axis = known->second;
    return event;
}

// Where sticks and triggers rest is what a pad tells while it is opened, still in its own numbers: nobody has moved
// them, and a trigger at its lower end must not be read as a stick that is pushed.
bool isRestingPlace(const SDL_Event& event) {
    return event.type >= SDL_JOYAXISMOTION && event.type <= SDL_JOYBUTTONUP && sOpening;
}

bool isMapped(SDL_JoystickID instance) { return sPad.mapped != nullptr && instance == sPad.instance; }

// Puts the rewritten event into the queue by the side door, in place of the pad's own. SDL's game controller part
// watches what goes through SDL_PushEvent, and would look for a hat or an axis that this pad may not have.
void queue(std::optional<SDL_Event> event) {
    if (event) SDL_PeepEvents(&*event, 1, SDL_ADDEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT);
}

}  // namespace

void openFirstPad() {
    closePad();
    if (SDL_WasInit(SDL_INIT_JOYSTICK) == 0 || SDL_NumJoysticks() < 1) return;
    sOpening = true;
    if (SDL_IsGameController(0) == SDL_TRUE) {
        sPad.mapped.reset(SDL_GameControllerOpen(0));
        if (sPad.mapped != nullptr) sPad.layout = layoutOf(sPad.mapped.get());
    } else {
        sPad.plain.reset(SDL_JoystickOpen(0));
    }
    sOpening = false;
    sPad.instance = SDL_JoystickGetDeviceInstanceID(0);
}

void closePad() { sPad = OpenPad{}; }

// The key-repeat thread pushes events too, so the pad is looked at only for those of a pad, which come on our own
// thread.
bool filterPadEvent(SDL_Event& event) {
    if (isRestingPlace(event)) return false;
    switch (event.type) {
        case SDL_JOYDEVICEADDED:
            // The library waits for SDL_CONTROLLERDEVICEADDED, which SDL sends for mapped pads alone.
            if (SDL_IsGameController(event.jdevice.which) == SDL_FALSE) event.type = SDL_CONTROLLERDEVICEADDED;
            return true;
        case SDL_JOYDEVICEREMOVED:
            if (sPad.plain != nullptr && event.jdevice.which == sPad.instance) event.type = SDL_CONTROLLERDEVICEREMOVED;
            return true;
        case SDL_JOYBUTTONDOWN:
        case SDL_JOYBUTTONUP:
            if (!isMapped(event.jbutton.which)) return true;
            queue(rewriteButton(event.jbutton, sPad.layout));
            return false;
        case SDL_JOYAXISMOTION:
            if (!isMapped(event.jaxis.which)) return true;
            queue(rewriteAxis(event.jaxis, sPad.layout));
            return false;
        default:
            return true;
    }
}

}  // namespace launcher
