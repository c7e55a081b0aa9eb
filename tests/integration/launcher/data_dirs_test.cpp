// Where the launcher looks for its own files, and where it works.
#include "data_dirs.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/test_device.h"

namespace {

using launcher::DataDirs;

class DataDirsTest : public ostreltest::DeviceTest {
protected:
    const DataDirs mInstalled{"/usr/share/ostrel-launcher/theme", "/usr/share/ostrel-launcher", true};
};

TEST_F(DataDirsTest, AProgramWithItsFolderUsesThat) {
    device().write("usr/share/ostrel-launcher/theme/.keep", "");
    const DataDirs dirs = launcher::dataDirsFor(device().workDir() + "/usr/bin");
    EXPECT_EQ(dirs.themes, device().workDir() + "/usr/share/ostrel-launcher/theme");
    EXPECT_EQ(dirs.data, device().workDir() + "/usr/share/ostrel-launcher");
    EXPECT_TRUE(dirs.installed);
}

TEST_F(DataDirsTest, AProgramWithoutItUsesTheSourceTree) {
    const DataDirs dirs = launcher::dataDirsFor(device().workDir() + "/usr/bin");
    EXPECT_EQ(dirs.themes, OSTREL_SOURCE_DIR "/theme");
    EXPECT_EQ(dirs.data, OSTREL_SAMPLE_DIR);
    EXPECT_FALSE(dirs.installed);
}

TEST_F(DataDirsTest, ABuiltLauncherWorksInTheSourceTree) {
    setenv("XDG_STATE_HOME", "/mine/state", 1);
    EXPECT_EQ(launcher::defaultRunFolder({"theme", "data", false}), OSTREL_SOURCE_DIR "/run");
}

TEST_F(DataDirsTest, AnInstalledLauncherWorksInTheUsersStateFolder) {
    setenv("HOME", "/home/player", 1);
    unsetenv("XDG_STATE_HOME");
    EXPECT_EQ(launcher::defaultRunFolder(mInstalled), "/home/player/.local/state/ostrel-launcher");
    setenv("XDG_STATE_HOME", "/mine/state", 1);
    EXPECT_EQ(launcher::defaultRunFolder(mInstalled), "/mine/state/ostrel-launcher");
}

TEST_F(DataDirsTest, ARelativeStateFolderDoesNotCount) {
    setenv("HOME", "/home/player", 1);
    setenv("XDG_STATE_HOME", "state", 1);
    EXPECT_EQ(launcher::defaultRunFolder(mInstalled), "/home/player/.local/state/ostrel-launcher");
}

TEST_F(DataDirsTest, WithoutHomeTheUsersRecordTellsIt) {
    unsetenv("HOME");
    unsetenv("XDG_STATE_HOME");
    const std::string folder = launcher::defaultRunFolder(mInstalled);
    EXPECT_EQ(folder.front(), '/');
    EXPECT_NE(folder.find("/.local/state/ostrel-launcher"), std::string::npos);
}

}  // namespace
