// Broken files and folders of every kind: the launcher runs on, and the player's settings are whole afterwards.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>

#include "played_visit.h"
#include "support/child_process.h"
#include "written_files.h"

namespace fs = std::filesystem;
using launchertest::kSettingsFile;
using launchertest::kWindowsFile;
using ostreltest::ChildUser;
using ostreltest::passesInChild;

namespace {

// One row each way, the small menu, the numbers, six rows on.
constexpr const char* kLookAroundTheList =
    "key down\nkey x\nkey up\nkey b\nkey select\nhold down 15\nkey r\nkey left\nshot moved\n";

class BadInputTest : public ostreltest::PlayedVisitTest {
protected:
    BadInputTest() { device().write(kSettingsFile, R"({"vol": 7})"); }
    ~BadInputTest() override { EXPECT_EQ(setting("vol"), mExpectedVolume); }
    // For the tests that break the settings file itself.
    void expectVolume(int volume) { mExpectedVolume = volume; }

    void lookAround() {
        play(kLookAroundTheList, {"--games", gamesDir()});
        EXPECT_TRUE(isShot("moved"));
    }

private:
    int mExpectedVolume = 7;
};

// The settings file.

class BadSettingsTest : public BadInputTest {
protected:
    void openThePage() {
        startIn(kSettings);
        play("key left\nkey right\nhold down 15\nwait 12\nshot end\n");
        EXPECT_TRUE(isShot("end"));
    }
};

TEST_F(BadSettingsTest, AFileCutAnywhereCountsAsMissingAndIsWrittenWhole) {
    const std::string whole =
        R"({"vol":5,"brightness":3,"language":"ch.lang","wifi":1,"24hourclock":0,"timezone":"UTC"})";
    std::string visit;
    for (std::size_t size = 0; size < whole.size(); size += 8) {
        visit += "device mnt/UDISK/system.json " + whole.substr(0, size) + "\nkey a\nrestart\n";
    }
    play(visit + "shot end\n");
    expectVolume(14);
    EXPECT_EQ(setting("brightness"), 6);
}

TEST_F(BadSettingsTest, ValuesOfOtherTypesCountAsMissing) {
    device().write(kSettingsFile, R"({"vol": "7", "brightness": [3], "language": 5, "theme": {}, "timezone": null,
        "usejoystick": true, "osdshortcut": "x", "24hourclock": {}, "colortemperature": "warm"})");
    openThePage();
    expectVolume(14);
}

TEST_F(BadSettingsTest, HugeNumbersAreTakenIntoTheirRanges) {
    device().write(kSettingsFile, R"({"vol": 7, "brightness": 1e300, "osdshortcut": 2147483647, "usejoystick": -1e300,
        "colorbrightness": 1e300, "colorcontrast": -1e300, "colortemperature": 99999999999, "colorsaturation": -1,
        "rumblelevel": 1e300, "dimtime": -1e300, "cpufreq": -7, "fanlevel": 1e300})");
    startIn(kSettings);
    std::string visit;
    for (int row = 0; row < 16; ++row) visit += "key right\nkey left\nkey down\n";
    play(visit + "shot end\n");
    EXPECT_TRUE(isShot("end"));
}

TEST_F(BadSettingsTest, NamesThatNothingHasGoUnnoticed) {
    device().write(kSettingsFile, R"({"vol": 7, "language": "../../../etc/passwd", "theme": "/dev/null",
        "timezone": "Nowhere/At All", "storeurl": "%s%s%s%n"})");
    openThePage();
}

TEST_F(BadSettingsTest, TextsOfManyKilobytesAreCut) {
    const std::string longText(20000, 'z');
    device().write(kSettingsFile, R"({"vol": 7, "language": ")" + longText + R"(", "theme": ")" + longText +
                                      R"(", "timezone": ")" + longText + "\"}");
    openThePage();
}

