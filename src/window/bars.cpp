#include "ostrel/bars.h"

#include <cstdio>

#include "graphics/text_internal.h"
#include "ostrel/skin.h"
#include "ostrel/text.h"

namespace {

constexpr int kCounterLeft = 640;
constexpr int kCounterWidth = 616;

// Returns the width of the text, which ends shift pixels left of the counter's right edge.
int drawCounterPart(const char* format, int number, int shift) {
    char text[16];
    std::snprintf(text, sizeof text, format, number);
    const SDL_Rect box{kCounterLeft - shift, gListNumOfStatBarOffsetY, kCounterWidth, ostrel::fontHeight(gStatFont)};
    return DrawString(gStatFont, box, text, gStatColorTxt, ostrel::kAlignTopRight, /*shadow=*/false,
                      /*measureOnly=*/false);
}

}  // namespace

int gListNumOfStatBarOffsetY = 672;

void drawListNumAtStatBar(int index, int total) {
    const int totalWidth = drawCounterPart("%d", total, 0);
    drawCounterPart("%d/", index, totalWidth);
}
