// An image file from arbitrary bytes, through the loader of the theme's images and that of thumbnails.
#include <SDL.h>
#include <SDL_image.h>

#include <memory>
#include <string_view>

#include "fuzz_folder.h"
#include "ostrel/image.h"
#include "ostrel/screen.h"
#include "ostrel/surface.h"

namespace {

using ostrelfuzz::require;
using Surface = std::unique_ptr<SDL2OstrelSurface>;

constexpr std::size_t kMostMemory = 4U << 20U;  // headers may promise pictures of any size
constexpr std::string_view kXcf = "gimp xcf ";  // how such files begin
constexpr int kMostPixels = 1 << 18;            // larger ones take long, and nothing new happens in them

void* limitedMalloc(std::size_t size) { return size > kMostMemory ? nullptr : std::malloc(size); }

void* limitedCalloc(std::size_t count, std::size_t size) {
    return size != 0 && count > kMostMemory / size ? nullptr : std::calloc(count, size);
}

void* limitedRealloc(void* memory, std::size_t size) {
    return size > kMostMemory ? nullptr : std::realloc(memory, size);
}

const ostrelfuzz::FuzzFolder& folder() {
    static const ostrelfuzz::FuzzFolder instance;
    return instance;
}

Surface own(OstrelSurface* surface) { return Surface(static_cast<SDL2OstrelSurface*>(surface)); }

// What every loaded surface promises: as many pixels as its size says, all of them in memory.
void checkPixels(const SDL2OstrelSurface& surface) {
    const SDL_Surface& pixels = *surface.mSurface;
    if (pixels.w == 0 || pixels.h == 0) return;
    const auto* bytes = static_cast<const uint8_t*>(pixels.pixels);
    const std::size_t last = static_cast<std::size_t>(pixels.pitch) * static_cast<std::size_t>(pixels.h - 1) +
                             static_cast<std::size_t>(pixels.w) * pixels.format->BytesPerPixel - 1;
    volatile uint8_t touched = bytes[last];
    static_cast<void>(touched);
}

void checkThumbnail(const std::string& path, int width, int height, bool keepRatio) {
    const Surface thumbnail =
        own(LoadOstrelSurfaceSpecSized(path.c_str(), width, height, nullptr, /*fallback=*/false, keepRatio));
    if (width < 0 || height < 0) {
        require(thumbnail == nullptr);
        return;
    }
    require(thumbnail != nullptr && thumbnail->mSurface != nullptr);
    require(thumbnail->mSurface->w <= width && thumbnail->mSurface->h <= height);
    require(keepRatio || (thumbnail->mSurface->w == width && thumbnail->mSurface->h == height));
    checkPixels(*thumbnail);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    // SDL2_image keeps 16 bytes of every SVG that it cannot read.
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (bytes.find("<svg") != std::string_view::npos) return 0;
    folder().write("image", data, size);
    const std::string path = folder().path() + "/image";
    const bool xcf = bytes.substr(0, kXcf.size()) == kXcf;  // SDL2_image does not survive each of them; we refuse them
    SDL_Surface* decoded = xcf ? nullptr : IMG_Load(path.c_str());
    const bool readable = decoded != nullptr;
    const bool large = readable && static_cast<Sint64>(decoded->w) * decoded->h > kMostPixels;
    SDL_FreeSurface(decoded);
    if (large) return 0;

    const Surface image = own(LoadOstrelSurface((folder().path() + "/").c_str(), "./", "image"));
    require(readable || image == nullptr);
    if (image != nullptr) {
        require(image->mSurface->format->BytesPerPixel == 4);
        checkPixels(*image);
    }
    if (!readable) return 0;
    const int width = static_cast<int>(size % 97);
    const int height = static_cast<int>(size / 97 % 89);
    for (const bool keepRatio : {false, true}) {
        checkThumbnail(path, width, height, keepRatio);
        checkThumbnail(path, height + 1, 1, keepRatio);
        checkThumbnail(path, -1, width, keepRatio);
    }
    return 0;
}

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_RENDER_DRIVER", "software", 1);
    SDL_SetMemoryFunctions(limitedMalloc, limitedCalloc, limitedRealloc, std::free);
    ostrelfuzz::discardLog();
    require(ScreenInit(64, 48, 32, 0) == 1);
    return 0;
}
