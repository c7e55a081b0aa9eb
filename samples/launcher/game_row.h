/// @file  game_row.h: one entry of a games folder as a row of a list.
/// Threads: UI thread.
#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "ostrel/dir_browser.h"
#include "ostrel/menu_item.h"

namespace launcher {

/// A row: the name without its ending (of a folder, the name of its system), and below it what it is. Its extra text D
/// holds the pinyin initials, so that a search finds Chinese titles without working them out on every frame. The icon
/// is the game's picture once that has been loaded (art_loader.h), else that of its kind; a folder keeps the one of its
/// system. A folder may hold thousands of games, so a row reads no file before it is drawn; what it has read then it
/// keeps until the language changes.
class GameRow : public TextMenuItem {
public:
    /// @param action not owned.
    GameRow(const std::string& name, std::string path, bool isFolder, Action* action);
    ~GameRow() override;

    /// Whether @p word occurs in the title or in its initials; an empty word is nowhere.
    bool matches(const std::string& word);
    std::string getLabel() override;
    std::string getSubLabel() override;
    std::string getTextD() override;
    OstrelSurface* getIcon() override;
    /// The file of the picture of the game or folder; "" when there is none.
    const std::string& art();
    /// Kind and size (kindText).
    const std::string& kind();
    /// The icon that stands in for a picture; not the caller's, good for one draw, null when the theme lacks it.
    OstrelSurface* kindIcon();

    const std::string path;
    const bool isFolder;

private:
    struct Reading;
    const Reading& reading();
    const std::string& title();

    std::unique_ptr<Reading> mReading;  // null until the row is drawn
};

/// What the library's file_filter and file_handler of this launcher do. Left out are hidden entries, the way up (the
/// back key goes there) and the files that describe a folder.
bool isListed(const char* name);
/// @param action not owned; @return null for an entry that is left out.
GameRow* makeGameRow(const char* name, const char* path, int type, Action* action);

/// The name without its ending, for a file; the name itself for a folder. Line feeds and other control characters,
/// which a file name may hold, are spaces in it.
std::string titleOf(const std::string& name, bool isFolder);
/// Kind and size of a file, or how many entries a folder has.
std::string kindText(const std::string& path, bool isFolder);
/// The icon for that kind of entry; not the caller's, and null when the theme lacks it.
OstrelSurface* kindIcon(const std::string& path, bool isFolder);
/// "7 B", "1.5 KB", "12 MB".
std::string sizeText(std::uintmax_t bytes);

}  // namespace launcher
