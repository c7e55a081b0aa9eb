// Steps in when a background thread posts an event.
#pragma once
#include <functional>

namespace ostreltest {

// While it lives, SDL_PushEvent of every thread but the one that made it runs `step` first, on that thread.
class BeforePush {
public:
    explicit BeforePush(std::function<void()> step);
    ~BeforePush();
    BeforePush(const BeforePush&) = delete;
    BeforePush& operator=(const BeforePush&) = delete;
};

}  // namespace ostreltest
