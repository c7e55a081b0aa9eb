/// @file  icons.h: the images that this launcher uses beside those of the library's skin.
/// The library's icon cache may drop an image at any time, so what rows and windows keep is loaded and owned here.
#pragma once
#include <memory>

#include "ostrel/surface.h"

namespace launcher {

/// Any of them is null when neither the theme nor the working directory has the file.
struct Icons {
    std::unique_ptr<OstrelSurface> game;
    std::unique_ptr<OstrelSurface> file;
    std::unique_ptr<OstrelSurface> buttonX;
    std::unique_ptr<OstrelSurface> buttonY;
    std::unique_ptr<OstrelSurface> buttonSelect;
};

/// Empty before loadIcons and after freeIcons.
const Icons& icons();

/// Needs the screen and gThemePath.
void loadIcons();
/// Runs before ScreenUninit.
void freeIcons();

}  // namespace launcher
