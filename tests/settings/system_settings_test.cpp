#include "ostrel/system_settings.h"

#include <climits>
#include <cstdlib>

#include "support/test_device.h"

namespace {

// What the library answers before anything was loaded or set; read before main, because the values live as long as the
// process and other tests change them.
struct InitialSettings {
    std::string language = getSystemLanguage();
    bool zoneIsNull = getTimeZone() == nullptr;
    int clock24 = get24HourClockFlag();
    int networkTime = getSyncTimeFromNetworkFlag();
};
const InitialSettings kInitialSettings;

class SystemSettingsTest : public ostreltest::DeviceTest {
protected:
    SystemSettingsTest() { reset(); }
    ~SystemSettingsTest() override { reset(); }

    static std::string environment() {
        const char* value = std::getenv("LANG");
        return value == nullptr ? "(unset)" : value;
    }

private:
    static void reset() {
        setSystemLanguage("");
        setTimeZone("");
        set24HourClockFlag(1);
        setSyncTimeFromNetworkFlag(1);
        setenv("LANG", "C", 1);
    }
};

TEST(SystemSettingsInitialTest, ValuesBeforeAnyLoad) {
    EXPECT_EQ(kInitialSettings.language, "en.lang");
    EXPECT_TRUE(kInitialSettings.zoneIsNull);
    EXPECT_EQ(kInitialSettings.clock24, 1);
    EXPECT_EQ(kInitialSettings.networkTime, 1);
}

// Language.

struct LocaleRow {
    const char* languageFile;
    const char* lang;
};

void PrintTo(const LocaleRow& row, std::ostream* out) { *out << row.languageFile; }

class LocaleTest : public SystemSettingsTest, public ::testing::WithParamInterface<LocaleRow> {};

TEST_P(LocaleTest, KnownLanguageSetsTheLocaleOfTheProcess) {
    setSystemLanguage(GetParam().languageFile);
    EXPECT_EQ(environment(), GetParam().lang);
    EXPECT_STREQ(getSystemLanguage(), GetParam().languageFile);
}

INSTANTIATE_TEST_SUITE_P(AllLanguages, LocaleTest,
                         ::testing::Values(LocaleRow{"en.lang", "en_US.UTF8"}, LocaleRow{"ch.lang", "zh_CN.UTF8"},
                                           LocaleRow{"es.lang", "es_ES.UTF8"}, LocaleRow{"pt.lang", "pt_BR.UTF8"},
                                           LocaleRow{"jp.lang", "ja_JP.UTF8"}, LocaleRow{"ko.lang", "ko_KR.UTF8"}),
                         [](const auto& row) { return std::string(row.param.languageFile, 2); });

TEST_F(SystemSettingsTest, LanguageInUpperCaseSetsTheLocaleAndIsStoredAsGiven) {
    setSystemLanguage("JP.LANG");
    EXPECT_EQ(environment(), "ja_JP.UTF8");
    EXPECT_STREQ(getSystemLanguage(), "JP.LANG");
}

TEST_F(SystemSettingsTest, UnknownLanguageIsStoredAndLeavesTheLocale) {
    setSystemLanguage("es.lang");
    for (const char* name : {"fr.lang", "es", "es.lang2", "xes.lang", "lang/es.lang"}) {
        setSystemLanguage(name);
        EXPECT_STREQ(getSystemLanguage(), name);
        EXPECT_EQ(environment(), "es_ES.UTF8") << name;
    }
}

TEST_F(SystemSettingsTest, EmptyLanguageIsEnglishAndLeavesTheLocale) {
    setSystemLanguage("ko.lang");
    setSystemLanguage("");
    EXPECT_STREQ(getSystemLanguage(), "en.lang");
    EXPECT_EQ(environment(), "ko_KR.UTF8");
}

TEST_F(SystemSettingsTest, NullLanguageCountsAsEmpty) {
    setSystemLanguage("ko.lang");
    setSystemLanguage(nullptr);
    EXPECT_STREQ(getSystemLanguage(), "en.lang");
}

TEST_F(SystemSettingsTest, LanguageKeeps64BytesAndEndsInZero) {
    setSystemLanguage(std::string(64, 'a').c_str());
    EXPECT_EQ(getSystemLanguage(), std::string(64, 'a'));
    setSystemLanguage(std::string(65, 'b').c_str());
    EXPECT_EQ(getSystemLanguage(), std::string(64, 'b'));
    setSystemLanguage(std::string(5000, 'c').c_str());
    EXPECT_EQ(getSystemLanguage(), std::string(64, 'c'));
    setSystemLanguage("short");
    EXPECT_STREQ(getSystemLanguage(), "short");
}

TEST_F(SystemSettingsTest, LanguageMayBeGivenItsOwnText) {
    setSystemLanguage("zh/ch.lang");
    setSystemLanguage(getSystemLanguage());
    EXPECT_STREQ(getSystemLanguage(), "zh/ch.lang");
    setSystemLanguage(getSystemLanguage() + 3);
    EXPECT_STREQ(getSystemLanguage(), "ch.lang");
    EXPECT_EQ(environment(), "zh_CN.UTF8");
}

// Clock and time zone.

TEST_F(SystemSettingsTest, ClockFlagsKeepAnyValue) {
    for (const int flag : {0, 1, 2, -1, INT_MAX, INT_MIN}) {
        set24HourClockFlag(flag);
        EXPECT_EQ(get24HourClockFlag(), flag);
        setSyncTimeFromNetworkFlag(flag);
        EXPECT_EQ(getSyncTimeFromNetworkFlag(), flag);
    }
}

TEST_F(SystemSettingsTest, ClockFlagsAreSeparate) {
    set24HourClockFlag(0);
    EXPECT_EQ(getSyncTimeFromNetworkFlag(), 1);
    set24HourClockFlag(1);
    setSyncTimeFromNetworkFlag(0);
    EXPECT_EQ(get24HourClockFlag(), 1);
}

TEST_F(SystemSettingsTest, PathOfAZoneFileStoresTheZone) {
    setTimeZone("/usr/share/zoneinfo/Europe/Berlin");
    EXPECT_STREQ(getTimeZone(), "Europe/Berlin");
}

TEST_F(SystemSettingsTest, NameOfAZoneIsStoredWhole) {
    setTimeZone("UTC");
    EXPECT_STREQ(getTimeZone(), "UTC");
}

TEST_F(SystemSettingsTest, ZoneFolderIsFoundAnywhere) {
    setTimeZone("../mnt/usr/share/zoneinfo/Asia/Shanghai");
    EXPECT_STREQ(getTimeZone(), "Asia/Shanghai");
}

TEST_F(SystemSettingsTest, OnlyTheFirstZoneFolderIsCutOff) {
    setTimeZone("/usr/share/zoneinfo/right/usr/share/zoneinfo/UTC");
    EXPECT_STREQ(getTimeZone(), "right/usr/share/zoneinfo/UTC");
}

TEST_F(SystemSettingsTest, TheCharacterBehindTheZoneFolderIsDroppedWhateverItIs) {
    setTimeZone("/usr/share/zoneinfo-posix/UTC");
    EXPECT_STREQ(getTimeZone(), "posix/UTC");
}

TEST_F(SystemSettingsTest, ZoneFolderAloneIsNoZone) {
    for (const char* zone : {"/usr/share/zoneinfo", "/usr/share/zoneinfo/"}) {
        setTimeZone("UTC");
        setTimeZone(zone);
        EXPECT_EQ(getTimeZone(), nullptr) << zone;
    }
}

TEST_F(SystemSettingsTest, EmptyAndNullZonesAreNull) {
    setTimeZone("UTC");
    setTimeZone("");
    EXPECT_EQ(getTimeZone(), nullptr);
    setTimeZone("UTC");
    setTimeZone(nullptr);
    EXPECT_EQ(getTimeZone(), nullptr);
}

TEST_F(SystemSettingsTest, ZoneKeeps256BytesAndEndsInZero) {
    setTimeZone(std::string(256, 'a').c_str());
    EXPECT_EQ(getTimeZone(), std::string(256, 'a'));
    setTimeZone(std::string(257, 'b').c_str());
    EXPECT_EQ(getTimeZone(), std::string(256, 'b'));
    setTimeZone(("/usr/share/zoneinfo/" + std::string(257, 'c')).c_str());
    EXPECT_EQ(getTimeZone(), std::string(256, 'c'));
}

TEST_F(SystemSettingsTest, ZoneMayBeGivenItsOwnText) {
    setTimeZone("America/Argentina/Ushuaia");
    setTimeZone(getTimeZone());
    EXPECT_STREQ(getTimeZone(), "America/Argentina/Ushuaia");
    setTimeZone(getTimeZone() + 8);
    EXPECT_STREQ(getTimeZone(), "Argentina/Ushuaia");
}

// Shortcut of the on-screen display.

TEST(OsdShortcutTest, ThereAre23) { EXPECT_EQ(getOSDShortcutNumber(), 23); }

TEST(OsdShortcutTest, EveryIndexHasItsName) {
    EXPECT_STREQ(getOSDShorcut(0), "HOME");
    EXPECT_STREQ(getOSDShorcut(1), "MENU+SELECT");
    EXPECT_STREQ(getOSDShorcut(2), "MENU+START");
    EXPECT_STREQ(getOSDShorcut(3), "MENU+MENU");
    EXPECT_STREQ(getOSDShorcut(4), "MENU+L2");
    EXPECT_STREQ(getOSDShorcut(5), "MENU+R2");
    EXPECT_STREQ(getOSDShorcut(6), "MENU+L");
    EXPECT_STREQ(getOSDShorcut(7), "MENU+R");
    EXPECT_STREQ(getOSDShorcut(8), "MENU+A");
    EXPECT_STREQ(getOSDShorcut(9), "MENU+B");
    EXPECT_STREQ(getOSDShorcut(10), "MENU+X");
    EXPECT_STREQ(getOSDShorcut(11), "MENU+Y");
    EXPECT_STREQ(getOSDShorcut(12), "SELECT+START");
    EXPECT_STREQ(getOSDShorcut(13), "SELECT+L2");
    EXPECT_STREQ(getOSDShorcut(14), "SELECT+R2");
    EXPECT_STREQ(getOSDShorcut(15), "SELECT+L");
    EXPECT_STREQ(getOSDShorcut(16), "SELECT+R");
    EXPECT_STREQ(getOSDShorcut(17), "START+L2");
    EXPECT_STREQ(getOSDShorcut(18), "START+R2");
    EXPECT_STREQ(getOSDShorcut(19), "START+L");
    EXPECT_STREQ(getOSDShorcut(20), "START+R");
    EXPECT_STREQ(getOSDShorcut(21), "MENU+L2+R2");
    EXPECT_STREQ(getOSDShorcut(22), "OFF");
}

TEST(OsdShortcutTest, OtherIndicesHaveNone) {
    for (const int index : {-1, 23, 24, INT_MAX, INT_MIN}) EXPECT_EQ(getOSDShorcut(index), nullptr) << index;
}

}  // namespace
