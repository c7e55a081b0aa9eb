/// @file  file_row.h: one file or folder as a row of a list.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "ostrel/menu_item.h"

namespace launcher {

/// The kinds of directory entry that the library's file_handler is told.
constexpr int kFileEntry = 101;
constexpr int kDirectoryEntry = 102;

/// A row: the name without its ending, and below it what the file is. Its extra text D holds the pinyin initials, so
/// that a search finds Chinese titles without working them out on every frame.
class FileRow : public TextMenuItem {
public:
    FileRow(const std::string& name, std::string path, bool isFolder);

    /// Whether @p word occurs in the title or in its initials; an empty word is nowhere.
    bool matches(const std::string& word) const;

    const std::string path;
    const bool isFolder;
};

/// Makes the row of a directory entry; its action opens the folder or shows the file.
FileRow* makeFileRow(const char* name, const char* path, bool isFolder);

/// The rows of a directory that file_filter lets pass, made by file_handler; the caller owns them. A directory that
/// cannot be read has none.
std::vector<TextMenuItem*> readDirectory(const std::string& path);

/// Folders first, then by title without regard to case. Takes two FileRow*, as TextMenu::insertItemSorted hands them.
int compareRows(void* left, void* right);

/// The icon for a file or folder of that name; not the caller's, and null when the theme lacks it.
OstrelSurface* rowIcon(const std::string& path, bool isFolder);

/// "7 B", "1.5 KB", "12 MB".
std::string sizeText(std::uintmax_t bytes);

/// Kind and size of a file, or how many entries a folder has.
std::string kindText(const std::string& path, bool isFolder);

}  // namespace launcher
