/// @file  icons.h: the images that this launcher uses beside those of the library's skin.
/// The library's icon cache may drop an image at any time, so what rows and windows keep is loaded and owned here.
#pragma once
#include <memory>

#include "ostrel/surface.h"

namespace launcher {

/// Any of them is null when neither the theme nor the working directory has the file. The images change with the theme:
/// ask at each draw, or again in themeChanged.
struct Icons {
    std::unique_ptr<OstrelSurface> game;
    std::unique_ptr<OstrelSurface> file;
    std::unique_ptr<OstrelSurface> search;
    std::unique_ptr<OstrelSurface> recent;
    std::unique_ptr<OstrelSurface> settings;
    std::unique_ptr<OstrelSurface> about;
    std::unique_ptr<OstrelSurface> power;
    std::unique_ptr<OstrelSurface> next;
    std::unique_ptr<OstrelSurface> buttonX;
    std::unique_ptr<OstrelSurface> buttonY;
    std::unique_ptr<OstrelSurface> buttonSelect;
    std::unique_ptr<OstrelSurface> settingFocused;
    std::unique_ptr<OstrelSurface> settingNormal;
    std::unique_ptr<OstrelSurface> arrowLeftFocused;
    std::unique_ptr<OstrelSurface> arrowLeft;
    std::unique_ptr<OstrelSurface> arrowRightFocused;
    std::unique_ptr<OstrelSurface> arrowRight;
    std::unique_ptr<OstrelSurface> valueBox;
    std::unique_ptr<OstrelSurface> switchOn;
    std::unique_ptr<OstrelSurface> switchOff;
    std::unique_ptr<OstrelSurface> artPanel;
    std::unique_ptr<OstrelSurface> keyFocused;
    std::unique_ptr<OstrelSurface> keyNormal;
};

/// Empty before loadIcons and after freeIcons.
const Icons& icons();

/// Needs the screen and gThemePath.
void loadIcons();
/// Runs before ScreenUninit.
void freeIcons();

/// The buttons that confirm and go back, as the settings have them; not the caller's.
OstrelSurface* confirmButton();
OstrelSurface* backButton();

}  // namespace launcher
