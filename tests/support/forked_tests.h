// The tests of a program in processes of their own, without starting the program anew for each.
#pragma once

namespace ostreltest {

// Whether the environment asks for it: OSTREL_FORKED_TESTS is "tests" or "suites".
bool areTestsForked();

// Forks once for each test ("tests"), so that none can need what another left behind, or once for each suite
// ("suites"), so that none can leave behind what another stumbles over: cheaper where a process pays for all that it
// touches first. Takes the registered tests or this shard's (GTEST_TOTAL_SHARDS, GTEST_SHARD_INDEX), a process after
// the other. Prints what those said in which a test did not pass, and a closing line. Returns the program's exit code.
// Call it before any thread runs.
int runTestsForked();

}  // namespace ostreltest
