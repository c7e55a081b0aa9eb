// The sample launcher: reads the command line and runs. launcher.cpp shows the order of start-up.
#include <unistd.h>

#include <cstdio>
#include <filesystem>

#include "launcher.h"
#include "options.h"

namespace {

// A visit is played by a program of its own, which lies beside this one and moves the clock by itself.
int becomeVisitPlayer(char** argv) {
    const std::filesystem::path player = std::filesystem::read_symlink("/proc/self/exe").parent_path() / "ostrel-visit";
    execv(player.c_str(), argv);
    std::perror(player.c_str());
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    launcher::Options options;
    if (const int exitCode = launcher::readOptions(argc, argv, options); exitCode >= 0) return exitCode;
    if (!options.visitFile.empty()) return becomeVisitPlayer(argv);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);  // a log read through a pipe should not lag behind
    std::printf("%s\n", launcher::kKeyTable);
    return launcher::runLauncher(options);
}
