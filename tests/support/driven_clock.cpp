#include "support/driven_clock.h"

#include <dlfcn.h>
#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <iterator>
#include <mutex>
#include <set>
#include <thread>

#include "ostrel/log.h"

namespace {

struct ClockState {
    std::mutex lock;
    std::condition_variable moved;
    bool driven = false;
    uint64_t nowUs = 0;
    std::thread::id owner;
    std::vector<uint64_t> sleeps;
    std::multiset<uint64_t> wakeTimes;  // of the other threads, in microseconds

    std::ptrdiff_t sleepers() const { return std::distance(wakeTimes.upper_bound(nowUs), wakeTimes.end()); }
};

ClockState& state() {
    static auto* instance = new ClockState;  // outlives every thread that may still sleep
    return *instance;
}

}  // namespace

// The library binds to these two, because a program's definitions come before those of its libraries.
uint64_t systemms() {
    {
        ClockState& clock = state();
        const std::lock_guard<std::mutex> guard(clock.lock);
        if (clock.driven) return clock.nowUs / 1000;
    }
    using Clock = uint64_t (*)();
    static const auto kLibraryClock = reinterpret_cast<Clock>(dlsym(RTLD_NEXT, "_Z8systemmsv"));
    return kLibraryClock();
}

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the system's name for it is a reserved one.
extern "C" int usleep(useconds_t us) {
    ClockState& clock = state();
    std::unique_lock<std::mutex> guard(clock.lock);
    if (!clock.driven) {
        guard.unlock();
        std::this_thread::sleep_for(std::chrono::microseconds(us));
        return 0;
    }
    if (std::this_thread::get_id() == clock.owner) {
        clock.nowUs += us;
        clock.sleeps.push_back(us);
        clock.moved.notify_all();
        return 0;
    }
    const uint64_t wakeUs = clock.nowUs + us;
    const auto wakeTime = clock.wakeTimes.insert(wakeUs);
    clock.moved.notify_all();
    clock.moved.wait(guard, [&] { return !clock.driven || clock.nowUs >= wakeUs; });
    clock.wakeTimes.erase(wakeTime);
    return 0;
}

namespace ostreltest {

DrivenClock::DrivenClock(uint64_t startMs) {
    ClockState& clock = state();
    const std::lock_guard<std::mutex> guard(clock.lock);
    clock.driven = true;
    clock.nowUs = startMs * 1000;
    clock.owner = std::this_thread::get_id();
    clock.sleeps.clear();
}

DrivenClock::~DrivenClock() {
    ClockState& clock = state();
    const std::lock_guard<std::mutex> guard(clock.lock);
    clock.driven = false;
    clock.moved.notify_all();
}

uint64_t DrivenClock::now() const {
    ClockState& clock = state();
    const std::lock_guard<std::mutex> guard(clock.lock);
    return clock.nowUs / 1000;
}

void DrivenClock::set(uint64_t ms) {
    ClockState& clock = state();
    const std::lock_guard<std::mutex> guard(clock.lock);
    clock.nowUs = ms * 1000;
    clock.moved.notify_all();
}

void DrivenClock::advance(uint64_t ms) {
    ClockState& clock = state();
    const std::lock_guard<std::mutex> guard(clock.lock);
    clock.nowUs += ms * 1000;
    clock.moved.notify_all();
}

std::vector<uint64_t> DrivenClock::sleeps() const {
    ClockState& clock = state();
    const std::lock_guard<std::mutex> guard(clock.lock);
    return clock.sleeps;
}

bool DrivenClock::waitForSleepers(std::ptrdiff_t count) const {
    ClockState& clock = state();
    std::unique_lock<std::mutex> guard(clock.lock);
    return clock.moved.wait_for(guard, std::chrono::seconds(30), [&] { return clock.sleepers() == count; });
}

}  // namespace ostreltest
