/// @file  list_window.h: the files of one folder as a list.
#pragma once
#include <string>
#include <vector>

#include "launcher_window.h"
#include "ostrel/text_menu.h"

namespace launcher {

class FileRow;

/// How all lists are shown. The user changes it in one list and finds it so in the others.
struct ListView {
    bool numbers = false;                  ///< row numbers in place of icons
    std::vector<std::string> searchWords;  ///< what the search key steps through
    std::size_t searchWord = 0;            ///< 0 is no search, n the n-th word

    /// The word that is highlighted, or "".
    const std::string& word() const;
    void nextWord();
};
ListView& listView();

/// A folder. Opening a sub-folder puts another ListWindow on top, and back removes it; back in the first one quits.
class ListWindow : public LauncherWindow {
public:
    enum class Level { First, Sub };
    ListWindow(const std::string& folder, const std::string& heading, Level level = Level::Sub);

    int eventHandling() override;
    void preDraw() override;
    void draw() override;
    const char* getTitle() override;

private:
    int handleKey(int key);
    void drawHints(bool empty);
    void goToFound(int step);
    FileRow* row(int index);
    int countFound();
    std::string searchNote();

    TextMenu mMenu;
    std::string mHeading;
    Level mLevel;
    std::string mSearchNote;
    std::string mNotedWord;
};

}  // namespace launcher
