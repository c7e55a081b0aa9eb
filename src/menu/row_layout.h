// Where the rows of a list and the parts of a row stand. Plain arithmetic: nothing here draws or measures.
#pragma once
#include <SDL_rect.h>

namespace ostrel {

struct Size {
    int w, h;
};

// The first and last visible row.
struct RowRange {
    int first, last;
};

// The height of each of itemsPerPage rows in a list, and 0 for none.
int rowHeight(int listHeight, int itemsPerPage, int ySpace);

// Moves a visible range to where it holds the cursor, within count rows. Both ends 0 stand for a list not drawn yet.
RowRange fixRange(RowRange range, int cursor, int count, int itemsPerPage);

// The rectangle of the row at a place (0 is the first visible one).
SDL_Rect placeRow(const SDL_Rect& list, int height, int ySpace, int place);

// A copy from a part of an image to a place of the same size.
struct ImagePart {
    SDL_Rect source, target;
};
// The part of a background image that a row shows, and where.
ImagePart placeBackground(const SDL_Rect& row, Size image, int inset);

// The place of the marker of the cursor's row.
SDL_Rect placeMarker(const SDL_Rect& row, Size marker);

// The columns of a row, both as high as the row.
struct RowColumns {
    SDL_Rect number, text;
};
// What a row has beside its text.
struct RowParts {
    bool number;      // a column with the row's number
    bool marker;      // room for the marker, on every row
    int markerWidth;  // when there is one
};
RowColumns placeColumns(const SDL_Rect& row, RowParts parts);

// The place of an icon at the start of the text column.
SDL_Rect placeIcon(const SDL_Rect& textColumn, Size icon);
// What an icon leaves of the text column.
SDL_Rect textPastIcon(SDL_Rect textColumn, int iconWidth);

// The label of a row of one line. Centred text takes the whole row.
SDL_Rect placeLabel(SDL_Rect textColumn, int fontHeight, bool centred);
// The label and the sub-label of a row of two lines.
SDL_Rect placeUpperLabel(SDL_Rect textColumn, int fontHeight);
SDL_Rect placeSubLabel(const SDL_Rect& textColumn, int fontHeight);

}  // namespace ostrel
