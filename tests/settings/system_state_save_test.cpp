#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <csignal>

#include "settings/settings_test.h"
#include "support/child_process.h"
#include "support/log_capture.h"
#include "support/short_memory.h"

namespace {

// What the settings file held at each sync().
std::vector<std::string>& syncs() {
    static std::vector<std::string> contents;
    return contents;
}
std::string sWatchedFile;

}  // namespace

// The library binds to this one, because a program's definitions come before those of its libraries. It also spares the
// machine that runs the tests a real sync of all its file systems.
extern "C" void sync() noexcept {
    std::string content;
    if (std::FILE* file = std::fopen(sWatchedFile.c_str(), "r")) {
        char chunk[4096];
        while (const std::size_t n = std::fread(chunk, 1, sizeof chunk, file)) content.append(chunk, n);
        std::fclose(file);
    }
    syncs().push_back(content);
}

namespace {

using ostreltest::ChildUser;
using ostreltest::host;
using ostreltest::kSettingsFile;
using ostreltest::LogCapture;
using ostreltest::passesInChild;
using ostreltest::ShortMemory;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SystemStateSaveTest : public ostreltest::SettingsTest {
protected:
    SystemStateSaveTest() {
        syncs().clear();
        sWatchedFile = device().path(kSettingsFile);
    }

    std::string saved() { return device().read(kSettingsFile); }
    std::string saved(const std::string& part) {
        return saved().find(part) == std::string::npos ? "lacks " + part + " in " + saved() : "";
    }
};

// The whole file.

TEST_F(SystemStateSaveTest, AllMembersAreWrittenInTheirOrder) {
    const std::pair<int, int> block[] = {{0, 12},  {1, 8},   {2, 1},   {3, 5},   {5, 11},  {6, 21},  {7, 22},
                                         {8, 23},  {9, 24},  {10, 25}, {11, 26}, {12, 27}, {13, 28}, {14, 29},
                                         {15, 30}, {16, 31}, {18, 32}, {19, 33}, {20, -1}};
    for (const auto& [key, value] : block) host().shm.values[static_cast<std::size_t>(key)] = value;
    setSystemLanguage("ch.lang");
    setTimeZone("Asia/Shanghai");
    gStoreUrl = strdup("https://example.com/\"store\"");
    setSyncTimeFromNetworkFlag(41);
    set24HourClockFlag(42);
    setColorBrightness(1);
    setContrast(2);
    setColorTemperature(3);
    setSaturation(4);
    gEnableHomeWindow = 51;
    gAllowFocusOnTab = 52;
    gEnableFavoriteTab = 53;
    gEnableRecentPlayedTab = 54;
    gEnableBestsTab = 55;
    gEnableRetroGameTab = 56;
    gEnablePortsTab = 57;
    gEnableAppsTab = 58;
    gEnableNetPlayTab = 59;
    gUseJoystick = 60;
    gEnableKeyTone = 61;
    gEnableSSH = 62;
    LogCapture log;
    saveSystemState(gShmInfo, "/mnt/SDCARD/Themes/dark/");
    EXPECT_EQ(saved(),
              "{\n"
              "\t\"vol\":\t12,\n"
              "\t\"keymap\":\t1,\n"
              "\t\"mute\":\t1,\n"
              "\t\"bgmvol\":\t11,\n"
              "\t\"brightness\":\t8,\n"
              "\t\"language\":\t\"ch.lang\",\n"
              "\t\"theme\":\t\"/mnt/SDCARD/Themes/dark/\",\n"
              "\t\"hostap\":\t30,\n"
              "\t\"netplay\":\t21,\n"
              "\t\"wifi\":\t29,\n"
              "\t\"cpufreq\":\t22,\n"
              "\t\"ledswitch\":\t23,\n"
              "\t\"ledvalue\":\t25,\n"
              "\t\"menustylel1\":\t24,\n"
              "\t\"menustylel2\":\t26,\n"
              "\t\"storeurl\":\t\"https://example.com/\\\"store\\\"\",\n"
              "\t\"bluetooth\":\t31,\n"
              "\t\"usenetworktime\":\t41,\n"
              "\t\"24hourclock\":\t42,\n"
              "\t\"timezone\":\t\"Asia/Shanghai\",\n"
              "\t\"rumblelevel\":\t27,\n"
              "\t\"dimtime\":\t28,\n"
              "\t\"colorbrightness\":\t1,\n"
              "\t\"colorcontrast\":\t2,\n"
              "\t\"colortemperature\":\t3,\n"
              "\t\"colorsaturation\":\t4,\n"
              "\t\"enablehome\":\t51,\n"
              "\t\"focusontab\":\t52,\n"
              "\t\"bconfirm\":\t33,\n"
              "\t\"osdshortcut\":\t32,\n"
              "\t\"favoritetab\":\t53,\n"
              "\t\"recentplayedtab\":\t54,\n"
              "\t\"beststab\":\t55,\n"
              "\t\"retrogametab\":\t56,\n"
              "\t\"portstab\":\t57,\n"
              "\t\"appstab\":\t58,\n"
              "\t\"netplaytab\":\t59,\n"
              "\t\"fanlevel\":\t-1,\n"
              "\t\"usejoystick\":\t60,\n"
              "\t\"enablekeytone\":\t61,\n"
              "\t\"enablessh\":\t62\n"
              "}");
    EXPECT_EQ(log.text(), "");
}

TEST_F(SystemStateSaveTest, WhatIsNotSetIsLeftOut) {
    saveSystemState(gShmInfo, nullptr);
    EXPECT_EQ(saved("\t\"language\":\t\"en.lang\",\n\t\"hostap\":\t0,\n"), "");
    EXPECT_EQ(saved("\t\"menustylel2\":\t0,\n\t\"bluetooth\":\t0,\n"), "");
    EXPECT_EQ(saved("\t\"24hourclock\":\t1,\n\t\"rumblelevel\":\t0,\n"), "");
}

TEST_F(SystemStateSaveTest, EmptyTextsThatAreSetAreWritten) {
    gStoreUrl = strdup("");
    saveSystemState(gShmInfo, "");
    EXPECT_EQ(saved("\t\"theme\":\t\"\",\n"), "");
    EXPECT_EQ(saved("\t\"storeurl\":\t\"\",\n"), "");
}

TEST_F(SystemStateSaveTest, MuteIsWrittenAsZeroOrOne) {
    for (const auto& [value, text] : {std::pair{0, "0"}, {1, "1"}, {-1, "1"}, {100, "1"}}) {
        host().shm.values[3] = value;
        saveSystemState(gShmInfo, nullptr);
        EXPECT_EQ(saved(std::string("\t\"mute\":\t") + text + ",\n"), "");
    }
}

TEST_F(SystemStateSaveTest, TheStatusBlockGivenIsRead) {
    ShmInfo other;
    other.values[0] = 17;
    saveSystemState(&other, nullptr);
    EXPECT_EQ(saved("\t\"vol\":\t17,\n"), "");
}

TEST_F(SystemStateSaveTest, WhatTheFileHeldBeforeIsDropped) {
    device().write(kSettingsFile, R"({"vol": 1, "dimtime.ch.lang": 5, "somebody": "else's"})");
    saveSystemState(gShmInfo, nullptr);
    EXPECT_EQ(saved().find("somebody"), std::string::npos);
    EXPECT_EQ(saved().find("ch.lang"), std::string::npos);
    EXPECT_EQ(saved().substr(0, 12), "{\n\t\"vol\":\t0,");
}

TEST_F(SystemStateSaveTest, TheFileIsCompleteWhenTheStorageIsSynchronised) {
    saveSystemState(gShmInfo, nullptr);
    EXPECT_THAT(syncs(), ElementsAre(saved()));
    EXPECT_NE(saved(), "");
}

TEST_F(SystemStateSaveTest, AFileThatCannotBeOpenedIsNoErrorAndNotSynchronised) {
    device().remove("/mnt/UDISK");
    LogCapture log;
    LogCapture errors(LogCapture::Stream::Error);
    saveSystemState(gShmInfo, nullptr);
    EXPECT_EQ(log.text(), "");
    EXPECT_EQ(errors.text(), "");
    EXPECT_THAT(syncs(), IsEmpty());
}

TEST_F(SystemStateSaveTest, WhatWasSavedIsLoadedAgain) {
    load(
        R"({"vol": 9, "mute": 1, "keymap": 1, "brightness": 2, "language": "es.lang", "hostap": 1, "wifi": 1, "storeurl": "url",
             "timezone": "Europe/Madrid", "rumblelevel": 2, "colorcontrast": 9, "fanlevel": 3, "usejoystick": 2,
             "enablessh": 1})");
    saveSystemState(gShmInfo, nullptr);
    const std::string first = saved();
    loadSystemState(gShmInfo, nullptr);
    saveSystemState(gShmInfo, nullptr);
    EXPECT_EQ(saved(), first);
    EXPECT_EQ(shm(0), 9);
    EXPECT_STREQ(getTimeZone(), "Europe/Madrid");
    EXPECT_EQ(gEnableSSH, 1);
}

TEST_F(SystemStateSaveTest, WithoutMemoryForTheFirstSixMembersTheFileIsLeftEmpty) {
    // One request for the object, one for each of five numbers, two for the language.
    for (int granted = 0; granted < 8; ++granted) {
        device().write(kSettingsFile, R"({"vol": 1})");
        const ShortMemory memory(granted);
        saveSystemState(gShmInfo, nullptr);
        EXPECT_TRUE(device().exists(kSettingsFile));
        EXPECT_EQ(saved(), "") << granted;
    }
    EXPECT_THAT(syncs(), IsEmpty());
}

TEST_F(SystemStateSaveTest, AMemberThatFindsNoMemoryIsSkipped) {
    {
        const ShortMemory memory(8, 1);  // refuses "hostap"
        saveSystemState(gShmInfo, nullptr);
    }
    EXPECT_EQ(saved("\t\"language\":\t\"en.lang\",\n\t\"netplay\":\t0,\n\t\"wifi\":\t0,\n"), "");
    EXPECT_EQ(saved().find("hostap"), std::string::npos);
    EXPECT_THAT(syncs(), ElementsAre(saved()));
}

// One member.

TEST_F(SystemStateSaveTest, OneItemMakesAMissingFile) {
    LogCapture log;
    EXPECT_EQ(saveOneItemInSystemState("vol", 9), 0);
    EXPECT_EQ(saved(), "{\n\t\"vol\":\t9\n}");
    EXPECT_EQ(log.text(), "write {\n\t\"vol\":\t9\n} to " + device().path(kSettingsFile) + "\n");
}

TEST_F(SystemStateSaveTest, OneItemMovesToTheEndAndTheOthersStay) {
    device().write(kSettingsFile, R"({"a": 1.5, "vol": 3, "b": "text", "c": [1, {"vol": 2}], "d": null})");
    EXPECT_EQ(saveOneItemInSystemState("vol", -4), 0);
    EXPECT_EQ(saved(),
              "{\n\t\"a\":\t1.5,\n\t\"b\":\t\"text\",\n\t\"c\":\t[1, {\n\t\t\t\"vol\":\t2\n\t\t}],\n\t\"d\":\tnull,\n"
              "\t\"vol\":\t-4\n}");
}

TEST_F(SystemStateSaveTest, OneItemKeepsTheExtremes) {
    EXPECT_EQ(saveOneItemInSystemState("low", INT_MIN), 0);
    EXPECT_EQ(saveOneItemInSystemState("high", INT_MAX), 0);
    EXPECT_EQ(saved(), "{\n\t\"low\":\t-2147483648,\n\t\"high\":\t2147483647\n}");
}

TEST_F(SystemStateSaveTest, OneItemReplacesEveryMemberOfItsName) {
    device().write(kSettingsFile, R"({"VOL": "x", "a": 1, "vol": 2, "Vol": {"deep": true}})");
    EXPECT_EQ(saveOneItemInSystemState("vol", 5), 0);
    EXPECT_EQ(saved(), "{\n\t\"a\":\t1,\n\t\"vol\":\t5\n}");
    loadSystemState(gShmInfo, nullptr);
    EXPECT_EQ(shm(0), 5);
}

TEST_F(SystemStateSaveTest, OneItemKeepsTheMembersOfALanguage) {
    device().write(kSettingsFile, R"({"vol.en.lang": 1, "vol": 2, "vol.ch.lang": 3})");
    EXPECT_EQ(saveOneItemInSystemState("vol", 5), 0);
    EXPECT_EQ(saved(), "{\n\t\"vol.en.lang\":\t1,\n\t\"vol.ch.lang\":\t3,\n\t\"vol\":\t5\n}");
}

TEST_F(SystemStateSaveTest, OneItemIsNotSynchronised) {
    EXPECT_EQ(saveOneItemInSystemState("vol", 9), 0);
    EXPECT_THAT(syncs(), IsEmpty());
}

TEST_F(SystemStateSaveTest, OneItemLeavesTheRunningSettingsAlone) {
    EXPECT_EQ(saveOneItemInSystemState("vol", 9), 0);
    EXPECT_THAT(host().shm.writes, IsEmpty());
}

TEST_F(SystemStateSaveTest, OneItemDoesNotTouchAFileThatIsNoObject) {
    for (const char* content : {"no JSON", "{\"vol\": 1", "[1]", "7", "null", "\"vol\""}) {
        device().write(kSettingsFile, content);
        LogCapture log;
        EXPECT_EQ(saveOneItemInSystemState("vol", 9), -1) << content;
        EXPECT_EQ(saved(), content);
        EXPECT_EQ(log.text(), "parse json " + device().path(kSettingsFile) + " fail while save vol\n") << content;
    }
}

TEST_F(SystemStateSaveTest, OneItemDoesNotTouchAFileThatIsEmptyOrTooLarge) {
    for (const std::size_t size : {std::size_t{0}, std::size_t{131072}}) {
        const std::string content(size, ' ');
        device().write(kSettingsFile, content);
        LogCapture log;
        EXPECT_EQ(saveOneItemInSystemState("vol", 9), -1) << size;
        EXPECT_EQ(saved(), content);
        const std::string path = device().path(kSettingsFile);
        EXPECT_THAT(log.lines(), ElementsAre(path + " invalid size " + std::to_string(size),
                                             "parse json " + path + " fail while save vol"));
    }
}

TEST_F(SystemStateSaveTest, OneItemInAFolderThatIsMissing) {
    device().remove("/mnt/UDISK");
    LogCapture log;
    EXPECT_EQ(saveOneItemInSystemState("vol", 9), -1);
    EXPECT_EQ(log.text(), "open " + device().path(kSettingsFile) + " fail\n");
}

TEST_F(SystemStateSaveTest, OneItemInAFileThatMayNotBeWritten) {
    device().write(kSettingsFile, R"({"vol": 1})");
    chmod(device().root().c_str(), 0755);
    chmod(device().path(kSettingsFile).c_str(), 0444);
    const auto save = [this] {
        LogCapture log;
        EXPECT_EQ(saveOneItemInSystemState("vol", 9), -1);
        EXPECT_EQ(log.text(), "open " + device().path(kSettingsFile) + " fail\n");
    };
    EXPECT_TRUE(passesInChild(save, ChildUser::Unprivileged));
    EXPECT_EQ(saved(), R"({"vol": 1})");
}

TEST_F(SystemStateSaveTest, OneItemOnAStorageThatIsFullIsLoggedAndNoError) {
    const auto save = [this] {
        int ends[2];  // of a pipe: a log in a file would not fit either
        ASSERT_EQ(pipe(ends), 0);
        ASSERT_EQ(dup2(ends[1], STDOUT_FILENO), STDOUT_FILENO);
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {4, 4};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
        EXPECT_EQ(saveOneItemInSystemState("vol", 9), 0);
        std::fflush(stdout);
        char log[4096] = "";
        EXPECT_GT(read(ends[0], log, sizeof log - 1), 0);
        EXPECT_EQ(log, "write {\n\t\"vol\":\t9\n} to " + device().path(kSettingsFile) + "\n");
    };
    EXPECT_TRUE(passesInChild(save));
    EXPECT_EQ(saved(), "{\n\t\"");
}

TEST_F(SystemStateSaveTest, OneItemWithoutAName) {
    device().write(kSettingsFile, R"({"vol": 1})");
    LogCapture log;
    EXPECT_EQ(saveOneItemInSystemState(nullptr, 9), -1);
    EXPECT_EQ(log.text(), "");
    EXPECT_EQ(saved(), R"({"vol": 1})");
}

TEST_F(SystemStateSaveTest, OneItemWithoutMemoryForTheDocument) {
    LogCapture log;
    const ShortMemory memory(0);
    EXPECT_EQ(saveOneItemInSystemState("vol", 9), -1);
    EXPECT_EQ(log.text(), "parse json " + device().path(kSettingsFile) + " fail while save vol\n");
    EXPECT_FALSE(device().exists(kSettingsFile));
}

TEST_F(SystemStateSaveTest, OneItemWithoutMemoryAtAnyPointKeepsTheFile) {
    device().write(kSettingsFile, R"({"a": 1})");
    const std::string parseLine = "parse json " + device().path(kSettingsFile) + " fail while save vol\n";
    std::vector<std::string> logs;
    for (int granted = 0; granted < 100; ++granted) {
        LogCapture log;
        const ShortMemory memory(granted);
        if (saveOneItemInSystemState("vol", 9) == 0) break;
        logs.push_back(log.text());
        ASSERT_EQ(saved(), R"({"a": 1})");
    }
    ASSERT_GE(logs.size(), 6U);
    EXPECT_EQ(logs.front(), parseLine);  // no memory to read the file
    EXPECT_EQ(logs.back(), "");          // none to print the new content
    EXPECT_EQ(saved(), "{\n\t\"a\":\t1,\n\t\"vol\":\t9\n}");
}

}  // namespace
