// The runner that forks tests: what it counts and says of tests that pass, fail and crash.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/program.h"

namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

struct Run {
    std::string said;
    int exitCode;
};

// The runner's run of the sample's tests, or of one quarter of them.
Run forkedBy(const std::string& processes, int quarter = -1) {
    std::vector<std::string> line{"OSTREL_FORKED_TESTS=" + processes};
    if (quarter >= 0) {
        line.insert(line.end(), {"GTEST_TOTAL_SHARDS=4", "GTEST_SHARD_INDEX=" + std::to_string(quarter)});
    }
    line.emplace_back(OSTREL_FORKED_SAMPLE);
    ostreltest::Program runner("/usr/bin/env", line);
    const int exitCode = runner.wait();
    return {runner.output(), exitCode};
}

TEST(ForkedTestsTest, EachTestHasAProcessOfItsOwn) {
    EXPECT_THAT(
        forkedBy("tests").said,
        AllOf(HasSubstr("\nFAILED CountingTest.PassesAsTheThird\n"), Not(HasSubstr("PassesAlone")),
              HasSubstr("FAILED CrashingTest.Crashes (Aborted)\n"), Not(HasSubstr("PassesAfter")),
              HasSubstr("\nFAILED LateFailureTest.PassesAndFailsAtTheEnd\n"), EndsWith("\n7 tests, 3 failed\n")));
}

// Of the suite that crashes the test that did and the one behind it.
TEST(ForkedTestsTest, EachSuiteHasAProcessOfItsOwn) {
    EXPECT_THAT(
        forkedBy("suites").said,
        AllOf(HasSubstr("[  FAILED  ] CountingTest.PassesAlone"), HasSubstr("\nFAILED CountingTest\n"),
              Not(HasSubstr("[  FAILED  ] CountingTest.PassesAsTheThird")),
              HasSubstr("FAILED CrashingTest (Aborted)\n"), Not(HasSubstr("[ RUN      ] CrashingTest.PassesAfter")),
              HasSubstr("\nFAILED LateFailureTest\n"), EndsWith("\n7 tests, 4 failed\n")));
}

TEST(ForkedTestsTest, AShardIsAnEqualPartOfTheTestsInTheirOrder) {
    EXPECT_EQ(forkedBy("suites", 0).said, "1 tests, 0 failed\n");
    EXPECT_THAT(forkedBy("suites", 1).said, EndsWith("\nFAILED CountingTest\n2 tests, 1 failed\n"));
    EXPECT_THAT(forkedBy("suites", 2).said, EndsWith("\nFAILED CrashingTest (Aborted)\n2 tests, 1 failed\n"));
    EXPECT_THAT(forkedBy("tests", 3).said,
                EndsWith("\nFAILED LateFailureTest.PassesAndFailsAtTheEnd\n2 tests, 1 failed\n"));
}

TEST(ForkedTestsTest, TheRunnerFailsWithItsTests) {
    EXPECT_EQ(forkedBy("tests", 0).exitCode, 0);
    EXPECT_EQ(forkedBy("tests", 1).exitCode, 1);
}

TEST(ForkedTestsTest, WithoutAWordThatItKnowsTheTestsShareTheProgramsOwnProcess) {
    EXPECT_THAT(forkedBy("").said, HasSubstr("[       OK ] CountingTest.PassesAsTheThird"));
}

}  // namespace
