// A fixture with a screen, and a canvas to draw on whose pixels are the same on every machine.
#pragma once
#include <SDL.h>

#include <memory>
#include <string>

#include "ostrel/surface.h"
#include "support/picture.h"
#include "support/test_device.h"

namespace ostreltest {

// Starts the screen (1280 x 720 unless told otherwise) and lets it go again.
class ScreenTest : public DeviceTest {
protected:
    explicit ScreenTest(int width = 1280, int height = 720, int rotate = 0);
    ~ScreenTest() override;
};

// A texture as the render target, filled with one colour; drawing goes back to the screen when it dies.
class Canvas {
public:
    Canvas(int width, int height, Colour fill = {0, 0, 0, 255});
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    Picture picture() const;
    OstrelSurface* surface() const { return mSurface.get(); }

private:
    std::unique_ptr<OstrelSurface> mSurface;
};

// A new surface of one colour, with pixels in memory; the caller owns it.
std::unique_ptr<OstrelSurface> plainSurface(int width, int height, Colour colour);
// The implementation behind a surface, with its texture and its pixels.
SDL2OstrelSurface* inside(const std::unique_ptr<OstrelSurface>& surface);
// Writes a PNG of one colour; the folder is made when missing.
void writePlainPng(const std::string& path, int width, int height, Colour colour);

}  // namespace ostreltest
