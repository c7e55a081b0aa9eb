// Another program, run to its end without a shell.
#include "run_program.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include "support/test_device.h"

namespace {

using launcher::runProgram;

class RunProgramTest : public ostreltest::DeviceTest {
protected:
    // A program that writes what it was asked for into "out".
    std::string script(const std::string& body) {
        device().write("program", "#!/bin/sh\n" + body + "\n");
        chmod("program", 0755);
        return device().path("program");
    }
};

TEST_F(RunProgramTest, AProgramThatEndsWellGivesNoReason) { EXPECT_EQ(runProgram({"/bin/true"}), ""); }

TEST_F(RunProgramTest, AProgramThatFailsWasStartedAllTheSame) { EXPECT_EQ(runProgram({"/bin/false"}), ""); }

TEST_F(RunProgramTest, AProgramIsLookedForInThePath) { EXPECT_EQ(runProgram({"true"}), ""); }

TEST_F(RunProgramTest, TheCallReturnsWhenTheProgramHasEnded) {
    EXPECT_EQ(runProgram({script("(echo one; sleep 0.05; echo two) > out")}), "");
    EXPECT_EQ(device().read("out"), "one\ntwo\n");
}

TEST_F(RunProgramTest, AMissingProgramGivesTheReason) {
    EXPECT_EQ(runProgram({"/no/such/program"}), "No such file or directory");
    EXPECT_EQ(runProgram({"no-such-program-anywhere"}), "No such file or directory");
}

TEST_F(RunProgramTest, AFileThatMayNotBeRunGivesTheReason) {
    device().write("plain", "#!/bin/sh\n");
    EXPECT_EQ(runProgram({device().path("plain")}), "Permission denied");
}

TEST_F(RunProgramTest, AFileThatIsNoProgramGivesTheReason) {
    device().write("plain", "no program\n");
    chmod("plain", 0755);
    EXPECT_EQ(runProgram({device().path("plain")}), "Exec format error");
}

TEST_F(RunProgramTest, ADirectoryGivesTheReason) { EXPECT_EQ(runProgram({"/bin"}), "Permission denied"); }

TEST_F(RunProgramTest, NoCommandGivesAReason) {
    EXPECT_EQ(runProgram({}), "No such file or directory");
    EXPECT_EQ(runProgram({""}), "No such file or directory");
}

TEST_F(RunProgramTest, ArgumentsArriveAsTheyAre) {
    const std::string program = script("for a in \"$@\"; do printf '[%s]' \"$a\"; done > out");
    EXPECT_EQ(runProgram({program, "one two", "", "\"q\" 'q'", "%s %d", "$HOME `id` ; rm x", "line\nfeed", "竹\xFF"}),
              "");
    EXPECT_EQ(device().read("out"), "[one two][][\"q\" 'q'][%s %d][$HOME `id` ; rm x][line\nfeed][竹\xFF]");
}

TEST_F(RunProgramTest, FilesOfTheLauncherAreClosedToIt) {
    const int open = ::open("/dev/null", O_RDONLY);
    ASSERT_GE(open, 3);
    const std::string test =
        "test -e /proc/self/fd/" + std::to_string(open) + " && echo open > out || echo closed > out";
    EXPECT_EQ(runProgram({script(test)}), "");
    EXPECT_EQ(device().read("out"), "closed\n");
    close(open);
}

TEST_F(RunProgramTest, ASignalThatTheLauncherIgnoresOrBlocksEndsIt) {
    std::signal(SIGINT, SIG_IGN);
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    sigprocmask(SIG_BLOCK, &blocked, nullptr);
    EXPECT_EQ(runProgram({script("kill -INT $$; echo lived > interrupted")}), "");
    EXPECT_EQ(runProgram({script("kill -TERM $$; echo lived > terminated")}), "");
    EXPECT_FALSE(device().exists("interrupted"));
    EXPECT_FALSE(device().exists("terminated"));
    sigprocmask(SIG_UNBLOCK, &blocked, nullptr);
    std::signal(SIGINT, SIG_DFL);
}

}  // namespace
