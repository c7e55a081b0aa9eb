#include "typed_window.h"

#include <utility>
#include <vector>

#include "ostrel/input.h"
#include "ostrel/menu_item.h"
#include "ostrel/screen.h"
#include "ostrel/skin.h"
#include "ostrel/surface.h"
#include "ostrel/text.h"
#include "ostrel/text_menu.h"
#include "ostrel/window.h"
#include "support/fake_host.h"

namespace ostreltest {
namespace {

using Shown = std::function<void(const std::string& keys)>;

// A list, whose cursor the arrows move and whose numbers SELECT switches, and the keys below it.
class TypedWindow : public OstrelWindow {
public:
    explicit TypedWindow(Shown shown)
        : OstrelWindow(-1, 0), mMenu("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 8), mShown(std::move(shown)) {
        for (const char* label : {"Quiet Meteor", "竹谷信使", "Paper Harbour", "Nine Lanterns", "Salt Road", "Attic"}) {
            mMenu.insertItem(new TextMenuItem(label, nullptr, nullptr, false));
        }
        mMenu.showListNum = false;
    }
    // The picture of the frame before has been shown by now.
    void onFrame() override {
        if (mDrawnKeys == mShownKeys) return;
        mShownKeys = mDrawnKeys;
        mShown(mShownKeys);
    }
    void draw() override {
        if (gBackground != nullptr) gBackground->render(nullptr, nullptr, /*keepSize=*/false, nullptr);
        drawNavBar(0);
        mMenu.draw();
        DrawString(gStatFont, {30, 672, 0, 0}, ("Keys:" + mKeys).c_str(), gStatColorTxt, 0, /*shadow=*/false,
                   /*measureOnly=*/false);
        mDrawnKeys = mKeys;
    }
    int eventHandling() override {
        const int key = wait_event(nullptr);
        if (key == KEY_NONE || key == WIN_REDRAW) return key;
        if (key == KEY_MENU) return WIN_QUIT;
        mKeys += " " + std::to_string(key);
        if (key == KEY_SELECT) mMenu.showListNum = !mMenu.showListNum;
        if (key == KEY_DOWN) mMenu.moveForward();
        if (key == KEY_UP) mMenu.moveBackward();
        return key;
    }
    void quit() override {}
    void init() override {}
    void saveState(cJSON* /*obj*/) override {}
    int restoreState() override { return 0; }

private:
    TextMenu mMenu;
    Shown mShown;
    std::string mKeys;
    std::string mDrawnKeys = "nothing yet";
    std::string mShownKeys = "nothing yet";
};

}  // namespace

bool runTypedWindow(const Shown& shown) {
    if (ScreenInit(1280, 720, 32, 0) == 0) return false;
    host().setTheme(OSTREL_SOURCE_DIR "/theme/dark/");
    init_shared_skin();
    std::vector<OstrelWindow*> stack{new TypedWindow(shown)};
    runWindows(stack);
    uninit_shared_skin();
    ScreenUninit();
    return true;
}

}  // namespace ostreltest
