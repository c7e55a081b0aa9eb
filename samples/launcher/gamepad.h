/// @file  gamepad.h: the first game-pad, and the numbers of its buttons as the library knows them.
/// The library reads joystick events with the numbers of the console's own pad: the D-pad is a hat, B A Y X are buttons
/// 0 to 3, L and R 4 and 5, SELECT 6, START 7, MENU 8; axes 0 and 1 are the left stick, 3 and 4 the right one, 2 and 5
/// the triggers. Many pads number otherwise, and those that SDL has a mapping for are rewritten here, by the place of a
/// button on the pad: the right one of the four is A.
/// Threads: the thread that pumps events.
#pragma once
#include <SDL.h>

namespace launcher {

/// Closes the pad that is open and opens the first there is. Does nothing until SDL's joystick part runs.
void openFirstPad();
void closePad();

/// Looks at an event on its way into SDL's queue. Those of a mapped pad are replaced by others with the library's
/// numbers, and the coming and going of an unmapped pad is turned into the events at which the library calls
/// initJoyStick. Any other event stays as it is.
/// @return false when @p event is to be dropped: it means nothing to the library, or its replacement is queued.
bool filterPadEvent(SDL_Event& event);

}  // namespace launcher
