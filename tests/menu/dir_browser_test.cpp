#include "ostrel/dir_browser.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <random>

#include "ostrel/menu_item.h"
#include "support/abi.h"
#include "support/child_process.h"
#include "support/log_capture.h"
#include "support/test_device.h"

namespace fs = std::filesystem;

namespace {

using ostreltest::ChildUser;
using ostreltest::DeviceTest;
using ostreltest::LogCapture;
using ostreltest::offsetIn;
using ostreltest::passesInChild;
using Labels = std::vector<std::string>;

bool sRefuseNothrowMemory = false;
bool sKeepsNoTypes = false;
int sFilesBeforeFolders = INT_MAX;
int sItemsAlive = 0;

// A file system that keeps no kinds of entries, for as long as one of these lives.
struct UntypedEntries {
    UntypedEntries() { sKeepsNoTypes = true; }
    ~UntypedEntries() { sKeepsNoTypes = false; }
    UntypedEntries(const UntypedEntries&) = delete;
    UntypedEntries& operator=(const UntypedEntries&) = delete;
};

// Files beyond the first so many pass for folders, for as long as one of these lives.
struct FilesThenFolders {
    explicit FilesThenFolders(int files) { sFilesBeforeFolders = files; }
    ~FilesThenFolders() { sFilesBeforeFolders = INT_MAX; }
    FilesThenFolders(const FilesThenFolders&) = delete;
    FilesThenFolders& operator=(const FilesThenFolders&) = delete;
};

}  // namespace

// The library binds to this one, because a program's definitions come before those of its libraries.
extern "C" dirent* readdir(DIR* directory) {
    using ReadDir = dirent* (*)(DIR*);
    static const auto libcs = reinterpret_cast<ReadDir>(dlsym(RTLD_NEXT, "readdir"));
    dirent* entry = libcs(directory);
    if (sKeepsNoTypes && entry != nullptr) entry->d_type = DT_UNKNOWN;
    if (entry != nullptr && entry->d_type == DT_REG && sFilesBeforeFolders-- <= 0) entry->d_type = DT_DIR;
    return entry;
}

namespace {

class CountedItem : public TextMenuItem {
public:
    CountedItem(const char* text, Action* itemAction) : TextMenuItem(text, nullptr, itemAction, true) { ++sItemsAlive; }
    ~CountedItem() override { --sItemsAlive; }
};

class GroupAction : public GroupedAction {
public:
    using GroupedAction::GroupedAction;
    int dowork(void*) override { return 0; }
};

struct FactoryCall {
    std::string name, path;
    int type;
};
std::vector<FactoryCall> sCalls;

TextMenuItem* plainFactory(const char* name, const char* path, int type) {
    sCalls.push_back({name, path, type});
    return new CountedItem(name, nullptr);
}

// Folders in group 1, files in group 0: folders come first.
TextMenuItem* groupedFactory(const char* name, const char*, int type) {
    return new CountedItem(name, new GroupAction(type == 102 ? 1 : 0));
}

TextMenuItem* plainActionFactory(const char* name, const char*, int) {
    return new CountedItem(name, new GeneralAction(nullptr, nullptr));
}

TextMenuItem* refusingFactory(const char* name, const char*, int) {
    return std::string(name) == "unwanted" ? nullptr : new CountedItem(name, nullptr);
}

Labels labelsOf(const std::vector<void*>* items) {
    Labels labels;
    for (void* item : *items) labels.push_back(static_cast<TextMenuItem*>(item)->label);
    return labels;
}

class DirBrowserTest : public DeviceTest {
protected:
    DirBrowserTest() {
        sCalls.clear();
        EXPECT_EQ(sItemsAlive, 0);
    }
    ~DirBrowserTest() override { sItemsAlive = 0; }

