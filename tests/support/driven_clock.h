// The clock of a test. While a DrivenClock lives, systemms() and usleep(), the library's own calls included, follow it:
// time stands still until the test moves it, and a sleep of the test's thread moves it by its length. On any other
// thread usleep waits until the clock has moved far enough. Without one, both are the real thing.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

namespace ostreltest {

class DrivenClock {
public:
    explicit DrivenClock(uint64_t startMs = 1'000'000);
    ~DrivenClock();
    DrivenClock(const DrivenClock&) = delete;
    DrivenClock& operator=(const DrivenClock&) = delete;

    uint64_t now() const;
    void set(uint64_t ms);
    void advance(uint64_t ms);
    std::vector<uint64_t> sleeps() const;  // microseconds of every usleep of the test's thread, in order
    // Waits until exactly so many other threads sleep past the present time; false when that takes half a minute.
    bool waitForSleepers(std::ptrdiff_t count) const;
};

}  // namespace ostreltest
