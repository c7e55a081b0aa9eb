#include "ostrel/dialog.h"

#include "ostrel/language.h"
#include "ostrel/menu_item.h"
#include "ostrel/screen.h"
#include "ostrel/skin.h"
#include "ostrel/surface.h"
#include "ostrel/text.h"
#include "ostrel/text_menu.h"
#include "support/fake_host.h"
#include "support/log_capture.h"
#include "support/screen_test.h"
#include "support/virtual_joystick.h"

namespace {

using ostreltest::Canvas;
using ostreltest::Colour;
using ostreltest::drainEvents;
using ostreltest::host;
using ostreltest::kBlack;
using ostreltest::LogCapture;
using ostreltest::Picture;
using ostreltest::picturesMatch;
using ostreltest::pushKey;
using ostreltest::pushUser;
using ostreltest::writePlainPng;

constexpr Colour kPanel{40, 40, 60, 255};
constexpr Colour kFocused{0, 120, 0, 255};
constexpr Colour kUnfocused{0, 0, 120, 255};

int sCancelled = 0;
void cancelled() { ++sCancelled; }

class ResultAction : public Action {
public:
    explicit ResultAction(int result) : mResult(result) {}
    ~ResultAction() override { ++deleted; }
    int dowork(void* item) override {
        EXPECT_EQ(item, nullptr);
        ++worked;
        return mResult;
    }
    static int worked;
    static int deleted;

private:
    int mResult;
};
int ResultAction::worked = 0;
int ResultAction::deleted = 0;

class CountedSurface : public SDL2OstrelSurface {
public:
    CountedSurface() : SDL2OstrelSurface(nullptr, nullptr) {}
    ~CountedSurface() override { ++deleted; }
    static int deleted;
};
int CountedSurface::deleted = 0;

class DialogTest : public ostreltest::ScreenTest {
protected:
    DialogTest() {
        sCancelled = 0;
        ResultAction::worked = 0;
        ResultAction::deleted = 0;
        CountedSurface::deleted = 0;
        drainEvents();
    }
    template <typename Window>
    static int press(Window& window, SDL_Keycode key, Uint32 type = SDL_KEYUP) {
        drainEvents();  // the window's own events come first otherwise
        pushKey(type, key);
        return window.eventHandling();
    }
    static int pressA(DialogWindow& d) { return press(d, SDLK_SPACE); }
    static int pressB(DialogWindow& d) { return press(d, SDLK_LCTRL); }
    static int pressX(DialogWindow& d) { return press(d, SDLK_LSHIFT); }
    static int pressY(DialogWindow& d) { return press(d, SDLK_LALT); }
    static int pressLeft(DialogWindow& d) { return press(d, SDLK_LEFT, SDL_KEYDOWN); }
    static int pressRight(DialogWindow& d) { return press(d, SDLK_RIGHT, SDL_KEYDOWN); }

    // The screen was filled with (200, 100, 50) when the window's picture was taken. Its panel is in the middle.
    static void expectOverFrozenScreen(FloatWindow& window) {
        OstrelSurface* const skins = gBackgroundFloat;
        Canvas canvas(1280, 720, kBlack);
        gBackgroundFloat = nullptr;
        window.draw();
        EXPECT_EQ(canvas.picture().at(0, 0), (Colour{200, 100, 50, 255}));
        EXPECT_EQ(canvas.picture().at(640, 300), kPanel);
        const auto overlay = ostreltest::plainSurface(1280, 720, {9, 9, 9, 255});
        gBackgroundFloat = overlay.get();
        window.draw();
        EXPECT_EQ(canvas.picture().at(0, 0), (Colour{9, 9, 9, 255}));
        EXPECT_EQ(canvas.picture().at(640, 300), kPanel);
        gBackgroundFloat = skins;
    }

