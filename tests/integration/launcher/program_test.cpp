// The launcher as a user starts it: what it says, what it refuses, and how it ends.
#include "support/program.h"

#include <unistd.h>

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "support/test_device.h"

namespace fs = std::filesystem;
using ostreltest::Program;

namespace {

class LauncherProgramTest : public ostreltest::DeviceTest {
protected:
    std::string runFolder() { return device().workDir() + "/run"; }
    std::vector<std::string> inRunFolder(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--run", runFolder()});
        return arguments;
    }
};

TEST_F(LauncherProgramTest, HelpNamesEveryOptionAndEndsWithZero) {
    Program launcher(OSTREL_LAUNCHER, {"--help"});
    EXPECT_EQ(launcher.wait(), 0);
    for (const char* option : {"--games", "--theme", "--lang", "--rotate", "--search", "--device", "--run", "--visit",
                               "--shots", "--log", "[DIRECTORY]"}) {
        EXPECT_NE(launcher.output().find(option), std::string::npos) << option;
    }
}

TEST_F(LauncherProgramTest, HelpNamesTheKeyboardKeyOfEveryButton) {
    Program launcher(OSTREL_LAUNCHER, {"--help"});
    launcher.wait();
    for (const char* key :
         {"arrows", "Left, Right", "Space", "left Ctrl", "left Shift", "left Alt", "Tab, Backspace", "right Ctrl"}) {
        EXPECT_NE(launcher.output().find(key), std::string::npos) << key;
    }
}

TEST_F(LauncherProgramTest, ADirectoryThatIsNoneEndsWithTwo) {
    Program launcher(OSTREL_LAUNCHER, {"/no/such/place"});
    EXPECT_EQ(launcher.wait(), 2);
    EXPECT_EQ(launcher.output(), "This is no directory: /no/such/place\n");
}

TEST_F(LauncherProgramTest, AThemeWithoutSkinEndsWithTwo) {
    Program launcher(OSTREL_LAUNCHER, {"--theme", "/no/such/theme"});
    EXPECT_EQ(launcher.wait(), 2);
    EXPECT_EQ(launcher.output(), "No skin/ in the theme: /no/such/theme/\n");
}

TEST_F(LauncherProgramTest, WithoutAVideoDriverItSaysSoAndEndsWithOne) {
    setenv("SDL_VIDEODRIVER", "nothing-of-the-kind", 1);
    Program launcher(OSTREL_LAUNCHER, inRunFolder({}));
    EXPECT_EQ(launcher.wait(), 1);
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    EXPECT_NE(launcher.output().find("No window: "), std::string::npos) << launcher.output();
}

TEST_F(LauncherProgramTest, StartingItPrintsTheKeys) {
    Program launcher(OSTREL_LAUNCHER, inRunFolder({}));
    EXPECT_TRUE(launcher.readUntil("right Ctrl"));
}

// "runWindows" is the library's first line of the main loop: from then on the windows live.
TEST_F(LauncherProgramTest, SigtermEndsTheLoopCleanly) {
    Program launcher(OSTREL_LAUNCHER, inRunFolder({"--log"}));
    ASSERT_TRUE(launcher.readUntil("init check_repeat_thread\n")) << launcher.output();
    launcher.signal(SIGTERM);
    EXPECT_EQ(launcher.wait(), 0);
    EXPECT_NE(launcher.output().find("2 window to free\n"), std::string::npos) << launcher.output();
    EXPECT_NE(launcher.output().find("deinit check_repeat_thread\n"), std::string::npos);
}

TEST_F(LauncherProgramTest, SigintEndsTheLoopCleanly) {
    Program launcher(OSTREL_LAUNCHER, inRunFolder({"--log"}));
    ASSERT_TRUE(launcher.readUntil("init check_repeat_thread\n")) << launcher.output();
    launcher.signal(SIGINT);
    EXPECT_EQ(launcher.wait(), 0);
}

TEST_F(LauncherProgramTest, EverythingItWritesLiesInItsRunFolder) {
    device().write("empty.visit", "wait 1\n");
    Program visit(OSTREL_VISIT, inRunFolder({"--visit", device().workDir() + "/empty.visit"}));
    EXPECT_EQ(visit.wait(), 0) << visit.output();
    EXPECT_TRUE(fs::exists(runFolder() + "/regular.ttf"));
    EXPECT_TRUE(fs::exists(runFolder() + "/lang/en.lang"));
    EXPECT_TRUE(fs::is_directory(runFolder() + "/visit-device/mnt/UDISK"));
}

TEST_F(LauncherProgramTest, TheLauncherHandsAVisitToThePlayerBesideIt) {
    device().write("one.visit", "shot one\n");
    Program launcher(OSTREL_LAUNCHER,
                     inRunFolder({"--visit", device().workDir() + "/one.visit", "--shots", device().workDir() + "/s"}));
    EXPECT_EQ(launcher.wait(), 0) << launcher.output();
    EXPECT_TRUE(device().exists("s/one.png"));
}

TEST_F(LauncherProgramTest, AnEmptyFolderIsVisitedToTheEnd) {
    device().write("empty/.keep", "");
    Program visit(OSTREL_VISIT, inRunFolder({"--visit", OSTREL_SAMPLE_DIR "/visits/any_folder.visit", "--shots",
                                             device().workDir() + "/s", device().workDir() + "/empty"}));
    EXPECT_EQ(visit.wait(), 0) << visit.output();
    EXPECT_TRUE(device().exists("s/06-typed.png"));
}

// Names that are no UTF-8, an unreadable link, a file without ending, one of many bytes.
TEST_F(LauncherProgramTest, AFolderOfOddFilesIsVisitedToTheEnd) {
    device().write("odd/\xFF\xFE.game", "");
    device().write("odd/plain", std::string(5000, 'a'));
    device().write("odd/.hidden", "");
    device().write("odd/binary.game", std::string("\0\1\2", 3));
    fs::create_symlink("/no/such/target", device().path("odd/broken"));
    Program visit(OSTREL_VISIT, inRunFolder({"--visit", OSTREL_SAMPLE_DIR "/visits/any_folder.visit", "--shots",
                                             device().workDir() + "/s", device().workDir() + "/odd"}));
    EXPECT_EQ(visit.wait(), 0) << visit.output();
    EXPECT_TRUE(device().exists("s/06-typed.png"));
}

TEST_F(LauncherProgramTest, AVisitMayEndWithTheLauncher) {
    device().write("quit.visit", "key b\nkey b\nkey a\n");
    Program visit(OSTREL_VISIT, inRunFolder({"--visit", device().workDir() + "/quit.visit"}));
    EXPECT_EQ(visit.wait(), 0) << visit.output();
}

TEST_F(LauncherProgramTest, ARestartFindsTheConsoleAsTheLauncherLeftIt) {
    device().write("again.visit",
                   "device mnt/UDISK/system.json {\"vol\": 3}\nkey b\nkey b\nkey a\nrestart\nshot one\n");
    Program visit(OSTREL_VISIT, inRunFolder({"--visit", device().workDir() + "/again.visit"}));
    EXPECT_EQ(visit.wait(), 0) << visit.output();
    EXPECT_NE(device().read("run/visit-device/mnt/UDISK/system.json").find("\"vol\":\t3"), std::string::npos);
}

TEST_F(LauncherProgramTest, WhatACommandLineSaysWinsOverTheVisitsOptions) {
    device().write("ch.visit", "option --lang ch.lang --rotate\nshot one\n");
    device().write("console/.keep", "");
    Program visit(OSTREL_VISIT, inRunFolder({"--visit", device().workDir() + "/ch.visit", "--lang", "ko.lang",
                                             "--device", device().workDir() + "/console"}));
    EXPECT_EQ(visit.wait(), 0) << visit.output();
    EXPECT_NE(device().read("console/mnt/UDISK/system.json").find("\"ko.lang\""), std::string::npos);
}

TEST_F(LauncherProgramTest, AVisitFindsAConsoleAsNewUnlessOneIsNamed) {
    device().write("note.visit", "shot one\ndevice note seen\n");
    const auto play = [this](std::vector<std::string> more) {
        more.insert(more.end(), {"--visit", device().workDir() + "/note.visit"});
        Program visit(OSTREL_VISIT, inRunFolder(more));
        EXPECT_EQ(visit.wait(), 0) << visit.output();
    };
    device().write("run/visit-device/old", "");
    device().write("mine/old", "");
    play({});
    EXPECT_FALSE(device().exists("run/visit-device/old"));
    EXPECT_EQ(device().read("run/visit-device/note"), "seen\n");
    play({"--device", device().workDir() + "/mine"});
    EXPECT_TRUE(device().exists("mine/old"));
    EXPECT_EQ(device().read("mine/note"), "seen\n");
}

TEST_F(LauncherProgramTest, AMistakeInAVisitEndsWithTwo) {
    device().write("bad.visit", "key q\n");
    Program visit(OSTREL_VISIT, inRunFolder({"--visit", device().workDir() + "/bad.visit"}));
    EXPECT_EQ(visit.wait(), 2);
    EXPECT_EQ(visit.output(), device().workDir() + "/bad.visit:1: no such step: key q\n");
}

TEST_F(LauncherProgramTest, AVisitThatLeavesTooEarlyFails) {
    device().write("short.visit", "key b\nkey b\nkey a\nkey down\nwait 5\n");
    Program visit(OSTREL_VISIT, inRunFolder({"--visit", device().workDir() + "/short.visit"}));
    EXPECT_EQ(visit.wait(), 1);
    EXPECT_NE(visit.output().find("The launcher ended before the visit did\n"), std::string::npos);
}

}  // namespace
