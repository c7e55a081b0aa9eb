/// @file  games_window.h: the games directory, one folder for each system.
#pragma once
#include <cstdint>
#include <string>

#include "ostrel/file_browser_menu.h"
#include "windows/art_panel.h"
#include "windows/launcher_window.h"

namespace launcher {

class GameRow;

/// How all lists of games are shown. The player changes it in one list and finds it so in the others.
struct ListView {
    bool numbers = false;    ///< row numbers in place of icons
    std::string searchWord;  ///< highlighted in titles; "" for none
};
ListView& listView();

class GamesWindow : public LauncherWindow {
public:
    /// @param baseDir the directory that back leaves the window from. @param startDir the folder below it that is shown
    ///        first, "" for the base.
    GamesWindow(const std::string& baseDir, const std::string& startDir);

    void saveState(cJSON* obj) override;
    void onFrame() override;
    void preDraw() override;
    void draw() override;
    const char* getTitle() override;
    void themeChanged() override;
    void languageChanged() override;
    /// Puts back what saveState kept.
    void restore(const cJSON* state);

protected:
    int handleInput() override;
    std::string headingNote() override;

private:
    GameRow* row(int index);
    void folderChanged();
    void retext();
    void standOn(const std::string& path);
    int handleKey(int key);
    bool goToFound(int step);
    int countFound();
    void reload();
    void drawListHints();

    FileBrowserMenu mMenu;
    ArtPanel mPanel;
    std::string mFolder;  // the one on show
    std::string mHeading;
    Text mNotice = kTextNone;  // in place of the rows
    std::string mNotedWord;    // that mFoundNote was made for
    std::string mFoundNote;    // how often that is found
    uint64_t mNextLookMs = 0;  // when to see again whether the folder is still there
};

}  // namespace launcher
