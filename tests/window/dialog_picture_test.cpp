// Dialogs and popup lists over a frozen list, in the dark theme.
#include "ostrel/dialog.h"
#include "ostrel/image.h"
#include "ostrel/language.h"
#include "ostrel/log.h"
#include "ostrel/menu_item.h"
#include "ostrel/screen.h"
#include "ostrel/skin.h"
#include "ostrel/text_menu.h"
#include "support/fake_host.h"
#include "support/log_capture.h"
#include "support/screen_test.h"

namespace {

using ostreltest::Canvas;
using ostreltest::kBlendingTolerance;
using ostreltest::matchesReference;
using ostreltest::Picture;

class DialogPictureTest : public ostreltest::ScreenTest {
protected:
    DialogPictureTest() {
        initLogger(0);
        device().linkFont();
        ostreltest::host().setTheme(OSTREL_SOURCE_DIR "/theme/dark/");
        const ostreltest::LogCapture quiet;
        init_shared_skin();
        drawListOnTheScreen();
    }
    ~DialogPictureTest() override { uninit_shared_skin(); }

    // What the window draws over the screen as it is now.
    static Picture overTheScreen(FloatWindow& window) {
        window.init();
        const Canvas canvas(1280, 720);
        window.draw();
        return canvas.picture();
    }

    static void add(TextMenu& menu, std::initializer_list<const char*> labels) {
        for (const char* label : labels) menu.insertItem(new TextMenuItem(label, nullptr, nullptr, false));
    }

private:
    static void drawListOnTheScreen() {
        gBackground->render(nullptr, nullptr, /*keepSize=*/false, nullptr);
        TextMenu list("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 10);
        add(list, {"Air Combat", "Boulder Run", "Castle of Mist", "Deep Dive 2", "Express 1905", "Gravity"});
        list.mCurIndex = 2;
        list.draw();
    }
};

TEST_F(DialogPictureTest, QuestionInOneLine) {
    DialogWindow dialog("Delete", "Delete “Castle of Mist”?", false, nullptr, nullptr);
    EXPECT_TRUE(matchesReference(overTheScreen(dialog), "window/dialog_one_line", kBlendingTolerance));
}

TEST_F(DialogPictureTest, QuestionInSeveralLinesWithCancelChosen) {
    DialogWindow dialog("Save states", "Castle of Mist has two save states.\nThey go with the game.\n要继续吗？", true,
                        nullptr, nullptr);
    dialog.mSelected = 0;
    EXPECT_TRUE(matchesReference(overTheScreen(dialog), "window/dialog_lines", kBlendingTolerance));
}

TEST_F(DialogPictureTest, PopupListOverTheFrozenList) {
    auto* menu = new TextMenu("skin/bg-pop-f.png", "skin/bg-pop-n.png", 5, 8);
    add(*menu, {"Start", "Continue", "Add to favourites", "Details", "Delete"});
    menu->showListNum = false;
    menu->showStatNum = false;
    SDL_Rect inThePanel{386, 144, 508, 432};
    menu->updateRectAndNum(inThePanel, 5);
    menu->mCurIndex = 1;
    PopUpWindow popup(-1, menu, "skin/pop-menu-bg.png");
    EXPECT_TRUE(matchesReference(overTheScreen(popup), "window/popup_list", kBlendingTolerance));
}

}  // namespace
