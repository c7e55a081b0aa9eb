#include <sys/stat.h>

#include "i18n/lang_file.h"
#include "ostrel/language.h"
#include "ostrel/system_settings.h"
#include "support/child_process.h"
#include "support/log_capture.h"
#include "support/test_device.h"

namespace {

using ostrel::englishRecord;
using ostrel::LangRecord;
using ostrel::mergeLangRecord;
using ostrel::readLangFile;
using ostrel::writeEnglishFile;
using ostreltest::LogCapture;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::StartsWith;

class LangFileTest : public ostreltest::DeviceTest {
protected:
    LangFileTest() { setSystemLanguage(""); }
    ~LangFileTest() override {
        gDefaultStringList = mDefaults;
        setSystemLanguage("");
    }

    bool read(const std::string& content, LangRecord& record) {
        device().write("lang/de.lang", content);
        return readLangFile("./lang/de.lang", record);
    }

    std::vector<std::string> logOfReading(const std::string& content) {
        LangRecord record;
        LogCapture log;
        read(content, record);
        return log.lines();
    }

private:
    std::vector<std::string> mDefaults = gDefaultStringList;
};

// Reading.

TEST_F(LangFileTest, ReadsNameIconAndTexts) {
    LangRecord record;
    EXPECT_TRUE(read(R"({"lang": "Deutsch", "icon": "de.png", "0": "Abbrechen", "1": "Gut", "2": "LADEN", "3": "Warten",
                         "4": "AUF", "5": "ZU", "6": "WEG", "7": "WAHL"})",
                     record));
    EXPECT_EQ(record.fileName, "de.lang");
    EXPECT_EQ(record.langName, "Deutsch");
    EXPECT_EQ(record.iconPath, "skin/de.png");
    EXPECT_THAT(record.strings, ElementsAre(Pair(0, "Abbrechen"), Pair(1, "Gut"), Pair(2, "LADEN"), Pair(3, "Warten"),
                                            Pair(4, "AUF"), Pair(5, "ZU"), Pair(6, "WEG"), Pair(7, "WAHL")));
    EXPECT_THAT(record.standIns, IsEmpty());
}

TEST_F(LangFileTest, AGoodFileLogsItsStartAndItsEnd) {
    EXPECT_THAT(logOfReading(R"({"lang": "Deutsch"})"),
                ElementsAre("lang file ./lang/de.lang", "read lang file ./lang/de.lang ok=1"));
}

TEST_F(LangFileTest, EnglishStandsInForMissingTexts) {
    LangRecord record;
    EXPECT_TRUE(read(R"({"lang": "Deutsch", "1": "Gut"})", record));
    EXPECT_THAT(record.strings,
                ElementsAre(Pair(0, "Cancel"), Pair(1, "Gut"), Pair(2, "LOADING..."), Pair(3, "LOADING..."),
                            Pair(4, "OPEN"), Pair(5, "BACK"), Pair(6, "NAV"), Pair(7, "MENU")));
    EXPECT_THAT(record.standIns, ElementsAre(0, 2, 3, 4, 5, 6, 7));
}

TEST_F(LangFileTest, EnglishStandsInForMembersThatAreNoStrings) {
    LangRecord record;
    EXPECT_TRUE(read(R"({"lang": "Deutsch", "0": 5, "1": true, "2": null, "3": ["a"], "4": {"a": "b"}})", record));
    EXPECT_EQ(record.strings[0], "Cancel");
    EXPECT_EQ(record.strings[1], "OK");
    EXPECT_EQ(record.strings[2], "LOADING...");
    EXPECT_EQ(record.strings[3], "LOADING...");
    EXPECT_EQ(record.strings[4], "OPEN");
}

TEST_F(LangFileTest, AnEmptyTextIsAText) {
    LangRecord record;
    EXPECT_TRUE(read(R"({"lang": "", "icon": "", "0": ""})", record));
    EXPECT_EQ(record.langName, "");
    EXPECT_EQ(record.iconPath, "skin/");
    EXPECT_EQ(record.strings[0], "");
    EXPECT_EQ(record.standIns.count(0), 0U);
}

TEST_F(LangFileTest, TextsBeyondTheListAndOtherMembersAreIgnored) {
    LangRecord record;
    EXPECT_TRUE(read(R"({"lang": "Deutsch", "-1": "a", "8": "b", "00": "c", "1.0": "d", "version": "e"})", record));
    EXPECT_EQ(record.strings.size(), 8U);
    EXPECT_EQ(record.standIns.size(), 8U);
}

