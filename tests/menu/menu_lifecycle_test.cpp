// Menus across changes of theme, the end of the screen and their own end.
#include <memory>

#include "ostrel/file_browser_menu.h"
#include "ostrel/image.h"
#include "ostrel/log.h"
#include "ostrel/menu_item.h"
#include "ostrel/screen.h"
#include "ostrel/setting_menu.h"
#include "ostrel/skin.h"
#include "ostrel/surface.h"
#include "ostrel/text_menu.h"
#include "support/fake_host.h"
#include "support/log_capture.h"
#include "support/screen_test.h"

using ostreltest::Canvas;
using ostreltest::Colour;
using ostreltest::host;
using ostreltest::LogCapture;
using ostreltest::Picture;
using ostreltest::picturesMatch;
using ostreltest::ScreenTest;
using ostreltest::writePlainPng;

namespace {

// A row with an icon of its own: what getIconFromCache returns may be gone with the next draw.
class GameRow : public TextMenuItem {
public:
    explicit GameRow(const char* words)
        : TextMenuItem(words, nullptr, nullptr, false), mIcon(LoadOstrelSurface(gThemePath, "./", "skin/ic-game.png")) {
        icon = mIcon.get();
    }

private:
    std::unique_ptr<OstrelSurface> mIcon;
};

class MenuLifecycleTest : public ScreenTest {
protected:
    MenuLifecycleTest() {
        initLogger(0);
        device().linkFont();
        writeTheme("blue", {0, 0, 120, 255});
        writeTheme("red", {120, 0, 0, 255});
        host().setTheme("blue/");
        const LogCapture quiet;
        init_shared_skin();
    }
    ~MenuLifecycleTest() override { uninit_shared_skin(); }

    static void writeTheme(const std::string& name, Colour colour) {
        writePlainPng(name + "/skin/bg-list-f.png", 1260, 88, colour);
        writePlainPng(name + "/skin/bg-list-n.png", 1260, 88, {30, 30, 30, 255});
        writePlainPng(name + "/skin/ic-game.png", 64, 64, {colour.b, colour.g, colour.r, 255});
    }
    static std::unique_ptr<TextMenu> newMenu() {
        auto menu = std::make_unique<TextMenu>("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 10);
        menu->showListNum = false;
        fill(*menu);
        return menu;
    }
    static void fill(TextMenu& menu) {
        for (const char* label : {"Air Combat", "Boulder Run", "Castle of Mist"}) menu.insertItem(new GameRow(label));
    }
    static Picture drawn(TextMenu& menu) {
        const Canvas canvas(1280, 720);
        menu.draw();
        return canvas.picture();
    }
};

TEST_F(MenuLifecycleTest, AListThatChangesItsThemeLooksLikeOneThatIsMadeInIt) {
    const auto menu = newMenu();
    const Picture blue = drawn(*menu);
    menu->clearItemList();
    uninit_shared_skin();
    host().setTheme("red/");
    gIconCache.clear();
    init_shared_skin();
    menu->refresh();
    fill(*menu);
    EXPECT_TRUE(picturesMatch(drawn(*menu), drawn(*newMenu())));
    EXPECT_FALSE(picturesMatch(drawn(*menu), blue));
}

TEST_F(MenuLifecycleTest, AListMayOutliveTheScreenAndThenDrawsNothing) {
    const auto menu = newMenu();
    drawn(*menu);
    menu->mName = "o";
    ScreenUninit();
    menu->draw();
    EXPECT_EQ(menu->mLastIndex, 2);
    host().setTheme("red/");
    menu->refresh();
    menu->draw();
    EXPECT_EQ(ScreenInit(1280, 720, 32, 0), 1);
    menu->draw();
}

TEST_F(MenuLifecycleTest, AnActionMayDeleteTheMenuThatRunsIt) {
    static TextMenu* menu;
    class Closing : public Action {
    public:
        int dowork(void*) override {
            delete menu;
            return 1005;
        }
        int xdowork(void*) override {
            delete menu;
            return 1002;
        }
    };
    for (const int key : {1, 3}) {
        menu = newMenu().release();
        menu->insertItem(new TextMenuItem("a label that is longer than a short string", nullptr, new Closing, true));
        drawn(*menu);
        menu->mCurIndex = 3;
        EXPECT_EQ(menu->handleEvent(key), key == 1 ? 1005 : 1002);
    }
}

TEST_F(MenuLifecycleTest, AFileBrowserDrawsWhatItShowsAndFreesWhatItLoaded) {
    device().write("roms/folder/inner", "x");
    device().write("roms/game", "x");
    host().handler = [](const char* name, const char*, int) { return new GameRow(name); };
    const std::string roms = device().path("roms");
    FileBrowserMenu menu(roms.c_str(), (roms + "/folder").c_str(), "skin/bg-list-f.png", nullptr, /*ySpace=*/10,
                         /*itemsPerPage=*/6);
    menu.draw();
    menu.LoadDir();
    menu.draw();
    EXPECT_EQ(menu.getListNum(), 2);
    menu.curList = menu.browser.ParentDir();
    menu.draw();
    menu.LoadDir();
    EXPECT_EQ(menu.browser.getItemNum(), 2);
}

TEST_F(MenuLifecycleTest, ASettingsPageMayOutliveTheScreen) {
    SettingMenu menu;
    menu.insertSettingItem(
        new SettingItem(gIconFolder, nullptr, "Title", "value", new GeneralAction(nullptr, nullptr)));
    menu.draw();
    ScreenUninit();
    menu.draw();
    EXPECT_EQ(menu.getListNum(), 1);
}

}  // namespace
