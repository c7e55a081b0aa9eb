// Pictures in memory and the comparison with reference images. All four channels count.
#pragma once
#include <SDL.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace ostreltest {

struct Colour {
    uint8_t r = 0, g = 0, b = 0, a = 0;
    bool operator==(const Colour& o) const { return r == o.r && g == o.g && b == o.b && a == o.a; }
    bool operator!=(const Colour& o) const { return !(*this == o); }
};
std::ostream& operator<<(std::ostream& out, const Colour& colour);

inline constexpr Colour kBlack{0, 0, 0, 255};
inline constexpr Colour kRed{255, 0, 0, 255};
inline constexpr Colour kGreen{0, 255, 0, 255};
inline constexpr Colour kBlue{0, 0, 255, 255};
inline constexpr SDL_Color kWhite{255, 255, 255, 255};  // as texts are given their colour

class Picture {
public:
    Picture() = default;
    Picture(int width, int height, Colour fill = {});
    static Picture ofTexture(SDL_Texture* texture);  // a texture that can be a render target, read whole
    static Picture ofWindow();                       // what stands in the window
    static Picture ofSurface(SDL_Surface* surface);  // colours as the surface's own masks say
    static Picture load(const std::string& path);    // empty when the file is missing or broken

    int width() const { return mWidth; }
    int height() const { return mHeight; }
    bool empty() const { return mPixels.empty(); }
    bool operator==(const Picture& o) const { return mWidth == o.mWidth && mPixels == o.mPixels; }
    Colour at(int x, int y) const;  // outside: a failed test and an empty colour
    void set(int x, int y, Colour colour);
    const Colour* row(int y) const { return &mPixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(mWidth)]; }
    Picture part(const SDL_Rect& r) const;         // r lies within the picture
    Picture turnedLeft() const;                    // by 270 degrees
    bool save(const std::string& path) const;      // as PNG; makes missing folders
    int count(Colour colour) const;                // how many pixels have this colour
    SDL_Rect boundsOfAllBut(Colour colour) const;  // smallest rectangle around all pixels of any other colour

private:
    int mWidth = 0, mHeight = 0;
    std::vector<Colour> mPixels;
};

// How far a channel may be off where images with translucent pixels are drawn. SDL blends them with code of the
// processor's own, into a texture of the image's layout as into the window; references are pictures of x86-64.
#ifdef __x86_64__
constexpr int kBlendingTolerance = 0;
#else
constexpr int kBlendingTolerance = 4;
#endif

// Whether two pictures agree within tolerance per channel; a failure counts the pixels and names their rectangle.
::testing::AssertionResult picturesMatch(const Picture& actual, const Picture& expected, int tolerance = 0);

// The same against tests/reference/NAME.png. A missing reference fails. Failures leave NAME.expected.png,
// NAME.actual.png and NAME.difference.png below build/.../test-pictures. scripts/update-references writes references.
::testing::AssertionResult matchesReference(const Picture& actual, const std::string& name, int tolerance = 0);

}  // namespace ostreltest