    void file(const std::string& name) { device().write(name, "x"); }
    void folder(const std::string& name) { fs::create_directories(device().path(name)); }
    std::string roms() { return device().path("roms"); }
    void files(const std::string& directory, int count) {
        file(directory + "/0");
        const std::string first = device().path(directory + "/0");
        for (int i = 1; i < count; ++i) {
            ASSERT_EQ(link(first.c_str(), device().path(directory + "/" + std::to_string(i)).c_str()), 0);
        }
    }
};

TEST_F(DirBrowserTest, StartsWithAnEmptyStackAndCache) {
    DirBrowser browser(nullptr, plainFactory);
    EXPECT_EQ(browser.getCurrentDir(), nullptr);
    EXPECT_TRUE(browser.isBaseDir());
    EXPECT_EQ(browser.getItemNum(), 0);
    EXPECT_EQ(browser.ParentDir(), nullptr);
}

TEST_F(DirBrowserTest, ListsFilesAndFoldersWithTheirTypes) {
    file("roms/game.gb");
    folder("roms/GBA");
    DirBrowser browser(nullptr, plainFactory);
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), nullptr)), (Labels{"GBA", "game.gb"}));
    ASSERT_EQ(sCalls.size(), 2U);
    for (const FactoryCall& call : sCalls) {
        EXPECT_EQ(call.path, roms() + "/" + call.name);
        EXPECT_EQ(call.type, call.name == "GBA" ? 102 : 101);
    }
}

TEST_F(DirBrowserTest, EntriesOfUnknownTypeAreLookedAtOneByOne) {
    file("roms/game.gb");
    folder("roms/GBA");
    ASSERT_EQ(mkfifo(device().path("roms/pipe").c_str(), 0600), 0);
    const UntypedEntries untyped;
    DirBrowser browser(nullptr, plainFactory);
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), nullptr)), (Labels{"GBA", "game.gb"}));
    ASSERT_EQ(sCalls.size(), 2U);
    for (const FactoryCall& call : sCalls) EXPECT_EQ(call.type, call.name == "GBA" ? 102 : 101);
}

TEST_F(DirBrowserTest, SortsByBytesWithUpperCaseFirst) {
    for (const char* name : {"roms/b", "roms/B", "roms/a"}) file(name);
    DirBrowser browser(nullptr, plainFactory);
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), nullptr)), (Labels{"B", "a", "b"}));
}

TEST_F(DirBrowserTest, NumbersSortAsText) {
    for (const char* name : {"roms/10", "roms/9", "roms/1"}) file(name);
    DirBrowser browser(nullptr, plainFactory);
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), nullptr)), (Labels{"1", "10", "9"}));
}

TEST_F(DirBrowserTest, TheGreaterSortGroupComesFirst) {
    for (const char* name : {"roms/a", "roms/z/x", "roms/b", "roms/y/x"}) file(name);
    DirBrowser browser(nullptr, groupedFactory);
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), nullptr)), (Labels{"y", "z", "a", "b"}));
}

TEST_F(DirBrowserTest, AnActionWithoutAGroupCountsAsGroupZero) {
    for (const char* name : {"roms/c", "roms/a", "roms/b"}) file(name);
    DirBrowser browser(nullptr, plainActionFactory);
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), nullptr)), (Labels{"a", "b", "c"}));
}

TEST_F(DirBrowserTest, EqualLabelsPutTheNewestFirst) {
    for (const char* name : {"roms/1", "roms/2", "roms/3"}) file(name);
    static std::vector<TextMenuItem*> sMade;
    sMade.clear();
    DirBrowser browser(nullptr, [](const char*, const char*, int) -> TextMenuItem* {
        sMade.push_back(new CountedItem("same", nullptr));
        return sMade.back();
    });
    const std::vector<void*>& items = *browser.LoadDir(roms().c_str(), nullptr);
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[0], sMade[2]);
    EXPECT_EQ(items[1], sMade[1]);
    EXPECT_EQ(items[2], sMade[0]);
}

// With actions on some rows only there is no common order: each row goes before the first that it does not sort after.
TEST_F(DirBrowserTest, AMixtureOfRowsWithAndWithoutActionsIsPlacedOneByOne) {
    for (const char* name : {"roms/1", "roms/2", "roms/3"}) file(name);
    static int sCount;
    sCount = 0;
    DirBrowser browser(nullptr, [](const char*, const char*, int) -> TextMenuItem* {
        ++sCount;
        if (sCount == 1) return new CountedItem("m", new GroupAction(0));
        if (sCount == 2) return new CountedItem("b", nullptr);
        return new CountedItem("z", new GroupAction(5));
    });
    // "b" before "m" by label; then "z" is not before "b" by label, but before "m" by its group.
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), nullptr)), (Labels{"b", "z", "m"}));
}

