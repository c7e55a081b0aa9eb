#include "support/screen_test.h"

#include "ostrel/screen.h"

namespace ostreltest {

ScreenTest::ScreenTest(int width, int height, int rotate) { EXPECT_EQ(ScreenInit(width, height, 32, rotate), 1); }

ScreenTest::~ScreenTest() {
    SetRenderTarget(nullptr);
    ScreenUninit();
}

Canvas::Canvas(int width, int height, Colour fill) : mSurface(CreateSurface(width, height)) {
    ClearRect(mSurface.get(), nullptr, fill.r, fill.g, fill.b, fill.a);
    SetRenderTarget(mSurface.get());
}

Canvas::~Canvas() { SetRenderTarget(nullptr); }

Picture Canvas::picture() const {
    return Picture::ofTexture(static_cast<SDL2OstrelSurface*>(mSurface.get())->mTexture);
}

std::unique_ptr<OstrelSurface> plainSurface(int width, int height, Colour colour) {
    SDL_Surface* pixels = create_surface(width, height);
    SDL_FillRect(pixels, nullptr, SDL_MapRGBA(pixels->format, colour.r, colour.g, colour.b, colour.a));
    return std::make_unique<SDL2OstrelSurface>(SDL_CreateTextureFromSurface(gRenderer, pixels), pixels);
}

SDL2OstrelSurface* inside(const std::unique_ptr<OstrelSurface>& surface) {
    return static_cast<SDL2OstrelSurface*>(surface.get());
}

void writePlainPng(const std::string& path, int width, int height, Colour colour) {
    Picture(width, height, colour).save(path);
}

}  // namespace ostreltest
