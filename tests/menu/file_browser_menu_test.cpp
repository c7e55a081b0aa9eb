#include "ostrel/file_browser_menu.h"

#include <filesystem>
#include <map>

#include "ostrel/window.h"
#include "support/abi.h"
#include "support/driven_clock.h"
#include "support/fake_host.h"
#include "support/log_capture.h"
#include "support/screen_test.h"
#include "support/virtual_joystick.h"

namespace fs = std::filesystem;

namespace {

using ostreltest::drainEvents;
using ostreltest::host;
using ostreltest::LogCapture;
using ostreltest::offsetIn;
using ostreltest::pushKey;
using ostreltest::pushUser;
using ostreltest::slotOf;
using Labels = std::vector<std::string>;

constexpr int kRowsPerPage = 5;
constexpr int kGap = 10;

class FileBrowserMenuTest : public ostreltest::ScreenTest {
protected:
    FileBrowserMenuTest() {
        host().handler = [](const char* name, const char*, int) {
            return new TextMenuItem(name, nullptr, nullptr, false);
        };
        drainEvents();
    }

    void file(const std::string& name) { device().write(name, "x"); }
    std::string roms() { return device().path("roms"); }
    FileBrowserMenu& open(const char* start = nullptr) {
        menu = std::make_unique<FileBrowserMenu>(roms().c_str(), start, nullptr, nullptr, kGap, kRowsPerPage);
        menu->LoadDir();
        return *menu;
    }
    int press(SDL_Keycode key, Uint32 type = SDL_KEYUP) {
        drainEvents();  // the window's own events come first otherwise
        pushKey(type, key);
        return menu->eventHandling();
    }
    int pressA() { return press(SDLK_SPACE); }
    int pressB() { return press(SDLK_LCTRL); }
    int changeTo(std::string path) {
        drainEvents();
        pushUser(26, path.data());
        return menu->eventHandling();
    }
    Labels labels() {
        Labels result;
        for (int i = 0; i < menu->getListNum(); ++i) result.push_back(menu->getItemByIndex(i)->getLabel());
        return result;
    }

