#include "ostrel/dialog.h"

#include <memory>
#include <utility>

#include "graphics/surface_internal.h"
#include "graphics/text_internal.h"
#include "ostrel/host.h"
#include "ostrel/image.h"
#include "ostrel/input.h"
#include "ostrel/language.h"
#include "ostrel/log.h"
#include "ostrel/menu_item.h"
#include "ostrel/skin.h"
#include "ostrel/surface.h"
#include "ostrel/text.h"
#include "window/dialog_layout.h"

using ostrel::DialogLayout;

namespace {

constexpr int kCancelButton = 0;
constexpr int kConfirmButton = 1;
constexpr int kCancelText = 0;  // numbers of the interface texts
constexpr int kConfirmText = 1;
// Events of the host's own that pass through a dialog.
constexpr int kHostEvents[] = {43, 44};

OstrelSurface* loadFromTheme(const char* file) {
    return LoadOstrelSurface(gThemePath, ostrel::kWorkingDirectory, file);
}

SDL_Point sizeOf(OstrelSurface* image) {
    return image == nullptr ? SDL_Point{0, 0} : SDL_Point{image->getWidth(), image->getHeight()};
}

void drawAt(OstrelSurface* image, const SDL_Rect& place) {
    SDL_Rect target = place;
    if (image != nullptr) image->render(nullptr, &target, /*keepSize=*/true, nullptr);
}

void drawCentred(TTF_Font* font, const SDL_Rect& place, const char* text, SDL_Color colour) {
    DrawString(font, place, text, colour, ostrel::kAlignCentre, /*shadow=*/false, /*measureOnly=*/false);
}

void drawButton(OstrelSurface* background, const SDL_Rect& place, int textId) {
    drawAt(background, place);
    drawCentred(gPopupFontBtn, place, getLangStr(textId), gPopupColorBtn);
}

}  // namespace

DialogWindow::DialogWindow(int titleId, int messageId, bool multiLine, Action* ok, void (*cancel)())
    : DialogWindow(std::string(getLangStr(titleId)), std::string(getLangStr(messageId)), multiLine, ok, cancel) {}

DialogWindow::DialogWindow(std::string titleText, std::string message, bool multiLine, Action* ok, void (*cancel)())
    : FloatWindow(-1),
      mTitle(std::move(titleText)),
      mMessage(std::move(message)),
      mSelected(kConfirmButton),
      mBg(loadFromTheme("skin/pop-bg.png")),
      mExtra(nullptr),
      mBtnFocus(loadFromTheme("skin/btn-bg-f.png")),
      mBtnNormal(loadFromTheme("skin/btn-bg-n.png")),
      mOkAction(ok),
      mCancelCb(cancel),
      mMultiLine(multiLine),
      mHostFlag(false) {}

DialogWindow::~DialogWindow() {
    for (OstrelSurface* image : {mBg, mExtra, mBtnFocus, mBtnNormal}) deleteSurface(image);
    const std::unique_ptr<Action> owned{mOkAction};
}

int DialogWindow::eventHandling() {
    const bool bConfirms = GetKeyShm(gShmInfo, SHM_BCONFIRM) != 0;
    const int key = wait_event(nullptr);
    switch (key) {
        case KEY_A:
            return bConfirms ? handleCancel() : handleOK();
        case KEY_B:
            return bConfirms ? handleOK() : handleCancel();
        case KEY_X:
            return handleCancel();
        case KEY_Y:
            return handleOK();
        case KEY_LEFT:
            if (mSelected > kCancelButton) --mSelected;
            return -1;
        case KEY_RIGHT:
            if (mSelected < kConfirmButton) ++mSelected;
            return -1;
        case WIN_REDRAW:
        case kHostEvents[0]:
        case kHostEvents[1]:
            return key;
        default:
            return -1;
    }
}

// The action or callback may delete the dialog: its call is the last use of it.
int DialogWindow::handleOK() {
    if (mSelected == kCancelButton) return handleCancel();
    if (mSelected != kConfirmButton || mOkAction == nullptr) return WIN_BACK;
    tprintf("DialogWindow ok\n");
    return mOkAction->dowork(nullptr);
}

int DialogWindow::handleCancel() {
    if (mCancelCb != nullptr) {
        tprintf("DialogWindow cancel\n");
        mCancelCb();
    }
    return WIN_BACK;
}

void DialogWindow::draw() {
    FloatWindow::draw();
    const SDL_Point panel = sizeOf(mBg);
    const DialogLayout layout = mBg == nullptr ? ostrel::layoutWithoutPanel(sizeOf(mBtnFocus), sizeOf(mBtnNormal).x)
                                               : ostrel::layoutWithPanel(panel, sizeOf(mBtnFocus));
    drawAt(mBg, layout.panel);
    drawCentred(gPopupFontTitle, layout.title, mTitle.c_str(), gPopupColorTitle);
    if (mMultiLine) {
        SDL_Rect place = layout.message;
        DrawStringLines(gPopupFontTxt, place, mMessage.c_str(), "\n", gPopupColorTxt, ostrel::kAlignCentre,
                        /*shadow=*/false);
    } else {
        // A single line speaks as loud as the title, and takes its colour.
        drawCentred(gPopupFontTxt, layout.message, mMessage.c_str(), gPopupColorTitle);
    }
    const bool confirmChosen = mSelected == kConfirmButton;
    drawButton(confirmChosen ? mBtnNormal : mBtnFocus, layout.leftButton, kCancelText);
    drawButton(confirmChosen ? mBtnFocus : mBtnNormal, layout.rightButton, kConfirmText);
}
