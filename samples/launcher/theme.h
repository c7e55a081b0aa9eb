/// @file  theme.h: the theme in use: the library's skin, the text colours that go with it, and this launcher's icons.
/// Threads: UI thread.
#pragma once
#include <string>
#include <vector>

#include "texts.h"

namespace launcher {

/// A theme that can be chosen.
struct ThemeInfo {
    Text name;
    std::string directory;  ///< ends in "/"
};

/// The themes that come with the launcher.
const std::vector<ThemeInfo>& themes();

/// Sets gThemePath. @param directory ends in "/"; the text is copied. Nothing is loaded.
void setTheme(const std::string& directory);
/// Loads skin, colours and icons of gThemePath. Needs the screen.
void loadSkin();
/// Lets go of them; runs before ScreenUninit.
void freeSkin();
/// Changes the theme while windows are open, and tells each of them. Not from inside a row's or a handler's call, which
/// the windows rebuild: from onFrame.
void switchTheme(const std::string& directory);

/// Takes over the colours of "colours.json" in @p themeDir: an object with one array of red, green, blue and alpha for
/// each colour of the library's skin, by its name. What is missing, or no such array, keeps its colour.
/// Runs after init_shared_skin, which sets every colour to its default.
void applyThemeColours(const std::string& themeDir);

}  // namespace launcher