TEST_F(DirBrowserTest, HiddenFoldersAreLeftOutAndHiddenFilesAreNot) {
    file("roms/.secret/x");
    file("roms/.hidden.gb");
    DirBrowser browser(nullptr, plainFactory);
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), nullptr)), (Labels{".hidden.gb"}));
}

TEST_F(DirBrowserTest, TheParentEntryIsListedOnlyBelowTheBase) {
    file("roms/GBA/game");
    DirBrowser browser(nullptr, plainFactory);
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), nullptr)), (Labels{"GBA"}));
    EXPECT_EQ(labelsOf(browser.ChildDir((roms() + "/GBA").c_str())), (Labels{"..", "game"}));
}

TEST_F(DirBrowserTest, AFolderWhoseNameBeginsWithTwoDotsIsListedLikeTheParent) {
    folder("roms/GBA/..x");
    folder("roms/..y");
    DirBrowser browser(nullptr, plainFactory);
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), nullptr)), (Labels{"GBA"}));
    EXPECT_EQ(labelsOf(browser.ChildDir((roms() + "/GBA").c_str())), (Labels{"..", "..x"}));
}

TEST_F(DirBrowserTest, LinksCountAsWhatTheyPointToAndBrokenOnesAreLeftOut) {
    file("roms/game");
    folder("elsewhere");
    fs::create_symlink(device().path("elsewhere"), device().path("roms/link-to-folder"));
    fs::create_symlink(device().path("roms/game"), device().path("roms/link-to-file"));
    fs::create_symlink("nowhere", device().path("roms/broken"));
    fs::create_symlink("loop", device().path("roms/loop"));
    ASSERT_EQ(mkfifo(device().path("roms/pipe").c_str(), 0600), 0);
    DirBrowser browser(nullptr, plainFactory);
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), nullptr)), (Labels{"game", "link-to-file", "link-to-folder"}));
    for (const FactoryCall& call : sCalls) EXPECT_EQ(call.type, call.name == "link-to-folder" ? 102 : 101) << call.name;
}

TEST_F(DirBrowserTest, ANullFromTheFactoryLeavesTheEntryOut) {
    file("roms/wanted");
    file("roms/unwanted");
    DirBrowser browser(nullptr, refusingFactory);
    LogCapture log;
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), nullptr)), (Labels{"wanted"}));
    EXPECT_EQ(log.text(), "loaddir " + roms() + " 1\n");
}

TEST_F(DirBrowserTest, ANullFactoryLeavesEverythingOut) {
    file("roms/game");
    DirBrowser browser(nullptr, nullptr);
    EXPECT_TRUE(browser.LoadDir(roms().c_str(), nullptr)->empty());
}

TEST_F(DirBrowserTest, TheFilterIsKeptAndNeverCalled) {
    file("roms/game");
    const auto filter = [](const char*, const char*) -> bool {
        ADD_FAILURE() << "the filter was called";
        return false;
    };
    DirBrowser browser(filter, plainFactory);
    EXPECT_EQ(browser.LoadDir(roms().c_str(), nullptr)->size(), 1U);
    EXPECT_NE(browser.filter, nullptr);
}

TEST_F(DirBrowserTest, AMissingDirectoryIsEmptyAndLoggedWithZero) {
    DirBrowser browser(nullptr, plainFactory);
    LogCapture log;
    EXPECT_TRUE(browser.LoadDir(roms().c_str(), nullptr)->empty());
    EXPECT_EQ(log.text(), "loaddir " + roms() + " 0\n");
}

