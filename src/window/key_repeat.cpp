#include "window/key_repeat.h"

#include <SDL.h>

#include <array>
#include <atomic>
#include <mutex>

#include "graphics/screen_internal.h"
#include "ostrel/input.h"
#include "ostrel/log.h"
#include "platform/handles.h"
#include "window/key_click.h"

namespace ostrel {
namespace {

constexpr uint64_t kFirstRepeatMs = 500;  // a repeat is due when more than this has passed
constexpr uint64_t kNextRepeatMs = 30;    // matters only when a signal wakes the thread early
constexpr Uint32 kWakeMs = 100;
constexpr std::size_t kKeyCodes = KEY_RIGHT + 1;

struct HeldKey {
    uint64_t sinceMs = 0;  // the press, or its last repeat; 0: not held
    int repeats = 0;
    unsigned generation = 0;  // the clearing after which it was pressed
};

bool isDue(const HeldKey& key, uint64_t heldMs) { return heldMs > (key.repeats == 0 ? kFirstRepeatMs : kNextRepeatMs); }

// Clearing must not wait for the thread, so it does not touch the table: it raises the generation, and what an older
// one holds is dead. Whatever the thread writes into such an entry meanwhile cannot bring the key back to life.
class KeyRepeat {
public:
    uint64_t hold(int key);
    void clear();
    void enterScope();
    void leaveScope();
    void quitSdl();

private:
    static int threadEntry(void* self);
    void start();
    void stop();
    void run();
    bool isHeld(const HeldKey& key) const { return key.sinceMs != 0 && key.generation == mGeneration.load(); }
    bool postDueKeys(SDL_Event& press) OSTREL_REQUIRES(mLock.get());

    MutexPtr mLock;  // lock and signal are null while no loop runs
    CondPtr mWake;
    SDL_Thread* mThread = nullptr;
    int mScopes = 0;
    std::array<HeldKey, kKeyCodes> mHeld OSTREL_GUARDED_BY(mLock.get());
    bool mRunning OSTREL_GUARDED_BY(mLock.get()) = false;
    std::atomic<unsigned> mGeneration{0};
    std::mutex mUsingSdl;  // held while the thread posts and clicks, so that SDL does not end under it
};

uint64_t KeyRepeat::hold(int key) {
    const MutexLock lock(mLock.get());
    HeldKey& held = mHeld[static_cast<std::size_t>(key)];
    const unsigned generation = mGeneration.load();
    if (held.generation != generation) held = HeldKey{0, 0, generation};
    held.sinceMs = systemms();
    return held.sinceMs;
}

void KeyRepeat::clear() {
    ++mGeneration;
    if (mWake) SDL_CondSignal(mWake.get());
}

void KeyRepeat::enterScope() {
    if (mScopes++ == 0) start();
}

void KeyRepeat::leaveScope() {
    if (--mScopes == 0) stop();
}

void KeyRepeat::quitSdl() {
    const std::lock_guard<std::mutex> alone{mUsingSdl};
    ostrel::quitSdl();
}

void KeyRepeat::start() {
    mLock.reset(SDL_CreateMutex());
    mWake.reset(SDL_CreateCond());
    {
        const MutexLock lock(mLock.get());
        mRunning = true;
    }
    tprintf("init check_repeat_thread\n");
    if (mLock && mWake) mThread = SDL_CreateThread(threadEntry, "repeatkey", this);
}

void KeyRepeat::stop() {
    {
        const MutexLock lock(mLock.get());
        mRunning = false;
        SDL_CondSignal(mWake.get());
    }
    if (mThread != nullptr) {
        SDL_WaitThread(mThread, nullptr);
        mThread = nullptr;
        tprintf("deinit check_repeat_thread\n");
    }
    mLock.reset();
    mWake.reset();
}

int KeyRepeat::threadEntry(void* self) {
    static_cast<KeyRepeat*>(self)->run();
    return 0;
}

void KeyRepeat::run() {
    SDL_Event press{};
    press.type = SDL_USEREVENT;
    for (;;) {
        bool posted = false;
        std::unique_lock<std::mutex> usingSdl{mUsingSdl, std::defer_lock};
        {
            const MutexLock lock(mLock.get());
            // A stop that came before this thread got here is seen at once instead of after a whole wait.
            if (mRunning) SDL_CondWaitTimeout(mWake.get(), mLock.get(), kWakeMs);
            if (!mRunning) return;
            usingSdl.lock();
            posted = postDueKeys(press);
        }
        if (posted) playKeyClick();
    }
}

// @return whether a key was due.
bool KeyRepeat::postDueKeys(SDL_Event& press) {
    bool posted = false;
    const uint64_t now = systemms();
    for (int code = KEY_UP; code <= KEY_RIGHT; ++code) {
        HeldKey& key = mHeld[static_cast<std::size_t>(code)];
        const uint64_t heldMs = now - key.sinceMs;
        if (!isHeld(key) || !isDue(key, heldMs)) continue;
        press.user.code = code;
        SDL_PushEvent(&press);
        ++key.repeats;
        tprintf("%ld send repeat key %d, count %d, diff %ld\n", static_cast<long>(now), code, key.repeats,
                static_cast<long>(heldMs));
        key.sinceMs = now;
        posted = true;
    }
    return posted;
}

// Never destroyed: a host may call exit() from a window, while the thread still waits.
KeyRepeat& keyRepeat() {
    static auto* instance = new KeyRepeat;
    return *instance;
}

}  // namespace

void setRepeatTime(int key) {
    const uint64_t now = keyRepeat().hold(key);
    tprintf("set repeat time %ld\n", static_cast<long>(now));
}

void clearRepeatKeys() {
    keyRepeat().clear();
    tprintf("clear repeat time\n");
}

void quitSdlBetweenRepeats() { keyRepeat().quitSdl(); }

KeyRepeatScope::KeyRepeatScope() { keyRepeat().enterScope(); }

KeyRepeatScope::~KeyRepeatScope() { keyRepeat().leaveScope(); }

}  // namespace ostrel
