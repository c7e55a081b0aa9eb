/// @file  file_browser_menu.h: a list menu that walks the directories below a base directory.
/// Threads: UI thread only.  Rows: made by the host's file_handler (host.h); what choosing one does is its action.
#pragma once
#include <string>
#include <vector>

#include "ostrel/dir_browser.h"
#include "ostrel/export.h"
#include "ostrel/menu_item.h"
#include "ostrel/text_menu_drawer.h"

/// Code of the SDL user event that asks a FileBrowserMenu for another directory. The action of a folder row posts it
/// with data1 pointing to the whole path, which must stay valid until the menu has handled the event; a path that ends
/// in ".." or "../" goes up. Also a result of eventHandling, which says what it stands for.
constexpr int FILE_BROWSER_CHANGE_DIR = 26;

/// A list of a directory's entries, with the way down (the event above) and up (the key that does not confirm).
class OSTREL_API FileBrowserMenu : public TextMenuDrawer {
public:
    /// @param baseDir the root of the tree, which the user cannot leave upwards. @param startDir the directory to open
    ///        first, or null for the base. The other arguments as for TextMenuDrawer, in this order. Loads nothing yet.
    FileBrowserMenu(const char* baseDir, const char* startDir, const char* selBgPath, const char* normalBgPath,
                    int ySpace, int rowsPerPage);
    /// Deletes every item.
    ~FileBrowserMenu() override;

    /// Reads one input and moves through the list and the tree. B goes back, or A with SHM_BCONFIRM set: to the parent
    /// directory, and at the base directory out of the menu.
    /// @return WIN_BACK to leave; FILE_BROWSER_CHANGE_DIR after a change of directory, and for an event of that code
    ///         without a path; else what ListMenu::handleEvent gave: the key, also one that did nothing, LIST_AT_TOP,
    ///         or the result of a row's action. Such a result may read as a key too: the confirm key's number (1, or 2
    ///         with SHM_BCONFIRM set) becomes FILE_BROWSER_CHANGE_DIR, the other one goes back as the key does.
    ///         From an action that has deleted the menu both give FILE_BROWSER_CHANGE_DIR.
    int eventHandling() override;
    TextMenuItem* getItemByIndex(int index) override;
    void draw() override;
    int getListNum() override;

    /// Loads the first directory; call it before the first draw. @return its rows, owned by the browser.
    std::vector<void*>* LoadDir();
    /// @return the current directory, null before LoadDir.
    const char* getCurrentDir();

    std::string baseDir;   ///< the root of the tree
    std::string startDir;  ///< the directory to open first; empty for the base
    /// Loads and keeps the lists, with file_filter and file_handler. Whoever has it drop a list (its freeCache,
    /// clearSpace, or a change of directory) leaves curList pointing to what is gone: call LoadDir, or set curList to
    /// what browser returned, before the menu is drawn or takes an input again.
    DirBrowser browser;
    std::vector<void*>* curList;  ///< the rows on show, owned by browser's cache; null before LoadDir

private:
    OSTREL_HIDDEN int goBack();
    OSTREL_HIDDEN int changeDir(const SDL_Event& event);
    OSTREL_HIDDEN void show(std::vector<void*>* list);
};
