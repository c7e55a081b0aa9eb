// The program around the library, as a test plays it: a recording status block, callbacks that a test can set, and a
// count of joystick start-ups.
#pragma once
#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ostrel/host.h"

struct ShmInfo {
    std::array<int, 21> values{};
    std::vector<std::pair<int, int>> writes;  // every SetKeyShm: key, value
};

namespace ostreltest {

struct FakeHost {
    ShmInfo shm;
    int joystickStarts = 0;
    std::string themePath;  // keeps the text that gThemePath points to
    std::function<bool(const char* name, const char* path)> filter;
    std::function<TextMenuItem*(const char* name, const char* path, int type)> handler;

    void setTheme(const std::string& directory);  // sets gThemePath to a copy of directory
    void reset();                                 // everything as at start-up, gThemePath null
};

FakeHost& host();

}  // namespace ostreltest
