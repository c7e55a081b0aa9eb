#include <climits>

#include "settings/settings_test.h"
#include "support/log_capture.h"

namespace {

using ostreltest::host;
using ostreltest::kSettingsFile;
using ostreltest::LogCapture;
using ostreltest::SettingsTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

// Read before main: the values live as long as the process, and other tests change them.
struct InitialState {
    int keyTone = gEnableKeyTone;
    int joystick = gUseJoystick;
    int netPlayTab = gEnableNetPlayTab;
    int appsTab = gEnableAppsTab;
    int portsTab = gEnablePortsTab;
    int retroGameTab = gEnableRetroGameTab;
    int bestsTab = gEnableBestsTab;
    int recentPlayedTab = gEnableRecentPlayedTab;
    int focusOnTab = gAllowFocusOnTab;
    int favoriteTab = gEnableFavoriteTab;
    int homeWindow = gEnableHomeWindow;
    int ssh = gEnableSSH;
    const char* storeUrl = gStoreUrl;
};
const InitialState kInitialState;

TEST(SystemStateInitialTest, ValuesBeforeAnyLoad) {
    EXPECT_EQ(kInitialState.keyTone, 1);
    EXPECT_EQ(kInitialState.joystick, 1);
    EXPECT_EQ(kInitialState.netPlayTab, 1);
    EXPECT_EQ(kInitialState.appsTab, 1);
    EXPECT_EQ(kInitialState.portsTab, 1);
    EXPECT_EQ(kInitialState.retroGameTab, 1);
    EXPECT_EQ(kInitialState.bestsTab, 1);
    EXPECT_EQ(kInitialState.recentPlayedTab, 1);
    EXPECT_EQ(kInitialState.focusOnTab, 1);
    EXPECT_EQ(kInitialState.favoriteTab, 1);
    EXPECT_EQ(kInitialState.homeWindow, 1);
    EXPECT_EQ(kInitialState.ssh, 0);
    EXPECT_EQ(kInitialState.storeUrl, nullptr);
}

// Every number of the settings file, one row each.

template <int kKey>
int fromBlock() {
    return host().shm.values.at(kKey);
}

template <int kKey>
void intoBlock(int value) {
    host().shm.values.at(kKey) = value;
}

template <int* kGlobal>
int fromGlobal() {
    return *kGlobal;
}

template <int* kGlobal>
void intoGlobal(int value) {
    *kGlobal = value;
}

constexpr int kBefore = 3;     // what every value is set to before the file is loaded
constexpr int kUnchanged = 3;  // what it then still is

struct NumberRow {
    const char* key;
    int (*get)();
    void (*set)(int);
    int whenMissing;
    int whenUnusable;
    std::vector<std::pair<const char*, int>> values;  // the text in the file, and what it loads
};

void PrintTo(const NumberRow& row, std::ostream* out) { *out << row.key; }

const std::vector<std::pair<const char*, int>> kAnyNumber = {
    {"0", 0}, {"1", 1}, {"2", 2}, {"-7", -7}, {"1000", 1000}, {"2.9", 2}, {"1e300", INT_MAX}, {"-1e300", INT_MIN}};
const std::vector<std::pair<const char*, int>> kSwitch = {{"0", 0},   {"1", 1},     {"2", 1},     {"-1", 1},
                                                          {"0.9", 0}, {"1e300", 1}, {"-1e300", 1}};
const std::vector<std::pair<const char*, int>> kOneToTen = {{"0", 1},   {"1", 1},  {"2", 2},     {"10", 10},
                                                            {"11", 10}, {"-5", 1}, {"1e300", 10}};

class NumberTest : public SettingsTest, public ::testing::WithParamInterface<NumberRow> {
protected:
    NumberTest() { GetParam().set(kBefore); }