TEST_F(BadSettingsTest, TheFirstOfSeveralMembersOfANameCountsWhateverItsCase) {
    device().write(kSettingsFile, R"({"VOL": 3, "vol": 4, "Vol": 5})");
    openThePage();
    expectVolume(3);
}

TEST_F(BadSettingsTest, AnEmptyFileCountsAsMissing) {
    device().write(kSettingsFile, "");
    openThePage();
    expectVolume(14);
}

TEST_F(BadSettingsTest, AFileOf131071BytesIsTheLargestThatCounts) {
    std::string content = R"({"vol": 9})";
    content.resize(131071, ' ');
    device().write(kSettingsFile, content);
    openThePage();
    expectVolume(9);
    EXPECT_EQ(setting("vol"), 9);
    content += ' ';
    device().write(kSettingsFile, content);
    openThePage();
    expectVolume(14);
}

// The windows of the last session.

TEST_F(BadInputTest, BrokenStatesOfTheLastSessionAreLeftOut) {
    std::string visit;
    for (const char* state :
         {"{", "[]", "7", R"({"list": 5})", R"({"list": [5, null, "x", [], {}]})", R"({"list": [{"type": 99}]})",
          R"({"list": [{"type": "1"}, {"type": 2}]})", R"({"list": [{"type": 2}, {"type": 6}]})",
          R"({"list": [{"type": 1}, {"type": 1}, {"type": 1}]})",
          R"({"list": [{"type": 1}, {"type": 3, "path": "/no/such/game"}, {"type": 2, "folder": "/etc/../etc"}]})",
          R"({"list": [{"type": 1}, {"type": 2, "folder": 5, "cursor": 2147483647, "first": -9, "last": 1e300}]})",
          R"({"list": [{"type": 1, "cursor": -1, "first": 5, "last": 2}, {"type": 6, "cursor": 1e300}]})",
          R"({"list": [{"type": 1}, {"type": 4, "word": 7, "cursor": 500, "first": 400, "last": 505}]})",
          R"({"list": [{"type": 1}, {"type": 4, "word": "\\xff\\xfe%s%n"}]})",
          R"({"list": [{"type": 1}, {"type": 5, "cursor": 3, "first": 3, "last": 8}]})"}) {
        visit += std::string("device mnt/UDISK/launcher/windows.json ") + state +
                 "\nkey down\nkey up\nhold down 5\nrestart\n";
    }
    addGame("One.game");
    play(visit + "shot end\n", {"--games", gamesDir()});
    EXPECT_TRUE(isShot("end"));
}

TEST_F(BadInputTest, AStateOfManyWindowsIsRestored) {
    std::string state = R"({"list": [{"type": 1})";
    for (int i = 0; i < 300; ++i) state += R"(, {"type": 7})";
    device().write(kWindowsFile, state + "]}");
    play("shot top\nkey b\nkey b\nshot lower\n");
    EXPECT_TRUE(isShot("lower"));
}

// The games directory.

// A folder among the games, and the directory of all of them.
class LockedFolderTest : public BadInputTest {
protected:
    // Plays a visit as a user who may read everything but the folder.
    void playWithout(const std::string& folder, const std::string& visit) {
        fs::permissions(folder, fs::perms::none);
        EXPECT_TRUE(passesInChild([&] { play(visit, {"--games", gamesDir()}); }, ChildUser::WithoutOverride));
        fs::permissions(folder, fs::perms::owner_all);
    }
};

TEST_F(LockedFolderTest, AFolderAmongTheGames) {
    addGame("Locked/One.game");
    addGame("Two.game");
    playWithout(gamesDir() + "/Locked", "key a\nkey down\nkey x\nkey select\nshot inside\nkey b\nkey y\nshot search\n");
    EXPECT_TRUE(isShot("search"));
}

TEST_F(LockedFolderTest, TheDirectoryOfAllGames) {
    addGame("One.game");
    playWithout(gamesDir(), "key a\nkey down\nkey x\nkey select\nshot list\nkey y\nshot search\n");
    EXPECT_TRUE(isShot("search"));
}

