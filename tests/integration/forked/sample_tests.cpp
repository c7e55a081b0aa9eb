// Tests of every outcome, for the test of the runner that forks them.
#include <gtest/gtest.h>

#include <cstdlib>

namespace {

int sRunInThisProcess = 0;

[[noreturn]] void endWithFailure() { std::_Exit(EXIT_FAILURE); }

TEST(GoodTest, FirstPasses) { EXPECT_EQ(++sRunInThisProcess, 1); }
TEST(GoodTest, PassesAloneOnly) { EXPECT_EQ(++sRunInThisProcess, 1); }
TEST(GoodTest, PassesBehindOthersOnly) { EXPECT_EQ(++sRunInThisProcess, 3); }

TEST(SkippingTest, IsSkipped) { GTEST_SKIP() << "for a reason"; }
TEST(SkippingTest, Passes) {}

TEST(CrashingTest, Passes) {}
TEST(CrashingTest, Crashes) { std::abort(); }
TEST(CrashingTest, PassesToo) {}

TEST(LateFailureTest, Passes) { std::atexit(endWithFailure); }

}  // namespace
