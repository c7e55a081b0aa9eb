/// @file  lru_cache.h: a small cache of owned pointers under string keys, least recently used out first.
/// Threads: any; every operation holds the cache's lock for its whole duration.
#pragma once
#include <SDL_mutex.h>

#include <cstddef>
#include <list>
#include <string>
#include <utility>

#include "ostrel/export.h"

/// Keeps up to capacity + 1 values: room is made before an insertion, and only once the count exceeds the capacity.
/// The same key may stand in it more than once; the newest entry answers. Look-ups are linear.
class OSTREL_API LRUCache {
public:
    /// @param freeFn releases a value that the cache drops, with the lock held (it must not call back into this cache);
    ///        null drops values without releasing them. @param capacity the count from which room is made.
    LRUCache(void (*freeFn)(void*), int capacity);
    /// Clears the cache.
    ~LRUCache();
    LRUCache(const LRUCache&) = delete;
    LRUCache& operator=(const LRUCache&) = delete;

    /// Inserts @p value, which the cache then owns, as the newest entry. @return 0, always.
    int put(std::string key, void* value);
    /// @return the newest value under @p key, now the most recently used and still the cache's, or null.
    void* get(std::string key);
    /// @return the newest value under @p key, now out of the cache and the caller's, or null.
    void* pop(std::string key);
    /// Releases every value, most recently used first.
    void clear();

private:
    std::list<std::pair<std::string, void*>> mEntries;  // most recently used first; the list keeps its own count
    void (*mFreeFn)(void*);
    SDL_mutex* mLock;
    int mCapacity;
};