    int loadValue(const std::string& value) {
        GetParam().set(kBefore);
        load(std::string("{\"") + GetParam().key + "\": " + value + "}");
        return GetParam().get();
    }
};

TEST_P(NumberTest, LoadsWhatTheFileHolds) {
    for (const auto& [text, value] : GetParam().values) EXPECT_EQ(loadValue(text), value) << text;
}

TEST_P(NumberTest, AMissingMember) {
    load("{}");
    EXPECT_EQ(GetParam().get(), GetParam().whenMissing);
}

TEST_P(NumberTest, AMemberOfAnotherTypeCountsAsMissing) {
    for (const char* value : {"true", "false", "null", "\"5\"", "[5]", "{\"a\": 5}"}) {
        EXPECT_EQ(loadValue(value), GetParam().whenMissing) << value;
    }
}

TEST_P(NumberTest, AnUnusableFile) {
    for (const char* content : {"no JSON", "{"}) {
        GetParam().set(kBefore);
        load(content);
        EXPECT_EQ(GetParam().get(), GetParam().whenUnusable) << content;
    }
}

TEST_P(NumberTest, NoFile) {
    loadSystemState(gShmInfo, nullptr);
    EXPECT_EQ(GetParam().get(), GetParam().whenUnusable);
}

INSTANTIATE_TEST_SUITE_P(
    AllNumbers, NumberTest,
    ::testing::Values(
        NumberRow{"vol",
                  fromBlock<0>,
                  intoBlock<0>,
                  14,
                  14,
                  {{"0", 0}, {"1", 1}, {"20", 20}, {"21", 14}, {"25", 14}, {"-1", 14}, {"1e300", 14}, {"-1e300", 14}}},
        NumberRow{"keymap", fromBlock<2>, intoBlock<2>, 0, 0, {{"0", 0}, {"1", 1}, {"2", 0}, {"-1", 0}, {"1e300", 0}}},
        NumberRow{"brightness",
                  fromBlock<1>,
                  intoBlock<1>,
                  6,
                  6,
                  {{"0", 0}, {"1", 1}, {"10", 10}, {"11", 6}, {"-1", 6}, {"1e300", 6}}},
        NumberRow{"hostap", fromBlock<15>, intoBlock<15>, kUnchanged, 0, kSwitch},
        NumberRow{"netplay", fromBlock<6>, intoBlock<6>, 0, 0, kSwitch},
        NumberRow{"wifi", fromBlock<14>, intoBlock<14>, kUnchanged, 0, kSwitch},
        NumberRow{"cpufreq",
                  fromBlock<7>,
                  intoBlock<7>,
                  0,
                  0,
                  {{"0", 0}, {"1", 1}, {"1000", 1000}, {"-1", 0}, {"-1e300", 0}, {"1e300", INT_MAX}}},
        NumberRow{"ledswitch", fromBlock<8>, intoBlock<8>, 1, 1, kSwitch},
        NumberRow{"ledvalue", fromBlock<10>, intoBlock<10>, 4, 4, kAnyNumber},
        NumberRow{"menustylel1", fromBlock<9>, intoBlock<9>, 1, 1, kAnyNumber},
        NumberRow{"menustylel2", fromBlock<11>, intoBlock<11>, 0, 0, kAnyNumber},
        NumberRow{"bluetooth", fromBlock<16>, intoBlock<16>, kUnchanged, 0, kSwitch},
        NumberRow{"usenetworktime", getSyncTimeFromNetworkFlag, setSyncTimeFromNetworkFlag, kUnchanged, 1, kSwitch},
        NumberRow{"24hourclock", get24HourClockFlag, set24HourClockFlag, kUnchanged, 1, kSwitch},
        NumberRow{"rumblelevel",
                  fromBlock<12>,
                  intoBlock<12>,
                  4,
                  4,
                  {{"0", 0}, {"1", 1}, {"5", 5}, {"6", 4}, {"-1", 4}, {"1e300", 4}}},
        NumberRow{"dimtime", fromBlock<13>, intoBlock<13>, 300, 300, kAnyNumber},
        NumberRow{"colorbrightness", getColorBrightness, setColorBrightness, kUnchanged, 5, kOneToTen},
        NumberRow{"colorcontrast", getContrast, setContrast, kUnchanged, 5, kOneToTen},
        NumberRow{"colortemperature",
                  getColorTemperature,
                  setColorTemperature,
                  kUnchanged,
                  10,
                  {{"0", 0}, {"1", 1}, {"20", 20}, {"21", 20}, {"-1", 0}, {"1e300", 20}}},
        NumberRow{"colorsaturation",
                  getSaturation,
                  setSaturation,
                  kUnchanged,
                  5,
                  {{"0", 0}, {"1", 1}, {"10", 10}, {"11", 10}, {"-1", 0}, {"1e300", 10}}},
        NumberRow{"enablehome", fromGlobal<&gEnableHomeWindow>, intoGlobal<&gEnableHomeWindow>, 1, 1, kAnyNumber},
        NumberRow{"focusontab", fromGlobal<&gAllowFocusOnTab>, intoGlobal<&gAllowFocusOnTab>, 1, 1, kAnyNumber},
        NumberRow{"bconfirm", fromBlock<19>, intoBlock<19>, 0, 0, kSwitch},
        NumberRow{"osdshortcut", fromBlock<18>, intoBlock<18>, 0, 0, kAnyNumber},
        NumberRow{"favoritetab", fromGlobal<&gEnableFavoriteTab>, intoGlobal<&gEnableFavoriteTab>, 1, 1, kAnyNumber},
        NumberRow{"recentplayedtab", fromGlobal<&gEnableRecentPlayedTab>, intoGlobal<&gEnableRecentPlayedTab>, 1, 1,
                  kAnyNumber},
        NumberRow{"beststab", fromGlobal<&gEnableBestsTab>, intoGlobal<&gEnableBestsTab>, 1, 1, kAnyNumber},
        NumberRow{"retrogametab", fromGlobal<&gEnableRetroGameTab>, intoGlobal<&gEnableRetroGameTab>, 1, 1, kAnyNumber},
        NumberRow{"portstab", fromGlobal<&gEnablePortsTab>, intoGlobal<&gEnablePortsTab>, 1, 1, kAnyNumber},
        NumberRow{"appstab", fromGlobal<&gEnableAppsTab>, intoGlobal<&gEnableAppsTab>, 1, 1, kAnyNumber},
        NumberRow{"netplaytab", fromGlobal<&gEnableNetPlayTab>, intoGlobal<&gEnableNetPlayTab>, 1, 1, kAnyNumber},
        NumberRow{"fanlevel", fromBlock<20>, intoBlock<20>, -1, -1, kAnyNumber},
        NumberRow{"usejoystick",
                  fromGlobal<&gUseJoystick>,
                  intoGlobal<&gUseJoystick>,
                  1,
                  1,
                  {{"0", 0}, {"1", 1}, {"2", 2}, {"3", 3}, {"4", 1}, {"-1", 1}, {"1e300", 1}}},
        NumberRow{"enablekeytone", fromGlobal<&gEnableKeyTone>, intoGlobal<&gEnableKeyTone>, kUnchanged, 1, kSwitch},
        NumberRow{"enablessh", fromGlobal<&gEnableSSH>, intoGlobal<&gEnableSSH>, kUnchanged, 0, kSwitch}),
    [](const auto& row) { return std::string(row.param.key); });

class SystemStateLoadTest : public SettingsTest {};

// The two numbers that look at "vol".

TEST_F(SystemStateLoadTest, MuteFollowsVolAndNotItsOwnValue) {
    const std::pair<const char*, int> rows[] = {
        {R"({"vol": 0, "mute": 1})", 0},    {R"({"vol": 7, "mute": 0})", 1},    {R"({"vol": 7, "mute": 1})", 1},
        {R"({"vol": 25, "mute": 0})", 1},   {R"({"vol": -1, "mute": 0})", 1},   {R"({"mute": 1})", 0},
        {R"({"vol": "7", "mute": 1})", 0},  {R"({"vol": true, "mute": 1})", 0}, {R"({"vol": 7})", 0},
        {R"({"vol": 7, "mute": true})", 0}, {R"({"vol": 7, "mute": "1"})", 0},  {R"({"vol": 0.5, "mute": 1})", 0},
    };
    for (const auto& [content, mute] : rows) {
        host().shm.values[3] = 3;
        load(content);
        EXPECT_EQ(shm(3), mute) << content;
    }
}

TEST_F(SystemStateLoadTest, BackgroundVolumeIsBoundedByVol) {
    const std::pair<const char*, int> rows[] = {
        {R"({"vol": 20, "bgmvol": 15})", 15},   {R"({"vol": 0, "bgmvol": 15})", 15},
        {R"({"vol": 21, "bgmvol": 15})", 10},   {R"({"vol": 30, "bgmvol": 15})", 10},
        {R"({"vol": -1, "bgmvol": 15})", 10},   {R"({"vol": 5, "bgmvol": 1000})", 1000},
        {R"({"vol": 5, "bgmvol": -3})", -3},    {R"({"bgmvol": 15})", 15},
        {R"({"vol": "30", "bgmvol": 15})", 15}, {R"({"vol": 5})", 10},
        {R"({"vol": 5, "bgmvol": "15"})", 10},  {R"({"vol": 5, "bgmvol": true})", 10},
    };
    for (const auto& [content, volume] : rows) {
        host().shm.values[5] = 3;
        load(content);
        EXPECT_EQ(shm(5), volume) << content;
    }
}

TEST_F(SystemStateLoadTest, AnUnusableFileUnmutesAndSetsTheBackgroundVolume) {
    host().shm.values[3] = 1;
    host().shm.values[5] = 3;
    load("no JSON");
    EXPECT_EQ(shm(3), 0);
    EXPECT_EQ(shm(5), 10);
}

// Texts.

TEST_F(SystemStateLoadTest, LanguageIsSelected) {
    load(R"({"language": "jp.lang"})");
    EXPECT_STREQ(getSystemLanguage(), "jp.lang");
    EXPECT_STREQ(std::getenv("LANG"), "ja_JP.UTF8");
}

TEST_F(SystemStateLoadTest, LanguageStaysWhenMissingOrNoTextOrWhenTheFileIsUnusable) {
    setSystemLanguage("ko.lang");
    for (const char* content : {"{}", R"({"language": 5})", R"({"language": null})", "no JSON", ""}) {
        load(content);
        EXPECT_STREQ(getSystemLanguage(), "ko.lang") << content;
    }
}

TEST_F(SystemStateLoadTest, TimeZoneIsTakenAsItStands) {
    load(R"({"timezone": "Asia/Shanghai"})");
    EXPECT_STREQ(getTimeZone(), "Asia/Shanghai");
    load(R"({"timezone": "/usr/share/zoneinfo/Europe/Berlin"})");
    EXPECT_STREQ(getTimeZone(), "/usr/share/zoneinfo/Europe/Berlin");
    load(R"({"timezone": ""})");
    EXPECT_EQ(getTimeZone(), nullptr);
}

TEST_F(SystemStateLoadTest, TimeZoneKeeps256Bytes) {
    load("{\"timezone\": \"" + std::string(300, 'z') + "\"}");
    EXPECT_EQ(getTimeZone(), std::string(256, 'z'));
}

TEST_F(SystemStateLoadTest, TimeZoneStaysWhenMissingOrNoText) {
    setTimeZone("UTC");
    load("{}");
    EXPECT_STREQ(getTimeZone(), "UTC");
    load(R"({"timezone": 5})");
    EXPECT_STREQ(getTimeZone(), "UTC");
}

TEST_F(SystemStateLoadTest, TimeZoneIsEmptiedByAnUnusableFile) {
    setTimeZone("UTC");
    load("no JSON");
    EXPECT_EQ(getTimeZone(), nullptr);
}

TEST_F(SystemStateLoadTest, StoreUrlIsACopyOfItsOwn) {
    load(R"({"storeurl": "https://example.com/store"})");
    EXPECT_STREQ(gStoreUrl, "https://example.com/store");
    load(R"({"storeurl": ""})");
    EXPECT_STREQ(gStoreUrl, "");
}

TEST_F(SystemStateLoadTest, StoreUrlIsNullWhenMissingOrNoTextOrWhenTheFileIsUnusable) {
    for (const char* content : {"{}", R"({"storeurl": 5})", "no JSON", ""}) {
        load(R"({"storeurl": "https://example.com/store"})");
        load(content);
        EXPECT_EQ(gStoreUrl, nullptr) << content;
    }
}

// The theme.

struct LoadTheme {
    const char* name;
    void (*load)(char** themeOut);
};

void PrintTo(const LoadTheme& load, std::ostream* out) { *out << load.name; }

class ThemeMemberTest : public SettingsTest, public ::testing::WithParamInterface<LoadTheme> {
protected:
    // What the function makes of the file; a text is freed here.
    std::string themeOf(const std::string& content) {
        device().write(kSettingsFile, content);
        char* theme = mSentinel;
        GetParam().load(&theme);
        if (theme == nullptr) return "(null)";
        if (theme == mSentinel) return "(untouched)";
        std::string result = theme;
        std::free(theme);
        return result;
    }

private:
    char mSentinel[1] = "";
};

TEST_P(ThemeMemberTest, AnExistingFolderIsCopied) {
    device().write("/mnt/SDCARD/Themes/dark/.keep", "");
    const std::string folder = device().path("/mnt/SDCARD/Themes/dark/");
    EXPECT_EQ(themeOf("{\"theme\": \"" + folder + "\"}"), folder);
}

TEST_P(ThemeMemberTest, AFileExistsToo) { EXPECT_EQ(themeOf("{\"theme\": \"/dev/null\"}"), "/dev/null"); }

TEST_P(ThemeMemberTest, AMissingFolderIsNull) {
    EXPECT_EQ(themeOf("{\"theme\": \"" + device().path("/mnt/SDCARD/Themes/none/") + "\"}"), "(null)");
    EXPECT_EQ(themeOf(R"({"theme": ""})"), "(null)");
}

TEST_P(ThemeMemberTest, AMissingMemberIsNull) { EXPECT_EQ(themeOf("{}"), "(null)"); }

TEST_P(ThemeMemberTest, AMemberThatIsNoTextIsNull) {
    for (const char* value : {"5", "true", "null", "[\"/dev/null\"]"}) {
        EXPECT_EQ(themeOf(std::string("{\"theme\": ") + value + "}"), "(null)") << value;
    }
}

TEST_P(ThemeMemberTest, TheMemberOfTheLanguageWins) {
    EXPECT_EQ(themeOf(R"({"theme": "/dev/null", "theme.en.lang": "/dev/zero"})"), "/dev/zero");
}

TEST_P(ThemeMemberTest, AnUnusableFileLeavesTheParameterAlone) {
    EXPECT_EQ(themeOf("no JSON"), "(untouched)");
    EXPECT_EQ(themeOf(""), "(untouched)");
    device().remove("/mnt/UDISK");
    char* theme = nullptr;
    GetParam().load(&theme);
    EXPECT_EQ(theme, nullptr);
}

TEST_P(ThemeMemberTest, TheParameterMayBeNull) {
    device().write(kSettingsFile, R"({"theme": "/dev/null"})");
    GetParam().load(nullptr);
    device().write(kSettingsFile, "no JSON");
    GetParam().load(nullptr);
}

INSTANTIATE_TEST_SUITE_P(BothLoads, ThemeMemberTest,
                         ::testing::Values(LoadTheme{"SystemState", [](char** out) { loadSystemState(gShmInfo, out); }},
                                           LoadTheme{"ThemeInfo", loadThemeInfo}),
                         [](const auto& load) { return std::string(load.param.name); });

TEST_F(SystemStateLoadTest, ThemeInfoReadsNothingElse) {
    device().write(kSettingsFile, R"({"vol": 9, "language": "ko.lang", "usejoystick": 3, "storeurl": "x"})");
    LogCapture log;
    loadThemeInfo(nullptr);
    EXPECT_THAT(host().shm.writes, IsEmpty());
    EXPECT_STREQ(getSystemLanguage(), "en.lang");
    EXPECT_EQ(gUseJoystick, 1);
    EXPECT_EQ(gStoreUrl, nullptr);
    EXPECT_EQ(log.text(), "");
}

// The file as a whole.

TEST_F(SystemStateLoadTest, TheStatusBlockIsWrittenInTheOrderOfLoading) {
    load(R"({"fanlevel": 2, "bconfirm": 1, "osdshortcut": 7, "dimtime": 60, "rumblelevel": 1, "menustylel2": 3,
             "menustylel1": 2, "ledvalue": 9, "ledswitch": 0, "cpufreq": 5, "bluetooth": 1, "hostap": 1, "wifi": 1,
             "netplay": 1, "brightness": 8, "bgmvol": 11, "mute": 1, "keymap": 1, "vol": 12})");
    EXPECT_THAT(host().shm.writes,
                ElementsAre(Pair(0, 12), Pair(2, 1), Pair(3, 1), Pair(5, 11), Pair(1, 8), Pair(6, 1), Pair(14, 1),
                            Pair(15, 1), Pair(16, 1), Pair(7, 5), Pair(8, 0), Pair(10, 9), Pair(9, 2), Pair(11, 3),
                            Pair(12, 1), Pair(13, 60), Pair(19, 1), Pair(18, 7), Pair(20, 2)));
}

TEST_F(SystemStateLoadTest, AnUnusableFileWritesItsDefaultsInTheirOrder) {
    loadSystemState(gShmInfo, nullptr);
    EXPECT_THAT(host().shm.writes,
                ElementsAre(Pair(0, 14), Pair(2, 0), Pair(3, 0), Pair(5, 10), Pair(1, 6), Pair(6, 0), Pair(7, 0),
                            Pair(8, 1), Pair(10, 4), Pair(9, 1), Pair(11, 0), Pair(12, 4), Pair(13, 300), Pair(14, 0),
                            Pair(15, 0), Pair(16, 0), Pair(19, 0), Pair(20, -1), Pair(18, 0)));
}

TEST_F(SystemStateLoadTest, TheStatusBlockGivenIsWritten) {
    ShmInfo other;
    device().write(kSettingsFile, R"({"vol": 9})");
    loadSystemState(&other, nullptr);
    EXPECT_EQ(other.values[0], 9);
    EXPECT_THAT(host().shm.writes, IsEmpty());
}

TEST_F(SystemStateLoadTest, ColourLevelsReachTheDisplay) {
    load(R"({"colorbrightness": 7, "colorcontrast": 8, "colortemperature": 4, "colorsaturation": 0})");
    EXPECT_EQ(device().read("/sys/devices/virtual/disp/disp/attr/enhance_bright"), "70");
    EXPECT_EQ(device().read("/sys/devices/virtual/disp/disp/attr/enhance_contrast"), "80");
    EXPECT_EQ(device().read("/sys/devices/virtual/disp/disp/attr/color_temperature"), "-30");
    EXPECT_EQ(device().read("/sys/devices/virtual/disp/disp/attr/enhance_saturation"), "0");
}

TEST_F(SystemStateLoadTest, TheMemberOfTheLanguageWins) {
    setSystemLanguage("ch.lang");
    load(R"({"dimtime": 60, "dimtime.ch.lang": 90, "dimtime.en.lang": 120})");
    EXPECT_EQ(shm(13), 90);
}

TEST_F(SystemStateLoadTest, ALoadedLanguageCountsForTheMembersLoadedAfterIt) {
    load(R"({"brightness": 1, "brightness.ch.lang": 2, "brightness.en.lang": 3, "dimtime": 60, "dimtime.ch.lang": 90,
             "dimtime.en.lang": 120, "language": "ch.lang"})");
    EXPECT_EQ(shm(1), 3);
    EXPECT_EQ(shm(13), 90);
}

TEST_F(SystemStateLoadTest, MuteLooksAtTheVolOfTheLanguage) {
    load(R"({"vol": 0, "vol.en.lang": 5, "mute": 1})");
    EXPECT_EQ(shm(0), 5);
    EXPECT_EQ(shm(3), 1);
}

TEST_F(SystemStateLoadTest, NamesIgnoreCaseAndTheFirstOfSeveralCounts) {
    load(R"({"VOL": 3, "vol": 4, "DimTime": 60, "dimtime": 90, "StoreURL": "first", "storeurl": "second"})");
    EXPECT_EQ(shm(0), 3);
    EXPECT_EQ(shm(13), 60);
    EXPECT_STREQ(gStoreUrl, "first");
}

TEST_F(SystemStateLoadTest, ADocumentThatIsNoObjectIsAFileWithoutMembers) {
    for (const char* content : {"[]", "[{\"vol\": 3}]", "7", "null", "\"vol\""}) {
        host().reset();
        host().shm.values[14] = 3;
        load(content);
        EXPECT_EQ(shm(0), 14) << content;
        EXPECT_EQ(shm(14), 3) << content;
    }
}

TEST_F(SystemStateLoadTest, AFileCutAtAnyByteIsUnusable) {
    const std::string whole = R"({"vol":5,"language":"ch.lang","wifi":1,"fanlevel":2,"timezone":"UTC"})";
    for (std::size_t size = 0; size < whole.size(); ++size) {
        host().shm.values[0] = 3;
        host().shm.values[14] = 3;
        LogCapture log;
        load(whole.substr(0, size));
        EXPECT_EQ(shm(0), 14) << size;
        EXPECT_EQ(shm(14), 0) << size;
        EXPECT_EQ(shm(20), -1) << size;
        EXPECT_STREQ(getSystemLanguage(), "en.lang") << size;
        EXPECT_EQ(log.text(), size == 0 ? device().path(kSettingsFile) + " invalid size 0\n" : "") << size;
    }
    load(whole);
    EXPECT_EQ(shm(0), 5);
    EXPECT_EQ(shm(14), 1);
    EXPECT_EQ(shm(20), 2);
}

TEST_F(SystemStateLoadTest, AFileOf131071BytesIsLoaded) {
    std::string content = R"({"vol": 5})";
    content.resize(131071, ' ');
    LogCapture log;
    load(content);
    EXPECT_EQ(shm(0), 5);
    EXPECT_EQ(log.text(), "");
}

TEST_F(SystemStateLoadTest, AFileOf131072BytesIsUnusable) {
    std::string content = R"({"vol": 5})";
    content.resize(131072, ' ');
    LogCapture log;
    load(content);
    EXPECT_EQ(shm(0), 14);
    EXPECT_EQ(log.text(), device().path(kSettingsFile) + " invalid size 131072\n");
}

TEST_F(SystemStateLoadTest, LoadingIsSilent) {
    LogCapture log;
    LogCapture errors(LogCapture::Stream::Error);
    load(R"({"vol": 5, "theme": "/nowhere"})");
    load("no JSON");
    device().remove("/mnt");
    loadSystemState(gShmInfo, nullptr);
    EXPECT_EQ(log.text(), "");
    EXPECT_EQ(errors.text(), "");
}

}  // namespace