TEST_F(DirBrowserTest, ADirectoryThatMayBeReadButNotSearchedIsEmpty) {
    file("roms/game");
    fs::permissions(device().root(), fs::perms::owner_all | fs::perms::others_exec | fs::perms::others_read);
    fs::permissions(roms(), fs::perms::owner_read | fs::perms::others_read);
    const auto load = [this] {
        DirBrowser browser(nullptr, plainFactory);
        EXPECT_TRUE(browser.LoadDir(roms().c_str(), nullptr)->empty());
        EXPECT_TRUE(sCalls.empty());
    };
    EXPECT_TRUE(passesInChild(load, ChildUser::Unprivileged));
    fs::permissions(roms(), fs::perms::owner_all);
}

// Nothing behind such a path could be opened by it.
TEST_F(DirBrowserTest, AnEntryWhosePathIsTooLongForTheSystemIsLeftOut) {
    std::string deep = roms();
    while (deep.size() < 3900) deep += "/" + std::string(std::min<std::size_t>(200, 3999 - deep.size()), 'd');
    fs::create_directories(deep);
    const int folder = open(deep.c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_GE(folder, 0);
    for (const std::size_t length : {4094 - deep.size(), 4095 - deep.size()}) {
        close(openat(folder, std::string(length, 'f').c_str(), O_CREAT | O_WRONLY, 0600));
    }
    close(folder);
    DirBrowser browser(nullptr, plainFactory);
    EXPECT_EQ(labelsOf(browser.LoadDir(deep.c_str(), nullptr)), (Labels{std::string(4094 - deep.size(), 'f')}));
}

// Places rows one after the other as the rule says, and compares: also where only some rows have an action.
TEST_F(DirBrowserTest, AnyMixtureIsSortedAsIfRowsWereInsertedOneByOne) {
    static std::mt19937 random;
    static std::vector<TextMenuItem*> made;
    const auto factory = [](const char*, const char*, int) -> TextMenuItem* {
        const char* const labels[] = {"a", "b", "B", "ab", ""};
        Action* action = random() % 3 == 0 ? nullptr : new GroupAction(static_cast<int>(random() % 3) - 1);
        if (random() % 4 == 0 && action == nullptr) action = new GeneralAction(nullptr, nullptr);
        made.push_back(new CountedItem(labels[random() % 5], action));
        return made.back();
    };
    const auto group = [](const TextMenuItem* item) {
        const auto* grouped = dynamic_cast<GroupAction*>(item->action);
        return grouped == nullptr ? 0 : grouped->sortGroup;
    };
    const auto sortsAfter = [&](const TextMenuItem* a, const TextMenuItem* b) {
        if (a->action != nullptr && b->action != nullptr && group(a) != group(b)) return group(a) < group(b);
        return a->label > b->label;
    };
    files("roms", 24);
    DirBrowser browser(nullptr, factory);
    for (unsigned seed = 0; seed < 200; ++seed) {
        random.seed(seed);
        made.clear();
        const std::vector<void*> actual = *browser.LoadDir(roms().c_str(), nullptr);
        std::vector<void*> expected;
        for (TextMenuItem* item : made) {
            auto place = expected.begin();
            while (place != expected.end() && sortsAfter(item, static_cast<TextMenuItem*>(*place))) ++place;
            expected.insert(place, item);
        }
        ASSERT_EQ(actual, expected) << "seed " << seed;
    }
}

TEST_F(DirBrowserTest, AtMostTwentyThousandItemsAreLoaded) {
    files("roms", 20003);
    DirBrowser browser(nullptr, plainFactory);
    LogCapture log;
    EXPECT_EQ(browser.LoadDir(roms().c_str(), nullptr)->size(), 20000U);
    EXPECT_EQ(log.text(), "loaddir " + roms() + " 20000\n");
    EXPECT_EQ(sCalls.size(), 20000U);
}

TEST_F(DirBrowserTest, FoldersCountAmongTheTwentyThousandItems) {
    files("roms", 20003);
    const FilesThenFolders listed(15000);
    DirBrowser browser(nullptr, plainFactory);
    EXPECT_EQ(browser.LoadDir(roms().c_str(), nullptr)->size(), 20000U);
    EXPECT_EQ(std::count_if(sCalls.begin(), sCalls.end(), [](const FactoryCall& call) { return call.type == 102; }),
              5000);
}

TEST_F(DirBrowserTest, OddNamesAreListedWhole) {
    const std::string longest(255, 'n');
    for (const std::string& name : {longest, std::string("new\nline"), std::string("bad\xFFutf8")})
        file("roms/" + name);
    DirBrowser browser(nullptr, plainFactory);
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), nullptr)), (Labels{"bad\xFFutf8", "new\nline", longest}));
}

