#include "menu/dir_loader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstring>

#include "ostrel/dir_browser.h"
#include "ostrel/log.h"
#include "ostrel/menu_item.h"
#include "platform/handles.h"

namespace ostrel {
namespace {

constexpr std::size_t kMaxItems = 20000;

enum class EntryKind { File, Folder, Other };

EntryKind kindOfMode(mode_t mode) {
    if (S_ISDIR(mode)) return EntryKind::Folder;
    return S_ISREG(mode) ? EntryKind::File : EntryKind::Other;
}

// The directory tells most kinds itself; only links and file systems that keep no kinds cost a stat of their own.
EntryKind kindOf(int directory, const dirent& entry) {
    if (entry.d_type == DT_REG) return EntryKind::File;
    if (entry.d_type == DT_DIR) return EntryKind::Folder;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return EntryKind::Other;
    struct stat status {};
    return fstatat(directory, entry.d_name, &status, 0) == 0 ? kindOfMode(status.st_mode) : EntryKind::Other;
}

// Hidden folders and "." stay out; whatever begins with two dots counts as the way up.
bool isListedFolder(const char* name, ParentEntry parentEntry) {
    if (name[0] != '.') return name[0] != '\0';
    return parentEntry == ParentEntry::Show && name[1] == '.';
}

struct SortableItem {
    TextMenuItem* item;
    bool hasAction;
    int sortGroup;
};

SortableItem sortable(TextMenuItem* item) {
    const auto* grouped = dynamic_cast<const GroupedAction*>(item->action);
    return {item, item->action != nullptr, grouped == nullptr ? 0 : grouped->sortGroup};
}

// Whether a must come before b: the greater group first where both rows have an action, else the smaller label.
bool comesBefore(const SortableItem& a, const SortableItem& b) {
    if (a.hasAction && b.hasAction && a.sortGroup != b.sortGroup) return a.sortGroup > b.sortGroup;
    return std::strcmp(a.item->label.c_str(), b.item->label.c_str()) < 0;
}

// Each row goes before the first one that it does not sort after, so of two equal rows the later one stands first.
// Rows with and without an action have no common order: only insertion one by one places a mixture of them.
void insertOneByOne(const std::vector<SortableItem>& loaded, std::vector<SortableItem>& sorted) {
    for (const SortableItem& item : loaded) {
        const auto place = std::find_if(sorted.begin(), sorted.end(),
                                        [&](const SortableItem& other) { return !comesBefore(other, item); });
        sorted.insert(place, item);
    }
}

std::vector<SortableItem> sortedItems(const std::vector<SortableItem>& loaded) {
    const auto hasAction = [](const SortableItem& item) { return item.hasAction; };
    const bool mixed =
        std::any_of(loaded.begin(), loaded.end(), hasAction) && !std::all_of(loaded.begin(), loaded.end(), hasAction);
    std::vector<SortableItem> sorted;
    sorted.reserve(loaded.size());
    if (mixed) {
        insertOneByOne(loaded, sorted);
    } else {
        // The same list in one go: newest first, then a sort that keeps the order of equals.
        sorted.assign(loaded.rbegin(), loaded.rend());
        std::stable_sort(sorted.begin(), sorted.end(), comesBefore);
    }
    return sorted;
}

std::vector<SortableItem> readItems(DIR* directory, const std::string& path, ItemFactory factory,
                                    ParentEntry parentEntry) {
    std::vector<SortableItem> loaded;
    const int descriptor = dirfd(directory);
    // Entries of a directory that may be read but not searched cannot be looked at, and are left out.
    if (factory == nullptr || faccessat(descriptor, ".", X_OK, AT_EACCESS) != 0) return loaded;
    std::string entryPath = path + "/";
    const std::size_t prefix = entryPath.size();
    while (const dirent* entry = readdir(directory)) {
        const char* name = entry->d_name;
        const EntryKind kind = kindOf(descriptor, *entry);
        if (kind == EntryKind::Other) continue;
        if (kind == EntryKind::Folder && !isListedFolder(name, parentEntry)) continue;
        entryPath.replace(prefix, std::string::npos, name);
        if (entryPath.size() >= PATH_MAX) continue;  // nobody can open it by this path
        if (loaded.size() >= kMaxItems) break;
        const int type = kind == EntryKind::Folder ? DIR_ENTRY_FOLDER : DIR_ENTRY_FILE;
        if (TextMenuItem* item = factory(name, entryPath.c_str(), type)) loaded.push_back(sortable(item));
    }
    return loaded;
}

}  // namespace

std::vector<void*> loadDirItems(const std::string& path, ItemFactory factory, ParentEntry parentEntry) {
    std::vector<void*> items;
    const DirPtr directory{opendir(path.c_str())};
    if (directory) {
        for (const SortableItem& row : sortedItems(readItems(directory.get(), path, factory, parentEntry))) {
            items.push_back(row.item);
        }
    }
    tprintf("loaddir %s %d\n", path.c_str(), static_cast<int>(items.size()));
    return items;
}

}  // namespace ostrel
