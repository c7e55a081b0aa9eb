#include "window/frame_pacing.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>

#include "ostrel/log.h"
#include "ostrel/window.h"

namespace {

constexpr int kDefaultFps = 10;
constexpr int kDefaultBoostFps = 30;
constexpr int kTooSlowFps = 5;  // this rate and any below it are refused

int sFps = kDefaultFps;
int sBoostFps = kDefaultBoostFps;
std::atomic<int> sBoostBudgetMs{0};  // any thread raises it, the loop lowers it

void sleepUntilFrameEnd(uint64_t frameStartMs, int frameMs) {
    const auto wantedMs = static_cast<uint64_t>(frameMs);
    // Unsigned, so that a clock that went backwards makes the frame look long and never sleeps.
    const uint64_t elapsedMs = systemms() - frameStartMs;
    if (elapsedMs < wantedMs) usleep(static_cast<useconds_t>((wantedMs - elapsedMs) * 1000));
}

// A boost that was cancelled or prolonged during the sleep stays so.
void takeFromBudget(int frameMs) {
    int budget = sBoostBudgetMs.load();
    while (!sBoostBudgetMs.compare_exchange_weak(budget, std::max(0, budget - frameMs))) {
    }
}

}  // namespace

void touchBoostFps(int ms) {
    if (ms < 1) {
        sBoostBudgetMs = 0;
        return;
    }
    int budget = sBoostBudgetMs.load();
    while (budget < ms && !sBoostBudgetMs.compare_exchange_weak(budget, ms)) {
    }
}

void setOstrelWindowFps(int normal, int boost) {
    sFps = normal <= kTooSlowFps ? kDefaultFps : normal;
    sBoostFps = boost <= kTooSlowFps ? kDefaultBoostFps : boost;
}

namespace ostrel {

void paceFrame(uint64_t frameStartMs) {
    if (sBoostBudgetMs.load() <= 0) {
        sleepUntilFrameEnd(frameStartMs, 1000 / sFps);
        return;
    }
    const int frameMs = 1000 / sBoostFps;
    sleepUntilFrameEnd(frameStartMs, frameMs);
    takeFromBudget(frameMs);
}

}  // namespace ostrel