TEST_F(DirBrowserTest, StartBelowTheBasePutsEachStepOnTheStack) {
    file("roms/GBA/sub/game");
    DirBrowser browser(nullptr, plainFactory);
    LogCapture log;
    const std::string start = roms() + "/GBA/sub";
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), start.c_str())), (Labels{"..", "game"}));
    EXPECT_EQ(browser.dirStack, (Labels{roms(), roms() + "/GBA", start}));
    EXPECT_FALSE(browser.isBaseDir());
    EXPECT_EQ(log.lines(),
              (Labels{"dir 0 " + roms(), "dir 1 " + roms() + "/GBA", "dir 2 " + start, "loaddir " + start + " 2"}));
    EXPECT_STREQ(browser.getCurrentDir(), start.c_str());
}

TEST_F(DirBrowserTest, EmptyPiecesOfTheStartAreNotPushed) {
    file("roms/GBA/game");
    DirBrowser browser(nullptr, plainFactory);
    LogCapture log;
    browser.LoadDir(roms().c_str(), (roms() + "//GBA/").c_str());
    EXPECT_EQ(browser.dirStack, (Labels{roms(), roms() + "/GBA"}));
    // What is read is the start as it was given.
    EXPECT_EQ(log.lines().back(), "loaddir " + roms() + "//GBA/ 2");
    for (const FactoryCall& call : sCalls) EXPECT_EQ(call.path, roms() + "//GBA//" + call.name);
    ASSERT_EQ(browser.cache.size(), 1U);
    EXPECT_EQ(browser.cache[0].path, roms() + "/GBA");
    EXPECT_EQ(browser.cache[0].items->size(), 2U);
}

TEST_F(DirBrowserTest, StartAtTheBaseHasNoParentEntry) {
    file("roms/game");
    DirBrowser browser(nullptr, plainFactory);
    LogCapture log;
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), roms().c_str())), (Labels{"game"}));
    EXPECT_EQ(log.lines(), (Labels{"dir 0 " + roms(), "loaddir " + roms() + " 1"}));
    EXPECT_TRUE(browser.isBaseDir());
}

TEST_F(DirBrowserTest, AStartOutsideTheBaseShowsTheBase) {
    file("roms/game");
    DirBrowser browser(nullptr, plainFactory);
    LogCapture log;
    EXPECT_EQ(labelsOf(browser.LoadDir(roms().c_str(), "/games/x")), (Labels{"game"}));
    EXPECT_EQ(browser.dirStack, (Labels{roms()}));
    EXPECT_EQ(log.text(), "loaddir " + roms() + " 1\n");
}

TEST_F(DirBrowserTest, AStartWithTheBaseInsideIsLoadedAndTheStackBeginsAtTheBase) {
    file("roms/GBA/game");
    DirBrowser browser(nullptr, plainFactory);
    const std::string start = roms() + "/GBA";
    EXPECT_EQ(labelsOf(browser.LoadDir("/roms", start.c_str())), (Labels{"..", "game"}));
    EXPECT_EQ(browser.dirStack, (Labels{"/roms", "/roms/GBA"}));
    for (const FactoryCall& call : sCalls) EXPECT_EQ(call.path, start + "/" + call.name);
}

TEST_F(DirBrowserTest, OfABaseTwiceInTheStartTheFirstCounts) {
    DirBrowser browser(nullptr, plainFactory);
    browser.LoadDir("/roms", "/roms/A/roms/B");
    EXPECT_EQ(browser.dirStack, (Labels{"/roms", "/roms/A", "/roms/A/roms", "/roms/A/roms/B"}));
}