TEST_F(LangFileTest, TheListOfTheProgramDecidesHowManyTextsAreRead) {
    for (int i = 8; i < 1001; ++i) gDefaultStringList.push_back("text " + std::to_string(i));
    LangRecord record;
    EXPECT_TRUE(read(R"({"lang": "Deutsch", "8": "acht", "1000": "tausend", "1001": "zu viel"})", record));
    EXPECT_EQ(record.strings.size(), 1001U);
    EXPECT_EQ(record.strings[8], "acht");
    EXPECT_EQ(record.strings[9], "text 9");
    EXPECT_EQ(record.strings[1000], "tausend");
}

TEST_F(LangFileTest, BytesThatAreNoUtf8AreKept) {
    LangRecord record;
    EXPECT_TRUE(read("{\"lang\": \"\xFF\", \"0\": \"a\xC3\"}", record));
    EXPECT_EQ(record.langName, "\xFF");
    EXPECT_EQ(record.strings[0], "a\xC3");
}

TEST_F(LangFileTest, MembersOfTheSelectedLanguageWin) {
    setSystemLanguage("ch.lang");
    LangRecord record;
    EXPECT_TRUE(read(R"({"lang": "German", "lang.ch.lang": "Deyu", "icon.ch.lang": "dy.png", "0": "a", "0.ch.lang": "b",
                         "1.ch.lang": 5, "1": "Gut"})",
                     record));
    EXPECT_EQ(record.langName, "Deyu");
    EXPECT_EQ(record.iconPath, "skin/dy.png");
    EXPECT_EQ(record.strings[0], "b");
    EXPECT_EQ(record.strings[1], "OK");
}

TEST_F(LangFileTest, AFileWithoutIconKeepsTheIconOfTheRecord) {
    LangRecord record;
    EXPECT_TRUE(read(R"({"lang": "Deutsch", "icon": "de.png"})", record));
    EXPECT_TRUE(read(R"({"lang": "Latein"})", record));
    EXPECT_EQ(record.iconPath, "skin/de.png");
    EXPECT_TRUE(read(R"({"lang": "Latein", "icon": 5})", record));
    EXPECT_EQ(record.iconPath, "skin/de.png");
}

TEST_F(LangFileTest, TextsOfTheFileReadBeforeAreDropped) {
    LangRecord record;
    EXPECT_TRUE(read(R"({"lang": "Deutsch", "0": "Abbrechen"})", record));
    EXPECT_TRUE(read(R"({"lang": "Latein"})", record));
    EXPECT_EQ(record.strings[0], "Cancel");
}

// Files that cannot be used.

TEST_F(LangFileTest, AMissingFileEmptiesTheTextsAndLogsOneLine) {
    LangRecord record = englishRecord();
    LogCapture log;
    EXPECT_FALSE(readLangFile("./lang/none.lang", record));
    EXPECT_EQ(log.text(), "read lang file ./lang/none.lang ok=0\n");
    EXPECT_THAT(record.strings, IsEmpty());
    EXPECT_EQ(record.fileName, "en.lang");
}

TEST_F(LangFileTest, AFileThatMayNotBeReadLogsOneLine) {
    device().write("lang/de.lang", R"({"lang": "Deutsch"})");
    chmod(device().path("lang/de.lang").c_str(), 0);
    const auto readIt = [] {
        LangRecord record;
        LogCapture log;
        EXPECT_FALSE(readLangFile("./lang/de.lang", record));
        EXPECT_EQ(log.text(), "read lang file ./lang/de.lang ok=0\n");
    };
    EXPECT_TRUE(ostreltest::passesInChild(readIt, ostreltest::ChildUser::Unprivileged));
}

TEST_F(LangFileTest, AnEmptyFileIsRefused) {
    EXPECT_THAT(logOfReading(""),
                ElementsAre("lang file ./lang/de.lang", "./lang/de.lang invalid size 0",
                            "read ./lang/de.lang content fail", "read lang file ./lang/de.lang ok=0"));
}

TEST_F(LangFileTest, AFileOf131071BytesIsRead) {
    std::string content = R"({"lang": "Deutsch", "0": "Abbrechen"})";
    content.resize(131071, ' ');
    LangRecord record;
    EXPECT_TRUE(read(content, record));
    EXPECT_EQ(record.strings[0], "Abbrechen");
}

TEST_F(LangFileTest, AFileOf131072BytesIsRefused) {
    std::string content = R"({"lang": "Deutsch", "0": "Abbrechen"})";
    content.resize(131072, ' ');
    EXPECT_THAT(logOfReading(content),
                ElementsAre("lang file ./lang/de.lang", "./lang/de.lang invalid size 131072",
                            "read ./lang/de.lang content fail", "read lang file ./lang/de.lang ok=0"));
}

TEST_F(LangFileTest, AFileThatCannotBeReadLeavesTheNamesAndEmptiesTheTexts) {
    LangRecord record = englishRecord();
    EXPECT_FALSE(read("", record));
    EXPECT_EQ(record.fileName, "en.lang");
    EXPECT_EQ(record.langName, "English");
    EXPECT_THAT(record.strings, IsEmpty());
}

