#include "popups.h"

#include <SDL.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "ostrel/dialog.h"
#include "ostrel/language.h"
#include "ostrel/skin.h"
#include "ostrel/text_menu.h"
#include "screen_shot.h"
#include "screen_size.h"
#include "session.h"
#include "text_layout.h"

namespace launcher {
namespace {

// The theme's panels for so many rows of 80 pixels, 8 apart; a longer list scrolls in the largest.
struct Panel {
    int rows;
    const char* image;
};
constexpr Panel kPanels[] = {{2, "skin/pop-menu-bg-2.png"},
                             {3, "skin/pop-menu-bg-3.png"},
                             {5, "skin/pop-menu-bg.png"},
                             {6, "skin/pop-menu-bg-6.png"}};
constexpr int kRowHeight = 80;
constexpr int kRowGap = 8;
constexpr int kListLeft = 386;
constexpr int kListWidth = 508;

const Panel& panelFor(std::size_t choices) {
    const Panel* panel = std::find_if(std::begin(kPanels), std::end(kPanels) - 1, [choices](const Panel& each) {
        return choices <= static_cast<std::size_t>(each.rows);
    });
    return *panel;
}

SDL_Rect insideOf(const Panel& panel) {
    const int height = panel.rows * kRowHeight + (panel.rows - 1) * kRowGap;
    return {kListLeft, (kScreenHeight - height) / 2, kListWidth, height};
}

// The lines of a dialog's message have the width between its panel's edges.
constexpr int kMessageWidth = 680;

std::string fittingLines(const std::string& text) {
    std::string lines;
    for (const std::string& line : wrapLines(text, gPopupFontTxt, kMessageWidth, /*mostLines=*/3)) {
        lines += lines.empty() ? line : "\n" + line;
    }
    return lines;
}

// Dialogs and popups of the library keep the keys they do not know, so they too look whether the launcher is to end;
// and whoever wants a picture of the screen wants it with the popup.
class Question : public DialogWindow {
public:
    using DialogWindow::DialogWindow;
    int eventHandling() override { return leaveRequested() ? leaveLoop() : DialogWindow::eventHandling(); }
    void onFrame() override {
        answerShotRequest();
        DialogWindow::onFrame();
    }
};

class ChoicePopUp : public PopUpWindow {
public:
    using PopUpWindow::PopUpWindow;
    int eventHandling() override { return leaveRequested() ? leaveLoop() : PopUpWindow::eventHandling(); }
    void onFrame() override {
        answerShotRequest();
        PopUpWindow::onFrame();
    }
};

// Runs a function and closes the window that asked.
class CallAndClose : public Action {
public:
    explicit CallAndClose(std::function<void()> function) : mFunction(std::move(function)) {}
    int dowork(void* /*item*/) override {
        if (mFunction) mFunction();
        return WIN_BACK;
    }

private:
    std::function<void()> mFunction;
};

}  // namespace

// Always drawn as lines, because a message in one line takes the title's colour.
void askQuestion(Text title, Text question, std::function<void()> confirmed) {
    add2PopupList(new Question(getLangStr(title), fittingLines(getLangStr(question)), /*multiLine=*/true,
                               new CallAndClose(std::move(confirmed)), /*cancel=*/nullptr));
}

void showMessage(const std::string& title, const std::string& message) {
    add2PopupList(new Question(title, fittingLines(message), /*multiLine=*/true, /*ok=*/nullptr, /*cancel=*/nullptr));
}

void showChoices(const std::vector<Choice>& choices, int current) {
    const Panel& panel = panelFor(choices.size());
    auto* menu = new TextMenu("skin/bg-pop-f.png", "skin/bg-pop-n.png", panel.rows, kRowGap);
    SDL_Rect inside = insideOf(panel);
    menu->updateRectAndNum(inside, panel.rows);
    menu->showListNum = false;
    menu->showStatNum = false;
    menu->textMode = true;
    for (const Choice& choice : choices) {
        menu->insertItem(
            new TextMenuItem(choice.label.c_str(), nullptr, new CallAndClose(choice.chosen), /*ownAction=*/true));
    }
    const int visible = std::min(static_cast<int>(choices.size()), panel.rows);
    menu->restorePos(current, 0, visible - 1);
    add2PopupList(new ChoicePopUp(kTextNone, menu, panel.image));
}

}  // namespace launcher
