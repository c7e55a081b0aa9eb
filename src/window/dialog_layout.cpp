#include "window/dialog_layout.h"

namespace ostrel {
namespace {

constexpr int kScreenWidth = 1280;
constexpr int kScreenHeight = 720;
constexpr int kTitleY = 80;  // below the panel's top
constexpr int kTitleHeight = 43;
constexpr int kMessageY = 186;
constexpr int kMessageHeight = 100;
constexpr int kButtonX = 100;
constexpr int kButtonY = 390;
constexpr int kButtonGap = 100;
// A theme without a panel still gets a dialog: its texts stand as on a panel of this place and size.
constexpr SDL_Rect kNominalPanel{338, 142, 604, 436};
constexpr int kNominalButtonBandY = 428;
constexpr int kNominalButtonBandHeight = 60;
constexpr int kNominalButtonGap = 12;

DialogLayout layoutIn(const SDL_Rect& panel, SDL_Point leftButton, SDL_Point buttonSize) {
    return {
        panel,
        {panel.x, panel.y + kTitleY, panel.w, kTitleHeight},
        {panel.x, panel.y + kMessageY, panel.w, kMessageHeight},
        {leftButton.x, leftButton.y, buttonSize.x, buttonSize.y},
        {leftButton.x + buttonSize.x + kButtonGap, leftButton.y, buttonSize.x, buttonSize.y},
    };
}

}  // namespace

DialogLayout layoutWithPanel(SDL_Point size, SDL_Point focusedButtonSize) {
    const SDL_Rect panel{(kScreenWidth - size.x) / 2, (kScreenHeight - size.y) / 2, size.x, size.y};
    return layoutIn(panel, {panel.x + kButtonX, panel.y + kButtonY}, focusedButtonSize);
}

DialogLayout layoutWithoutPanel(SDL_Point focusedButtonSize, int normalButtonWidth) {
    const int buttons = focusedButtonSize.x + normalButtonWidth + kNominalButtonGap;
    const SDL_Point left{(kNominalPanel.w - buttons) / 2 + kNominalPanel.x,
                         (kNominalButtonBandHeight - focusedButtonSize.y) / 2 + kNominalButtonBandY};
    return layoutIn(kNominalPanel, left, focusedButtonSize);
}

}  // namespace ostrel
