// What a frame of a list costs: images opened, texts rendered, blocks of memory asked for, rows looked at.
#include <SDL_image.h>

#include <functional>
#include <memory>

#include "ostrel/bars.h"
#include "ostrel/image.h"
#include "ostrel/log.h"
#include "ostrel/menu_item.h"
#include "ostrel/pinyin.h"
#include "ostrel/skin.h"
#include "ostrel/text.h"
#include "ostrel/text_menu.h"
#include "support/counted_blocks.h"
#include "support/fake_host.h"
#include "support/log_capture.h"
#include "support/screen_test.h"
#include "support/sdl_spy.h"
#include "window/script_window.h"

using ostreltest::blocksAsked;
using ostreltest::Canvas;
using ostreltest::LogCapture;
using ostreltest::ScreenTest;
using ostreltest::SdlSpy;
using ostreltest::writePlainPng;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// A list of any number of rows, of which none is kept: each is the same one with another label.
class Endless : public TextMenuDrawer {
public:
    explicit Endless(int rows)
        : TextMenuDrawer("skin/f.png", "skin/n.png", 6, 10), mRows(rows), mRow("", nullptr, nullptr, false) {}
    ListItem* getItemByIndex(int index) override {
        ++looks;
        if (index < 0 || index >= mRows) return nullptr;
        mRow.label = "Row " + std::to_string(index);
        return &mRow;
    }
    int getListNum() override {
        ++counts;
        return mRows;
    }
    int looks = 0;
    int counts = 0;

private:
    int mRows;
    TextMenuItem mRow;
};

class FrameCostTest : public ScreenTest {
protected:
    FrameCostTest() {
        initLogger(0);
        device().linkFont();
        writePlainPng("skin/f.png", 1260, 88, {90, 0, 0, 255});
        writePlainPng("skin/n.png", 1260, 88, {0, 0, 90, 255});
        writePlainPng("skin/icon.png", 64, 64, {0, 90, 0, 255});
        const LogCapture quiet;
        init_shared_skin();
        InitPinYinMap();
    }
    ~FrameCostTest() override { uninit_shared_skin(); }

    static long blocksOf(const std::function<void()>& work) {
        const long before = blocksAsked;
        work();
        return blocksAsked - before;
    }

    // Seven rows with everything that a row can have, in both languages and too long for their place.
    static void fill(TextMenu& menu) {
        for (int i = 0; i < 7; ++i) {
            const std::string label =
                i % 2 == 0 ? std::string(80, 'W') + std::to_string(i) : "超级中国 the " + std::string(60, 'i');
            auto* item = new TextMenuItem(label.c_str(), nullptr, nullptr, false);
            item->hasSubLabel = true;
            item->subLabel = std::string(200, 'm');
            menu.insertItem(item);
        }
    }
};

TEST_F(FrameCostTest, AFrameThatRepeatsItselfOpensNoImageAndRendersNoText) {
    TextMenu menu("skin/f.png", "skin/n.png", 6, 10);
    fill(menu);
    menu.marquee = true;
    const Canvas canvas(1280, 720);
    for (const char* keyword : {"", "zg", "w"}) {
        for (const bool numbered : {true, false}) {
            menu.mName = keyword;
            menu.showListNum = numbered;
            menu.draw();
            const SdlSpy spy;
            for (int frame = 0; frame < 5; ++frame) menu.draw();
            EXPECT_THAT(spy.decodedImages, IsEmpty()) << keyword;
            EXPECT_THAT(spy.renderedTexts, IsEmpty()) << keyword;
            EXPECT_THAT(spy.texturedSurfaces, IsEmpty()) << keyword;
        }
    }
}

TEST_F(FrameCostTest, ACursorMoveOnAPageRendersNothingButTheCounter) {
    TextMenu menu("skin/f.png", "skin/n.png", 6, 10);
    fill(menu);
    const Canvas canvas(1280, 720);
    menu.draw();
    const SdlSpy spy;
    menu.moveForward();
    menu.draw();
    EXPECT_THAT(spy.decodedImages, IsEmpty());
    EXPECT_THAT(spy.renderedTexts, ElementsAre("2/"));
}

TEST_F(FrameCostTest, EmptyTextsAreNeverRendered) {
    TextMenu menu(nullptr, nullptr, 6, 10);
    menu.insertItem(new TextMenuItem("", nullptr, nullptr, false));
    menu.showListNum = false;
    menu.showStatNum = false;
    menu.mName = "a";
    const Canvas canvas(1280, 720);
    const SdlSpy spy;
    menu.draw();
    EXPECT_THAT(spy.renderedTexts, IsEmpty());
}

