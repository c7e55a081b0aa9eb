#include "support/child_process.h"

#include <grp.h>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace ostreltest {
namespace {

constexpr uid_t kNobody = 65534;

[[noreturn]] void runChild(const std::function<void()>& body, ChildUser user) {
    if (user == ChildUser::Unprivileged && geteuid() == 0) {
        const bool given = setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0;
        EXPECT_TRUE(given) << "cannot become an unprivileged user";
    }
    if (user == ChildUser::WithoutOverride && geteuid() == 0) {
        const bool dropped =
            prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE) == 0 && prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH) == 0;
        EXPECT_TRUE(dropped) << "cannot give up root's right to read everything";
    }
    body();
    std::exit(::testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
}

}  // namespace

::testing::AssertionResult passesInChild(const std::function<void()>& body, ChildUser user) {
    std::fflush(nullptr);  // else the child would write what is buffered once more
    const pid_t child = fork();
    if (child < 0) return ::testing::AssertionFailure() << "cannot start a child process";
    if (child == 0) runChild(body, user);
    int status = 0;
    if (waitpid(child, &status, 0) != child) return ::testing::AssertionFailure() << "lost the child process";
    if (WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "the child process failed with status " << status;
}

}  // namespace ostreltest