TEST_F(DirBrowserTest, ANullBaseOrPathGivesNull) {
    DirBrowser browser(nullptr, plainFactory);
    EXPECT_EQ(browser.LoadDir(nullptr, nullptr), nullptr);
    EXPECT_EQ(browser.ChildDir(nullptr), nullptr);
    EXPECT_EQ(browser.getMenu(nullptr), nullptr);
    browser.freeMenuItems(nullptr);
}

TEST_F(DirBrowserTest, LoadDirForgetsWhatWasLoadedBefore) {
    file("roms/GBA/game");
    DirBrowser browser(nullptr, plainFactory);
    browser.LoadDir(roms().c_str(), nullptr);
    browser.ChildDir((roms() + "/GBA").c_str());
    EXPECT_EQ(sItemsAlive, 3);
    // The base is given by the stack's own text, which goes while it is read.
    browser.LoadDir(browser.dirStack.front().c_str(), browser.getCurrentDir());
    EXPECT_EQ(sItemsAlive, 2);
    EXPECT_EQ(browser.cache.size(), 1U);
    EXPECT_EQ(browser.dirStack.size(), 2U);
}

TEST_F(DirBrowserTest, AChildGoesToTheFrontOfTheCache) {
    file("roms/GBA/game");
    DirBrowser browser(nullptr, plainFactory);
    browser.LoadDir(roms().c_str(), nullptr);
    const std::string child = roms() + "/GBA";
    LogCapture log;
    std::vector<void*>* items = browser.ChildDir(child.c_str());
    char expected[512];
    std::snprintf(expected, sizeof expected, "loaddir %s 2\nchilddir %s return %p\n", child.c_str(), child.c_str(),
                  static_cast<void*>(items));
    EXPECT_EQ(log.text(), expected);
    ASSERT_EQ(browser.cache.size(), 2U);
    EXPECT_EQ(browser.cache[0].path, child);
    EXPECT_EQ(browser.cache[1].path, roms());
    EXPECT_EQ(browser.getItemNum(), 3);
}

TEST_F(DirBrowserTest, GoingBackUpFindsTheParentInTheCache) {
    file("roms/A/B/game");
    DirBrowser browser(nullptr, plainFactory);
    browser.LoadDir(roms().c_str(), nullptr);
    std::vector<void*>* a = browser.ChildDir((roms() + "/A").c_str());
    browser.ChildDir((roms() + "/A/B").c_str());
    LogCapture log;
    EXPECT_EQ(browser.ParentDir(), a);
    EXPECT_EQ(log.text(), "found menu for " + roms() + "/A\n");
    EXPECT_EQ(browser.cache[0].path, roms() + "/A");
    EXPECT_EQ(browser.cache[1].path, roms() + "/A/B");
    EXPECT_EQ(browser.cache[2].path, roms());
}

TEST_F(DirBrowserTest, EnteringAKnownDirectoryAgainReadsNothing) {
    file("roms/A/game");
    DirBrowser browser(nullptr, plainFactory);
    browser.LoadDir(roms().c_str(), nullptr);
    std::vector<void*>* a = browser.ChildDir((roms() + "/A").c_str());
    browser.ParentDir();
    sCalls.clear();
    EXPECT_EQ(browser.ChildDir((roms() + "/A").c_str()), a);
    EXPECT_TRUE(sCalls.empty());
}

TEST_F(DirBrowserTest, ParentOfTheBaseIsTheBase) {
    file("roms/game");
    DirBrowser browser(nullptr, plainFactory);
    std::vector<void*>* base = browser.LoadDir(roms().c_str(), nullptr);
    EXPECT_EQ(browser.ParentDir(), base);
    EXPECT_EQ(browser.dirStack, (Labels{roms()}));
}

TEST_F(DirBrowserTest, AParentThatIsNotCachedIsLoaded) {
    file("roms/GBA/game");
    DirBrowser browser(nullptr, plainFactory);
    browser.LoadDir(roms().c_str(), (roms() + "/GBA").c_str());
    LogCapture log;
    std::vector<void*>* items = browser.ParentDir();
    char expected[512];
    std::snprintf(expected, sizeof expected, "loaddir %s 1\nparentdir %s return %p\n", roms().c_str(), roms().c_str(),
                  static_cast<void*>(items));
    EXPECT_EQ(log.text(), expected);
    EXPECT_EQ(labelsOf(items), (Labels{"GBA"}));
    EXPECT_EQ(browser.cache[0].path, roms());
}

