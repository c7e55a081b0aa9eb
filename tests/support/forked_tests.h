// Every test of a program in a process of its own, without starting the program anew for each.
#pragma once

namespace ostreltest {

// Whether the environment asks for it: OSTREL_FORKED_TESTS is set.
bool areTestsForked();

// Forks once for each registered test, or for those of this shard (GTEST_TOTAL_SHARDS, GTEST_SHARD_INDEX), one after
// the other. Prints what the tests that failed or were skipped said, and a closing line. Returns the program's exit
// code. For where starting a program takes much longer than its test. Call it before any thread runs.
int runTestsForked();

}  // namespace ostreltest
