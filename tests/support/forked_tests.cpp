#include "support/forked_tests.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace ostreltest {
namespace {

constexpr char kForked[] = "OSTREL_FORKED_TESTS";
constexpr char kTests[] = "tests";
constexpr char kSuites[] = "suites";
constexpr char kShardCount[] = "GTEST_TOTAL_SHARDS";
constexpr char kShardIndex[] = "GTEST_SHARD_INDEX";
constexpr unsigned kPatienceInSeconds = 300;

// The tests that share a process.
struct Group {
    std::string name;
    std::vector<std::string> tests;
};

// How many tests of a child passed, told to the process that forked it: the child may die between any two of them.
class SharedCount {
public:
    SharedCount()
        : mMemory(mmap(nullptr, sizeof(std::size_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
        if (mMemory == MAP_FAILED) std::abort();
    }
    ~SharedCount() { munmap(mMemory, sizeof(std::size_t)); }
    SharedCount(const SharedCount&) = delete;
    SharedCount& operator=(const SharedCount&) = delete;

    std::size_t& operator*() const { return *static_cast<std::size_t*>(mMemory); }

private:
    void* const mMemory;
};

// None of the tests that it counts has more than the patience.
class Counter : public ::testing::EmptyTestEventListener {
public:
    explicit Counter(std::size_t& passed) : mPassed(passed) {}
    void OnTestStart(const ::testing::TestInfo& /*test*/) override { alarm(kPatienceInSeconds); }
    void OnTestEnd(const ::testing::TestInfo& test) override { mPassed += test.result()->Passed() ? 1 : 0; }

private:
    std::size_t& mPassed;
};

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

bool isAskedFor(const char* processes) {
    const char* asked = std::getenv(kForked);
    return asked != nullptr && std::strcmp(asked, processes) == 0;
}

std::size_t numberIn(const char* variable, std::size_t otherwise) {
    const char* text = std::getenv(variable);
    return text == nullptr ? otherwise : std::strtoul(text, nullptr, 10);
}

std::vector<Group> groupsOfThisShard() {
    const std::size_t shards = numberIn(kShardCount, 1);
    const std::size_t shard = numberIn(kShardIndex, 0);
    const bool bySuite = isAskedFor(kSuites);
    const ::testing::UnitTest& program = *::testing::UnitTest::GetInstance();
    const auto all = static_cast<std::size_t>(program.total_test_count());
    std::vector<Group> groups;
    std::size_t number = 0;
    for (int s = 0; s < program.total_test_suite_count(); ++s) {
        const ::testing::TestSuite& suite = *program.GetTestSuite(s);
        for (int t = 0; t < suite.total_test_count(); ++t, ++number) {
            if (number < all * shard / shards || number >= all * (shard + 1) / shards) continue;
            const std::string test = std::string(suite.name()) + "." + suite.GetTestInfo(t)->name();
            if (!bySuite) groups.push_back({test, {}});
            if (bySuite && (groups.empty() || groups.back().name != suite.name())) groups.push_back({suite.name(), {}});
            groups.back().tests.push_back(test);
        }
    }
    return groups;
}

// Ends the process.
[[noreturn]] void run(const Group& group, std::size_t& passed) {
    unsetenv(kForked);  // a death test starts the program once more, for itself alone
    unsetenv(kShardCount);
    unsetenv(kShardIndex);
    std::string filter;
    for (const std::string& test : group.tests) filter += test + ":";
    ::testing::GTEST_FLAG(filter) = filter;
    ::testing::UnitTest::GetInstance()->listeners().Append(new Counter(passed));  // which deletes it
    std::exit(RUN_ALL_TESTS());
}

// The signal that ended a child, if one did.
std::string reasonOf(int status) {
    return WIFSIGNALED(status) ? std::string(" (") + strsignal(WTERMSIG(status)) + ")" : "";
}

// How many tests of a group have not passed. Of a process that ended badly when all of its tests had passed it is one:
// memory that they lost shows only then.
std::size_t failuresOf(const Group& group, std::size_t passed, int status) {
    return std::max<std::size_t>(group.tests.size() - passed, status == 0 ? 0 : 1);
}

}  // namespace

bool areTestsForked() { return isAskedFor(kTests) || isAskedFor(kSuites); }

int runTestsForked() {
    const Output output;
    const SharedCount passed;
    std::size_t tests = 0;
    std::size_t failures = 0;
    for (const Group& group : groupsOfThisShard()) {
        output.clear();
        std::fflush(nullptr);  // else the child would write what is buffered once more
        *passed = 0;
        const pid_t child = fork();
        if (child == 0) {
            output.becomeStandard();
            run(group, *passed);
        }
        int status = 0;
        if (child < 0 || waitpid(child, &status, 0) != child) std::abort();
        tests += group.tests.size();
        const std::size_t failed = failuresOf(group, *passed, status);
        if (failed == 0) continue;
        failures += failed;
        output.print();
        std::printf("FAILED %s%s\n", group.name.c_str(), reasonOf(status).c_str());
    }
    std::printf("%zu tests, %zu failed\n", tests, failures);
    return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace ostreltest