    void writeSkin() {
        device().linkFont();
        writePlainPng(device().path("skin/pop-bg.png"), 700, 500, kPanel);
        writePlainPng(device().path("skin/btn-bg-f.png"), 200, 60, kFocused);
        writePlainPng(device().path("skin/btn-bg-n.png"), 190, 50, kUnfocused);
        LogCapture quiet;
        init_shared_skin();
    }
};

// --- the float ---

TEST_F(DialogTest, AFloatIsTransientAndTakesNoInput) {
    FloatWindow window(3);
    EXPECT_EQ(window.title, 3);
    EXPECT_EQ(window.type, -1);
    EXPECT_EQ(window.mSnapshot, nullptr);
    EXPECT_EQ(window.eventHandling(), -1);
    EXPECT_EQ(window.restoreState(), 0);
    window.quit();
    window.onFrame();
}

TEST_F(DialogTest, AFloatKeepsTheFirstPicture) {
    FloatWindow window(-1);
    window.init();
    OstrelSurface* first = window.mSnapshot;
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->getWidth(), 1280);
    EXPECT_EQ(first->getHeight(), 720);
    window.init();
    EXPECT_EQ(window.mSnapshot, first);
}

TEST_F(DialogTest, AFloatDeletesItsPicture) {
    {
        FloatWindow window(-1);
        window.mSnapshot = new CountedSurface;
    }
    EXPECT_EQ(CountedSurface::deleted, 1);
}

TEST_F(DialogTest, AFloatDrawsTheFrozenScreenAndTheOverlayOverTheWholeTarget) {
    FillRect(nullptr, nullptr, 200, 100, 50, 255);
    FloatWindow window(-1);
    window.init();
    Canvas canvas(64, 48, kBlack);
    window.draw();
    EXPECT_EQ(canvas.picture().count({200, 100, 50, 255}), 64 * 48);
    gBackgroundFloat = ostreltest::plainSurface(1280, 720, {0, 0, 0, 255}).release();
    window.draw();
    EXPECT_EQ(canvas.picture().count(kBlack), 64 * 48);
    deleteSurface(gBackgroundFloat);
    gBackgroundFloat = nullptr;
}

TEST_F(DialogTest, AFloatWithoutPictureAndOverlayDrawsNothing) {
    FloatWindow window(-1);
    Canvas canvas(64, 48, kBlack);
    window.draw();
    EXPECT_EQ(canvas.picture().count(kBlack), 64 * 48);
}

TEST_F(DialogTest, AFloatThatCannotDrawSaysSo) {
    FloatWindow window(-1);
    window.mSnapshot = new SDL2OstrelSurface(nullptr, nullptr);
    Canvas canvas(8, 8);
    LogCapture log;
    window.draw();
    EXPECT_EQ(log.text().rfind("SDL_RenderCopy fail : ", 0), 0U);
    EXPECT_EQ(log.lines().size(), 1U);
}

// --- the dialog's keys ---

TEST_F(DialogTest, ANewDialogHasConfirmChosenAndNoTitleNumber) {
    DialogWindow dialog("Title", "Message", true, nullptr, nullptr);
    EXPECT_EQ(dialog.title, -1);
    EXPECT_EQ(dialog.type, -1);
    EXPECT_EQ(dialog.mTitle, "Title");
    EXPECT_EQ(dialog.mMessage, "Message");
    EXPECT_EQ(dialog.mSelected, 1);
    EXPECT_EQ(dialog.mExtra, nullptr);
    EXPECT_TRUE(dialog.mMultiLine);
    EXPECT_FALSE(dialog.mHostFlag);
}

TEST_F(DialogTest, NumberedTextsComeFromTheLanguage) {
    DialogWindow dialog(4, 7, false, nullptr, nullptr);
    EXPECT_EQ(dialog.mTitle, "OPEN");
    EXPECT_EQ(dialog.mMessage, "MENU");
    EXPECT_FALSE(dialog.mMultiLine);
}

TEST_F(DialogTest, ANumberWithoutATextIsEmptyOrMarked) {
    DialogWindow dialog(-1, 5000, false, nullptr, nullptr);
    EXPECT_EQ(dialog.mTitle, "");
    EXPECT_EQ(dialog.mMessage, "wrongbeef");
}

TEST_F(DialogTest, LeftAndRightStopAtTheEnds) {
    DialogWindow dialog("", "", false, nullptr, nullptr);
    EXPECT_EQ(pressLeft(dialog), -1);
    EXPECT_EQ(dialog.mSelected, 0);
    EXPECT_EQ(pressLeft(dialog), -1);
    EXPECT_EQ(dialog.mSelected, 0);
    EXPECT_EQ(pressRight(dialog), -1);
    EXPECT_EQ(pressRight(dialog), -1);
    EXPECT_EQ(dialog.mSelected, 1);
}

