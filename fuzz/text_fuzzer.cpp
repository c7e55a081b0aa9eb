// Cutting, measuring and drawing text from arbitrary bytes.
#include <SDL_ttf.h>

#include <cstring>
#include <string>

#include "fuzz_folder.h"
#include "ostrel/screen.h"
#include "ostrel/text.h"
#include "ostrel/utf8_string.h"

namespace {

using ostrelfuzz::require;

constexpr std::size_t kDrawnBytes = 300;  // the picture of a longer text would only take memory
constexpr SDL_Color kColour{54, 255, 160, 0};

TTF_Font* font() {
    static TTF_Font* instance = TTF_OpenFont(OSTREL_TEST_FONT, 24);
    return instance;
}

// The yardstick: the same sum over code points that are looked up by index.
int expectedLength(TTF_Font* face, const Utf8String& text, int width) {
    const auto limit = static_cast<float>((width - 20) * 9 / 10);  // NOLINT(bugprone-integer-division): whole pixels
    float sum = 0;
    for (std::size_t i = 0; i < text.length(); ++i) {
        if (sum >= limit) return static_cast<int>(i);
        const uint32_t codePoint = text.codePointAt(i);
        int advance = 0;
        TTF_GlyphMetrics(face, static_cast<Uint16>(codePoint), nullptr, nullptr, nullptr, nullptr, &advance);
        sum += static_cast<float>(advance);
        if (codePoint <= 0x80) sum = static_cast<float>(static_cast<double>(sum) + 1.7);
    }
    return 0;
}

void cut(const char* bytes, int width) {
    // Looking up by index walks from the start each time: a long text is compared by its first thousand bytes.
    const std::string shortened(bytes, strnlen(bytes, 1000));
    for (TTF_Font* face : {font(), static_cast<TTF_Font*>(nullptr)}) {
        require(getTruncateLen(face, shortened.c_str(), 0, width) == expectedLength(face, shortened.c_str(), width));
        const int kept = getTruncateLen(face, bytes, 0, width);
        require(kept >= 0 && (kept == 0 || static_cast<std::size_t>(kept) < Utf8String(bytes).length()));
    }
}

void draw(const std::string& text, int align, bool shadow) {
    SDL_Rect rect{10, 10, 50, 60};
    SDL_Color colour = kColour;
    const int width = DrawString(font(), rect, text.c_str(), colour, align, shadow, /*measureOnly=*/true);
    require(width >= 0);
    require(DrawString(font(), rect, text.c_str(), colour, align, shadow, /*measureOnly=*/false) == width);
    const std::string delim = text.substr(0, 2);
    require(DrawStringLines(font(), rect, text.c_str(), delim.c_str(), colour, align, shadow) == 0);
    require(DrawStringLinesSpacing(font(), rect, text.c_str(), "\n", align, colour, align, shadow) == 0);
}

}  // namespace

// The first two bytes choose a width, the third the alignment and a shadow; the text follows.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    const std::string text(reinterpret_cast<const char*>(data) + 3, size - 3);
    cut(text.c_str(), (data[0] << 8 | data[1]) - 200);
    draw(std::string(text.c_str(), strnlen(text.c_str(), kDrawnBytes)), data[2] % 8 - 1, data[2] >= 128);
    return 0;
}

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    ostrelfuzz::discardLog();
    require(ScreenInit(64, 80, 32, 0) == 1);
    require(TTF_Init() == 0 && font() != nullptr);
    return 0;
}
