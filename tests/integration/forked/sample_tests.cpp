// Tests that end in every way, for the test of the runner that forks them.
#include <gtest/gtest.h>

#include <cstdlib>

namespace {

int sTestsOfThisProcess = 0;

[[noreturn]] void endWithFailure() { std::_Exit(EXIT_FAILURE); }

TEST(CountingTest, PassesAsTheFirst) { EXPECT_EQ(++sTestsOfThisProcess, 1); }
TEST(CountingTest, PassesAlone) { EXPECT_EQ(++sTestsOfThisProcess, 1); }
TEST(CountingTest, PassesAsTheThird) { EXPECT_EQ(++sTestsOfThisProcess, 3); }

TEST(CrashingTest, PassesBefore) { EXPECT_EQ(++sTestsOfThisProcess, 1); }
TEST(CrashingTest, Crashes) { std::abort(); }
TEST(CrashingTest, PassesAfter) { EXPECT_EQ(++sTestsOfThisProcess, 1); }

TEST(LateFailureTest, PassesAndFailsAtTheEnd) { EXPECT_EQ(std::atexit(endWithFailure), 0); }

}  // namespace
