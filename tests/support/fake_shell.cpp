#include "support/fake_shell.h"

#include <dlfcn.h>

namespace ostreltest {

std::function<int(const std::string& command)>& fakeShell() {
    static std::function<int(const std::string& command)> shell;
    return shell;
}

}  // namespace ostreltest

// The library binds to this one, because a program's definitions come before those of its libraries.
extern "C" int system(const char* command) {
    if (ostreltest::fakeShell()) return ostreltest::fakeShell()(command);
    using System = int (*)(const char*);
    static const auto kReal = reinterpret_cast<System>(dlsym(RTLD_NEXT, "system"));
    return kReal(command);
}
