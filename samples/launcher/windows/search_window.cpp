#include "windows/search_window.h"

#include <vector>

#include "game_index.h"
#include "host.h"
#include "icons.h"
#include "json_file.h"
#include "letter_pad.h"
#include "ostrel/input.h"
#include "ostrel/language.h"
#include "ostrel/skin.h"
#include "ostrel/text.h"
#include "ostrel/text_menu_drawer.h"
#include "ostrel/utf8_string.h"
#include "play.h"
#include "text_layout.h"
#include "window_state.h"
#include "windows/art_panel.h"
#include "windows/games_window.h"

namespace launcher {
namespace {

constexpr SDL_Rect kResultPlace{420, 80, kHalfListWidth, 572};

constexpr SDL_Rect kField{22, 84, 376, 56};
constexpr int kFieldInset = 14;
constexpr SDL_Point kCaret{3, 36};
constexpr int kCaretGap = 8;
constexpr SDL_Rect kPageDot{0, 614, 8, 8};  // below the keys
constexpr int kPageDotStep = 20;
constexpr Uint8 kOtherDot = 72;

constexpr std::size_t kMostOffered = 60;

// The games that were found. The rows are the index's; the list holds only where they are.
class ResultList : public TextMenuDrawer {
public:
    ResultList() : TextMenuDrawer(kHalfRowFocused, kHalfRowNormal, kListRows, kListGap) {
        SDL_Rect place = kResultPlace;
        updateRectAndNum(place, kListRows);
    }

    void show(const std::vector<GameRow*>& rows, const std::string& word) {
        mRows = rows;
        mName = word;
        mCurIndex = mFirstIndex = mLastIndex = 0;
    }

    GameRow* getItemByIndex(int index) override {
        return index < 0 || index >= getListNum() ? nullptr : mRows[static_cast<std::size_t>(index)];
    }
    int getListNum() override { return static_cast<int>(mRows.size()); }
    int select() override {
        const GameRow* row = getItemByIndex(mCurIndex);
        if (row != nullptr) playGame(row->path);
        return 0;
    }
    int xselect() override {
        const GameRow* row = getItemByIndex(mCurIndex);
        if (row != nullptr) showGameMenu(row->path, row->isFolder);
        return 0;
    }

private:
    std::vector<GameRow*> mRows;
};

int drawText(TTF_Font* font, const SDL_Rect& place, const char* text, SDL_Color colour, int align) {
    return DrawString(font, place, text, colour, align, /*shadow=*/false, /*measureOnly=*/false);
}

int widthOf(const std::string& text) {
    int width = 0;
    if (gListFontTxt == nullptr || TTF_SizeUTF8(gListFontTxt, text.c_str(), &width, nullptr) != 0) return 0;
    return width;
}

// Of a word that is wider than the field its end, where the player is typing.
std::string endThatFits(std::string text, int width) {
    while (widthOf(text) > width) text = Utf8String(text.c_str()).substr(1, text.size()).c_str();
    return text;
}

}  // namespace

struct SearchWindow::Parts {
    explicit Parts(const std::string& gamesDir) : index(gamesDir) {}