TEST_F(DialogTest, AConfirmsAndGivesTheActionsResult) {
    DialogWindow dialog("", "", false, new ResultAction(1002), cancelled);
    LogCapture log;
    EXPECT_EQ(pressA(dialog), 1002);
    EXPECT_EQ(log.text(), "DialogWindow ok\n");
    EXPECT_EQ(ResultAction::worked, 1);
    EXPECT_EQ(sCancelled, 0);
}

TEST_F(DialogTest, AnActionThatRefusesKeepsTheDialogAndRunsAgain) {
    DialogWindow dialog("", "", false, new ResultAction(-1), nullptr);
    EXPECT_EQ(pressA(dialog), -1);
    EXPECT_EQ(pressA(dialog), -1);
    EXPECT_EQ(ResultAction::worked, 2);
}

TEST_F(DialogTest, ConfirmingOnTheCancelButtonCancelsAndNeverRunsTheAction) {
    DialogWindow dialog("", "", false, new ResultAction(7), cancelled);
    dialog.mSelected = 0;
    LogCapture log;
    EXPECT_EQ(pressA(dialog), 1002);
    EXPECT_EQ(log.text(), "DialogWindow cancel\n");
    EXPECT_EQ(sCancelled, 1);
    EXPECT_EQ(ResultAction::worked, 0);
}

TEST_F(DialogTest, BCancels) {
    DialogWindow dialog("", "", false, new ResultAction(7), cancelled);
    LogCapture log;
    EXPECT_EQ(pressB(dialog), 1002);
    EXPECT_EQ(log.text(), "DialogWindow cancel\n");
    EXPECT_EQ(sCancelled, 1);
}

TEST_F(DialogTest, WithBConfirmingBConfirmsAndACancels) {
    host().shm.values[19] = 1;
    DialogWindow dialog("", "", false, new ResultAction(7), cancelled);
    EXPECT_EQ(pressB(dialog), 7);
    EXPECT_EQ(pressA(dialog), 1002);
    EXPECT_EQ(sCancelled, 1);
}

TEST_F(DialogTest, XCancelsAndYConfirmsWhateverConfirms) {
    for (const int bConfirms : {0, 1}) {
        host().shm.values[19] = bConfirms;
        DialogWindow dialog("", "", false, new ResultAction(7), cancelled);
        EXPECT_EQ(pressX(dialog), 1002);
        EXPECT_EQ(pressY(dialog), 7);
    }
    EXPECT_EQ(sCancelled, 2);
}

TEST_F(DialogTest, WithoutActionAndCallbackEitherButtonCloses) {
    DialogWindow dialog("", "", false, nullptr, nullptr);
    LogCapture log;
    EXPECT_EQ(pressA(dialog), 1002);
    dialog.mSelected = 0;
    EXPECT_EQ(pressA(dialog), 1002);
    EXPECT_EQ(pressB(dialog), 1002);
    EXPECT_EQ(log.text(), "");
}

TEST_F(DialogTest, AnUnknownButtonCloses) {
    DialogWindow dialog("", "", false, new ResultAction(7), cancelled);
    dialog.mSelected = 5;
    EXPECT_EQ(dialog.handleOK(), 1002);
    EXPECT_EQ(ResultAction::worked, 0);
    EXPECT_EQ(sCancelled, 0);
}

TEST_F(DialogTest, RedrawAndTheHostsEventsPassThroughAndOthersDoNot) {
    DialogWindow dialog("", "", false, nullptr, nullptr);
    for (const int code : {25, 43, 44}) {
        drainEvents();
        pushUser(code);
        EXPECT_EQ(dialog.eventHandling(), code);
    }
    for (const int code : {0, 5, 6, 9, 11, 24, 42, 45, 1003}) {
        drainEvents();
        pushUser(code);
        EXPECT_EQ(dialog.eventHandling(), -1) << code;
    }
    EXPECT_EQ(dialog.eventHandling(), -1);
}

TEST_F(DialogTest, AnActionMayDeleteTheDialog) {
    static DialogWindow* sDialog;
    sDialog = new DialogWindow("", "", false,
                               new GeneralAction(
                                   [](void*) {
                                       delete sDialog;
                                       return 1002;
                                   },
                                   nullptr),
                               nullptr);
    EXPECT_EQ(pressA(*sDialog), 1002);
}