TEST_F(DirBrowserTest, AParentBetweenBaseAndChildListsTheWayUp) {
    file("roms/A/B/game");
    DirBrowser browser(nullptr, plainFactory);
    browser.LoadDir(roms().c_str(), (roms() + "/A/B").c_str());
    EXPECT_EQ(labelsOf(browser.ParentDir()), (Labels{"..", "B"}));
}

TEST_F(DirBrowserTest, GetMenuOfAnUnknownPathIsNullAndSilent) {
    DirBrowser browser(nullptr, plainFactory);
    browser.LoadDir(roms().c_str(), nullptr);
    LogCapture log;
    EXPECT_EQ(browser.getMenu("/elsewhere"), nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(DirBrowserTest, GetMenuTakesTheCachesOwnText) {
    file("roms/A/game");
    DirBrowser browser(nullptr, plainFactory);
    browser.LoadDir(roms().c_str(), nullptr);
    browser.ChildDir((roms() + "/A").c_str());
    const std::vector<void*>* found = browser.getMenu(browser.cache[1].path.c_str());
    EXPECT_EQ(found, browser.cache[0].items.get());
    EXPECT_EQ(browser.cache[0].path, roms());
}

TEST_F(DirBrowserTest, ClearSpaceDropsTheLeastRecentlyUsedDirectory) {
    files("roms/big", 20000);
    files("roms/other", 20000);
    file("roms/third/game");
    DirBrowser browser(nullptr, plainFactory);
    browser.LoadDir(roms().c_str(), nullptr);
    browser.ChildDir((roms() + "/big").c_str());
    browser.ParentDir();
    // The parent entry counts as an item, so each big directory holds 20000 and the base 3: 40003 in all.
    browser.ChildDir((roms() + "/other").c_str());
    EXPECT_EQ(browser.getItemNum(), 40003);
    browser.ParentDir();
    browser.ChildDir((roms() + "/third").c_str());
    // "big" went: it had not been shown for longest.
    EXPECT_EQ(browser.getMenu((roms() + "/big").c_str()), nullptr);
    EXPECT_NE(browser.getMenu((roms() + "/other").c_str()), nullptr);
    EXPECT_EQ(browser.getItemNum(), 20005);
    EXPECT_EQ(sItemsAlive, 20005);
}

// One list of items, as large as a test needs, without a file for each.
void fillCache(DirBrowser& browser, const char* path, int count) {
    auto items = std::make_unique<std::vector<void*>>();
    for (int i = 0; i < count; ++i) items->push_back(new CountedItem("x", nullptr));
    browser.cache.push_back({path, std::move(items)});
}

TEST_F(DirBrowserTest, ClearSpaceKeepsFortyThousandItems) {
    DirBrowser browser(nullptr, plainFactory);
    fillCache(browser, "a", 20000);
    fillCache(browser, "b", 20000);
    EXPECT_EQ(browser.clearSpace(), 0);
    EXPECT_EQ(browser.cache.size(), 2U);
}

TEST_F(DirBrowserTest, ClearSpaceDropsAtFortyThousandAndOne) {
    DirBrowser browser(nullptr, plainFactory);
    fillCache(browser, "a", 20000);
    fillCache(browser, "b", 20001);
    EXPECT_EQ(browser.clearSpace(), 0);
    ASSERT_EQ(browser.cache.size(), 1U);
    EXPECT_EQ(browser.cache[0].path, "a");
    EXPECT_EQ(sItemsAlive, 20000);
}

TEST_F(DirBrowserTest, ClearSpaceLeavesASingleDirectoryAlone) {
    DirBrowser browser(nullptr, plainFactory);
    fillCache(browser, "a", 40001);
    browser.clearSpace();
    EXPECT_EQ(browser.cache.size(), 1U);
}

TEST_F(DirBrowserTest, ClearSpaceMayEmptyTheCache) {
    DirBrowser browser(nullptr, plainFactory);
    fillCache(browser, "a", 40001);
    fillCache(browser, "b", 1);
    browser.clearSpace();
    EXPECT_TRUE(browser.cache.empty());
    EXPECT_EQ(sItemsAlive, 0);
}

TEST_F(DirBrowserTest, ParentDirMakesRoomBeforeItLoads) {
    file("roms/A/B/game");
    DirBrowser browser(nullptr, plainFactory);
    browser.LoadDir(roms().c_str(), (roms() + "/A/B").c_str());
    fillCache(browser, "older", 39998);
    fillCache(browser, "oldest", 1);
    browser.ParentDir();
    // The oldest alone had to go: 40000 were left, and the two of the parent came later.
    ASSERT_EQ(browser.cache.size(), 3U);
    EXPECT_EQ(browser.cache[0].path, roms() + "/A");
    EXPECT_EQ(browser.cache[1].path, roms() + "/A/B");
    EXPECT_EQ(browser.cache[2].path, "older");
}

// The path of a row that goes while room is made for the directory it names.
TEST_F(DirBrowserTest, ChildDirTakesAPathThatGoesWithTheCache) {
    file("roms/GBA/game");
    DirBrowser browser(nullptr, plainFactory);
    browser.dirStack.push_back(roms());
    fillCache(browser, roms().c_str(), 40000);
    fillCache(browser, "b", 1);
    static_cast<TextMenuItem*>(browser.cache[1].items->front())->label = roms() + "/GBA";
    const char* path = static_cast<TextMenuItem*>(browser.cache[1].items->front())->label.c_str();
    EXPECT_EQ(labelsOf(browser.ChildDir(path)), (Labels{"..", "game"}));
    EXPECT_EQ(browser.getCurrentDir(), roms() + "/GBA");
}

TEST_F(DirBrowserTest, FreeMenuItemsSkipsNullAndKeepsTheArray) {
    DirBrowser browser(nullptr, plainFactory);
    std::vector<void*> items{new CountedItem("a", nullptr), nullptr};
    browser.freeMenuItems(&items);
    EXPECT_TRUE(items.empty());
    EXPECT_EQ(sItemsAlive, 0);
}

TEST_F(DirBrowserTest, TheDestructorDeletesEveryItem) {
    file("roms/GBA/game");
    {
        DirBrowser browser(nullptr, plainFactory);
        browser.LoadDir(roms().c_str(), nullptr);
        browser.ChildDir((roms() + "/GBA").c_str());
    }
    EXPECT_EQ(sItemsAlive, 0);
}

TEST_F(DirBrowserTest, CountNumberCountsWhatTheFilterAccepts) {
    for (const char* name : {"roms/a.gb", "roms/b.txt", "roms/c.gb", "roms/folder/d.gb"}) file(name);
    const auto games = [](const char* name, const char* path) {
        EXPECT_NE(std::string(path).find("/roms/"), std::string::npos);
        return std::string(name).find(".gb") != std::string::npos;
    };
    EXPECT_EQ(CountNumber(roms(), games), 2);
    EXPECT_EQ(CountNumber(roms(), nullptr), 4);
    EXPECT_EQ(CountNumber(roms() + "/missing", nullptr), 0);
}

TEST_F(DirBrowserTest, CountNumberWithoutMemoryIsMinusOne) {
    sRefuseNothrowMemory = true;
    const int count = CountNumber(roms(), nullptr);
    sRefuseNothrowMemory = false;
    EXPECT_EQ(count, -1);
}

TEST_F(DirBrowserTest, TheFieldsHaveTheirPlaces) {
    const DirBrowser browser(nullptr, plainFactory);
    EXPECT_EQ(offsetIn(browser, browser.dirStack), 0);
    EXPECT_EQ(offsetIn(browser, browser.cache), 24);
    EXPECT_EQ(offsetIn(browser, browser.filter), 48);
    EXPECT_EQ(offsetIn(browser, browser.factory), 56);
}

}  // namespace

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return sRefuseNothrowMemory ? nullptr : ::operator new[](size);
}
