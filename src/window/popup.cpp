#include <memory>

#include "graphics/surface_internal.h"
#include "ostrel/dialog.h"
#include "ostrel/host.h"
#include "ostrel/image.h"
#include "ostrel/input.h"
#include "ostrel/surface.h"
#include "ostrel/text_menu_drawer.h"

namespace {

constexpr int kScreenWidth = 1280;
constexpr int kScreenHeight = 720;

}  // namespace

PopUpWindow::PopUpWindow(int titleId, TextMenuDrawer* menu, const char* panelFile)
    : FloatWindow(titleId), mMenu(menu), mPanel(LoadOstrelSurface(gThemePath, ostrel::kWorkingDirectory, panelFile)) {}

PopUpWindow::~PopUpWindow() {
    std::unique_ptr<TextMenuDrawer>{mMenu}.reset();
    mMenu = nullptr;
    deleteSurface(mPanel);
}

// A row's action may delete the window: after the menu has had the input nothing of it is touched.
int PopUpWindow::eventHandling() {
    if (mMenu == nullptr) return WIN_BACK;
    const int result = mMenu->eventHandling();
    return result == KEY_A || result == KEY_B ? WIN_BACK : result;
}

void PopUpWindow::draw() {
    FloatWindow::draw();
    if (mMenu == nullptr) return;
    if (mPanel != nullptr) {
        SDL_Rect place{(kScreenWidth - mPanel->getWidth()) / 2, (kScreenHeight - mPanel->getHeight()) / 2, 0, 0};
        mPanel->render(nullptr, &place, /*keepSize=*/true, nullptr);
    }
    mMenu->draw();
}
