/// @file  thread_safety.h: marks by which Clang (-Wthread-safety) checks that a locked member is used under its lock.
/// Other compilers see nothing of them.
#pragma once
#include <SDL_mutex.h>

#if defined(__clang__)
#define OSTREL_THREAD_ATTRIBUTE(x) __attribute__((x))
#else
#define OSTREL_THREAD_ATTRIBUTE(x)
#endif

/// The member may be read and written only while @p lock is held.
#define OSTREL_GUARDED_BY(lock) OSTREL_THREAD_ATTRIBUTE(guarded_by(lock))
/// The function may be called only while @p lock is held.
#define OSTREL_REQUIRES(lock) OSTREL_THREAD_ATTRIBUTE(requires_capability(lock))
/// The function takes @p lock, and returns with it held.
#define OSTREL_ACQUIRES(lock) OSTREL_THREAD_ATTRIBUTE(acquire_capability(lock))
/// The function, or the owner's destructor, lets the lock go.
#define OSTREL_RELEASES(...) OSTREL_THREAD_ATTRIBUTE(release_capability(__VA_ARGS__))
/// The class holds a lock while it lives.
#define OSTREL_SCOPED_LOCK OSTREL_THREAD_ATTRIBUTE(scoped_lockable)

// SDL declares its mutex as a plain name; declared again with the mark, it counts as a lock.
struct OSTREL_THREAD_ATTRIBUTE(capability("mutex")) SDL_mutex;
