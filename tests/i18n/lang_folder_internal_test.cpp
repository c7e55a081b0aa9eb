#include <dirent.h>
#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

#include "i18n/lang_folder.h"
#include "ostrel/language.h"
#include "ostrel/system_settings.h"
#include "support/child_process.h"
#include "support/log_capture.h"
#include "support/test_device.h"

namespace {

// The order in which a directory is listed belongs to the file system. While one of these lives, every directory is
// listed in the order given, other names last; asked to, it reports every entry as of unknown type.
class DirectoryOrder {
public:
    enum class Types { Told, Unknown };
    explicit DirectoryOrder(std::vector<std::string> names, Types types = Types::Told)
        : mNames(std::move(names)), mTypes(types) {
        sActive = this;
    }
    ~DirectoryOrder() { sActive = nullptr; }
    DirectoryOrder(const DirectoryOrder&) = delete;
    DirectoryOrder& operator=(const DirectoryOrder&) = delete;

    static DirectoryOrder* active() { return sActive; }

    template <typename ReadNext>
    dirent* next(ReadNext readNext) {
        if (!mListed) list(readNext);
        return mNext < mEntries.size() ? &mEntries[mNext++] : nullptr;
    }

private:
    std::size_t rank(const dirent& entry) const {
        return static_cast<std::size_t>(std::find(mNames.begin(), mNames.end(), entry.d_name) - mNames.begin());
    }

    template <typename ReadNext>
    void list(ReadNext readNext) {
        mListed = true;
        while (const dirent* entry = readNext()) {
            mEntries.push_back(*entry);
            if (mTypes == Types::Unknown) mEntries.back().d_type = DT_UNKNOWN;
        }
        std::stable_sort(mEntries.begin(), mEntries.end(),
                         [this](const dirent& a, const dirent& b) { return rank(a) < rank(b); });
    }

    static inline DirectoryOrder* sActive = nullptr;
    std::vector<std::string> mNames;
    Types mTypes;
    bool mListed = false;
    std::vector<dirent> mEntries;
    std::size_t mNext = 0;
};

}  // namespace

// The library binds to this one, because a program's definitions come before those of its libraries.
extern "C" dirent* readdir(DIR* folder) {
    using ReadDir = dirent* (*)(DIR*);
    static const auto libcs = reinterpret_cast<ReadDir>(dlsym(RTLD_NEXT, "readdir"));
    DirectoryOrder* order = DirectoryOrder::active();
    return order == nullptr ? libcs(folder) : order->next([folder] { return libcs(folder); });
}

namespace {

using ostrel::LangRecord;
using ostrel::readLangFolder;
using ostreltest::ChildUser;
using ostreltest::LogCapture;
using ostreltest::passesInChild;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::Pair;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

constexpr char kEnglishFile[] =
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
    "}";

// Takes rights from a file or folder for the time of one test; the owner gets them back, to remove it.
class Restricted {
public:
    Restricted(std::string path, mode_t mode) : mPath(std::move(path)) { chmod(mPath.c_str(), mode); }
    ~Restricted() { chmod(mPath.c_str(), 0755); }
    Restricted(const Restricted&) = delete;
    Restricted& operator=(const Restricted&) = delete;

private:
    std::string mPath;
};

class LangFolderTest : public ostreltest::DeviceTest {
protected:
    LangFolderTest() { setSystemLanguage(""); }
    ~LangFolderTest() override {
        gDefaultStringList = mDefaults;
        setSystemLanguage("");
    }

    void write(const std::string& name, const std::string& content) const { device().write("lang/" + name, content); }
    void writeEnglish() const { write("en.lang", kEnglishFile); }

    static std::vector<LangRecord> readAll() {
        std::vector<LangRecord> records;
        readLangFolder(records);
        return records;
    }

    static std::vector<LangRecord> readInOrder(const std::vector<std::string>& names) {
        const DirectoryOrder order(names);
        return readAll();
    }

    static std::vector<std::string> fileNames(const std::vector<LangRecord>& records) {
        std::vector<std::string> names;
        for (const LangRecord& record : records) names.push_back(record.fileName);
        return names;
    }

