/// @file  game_page_window.h: what is known of one game or folder: its picture, and its first lines.
#pragma once
#include <string>
#include <vector>

#include "game_row.h"
#include "windows/art_panel.h"
#include "windows/launcher_window.h"

namespace launcher {

class GamePageWindow : public LauncherWindow {
public:
    GamePageWindow(const std::string& path, bool isFolder);

    void saveState(cJSON* obj) override;
    /// Reads the file, when the window comes on top.
    void init() override;
    void draw() override;
    void languageChanged() override;

protected:
    int handleInput() override;

private:
    bool hasArt() { return !mGame.art().empty(); }
    int textWidth();
    int drawName();
    void drawLines(int top);

    GameRow mGame;
    ArtPanel mPanel;
    bool mCanPlay = false;
    std::vector<std::string> mNameLines;
    std::vector<std::string> mLines;
};

}  // namespace launcher