TEST_F(BadInputTest, GamesThatVanishWhileTheyAreListed) {
    for (const char* name : {"System/One.game", "System/Two.game", "Three.game"}) addGame(name);
    play(
        "remove roms\nkey down\nkey up\nshot gone\nkey x\nkey down\nkey a\nshot details\nwait 3\nkey b\nkey y\nshot "
        "search\n",
        {"--games", gamesDir()});
    EXPECT_TRUE(isShot("search"));
}

TEST_F(BadInputTest, AFolderThatVanishesWhileItIsOpen) {
    for (const char* name : {"System/One.game", "System/Two.game", "Three.game"}) addGame(name);
    play("key a\nremove roms/System\nkey down\nkey up\nshot gone\nkey b\nshot back\nkey a\nshot again\n",
         {"--games", gamesDir()});
    EXPECT_TRUE(isShot("again"));
}

TEST_F(BadInputTest, AGamesDirectoryOf25000Files) {
    device().write("/roms/.keep", "");
    for (int i = 0; i < 25000; ++i) {
        const int file = open((gamesDir() + "/" + std::to_string(i) + ".game").c_str(), O_CREAT | O_WRONLY, 0600);
        close(file);
    }
    play(std::string(kLookAroundTheList) + "key b\nkey y\nkey a\nshot searched\nwait 3\n", {"--games", gamesDir()});
    EXPECT_TRUE(isShot("searched"));
}

TEST_F(BadInputTest, LinksInACircle) {
    addGame("System/One.game");
    fs::create_directory_symlink(gamesDir(), device().path("/roms/System/up"));
    fs::create_directory_symlink("..", device().path("/roms/System/back"));
    fs::create_symlink("self", device().path("/roms/self"));
    fs::create_symlink("/no/such/target", device().path("/roms/broken.game"));
    play("key a\nkey a\nshot round\nkey a\nkey a\nshot again\nkey y\nkey a\nshot search\n", {"--games", gamesDir()});
    EXPECT_TRUE(isShot("search"));
}

TEST_F(BadInputTest, NamesOf255Bytes) {
    addGame(std::string(250, 'W') + ".game");
    std::string chinese;
    for (int i = 0; i < 83; ++i) chinese += "彗";
    addGame(chinese + ".a");
    addGame(std::string(255, '.'));
    addGame(std::string(255, 'x') + "/" + std::string(255, 'y') + "/One.game");
    lookAround();
}

TEST_F(BadInputTest, NamesWithLineFeedsAndBytesThatAreNoText) {
    addGame("two\nlines.game");
    addGame("tab\tand\x01\x1b[31m.game");
    addGame("\xff\xfe\xfd.game");
    addGame("cut \xe5\xbd.game");
    addGame("%s%n%d.game");
    addGame("\xf0\x9f\x8e\xae.game");
    addGame(" ");
    addGame("'; $(touch pwned) `.game");
    lookAround();
}

TEST_F(BadInputTest, EntriesThatAreNeitherFileNorFolder) {
    addGame("One.game");
    ASSERT_EQ(mkfifo(device().path("/roms/Pipe.game").c_str(), 0600), 0);
    lookAround();
}

TEST_F(BadInputTest, BrokenDescriptionsOfAFolder) {
    const std::string contents[] = {"",
                                    "{",
                                    "[]",
                                    R"({"name": 5, "icon": {}, "command": "cat"})",
                                    R"({"name": "", "icon": "../../../etc/passwd", "command": []})",
                                    R"({"command": [5, null, {}]})",
                                    R"({"command": [""]})",
                                    R"({"command": ["/no/such/program", "%s%n", "{file}{file}"]})",
                                    R"({"name": ")" + std::string(50000, 'n') + "\"}",
                                    std::string(200000, '['),
                                    std::string("\xff\xfe\0\1", 4)};
    std::string visit;
    for (std::size_t i = 0; i < std::size(contents); ++i) {
        const std::string folder = "System" + std::to_string(10 + i);
        addGame(folder + "/One.game");
        device().write("/roms/" + folder + "/system.json", contents[i]);
        visit += "key a\nkey a\nkey b\nrestart\nremove mnt/UDISK/launcher\nremove roms/System" +
                 std::to_string(10 + i) + "\n";
    }
    play(visit, {"--games", gamesDir()});
}

