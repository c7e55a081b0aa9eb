// How a program that runs in an emulator starts other programs. Two things that a console's kernel does are missing
// there: the kernel below the emulator refuses programs for the other processor, and a new process shares no memory
// with the one that made it, which is how posix_spawnp() learns that a program cannot be started. Both are given back
// here, so that the tests see what they see on a console; what cannot be started is still for the kernel to say.
#include <elf.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr const char* kEmulator[] = {OSTREL_EMULATOR};  // and its options
constexpr char kPreload[] = "LD_PRELOAD";
constexpr int kNotStarted = 127;

// Programs of this machine, a shell for one, could not load this library: each of ours is handed it by name instead.
std::string takeOwnPath() {
    const char* path = std::getenv(kPreload);
    const std::string taken = path == nullptr ? "" : path;
    unsetenv(kPreload);
    return taken;
}

const std::string sOwnPath = takeOwnPath();
int sCloseFrom = -1;  // the first file that a spawned program does not get: the one action that the launcher asks for

bool isForTheEmulator(const char* path) {
    if (access(path, X_OK) != 0) return false;  // the kernel gives the reason
    const int file = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) return false;
    Elf64_Ehdr header{};
    const bool whole = read(file, &header, sizeof header) == sizeof header;
    close(file);
    return whole && std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 && header.e_machine == EM_AARCH64;
}

int becomeEmulated(const char* path, char* const* arguments) {
    const std::string preload = std::string(kPreload) + "=" + sOwnPath;
    std::vector<const char*> words(std::begin(kEmulator), std::end(kEmulator));
    words.insert(words.end(), {"-E", preload.c_str(), "-0", arguments[0], path});
    for (char* const* argument = arguments + 1; *argument != nullptr; ++argument) words.push_back(*argument);
    words.push_back(nullptr);
    return execvp(kEmulator[0], const_cast<char* const*>(words.data()));
}

void takeSignals(const posix_spawnattr_t* attributes) {
    sigset_t signals;
    posix_spawnattr_getsigdefault(attributes, &signals);
    for (int number = 1; number < NSIG; ++number) {
        if (sigismember(&signals, number) == 1) std::signal(number, SIG_DFL);
    }
    posix_spawnattr_getsigmask(attributes, &signals);
    sigprocmask(SIG_SETMASK, &signals, nullptr);
}

// A name without a slash is looked for in the path. Returns why no program was found that can be started.
int becomeProgram(const std::string& name, char* const* arguments) {
    if (name.empty()) return ENOENT;
    if (name.find('/') != std::string::npos) {
        execv(name.c_str(), arguments);
        return errno;
    }
    int reason = ENOENT;
    const char* path = std::getenv("PATH");
    std::istringstream folders(path == nullptr ? "" : path);
    for (std::string folder; std::getline(folders, folder, ':');) {
        execv((folder + "/" + name).c_str(), arguments);
        if (errno != ENOENT) reason = errno;
    }
    return reason;
}

// The pipe closes by itself when the program starts.
[[noreturn]] void runSpawned(const char* name, const posix_spawnattr_t* attributes, char* const* arguments, int pipe) {
    if (attributes != nullptr) takeSignals(attributes);
    if (sCloseFrom >= 0 && pipe != sCloseFrom) pipe = dup3(pipe, sCloseFrom, O_CLOEXEC);
    if (sCloseFrom >= 0) closefrom(sCloseFrom + 1);
    const int reason = becomeProgram(name, arguments);
    if (write(pipe, &reason, sizeof reason) != sizeof reason) _exit(kNotStarted - 1);
    _exit(kNotStarted);
}

}  // namespace

extern "C" {

int execv(const char* path, char* const* arguments) noexcept {
    return isForTheEmulator(path) ? becomeEmulated(path, arguments) : execve(path, arguments, environ);
}

int posix_spawn_file_actions_addclosefrom_np(posix_spawn_file_actions_t* /*actions*/, int from) noexcept {
    sCloseFrom = from;
    return 0;
}

int posix_spawnp(pid_t* process, const char* name, const posix_spawn_file_actions_t* /*actions*/,
                 const posix_spawnattr_t* attributes, char* const* arguments, char* const* /*environment*/) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return errno;
    *process = fork();
    if (*process == 0) runSpawned(name, attributes, arguments, ends[1]);
    const int forked = *process < 0 ? errno : 0;
    close(ends[1]);
    int reason = 0;
    const bool failed = read(ends[0], &reason, sizeof reason) == sizeof reason;
    close(ends[0]);
    if (failed) waitpid(*process, nullptr, 0);
    return forked != 0 ? forked : reason;
}

}  // extern "C"
