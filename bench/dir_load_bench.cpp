// Loading a directory of 20000 files into sorted rows, against listing and sorting their names alone.
#include <fcntl.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "ostrel/dir_browser.h"
#include "ostrel/menu_item.h"

namespace fs = std::filesystem;

namespace {

constexpr int kFiles = 20000;

class FullFolder {
public:
    FullFolder() : mPath(fs::temp_directory_path() / ("ostrel-bench-dir-" + std::to_string(getpid()))) {
        fs::create_directories(mPath);
        for (int i = 0; i < kFiles; ++i) {
            close(open((mPath / ("game " + std::to_string(i * 7919 % kFiles))).c_str(), O_CREAT | O_WRONLY, 0600));
        }
    }
    ~FullFolder() { fs::remove_all(mPath); }
    FullFolder(const FullFolder&) = delete;
    FullFolder& operator=(const FullFolder&) = delete;
    std::string path() const { return mPath.string(); }

private:
    fs::path mPath;
};

TextMenuItem* plainRow(const char* name, const char*, int) { return new TextMenuItem(name, nullptr, nullptr, false); }

class FolderFirst : public GroupedAction {
public:
    using GroupedAction::GroupedAction;
    int dowork(void*) override { return 0; }
};

TextMenuItem* groupedRow(const char* name, const char*, int type) {
    return new TextMenuItem(name, nullptr, new FolderFirst(type == DIR_ENTRY_FOLDER ? 1 : 0), true);
}

void loadDirectory(benchmark::State& state, TextMenuItem* (*factory)(const char*, const char*, int)) {
    const FullFolder folder;
    std::FILE* const report = stdout;
    stdout = std::fopen("/dev/null", "w");  // the library logs each directory
    DirBrowser browser(nullptr, factory);
    for (auto step : state) benchmark::DoNotOptimize(browser.LoadDir(folder.path().c_str(), nullptr));
    std::fclose(stdout);
    stdout = report;
}
BENCHMARK_CAPTURE(loadDirectory, withoutActions, plainRow)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(loadDirectory, withGroups, groupedRow)->Unit(benchmark::kMillisecond);

void sortNames(benchmark::State& state) {
    const FullFolder folder;
    for (auto step : state) {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder.path())) {
            if (entry.is_regular_file()) names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        benchmark::DoNotOptimize(names);
    }
}
BENCHMARK(sortNames)->Unit(benchmark::kMillisecond);

}  // namespace