TEST_F(LangFileTest, APathWithoutSlashIsRefusedWithoutAReason) {
    device().write("de.lang", R"({"lang": "Deutsch"})");
    LangRecord record;
    LogCapture log;
    EXPECT_FALSE(readLangFile("de.lang", record));
    EXPECT_THAT(log.lines(), ElementsAre("lang file de.lang", "read lang file de.lang ok=0"));
    EXPECT_EQ(record.fileName, "");
}

TEST_F(LangFileTest, TheNameIsWhatFollowsTheLastSlash) {
    device().write("lang/a/b/de.lang", R"({"lang": "Deutsch"})");
    LangRecord record;
    EXPECT_TRUE(readLangFile("./lang/a/b/de.lang", record));
    EXPECT_EQ(record.fileName, "de.lang");
}

TEST_F(LangFileTest, TextThatIsNoJsonLogsWhereItStopsMakingSense) {
    EXPECT_THAT(logOfReading(R"({"lang": "Deutsch" "0": "x"})"),
                ElementsAre("lang file ./lang/de.lang", R"(parse ./lang/de.lang content fail:"0": "x"})",
                            "read lang file ./lang/de.lang ok=0"));
}

TEST_F(LangFileTest, PercentSignsOfABrokenFileAreLoggedAsTheyAre) {
    EXPECT_THAT(logOfReading(R"({"lang": "Deutsch" %s%n%d})"),
                ElementsAre("lang file ./lang/de.lang", "parse ./lang/de.lang content fail:%s%n%d}",
                            "read lang file ./lang/de.lang ok=0"));
}

TEST_F(LangFileTest, ABrokenFileGivesItsNameAndNoTexts) {
    LangRecord record = englishRecord();
    EXPECT_FALSE(read("no JSON", record));
    EXPECT_EQ(record.fileName, "de.lang");
    EXPECT_EQ(record.langName, "English");
    EXPECT_THAT(record.strings, IsEmpty());
}

TEST_F(LangFileTest, AFileCutAtAnyByteIsRefused) {
    const std::string whole = R"({"lang":"Deutsch","icon":"de.png","0":"Abbrechen","1":"\u00fc"})";
    for (std::size_t size = 1; size < whole.size(); ++size) {
        EXPECT_THAT(logOfReading(whole.substr(0, size)),
                    ElementsAre("lang file ./lang/de.lang", StartsWith("parse ./lang/de.lang content fail:"),
                                "read lang file ./lang/de.lang ok=0"))
            << size;
    }
    LangRecord record;
    EXPECT_TRUE(read(whole, record));
    EXPECT_EQ(record.strings[1], "\xC3\xBC");
}

TEST_F(LangFileTest, AFileWithoutLangIsRefused) {
    for (const char* content : {"{}", R"({"0": "a"})", R"({"lang": 5})", R"({"lang": null})", "[]", "7", "null"}) {
        EXPECT_THAT(logOfReading(content), ElementsAre("lang file ./lang/de.lang", "./lang/de.lang have no lang string",
                                                       "read lang file ./lang/de.lang ok=0"))
            << content;
    }
}

TEST_F(LangFileTest, AFileWithoutLangChangesNeitherIconNorTexts) {
    LangRecord record;
    EXPECT_TRUE(read(R"({"lang": "Deutsch", "icon": "de.png"})", record));
    EXPECT_FALSE(read(R"({"icon": "other.png", "0": "a"})", record));
    EXPECT_EQ(record.langName, "Deutsch");
    EXPECT_EQ(record.iconPath, "skin/de.png");
    EXPECT_THAT(record.strings, IsEmpty());
    EXPECT_THAT(record.standIns, IsEmpty());
}

// Writing.

TEST_F(LangFileTest, WritesTheEnglishTexts) {
    device().write("lang/en.lang",
                   "something longer than what is going to be written, and so on until it is long enough"
                   " to stand behind the new text if the file were not emptied first.................");
    LogCapture log;
    EXPECT_TRUE(writeEnglishFile("./lang/en.lang"));
    EXPECT_EQ(device().read("lang/en.lang"),
              "{\n"
              "\t\"lang\":\t\"English\",\n"
              "\t\"0\":\t\"Cancel\",\n"
              "\t\"1\":\t\"OK\",\n"
              "\t\"2\":\t\"LOADING...\",\n"
              "\t\"3\":\t\"LOADING...\",\n"
              "\t\"4\":\t\"OPEN\",\n"
              "\t\"5\":\t\"BACK\",\n"
              "\t\"6\":\t\"NAV\",\n"
              "\t\"7\":\t\"MENU\"\n"
              "}");
    EXPECT_EQ(log.text(), "");
}

