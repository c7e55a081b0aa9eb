#include "menu/row_painter.h"

#include <utility>

#include "graphics/text_internal.h"
#include "menu/row_layout.h"
#include "ostrel/language.h"
#include "ostrel/menu_item.h"
#include "ostrel/skin.h"
#include "ostrel/surface.h"
#include "ostrel/text.h"
#include "ostrel/text_menu_drawer.h"
#include "platform/utf8_code_point.h"

namespace ostrel {
namespace {

constexpr int kLoadingText = 3;

Size sizeOf(OstrelSurface& surface) { return {surface.getWidth(), surface.getHeight()}; }

void drawBackground(OstrelSurface* background, const SDL_Rect& row, int inset) {
    if (background == nullptr) return;
    ImagePart part = placeBackground(row, sizeOf(*background), inset);
    if (SDL_RectEmpty(&part.source) == SDL_TRUE) return;
    background->render(&part.source, &part.target, /*keepSize=*/false, /*dumpPath=*/nullptr);
}

void drawMarker(OstrelSurface& marker, const SDL_Rect& row) {
    SDL_Rect place = placeMarker(row, sizeOf(marker));
    marker.render(nullptr, &place, /*keepSize=*/true, nullptr);
}

// Returns the text column without the icon.
SDL_Rect drawIcon(TextMenuItemProvider& item, const SDL_Rect& textColumn) {
    OstrelSurface* icon = item.getIcon();
    if (icon == nullptr) return textColumn;
    SDL_Rect* part = item.getIconRect();
    const Size size = part != nullptr ? Size{part->w, part->h} : sizeOf(*icon);
    SDL_Rect place = placeIcon(textColumn, size);
    icon->render(part, &place, /*keepSize=*/false, nullptr);
    return textPastIcon(textColumn, size.w);
}

enum class Draw { Pixels, Nothing };

// Returns the width of a run of a text. The run is ended by a zero for the call, which spares a copy of it.
int drawPiece(const TextStyle& style, std::string& text, ByteRun run, Draw draw) {
    if (run.count == 0) return 0;
    const bool measureOnly = draw == Draw::Nothing;
    char& past = text[run.start + run.count];
    const char kept = std::exchange(past, '\0');
    const int width = DrawString(style.font, style.rect, text.c_str() + run.start, style.colour, style.align,
                                 style.shadow && !measureOnly, measureOnly);
    past = kept;
    return width;
}

void drawSubLabel(std::string& text, const SDL_Rect& textColumn, bool shadow) {
    cutToWidth(text, gListFontSubtxt, textColumn.w);
    DrawString(gListFontSubtxt, placeSubLabel(textColumn, fontHeight(gListFontSubtxt)), text.c_str(), gListColorSubtxt,
               kAlignTopLeft, shadow, /*measureOnly=*/false);
}

void drawTexts(TextMenuDrawer& menu, TextMenuItemProvider& item, const SDL_Rect& textColumn, bool shadow) {
    std::string subLabel = item.getSubLabel();
    const int height = fontHeight(gListFontTxt);
    const SDL_Rect place =
        subLabel.empty() ? placeLabel(textColumn, height, menu.textMode) : placeUpperLabel(textColumn, height);
    const int align = menu.textMode ? kAlignCentre : kAlignTopLeft;
    const TextStyle style{gListFontTxt, place, menu.textColor, align, shadow};
    std::string label = item.getLabel();
    if (menu.mName.empty()) {
        cutToWidth(label, gListFontTxt, textColumn.w);
        drawListText(style, label, {});
    } else {
        std::string drawn = label;
        cutToWidth(drawn, gListFontTxt, textColumn.w);
        drawListText(style, drawn, findKeyword(menu.mName, drawn, label, item));
    }
    if (!subLabel.empty()) drawSubLabel(subLabel, textColumn, shadow);
}

void drawLoadingText(const TextMenuDrawer& menu, const SDL_Rect& textColumn, bool shadow) {
    const SDL_Rect place = placeLabel(textColumn, fontHeight(gListFontTxt), menu.textMode);
    DrawString(gListFontTxt, place, getLangStr(kLoadingText), menu.textColor, kAlignTopLeft, shadow,
               /*measureOnly=*/false);
}

}  // namespace

void drawListText(const TextStyle& style, std::string& text, ByteRun highlighted) {
    if (highlighted.count == 0) {
        drawPiece(style, text, {0, text.size()}, Draw::Pixels);
        return;
    }
    const std::size_t end = highlighted.start + highlighted.count;
    const std::pair<ByteRun, SDL_Color> pieces[] = {{{0, highlighted.start}, style.colour},
                                                    {highlighted, gHighlightColor},
                                                    {{end, text.size() - end}, style.colour}};
    TextStyle next = style;
    if (style.align == kAlignCentre) {
        int width = 0;
        for (const auto& [run, colour] : pieces) {
            next.colour = colour;
            width += drawPiece(next, text, run, Draw::Nothing);
        }
        next.rect.x += (style.rect.w - width) / 2;
        next.align = kAlignLeft;
    }
    for (const auto& [run, colour] : pieces) {
        next.colour = colour;
        next.rect.x += drawPiece(next, text, run, Draw::Pixels);
    }
}

void cutToWidth(std::string& text, TTF_Font* font, int width) {
    const int characters = getTruncateLen(font, text.c_str(), /*reserved=*/0, width);
    if (characters <= 0) return;
    const char* const end = text.data() + text.size();
    const char* at = text.data();
    for (int i = 0; i < characters && at < end; ++i) at += codePointBytes(at, end);
    text.resize(static_cast<std::size_t>(at - text.data()));
    text += "...";
}

void drawRow(TextMenuDrawer& menu, int index, TextMenuItemProvider* item, const SDL_Rect& row) {
    const bool underCursor = index == menu.mCurIndex;
    drawBackground(underCursor && menu.mFocus ? menu.selBg : menu.normalBg, row, menu.bgInset);
    if (menu.selMark != nullptr && underCursor) drawMarker(*menu.selMark, row);
    const int markerWidth = menu.selMark != nullptr ? menu.selMark->getWidth() : 0;
    RowColumns columns = placeColumns(row, {menu.showListNum, menu.selMark != nullptr, markerWidth});
    if (menu.showListNum) menu.drawListNum(index + 1, columns.number, gListFontSubtxt);
    const bool shadow = menu.marquee && underCursor;
    if (item == nullptr) {
        drawLoadingText(menu, columns.text, shadow);
        return;
    }
    if (!menu.showListNum) columns.text = drawIcon(*item, columns.text);
    drawTexts(menu, *item, columns.text, shadow);
}

}  // namespace ostrel
