/// @file  lru_cache.h: a small cache of owned pointers under string keys, least recently used out first.
/// Threads: any; every operation holds the cache's lock for its whole duration.
/// Keys: whole byte strings, equal in length and in every byte; a zero byte is one like any other.
/// Values: any pointer, null included. The cache owns them until pop hands one back.
#pragma once
#include <SDL_mutex.h>

#include <cstddef>
#include <list>
#include <string>
#include <utility>

#include "ostrel/export.h"
#include "ostrel/thread_safety.h"

/// Keeps up to capacity + 1 values: room is made before an insertion, and only once the count exceeds the capacity.
/// The same key may stand in it more than once; the newest entry answers, and the older one shows again when that has
/// gone. Look-ups are linear, which is no loss up to some hundred entries.
class OSTREL_API LRUCache {
public:
    /// @param freeFn releases a value that the cache drops, null values too; it runs with the lock held and must not
    ///        call back into this cache. Without one, values are dropped and not released.
    /// @param capacity the count above which an insertion drops the least recently used entries first; 0 and negative
    ///        numbers keep only the newest entry.
    LRUCache(void (*freeFn)(void*), int capacity);
    /// Releases every value as clear does.
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
    // Most recently used first; the list keeps its own count.
    std::list<std::pair<std::string, void*>> mEntries OSTREL_GUARDED_BY(mLock);
    void (*mFreeFn)(void*);
    SDL_mutex* mLock;
    int mCapacity;
};
