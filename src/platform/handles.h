// Owners of the handles that are not pixels: files, directories, JSON trees, malloc'd text, SDL threads and locks.
#pragma once
#include <dirent.h>

#include <SDL_mutex.h>
#include <SDL_thread.h>
#include <cjson/cJSON.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

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

}  // namespace ostrel
