#include "run_program.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

namespace launcher {
namespace {

constexpr int kFirstOwnFile = 3;  // behind standard input, output and error

// What the new process is to be like. The structures of the system are plain data with an init and a destroy.
class SpawnSettings {
public:
    SpawnSettings() {
        posix_spawn_file_actions_init(&mFiles);
        posix_spawn_file_actions_addclosefrom_np(&mFiles, kFirstOwnFile);
        posix_spawnattr_init(&mAttributes);
        sigset_t signals;
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&mAttributes, &signals);
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&mAttributes, &signals);
        posix_spawnattr_setflags(&mAttributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    ~SpawnSettings() {
        posix_spawnattr_destroy(&mAttributes);
        posix_spawn_file_actions_destroy(&mFiles);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    // Returns 0 or the number of the error.
    int spawn(pid_t& process, char* const* arguments) const {
        return posix_spawnp(&process, arguments[0], &mFiles, &mAttributes, arguments, environ);
    }

private:
    posix_spawn_file_actions_t mFiles{};
    posix_spawnattr_t mAttributes{};
};

void waitFor(pid_t process) {
    while (waitpid(process, nullptr, 0) == -1 && errno == EINTR) {
    }
}

}  // namespace

std::string runProgram(const std::vector<std::string>& command) {
    if (command.empty()) return std::strerror(ENOENT);
    std::vector<std::string> texts = command;
    std::vector<char*> arguments;
    arguments.reserve(texts.size() + 1);
    for (std::string& text : texts) arguments.push_back(text.data());
    arguments.push_back(nullptr);

    pid_t process = 0;
    const int error = SpawnSettings().spawn(process, arguments.data());
    if (error != 0) return std::strerror(error);
    waitFor(process);
    return "";
}

}  // namespace launcher