    std::unique_ptr<FileBrowserMenu> menu;
};

TEST_F(FileBrowserMenuTest, LoadsNothingBeforeLoadDir) {
    file("roms/game");
    FileBrowserMenu fresh(roms().c_str(), nullptr, nullptr, nullptr, kGap, kRowsPerPage);
    EXPECT_EQ(fresh.curList, nullptr);
    EXPECT_EQ(fresh.getListNum(), 0);
    EXPECT_EQ(fresh.getItemByIndex(0), nullptr);
    EXPECT_EQ(fresh.getCurrentDir(), nullptr);
    EXPECT_EQ(fresh.baseDir, roms());
    EXPECT_EQ(fresh.startDir, "");
    fresh.draw();
}

TEST_F(FileBrowserMenuTest, GapAndRowsReachTheDrawerInTheirPlaces) {
    FileBrowserMenu fresh("/x", nullptr, nullptr, nullptr, /*ySpace=*/10, /*itemsPerPage=*/5);
    EXPECT_EQ(fresh.mYSpaceInList, 10);
    EXPECT_EQ(fresh.itemsPerPage, 5);
    EXPECT_EQ(fresh.mItemHeight, (580 - 40) / 5);
}

TEST_F(FileBrowserMenuTest, LoadDirShowsTheBase) {
    file("roms/b");
    file("roms/a");
    open();
    EXPECT_EQ(labels(), (Labels{"a", "b"}));
    EXPECT_EQ(menu->getCurrentDir(), roms());
}

TEST_F(FileBrowserMenuTest, LoadDirShowsTheStartWhenThereIsOne) {
    file("roms/GBA/game");
    open((roms() + "/GBA").c_str());
    EXPECT_EQ(labels(), (Labels{"..", "game"}));
    EXPECT_EQ(menu->getCurrentDir(), roms() + "/GBA");
}

TEST_F(FileBrowserMenuTest, TheHostsHandlerMakesTheRows) {
    file("roms/game");
    file("roms/note");
    host().handler = [](const char* name, const char*, int type) -> TextMenuItem* {
        EXPECT_EQ(type, 101);
        return std::string(name) == "note" ? nullptr : new TextMenuItem("Made", nullptr, nullptr, false);
    };
    open();
    EXPECT_EQ(labels(), (Labels{"Made"}));
}

TEST_F(FileBrowserMenuTest, RowsOutsideTheListAreNull) {
    file("roms/game");
    open();
    EXPECT_EQ(menu->getItemByIndex(-1), nullptr);
    EXPECT_EQ(menu->getItemByIndex(menu->getListNum()), nullptr);
}

TEST_F(FileBrowserMenuTest, BackAtTheBaseClosesTheWindow) {
    file("roms/game");
    open();
    EXPECT_EQ(pressB(), 1002);
}

TEST_F(FileBrowserMenuTest, BackBelowTheBaseGoesUpToTheFirstRow) {
    for (const char* name : {"roms/A/1", "roms/A/2", "roms/B/x", "roms/C/x"}) file(name);
    open();
    changeTo(roms() + "/A");
    menu->mCurIndex = 2;
    EXPECT_EQ(pressB(), 26);
    EXPECT_EQ(labels(), (Labels{"A", "B", "C"}));
    EXPECT_EQ(menu->mCurIndex, 0);
    EXPECT_EQ(menu->mFirstIndex, 0);
    EXPECT_EQ(menu->mLastIndex, 2);
}

TEST_F(FileBrowserMenuTest, WithBConfirmingAGoesBack) {
    file("roms/A/1");
    for (const int setting : {1, 2, -1}) {
        host().shm.values[19] = setting;
        open();
        EXPECT_EQ(pressA(), 1002) << setting;
        changeTo(roms() + "/A");
        EXPECT_EQ(pressA(), 26) << setting;
        EXPECT_EQ(labels(), (Labels{"A"})) << setting;
    }
}

TEST_F(FileBrowserMenuTest, WithBConfirmingBOnARowWithoutAnActionIsMinusOneAndStays) {
    file("roms/A/1");
    host().shm.values[19] = 1;
    open((roms() + "/A").c_str());
    EXPECT_EQ(pressB(), -1);
    EXPECT_EQ(menu->getCurrentDir(), roms() + "/A");
}

// With B confirming, the number 2 is not the key that goes back, and 26 carries no path.
TEST_F(FileBrowserMenuTest, WithBConfirmingBStaysWhereTheActionGivesTheNumberOfBOrOfTheRequest) {
    file("roms/A/1");
    static int sResult;
    static GeneralAction sGives([](void*) { return sResult; }, nullptr);
    host().handler = [](const char* name, const char*, int) { return new TextMenuItem(name, nullptr, &sGives, false); };
    for (const int setting : {1, 2, -1}) {
        host().shm.values[19] = setting;
        for (const int result : {2, 26}) {
            sResult = result;
            open((roms() + "/A").c_str());
            EXPECT_EQ(pressB(), 26) << result << " with the setting " << setting;
            EXPECT_EQ(menu->getCurrentDir(), roms() + "/A");
        }
    }
}

TEST_F(FileBrowserMenuTest, AnActionThatGivesOneWithAConfirmingDoesNotMove) {
    file("roms/A/1");
    static GeneralAction sGivesOne([](void*) { return 1; }, nullptr);
    host().handler = [](const char* name, const char*, int) {
        return new TextMenuItem(name, nullptr, &sGivesOne, false);
    };
    open();
    EXPECT_EQ(pressA(), 26);
    EXPECT_EQ(menu->getCurrentDir(), roms());
}

// A result equal to the back key's number goes back as the key does: 2 with A confirming, 1 with B.
TEST_F(FileBrowserMenuTest, AnActionThatGivesTheBackKeyGoesUpAndAtTheBaseLeaves) {
    file("roms/A/1");
    static int sResult;
    static GeneralAction sGives([](void*) { return sResult; }, nullptr);
    host().handler = [](const char* name, const char*, int) { return new TextMenuItem(name, nullptr, &sGives, false); };
    for (const int bConfirms : {0, 1}) {
        host().shm.values[19] = bConfirms;
        sResult = bConfirms != 0 ? 1 : 2;
        open((roms() + "/A").c_str());
        EXPECT_EQ(bConfirms != 0 ? pressB() : pressA(), 26);
        EXPECT_EQ(menu->getCurrentDir(), roms());
        EXPECT_EQ(bConfirms != 0 ? pressB() : pressA(), 1002);
    }
}

// Its results are keys to the menu, which is not there any more.
TEST_F(FileBrowserMenuTest, AnActionMayDeleteTheMenuWhateverItGives) {
    file("roms/A/1");
    static int sResult;
    static FileBrowserMenu* sMenu;
    static GeneralAction sDeletes(
        [](void*) {
            delete sMenu;
            return sResult;
        },
        nullptr);
    host().handler = [](const char* name, const char*, int) {
        return new TextMenuItem(name, nullptr, &sDeletes, false);
    };
    for (const int bConfirms : {0, 1}) {
        host().shm.values[19] = bConfirms;
        for (const auto& [result, handedOn] : std::map<int, int>{{1, 26}, {2, 26}, {26, 26}, {70, 70}, {1002, 1002}}) {
            open((roms() + "/A").c_str());
            sResult = result;
            sMenu = menu.release();
            drainEvents();
            pushKey(SDL_KEYUP, bConfirms != 0 ? SDLK_LCTRL : SDLK_SPACE);
            EXPECT_EQ(sMenu->eventHandling(), handedOn) << result << " with B confirming " << bConfirms;
        }
    }
}

class DeletesOnX : public Action {
public:
    explicit DeletesOnX(FileBrowserMenu*& menu) : mMenu(menu) {}
    int dowork(void*) override { return 0; }
    int xdowork(void*) override {
        delete mMenu;
        return 2;
    }

private:
    FileBrowserMenu*& mMenu;
};

TEST_F(FileBrowserMenuTest, TheSecondActionMayDeleteTheMenuToo) {
    file("roms/A/1");
    static FileBrowserMenu* sMenu;
    static DeletesOnX sAction(sMenu);
    host().handler = [](const char* name, const char*, int) {
        return new TextMenuItem(name, nullptr, &sAction, false);
    };
    open();
    sMenu = menu.release();
    drainEvents();
    pushKey(SDL_KEYUP, SDLK_LSHIFT);
    EXPECT_EQ(sMenu->eventHandling(), 26);
}

// The action runs a loop of its own with another browser, and deletes the outer one in there.
TEST_F(FileBrowserMenuTest, AnActionInsideAnotherBrowsersActionMayDeleteTheOuterMenu) {
    file("roms/A/1");
    static FileBrowserMenu* sOuter;
    static FileBrowserMenu* sInner;
    static int sDepth;
    static GeneralAction sOpens(
        [](void*) {
            if (sDepth++ == 0) {
                drainEvents();
                pushKey(SDL_KEYUP, SDLK_SPACE);
                EXPECT_EQ(sInner->eventHandling(), 70);
                return 2;
            }
            delete sOuter;
            return 70;
        },
        nullptr);
    sDepth = 0;
    host().handler = [](const char* name, const char*, int) { return new TextMenuItem(name, nullptr, &sOpens, false); };
    open();
    sOuter = menu.release();
    sInner = &open();
    drainEvents();
    pushKey(SDL_KEYUP, SDLK_SPACE);
    EXPECT_EQ(sOuter->eventHandling(), 26);
}

TEST_F(FileBrowserMenuTest, ASecondLoadDirShowsNoRowsWhileTheHostMakesTheNewOnes) {
    file("roms/game");
    static FileBrowserMenu* sMenu;
    static int sRowsSeen;
    sRowsSeen = -1;
    open();
    sMenu = menu.get();
    host().handler = [](const char* name, const char*, int) {
        sRowsSeen = sMenu->getListNum();
        return new TextMenuItem(name, nullptr, nullptr, false);
    };
    menu->LoadDir();
    EXPECT_EQ(sRowsSeen, 0);
    EXPECT_EQ(labels(), (Labels{"game"}));
}

TEST_F(FileBrowserMenuTest, AChangeRequestEntersTheDirectory) {
    file("roms/A/1");
    open();
    LogCapture log;
    EXPECT_EQ(changeTo(roms() + "/A"), 26);
    const Labels lines = log.lines();
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0], "change dir " + roms() + "/A");
    EXPECT_EQ(lines[1], "loaddir " + roms() + "/A 2");
    EXPECT_EQ(lines[3], "change dir return 26");
    EXPECT_EQ(labels(), (Labels{"..", "1"}));
}

