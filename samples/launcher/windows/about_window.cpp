#include "windows/about_window.h"

#include "host.h"
#include "icons.h"
#include "ostrel/input.h"
#include "ostrel/language.h"
#include "ostrel/log.h"
#include "ostrel/skin.h"
#include "ostrel/text.h"
#include "text_layout.h"

namespace launcher {
namespace {

constexpr uint64_t kReadEveryMs = 1000;

constexpr SDL_Rect kPage{40, 84, 1200, 560};
constexpr int kPageRowHeight = 80;
constexpr int kValueLeft = 440;
constexpr int kShortValueWidth = 520;
constexpr SDL_Point kMeterSize{240, 8};
constexpr int kRuleHeight = 2;
constexpr Uint8 kFaintFill = 56;

void drawMeter(int y, int percent) {
    SDL_Rect bar{kPage.x + kPage.w - kMeterSize.x, y + (kPageRowHeight - kMeterSize.y) / 2, kMeterSize.x, kMeterSize.y};
    fillPlace(bar, gListColorSubtxt, kFaintFill);
    bar.w = bar.w * percent / 100;
    fillPlace(bar, gHighlightColor, kSolid);
}

void drawLine(const AboutLine& line, int y) {
    const int valueWidth = line.percent < 0 ? kPage.x + kPage.w - kValueLeft : kShortValueWidth;
    const std::string value = cutToFit(gListFontTxt, line.value, valueWidth);
    DrawString(gListFontTxt, {kPage.x, y, 0, kPageRowHeight}, getLangStr(line.label), gListColorSubtxt, kAlignLeft,
               /*shadow=*/false, /*measureOnly=*/false);
    DrawString(gListFontTxt, {kValueLeft, y, 0, kPageRowHeight}, value.c_str(), gListColorTxt, kAlignLeft,
               /*shadow=*/false, /*measureOnly=*/false);
    if (line.percent >= 0) drawMeter(y, line.percent);
}

}  // namespace

AboutWindow::AboutWindow() : LauncherWindow(kAboutWindow, kTextAbout) { read(); }

void AboutWindow::read() {
    mLines = aboutLines(readConsole());
    mReadAtMs = systemms();
}

void AboutWindow::onFrame() {
    LauncherWindow::onFrame();
    if (systemms() - mReadAtMs >= kReadEveryMs) read();
}

void AboutWindow::languageChanged() { read(); }

int AboutWindow::handleInput() {
    const int key = wait_event(nullptr);
    return key == KEY_A || key == KEY_B ? WIN_BACK : key;
}

void AboutWindow::draw() {
    LauncherWindow::draw();
    int y = kPage.y;
    for (const AboutLine& line : mLines) {
        if (y > kPage.y) fillPlace({kPage.x, y - kRuleHeight / 2, kPage.w, kRuleHeight}, gListColorSubtxt, kFaintFill);
        drawLine(line, y);
        y += kPageRowHeight;
    }
    drawHints({{backButton(), kTextBack}});
}

}  // namespace launcher
