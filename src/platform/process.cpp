// The search for a running process. The status bar asks for Wi-Fi daemons in every frame that it draws, so a process
// costs three system calls below one open directory, and no memory is taken.
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

#include "ostrel/file_utils.h"
#include "ostrel/log.h"
#include "platform/device_paths.h"
#include "platform/handles.h"

namespace {

constexpr std::size_t kCommandBytes = 512;  // the start of a command line, with the zero byte behind it
constexpr char kCommandFile[] = "/cmdline";

bool isProcess(const dirent& entry) { return entry.d_name[0] >= '0' && entry.d_name[0] <= '9'; }

// The first argument of a process, "" when the process has gone meanwhile: zero bytes part the arguments, so the text
// ends where the first of them does.
void readProgram(int procDirectory, const char* process, char (&program)[kCommandBytes]) {
    program[0] = '\0';
    char path[sizeof dirent::d_name + sizeof kCommandFile];
    stpcpy(stpcpy(path, process), kCommandFile);
    const int file = openat(procDirectory, path, O_RDONLY | O_CLOEXEC);
    if (file < 0) return;
    const ssize_t bytes = read(file, program, kCommandBytes - 1);
    program[bytes > 0 ? bytes : 0] = '\0';
    close(file);
}

// Whether the name is met in the program's path and ends there: the character behind it is the end or a space. Only the
// first place where the name is met counts.
bool isProgram(const char* program, const char* name, std::size_t nameBytes, bool verbose) {
    if (std::strlen(program) < nameBytes) return false;
    const char* found = std::strstr(program, name);
    if (found == nullptr) return false;
    const int length = static_cast<int>(nameBytes);
    const int behind = static_cast<unsigned char>(found[nameBytes]);
    if (verbose) {
        tprintf("[check: %s] p=%s in %s, pnlen=%d, cmp %d, p[%d]=%d\n", name, found, program, length,
                std::strncmp(found, name, nameBytes), length, behind);
    }
    return behind == '\0' || behind == ' ';
}

int findProcess(DIR* processes, const char* name, bool verbose) {
    const std::size_t nameBytes = std::strlen(name);
    char program[kCommandBytes];
    while (const dirent* entry = readdir(processes)) {
        if (!isProcess(*entry)) continue;
        readProgram(dirfd(processes), entry->d_name, program);
        if (isProgram(program, name, nameBytes, verbose))
            return static_cast<int>(std::strtol(entry->d_name, nullptr, 10));
    }
    return -1;
}

}  // namespace

int check_process_exist(const char* name, int verbose) {
    if (name == nullptr) return -1;
    const ostrel::DirPtr processes{opendir(devicePath(ostrel::DevicePath::Proc))};
    if (!processes) {
        tprintf("can not open /proc\n");
        return -1;
    }
    const int pid = findProcess(processes.get(), name, verbose != 0);
    if (verbose != 0 && pid >= 0) tprintf("[check: %s] pid %d\n", name, pid);
    if (verbose != 0 && pid < 0) tprintf("[check: %s] fail\n", name);
    return pid;
}
