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
constexpr char kBySuite[] = "suites";
constexpr char kShardCount[] = "GTEST_TOTAL_SHARDS";
constexpr char kShardIndex[] = "GTEST_SHARD_INDEX";
constexpr unsigned kPatienceInSeconds = 300;

// The tests that share a process.
struct Group {
    std::string name;
    std::vector<std::string> tests;
};

// What a child counts for the process that forked it: it may die between any two tests.
struct Counts {
    std::size_t ended = 0;
    int failed = 0;
    int skipped = 0;
};

class SharedCounts {
public:
    SharedCounts() : mMemory(mmap(nullptr, sizeof(Counts), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
        if (mMemory == MAP_FAILED) std::abort();
    }
    ~SharedCounts() { munmap(mMemory, sizeof(Counts)); }
    SharedCounts(const SharedCounts&) = delete;
    SharedCounts& operator=(const SharedCounts&) = delete;

    Counts& operator*() const { return *static_cast<Counts*>(mMemory); }

private:
    void* const mMemory;
};

// Counts the tests as they end. None has more than the patience.
class Counter : public ::testing::EmptyTestEventListener {
public:
    explicit Counter(Counts& counts) : mCounts(counts) {}
    void OnTestStart(const ::testing::TestInfo& /*test*/) override { alarm(kPatienceInSeconds); }
    void OnTestEnd(const ::testing::TestInfo& test) override {
        ++mCounts.ended;
        mCounts.failed += test.result()->Failed() ? 1 : 0;
        mCounts.skipped += test.result()->Skipped() ? 1 : 0;
    }

private:
    Counts& mCounts;
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

bool isAskedFor(const char* way) {
    const char* asked = std::getenv(kForked);
    return asked != nullptr && std::strcmp(asked, way) == 0;
}

std::size_t numberIn(const char* variable, std::size_t otherwise) {
    const char* text = std::getenv(variable);
    return text == nullptr ? otherwise : std::strtoul(text, nullptr, 10);
}

std::vector<Group> groupsOfThisShard() {
    const std::size_t shards = numberIn(kShardCount, 1);
    const std::size_t shard = numberIn(kShardIndex, 0);
    const bool bySuite = isAskedFor(kBySuite);
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
[[noreturn]] void run(const Group& group, Counts& counts) {
    unsetenv(kForked);  // a death test starts the program once more, for itself alone
    unsetenv(kShardCount);
    unsetenv(kShardIndex);
    std::string filter;
    for (const std::string& test : group.tests) filter += test + ":";
    ::testing::GTEST_FLAG(filter) = filter;
    ::testing::UnitTest::GetInstance()->listeners().Append(new Counter(counts));  // which deletes it
    std::exit(RUN_ALL_TESTS());
}

// What is wrong with a group; empty if nothing is. Tests that never ended count as failed, and so does one of a process
// that ended badly when all its tests had ended well: memory that they lost shows only then.
std::string complaint(int status, const Group& group, Counts& counts) {
    counts.failed += static_cast<int>(group.tests.size() - counts.ended);
    if (status != 0 && counts.failed == 0) counts.failed = 1;
    if (WIFSIGNALED(status)) return std::string("FAILED (") + strsignal(WTERMSIG(status)) + ")";
    if (counts.failed > 0) return "FAILED";
    return counts.skipped > 0 ? "SKIPPED" : "";
}

}  // namespace

bool areTestsForked() { return std::getenv(kForked) != nullptr; }

int runTestsForked() {
    const Output output;
    const SharedCounts shared;
    Counts all;
    std::size_t tests = 0;
    for (const Group& group : groupsOfThisShard()) {
        output.clear();
        std::fflush(nullptr);  // else the child would write what is buffered once more
        *shared = {};
        const pid_t child = fork();
        if (child == 0) {
            output.becomeStandard();
            run(group, *shared);
        }
        int status = 0;
        if (child < 0 || waitpid(child, &status, 0) != child) std::abort();
        const std::string said = complaint(status, group, *shared);
        tests += group.tests.size();
        all.failed += (*shared).failed;
        all.skipped += (*shared).skipped;
        if (said.empty()) continue;
        output.print();
        std::printf("%s %s\n", said.c_str(), group.name.c_str());
    }
    std::printf("%zu tests, %d failed, %d skipped\n", tests, all.failed, all.skipped);
    return all.failed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace ostreltest
