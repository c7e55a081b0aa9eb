#include "support/driven_wait.h"

#include <pthread.h>

#include <condition_variable>
#include <mutex>

#include "support/next_function.h"

namespace {

using ostreltest::nextFunction;

struct WaitState {
    std::mutex lock;
    std::condition_variable changed;
    bool driven = false;
    bool waiting = false;
    bool timedOut = false;
    bool signalled = false;
    int signals = 0;
    std::vector<Uint32> spans;
    std::string threadName;
};

WaitState& waitState() {
    static auto* instance = new WaitState;  // outlives every thread that may still wait
    return *instance;
}

std::string nameOfThisThread() {
    char name[16] = "";
    pthread_getname_np(pthread_self(), name, sizeof name);
    return name;
}

// Lets the time of the wait run out in which a thread stands, or soon will. @return how many waits there were.
std::size_t endWait(std::unique_lock<std::mutex>& guard) {
    WaitState& wait = waitState();
    wait.changed.wait(guard, [&wait] { return wait.waiting && !wait.signalled; });
    wait.timedOut = true;
    wait.changed.notify_all();
    return wait.spans.size();
}

}  // namespace

// The library binds to these, because a program's definitions come before those of its libraries.
int SDL_CondWaitTimeout(SDL_cond* cond, SDL_mutex* mutex, Uint32 ms) {
    WaitState& wait = waitState();
    std::unique_lock<std::mutex> guard(wait.lock);
    if (!wait.driven) {
        guard.unlock();
        return nextFunction<decltype(SDL_CondWaitTimeout)>("SDL_CondWaitTimeout")(cond, mutex, ms);
    }
    wait.spans.push_back(ms);
    wait.threadName = nameOfThisThread();
    wait.waiting = true;
    wait.timedOut = false;
    wait.signalled = false;
    wait.changed.notify_all();
    SDL_UnlockMutex(mutex);
    wait.changed.wait(guard, [&wait] { return wait.timedOut || wait.signalled || !wait.driven; });
    wait.waiting = false;
    const bool timedOut = !wait.signalled;
    guard.unlock();
    SDL_LockMutex(mutex);
    return timedOut ? SDL_MUTEX_TIMEDOUT : 0;
}

int SDL_CondSignal(SDL_cond* cond) {
    {
        WaitState& wait = waitState();
        const std::lock_guard<std::mutex> guard(wait.lock);
        ++wait.signals;
        wait.signalled = true;
        wait.changed.notify_all();
    }
    return nextFunction<decltype(SDL_CondSignal)>("SDL_CondSignal")(cond);
}

namespace ostreltest {

DrivenWait::DrivenWait() {
    WaitState& wait = waitState();
    const std::lock_guard<std::mutex> guard(wait.lock);
    wait.driven = true;
    wait.signals = 0;
    wait.spans.clear();
    wait.threadName.clear();
}

DrivenWait::~DrivenWait() {
    WaitState& wait = waitState();
    const std::lock_guard<std::mutex> guard(wait.lock);
    wait.driven = false;
    wait.changed.notify_all();
}

void DrivenWait::awaitWaiting() {
    WaitState& wait = waitState();
    std::unique_lock<std::mutex> guard(wait.lock);
    wait.changed.wait(guard, [&wait] { return wait.waiting && !wait.signalled; });
}

void DrivenWait::letTimeOut() {
    std::unique_lock<std::mutex> guard(waitState().lock);
    endWait(guard);
}

void DrivenWait::timeOut() {
    WaitState& wait = waitState();
    std::unique_lock<std::mutex> guard(wait.lock);
    const std::size_t waits = endWait(guard);
    wait.changed.wait(guard, [&wait, waits] { return wait.spans.size() > waits; });
}

int DrivenWait::signals() const {
    const std::lock_guard<std::mutex> guard(waitState().lock);
    return waitState().signals;
}

std::vector<Uint32> DrivenWait::spans() const {
    const std::lock_guard<std::mutex> guard(waitState().lock);
    return waitState().spans;
}

std::string DrivenWait::threadName() const {
    const std::lock_guard<std::mutex> guard(waitState().lock);
    return waitState().threadName;
}

}  // namespace ostreltest
