#include "art_picture.h"

#include <SDL_image.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>

namespace launcher {
namespace {

constexpr int kMostPixelsAside = 4096;
constexpr std::size_t kHeaderBytes =
    24;  // of a PNG file: signature, then length, name, width and height of the first chunk
constexpr std::size_t kWidthAt = 16;
constexpr std::size_t kHeightAt = 20;
constexpr Uint32 kFormat = SDL_PIXELFORMAT_ABGR8888;  // the library's textures have it

struct StreamRelease {
    void operator()(SDL_RWops* stream) const { SDL_RWclose(stream); }
};
using Stream = std::unique_ptr<SDL_RWops, StreamRelease>;

bool isReasonable(const unsigned char* number) {
    std::uint32_t bigEndian = 0;
    std::memcpy(&bigEndian, number, sizeof(bigEndian));
    const std::uint32_t side = SDL_SwapBE32(bigEndian);
    return side > 0 && side <= kMostPixelsAside;
}

// A few bytes of a file can ask for gigabytes of pixels, so the size is looked at before anything is decoded.
bool announcesReasonableSize(SDL_RWops* stream) {
    unsigned char header[kHeaderBytes];
    if (IMG_isPNG(stream) == 0 || SDL_RWread(stream, header, sizeof(header), 1) != 1) return false;
    SDL_RWseek(stream, 0, RW_SEEK_SET);
    return isReasonable(header + kWidthAt) && isReasonable(header + kHeightAt);
}

Pixels decode(const std::string& file) {
    std::error_code error;
    // A pipe would hold up the thread for ever.
    if (!std::filesystem::is_regular_file(file, error)) return nullptr;
    const Stream stream(SDL_RWFromFile(file.c_str(), "rb"));
    if (stream == nullptr || !announcesReasonableSize(stream.get())) return nullptr;
    const Pixels decoded(IMG_LoadPNG_RW(stream.get()));
    if (decoded == nullptr) return nullptr;
    return Pixels(SDL_ConvertSurfaceFormat(decoded.get(), kFormat, 0));
}

Pixels blank(int width, int height) {
    return Pixels(SDL_CreateRGBSurfaceWithFormat(0, width, height, SDL_BITSPERPIXEL(kFormat), kFormat));
}

// Halves until the last step is less than a halving: a linear scaler looks at four pixels and would leave out the rest.
Pixels scale(Pixels pixels, SDL_Point size) {
    while (pixels != nullptr && (pixels->w != size.x || pixels->h != size.y)) {
        Pixels next = blank(std::max(size.x, pixels->w / 2), std::max(size.y, pixels->h / 2));
        if (next == nullptr || SDL_SoftStretchLinear(pixels.get(), nullptr, next.get(), nullptr) != 0) return nullptr;
        pixels = std::move(next);
    }
    return pixels;
}

Pixels centreIn(Pixels pixels, int width) {
    if (pixels == nullptr || pixels->w == width) return pixels;
    Pixels wide = blank(width, pixels->h);
    if (wide == nullptr) return nullptr;
    SDL_Rect place{(width - pixels->w) / 2, 0, pixels->w, pixels->h};
    SDL_SetSurfaceBlendMode(pixels.get(), SDL_BLENDMODE_NONE);
    return SDL_BlitSurface(pixels.get(), nullptr, wide.get(), &place) == 0 ? std::move(wide) : nullptr;
}

}  // namespace

SDL_Point fitInto(SDL_Point box, int width, int height) {
    const std::int64_t byWidth = std::int64_t{height} * box.x / width;
    if (byWidth <= box.y) return {box.x, static_cast<int>(std::max<std::int64_t>(byWidth, 1))};
    const std::int64_t byHeight = std::int64_t{width} * box.y / height;
    return {static_cast<int>(std::max<std::int64_t>(byHeight, 1)), box.y};
}

Pixels loadPicture(const std::string& file, int width, int height) {
    Pixels pixels = decode(file);
    if (pixels == nullptr) return nullptr;
    const SDL_Point size = fitInto({width, height}, pixels->w, pixels->h);
    return centreIn(scale(std::move(pixels), size), width);
}

}  // namespace launcher
