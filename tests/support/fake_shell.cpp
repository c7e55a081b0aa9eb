#include "support/fake_shell.h"

#include <cstdlib>

#include "support/next_function.h"

namespace ostreltest {

std::function<int(const std::string& command)>& fakeShell() {
    static std::function<int(const std::string& command)> shell;
    return shell;
}

}  // namespace ostreltest

// The library binds to this one, because a program's definitions come before those of its libraries.
extern "C" int system(const char* command) {
    if (ostreltest::fakeShell()) return ostreltest::fakeShell()(command);
    return ostreltest::nextFunction<decltype(system)>("system")(command);
}
