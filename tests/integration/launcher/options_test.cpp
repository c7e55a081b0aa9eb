// The command line of the sample launcher.
#include "options.h"

#include <getopt.h>

#include <gtest/gtest.h>

#include <filesystem>

#include "support/child_process.h"
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
    EXPECT_EQ(mOptions.gamesDir, OSTREL_SAMPLE_DIR "/games");
    EXPECT_EQ(mOptions.themeDir, "");
    EXPECT_EQ(mOptions.language, "");
    EXPECT_EQ(mOptions.searchWord, "");
    EXPECT_EQ(mOptions.visitFile, "");
    EXPECT_EQ(mOptions.runFolder, OSTREL_SOURCE_DIR "/run");
    EXPECT_EQ(mOptions.deviceRoot, OSTREL_SOURCE_DIR "/run/device");
    EXPECT_FALSE(mOptions.deviceGiven);
    EXPECT_FALSE(mOptions.rotate);
    EXPECT_FALSE(mOptions.logToTerminal);
    EXPECT_FALSE(mOptions.startAfresh);
}

TEST_F(OptionsTest, GamesMayLieElsewhere) {
    device().write("mine/.keep", "");
    EXPECT_EQ(read({"--games", "mine/"}), -1);
    EXPECT_EQ(mOptions.gamesDir, device().workDir() + "/mine");
    EXPECT_FALSE(mOptions.startAfresh);
}

TEST_F(OptionsTest, ADirectoryIsListedFromItsFirstRow) {
    device().write("mine/.keep", "");
    EXPECT_EQ(read({"mine"}), -1);
    EXPECT_EQ(mOptions.gamesDir, device().workDir() + "/mine");
    EXPECT_TRUE(mOptions.startAfresh);
}

TEST_F(OptionsTest, AThemeIsAFolderOrANameOfTheLaunchersOwn) {
    device().write("mine/skin/.keep", "");
    EXPECT_EQ(read({"--theme", "mine"}), -1);
    EXPECT_EQ(mOptions.themeDir, device().workDir() + "/mine/");
    EXPECT_EQ(read({"--theme", "light"}), -1);
    EXPECT_EQ(mOptions.themeDir, OSTREL_SOURCE_DIR "/theme/light/");
}

TEST_F(OptionsTest, AFolderGoesBeforeTheLaunchersOwnThemeOfItsName) {
    device().write("light/skin/.keep", "");
    EXPECT_EQ(read({"--theme", "light"}), -1);
    EXPECT_EQ(mOptions.themeDir, device().workDir() + "/light/");
}

TEST_F(OptionsTest, TheDeviceAndTheShotsFollowTheRunFolder) {
    EXPECT_EQ(read({"--run", "work", "--visit", "some/tour.visit"}), -1);
    EXPECT_EQ(mOptions.visitFile, device().workDir() + "/some/tour.visit");
    EXPECT_EQ(mOptions.deviceRoot, device().workDir() + "/work/device");
    EXPECT_EQ(mOptions.shotFolder, device().workDir() + "/work/shots/tour");
}

TEST_F(OptionsTest, ADeviceAndAFolderForShotsMayBeChosen) {
    EXPECT_EQ(read({"--device", "console", "--shots", "pictures"}), -1);
    EXPECT_EQ(mOptions.deviceRoot, device().workDir() + "/console");
    EXPECT_TRUE(mOptions.deviceGiven);
    EXPECT_EQ(mOptions.shotFolder, device().workDir() + "/pictures");
}

TEST_F(OptionsTest, ADeviceOfSlashIsTheMachineItself) {
    EXPECT_EQ(read({"--device", "/"}), -1);
    EXPECT_EQ(mOptions.deviceRoot, "");
    EXPECT_TRUE(mOptions.deviceGiven);
}

TEST_F(OptionsTest, TheRestIsTakenAsGiven) {
    EXPECT_EQ(read({"--lang", "ch.lang", "--rotate", "--search", "zg", "--log"}), -1);
    EXPECT_EQ(mOptions.language, "ch.lang");
    EXPECT_TRUE(mOptions.rotate);
    EXPECT_EQ(mOptions.searchWord, "zg");
    EXPECT_TRUE(mOptions.logToTerminal);
}

TEST_F(OptionsTest, TheLastOfTwoCounts) {
    EXPECT_EQ(read({"--lang", "ch.lang", "--lang=ko.lang"}), -1);
    EXPECT_EQ(mOptions.language, "ko.lang");
}

TEST_F(OptionsTest, HelpEndsWithZero) {
    const LogCapture quiet;
    EXPECT_EQ(read({"--help"}), 0);
}

TEST_F(OptionsTest, AnUnknownOptionAndASecondDirectoryAreRefused) {
    const LogCapture quiet(LogCapture::Stream::Error);
    EXPECT_EQ(read({"--nonsense"}), 2);
    EXPECT_EQ(read({"--theme"}), 2);
    EXPECT_EQ(read({"/", "/tmp"}), 2);
}

TEST_F(OptionsTest, FoldersThatAreNoneAreNamed) {
    LogCapture said(LogCapture::Stream::Error);
    EXPECT_EQ(read({"--games", "/no/such/place"}), 2);
    EXPECT_EQ(read({"--theme", "/no/such/theme"}), 2);
    EXPECT_EQ(said.text(), "This is no directory: /no/such/place\nNo skin/ in the theme: /no/such/theme/\n");
}

TEST_F(OptionsTest, AnEmptyPathIsRefused) {
    for (const char* option : {"--games=", "--theme=", "--device=", "--run=", "--visit=", "--shots=", ""}) {
        LogCapture said(LogCapture::Stream::Error);
        EXPECT_EQ(read({option}), 2) << option;
        EXPECT_EQ(said.text(), "This is no path: \"\"\n") << option;
    }
}

TEST_F(OptionsTest, AnEmptyLanguageOrWordCountsAsNone) {
    EXPECT_EQ(read({"--lang", "", "--search", ""}), -1);
    EXPECT_EQ(mOptions.language, "");
    EXPECT_EQ(mOptions.searchWord, "");
}

TEST_F(OptionsTest, ARelativePathInAFolderThatIsGoneIsRefused) {
    EXPECT_TRUE(ostreltest::passesInChild([this] {
        LogCapture said(LogCapture::Stream::Error);
        device().write("gone/.keep", "");
        std::filesystem::current_path(device().path("gone"));
        std::filesystem::remove_all(device().path("gone"));
        EXPECT_EQ(read({"--run", "work"}), 2);
        EXPECT_EQ(said.text(), "This is no path: \"work\"\n");
    }));
}

TEST_F(OptionsTest, AThemeThatCannotBeLookedForHasNoSkin) {
    LogCapture said(LogCapture::Stream::Error);
    const std::string tooLong(300, 'x');
    EXPECT_EQ(read({"--theme", tooLong}), 2);
    EXPECT_EQ(said.text(), "No skin/ in the theme: " + device().workDir() + "/" + tooLong + "/\n");
}

}  // namespace
