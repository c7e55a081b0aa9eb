// Whole screens in the dark theme against reference pictures.
#include <memory>

#include "ostrel/image.h"
#include "ostrel/log.h"
#include "ostrel/menu_item.h"
#include "ostrel/pinyin.h"
#include "ostrel/skin.h"
#include "ostrel/text_menu.h"
#include "support/fake_host.h"
#include "support/log_capture.h"
#include "support/screen_test.h"

using ostreltest::Canvas;
using ostreltest::kBlendingTolerance;
using ostreltest::LogCapture;
using ostreltest::matchesReference;
using ostreltest::Picture;
using ostreltest::ScreenTest;

namespace {

class ListPicturesTest : public ScreenTest {
protected:
    ListPicturesTest() {
        initLogger(0);
        device().linkFont();
        ostreltest::host().setTheme(OSTREL_SOURCE_DIR "/theme/dark/");
        const LogCapture quiet;
        init_shared_skin();
        InitPinYinMap();
    }
    ~ListPicturesTest() override { uninit_shared_skin(); }

    static std::unique_ptr<OstrelSurface> image(const char* name) {
        return std::unique_ptr<OstrelSurface>(LoadOstrelSurface(gThemePath, "./", name));
    }
    static TextMenuItem* add(TextMenu& menu, const char* label, const char* subLabel = nullptr,
                             OstrelSurface* icon = nullptr) {
        auto* item = new TextMenuItem(label, icon, nullptr, false);
        item->hasSubLabel = subLabel != nullptr;
        if (subLabel != nullptr) item->subLabel = subLabel;
        menu.insertItem(item);
        return item;
    }
    static Picture screen(TextMenu& menu) {
        const Canvas canvas(1280, 720);
        gBackground->render(nullptr, nullptr, false, nullptr);
        menu.draw();
        return canvas.picture();
    }
};

TEST_F(ListPicturesTest, NumberedRowsScrolledToTheLastPage) {
    TextMenu menu("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 10);
    for (const char* label : {"Air Combat", "Boulder Run", "Castle of Mist", "Deep Dive 2", "Express 1905",
                              "Frontier Farm, the complete edition with every season and all the extra maps", "Gravity",
                              "华容道", "超级中国象棋"}) {
        add(menu, label);
    }
    menu.mCurIndex = 8;
    EXPECT_TRUE(matchesReference(screen(menu), "menu/list_numbers", kBlendingTolerance));
}

TEST_F(ListPicturesTest, IconsWithAMarkerAndARowThatIsNotThereYet) {
    const auto folder = image("skin/ic-folder.png");
    const auto game = image("skin/ic-game.png");
    const auto music = image("skin/ic-music.png");
    const auto mark = image("skin/sel-mark.png");
    TextMenu menu("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 10);
    menu.showListNum = false;
    menu.selMark = mark.get();
    add(menu, "Arcade", nullptr, folder.get());
    add(menu, "Puzzles", nullptr, folder.get());
    add(menu, "Gravity", nullptr, game.get());
    add(menu, "Soundtrack", nullptr, music.get());
    menu.insertItem(nullptr);
    menu.mCurIndex = 2;
    EXPECT_TRUE(matchesReference(screen(menu), "menu/list_icons", kBlendingTolerance));
}

TEST_F(ListPicturesTest, SearchHitsInLatinAndChinese) {
    TextMenu menu("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 10);
    add(menu, "中国象棋");
    add(menu, "Zig Zag");
    add(menu, "Luna 在哪里");
    add(menu, "Blitz 1999");
    add(menu, "No hit here");
    menu.mName = "z";
    EXPECT_TRUE(matchesReference(screen(menu), "menu/list_search", kBlendingTolerance));
}

TEST_F(ListPicturesTest, RowsOfTwoLines) {
    const auto game = image("skin/ic-game.png");
    TextMenu menu("skin/bg-tall-f.png", "skin/bg-tall-n.png", 5, 10);
    menu.showListNum = false;
    add(menu, "Air Combat", "last played yesterday", game.get());
    add(menu, "Boulder Run", "two players, 12 hours", game.get());
    add(menu, "Castle of Mist", nullptr, game.get());
    add(menu, "华容道", "昨天玩过", game.get());
    menu.mCurIndex = 1;
    EXPECT_TRUE(matchesReference(screen(menu), "menu/list_two_lines", kBlendingTolerance));
}

}  // namespace
