#include "support/picture.h"

#include <SDL_image.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <ostream>

#include "ostrel/screen.h"

namespace fs = std::filesystem;

namespace ostreltest {
namespace {

constexpr Uint32 kFormat = SDL_PIXELFORMAT_ABGR8888;

int channelDistance(const Colour& a, const Colour& b) {
    return std::max({std::abs(a.r - b.r), std::abs(a.g - b.g), std::abs(a.b - b.b), std::abs(a.a - b.a)});
}

struct Difference {
    int pixels = 0;
    int largest = 0;
    int left = 0, top = 0, right = 0, bottom = 0;
};

Difference compare(const Picture& actual, const Picture& expected, int tolerance) {
    Difference result{0, 0, actual.width(), actual.height(), 0, 0};
    for (int y = 0; y < actual.height(); ++y) {
        const Colour* actualRow = actual.row(y);
        const Colour* expectedRow = expected.row(y);
        for (int x = 0; x < actual.width(); ++x) {
            if (actualRow[x] == expectedRow[x]) continue;
            const int distance = channelDistance(actualRow[x], expectedRow[x]);
            if (distance <= tolerance) continue;
            ++result.pixels;
            result.largest = std::max(result.largest, distance);
            result.left = std::min(result.left, x);
            result.top = std::min(result.top, y);
            result.right = std::max(result.right, x + 1);
            result.bottom = std::max(result.bottom, y + 1);
        }
    }
    return result;
}

Picture differencePicture(const Picture& actual, const Picture& expected) {
    Picture result(actual.width(), actual.height(), {0, 0, 0, 255});
    for (int y = 0; y < std::min(actual.height(), expected.height()); ++y) {
        for (int x = 0; x < std::min(actual.width(), expected.width()); ++x) {
            const int distance = channelDistance(actual.at(x, y), expected.at(x, y));
            if (distance == 0) continue;
            const auto red = static_cast<uint8_t>(std::max(64, distance));
            result.set(x, y, {red, 0, 0, 255});
        }
    }
    return result;
}

bool updateAsked(const std::string& name) {
    const char* wanted = std::getenv("OSTREL_UPDATE_REFERENCES");
    return wanted != nullptr && name.rfind(wanted, 0) == 0;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const Colour& c) {
    return out << "(" << int{c.r} << ", " << int{c.g} << ", " << int{c.b} << ", " << int{c.a} << ")";
}

Picture::Picture(int width, int height, Colour fill)
    : mWidth(width),
      mHeight(height),
      mPixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), fill) {}

Picture Picture::ofTexture(SDL_Texture* texture) {
    int width = 0;
    int height = 0;
    if (SDL_QueryTexture(texture, nullptr, nullptr, &width, &height) != 0) return {};
    Picture result(width, height);
    SDL_Texture* previous = SDL_GetRenderTarget(gRenderer);
    if (SDL_SetRenderTarget(gRenderer, texture) != 0) return {};
    SDL_RenderReadPixels(gRenderer, nullptr, kFormat, result.mPixels.data(), width * 4);
    SDL_SetRenderTarget(gRenderer, previous);
    return result;
}

Picture Picture::ofWindow() {
    int width = 0;
    int height = 0;
    SDL_Texture* previous = SDL_GetRenderTarget(gRenderer);
    SDL_SetRenderTarget(gRenderer, nullptr);
    SDL_GetRendererOutputSize(gRenderer, &width, &height);
    Picture result(width, height);
    SDL_RenderReadPixels(gRenderer, nullptr, kFormat, result.mPixels.data(), width * 4);
    SDL_SetRenderTarget(gRenderer, previous);
    return result;
}

Picture Picture::ofSurface(SDL_Surface* surface) {
    SDL_Surface* converted = surface == nullptr ? nullptr : SDL_ConvertSurfaceFormat(surface, kFormat, 0);
    if (converted == nullptr) return {};
    Picture result(converted->w, converted->h);
    const auto* row = static_cast<const uint8_t*>(converted->pixels);
    for (int y = 0; y < converted->h; ++y, row += converted->pitch) {
        const std::size_t first = static_cast<std::size_t>(y) * static_cast<std::size_t>(converted->w);
        std::memcpy(&result.mPixels[first], row, static_cast<std::size_t>(converted->w) * sizeof(Colour));
    }
    SDL_FreeSurface(converted);
    return result;
}