TEST_F(DialogTest, ACancelCallbackMayDeleteTheDialog) {
    static DialogWindow* sDialog;
    for (const bool onTheButton : {false, true}) {
        sDialog = new DialogWindow("", "", false, new ResultAction(7), [] { delete sDialog; });
        if (onTheButton) sDialog->mSelected = 0;
        EXPECT_EQ(onTheButton ? pressA(*sDialog) : pressB(*sDialog), 1002);
    }
    EXPECT_EQ(ResultAction::deleted, 2);
    EXPECT_EQ(ResultAction::worked, 0);
}

TEST_F(DialogTest, ADialogDeletesItsAction) {
    { DialogWindow dialog("", "", false, new ResultAction(0), nullptr); }
    EXPECT_EQ(ResultAction::deleted, 1);
}

TEST_F(DialogTest, ADialogDeletesItsPictures) {
    {
        DialogWindow dialog("", "", false, nullptr, nullptr);
        for (OstrelSurface** picture : {&dialog.mBg, &dialog.mExtra, &dialog.mBtnFocus, &dialog.mBtnNormal}) {
            ASSERT_EQ(*picture, nullptr);
            *picture = new CountedSurface;
        }
    }
    EXPECT_EQ(CountedSurface::deleted, 4);
}

// --- the dialog's picture ---

TEST_F(DialogTest, PanelAndButtonsStandInTheirPlaces) {
    writeSkin();
    DialogWindow dialog("", "", false, nullptr, nullptr);
    Canvas canvas(1280, 720, kBlack);
    dialog.draw();
    const Picture picture = canvas.picture();
    EXPECT_EQ(picture.boundsOfAllBut(kBlack).x, 290);
    EXPECT_EQ(picture.boundsOfAllBut(kBlack).y, 110);
    EXPECT_EQ(picture.boundsOfAllBut(kBlack).w, 700);
    EXPECT_EQ(picture.boundsOfAllBut(kBlack).h, 500);
    EXPECT_EQ(picture.at(390, 500), kUnfocused);
    EXPECT_EQ(picture.at(389, 500), kPanel);
    EXPECT_EQ(picture.at(390 + 189, 549), kUnfocused);
    // The unfocused background is 190 x 50; the second button still stands a focused width and 100 pixels on.
    EXPECT_EQ(picture.at(690, 500), kFocused);
    EXPECT_EQ(picture.at(889, 559), kFocused);
    EXPECT_EQ(picture.at(689, 500), kPanel);
    uninit_shared_skin();
}

// The theme's folder has all three, the working directory's skin only others.
TEST_F(DialogTest, ADialogsImagesComeFromTheTheme) {
    writeSkin();
    uninit_shared_skin();
    host().setTheme(device().path("night/"));
    writePlainPng(device().path("night/skin/pop-bg.png"), 600, 480, {1, 2, 3, 255});
    writePlainPng(device().path("night/skin/btn-bg-f.png"), 100, 40, {4, 5, 6, 255});
    writePlainPng(device().path("night/skin/btn-bg-n.png"), 100, 40, {7, 8, 9, 255});
    DialogWindow dialog("", "", false, nullptr, nullptr);
    Canvas canvas(1280, 720, kBlack);
    dialog.draw();
    const Picture picture = canvas.picture();
    EXPECT_EQ(picture.at(340, 120), (Colour{1, 2, 3, 255}));
    EXPECT_EQ(picture.at(440, 510), (Colour{7, 8, 9, 255}));
    EXPECT_EQ(picture.at(640, 510), (Colour{4, 5, 6, 255}));
    for (const Colour fallback : {kPanel, kFocused, kUnfocused}) EXPECT_EQ(picture.count(fallback), 0);
}

TEST_F(DialogTest, ADialogStandsOverTheFrozenScreenAndTheOverlay) {
    FillRect(nullptr, nullptr, 200, 100, 50, 255);
    writeSkin();
    DialogWindow dialog("", "", false, nullptr, nullptr);
    dialog.init();
    expectOverFrozenScreen(dialog);
    uninit_shared_skin();
}

