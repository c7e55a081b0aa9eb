#include "screen_shot.h"

#include <unistd.h>

#include <SDL.h>
#include <SDL_image.h>

#include <cstdio>

#include "ostrel/screen.h"
#include "session.h"

namespace launcher {
namespace {

constexpr const char* kRequest = "/tmp/launcher_shot";
bool sRequestSeen = false;

// Whoever waits for the picture finds it whole or not at all.
void leavePicture(const std::string& path) {
    const std::string fresh = path + ".new";
    if (saveScreen(fresh) && std::rename(fresh.c_str(), path.c_str()) == 0) return;
    std::fprintf(stderr, "%s: no picture: %s\n", path.c_str(), SDL_GetError());
    std::remove(fresh.c_str());
}

}  // namespace

bool saveScreen(const std::string& path) {
    int width = 0;
    int height = 0;
    SDL_GetRendererOutputSize(gRenderer, &width, &height);
    SDL_Surface* picture = SDL_CreateRGBSurfaceWithFormat(0, width, height, 24, SDL_PIXELFORMAT_RGB24);
    const bool saved =
        picture != nullptr &&
        SDL_RenderReadPixels(gRenderer, nullptr, SDL_PIXELFORMAT_RGB24, picture->pixels, picture->pitch) == 0 &&
        IMG_SavePNG(picture, path.c_str()) == 0;
    SDL_FreeSurface(picture);
    return saved;
}

// The frame on the screen may be older than the request: the one that follows shows all that was there before it.
void answerShotRequest() {
    const std::string request = deviceFile(kRequest);
    const bool requested = access(request.c_str(), F_OK) == 0;
    const bool drawnSince = requested && sRequestSeen;
    sRequestSeen = requested && !drawnSince;
    if (!drawnSince) return;
    leavePicture(request + ".png");
    unlink(request.c_str());
}

}  // namespace launcher