// Texts go through interfaces that hand std::string out by value: a frame asks for the memory of those, and no more.
TEST_F(FrameCostTest, AWarmFrameAsksForNoMemoryButWhatItsInterfacesNeed) {
    TextMenu menu("skin/f.png", "skin/n.png", 6, 10);
    for (int i = 1; i <= 7; ++i) {
        const std::string label = "A label longer than a short string, number " + std::to_string(i);
        auto* item = new TextMenuItem(label.c_str(), nullptr, nullptr, false);
        item->hasSubLabel = true;
        item->subLabel = "and a second line below it";
        menu.insertItem(item);
    }
    const Canvas canvas(1280, 720);
    menu.draw();
    const long needed = blocksOf([&menu] {
        for (int i = 0; i < 6; ++i) {
            char number[8];
            std::snprintf(number, sizeof number, "%04d", i + 1);
            TextMenuItem& item = static_cast<TextMenuItem&>(*menu.items[static_cast<std::size_t>(i)]);
            DrawString(gListFontSubtxt, {}, number, gListColorSeq, 0, false, false);
            DrawString(gListFontTxt, {}, item.getLabel().c_str(), menu.textColor, 0, false, false);
            DrawString(gListFontSubtxt, {}, item.getSubLabel().c_str(), gListColorSubtxt, 0, false, false);
        }
        DrawString(gStatFont, {}, "7", gStatColorTxt, 0, false, false);
        DrawString(gStatFont, {}, "1/", gStatColorTxt, 0, false, false);
    });
    EXPECT_GT(needed, 0);
    EXPECT_EQ(blocksOf([&menu] { menu.draw(); }), needed);
}

// What a full-screen window draws besides its list: the navigation bar, and a hint for each of three buttons.
TEST_F(FrameCostTest, AWarmFrameOfBothBarsAsksForNoMemoryButWhatItsInterfacesNeed) {
    device().write("/sys/class/power_supply/axp2202-battery/capacity", "64\n");
    device().write("/sys/class/power_supply/axp2202-battery/status", "Discharging\n");
    device().write("/sys/class/power_supply/axp2202-usb/online", "0\n");
    ostreltest::host().shm.values[SHM_VOL] = 7;
    for (const char* name : {"skin/ic-batery-75%.png", "skin/ic-sound-n.png"}) {
        writePlainPng(name, 30, 30, {90, 90, 0, 255});
    }
    const std::unique_ptr<OstrelSurface> button(LoadOstrelSurface("./", "./", "skin/icon.png"));
    ostreltest::Diary diary;
    ostreltest::ScriptWindow window(diary, "window", /*titleIndex=*/0);
    const Canvas canvas(1280, 720);
    const auto drawBars = [&] {
        window.drawNavBar(0);
        for (const char* hint : {"a hint of some length", "another of that kind", "the last"}) {
            draw_stat_icon_item_left(button.get(), 30, 650, hint);
        }
    };
    {
        const LogCapture quiet;
        drawBars();
    }
    const long needed = blocksOf([] {
        for (const char* name : {"skin/ic-batery-75%.png", "skin/ic-sound-n.png"}) getIconFromCache(name);
        DrawString(gNavFont, {}, "Cancel", gNavColorTxt, 0, false, false);
        DrawString(gNavFontIcon, {}, "64%", gNavColorIcon, 0, false, false);
        for (const char* hint : {"a hint of some length", "another of that kind", "the last"}) {
            DrawString(gStatFont, {}, hint, gStatColorTxt, 0, false, false);
        }
    });
    EXPECT_GT(needed, 0);
    EXPECT_EQ(blocksOf(drawBars), needed);
    const SdlSpy spy;
    drawBars();
    EXPECT_THAT(spy.decodedImages, IsEmpty());
    EXPECT_THAT(spy.renderedTexts, IsEmpty());
}

TEST_F(FrameCostTest, AMillionRowsAreLookedAtNoMoreOftenThanAHundred) {
    const Canvas canvas(1280, 720);
    for (const int rows : {100, 1'000'000}) {
        Endless list(rows);
        list.draw();
        list.looks = list.counts = 0;
        list.moveForward();
        EXPECT_EQ(list.looks, 0) << rows;
        EXPECT_EQ(list.counts, 1) << rows;
        list.draw();
        EXPECT_EQ(list.looks, 6) << rows;
        EXPECT_EQ(list.counts, 2) << rows;
        list.mCurIndex = rows - 1;
        list.draw();
        EXPECT_EQ(list.looks, 12) << rows;
        EXPECT_EQ(list.mLastIndex, rows - 1);
        EXPECT_EQ(list.mFirstIndex, rows - 6);
    }
}

TEST_F(FrameCostTest, AMoveInAListOfManyItemsAsksForNoMemory) {
    TextMenu menu(nullptr, nullptr, 6, 10);
    for (int i = 0; i < 20'000; ++i) menu.insertItem(nullptr);
    EXPECT_EQ(blocksOf([&menu] {
                  menu.moveForward();
                  menu.moveBackward();
                  menu.pageDown();
                  menu.pageUp();
              }),
              0);
}

}  // namespace
