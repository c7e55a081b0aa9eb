// How long a frame of the main loop lasts: idle, or boosted for a budget of milliseconds after input.
#pragma once
#include <cstdint>

namespace ostrel {

// Sleeps for the rest of the frame that began at frameStartMs, and takes a boosted frame out of the budget.
void paceFrame(uint64_t frameStartMs);

}  // namespace ostrel
