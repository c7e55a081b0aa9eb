/// @file  search_window.h: search over all games with letters picked on the game-pad.
#pragma once
#include <memory>
#include <string>

#include "windows/launcher_window.h"

namespace launcher {

/// Keys at the left, the games found at the right, filtered with each letter; one of the two has the cursor.
class SearchWindow : public LauncherWindow {
public:
    /// @param gamesDir the directory of all games. @param word what is typed already.
    explicit SearchWindow(const std::string& gamesDir, const std::string& word = "");
    ~SearchWindow() override;

    void saveState(cJSON* obj) override;
    void draw() override;
    void themeChanged() override;
    /// Puts back what saveState kept.
    void restore(const cJSON* state);

protected:
    int handleInput() override;
    std::string headingNote() override;

private:
    void setWord(const std::string& word);
    void focusResults(bool focus);
    int handleResults();
    int handleLetters(int key);
    int leave();
    void drawField() const;
    void drawKeys() const;
    void drawPages() const;
    void drawResults();

    struct Parts;
    std::unique_ptr<Parts> mParts;
};

}  // namespace launcher
