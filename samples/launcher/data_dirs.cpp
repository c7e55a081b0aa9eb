#include "data_dirs.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace fs = std::filesystem;

namespace launcher {
namespace {

fs::path environmentPath(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

// A service may run without HOME; the user's record still knows it.
fs::path homeDirectory() {
    if (fs::path home = environmentPath("HOME"); home.is_absolute()) return home;
    const passwd* user = getpwuid(getuid());
    return user != nullptr ? user->pw_dir : "/";
}

fs::path stateHome() {
    const fs::path chosen = environmentPath("XDG_STATE_HOME");
    return chosen.is_absolute() ? chosen : homeDirectory() / ".local/state";
}

}  // namespace

DataDirs dataDirsFor(const fs::path& programDir) {
    const fs::path installed = (programDir / OSTREL_INSTALLED_DATA).lexically_normal();
    std::error_code ignored;
    if (fs::is_directory(installed / "theme", ignored)) return {installed / "theme", installed, true};
    return {OSTREL_THEME_DIR, OSTREL_SAMPLE_DIR, OSTREL_INSTALLED_ONLY != 0};
}

const DataDirs& dataDirs() {
    static const DataDirs kDirs = [] {
        std::error_code ignored;
        return dataDirsFor(fs::read_symlink("/proc/self/exe", ignored).parent_path());
    }();
    return kDirs;
}

std::string defaultRunFolder(const DataDirs& dirs) {
    return dirs.installed ? stateHome() / "ostrel-launcher" : fs::path(OSTREL_RUN_DIR);
}

}  // namespace launcher
