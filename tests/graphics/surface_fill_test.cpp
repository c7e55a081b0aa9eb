#include <memory>

#include "ostrel/screen.h"
#include "ostrel/surface.h"
#include "support/picture.h"
#include "support/screen_test.h"

namespace {

using ostreltest::Canvas;
using ostreltest::Colour;
using ostreltest::kBlack;
using ostreltest::kBlue;
using ostreltest::kRed;
using ostreltest::Picture;
using ostreltest::plainSurface;
using ostreltest::ScreenTest;

class SurfaceFill : public ScreenTest {
protected:
    SurfaceFill() : ScreenTest(64, 48), mSurface(CreateSurface(20, 10)) {
        ClearRect(mSurface.get(), nullptr, 0, 0, 255, 255);
    }
    OstrelSurface* surface() { return mSurface.get(); }
    Picture picture() { return Picture::ofTexture(texture()); }
    SDL_Texture* texture() { return static_cast<SDL2OstrelSurface*>(mSurface.get())->mTexture; }

private:
    std::unique_ptr<OstrelSurface> mSurface;
};

TEST_F(SurfaceFill, BlendsTheColour) {
    EXPECT_EQ(FillRect(surface(), nullptr, 255, 0, 0, 128), 0);
    EXPECT_EQ(picture().count({128, 0, 127, 255}), 200);
}

TEST_F(SurfaceFill, ChangesNothingWithAlphaZero) {
    EXPECT_EQ(FillRect(surface(), nullptr, 255, 0, 0, 0), 0);
    EXPECT_EQ(picture().count(kBlue), 200);
}

TEST_F(SurfaceFill, ClearingReplacesTheAlphaToo) {
    EXPECT_EQ(ClearRect(surface(), nullptr, 10, 20, 30, 0), 0);
    EXPECT_EQ(picture().count({10, 20, 30, 0}), 200);
}

TEST_F(SurfaceFill, KeepsToTheRectangle) {
    SDL_Rect place{3, 2, 5, 4};
    FillRect(surface(), &place, 255, 0, 0, 255);
    const SDL_Rect bounds = picture().boundsOfAllBut(kBlue);
    EXPECT_EQ(bounds.x, 3);
    EXPECT_EQ(bounds.y, 2);
    EXPECT_EQ(bounds.w, 5);
    EXPECT_EQ(bounds.h, 4);
    EXPECT_EQ(picture().count(kRed), 20);
}

TEST_F(SurfaceFill, TakesAnyBlendMode) {
    EXPECT_EQ(FillRectInternal(surface(), nullptr, 255, 0, 100, 255, SDL_BLENDMODE_ADD), 0);
    EXPECT_EQ(picture().count({255, 0, 255, 255}), 200);
}

TEST_F(SurfaceFill, WithoutASurfaceFillsTheTarget) {
    const Canvas canvas(16, 16, kBlack);
    FillRect(nullptr, nullptr, 255, 0, 0, 255);
    EXPECT_EQ(canvas.picture().count(kRed), 256);
    EXPECT_EQ(Picture::ofWindow().count(kRed), 0);
}

TEST_F(SurfaceFill, WithoutASurfaceOrATargetFillsTheWindow) {
    FillRect(nullptr, nullptr, 255, 0, 0, 255);
    EXPECT_EQ(Picture::ofWindow().count(kRed), 64 * 48);
}

TEST_F(SurfaceFill, OfASurfaceLeavesTheTargetAlone) {
    const Canvas canvas(16, 16, kBlack);
    FillRect(surface(), nullptr, 255, 0, 0, 255);
    EXPECT_EQ(canvas.picture().count(kBlack), 256);
}

TEST_F(SurfaceFill, OfASurfaceWithoutATextureFillsWhatTheRendererDrawsInto) {
    SDL2OstrelSurface empty(nullptr, nullptr);
    EXPECT_EQ(FillRect(&empty, nullptr, 255, 0, 0, 255), 0);
    EXPECT_EQ(Picture::ofWindow().count(kRed), 64 * 48);
}

TEST_F(SurfaceFill, OfAnImageLeavesTheScreenAlone) {
    const auto image = plainSurface(8, 8, kBlue);
    EXPECT_EQ(FillRect(image.get(), nullptr, 255, 0, 0, 255), -1);
    EXPECT_EQ(ClearRect(image.get(), nullptr, 255, 0, 0, 255), -1);
    EXPECT_EQ(Picture::ofWindow().count(kRed), 0);
}

TEST_F(SurfaceFill, OfAnImageAsTheTargetLeavesTheScreenAlone) {
    const auto image = plainSurface(8, 8, kBlue);
    SetRenderTarget(image.get());
    EXPECT_EQ(FillRect(nullptr, nullptr, 255, 0, 0, 255), -1);
    SetRenderTarget(nullptr);
    EXPECT_EQ(Picture::ofWindow().count(kRed), 0);
}

TEST_F(SurfaceFill, PutsTheRenderersTargetBack) {
    const std::unique_ptr<OstrelSurface> other(CreateSurface(8, 8));
    SDL_Texture* otherTexture = static_cast<SDL2OstrelSurface*>(other.get())->mTexture;
    SDL_SetRenderTarget(gRenderer, otherTexture);
    FillRect(surface(), nullptr, 255, 0, 0, 255);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), otherTexture);
    SDL_SetRenderTarget(gRenderer, nullptr);
}

TEST_F(SurfaceFill, PutsTheRenderersTargetBackAfterAnImage) {
    const std::unique_ptr<OstrelSurface> other(CreateSurface(8, 8));
    const auto image = plainSurface(8, 8, kBlue);
    SDL_Texture* otherTexture = static_cast<SDL2OstrelSurface*>(other.get())->mTexture;
    SDL_SetRenderTarget(gRenderer, otherTexture);
    FillRect(image.get(), nullptr, 255, 0, 0, 255);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), otherTexture);
    SDL_SetRenderTarget(gRenderer, nullptr);
}

TEST_F(SurfaceFill, PutsColourAndBlendModeBack) {
    SDL_SetRenderDrawColor(gRenderer, 1, 2, 3, 4);
    SDL_SetRenderDrawBlendMode(gRenderer, SDL_BLENDMODE_MOD);
    FillRect(surface(), nullptr, 255, 0, 0, 255);
    Colour colour;
    SDL_GetRenderDrawColor(gRenderer, &colour.r, &colour.g, &colour.b, &colour.a);
    SDL_BlendMode mode = SDL_BLENDMODE_NONE;
    SDL_GetRenderDrawBlendMode(gRenderer, &mode);
    EXPECT_EQ(colour, (Colour{1, 2, 3, 4}));
    EXPECT_EQ(mode, SDL_BLENDMODE_MOD);
}

}  // namespace
