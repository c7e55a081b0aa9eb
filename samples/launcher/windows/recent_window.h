/// @file  recent_window.h: the games played last.
#pragma once
#include <string>

#include "ostrel/text_menu.h"
#include "windows/art_panel.h"
#include "windows/launcher_window.h"

namespace launcher {

class GameRow;

class RecentWindow : public LauncherWindow {
public:
    RecentWindow();

    void saveState(cJSON* obj) override;
    /// Takes over what was played or forgotten since the last frame.
    void onFrame() override;
    void preDraw() override;
    void draw() override;
    void themeChanged() override;
    /// Puts back what saveState kept.
    void restore(const cJSON* state);

protected:
    int handleInput() override;

private:
    GameRow* current();
    void fill();

    TextMenu mMenu;
    ArtPanel mPanel;
    int mVersion;  // of the list that the rows are made from
};

}  // namespace launcher
