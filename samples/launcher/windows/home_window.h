/// @file  home_window.h: the first window: where to go from here.
#pragma once
#include <string>

#include "ostrel/text_menu.h"
#include "windows/launcher_window.h"

namespace launcher {

class HomeWindow : public LauncherWindow {
public:
    /// @param gamesDir the directory of all games.
    explicit HomeWindow(std::string gamesDir);

    void saveState(cJSON* obj) override;
    void draw() override;
    void themeChanged() override;
    /// Puts back what saveState kept.
    void restore(const cJSON* state);

protected:
    int handleInput() override;

private:
    TextMenu mMenu;
    std::string mGamesDir;
};

}  // namespace launcher
