#include "support/test_device.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "ostrel/device_root.h"
#include "support/fake_host.h"

namespace fs = std::filesystem;

namespace ostreltest {

TestDevice::TestDevice() : mPreviousDir(fs::current_path().string()) {
    std::string pattern = (fs::temp_directory_path() / "ostrel-device-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no room for a device folder: " + pattern);
    mRoot = pattern;
    fs::copy(OSTREL_SOURCE_DIR "/tests/device/handheld", mRoot, fs::copy_options::recursive);
    fs::create_directories(workDir());
    fs::current_path(workDir());
    setDeviceRoot(mRoot.c_str());
}

TestDevice::~TestDevice() {
    setDeviceRoot(nullptr);
    std::error_code ignored;
    fs::current_path(mPreviousDir, ignored);
    fs::remove_all(mRoot, ignored);
}

std::string TestDevice::path(const std::string& name) const {
    return !name.empty() && name.front() == '/' ? mRoot + name : workDir() + "/" + name;
}

void TestDevice::write(const std::string& name, const std::string& content) const {
    const fs::path file = path(name);
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary | std::ios::trunc) << content;
}

std::string TestDevice::read(const std::string& name) const {
    std::ifstream file(path(name), std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

bool TestDevice::exists(const std::string& name) const { return fs::exists(path(name)); }

void TestDevice::remove(const std::string& name) const { fs::remove_all(path(name)); }

void TestDevice::linkFont() const { fs::create_symlink(OSTREL_TEST_FONT, path("regular.ttf")); }

DeviceTest::DeviceTest() { host().reset(); }

DeviceTest::~DeviceTest() { host().reset(); }

}  // namespace ostreltest
