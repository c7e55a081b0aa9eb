// The runner that forks tests: what it counts and says of tests that pass, fail, crash and skip.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "integration/launcher/program.h"

namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

struct Run {
    std::string said;
    int exitCode;
};

// The runner's run of the sample's tests, or of one quarter of them.
Run forkedBy(const std::string& what, int quarter = -1) {
    std::vector<std::string> line{"OSTREL_FORKED_TESTS=" + what};
    if (quarter >= 0) {
        line.insert(line.end(), {"GTEST_TOTAL_SHARDS=4", "GTEST_SHARD_INDEX=" + std::to_string(quarter)});
    }
    line.emplace_back(OSTREL_FORKED_SAMPLE);
    ostreltest::Program runner("/usr/bin/env", line);
    const int exitCode = runner.wait();
    return {runner.output(), exitCode};
}

TEST(ForkedTestsTest, EachTestHasAProcessOfItsOwn) {
    const std::string said = forkedBy("tests").said;
    EXPECT_THAT(said, HasSubstr("\nFAILED GoodTest.PassesBehindOthersOnly\n"));
    EXPECT_THAT(said, Not(HasSubstr("PassesAloneOnly")));
    EXPECT_THAT(said, HasSubstr("\nSKIPPED SkippingTest.IsSkipped\n"));
    EXPECT_THAT(said, HasSubstr("for a reason"));
    EXPECT_THAT(said, HasSubstr("FAILED (Aborted) CrashingTest.Crashes\n"));
    EXPECT_THAT(said, HasSubstr("\nFAILED LateFailureTest.Passes\n"));
    EXPECT_THAT(said, EndsWith("\n9 tests, 3 failed, 1 skipped\n"));
}

TEST(ForkedTestsTest, EachSuiteHasAProcessOfItsOwn) {
    const std::string said = forkedBy("suites").said;
    EXPECT_THAT(said, HasSubstr("[  FAILED  ] GoodTest.PassesAloneOnly"));
    EXPECT_THAT(said, Not(HasSubstr("FAILED  ] GoodTest.PassesBehindOthersOnly")));
    EXPECT_THAT(said, HasSubstr("\nFAILED GoodTest\n"));
    EXPECT_THAT(said, HasSubstr("\nSKIPPED SkippingTest\n"));
    EXPECT_THAT(said, HasSubstr("FAILED (Aborted) CrashingTest\n"));
    EXPECT_THAT(said, HasSubstr("\nFAILED LateFailureTest\n"));
    // Of the suite that crashes the test that did and the one behind it.
    EXPECT_THAT(said, EndsWith("\n9 tests, 4 failed, 1 skipped\n"));
}

TEST(ForkedTestsTest, AShardIsAnEqualPartOfTheTestsInTheirOrder) {
    EXPECT_THAT(forkedBy("suites", 0).said, EndsWith("2 tests, 1 failed, 0 skipped\n"));
    EXPECT_THAT(forkedBy("tests", 1).said, EndsWith("2 tests, 1 failed, 1 skipped\n"));
    EXPECT_EQ(forkedBy("suites", 2).said, "2 tests, 0 failed, 0 skipped\n");
    EXPECT_THAT(forkedBy("suites", 3).said, EndsWith("3 tests, 3 failed, 0 skipped\n"));
}

TEST(ForkedTestsTest, TheRunnerFailsWithItsTests) {
    EXPECT_EQ(forkedBy("tests", 1).exitCode, 1);
    EXPECT_EQ(forkedBy("tests", 2).exitCode, 0);
}

}  // namespace
