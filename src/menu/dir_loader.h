// Reads one directory into a sorted list of rows.
#pragma once
#include <string>
#include <vector>

class TextMenuItem;

namespace ostrel {

using ItemFactory = TextMenuItem* (*)(const char* name, const char* path, int type);

enum class ParentEntry { Hide, Show };

// Appends nothing when the directory cannot be opened or searched. Logs one line with the number of rows.
std::vector<void*> loadDirItems(const std::string& path, ItemFactory factory, ParentEntry parentEntry);

}  // namespace ostrel
