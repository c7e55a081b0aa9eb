// The command line of the sample launcher.
#include "options.h"

#include <getopt.h>

#include <gtest/gtest.h>

#include "support/log_capture.h"
#include "support/test_device.h"

namespace {

using launcher::Options;
using ostreltest::LogCapture;

class OptionsTest : public ostreltest::DeviceTest {
protected:
    int read(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "ostrel-launcher");
        std::vector<char*> argv;
        for (std::string& argument : arguments) argv.push_back(argument.data());
        argv.push_back(nullptr);
        optind = 0;  // getopt starts anew
        mOptions = Options{};
        return launcher::readOptions(static_cast<int>(arguments.size()), argv.data(), mOptions);
    }
    Options mOptions;
};

TEST_F(OptionsTest, WithoutAnyTheSampleGamesAreShownAsTheSettingsSay) {
    EXPECT_EQ(read({}), -1);
    EXPECT_EQ(mOptions.directory, OSTREL_SAMPLE_DIR "/games");
    EXPECT_EQ(mOptions.themeDir, "");
    EXPECT_EQ(mOptions.language, "");
    EXPECT_EQ(mOptions.runFolder, OSTREL_SOURCE_DIR "/run");
    EXPECT_EQ(mOptions.deviceRoot, OSTREL_SOURCE_DIR "/run/device");
    EXPECT_FALSE(mOptions.rotate);
}

TEST_F(OptionsTest, DirectoriesBecomeAbsoluteAndTheThemeEndsInASlash) {
    device().write("mine/skin/.keep", "");
    device().write("games/.keep", "");
    EXPECT_EQ(read({"--theme", "mine", "games"}), -1);
    EXPECT_EQ(mOptions.themeDir, device().workDir() + "/mine/");
    EXPECT_EQ(mOptions.directory, device().workDir() + "/games");
}

TEST_F(OptionsTest, TheDeviceAndTheShotsFollowTheRunFolder) {
    EXPECT_EQ(read({"--run", "work", "--visit", "some/tour.visit"}), -1);
    EXPECT_EQ(mOptions.deviceRoot, device().workDir() + "/work/device");
    EXPECT_EQ(mOptions.shotFolder, device().workDir() + "/work/shots/tour");
}

TEST_F(OptionsTest, ADeviceOfSlashIsTheMachineItself) {
    EXPECT_EQ(read({"--device", "/"}), -1);
    EXPECT_EQ(mOptions.deviceRoot, "");
}

TEST_F(OptionsTest, TheRestIsTakenAsGiven) {
    EXPECT_EQ(read({"--lang", "zh.lang", "--rotate", "--search", "zg", "--search", "star", "--log"}), -1);
    EXPECT_EQ(mOptions.language, "zh.lang");
    EXPECT_TRUE(mOptions.rotate);
    EXPECT_EQ(mOptions.searchWords, (std::vector<std::string>{"zg", "star"}));
    EXPECT_TRUE(mOptions.logToTerminal);
}

TEST_F(OptionsTest, AnUnknownOptionAndASecondDirectoryAreRefused) {
    const LogCapture quiet(LogCapture::Stream::Error);
    EXPECT_EQ(read({"--nonsense"}), 2);
    EXPECT_EQ(read({"/", "/tmp"}), 2);
}

}  // namespace
