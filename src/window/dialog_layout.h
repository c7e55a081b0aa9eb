// Where the parts of a dialog stand on a 1280 x 720 screen.
#pragma once
#include <SDL_rect.h>

namespace ostrel {

struct DialogLayout {
    SDL_Rect panel;
    SDL_Rect title;
    SDL_Rect message;
    SDL_Rect leftButton;  // both buttons have the size of the focused background
    SDL_Rect rightButton;
};

DialogLayout layoutWithPanel(SDL_Point panelSize, SDL_Point focusedButtonSize);
DialogLayout layoutWithoutPanel(SDL_Point focusedButtonSize, int normalButtonWidth);

}  // namespace ostrel
