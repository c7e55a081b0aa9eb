#include "details_window.h"

#include <SDL_ttf.h>

#include <algorithm>
#include <memory>

#include "file_row.h"
#include "host.h"
#include "ostrel/input.h"
#include "ostrel/language.h"
#include "ostrel/skin.h"
#include "ostrel/text.h"
#include "preview.h"
#include "texts.h"

namespace launcher {
namespace {

constexpr int kTextLeft = 40;
constexpr int kTextWidth = 1200;
constexpr SDL_Point kIcon{kTextLeft, 96};
constexpr int kNameLeft = 124;  // right of the icon
constexpr int kNameTop = 88;
constexpr int kNameWidth = kTextLeft + kTextWidth - kNameLeft;
constexpr std::size_t kMostNameLines = 2;
constexpr int kLineHeight = 54;
constexpr int kNameLineHeight = 48;
constexpr int kKindHeight = 29;
constexpr int kRuleGap = 18;
constexpr Uint8 kRuleAlpha = 64;
constexpr int kBottom = 650;  // where the hint row begins
constexpr std::size_t kMostLines = 8;
constexpr int kHintLeft = 30;
constexpr int kAlignLeft = 0;

void drawLine(TTF_Font* font, int x, int y, const std::string& text, SDL_Color colour) {
    DrawString(font, {x, y, kTextWidth, 0}, text.c_str(), colour, kAlignLeft, /*shadow=*/false, /*measureOnly=*/false);
}

std::vector<std::string> titlesIn(const std::string& folder) {
    std::vector<TextMenuItem*> rows = readDirectory(folder);
    std::sort(rows.begin(), rows.end(), [](TextMenuItem* a, TextMenuItem* b) { return compareRows(a, b) < 0; });
    std::vector<std::string> titles;
    for (TextMenuItem* row : rows) {
        const std::unique_ptr<TextMenuItem> owned(row);
        if (titles.size() < kMostLines) titles.push_back(owned->label);
    }
    return titles;
}

}  // namespace

DetailsWindow::DetailsWindow(std::string path, std::string name, bool isFolder)
    : LauncherWindow(kDetailsWindow), mPath(std::move(path)), mName(std::move(name)), mIsFolder(isFolder) {}

void DetailsWindow::init() {
    mKind = kindText(mPath, mIsFolder);
    mNameLines = wrapLines(mName, gListFontTxt, kNameWidth, kMostNameLines);
    mLines = mIsFolder ? titlesIn(mPath) : wrapLines(readTextStart(mPath), gListFontTxt, kTextWidth, kMostLines);
    if (mLines.empty()) mLines.emplace_back(getLangStr(mIsFolder ? kTextEmpty : kTextNoPreview));
}

const char* DetailsWindow::getTitle() { return getLangStr(kTextAbout); }

int DetailsWindow::eventHandling() {
    if (quitRequested()) return WIN_QUIT;
    const int key = wait_event(nullptr);
    return key == KEY_A || key == KEY_B ? WIN_BACK : key;
}

void DetailsWindow::draw() {
    drawBackground();
    drawHeading("");
    drawImage(rowIcon(mPath, mIsFolder), kIcon.x, kIcon.y);
    drawLines(drawName());
    drawHint(backButton(), getLangStr(kTextBack), kHintLeft);
}

// The name, the kind below it, and a rule under both. Returns where the text may begin.
int DetailsWindow::drawName() {
    int y = kNameTop;
    for (const std::string& line : mNameLines) {
        drawLine(gListFontTxt, kNameLeft, y, line, gListColorTxt);
        y += kNameLineHeight;
    }
    drawLine(gListFontSubtxt, kNameLeft, y, mKind, gListColorSubtxt);
    SDL_Rect rule{kTextLeft, y + kKindHeight + kRuleGap, kTextWidth, 2};
    FillRect(nullptr, &rule, gListColorSubtxt.r, gListColorSubtxt.g, gListColorSubtxt.b, kRuleAlpha);
    return rule.y + kRuleGap;
}

void DetailsWindow::drawLines(int top) {
    for (const std::string& line : mLines) {
        if (top + kLineHeight > kBottom) break;
        drawLine(gListFontTxt, kTextLeft, top, line, gListColorTxt);
        top += kLineHeight;
    }
}

}  // namespace launcher