TEST_F(FileBrowserMenuTest, APathThatEndsInTwoDotsGoesUp) {
    file("roms/A/1");
    for (const char* ending : {"/A/..", "/A/../", "/A/x.."}) {
        open((roms() + "/A").c_str());
        EXPECT_EQ(changeTo(roms() + ending), 26);
        EXPECT_EQ(menu->getCurrentDir(), roms()) << ending;
    }
}

TEST_F(FileBrowserMenuTest, APathWithDotsInsideIsEntered) {
    file("roms/A/..b/1");
    open();
    EXPECT_EQ(changeTo(roms() + "/A/..b"), 26);
    EXPECT_EQ(menu->getCurrentDir(), roms() + "/A/..b");
}

TEST_F(FileBrowserMenuTest, ARequestWithoutAPathDoesNothing) {
    file("roms/A/1");
    open();
    LogCapture log;
    drainEvents();
    pushUser(26, nullptr);
    EXPECT_EQ(menu->eventHandling(), 26);
    EXPECT_EQ(log.text(), "");
    EXPECT_EQ(menu->getCurrentDir(), roms());
}

TEST_F(FileBrowserMenuTest, AnActionThatGivesTheRequestsNumberCarriesNoPath) {
    file("roms/A/1");
    static GeneralAction sGives26([](void*) { return 26; }, nullptr);
    host().handler = [](const char* name, const char*, int) {
        return new TextMenuItem(name, nullptr, &sGives26, false);
    };
    open();
    EXPECT_EQ(pressA(), 26);
    EXPECT_EQ(menu->getCurrentDir(), roms());
}

