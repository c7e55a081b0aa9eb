#include "ostrel/lru_cache.h"

#include <algorithm>

#include "platform/handles.h"

using ostrel::MutexLock;

namespace {

template <typename Entries>
auto findKey(Entries& entries, const std::string& key) {
    return std::find_if(entries.begin(), entries.end(), [&key](const auto& entry) { return entry.first == key; });
}

}  // namespace

LRUCache::LRUCache(void (*freeFn)(void*), int capacity)
    : mFreeFn(freeFn), mLock(SDL_CreateMutex()), mCapacity(capacity) {}

LRUCache::~LRUCache() {
    clear();
    SDL_DestroyMutex(mLock);
}

int LRUCache::put(std::string key, void* value) {
    const MutexLock lock(mLock);
    // Room is made before the insertion and only above the capacity, so one entry more than the capacity stays. That is
    // meant: the value about to be drawn never costs one that fits. (HoldsOneEntryMoreThanItsCapacity)
    while (!mEntries.empty() && static_cast<long long>(mEntries.size()) > mCapacity) {
        if (mFreeFn != nullptr) mFreeFn(mEntries.back().second);
        mEntries.pop_back();
    }
    mEntries.emplace_front(std::move(key), value);
    return 0;
}

void* LRUCache::get(std::string key) {
    const MutexLock lock(mLock);
    const auto found = findKey(mEntries, key);
    if (found == mEntries.end()) return nullptr;
    mEntries.splice(mEntries.begin(), mEntries, found);
    return found->second;
}

void* LRUCache::pop(std::string key) {
    const MutexLock lock(mLock);
    const auto found = findKey(mEntries, key);
    if (found == mEntries.end()) return nullptr;
    void* value = found->second;
    mEntries.erase(found);
    return value;
}

void LRUCache::clear() {
    const MutexLock lock(mLock);
    if (mFreeFn != nullptr) {
        for (const auto& entry : mEntries) mFreeFn(entry.second);
    }
    mEntries.clear();
}