    ostreltest::TestDevice& device() const { return const_cast<LangFolderTest*>(this)->DeviceTest::device(); }

private:
    std::vector<std::string> mDefaults = gDefaultStringList;
};

void expectCompiledInEnglish(const LangRecord& record) {
    EXPECT_EQ(record.fileName, "en.lang");
    EXPECT_EQ(record.langName, "English");
    EXPECT_EQ(record.iconPath, "");
    EXPECT_THAT(record.strings,
                ElementsAre(Pair(0, "Cancel"), Pair(1, "OK"), Pair(2, "LOADING..."), Pair(3, "LOADING..."),
                            Pair(4, "OPEN"), Pair(5, "BACK"), Pair(6, "NAV"), Pair(7, "MENU")));
}

// English.

TEST_F(LangFolderTest, WithoutAFolderItIsMadeAndEnglishWrittenInSilence) {
    LogCapture log;
    const auto records = readAll();
    EXPECT_EQ(device().read("lang/en.lang"), kEnglishFile);
    ASSERT_THAT(records, SizeIs(1));
    expectCompiledInEnglish(records[0]);
    EXPECT_EQ(log.text(), "");
}

TEST_F(LangFolderTest, TheFolderIsMadeForEveryone) {
    const mode_t before = umask(0);
    readAll();
    umask(before);
    struct stat status {};
    ASSERT_EQ(stat(device().path("lang").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0777U);
}

TEST_F(LangFolderTest, AnEnglishFileThatIsMissingAloneIsWritten) {
    write("de.lang", R"({"lang": "Deutsch"})");
    EXPECT_THAT(fileNames(readAll()), ElementsAre("en.lang", "de.lang"));
    EXPECT_EQ(device().read("lang/en.lang"), kEnglishFile);
}

TEST_F(LangFolderTest, TheWrittenEnglishFileHoldsTheTextsOfTheProgram) {
    gDefaultStringList.emplace_back("Shut down");
    const auto records = readAll();
    EXPECT_EQ(records[0].strings.at(8), "Shut down");
    const std::string written = device().read("lang/en.lang");
    EXPECT_NE(written.find("\t\"7\":\t\"MENU\",\n\t\"8\":\t\"Shut down\"\n}"), std::string::npos) << written;
}

TEST_F(LangFolderTest, AnEnglishFileIsReadOnceAndNotWritten) {
    const std::string content = R"({"lang": "Plain English", "icon": "en.png", "1": "Okay"})";
    write("en.lang", content);
    LogCapture log;
    const auto records = readAll();
    EXPECT_THAT(log.lines(), ElementsAre("lang file ./lang/en.lang", "read lang file ./lang/en.lang ok=1"));
    ASSERT_THAT(records, SizeIs(1));
    EXPECT_EQ(records[0].fileName, "en.lang");
    EXPECT_EQ(records[0].langName, "Plain English");
    EXPECT_EQ(records[0].iconPath, "skin/en.png");
    EXPECT_EQ(records[0].strings.at(0), "Cancel");
    EXPECT_EQ(records[0].strings.at(1), "Okay");
    EXPECT_EQ(device().read("lang/en.lang"), content);
}

TEST_F(LangFolderTest, ABrokenEnglishFileGivesTheCompiledInEnglishAndIsLeftAlone) {
    write("en.lang", "{\"icon\": \"en.png\"}");
    LogCapture log;
    const auto records = readAll();
    EXPECT_THAT(log.lines(), ElementsAre("lang file ./lang/en.lang", "./lang/en.lang have no lang string",
                                         "read lang file ./lang/en.lang ok=0"));
    ASSERT_THAT(records, SizeIs(1));
    expectCompiledInEnglish(records[0]);
    EXPECT_EQ(device().read("lang/en.lang"), "{\"icon\": \"en.png\"}");
}

TEST_F(LangFolderTest, AFolderThatCannotBeMadeGivesTheCompiledInEnglish) {
    const Restricted folder(device().workDir(), 0555);
    const auto readIt = [] {
        LogCapture log;
        const auto records = readAll();
        EXPECT_EQ(log.text(), "read lang file ./lang/en.lang ok=0\n");
        ASSERT_THAT(records, SizeIs(1));
        expectCompiledInEnglish(records[0]);
    };
    EXPECT_TRUE(passesInChild(readIt, ChildUser::Unprivileged));
    EXPECT_FALSE(device().exists("lang"));
}

TEST_F(LangFolderTest, AFolderThatCannotBeWrittenStillGivesTheOtherLanguages) {
    write("de.lang", R"({"lang": "Deutsch"})");
    const Restricted folder(device().path("lang"), 0555);
    const auto readIt = [] {
        LogCapture log;
        const auto records = readAll();
        EXPECT_THAT(log.lines(), ElementsAre("read lang file ./lang/en.lang ok=0", "lang file ./lang/de.lang",
                                             "read lang file ./lang/de.lang ok=1"));
        EXPECT_THAT(fileNames(records), ElementsAre("en.lang", "de.lang"));
        expectCompiledInEnglish(records[0]);
    };
    EXPECT_TRUE(passesInChild(readIt, ChildUser::Unprivileged));
}

TEST_F(LangFolderTest, AFolderThatCannotBeListedGivesEnglishAlone) {
    writeEnglish();
    write("de.lang", R"({"lang": "Deutsch"})");
    const Restricted folder(device().path("lang"), 0311);
    const auto readIt = [] {
        LogCapture log;
        EXPECT_THAT(fileNames(readAll()), ElementsAre("en.lang"));
        EXPECT_THAT(log.lines(), ElementsAre("lang file ./lang/en.lang", "read lang file ./lang/en.lang ok=1"));
    };
    EXPECT_TRUE(passesInChild(readIt, ChildUser::Unprivileged));
}

TEST_F(LangFolderTest, AFileInPlaceOfTheFolderGivesTheCompiledInEnglish) {
    device().write("lang", "a file");
    LogCapture log;
    const auto records = readAll();
    ASSERT_THAT(records, SizeIs(1));
    expectCompiledInEnglish(records[0]);
    EXPECT_EQ(log.text(), "read lang file ./lang/en.lang ok=0\n");
    EXPECT_EQ(device().read("lang"), "a file");
}

// Which files are read.

TEST_F(LangFolderTest, EnglishIsFirstWhateverTheOrderOfTheDirectory) {
    writeEnglish();
    write("de.lang", R"({"lang": "Deutsch"})");
    write("fr.lang", R"({"lang": "Francais"})");
    EXPECT_THAT(fileNames(readInOrder({"fr.lang", "en.lang", "de.lang"})),
                ElementsAre("en.lang", "fr.lang", "de.lang"));
    EXPECT_THAT(fileNames(readInOrder({"de.lang", "fr.lang", "en.lang"})),
                ElementsAre("en.lang", "de.lang", "fr.lang"));
}

TEST_F(LangFolderTest, FilesAreReadAndLoggedInTheOrderOfTheDirectory) {
    writeEnglish();
    write("de.lang", "broken");
    write("fr.lang", R"({"lang": "Francais"})");
    LogCapture log;
    readInOrder({"fr.lang", "de.lang"});
    EXPECT_THAT(log.lines(), ElementsAre("lang file ./lang/en.lang", "read lang file ./lang/en.lang ok=1",
                                         "lang file ./lang/fr.lang", "read lang file ./lang/fr.lang ok=1",
                                         "lang file ./lang/de.lang", "parse ./lang/de.lang content fail:broken",
                                         "read lang file ./lang/de.lang ok=0"));
}

TEST_F(LangFolderTest, FilesThatCannotBeUsedAreLeftOut) {
    writeEnglish();
    write("a.lang", "broken");
    write("b.lang", R"({"lang": "B"})");
    write("c.lang", R"({"0": "no name"})");
    EXPECT_THAT(fileNames(readAll()), ElementsAre("en.lang", "b.lang"));
}

TEST_F(LangFolderTest, ANameWithShortAnywhereIsNotRead) {
    writeEnglish();
    write("ch.short.lang", R"({"lang": "A"})");
    write("x.short", R"({"lang": "B"})");
    write("y.shorter.lang", R"({"lang": "C"})");
    write(".short", R"({"lang": "D"})");
    write("short.lang", R"({"lang": "E"})");
    EXPECT_THAT(fileNames(readAll()), ElementsAre("en.lang", "short.lang"));
}

TEST_F(LangFolderTest, OnlyTheExactNameIsTheEnglishFile) {
    writeEnglish();
    write("EN.lang", R"({"lang": "A"})");
    write("en.lang2", R"({"lang": "B"})");
    write("xen.lang", R"({"lang": "C"})");
    EXPECT_THAT(fileNames(readAll()), UnorderedElementsAre("en.lang", "EN.lang", "en.lang2", "xen.lang"));
}

TEST_F(LangFolderTest, AnyOtherNameIsRead) {
    writeEnglish();
    write("readme.txt", R"({"lang": "A"})");
    write(".hidden", R"({"lang": "B"})");
    EXPECT_THAT(fileNames(readAll()), UnorderedElementsAre("en.lang", "readme.txt", ".hidden"));
}

void PrintTo(DirectoryOrder::Types types, std::ostream* out) {
    *out << (types == DirectoryOrder::Types::Told ? "told" : "unknown");
}

class LangFolderTypesTest : public LangFolderTest, public ::testing::WithParamInterface<DirectoryOrder::Types> {};

TEST_P(LangFolderTypesTest, OnlyRegularFilesAreRead) {
    writeEnglish();
    write("de.lang", R"({"lang": "Deutsch"})");
    device().write("elsewhere/target.lang", R"({"lang": "Target"})");
    ASSERT_EQ(symlink("../elsewhere/target.lang", device().path("lang/link.lang").c_str()), 0);
    ASSERT_EQ(symlink("nowhere", device().path("lang/dangling.lang").c_str()), 0);
    ASSERT_EQ(mkdir(device().path("lang/folder.lang").c_str(), 0777), 0);
    ASSERT_EQ(mkfifo(device().path("lang/pipe.lang").c_str(), 0666), 0);
    LogCapture log;
    const DirectoryOrder order({}, GetParam());
    EXPECT_THAT(fileNames(readAll()), ElementsAre("en.lang", "de.lang"));
    EXPECT_THAT(log.lines(), SizeIs(4));
}

INSTANTIATE_TEST_SUITE_P(FileSystems, LangFolderTypesTest,
                         ::testing::Values(DirectoryOrder::Types::Told, DirectoryOrder::Types::Unknown),
                         [](const auto& types) {
                             return types.param == DirectoryOrder::Types::Told ? "ThatTellTypes" : "ThatTellNoTypes";
                         });

// The icon that is taken over.

TEST_F(LangFolderTest, AFileWithoutIconInheritsThatOfTheFileReadBefore) {
    writeEnglish();
    write("a.lang", R"({"lang": "A"})");
    write("b.lang", R"({"lang": "B", "icon": "b.png"})");
    write("c.lang", R"({"lang": "C"})");
    const auto records = readInOrder({"a.lang", "b.lang", "c.lang"});
    ASSERT_THAT(records, SizeIs(4));
    EXPECT_EQ(records[1].iconPath, "");
    EXPECT_EQ(records[2].iconPath, "skin/b.png");
    EXPECT_EQ(records[3].iconPath, "skin/b.png");
}

TEST_F(LangFolderTest, TheEnglishIconIsNotInherited) {
    write("en.lang", R"({"lang": "English", "icon": "en.png"})");
    write("a.lang", R"({"lang": "A"})");
    EXPECT_EQ(readAll()[1].iconPath, "");
}

TEST_F(LangFolderTest, FilesThatAreLeftOutDoNotChangeTheInheritedIcon) {
    writeEnglish();
    write("a.lang", R"({"lang": "A", "icon": "a.png"})");
    write("b.lang", R"({"icon": "b.png", "0": "no name"})");
    write("c.lang", R"({"lang": "C"})");
    EXPECT_EQ(readInOrder({"a.lang", "b.lang", "c.lang"})[2].iconPath, "skin/a.png");
}

TEST_F(LangFolderTest, TextsAreNotInherited) {
    writeEnglish();
    write("a.lang", R"({"lang": "A", "0": "a0"})");
    write("b.lang", R"({"lang": "B"})");
    EXPECT_EQ(readInOrder({"a.lang", "b.lang"})[2].strings.at(0), "Cancel");
}

// Files of the same language.

TEST_F(LangFolderTest, FilesOfOneLanguageAreMergedWhenTheLongerNameComesFirst) {
    writeEnglish();
    write("french.lang", R"({"lang": "Francais", "icon": "f.png", "0": "long 0", "1": "long 1"})");
    write("fr.lang", R"({"lang": "Francais", "icon": "s.png", "1": "short 1", "2": "short 2"})");
    const auto records = readInOrder({"french.lang", "fr.lang"});
    ASSERT_THAT(records, SizeIs(2));
    EXPECT_EQ(records[1].fileName, "fr.lang");
    EXPECT_EQ(records[1].langName, "Francais");
    EXPECT_EQ(records[1].iconPath, "skin/f.png");
    EXPECT_THAT(records[1].strings,
                ElementsAre(Pair(0, "long 0"), Pair(1, "long 1"), Pair(2, "short 2"), Pair(3, "LOADING..."),
                            Pair(4, "OPEN"), Pair(5, "BACK"), Pair(6, "NAV"), Pair(7, "MENU")));
}

TEST_F(LangFolderTest, FilesOfOneLanguageAreMergedWhenTheShorterNameComesFirst) {
    writeEnglish();
    write("french.lang", R"({"lang": "Francais", "icon": "f.png", "0": "long 0", "1": "long 1"})");
    write("fr.lang", R"({"lang": "Francais", "icon": "s.png", "1": "short 1", "2": "short 2"})");
    const auto records = readInOrder({"fr.lang", "french.lang"});
    ASSERT_THAT(records, SizeIs(2));
    EXPECT_EQ(records[1].fileName, "fr.lang");
    EXPECT_EQ(records[1].iconPath, "skin/s.png");
    EXPECT_THAT(records[1].strings,
                ElementsAre(Pair(0, "long 0"), Pair(1, "short 1"), Pair(2, "short 2"), Pair(3, "LOADING..."),
                            Pair(4, "OPEN"), Pair(5, "BACK"), Pair(6, "NAV"), Pair(7, "MENU")));
}

TEST_F(LangFolderTest, NamesOfEqualLengthKeepThatOfTheFileReadFirst) {
    writeEnglish();
    write("fr.lang", R"({"lang": "Francais"})");
    write("be.lang", R"({"lang": "Francais"})");
    EXPECT_THAT(fileNames(readInOrder({"be.lang", "fr.lang"})), ElementsAre("en.lang", "be.lang"));
    EXPECT_THAT(fileNames(readInOrder({"fr.lang", "be.lang"})), ElementsAre("en.lang", "fr.lang"));
}

TEST_F(LangFolderTest, LanguagesMatchByTheirExactName) {
    writeEnglish();
    write("a.lang", R"({"lang": "Francais"})");
    write("b.lang", R"({"lang": "francais"})");
    write("c.lang", R"({"lang": "Francais "})");
    EXPECT_THAT(readAll(), SizeIs(4));
}

TEST_F(LangFolderTest, AFileOfTheEnglishNameIsMergedIntoEnglish) {
    write("en.lang", R"({"lang": "English", "0": "Cancel it"})");
    write("gb.lang", R"({"lang": "English", "0": "Stop", "1": "Right"})");
    const auto records = readAll();
    ASSERT_THAT(records, SizeIs(1));
    EXPECT_EQ(records[0].fileName, "en.lang");
    EXPECT_EQ(records[0].strings.at(0), "Cancel it");
    EXPECT_EQ(records[0].strings.at(1), "Right");
}

TEST_F(LangFolderTest, TheCompiledInEnglishTextsAreGivenTexts) {
    write("gb.lang", R"({"lang": "English", "0": "Stop"})");
    EXPECT_EQ(readAll()[0].strings.at(0), "Cancel");  // as on the next start, which reads the file written now
    EXPECT_EQ(readAll()[0].strings.at(0), "Cancel");
}

TEST_F(LangFolderTest, ASecondReadingAddsEnglishAgainAndMergesTheOthers) {
    writeEnglish();
    write("de.lang", R"({"lang": "Deutsch", "0": "alt"})");
    std::vector<LangRecord> records;
    readLangFolder(records);
    write("de.lang", R"({"lang": "Deutsch", "0": "neu", "1": "neu"})");
    write("fr.lang", R"({"lang": "Francais"})");
    readLangFolder(records);
    EXPECT_THAT(fileNames(records), ElementsAre("en.lang", "de.lang", "en.lang", "fr.lang"));
    EXPECT_EQ(records[1].strings.at(0), "alt");
    EXPECT_EQ(records[1].strings.at(1), "neu");
}

TEST_F(LangFolderTest, AFileIsMergedIntoTheFirstRecordOfItsLanguage) {
    write("en.lang", R"({"lang": "English", "0": "Cancel it"})");
    std::vector<LangRecord> records;
    readLangFolder(records);
    write("gb.lang", R"({"lang": "English", "1": "Right"})");
    readLangFolder(records);
    ASSERT_THAT(fileNames(records), ElementsAre("en.lang", "en.lang"));
    EXPECT_EQ(records[0].strings.at(1), "Right");
    EXPECT_NE(records[1].strings.at(1), "Right");
}

TEST_F(LangFolderTest, ASecondReadingAddsTheTextsThatTheProgramAddedInBetween) {
    writeEnglish();
    write("de.lang", R"({"lang": "Deutsch", "8": "Ausschalten"})");
    std::vector<LangRecord> records;
    readLangFolder(records);
    gDefaultStringList.emplace_back("Shut down");
    readLangFolder(records);
    EXPECT_EQ(records[1].strings.at(8), "Ausschalten");
}

}  // namespace
