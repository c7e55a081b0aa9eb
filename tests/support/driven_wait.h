// The timed waits of a background thread, as a test drives them. While a DrivenWait lives, SDL_CondWaitTimeout returns
// only when the test lets its time run out or somebody signals; no time passes by itself. Meant for one waiting thread.
#pragma once
#include <SDL.h>

#include <string>
#include <vector>

namespace ostreltest {

class DrivenWait {
public:
    DrivenWait();
    ~DrivenWait();
    DrivenWait(const DrivenWait&) = delete;
    DrivenWait& operator=(const DrivenWait&) = delete;

    void awaitWaiting();                // returns once a thread stands in the wait
    void letTimeOut();                  // lets one wait run out
    void timeOut();                     // the same, and returns once the thread waits again
    int signals() const;                // calls of SDL_CondSignal so far
    std::vector<Uint32> spans() const;  // the milliseconds asked for by each wait
    std::string threadName() const;     // of the last thread that waited
};

}  // namespace ostreltest
