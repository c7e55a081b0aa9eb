#include "ostrel/text.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <utility>

#include "graphics/screen_internal.h"
#include "graphics/sdl_handles.h"
#include "graphics/text_internal.h"
#include "ostrel/surface.h"
#include "platform/utf8_code_point.h"

using ostrel::MallocText;
using ostrel::SurfacePtr;
using ostrel::TexturePtr;

namespace {

constexpr int kCacheCapacity = 100;
constexpr std::size_t kKeySize = 2048;  // with its end: of a longer text only the first bytes tell
constexpr SDL_Point kShadowOffset{1, 2};

// Sums beyond an int wrap round: what lies so far away is not seen anyway.
int coordinate(int64_t sum) { return static_cast<int>(sum); }

// Which texts are told apart: one in another colour, or in a font at another address, is another text.
const char* cacheKey(TTF_Font* font, const char* text, SDL_Color colour, bool shadow) {
    static char key[kKeySize];
    std::snprintf(key, sizeof key, "%s_%p_%02X_%02X_%02X_%02X_shadow%d", text, static_cast<void*>(font), colour.r,
                  colour.g, colour.b, colour.a, shadow ? 1 : 0);
    return key;
}

OstrelSurface* wrapInSurface(SurfacePtr rendered) {
    TexturePtr texture{SDL_CreateTextureFromSurface(ostrel::liveRenderer(), rendered.get())};
    if (texture == nullptr) return nullptr;
    return new SDL2OstrelSurface(texture.release(), rendered.release());
}

// The text as a picture, which stays the cache's. The shadow has a picture of its own in the text's own colour.
OstrelSurface* getTextSurface(TTF_Font* font, const char* text, SDL_Color colour, bool shadow) {
    if (font == nullptr || text == nullptr || ostrel::liveRenderer() == nullptr) return nullptr;
    if (*text == '\0') return nullptr;  // SDL_ttf would refuse it anew in every frame
    const char* key = cacheKey(font, text, colour, shadow);
    auto* cached = static_cast<OstrelSurface*>(gTextSurfaceCache.get(key));
    if (cached != nullptr) return cached;
    SurfacePtr rendered{TTF_RenderUTF8_Blended(font, text, colour)};
    if (rendered == nullptr) return nullptr;
    OstrelSurface* surface = wrapInSurface(std::move(rendered));
    gTextSurfaceCache.put(key, surface);
    return surface;
}

void drawAt(OstrelSurface& surface, int x, int y) {
    SDL_Rect place{x, y, surface.getWidth(), surface.getHeight()};
    surface.render(nullptr, &place, /*keepSize=*/true, nullptr);
}

void drawPieces(TTF_Font* font, const SDL_Rect& rect, const char* text, const char* delim, int pitch, SDL_Color colour,
                int align, bool shadow) {
    const MallocText copy{strdup(text)};
    if (copy == nullptr) return;
    SDL_Rect line{rect.x, rect.y, rect.w, pitch};
    char* rest = nullptr;
    for (char* piece = strtok_r(copy.get(), delim, &rest); piece != nullptr; piece = strtok_r(nullptr, delim, &rest)) {
        DrawString(font, line, piece, colour, align, shadow, /*measureOnly=*/false);
        line.y = coordinate(int64_t{line.y} + pitch);
    }
}

int advanceOf(TTF_Font* font, uint32_t codePoint) {
    int advance = 0;  // stays so without a font
    TTF_GlyphMetrics(font, static_cast<Uint16>(codePoint), nullptr, nullptr, nullptr, nullptr, &advance);
    return advance;
}

}  // namespace

LRUCache gTextSurfaceCache(deleteSurface, kCacheCapacity);
static const ostrel::ScreenBoundCache sTextsUntilTheScreenEnds(gTextSurfaceCache);