TEST_F(LangFileTest, WritesTheTextsOfTheProgramToo) {
    gDefaultStringList = {"a \"b\"", "", "ü\n"};
    device().write("lang/.keep", "");
    EXPECT_TRUE(writeEnglishFile("./lang/en.lang"));
    EXPECT_EQ(device().read("lang/en.lang"),
              "{\n"
              "\t\"lang\":\t\"English\",\n"
              "\t\"0\":\t\"a \\\"b\\\"\",\n"
              "\t\"1\":\t\"\",\n"
              "\t\"2\":\t\"ü\\n\"\n"
              "}");
}

TEST_F(LangFileTest, WritingIntoAMissingFolderFailsInSilence) {
    LogCapture log;
    EXPECT_FALSE(writeEnglishFile("./lang/en.lang"));
    EXPECT_EQ(log.text(), "");
}

TEST_F(LangFileTest, WritingToAFullDiskFails) { EXPECT_FALSE(writeEnglishFile("/dev/full")); }

TEST_F(LangFileTest, TheCompiledInEnglishHasEveryTextOfTheProgram) {
    gDefaultStringList.emplace_back("Shut down");
    const LangRecord record = englishRecord();
    EXPECT_EQ(record.fileName, "en.lang");
    EXPECT_EQ(record.langName, "English");
    EXPECT_EQ(record.iconPath, "");
    EXPECT_THAT(record.strings,
                ElementsAre(Pair(0, "Cancel"), Pair(1, "OK"), Pair(2, "LOADING..."), Pair(3, "LOADING..."),
                            Pair(4, "OPEN"), Pair(5, "BACK"), Pair(6, "NAV"), Pair(7, "MENU"), Pair(8, "Shut down")));
}

// Merging.

LangRecord record(const std::string& fileName, std::map<int, std::string> strings, std::set<int> standIns = {}) {
    return {fileName, "Deutsch", "skin/" + fileName + ".png", std::move(strings), std::move(standIns)};
}

TEST(LangMergeTest, TextsGivenFirstStay) {
    LangRecord merged = record("de.lang", {{0, "first"}, {1, "first"}});
    mergeLangRecord(merged, record("de2.lang", {{0, "second"}, {1, "second"}}));
    EXPECT_THAT(merged.strings, ElementsAre(Pair(0, "first"), Pair(1, "first")));
}

TEST(LangMergeTest, AGivenTextReplacesAStandIn) {
    LangRecord merged = record("de.lang", {{0, "Cancel"}, {1, "first"}}, {0});
    mergeLangRecord(merged, record("de2.lang", {{0, "second"}, {1, "second"}}));
    EXPECT_THAT(merged.strings, ElementsAre(Pair(0, "second"), Pair(1, "first")));
    EXPECT_THAT(merged.standIns, IsEmpty());
}

TEST(LangMergeTest, AStandInReplacesNothing) {
    LangRecord merged = record("de.lang", {{0, "first"}, {1, "older English"}}, {1});
    mergeLangRecord(merged, record("de2.lang", {{0, "Cancel"}, {1, "OK"}}, {0, 1}));
    EXPECT_THAT(merged.strings, ElementsAre(Pair(0, "first"), Pair(1, "older English")));
    EXPECT_THAT(merged.standIns, ElementsAre(1));
}

TEST(LangMergeTest, TextsThatTheFirstLacksAreAdded) {
    LangRecord merged = record("de.lang", {{0, "first"}});
    mergeLangRecord(merged, record("de2.lang", {{0, "second"}, {1, "second"}, {2, "LOADING..."}}, {2}));
    EXPECT_THAT(merged.strings, ElementsAre(Pair(0, "first"), Pair(1, "second"), Pair(2, "LOADING...")));
    EXPECT_THAT(merged.standIns, ElementsAre(2));
    mergeLangRecord(merged, record("de3.lang", {{2, "third"}}));
    EXPECT_EQ(merged.strings[2], "third");
}

TEST(LangMergeTest, AStrictlyShorterFileNameIsTaken) {
    LangRecord merged = record("german.lang", {});
    mergeLangRecord(merged, record("de.lang", {}));
    EXPECT_EQ(merged.fileName, "de.lang");
    mergeLangRecord(merged, record("at.lang", {}));
    EXPECT_EQ(merged.fileName, "de.lang");
    mergeLangRecord(merged, record("austria.lang", {}));
    EXPECT_EQ(merged.fileName, "de.lang");
}

TEST(LangMergeTest, TheIconOfTheFirstFileStays) {
    LangRecord merged = record("german.lang", {});
    mergeLangRecord(merged, record("de.lang", {}));
    EXPECT_EQ(merged.iconPath, "skin/german.lang.png");
    LangRecord plain{"german.lang", "Deutsch", "", {}, {}};
    mergeLangRecord(plain, record("de.lang", {}));
    EXPECT_EQ(plain.iconPath, "");
}

}  // namespace
