// A private console for each test: a copy of tests/device/handheld as the device root, and a working directory in it.
#pragma once
#include <gtest/gtest.h>

#include <string>

namespace ostreltest {

class TestDevice {
public:
    TestDevice();   // copies the fake console, makes it the device root and enters its working directory
    ~TestDevice();  // goes back, forgets the device root and removes the copy
    TestDevice(const TestDevice&) = delete;
    TestDevice& operator=(const TestDevice&) = delete;

    const std::string& root() const { return mRoot; }
    std::string workDir() const { return mRoot + "/work"; }

    // A path that begins with "/" is the device's; any other is relative to the working directory.
    std::string path(const std::string& name) const;
    void write(const std::string& name, const std::string& content) const;  // makes missing folders
    std::string read(const std::string& name) const;                        // "" when missing
    bool exists(const std::string& name) const;
    void remove(const std::string& name) const;
    void linkFont() const;  // the test font as regular.ttf in the working directory

private:
    std::string mRoot;
    std::string mPreviousDir;
};

// A fixture with a device of its own and a host as at start-up.
class DeviceTest : public ::testing::Test {
protected:
    DeviceTest();
    ~DeviceTest() override;
    TestDevice& device() { return mDevice; }

private:
    TestDevice mDevice;
};

}  // namespace ostreltest
