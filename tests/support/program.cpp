#include "support/program.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace ostreltest {
namespace {

[[noreturn]] void become(const std::string& path, std::vector<std::string>& arguments, int output) {
    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(path.c_str()));
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    std::signal(SIGINT, SIG_DFL);  // a shell starts its background jobs with it ignored
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    execv(path.c_str(), argv.data());
    _exit(127);
}

}  // namespace

Program::Program(const std::string& path, std::vector<std::string> arguments) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    mProcess = fork();
    if (mProcess == 0) become(path, arguments, ends[1]);
    close(ends[1]);
    mPipe = ends[0];
}

Program::~Program() {
    if (mProcess > 0) {
        kill(mProcess, SIGKILL);
        waitpid(mProcess, nullptr, 0);
    }
    close(mPipe);
}

bool Program::readMore() {
    char buffer[4096];
    const ssize_t count = read(mPipe, buffer, sizeof(buffer));
    if (count <= 0) return false;
    mOutput.append(buffer, static_cast<std::size_t>(count));
    return true;
}

bool Program::readUntil(const std::string& text) {
    while (mOutput.find(text) == std::string::npos) {
        if (!readMore()) return false;
    }
    return true;
}

void Program::signal(int number) const { kill(mProcess, number); }

int Program::wait() {
    while (readMore()) {
    }
    int status = 0;
    waitpid(mProcess, &status, 0);
    mProcess = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace ostreltest