// The path belongs to a row of the list that the change drops.
TEST_F(FileBrowserMenuTest, TheRequestedPathMayGoWithTheOldList) {
    file("roms/A/1");
    open();
    menu->getItemByIndex(0)->label = roms() + "/A";
    for (int i = 0; i < 40001; ++i) menu->curList->push_back(nullptr);
    menu->browser.cache.push_back({"other", std::make_unique<std::vector<void*>>()});
    drainEvents();
    pushUser(26, menu->getItemByIndex(0)->label.data());
    EXPECT_EQ(menu->eventHandling(), 26);
    EXPECT_EQ(labels(), (Labels{"..", "1"}));
}

TEST_F(FileBrowserMenuTest, AShortListShowsAllItsRows) {
    for (const char* name : {"roms/A/1", "roms/A/2"}) file(name);
    open();
    changeTo(roms() + "/A");
    EXPECT_EQ(menu->mFirstIndex, 0);
    EXPECT_EQ(menu->mLastIndex, 2);
}

TEST_F(FileBrowserMenuTest, ALongListShowsSixRows) {
    for (int i = 0; i < 40; ++i) file("roms/A/" + std::to_string(i));
    open();
    menu->mCurIndex = 0;
    changeTo(roms() + "/A");
    EXPECT_EQ(menu->mLastIndex, 5);
}

TEST_F(FileBrowserMenuTest, AnEmptyDirectoryHasNoRowUnderTheCursor) {
    file("roms/A/1");
    host().handler = [](const char* name, const char*, int) -> TextMenuItem* {
        return std::string(name) == "A" ? new TextMenuItem(name, nullptr, nullptr, false) : nullptr;
    };
    open();
    EXPECT_EQ(changeTo(roms() + "/A"), 26);
    EXPECT_EQ(menu->getListNum(), 0);
    EXPECT_EQ(menu->select(), -1);
    menu->draw();
}

TEST_F(FileBrowserMenuTest, ADirectoryThatVanishedShowsNothing) {
    file("roms/A/1");
    open();
    fs::remove_all(roms() + "/A");
    EXPECT_EQ(changeTo(roms() + "/A"), 26);
    EXPECT_EQ(menu->getListNum(), 0);
    EXPECT_EQ(pressB(), 26);
    EXPECT_EQ(menu->getCurrentDir(), roms());
}

TEST_F(FileBrowserMenuTest, OtherKeysComeBackUnchanged) {
    file("roms/a");
    file("roms/b");
    open();
    EXPECT_EQ(press(SDLK_DOWN, SDL_KEYDOWN), 6);
    EXPECT_EQ(menu->mCurIndex, 1);
    EXPECT_EQ(press(SDLK_ESCAPE), 11);
    menu->mWrapUp = false;
    menu->mCurIndex = 0;
    EXPECT_EQ(press(SDLK_UP, SDL_KEYDOWN), 1008);
}

TEST_F(FileBrowserMenuTest, AResultOfTheRowsActionComesBack) {
    file("roms/a");
    static GeneralAction sGivesSeventy([](void*) { return 70; }, nullptr);
    host().handler = [](const char* name, const char*, int) {
        return new TextMenuItem(name, nullptr, &sGivesSeventy, false);
    };
    open();
    EXPECT_EQ(pressA(), 70);
}

TEST_F(FileBrowserMenuTest, NoEventIsZero) {
    file("roms/a");
    open();
    EXPECT_EQ(menu->eventHandling(), 0);
}

TEST_F(FileBrowserMenuTest, SlotsAreTheListsAndTheFieldsFollowTheDrawers) {
    EXPECT_EQ(slotOf(&FileBrowserMenu::eventHandling), 4);
    EXPECT_EQ(slotOf(&FileBrowserMenu::getItemByIndex), 6);
    EXPECT_EQ(slotOf(&FileBrowserMenu::draw), 8);
    EXPECT_EQ(slotOf(&FileBrowserMenu::getListNum), 9);
    EXPECT_EQ(slotOf(&FileBrowserMenu::drawListNum), 20);
    const FileBrowserMenu browser("/roms", nullptr, nullptr, nullptr, kGap, kRowsPerPage);
    EXPECT_EQ(offsetIn(browser, browser.baseDir), 344);
    EXPECT_EQ(offsetIn(browser, browser.startDir), 376);
    EXPECT_EQ(offsetIn(browser, browser.browser), 408);
    EXPECT_EQ(offsetIn(browser, browser.curList), 472);
}

}  // namespace
