#include <string>

#include "ostrel/skin.h"
#include "theme.h"
#include "windows/launcher_window.h"

namespace launcher {

// The icon cache keeps images under their names within the theme, so it is emptied too.
void switchTheme(const std::string& directory) {
    freeSkin();
    gIconCache.clear();
    setTheme(directory);
    loadSkin();
    for (LauncherWindow* window : LauncherWindow::all()) window->themeChanged();
}

}  // namespace launcher
