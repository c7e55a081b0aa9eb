/// @file  theme_colours.h: the text colours that belong to a theme.
#pragma once
#include <string>

namespace launcher {

/// Takes over the colours of "colours.json" in @p themeDir: an object with one array of red, green, blue and alpha for
/// each colour of the library's skin, by its name. What is missing, or no such array, keeps its colour.
/// Runs after init_shared_skin, which sets every colour to its default.
void applyThemeColours(const std::string& themeDir);

}  // namespace launcher
