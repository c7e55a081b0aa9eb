#include "support/before_push.h"

#include <SDL.h>

#include <mutex>
#include <thread>
#include <utility>

#include "support/next_function.h"

namespace {

using ostreltest::nextFunction;

struct PushState {
    std::mutex lock;
    std::function<void()> step;
    std::thread::id exempt;
};

PushState& pushState() {
    static auto* instance = new PushState;  // outlives every thread that may still post
    return *instance;
}

std::function<void()> stepOfThisThread() {
    PushState& push = pushState();
    const std::lock_guard<std::mutex> guard(push.lock);
    return push.exempt == std::this_thread::get_id() ? nullptr : push.step;
}

}  // namespace

// The library binds to this, because a program's definitions come before those of its libraries.
int SDL_PushEvent(SDL_Event* event) {
    if (const std::function<void()> step = stepOfThisThread()) step();
    return nextFunction<decltype(SDL_PushEvent)>("SDL_PushEvent")(event);
}

namespace ostreltest {

BeforePush::BeforePush(std::function<void()> step) {
    PushState& push = pushState();
    const std::lock_guard<std::mutex> guard(push.lock);
    push.step = std::move(step);
    push.exempt = std::this_thread::get_id();
}

BeforePush::~BeforePush() {
    PushState& push = pushState();
    const std::lock_guard<std::mutex> guard(push.lock);
    push.step = nullptr;
}

}  // namespace ostreltest
