// Loading a directory of 20000 files into sorted rows, against listing and sorting their names alone, and against the
// usual way to do so: scandir and a stat of each entry.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
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

// Keeps the library's log out of the benchmark's report while it lives: it logs each directory.
class Quiet {
public:
    Quiet() : mReport(stdout) { stdout = std::fopen("/dev/null", "w"); }
    ~Quiet() {
        std::fclose(stdout);
        stdout = mReport;
    }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

private:
    std::FILE* mReport;
};

void loadDirectory(benchmark::State& state, TextMenuItem* (*factory)(const char*, const char*, int)) {
    const FullFolder folder;
    const Quiet quiet;
    DirBrowser browser(nullptr, factory);
    for (auto step : state) benchmark::DoNotOptimize(browser.LoadDir(folder.path().c_str(), nullptr));
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

void scanAndStat(const std::string& folder) {
    dirent** entries = nullptr;
    const int count = scandir(folder.c_str(), &entries, nullptr, alphasort);
    for (int i = 0; i < count; ++i) {
        struct stat status {};
        benchmark::DoNotOptimize(stat((folder + "/" + entries[i]->d_name).c_str(), &status));
        std::free(entries[i]);
    }
    std::free(entries);
}

double secondsOf(const std::function<void()>& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

// Both in turn, so that a busy machine slows both: "ratio" is the library's time over the other's, at most 0.8.
void loadAgainstScanAndStat(benchmark::State& state) {
    const FullFolder folder;
    const Quiet quiet;
    DirBrowser browser(nullptr, plainRow);
    double loading = 0;
    double scanning = 0;
    for (auto step : state) {
        loading += secondsOf([&] { benchmark::DoNotOptimize(browser.LoadDir(folder.path().c_str(), nullptr)); });
        scanning += secondsOf([&] { scanAndStat(folder.path()); });
    }
    state.counters["ratio"] = loading / scanning;
}
BENCHMARK(loadAgainstScanAndStat)->Unit(benchmark::kMillisecond)->Iterations(30);

}  // namespace