namespace ostrel {

int fontHeight(TTF_Font* font) { return font == nullptr ? 0 : TTF_FontHeight(font); }

SDL_Point alignText(const SDL_Rect& box, int w, int h, int align) {
    const int64_t spareWidth = int64_t{box.w} - w;
    const int64_t spareHeight = int64_t{box.h} - h;
    const int middleX = coordinate(box.x + spareWidth / 2);
    const int middleY = coordinate(box.y + spareHeight / 2);
    const int right = coordinate(box.x + spareWidth);
    switch (align) {
        case kAlignTopLeft:
            return {box.x, box.y};
        case kAlignCentre:
            return {middleX, middleY};
        case kAlignLeft:
            return {box.x, middleY};
        case kAlignRight:
            return {right, middleY};
        default:
            return {right, box.y};
    }
}

int sharedLinePitch(int height, int lines, int fontHeight) {
    // Lines spread out when there is room for a gap of more than 4; where there is not they keep one of 5, and may
    // leave the rectangle. The two numbers differ on purpose. (LinesTooTightForTheirShareKeepAGapOfFive)
    constexpr int kSmallestGap = 4;
    constexpr int kTightGap = 5;
    const int share = height / lines;
    return fontHeight + kSmallestGap < share ? share : fontHeight + kTightGap;
}

int countPieces(const char* text, const char* delim) {
    int pieces = 0;
    for (text += std::strspn(text, delim); *text != '\0'; text += std::strspn(text, delim)) {
        text += std::strcspn(text, delim);
        ++pieces;
    }
    return pieces;
}

}  // namespace ostrel

int DrawString(TTF_Font* font, SDL_Rect rect, const char* text, SDL_Color colour, int align, bool shadow,
               bool measureOnly) {
    OstrelSurface* surface = getTextSurface(font, text, colour, /*shadow=*/false);
    if (surface == nullptr) return 0;
    const int width = surface->getWidth();
    const SDL_Point place = ostrel::alignText(rect, width, surface->getHeight(), align);
    // Measuring with a shadow draws the shadow all the same; that is meant. (MeasuringDrawsTheShadow)
    if (shadow) {
        OstrelSurface* below = getTextSurface(font, text, colour, /*shadow=*/true);
        if (below != nullptr) {
            drawAt(*below, coordinate(int64_t{place.x} + kShadowOffset.x),
                   coordinate(int64_t{place.y} + kShadowOffset.y));
        }
    }
    if (!measureOnly) drawAt(*surface, place.x, place.y);
    return width;
}

int DrawStringLines(TTF_Font* font, SDL_Rect& rect, const char* text, const char* delim, SDL_Color& colour, int align,
                    bool shadow) {
    if (text == nullptr || delim == nullptr) return 0;
    const int pieces = ostrel::countPieces(text, delim);
    if (pieces == 0) return 0;
    const int pitch = ostrel::sharedLinePitch(rect.h, pieces, ostrel::fontHeight(font));
    drawPieces(font, rect, text, delim, pitch, colour, align, shadow);
    return 0;
}

int DrawStringLinesSpacing(TTF_Font* font, SDL_Rect& rect, const char* text, const char* delim, int spacing,
                           SDL_Color& colour, int align, bool shadow) {
    if (text == nullptr || delim == nullptr) return 0;
    const int pitch = coordinate(int64_t{spacing} + ostrel::fontHeight(font));
    drawPieces(font, rect, text, delim, pitch, colour, align, shadow);
    return 0;
}

int getTruncateLen(TTF_Font* font, const char* text, int /*reserved*/, int width) {
    constexpr int kReservedWidth = 20;  // for the dots behind a cut label
    constexpr uint32_t kLastNarrow = 0x80;
    constexpr double kNarrowExtra = 1.7;  // pixels on top of the advance of narrow letters
    if (text == nullptr) return 0;
    const int64_t usedWidth = (int64_t{width} - kReservedWidth) * 9 / 10;
    const auto limit = static_cast<float>(usedWidth);
    const char* const end = text + std::strlen(text);
    float sum = 0.0F;
    int count = 0;
    for (const char* at = text; at != end; at += ostrel::codePointBytes(at, end), ++count) {
        if (sum >= limit) return count;
        const uint32_t codePoint = ostrel::decodeCodePoint(at, end);
        sum += static_cast<float>(advanceOf(font, codePoint));
        // The extra is added in double precision and the sum cut back to single: a label is cut at exactly this letter.
        if (codePoint <= kLastNarrow) sum = static_cast<float>(static_cast<double>(sum) + kNarrowExtra);
    }
    return 0;
}
