#include "support/fake_host.h"

ShmInfo* gShmInfo = &ostreltest::host().shm;
const char* gThemePath = nullptr;

int GetKeyShm(ShmInfo* shm, int key) { return shm->values.at(static_cast<std::size_t>(key)); }

void SetKeyShm(ShmInfo* shm, int key, int value) {
    shm->values.at(static_cast<std::size_t>(key)) = value;
    shm->writes.emplace_back(key, value);
}

bool file_filter(const char* name, const char* path) {
    const auto& filter = ostreltest::host().filter;
    return filter ? filter(name, path) : true;
}

TextMenuItem* file_handler(const char* name, const char* path, int type) {
    const auto& handler = ostreltest::host().handler;
    return handler ? handler(name, path, type) : nullptr;
}

void initJoyStick() { ++ostreltest::host().joystickStarts; }

namespace ostreltest {

FakeHost& host() {
    static FakeHost instance;
    return instance;
}

void FakeHost::setTheme(const std::string& directory) {
    themePath = directory;
    gThemePath = themePath.c_str();
}

void FakeHost::reset() {
    *this = FakeHost{};
    gShmInfo = &shm;
    gThemePath = nullptr;
}

}  // namespace ostreltest