    GameIndex index;
    LetterPad pad;
    ResultList results;
    std::string word;
    bool inResults = false;
};

SearchWindow::SearchWindow(const std::string& gamesDir, const std::string& word)
    : LauncherWindow(kSearchWindow, kTextSearch), mParts(std::make_unique<Parts>(gamesDir)) {
    setWord(word);
    focusResults(/*focus=*/false);
}

SearchWindow::~SearchWindow() = default;

// Words also come from the file of the last session, where anything may stand.
void SearchWindow::setWord(const std::string& word) {
    mParts->word = typable(word);
    mParts->results.show(mParts->index.find(mParts->word), mParts->word);
    mParts->pad.offer(mParts->index.nextCharacters(mParts->word, kMostOffered));
}

// Only the part that has the keys shows a cursor.
void SearchWindow::focusResults(bool focus) {
    mParts->inResults = focus && mParts->results.getListNum() > 0;
    mParts->results.setFocus(mParts->inResults);
    mParts->results.showStatNum = mParts->inResults;
}

void SearchWindow::saveState(cJSON* obj) {
    cJSON_AddStringToObject(obj, "word", mParts->word.c_str());
    cJSON_AddBoolToObject(obj, "results", mParts->inResults ? 1 : 0);
    savePosition(obj, mParts->results);
}

void SearchWindow::restore(const cJSON* state) {
    setWord(textIn(state, "word"));
    focusResults(cJSON_IsTrue(memberIn(state, "results")) != 0);
    restorePosition(state, mParts->results);
}

void SearchWindow::themeChanged() { reloadRowImages(mParts->results, kHalfRowFocused, kHalfRowNormal); }

// The games list goes on to show what was looked for.
int SearchWindow::leave() {
    listView().searchWord = mParts->word;
    return WIN_BACK;
}

int SearchWindow::handleInput() { return mParts->inResults ? handleResults() : handleLetters(wait_event(nullptr)); }

int SearchWindow::handleResults() {
    const int key = mParts->results.eventHandling();
    if (key == backKey() || key == KEY_LEFT) {
        focusResults(/*focus=*/false);
        return KEY_NONE;
    }
    switch (key) {
        case KEY_HOTKEY2:
            mParts->results.pageDown();
            return KEY_NONE;
        case KEY_HOTKEY1:
            mParts->results.pageUp();
            return KEY_NONE;
        case KEY_SELECT:
            listView().numbers = !listView().numbers;
            return KEY_NONE;
        default:
            return key;
    }
}

int SearchWindow::handleLetters(int key) {
    const std::string& word = mParts->word;
    if (key == backKey()) return leave();
    switch (key) {
        case KEY_A:
        case KEY_B:
            setWord(mParts->pad.typed(word));
            return KEY_NONE;
        case KEY_X:
            setWord(withoutLast(word));
            return KEY_NONE;
        case KEY_Y:
            setWord("");
            return KEY_NONE;
        case KEY_HOTKEY1:
        case KEY_HOTKEY2:
            mParts->pad.turnPage(key == KEY_HOTKEY1 ? -1 : 1);
            return KEY_NONE;
        case KEY_SELECT:
        case KEY_START:
            focusResults(/*focus=*/true);
            return KEY_NONE;
        case KEY_RIGHT:
            if (mParts->pad.move(key)) return KEY_NONE;
            focusResults(/*focus=*/true);
            if (!mParts->inResults) mParts->pad.wrapRight();
            return KEY_NONE;
        default:
            mParts->pad.move(key);
            return key;
    }
}

std::string SearchWindow::headingNote() {
    return textWithNumber(mParts->word.empty() ? kTextGameCount : kTextFound, mParts->results.getListNum());
}

void SearchWindow::draw() {
    const ArtFrame frame;
    LauncherWindow::draw();
    drawField();
    drawKeys();
    drawPages();
    drawResults();
}

void SearchWindow::drawField() const {
    const SDL_Rect text{kField.x + kFieldInset, kField.y, kField.w - 2 * kFieldInset, kField.h};
    SDL_Rect box = kField;
    if (icons().valueBox != nullptr) icons().valueBox->render(nullptr, &box, /*keepSize=*/false, nullptr);
    int caretX = text.x;
    if (mParts->word.empty()) {
        const std::string hint = cutToFit(gListFontSubtxt, getLangStr(kTextTypeToSearch), text.w);
        drawText(gListFontSubtxt, {text.x + kCaretGap, text.y, text.w, text.h}, hint.c_str(), gListColorSubtxt,
                 kAlignLeft);
    } else {
        const std::string shown = endThatFits(mParts->word, text.w - kCaretGap);
        caretX += drawText(gListFontTxt, text, shown.c_str(), gListColorTxt, kAlignLeft) + kCaretGap;
    }
    if (mParts->inResults) return;
    fillPlace({caretX - kCaret.x, kField.y + (kField.h - kCaret.y) / 2, kCaret.x, kCaret.y}, gHighlightColor, kSolid);
}

void SearchWindow::drawKeys() const {
    for (int key = 0; key < mParts->pad.count(); ++key) {
        const bool focused = !mParts->inResults && key == mParts->pad.cursor();
        const SDL_Rect place = mParts->pad.place(key);
        drawImage(focused ? icons().keyFocused.get() : icons().keyNormal.get(), place.x, place.y);
        drawText(gListFontTxt, place, mParts->pad.label(key).c_str(), gListColorTxt, kAlignCentre);
    }
}

// More characters than the row has keys for stand on further pages, which L and R turn.
void SearchWindow::drawPages() const {
    const int pages = mParts->pad.pageCount();
    if (pages < 2) return;
    SDL_Rect dot = kPageDot;
    dot.x = kField.x + (kField.w - kPageDotStep * (pages - 1) - dot.w) / 2;
    for (int page = 0; page < pages; ++page, dot.x += kPageDotStep) {
        const bool shown = page == mParts->pad.page();
        fillPlace(dot, shown ? gHighlightColor : gListColorSubtxt, shown ? kSolid : kOtherDot);
    }
}

void SearchWindow::drawResults() {
    mParts->results.showListNum = listView().numbers;
    mParts->results.draw();
    if (mParts->results.getListNum() == 0) {
        drawNotice(kResultPlace, getLangStr(mParts->word.empty() ? kTextEmptyFolder : kTextNothingFound));
    }
    if (mParts->inResults) {
        drawHints({{confirmButton(), kTextHintPlay},
                   {backButton(), kTextHintLetters},
                   {icons().buttonX.get(), kTextHintMore},
                   {icons().buttonSelect.get(), listView().numbers ? kTextHintIcons : kTextHintNumbers}});
    } else {
        const bool found = mParts->results.getListNum() > 0;
        drawHints({{confirmButton(), kTextHintType},
                   {backButton(), kTextBack},
                   {icons().buttonX.get(), kTextHintErase},
                   {icons().buttonY.get(), kTextHintClear},
                   {found ? icons().buttonSelect.get() : nullptr, kTextHintResults}});
    }
}

}  // namespace launcher