Picture Picture::load(const std::string& path) {
    SDL_Surface* surface = IMG_Load(path.c_str());
    Picture result = ofSurface(surface);
    SDL_FreeSurface(surface);
    return result;
}

Colour Picture::at(int x, int y) const {
    if (x < 0 || y < 0 || x >= mWidth || y >= mHeight) {
        ADD_FAILURE() << "pixel (" << x << ", " << y << ") of a picture of " << mWidth << " x " << mHeight;
        return {};
    }
    return mPixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(mWidth) + static_cast<std::size_t>(x)];
}

void Picture::set(int x, int y, Colour colour) {
    mPixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(mWidth) + static_cast<std::size_t>(x)) = colour;
}

Picture Picture::part(const SDL_Rect& r) const {
    Picture result(r.w, r.h);
    auto place = result.mPixels.begin();
    for (int y = r.y; y < r.y + r.h; ++y) place = std::copy_n(row(y) + r.x, r.w, place);
    return result;
}

Picture Picture::turnedLeft() const {
    Picture result(mHeight, mWidth);
    auto place = result.mPixels.begin();
    for (int x = mWidth - 1; x >= 0; --x) {
        for (int y = 0; y < mHeight; ++y) *place++ = row(y)[x];
    }
    return result;
}

bool Picture::save(const std::string& path) const {
    fs::create_directories(fs::path(path).parent_path());
    auto* pixels = const_cast<Colour*>(mPixels.data());
    SDL_Surface* surface = SDL_CreateRGBSurfaceWithFormatFrom(pixels, mWidth, mHeight, 32, mWidth * 4, kFormat);
    const bool saved = surface != nullptr && IMG_SavePNG(surface, path.c_str()) == 0;
    SDL_FreeSurface(surface);
    return saved;
}

int Picture::count(Colour colour) const { return static_cast<int>(std::count(mPixels.begin(), mPixels.end(), colour)); }

SDL_Rect Picture::boundsOfAllBut(Colour colour) const {
    int left = mWidth;
    int top = mHeight;
    int right = 0;
    int bottom = 0;
    for (int y = 0; y < mHeight; ++y) {
        for (int x = 0; x < mWidth; ++x) {
            if (at(x, y) == colour) continue;
            left = std::min(left, x);
            top = std::min(top, y);
            right = std::max(right, x + 1);
            bottom = std::max(bottom, y + 1);
        }
    }
    return right == 0 ? SDL_Rect{0, 0, 0, 0} : SDL_Rect{left, top, right - left, bottom - top};
}

::testing::AssertionResult picturesMatch(const Picture& actual, const Picture& expected, int tolerance) {
    if (actual.width() != expected.width() || actual.height() != expected.height()) {
        return ::testing::AssertionFailure() << "the picture is " << actual.width() << " x " << actual.height()
                                             << ", expected " << expected.width() << " x " << expected.height();
    }
    if (actual == expected) return ::testing::AssertionSuccess();  // saves a walk over every pixel where all is well
    const Difference d = compare(actual, expected, tolerance);
    if (d.pixels == 0) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << d.pixels << " pixels differ by up to " << d.largest << " within (" << d.left
                                         << ", " << d.top << ") - (" << d.right << ", " << d.bottom << ")";
}

::testing::AssertionResult matchesReference(const Picture& actual, const std::string& name, int tolerance) {
    const std::string reference = OSTREL_SOURCE_DIR "/tests/reference/" + name + ".png";
    if (updateAsked(name)) {
        if (!actual.save(reference)) return ::testing::AssertionFailure() << "cannot write " << reference;
        return ::testing::AssertionSuccess();
    }
    const std::string output = OSTREL_BUILD_DIR "/test-pictures/" + name;
    const Picture expected = Picture::load(reference);
    if (expected.empty()) {
        actual.save(output + ".actual.png");
        return ::testing::AssertionFailure() << "no reference " << reference << "; see " << output << ".actual.png";
    }
    ::testing::AssertionResult result = picturesMatch(actual, expected, tolerance);
    if (result) return result;
    expected.save(output + ".expected.png");
    actual.save(output + ".actual.png");
    differencePicture(actual, expected).save(output + ".difference.png");
    return result << "; see " << output << ".{expected,actual,difference}.png";
}

}  // namespace ostreltest
