#include "support/forked_tests.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace ostreltest {
namespace {

constexpr char kForked[] = "OSTREL_FORKED_TESTS";
constexpr char kShardCount[] = "GTEST_TOTAL_SHARDS";
constexpr char kShardIndex[] = "GTEST_SHARD_INDEX";
constexpr int kSkipped = 77;
constexpr unsigned kPatienceInSeconds = 300;

// What one child after the other writes to its standard output and error.
class Output {
public:
    Output() : mFile(memfd_create("output", MFD_CLOEXEC)) {
        if (mFile < 0) std::abort();
    }
    ~Output() { close(mFile); }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void becomeStandard() const {
        dup2(mFile, STDOUT_FILENO);
        dup2(mFile, STDERR_FILENO);
    }
    void clear() const {
        if (ftruncate(mFile, 0) != 0 || lseek(mFile, 0, SEEK_SET) != 0) std::abort();
    }
    void print() const {
        char part[4096];
        off_t at = 0;
        for (ssize_t size; (size = pread(mFile, part, sizeof part, at)) > 0; at += size) {
            std::fwrite(part, 1, static_cast<std::size_t>(size), stdout);
        }
    }

private:
    const int mFile;
};

std::size_t numberIn(const char* variable, std::size_t otherwise) {
    const char* text = std::getenv(variable);
    return text == nullptr ? otherwise : std::strtoul(text, nullptr, 10);
}

std::vector<std::string> testsOfThisShard() {
    const std::size_t shards = numberIn(kShardCount, 1);
    const std::size_t shard = numberIn(kShardIndex, 0);
    std::vector<std::string> names;
    std::size_t number = 0;
    const ::testing::UnitTest& program = *::testing::UnitTest::GetInstance();
    for (int s = 0; s < program.total_test_suite_count(); ++s) {
        const ::testing::TestSuite& suite = *program.GetTestSuite(s);
        for (int t = 0; t < suite.total_test_count(); ++t) {
            if (number++ % shards != shard) continue;
            names.push_back(std::string(suite.name()) + "." + suite.GetTestInfo(t)->name());
        }
    }
    return names;
}

// Ends the process.
[[noreturn]] void run(const std::string& test) {
    alarm(kPatienceInSeconds);
    unsetenv(kForked);  // a death test starts the program once more, for itself alone
    unsetenv(kShardCount);
    unsetenv(kShardIndex);
    ::testing::GTEST_FLAG(filter) = test;
    const int failed = RUN_ALL_TESTS();
    if (::testing::UnitTest::GetInstance()->test_to_run_count() != 1) std::abort();
    const bool skipped = ::testing::UnitTest::GetInstance()->skipped_test_count() > 0;
    std::exit(failed == 0 && skipped ? kSkipped : failed);
}

// Why a child is no success; empty if it is one.
std::string complaint(int status) {
    if (WIFSIGNALED(status)) return "FAILED (" + std::string(strsignal(WTERMSIG(status))) + ")";
    if (WEXITSTATUS(status) == kSkipped) return "SKIPPED";
    return WEXITSTATUS(status) == EXIT_SUCCESS ? "" : "FAILED";
}

}  // namespace

bool areTestsForked() { return std::getenv(kForked) != nullptr; }

int runTestsForked() {
    const Output output;
    int failed = 0;
    int skipped = 0;
    const std::vector<std::string> tests = testsOfThisShard();
    for (const std::string& test : tests) {
        output.clear();
        std::fflush(nullptr);  // else the child would write what is buffered once more
        const pid_t child = fork();
        if (child == 0) {
            output.becomeStandard();
            run(test);
        }
        int status = 0;
        if (child < 0 || waitpid(child, &status, 0) != child) std::abort();
        const std::string said = complaint(status);
        if (said.empty()) continue;
        ++(said == "SKIPPED" ? skipped : failed);
        output.print();
        std::printf("%s %s\n", said.c_str(), test.c_str());
    }
    std::printf("%zu tests, %d failed, %d skipped\n", tests.size(), failed, skipped);
    return failed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace ostreltest
