/// @file  dir_browser.h: directories as lists of menu items, and the way from a base directory to the current one.
/// Threads: UI thread only.  Files: read with opendir and stat; symbolic links count as what they point to.
/// Lists: arrays of TextMenuItem* as void*, owned by the browser's cache. A list is valid until clearSpace, freeCache
/// or the next call that loads a directory, which may drop it to make room.
/// Callbacks: the name and the path that a filter or a factory is given are good during the call only.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "ostrel/export.h"

class TextMenuItem;

/// The kinds of entries that an item factory is asked for.
constexpr int DIR_ENTRY_FILE = 101;    ///< a regular file
constexpr int DIR_ENTRY_FOLDER = 102;  ///< a directory

/// One loaded directory.
struct DirCacheEntry {
    std::string path;                           ///< the directory, as it was entered
    std::unique_ptr<std::vector<void*>> items;  ///< its rows, TextMenuItem* each; DirBrowser deletes them
};

/// Walks a tree of directories below a base directory and keeps the lists of those lately seen.
class OSTREL_API DirBrowser {
public:
    /// @param filter kept for the owner; the browser never calls it. @param factory makes the row of an entry from its
    ///        name, its whole path and its kind (DIR_ENTRY_FILE or DIR_ENTRY_FOLDER); null leaves the entry out. A null
    ///        factory leaves every entry out.
    DirBrowser(bool (*filter)(const char* name, const char* path),
               TextMenuItem* (*factory)(const char* name, const char* path, int type));
    DirBrowser(const DirBrowser&) = delete;
    DirBrowser& operator=(const DirBrowser&) = delete;
    /// Deletes every cached item.
    ~DirBrowser();

    /// Starts afresh at @p start when that path contains @p base, else at @p base (also for a null start).
    /// @return the rows of the directory shown first, empty when it cannot be read; null for a null base.
    std::vector<void*>* LoadDir(const char* base, const char* start);
    /// Enters @p path, a whole path. @return its rows; null for a null path.
    std::vector<void*>* ChildDir(const char* path);
    /// Leaves the current directory; the base directory is never left. @return the rows of the directory now current,
    ///         null before LoadDir.
    std::vector<void*>* ParentDir();
    /// @return the cached rows of @p path, now the most recently used, or null.
    std::vector<void*>* getMenu(const char* path);
    /// @return the current directory, null before LoadDir. Valid until the next change of directory.
    const char* getCurrentDir();
    /// @return whether Back would leave the tree: true at the base directory and before LoadDir.
    bool isBaseDir();
    /// @return how many items all cached directories hold together.
    int getItemNum();
    /// When two or more directories are cached, drops the least recently used until all together hold 40000 items or
    /// fewer: the very last too, when it holds more by itself. A directory that is cached alone stays, whatever it
    /// holds. @return 0, always.
    int clearSpace();
    /// Deletes every cached item and list.
    void freeCache();
    /// Deletes the items of @p items and empties it; the array stays the caller's. Null is ignored.
    void freeMenuItems(std::vector<void*>* items);

    std::vector<std::string> dirStack;                   ///< the base directory first, the current one last
    std::vector<DirCacheEntry> cache;                    ///< most recently used first
    bool (*filter)(const char* name, const char* path);  ///< as given to the constructor
    TextMenuItem* (*factory)(const char* name, const char* path, int type);  ///< as given to the constructor
};

/// Counts the entries of the directory @p dir that @p filter accepts (all of them when it is null), without "." and
/// ".." and without looking into folders. @return the count, 0 when the directory cannot be read, -1 when memory is
/// short.
OSTREL_API int CountNumber(std::string dir, bool (*filter)(const char* name, const char* path));