TEST_F(DialogTest, TheChosenButtonTakesTheFocusedBackground) {
    writeSkin();
    DialogWindow dialog("", "", false, nullptr, nullptr);
    dialog.mSelected = 0;
    Canvas canvas(1280, 720, kBlack);
    dialog.draw();
    EXPECT_EQ(canvas.picture().at(390, 500), kFocused);
    EXPECT_EQ(canvas.picture().at(690, 500), kUnfocused);
    uninit_shared_skin();
}

// What the text calls draw on the bare panel, drawn by the test itself.
TEST_F(DialogTest, TextsStandInTheirPlacesFontsAndColours) {
    writeSkin();
    for (const bool multiLine : {false, true}) {
        DialogWindow dialog("Leave?", "First line\nSecond line", multiLine, nullptr, nullptr);
        Canvas canvas(1280, 720, kBlack);
        dialog.draw();
        const Picture actual = canvas.picture();

        Canvas expected(1280, 720, kBlack);
        const auto fill = [&](SDL_Rect r, Colour c) { FillRect(expected.surface(), &r, c.r, c.g, c.b, c.a); };
        fill({290, 110, 700, 500}, kPanel);
        DrawString(gPopupFontTitle, {290, 190, 700, 43}, "Leave?", gPopupColorTitle, 1, false, false);
        SDL_Rect message{290, 296, 700, 100};
        if (multiLine) {
            DrawStringLines(gPopupFontTxt, message, "First line\nSecond line", "\n", gPopupColorTxt, 1, false);
        } else {
            DrawString(gPopupFontTxt, message, "First line\nSecond line", gPopupColorTitle, 1, false, false);
        }
        fill({390, 500, 190, 50}, kUnfocused);
        DrawString(gPopupFontBtn, {390, 500, 200, 60}, "Cancel", gPopupColorBtn, 1, false, false);
        fill({690, 500, 200, 60}, kFocused);
        DrawString(gPopupFontBtn, {690, 500, 200, 60}, "OK", gPopupColorBtn, 1, false, false);
        EXPECT_TRUE(picturesMatch(actual, expected.picture())) << multiLine;
    }
    uninit_shared_skin();
}

TEST_F(DialogTest, WithoutImagesTheTextsStandOnANominalPanel) {
    device().linkFont();
    {
        LogCapture quiet;
        init_shared_skin();
    }
    DialogWindow dialog("Leave?", "Really", false, nullptr, nullptr);
    Canvas canvas(1280, 720, kBlack);
    dialog.draw();
    const Picture actual = canvas.picture();
    Canvas expected(1280, 720, kBlack);
    DrawString(gPopupFontTitle, {338, 222, 604, 43}, "Leave?", gPopupColorTitle, 1, false, false);
    DrawString(gPopupFontTxt, {338, 328, 604, 100}, "Really", gPopupColorTitle, 1, false, false);
    DrawString(gPopupFontBtn, {634, 458, 0, 0}, "Cancel", gPopupColorBtn, 1, false, false);
    DrawString(gPopupFontBtn, {734, 458, 0, 0}, "OK", gPopupColorBtn, 1, false, false);
    EXPECT_TRUE(picturesMatch(actual, expected.picture()));
    uninit_shared_skin();
}

// --- the popup ---

class KeyMenu : public TextMenu {
public:
    explicit KeyMenu(int result) : TextMenu(nullptr, nullptr, 6, 0), mResult(result) {}
    ~KeyMenu() override { ++deleted; }
    int eventHandling() override { return mResult; }
    void draw() override {
        ++drawn;
        if (drawsAt.w == 0) return;
        ostreltest::plainSurface(drawsAt.w, drawsAt.h, {250, 0, 0, 255})->render(nullptr, &drawsAt, true, nullptr);
    }
    static int deleted;
    SDL_Rect drawsAt{0, 0, 0, 0};
    int drawn = 0;

private:
    int mResult;
};
int KeyMenu::deleted = 0;

TEST_F(DialogTest, APopupWithoutAMenuCloses) {
    PopUpWindow popup(-1, nullptr, "skin/pop-bg.png");
    EXPECT_EQ(popup.eventHandling(), 1002);
    popup.draw();
}

TEST_F(DialogTest, AConfirmOrBackKeyThatTheMenuHandsBackClosesThePopup) {
    for (const int key : {1, 2}) {
        PopUpWindow popup(-1, new KeyMenu(key), "skin/pop-bg.png");
        EXPECT_EQ(popup.eventHandling(), 1002);
    }
}

