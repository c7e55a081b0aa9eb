// Owners of the handles that are not pixels: files, directories, JSON trees, malloc'd text, SDL mutexes and conditions.
#pragma once
#include <dirent.h>

#include <SDL_mutex.h>
#include <SDL_thread.h>
#include <cjson/cJSON.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "ostrel/thread_safety.h"

namespace ostrel {

template <auto Free>
struct Releaser {
    template <typename T>
    void operator()(T* handle) const noexcept {
        Free(handle);
    }
};

using FilePtr = std::unique_ptr<std::FILE, Releaser<&std::fclose>>;
using DirPtr = std::unique_ptr<DIR, Releaser<&::closedir>>;
using JsonPtr = std::unique_ptr<cJSON, Releaser<&cJSON_Delete>>;
using JsonText = std::unique_ptr<char, Releaser<&cJSON_free>>;
using MallocText = std::unique_ptr<char, Releaser<&std::free>>;
using MutexPtr = std::unique_ptr<SDL_mutex, Releaser<&SDL_DestroyMutex>>;
using CondPtr = std::unique_ptr<SDL_cond, Releaser<&SDL_DestroyCond>>;

// Holds an SDL mutex from here to the end of the block. A null mutex is let be: SDL answers it with an error.
class OSTREL_SCOPED_LOCK MutexLock {
public:
    explicit MutexLock(SDL_mutex* mutex) OSTREL_ACQUIRES(mutex) : mMutex(mutex) { SDL_LockMutex(mMutex); }
    ~MutexLock() OSTREL_RELEASES() { SDL_UnlockMutex(mMutex); }
    MutexLock(const MutexLock&) = delete;
    MutexLock& operator=(const MutexLock&) = delete;

private:
    SDL_mutex* mMutex;
};

}  // namespace ostrel
