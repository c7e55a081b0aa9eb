#include "ostrel/language.h"

#include <climits>

#include "ostrel/system_settings.h"
#include "support/child_process.h"
#include "support/log_capture.h"
#include "support/test_device.h"

namespace {

using ostreltest::passesInChild;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// The languages that were read stay for the life of the process, so every test that reads them has its own.
class LanguageTest : public ostreltest::DeviceTest {
protected:
    LanguageTest() { setSystemLanguage(""); }
    ~LanguageTest() override { setSystemLanguage(""); }

    void writeLanguages() {
        device().write("lang/en.lang", R"({"lang": "English", "icon": "en.png", "1": "Okay", "4": "Okay"})");
        device().write("lang/de.lang", R"({"lang": "Deutsch", "icon": "de.png", "0": "Abbrechen", "4": "zwei mal",
                                           "7": "zwei mal"})");
    }
};

TEST_F(LanguageTest, TheListHoldsEightTextsAtLoad) {
    EXPECT_THAT(gDefaultStringList,
                ElementsAre("Cancel", "OK", "LOADING...", "LOADING...", "OPEN", "BACK", "NAV", "MENU"));
    EXPECT_EQ(getLangIndexNum(), 8);
}

TEST_F(LanguageTest, DefLangGivesTheEnglishTexts) {
    EXPECT_STREQ(getDefLang(0), "Cancel");
    EXPECT_STREQ(getDefLang(1), "OK");
    EXPECT_STREQ(getDefLang(2), "LOADING...");
    EXPECT_STREQ(getDefLang(3), "LOADING...");
    EXPECT_STREQ(getDefLang(4), "OPEN");
    EXPECT_STREQ(getDefLang(5), "BACK");
    EXPECT_STREQ(getDefLang(6), "NAV");
    EXPECT_STREQ(getDefLang(7), "MENU");
}

TEST_F(LanguageTest, DefLangOutsideTheListIsNull) {
    for (const int index : {-1, INT_MIN, 8, 9, INT_MAX}) EXPECT_EQ(getDefLang(index), nullptr) << index;
}

TEST_F(LanguageTest, TheProgramMayAddTexts) {
    EXPECT_TRUE(passesInChild([] {
        gDefaultStringList.emplace_back("Shut down");
        EXPECT_EQ(getLangIndexNum(), 9);
        EXPECT_STREQ(getDefLang(8), "Shut down");
        EXPECT_STREQ(getLangStr(8), "Shut down");
        EXPECT_STREQ(getLangStr(9), "wrongbeef");
    }));
}

TEST_F(LanguageTest, BeforeInitLangTextsAreEnglish) {
    setSystemLanguage("de.lang");
    EXPECT_STREQ(getLangStr(0), "Cancel");
    EXPECT_STREQ(getLangStr(7), "MENU");
    EXPECT_EQ(getLangIndex("en.lang", "Cancel"), -1);
    EXPECT_THAT(getLangList(), IsEmpty());
}

TEST_F(LanguageTest, ANegativeIndexIsTheEmptyText) {
    EXPECT_STREQ(getLangStr(-1), "");
    EXPECT_STREQ(getLangStr(INT_MIN), "");
}

TEST_F(LanguageTest, AnIndexBehindTheListShowsTheMistake) {
    EXPECT_STREQ(getLangStr(8), "wrongbeef");
    EXPECT_STREQ(getLangStr(INT_MAX), "wrongbeef");
}

TEST_F(LanguageTest, TextsFollowTheSelectedLanguage) {
    writeLanguages();
    EXPECT_TRUE(passesInChild([] {
        initLang();
        EXPECT_STREQ(getLangStr(0), "Cancel");
        EXPECT_STREQ(getLangStr(1), "Okay");
        setSystemLanguage("de.lang");
        EXPECT_STREQ(getLangStr(0), "Abbrechen");
        setSystemLanguage("en.lang");
        EXPECT_STREQ(getLangStr(0), "Cancel");
    }));
}

TEST_F(LanguageTest, ATextThatTheLanguageLacksIsTheDefaultAndNotThatOfTheEnglishFile) {
    writeLanguages();
    EXPECT_TRUE(passesInChild([] {
        initLang();
        setSystemLanguage("de.lang");
        EXPECT_STREQ(getLangStr(1), "OK");
        EXPECT_STREQ(getLangStr(3), "LOADING...");
    }));
}

TEST_F(LanguageTest, ALanguageThatWasNotReadIsEnglish) {
    writeLanguages();
    EXPECT_TRUE(passesInChild([] {
        initLang();
        setSystemLanguage("fr.lang");
        EXPECT_STREQ(getLangStr(1), "OK");
    }));
}

TEST_F(LanguageTest, TheSelectedLanguageMatchesExactly) {
    writeLanguages();
    EXPECT_TRUE(passesInChild([] {
        initLang();
        setSystemLanguage("DE.LANG");
        EXPECT_STREQ(getLangStr(0), "Cancel");
    }));
}

TEST_F(LanguageTest, AnIndexOutsideTheListIsTheSameInEveryLanguage) {
    device().write("lang/de.lang", R"({"lang": "Deutsch", "-1": "minus", "8": "acht"})");
    EXPECT_TRUE(passesInChild([] {
        initLang();
        setSystemLanguage("de.lang");
        EXPECT_STREQ(getLangStr(-1), "");
        EXPECT_STREQ(getLangStr(8), "wrongbeef");
    }));
}

