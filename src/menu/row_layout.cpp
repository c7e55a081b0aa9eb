#include "menu/row_layout.h"

#include <algorithm>
#include <cstdint>

namespace ostrel {
namespace {

constexpr int kLeftEdge = 28;  // of the marker and of the number
constexpr int kMarkerGap = 2;  // between marker and text
constexpr int kNumberTop = 5;
constexpr int kNumberWidth = 60;
constexpr int kTextAfterNumber = 95;
constexpr int kRoomBesideNumber = 120;  // what a number leaves out of the width
constexpr int kTextAlone = 30;
constexpr int kRoomAlone = 60;
// Seven to the right but only five off the width: the text of a row with an icon ends two pixels further right. That
// is meant. (AnIconMovesTheTextBySevenAndShortensItByFive)
constexpr int kIconGap = 7;
constexpr int kIconRoom = 5;
constexpr int kLabelRise = 2;       // the eye's middle of a line lies above the font's
constexpr int kUpperBaseline = 60;  // bottoms of the two lines of a row, from its top
constexpr int kLowerBaseline = 90;

}  // namespace

int rowHeight(int listHeight, int itemsPerPage, int ySpace) {
    if (itemsPerPage == 0) return 0;
    const int64_t gaps = (int64_t{itemsPerPage} - 1) * ySpace;
    return static_cast<int>((listHeight - gaps) / itemsPerPage);
}

RowRange fixRange(RowRange range, int cursor, int count, int itemsPerPage) {
    int64_t first = range.first;
    int64_t last = range.last;
    const int64_t page = int64_t{itemsPerPage} - 1;
    if (first == 0 && last == 0) last = page;
    if (cursor < first) {
        first = cursor;
        last = cursor + page;
    }
    if (last < cursor) {
        last = cursor;
        first = cursor - page;
    }
    first = std::max<int64_t>(first, 0);
    last = std::min<int64_t>(last, int64_t{count} - 1);
    return {static_cast<int>(first), static_cast<int>(last)};
}

SDL_Rect placeRow(const SDL_Rect& list, int height, int ySpace, int place) {
    return {list.x, list.y + (height + ySpace) * place, list.w, height};
}

ImagePart placeBackground(const SDL_Rect& row, Size image, int inset) {
    // Source and target are cut alike: SDL would cut the source alone and stretch it.
    const int width = std::min(row.w, image.w);
    const int height = std::min(row.h, image.h);
    const int drop = image.h < row.h ? (row.h - image.h) / 2 : 0;
    return {{0, 0, width, height}, {row.x + inset, row.y + drop, width, height}};
}

SDL_Rect placeMarker(const SDL_Rect& row, Size marker) {
    return {row.x + kLeftEdge, row.y + (row.h - marker.h) / 2, marker.w, marker.h};
}

RowColumns placeColumns(const SDL_Rect& row, RowParts parts) {
    const int shift = parts.marker ? parts.markerWidth + kMarkerGap : 0;
    const int lost = parts.marker ? parts.markerWidth : 0;
    const int textStart = parts.number ? kTextAfterNumber : kTextAlone;
    const int textRoom = parts.number ? kRoomBesideNumber : kRoomAlone;
    return {{row.x + shift + kLeftEdge, row.y + kNumberTop, kNumberWidth, row.h - kNumberTop},
            {row.x + shift + textStart, row.y, row.w - textRoom - lost, row.h}};
}

SDL_Rect placeIcon(const SDL_Rect& textColumn, Size icon) {
    return {textColumn.x, textColumn.y + (textColumn.h - icon.h) / 2, icon.w, icon.h};
}

SDL_Rect textPastIcon(SDL_Rect textColumn, int iconWidth) {
    textColumn.x += iconWidth + kIconGap;
    textColumn.w -= iconWidth + kIconRoom;
    return textColumn;
}

SDL_Rect placeLabel(SDL_Rect textColumn, int fontHeight, bool centred) {
    if (!centred) textColumn.y += (textColumn.h - fontHeight) / 2 - kLabelRise;
    return textColumn;
}

SDL_Rect placeUpperLabel(SDL_Rect textColumn, int fontHeight) {
    textColumn.y += kUpperBaseline - fontHeight;
    return textColumn;
}

SDL_Rect placeSubLabel(const SDL_Rect& textColumn, int fontHeight) {
    return {textColumn.x, textColumn.y + kLowerBaseline - fontHeight, textColumn.w, fontHeight};
}

}  // namespace ostrel
