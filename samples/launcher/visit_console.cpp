#include "visit_console.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "ostrel/wifi.h"
#include "run_folder.h"

namespace fs = std::filesystem;

namespace launcher {
namespace {

// The library asks for the status and then for the signal; one answer holds both.
constexpr const char* kWpaCli =
    "#!/bin/sh\n"
    "[ \"$5\" = status ] && cat \"${0%/bin/*}/tmp/wpa_answer\" 2>/dev/null\n";

bool writeFile(const fs::path& path, const std::string& content) {
    std::error_code ignored;
    fs::create_directories(path.parent_path(), ignored);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << content;
    file.close();
    if (file) return true;
    std::fprintf(stderr, "%s: cannot be written\n", path.c_str());
    return false;
}

bool removeFile(const fs::path& path) {
    std::error_code error;
    fs::remove_all(path, error);
    if (error) std::fprintf(stderr, "%s: %s\n", path.c_str(), error.message().c_str());
    return !error;
}

}  // namespace

bool makeFreshConsole(const std::string& root) {
    const fs::path tool = fs::path(root) / "bin/wpa_cli";
    if (!removeFile(root) || !makeDevice(root) || !writeFile(tool, kWpaCli)) return false;
    std::error_code error;
    fs::permissions(tool, fs::perms::owner_exec, fs::perm_options::add, error);
    return !error;
}

void useConsolePrograms(const std::string& root) {
    const char* path = std::getenv("PATH");
    setenv("PATH", (root + "/bin:" + (path != nullptr ? path : "/usr/bin:/bin")).c_str(), 1);
}

bool changeConsole(const std::string& root, const VisitStep& step) {
    const fs::path path = fs::path(root) / step.name;
    return step.kind == VisitStep::Kind::Remove ? removeFile(path) : writeFile(path, step.text + "\n");
}

void refreshWifi() { g_wpa_msg = rx_get_wpa_msg(); }

}  // namespace launcher
