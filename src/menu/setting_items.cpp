#include <cstdio>
#include <memory>

#include "graphics/text_internal.h"
#include "ostrel/host.h"
#include "ostrel/input.h"
#include "ostrel/language.h"
#include "ostrel/log.h"
#include "ostrel/setting_menu.h"
#include "ostrel/skin.h"
#include "ostrel/surface.h"
#include "ostrel/text.h"
#include "platform/c_string.h"

namespace {

// Places within a row, from its left edge.
constexpr int kTitleX = 40;
constexpr int kValueBoxX = 745;
constexpr int kValueBoxRightX = 1173;
constexpr int kValueBoxWidth = 500;
constexpr int kSwitchX = 1150;
// Places from its right edge.
constexpr int kTailIconGap = 25;
constexpr int kValueTextInset = 85;
constexpr int kValueTextWidth = 60;
constexpr int kPlainValueGap = 40;

// At its own size, its left edge at x, in the middle of the row's height.
void drawInRow(OstrelSurface* image, int x, const SDL_Rect& row) {
    if (image == nullptr) return;
    const int height = image->getHeight();
    SDL_Rect place{x, row.y + (row.h - height) / 2, image->getWidth(), height};
    image->render(nullptr, &place, true, nullptr);
}

void drawBackground(ItemDrawable& item, OstrelSurface* selBg, OstrelSurface* normalBg, const SDL_Rect& row,
                    bool selected) {
    const bool focused = selected && selBg != nullptr && item.isSelectable() != 0;
    drawInRow(focused ? selBg : normalBg, row.x, row);
}

void drawText(const SDL_Rect& place, const char* text, int align) {
    DrawString(gListFontTxt, place, text, gListColorTxt, align, /*shadow=*/false, /*measureOnly=*/false);
}

void drawTitle(const SDL_Rect& row, const char* title) {
    drawText({row.x + kTitleX, row.y, row.w, row.h}, title, ostrel::kAlignLeft);
}

// The handler hears of its end once, and is then deleted.
template <typename Handler>
void releaseHandler(Handler*& handler) {
    const std::unique_ptr<Handler> owned{handler};
    if (owned) owned->release();
    handler = nullptr;
}

}  // namespace

ValueHandler::~ValueHandler() = default;

SwitchHandler::~SwitchHandler() = default;

SettingItem::SettingItem(OstrelSurface* selected, OstrelSurface* normal, int id, const char* value, Action* rowAction)
    : ItemDrawable(rowAction),
      selBg(selected),
      normalBg(normal),
      tailIcon(nullptr),
      titleId(id),
      valueText(ostrel::orEmpty(value)) {}

SettingItem::SettingItem(OstrelSurface* selected, OstrelSurface* normal, const char* text, const char* value,
                         Action* rowAction)
    : SettingItem(selected, normal, -1, value, rowAction) {
    title = ostrel::orEmpty(text);
}

SettingItem::~SettingItem() { tprintf("~SettingItem\n"); }

int SettingItem::draw(SDL_Rect& rect, bool selected) {
    drawBackground(*this, selBg, normalBg, rect, selected);
    if (tailIcon != nullptr) drawInRow(tailIcon, rect.x + rect.w - tailIcon->getWidth() - kTailIconGap, rect);
    drawTitle(rect, titleId >= 0 ? getLangStr(titleId) : title.c_str());
    if (!valueText.empty()) {
        const SDL_Rect place{rect.x + rect.w - kValueTextInset, rect.y, kValueTextWidth, rect.h};
        drawText(place, valueText.c_str(), ostrel::kAlignRight);
    }
    return 0;
}

SettingValueItem::SettingValueItem(OstrelSurface* selected, OstrelSurface* normal, OstrelSurface* selLeft,
                                   OstrelSurface* left, OstrelSurface* selRight, OstrelSurface* right,
                                   OstrelSurface* valueBox, int id, Action* rowAction, ValueHandler* changer)
    : ItemDrawable(rowAction),
      selBg(selected),
      normalBg(normal),
      selLeftImg(selLeft),
      leftImg(left),
      selRightImg(selRight),
      rightImg(right),
      valueBoxImg(valueBox),
      titleId(id),
      mValueChanger(changer),
      valueBuf{} {}

SettingValueItem::~SettingValueItem() { releaseHandler(mValueChanger); }

int SettingValueItem::draw(SDL_Rect& rect, bool selected) {
    drawBackground(*this, selBg, normalBg, rect, selected);
    drawTitle(rect, getLangStr(titleId));
    if (mValueChanger == nullptr) return 0;
    if (selected) {
        drawInRow(valueBoxImg, rect.x + kValueBoxX, rect);
        drawInRow(selLeftImg, rect.x + kValueBoxX, rect);
        drawInRow(selRightImg, rect.x + kValueBoxRightX, rect);
    } else {
        drawInRow(leftImg, rect.x + kValueBoxX, rect);
        drawInRow(rightImg, rect.x + kValueBoxRightX, rect);
    }
    std::snprintf(valueBuf, sizeof valueBuf, "%s", ostrel::orEmpty(mValueChanger->getValueText()));
    if (valueBoxImg == nullptr) {
        drawText({rect.x, rect.y, rect.w - kPlainValueGap, rect.h}, valueBuf, ostrel::kAlignRight);
    } else {
        drawText({rect.x + kValueBoxX, rect.y, kValueBoxWidth, rect.h}, valueBuf, ostrel::kAlignCentre);
    }
    return 0;
}

int SettingValueItem::handleEvent(int key) {
    if (mValueChanger == nullptr || (key != KEY_LEFT && key != KEY_RIGHT)) return -1;
    tprintf("mValueChanger %p changeValue %d\n", static_cast<void*>(mValueChanger), key);
    mValueChanger->changeValue(key);
    return 0;
}

SettingSwitchItem::SettingSwitchItem(OstrelSurface* selected, OstrelSurface* normal, OstrelSurface* on,
                                     OstrelSurface* off, int id, SwitchHandler* switchHandler)
    : ItemDrawable(nullptr),
      selBg(selected),
      normalBg(normal),
      onImg(on),
      offImg(off),
      titleId(id),
      handler(switchHandler) {}

SettingSwitchItem::~SettingSwitchItem() { releaseHandler(handler); }

int SettingSwitchItem::draw(SDL_Rect& rect, bool selected) {
    drawBackground(*this, selBg, normalBg, rect, selected);
    drawTitle(rect, getLangStr(titleId));
    if (handler != nullptr && onImg != nullptr && offImg != nullptr) {
        drawInRow(handler->getValue() ? onImg : offImg, rect.x + kSwitchX, rect);
    }
    return 0;
}

int SettingSwitchItem::handleEvent(int key) {
    const int confirmKey = GetKeyShm(gShmInfo, SHM_BCONFIRM) != 0 ? KEY_B : KEY_A;
    if (key == confirmKey || key == KEY_Y || key == KEY_LEFT || key == KEY_RIGHT) switchValue();
    return 0;
}

void SettingSwitchItem::switchValue() {
    if (handler != nullptr) handler->setValue(!handler->getValue());
}