TEST_F(DialogTest, OtherResultsOfTheMenuComeBack) {
    for (const int result : {-1, 0, 3, 7, 25, 1003, 1005, 1008}) {
        PopUpWindow popup(-1, new KeyMenu(result), "skin/pop-bg.png");
        EXPECT_EQ(popup.eventHandling(), result);
    }
}

TEST_F(DialogTest, APopupDrawsItsPanelCentredAndThenTheMenu) {
    writePlainPng(device().path("skin/panel.png"), 601, 401, kPanel);
    auto* menu = new KeyMenu(0);
    PopUpWindow popup(-1, menu, "skin/panel.png");
    Canvas canvas(1280, 720, kBlack);
    popup.draw();
    const SDL_Rect panel = canvas.picture().boundsOfAllBut(kBlack);
    EXPECT_EQ(panel.x, 339);
    EXPECT_EQ(panel.y, 159);
    EXPECT_EQ(panel.w, 601);
    EXPECT_EQ(panel.h, 401);
    EXPECT_EQ(menu->drawn, 1);
}

TEST_F(DialogTest, APopupsMenuStandsOnThePanel) {
    writePlainPng(device().path("skin/panel.png"), 600, 400, kPanel);
    auto* menu = new KeyMenu(0);
    menu->drawsAt = {600, 300, 20, 10};
    PopUpWindow popup(-1, menu, "skin/panel.png");
    Canvas canvas(1280, 720, kBlack);
    popup.draw();
    EXPECT_EQ(canvas.picture().count({250, 0, 0, 255}), 20 * 10);
    EXPECT_EQ(canvas.picture().at(599, 300), kPanel);
}

TEST_F(DialogTest, APopupsPanelComesFromTheTheme) {
    writePlainPng(device().path("skin/panel.png"), 600, 400, kPanel);
    host().setTheme(device().path("night/"));
    writePlainPng(device().path("night/skin/panel.png"), 300, 200, {1, 2, 3, 255});
    PopUpWindow popup(-1, new KeyMenu(0), "skin/panel.png");
    Canvas canvas(1280, 720, kBlack);
    popup.draw();
    EXPECT_EQ(canvas.picture().count({1, 2, 3, 255}), 300 * 200);
    EXPECT_EQ(canvas.picture().count(kPanel), 0);
}

TEST_F(DialogTest, APopupStandsOverTheFrozenScreenAndTheOverlay) {
    FillRect(nullptr, nullptr, 200, 100, 50, 255);
    writePlainPng(device().path("skin/panel.png"), 600, 400, kPanel);
    PopUpWindow popup(-1, new KeyMenu(0), "skin/panel.png");
    popup.init();
    expectOverFrozenScreen(popup);
}

TEST_F(DialogTest, APopupKeepsItsTitleAndIsTransient) {
    PopUpWindow popup(4, nullptr, "skin/panel.png");
    EXPECT_EQ(popup.title, 4);
    EXPECT_STREQ(popup.getTitle(), "OPEN");
    EXPECT_EQ(popup.type, -1);
    EXPECT_EQ(popup.mMenu, nullptr);
    EXPECT_EQ(popup.mPanel, nullptr);
}

TEST_F(DialogTest, APopupWithoutAMenuDrawsNoPanel) {
    writePlainPng(device().path("skin/panel.png"), 600, 400, kPanel);
    PopUpWindow popup(-1, nullptr, "skin/panel.png");
    Canvas canvas(1280, 720, kBlack);
    popup.draw();
    EXPECT_EQ(canvas.picture().count(kPanel), 0);
}

TEST_F(DialogTest, APopupDeletesItsMenu) {
    KeyMenu::deleted = 0;
    { PopUpWindow popup(-1, new KeyMenu(0), "skin/pop-bg.png"); }
    EXPECT_EQ(KeyMenu::deleted, 1);
}

TEST_F(DialogTest, APopupDeletesItsPanel) {
    {
        PopUpWindow popup(-1, nullptr, nullptr);
        popup.mPanel = new CountedSurface;
    }
    EXPECT_EQ(CountedSurface::deleted, 1);
}

}  // namespace
