#include "ostrel/dir_browser.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <new>
#include <string_view>

#include "menu/dir_loader.h"
#include "ostrel/log.h"
#include "ostrel/menu_item.h"
#include "platform/c_string.h"
#include "platform/handles.h"

using ostrel::loadDirItems;
using ostrel::ParentEntry;

namespace {

constexpr int kCachedItemsLimit = 40001;
constexpr std::size_t kLongestName = 255;

using ItemList = std::unique_ptr<std::vector<void*>>;

ItemList loadList(const std::string& path, ostrel::ItemFactory factory, ParentEntry parentEntry) {
    return std::make_unique<std::vector<void*>>(loadDirItems(path, factory, parentEntry));
}

// Pushes base/a, base/a/b ... for the remainder "/a/b" of a path below base.
void pushSteps(std::vector<std::string>& stack, std::string_view remainder) {
    while (!remainder.empty()) {
        const std::size_t end = std::min(remainder.find('/'), remainder.size());
        if (end > 0) stack.push_back(stack.back() + "/" + std::string(remainder.substr(0, end)));
        remainder.remove_prefix(std::min(end + 1, remainder.size()));
    }
}

}  // namespace

DirBrowser::DirBrowser(bool (*filterFn)(const char*, const char*),
                       TextMenuItem* (*factoryFn)(const char*, const char*, int))
    : filter(filterFn), factory(factoryFn) {}

DirBrowser::~DirBrowser() { freeCache(); }

std::vector<void*>* DirBrowser::LoadDir(const char* base, const char* start) {
    if (base == nullptr) return nullptr;
    // Copies first: both texts may belong to the stack or to an item that is about to go.
    const std::string baseDir = base;
    const std::string startDir = ostrel::orEmpty(start);
    const std::size_t found = start == nullptr ? std::string::npos : startDir.find(baseDir);
    freeCache();
    dirStack.assign(1, baseDir);
    std::string shown = baseDir;
    if (found != std::string::npos) {
        pushSteps(dirStack, std::string_view(startDir).substr(found + baseDir.size()));
        for (std::size_t i = 0; i < dirStack.size(); ++i)
            tprintf("dir %d %s\n", static_cast<int>(i), dirStack[i].c_str());
        shown = startDir;
    }
    const ParentEntry parentEntry = dirStack.size() > 1 ? ParentEntry::Show : ParentEntry::Hide;
    cache.push_back({dirStack.back(), loadList(shown, factory, parentEntry)});
    return cache.back().items.get();
}

std::vector<void*>* DirBrowser::ChildDir(const char* path) {
    if (path == nullptr) return nullptr;
    const std::string entered = path;  // the text may belong to an item that clearSpace deletes
    dirStack.push_back(entered);
    if (std::vector<void*>* known = getMenu(entered.c_str())) return known;
    clearSpace();
    cache.insert(cache.begin(), DirCacheEntry{entered, loadList(entered, factory, ParentEntry::Show)});
    std::vector<void*>* items = cache.front().items.get();
    tprintf("childdir %s return %p\n", entered.c_str(), static_cast<void*>(items));
    return items;
}

std::vector<void*>* DirBrowser::ParentDir() {
    if (dirStack.empty()) return nullptr;
    if (dirStack.size() > 1) dirStack.pop_back();
    const std::string& current = dirStack.back();
    if (std::vector<void*>* known = getMenu(current.c_str())) return known;
    clearSpace();
    const ParentEntry parentEntry = dirStack.size() > 1 ? ParentEntry::Show : ParentEntry::Hide;
    cache.insert(cache.begin(), DirCacheEntry{current, loadList(current, factory, parentEntry)});
    std::vector<void*>* items = cache.front().items.get();
    tprintf("parentdir %s return %p\n", current.c_str(), static_cast<void*>(items));
    return items;
}

std::vector<void*>* DirBrowser::getMenu(const char* path) {
    if (path == nullptr) return nullptr;
    const std::string wanted = path;  // the text may be an entry's own, which moves
    const auto hasPath = [&](const DirCacheEntry& entry) { return entry.path == wanted; };
    const auto found = std::find_if(cache.begin(), cache.end(), hasPath);
    if (found == cache.end()) return nullptr;
    std::rotate(cache.begin(), found, found + 1);
    tprintf("found menu for %s\n", wanted.c_str());
    return cache.front().items.get();
}

const char* DirBrowser::getCurrentDir() { return dirStack.empty() ? nullptr : dirStack.back().c_str(); }

bool DirBrowser::isBaseDir() { return dirStack.size() <= 1; }

int DirBrowser::getItemNum() {
    std::size_t count = 0;
    for (const DirCacheEntry& entry : cache) count += entry.items->size();
    return static_cast<int>(count);
}

int DirBrowser::clearSpace() {
    if (cache.size() < 2) return 0;
    while (getItemNum() >= kCachedItemsLimit) {
        freeMenuItems(cache.back().items.get());
        cache.pop_back();
    }
    return 0;
}

void DirBrowser::freeCache() {
    for (const DirCacheEntry& entry : cache) freeMenuItems(entry.items.get());
    cache.clear();
}

void DirBrowser::freeMenuItems(std::vector<void*>* items) {
    if (items == nullptr) return;
    for (void* item : *items) std::unique_ptr<TextMenuItem>{static_cast<TextMenuItem*>(item)}.reset();
    items->clear();
}

int CountNumber(std::string dir, bool (*filter)(const char*, const char*)) {
    const std::size_t room = dir.size() + 1 + kLongestName + 1;
    const std::unique_ptr<char[]> path{new (std::nothrow) char[room]};
    if (!path) return -1;
    const ostrel::DirPtr directory{opendir(dir.c_str())};
    if (!directory) return 0;
    int count = 0;
    while (const dirent* entry = readdir(directory.get())) {
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..") continue;
        std::snprintf(path.get(), room, "%s/%s", dir.c_str(), entry->d_name);
        if (filter == nullptr || filter(entry->d_name, path.get())) ++count;
    }
    return count;
}