// The console's own files.

TEST_F(BadInputTest, FilesOfTheConsoleThatAreMissingEmptyOrNoText) {
    const std::string kFiles[] = {"sys/class/power_supply/axp2202-battery/capacity",
                                  "sys/class/power_supply/axp2202-battery/status",
                                  "sys/class/power_supply/axp2202-usb/online",
                                  "proc/meminfo",
                                  "mnt/SDCARD/features.json",
                                  "proc/523/cmdline"};
    startIn(kAbout);
    std::string visit;
    for (const std::string& file : kFiles) {
        visit += "device " + file + " \\xff\\xfe\\0\\x01\n";
        visit += "device " + file + "\n";
        visit += "device " + file + " 99999999999999999999999999999999999999999999\n";
        visit += "remove " + file + "\n";
    }
    play(visit + "restart\nshot again\n");
    EXPECT_TRUE(isShot("again"));
}

TEST_F(BadInputTest, FilesOfTheConsoleWithoutALinesEnd) {
    for (const char* file :
         {"/sys/class/power_supply/axp2202-battery/capacity", "/sys/class/power_supply/axp2202-battery/status",
          "/sys/class/power_supply/axp2202-usb/online", "/proc/meminfo", "/mnt/SDCARD/features.json",
          "/proc/523/cmdline"}) {
        device().write(file, std::string(1'000'000, '1'));
    }
    startIn(kAbout);
    play("wait 3\nshot about\nkey b\nshot home\n");
    EXPECT_TRUE(isShot("home"));
}

TEST_F(BadInputTest, AnswersOfTheWifiToolOfEveryLength) {
    using namespace std::string_literals;
    device().write("/proc/523/cmdline", "wpa_supplicant\0"s);
    const std::string overflow = "ssid=" + std::string(500, 's') + "\nwpa_state=COMPLETED" + std::string(500, 'c') +
                                 "\nip_address=" + std::string(500, '9') + "\nid=99999999999999999999\n";
    for (const std::string& answer : {""s, std::string(65536, 'x'), overflow, "wpa_state=COMPLETED\nssid=\\x"s,
                                      "wpa_state=COMPLETED\nRSSI=-99999999999999999999\n"s}) {
        device().write("/var/wpa_status", answer);
        device().write("/var/wpa_signal_poll", answer);
        startIn(kAbout);
        play("wait 2\nshot about\n");
    }
    EXPECT_TRUE(isShot("about"));
}

// Themes.

TEST_F(BadInputTest, AThemeWithoutImagesFallsBackOnTheLaunchersOwn) {
    fs::create_directories(device().path("bare/skin"));
    play(std::string(kLookAroundTheList) + "key y\nshot search\n", {"--theme", device().path("bare")});
    EXPECT_TRUE(isShot("search"));
}

TEST_F(BadInputTest, AThemeOfCutImagesAndBrokenColoursIsDrawnWithout) {
    for (const auto& entry : fs::directory_iterator(OSTREL_SOURCE_DIR "/theme/dark/skin")) {
        const std::string name = "cut/skin/" + entry.path().filename().string();
        device().write(name, "");
        fs::copy(entry.path(), device().path(name), fs::copy_options::overwrite_existing);
        fs::resize_file(device().path(name), fs::file_size(entry.path()) / 2);
    }
    device().write("cut/colours.json",
                   R"({"gNavColorTxt": [1, 2], "gListColorTxt": "red", "none": [1e300, -5, 0, 0]})");
    play("key y\nshot search\n", {"--theme", device().path("cut")});
    EXPECT_TRUE(isShot("search"));
}

}  // namespace