TEST_F(LanguageTest, ATextAddedAfterInitLangIsEnglish) {
    writeLanguages();
    EXPECT_TRUE(passesInChild([] {
        initLang();
        gDefaultStringList.emplace_back("Shut down");
        setSystemLanguage("de.lang");
        EXPECT_STREQ(getLangStr(8), "Shut down");
    }));
}

TEST_F(LanguageTest, ATextStaysWhereItIsUntilTheLanguagesChange) {
    writeLanguages();
    EXPECT_TRUE(passesInChild([] {
        initLang();
        setSystemLanguage("de.lang");
        const char* text = getLangStr(0);
        setSystemLanguage("en.lang");
        setSystemLanguage("de.lang");
        EXPECT_EQ(getLangStr(0), text);
    }));
}

TEST_F(LanguageTest, LangIndexFindsTheLowestNumberOfATextInOneLanguage) {
    writeLanguages();
    EXPECT_TRUE(passesInChild([] {
        initLang();
        EXPECT_EQ(getLangIndex("de.lang", "Abbrechen"), 0);
        EXPECT_EQ(getLangIndex("de.lang", "zwei mal"), 4);
        EXPECT_EQ(getLangIndex("de.lang", "LOADING..."), 2);
        EXPECT_EQ(getLangIndex("en.lang", "Okay"), 1);
    }));
}

TEST_F(LanguageTest, LangIndexOfNoMatchIsMinusOne) {
    writeLanguages();
    EXPECT_TRUE(passesInChild([] {
        initLang();
        EXPECT_EQ(getLangIndex("en.lang", "Abbrechen"), -1);
        EXPECT_EQ(getLangIndex("de.lang", "abbrechen"), -1);
        EXPECT_EQ(getLangIndex("de.lang", "Abbrech"), -1);
        EXPECT_EQ(getLangIndex("DE.lang", "Abbrechen"), -1);
        EXPECT_EQ(getLangIndex("fr.lang", "Cancel"), -1);
        EXPECT_EQ(getLangIndex(nullptr, "Abbrechen"), -1);
        EXPECT_EQ(getLangIndex("de.lang", nullptr), -1);
    }));
}

TEST_F(LanguageTest, LangIndexDoesNotDependOnTheSelectedLanguage) {
    writeLanguages();
    EXPECT_TRUE(passesInChild([] {
        initLang();
        setSystemLanguage("de.lang");
        EXPECT_EQ(getLangIndex("en.lang", "Okay"), 1);
    }));
}

TEST_F(LanguageTest, LangIndexSearchesEveryLanguageOfThatFile) {
    writeLanguages();
    EXPECT_TRUE(passesInChild([this] {
        initLang();
        device().write("lang/en.lang", R"({"lang": "English", "5": "added"})");
        initLang();
        EXPECT_EQ(getLangIndex("en.lang", "Okay"), 1);
        EXPECT_EQ(getLangIndex("en.lang", "added"), 5);
    }));
}

TEST_F(LanguageTest, LangListHasOneEntryForEachLanguage) {
    writeLanguages();
    EXPECT_TRUE(passesInChild([] {
        initLang();
        const std::vector<LangInfo>& list = getLangList();
        ASSERT_THAT(list, SizeIs(2));
        EXPECT_EQ(list[0].fileName, "en.lang");
        EXPECT_EQ(list[0].langName, "English");
        EXPECT_EQ(list[0].iconPath, "skin/en.png");
        EXPECT_EQ(list[1].fileName, "de.lang");
        EXPECT_EQ(list[1].langName, "Deutsch");
        EXPECT_EQ(list[1].iconPath, "skin/de.png");
    }));
}

TEST_F(LanguageTest, LangListIsOneListThatEachCallFillsAgain) {
    writeLanguages();
    EXPECT_TRUE(passesInChild([] {
        initLang();
        std::vector<LangInfo>& list = getLangList();
        list[0].langName = "changed";
        list.push_back({});
        EXPECT_EQ(&getLangList(), &list);
        ASSERT_THAT(list, SizeIs(2));
        EXPECT_EQ(list[0].langName, "English");
    }));
}

TEST_F(LanguageTest, ASecondInitLangAddsEnglishAgain) {
    writeLanguages();
    EXPECT_TRUE(passesInChild([] {
        initLang();
        initLang();
        const std::vector<LangInfo>& list = getLangList();
        ASSERT_THAT(list, SizeIs(3));
        EXPECT_EQ(list[0].fileName, "en.lang");
        EXPECT_EQ(list[1].fileName, "de.lang");
        EXPECT_EQ(list[2].fileName, "en.lang");
        setSystemLanguage("de.lang");
        EXPECT_STREQ(getLangStr(0), "Abbrechen");
    }));
}

TEST_F(LanguageTest, TheFirstLanguageOfAFileNameCounts) {
    writeLanguages();
    EXPECT_TRUE(passesInChild([this] {
        initLang();
        device().write("lang/en.lang", R"({"lang": "English", "1": "changed"})");
        initLang();
        EXPECT_STREQ(getLangStr(1), "Okay");
    }));
}

TEST_F(LanguageTest, WithoutAFolderTheProgramIsEnglishAndTheFileIsWritten) {
    EXPECT_TRUE(passesInChild([this] {
        initLang();
        EXPECT_STREQ(getLangStr(0), "Cancel");
        EXPECT_THAT(getLangList(), SizeIs(1));
        EXPECT_TRUE(device().exists("lang/en.lang"));
    }));
}

}  // namespace
