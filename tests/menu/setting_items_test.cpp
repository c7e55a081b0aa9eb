#include <cstring>

#include "menu/counted_action.h"
#include "ostrel/language.h"
#include "ostrel/setting_menu.h"
#include "ostrel/skin.h"
#include "support/abi.h"
#include "support/fake_host.h"
#include "support/log_capture.h"
#include "support/screen_test.h"

namespace {

using ostreltest::Canvas;
using ostreltest::Colour;
using ostreltest::CountedAction;
using ostreltest::host;
using ostreltest::kBlack;
using ostreltest::kBlue;
using ostreltest::kGreen;
using ostreltest::kRed;
using ostreltest::LogCapture;
using ostreltest::offsetIn;
using ostreltest::Picture;
using ostreltest::plainSurface;
using ostreltest::slotOf;

constexpr Colour kGrey{90, 90, 90, 255};

struct HandlerLog {
    std::vector<int> keys;
    int released = 0;
    int deleted = 0;
    std::string text = "7";
    bool nullText = false;
    bool on = false;
};

class TestValue : public ValueHandler {
public:
    explicit TestValue(HandlerLog& log) : mLog(log) {}
    ~TestValue() override { ++mLog.deleted; }
    void changeValue(int key) override { mLog.keys.push_back(key); }
    void release() override {
        EXPECT_EQ(mLog.deleted, 0);
        ++mLog.released;
    }
    const char* getValueText() override { return mLog.nullText ? nullptr : mLog.text.c_str(); }

private:
    HandlerLog& mLog;
};

class TestSwitch : public SwitchHandler {
public:
    explicit TestSwitch(HandlerLog& log) : mLog(log) {}
    ~TestSwitch() override { ++mLog.deleted; }
    bool getValue() override { return mLog.on; }
    void setValue(bool on) override { mLog.on = on; }
    void release() override {
        EXPECT_EQ(mLog.deleted, 0);
        ++mLog.released;
    }

private:
    HandlerLog& mLog;
};

class SettingItemsTest : public ostreltest::ScreenTest {
protected:
    SettingItemsTest() {
        device().linkFont();
        LogCapture quiet;
        init_shared_skin();
    }
    ~SettingItemsTest() override { uninit_shared_skin(); }

    static SDL_Rect bounds(const Picture& picture, Colour colour) {
        SDL_Rect box{picture.width(), picture.height(), 0, 0};
        int right = 0;
        int bottom = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.at(x, y) != colour) continue;
                box.x = std::min(box.x, x);
                box.y = std::min(box.y, y);
                right = std::max(right, x + 1);
                bottom = std::max(bottom, y + 1);
            }
        }
        box.w = right - box.x;
        box.h = bottom - box.y;
        return box;
    }
    static void expectRect(const SDL_Rect& actual, int x, int y, int w, int h) {
        EXPECT_EQ(actual.x, x);
        EXPECT_EQ(actual.y, y);
        EXPECT_EQ(actual.w, w);
        EXPECT_EQ(actual.h, h);
    }
    Picture draw(ItemDrawable& row, bool selected, SDL_Rect rect = {10, 4, 1260, 96}) {
        Canvas canvas(1280, 104, kBlack);
        row.draw(rect, selected);
        return canvas.picture();
    }

    std::unique_ptr<OstrelSurface> selBg = plainSurface(1200, 90, kRed);
    std::unique_ptr<OstrelSurface> normalBg = plainSurface(1200, 80, kBlue);
    HandlerLog log;
};

TEST_F(SettingItemsTest, TheSelectedRowTakesTheSelectedBackgroundInTheMiddleOfItsHeight) {
    SettingItem row(selBg.get(), normalBg.get(), "", nullptr, nullptr);
    expectRect(bounds(draw(row, true), kRed), 10, 4 + 3, 1200, 90);
}

TEST_F(SettingItemsTest, OtherRowsTakeTheNormalBackground) {
    SettingItem row(selBg.get(), normalBg.get(), "", nullptr, nullptr);
    expectRect(bounds(draw(row, false), kBlue), 10, 4 + 8, 1200, 80);
}

TEST_F(SettingItemsTest, ASelectedRowWithoutASelectedBackgroundTakesTheNormalOne) {
    SettingItem row(nullptr, normalBg.get(), "", nullptr, nullptr);
    EXPECT_GT(draw(row, true).count(kBlue), 0);
}

TEST_F(SettingItemsTest, ARowThatCannotBeSelectedTakesTheNormalBackground) {
    struct Fixed : SettingItem {
        using SettingItem::SettingItem;
        int isSelectable() override { return 0; }
    };
    Fixed row(selBg.get(), normalBg.get(), "", nullptr, nullptr);
    EXPECT_GT(draw(row, true).count(kBlue), 0);
}

TEST_F(SettingItemsTest, TheFirstInterfaceTextIsATitleToo) {
    SettingItem byId(nullptr, nullptr, 0, nullptr, nullptr);
    SettingItem byText(nullptr, nullptr, "Cancel", nullptr, nullptr);
    EXPECT_EQ(byId.titleId, 0);
    EXPECT_TRUE(ostreltest::picturesMatch(draw(byId, false), draw(byText, false)));
    EXPECT_GT(draw(byId, false).boundsOfAllBut(kBlack).w, 0);
}

TEST_F(SettingItemsTest, ARowWithoutImagesDrawsItsTitleAlone) {
    SettingItem row(nullptr, nullptr, "Title", nullptr, nullptr);
    const SDL_Rect text = draw(row, true).boundsOfAllBut(kBlack);
    EXPECT_GE(text.x, 50);
    EXPECT_LT(text.x, 58);
    EXPECT_NEAR(text.y + text.h / 2, 4 + 48, 4);
}

TEST_F(SettingItemsTest, EveryRowIsSelectableAndTakesNoKeyOfItsOwn) {
    SettingItem item(nullptr, nullptr, "x", nullptr, nullptr);
    SettingValueItem value(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0, nullptr, nullptr);
    SettingSwitchItem toggle(nullptr, nullptr, nullptr, nullptr, 0, nullptr);
    for (ItemDrawable* row : std::initializer_list<ItemDrawable*>{&item, &value, &toggle}) {
        EXPECT_EQ(row->isSelectable(), 1);
    }
    EXPECT_EQ(item.handleEvent(1), -1);
}

TEST_F(SettingItemsTest, ConstructorsFillTheFields) {
    SettingItem byId(selBg.get(), normalBg.get(), 4, nullptr, nullptr);
    EXPECT_EQ(byId.titleId, 4);
    EXPECT_EQ(byId.title, "");
    EXPECT_EQ(byId.valueText, "");
    EXPECT_EQ(byId.tailIcon, nullptr);
    SettingItem byText(selBg.get(), normalBg.get(), "Language", "English", nullptr);
    EXPECT_EQ(byText.titleId, -1);
    EXPECT_EQ(byText.title, "Language");
    EXPECT_EQ(byText.valueText, "English");
    SettingItem nullTitle(nullptr, nullptr, static_cast<const char*>(nullptr), nullptr, nullptr);
    EXPECT_EQ(nullTitle.title, "");
}

TEST_F(SettingItemsTest, TheTitleIsTheInterfaceTextOfItsNumber) {
    SettingItem byId(nullptr, nullptr, 4, nullptr, nullptr);
    SettingItem byText(nullptr, nullptr, "OPEN", nullptr, nullptr);
    EXPECT_TRUE(picturesMatch(draw(byId, false), draw(byText, false)));
}

TEST_F(SettingItemsTest, TheTailIconStandsTwentyFivePixelsFromTheRightEnd) {
    const auto icon = plainSurface(30, 40, kGreen);
    SettingItem row(nullptr, nullptr, "", nullptr, nullptr);
    row.tailIcon = icon.get();
    expectRect(bounds(draw(row, false), kGreen), 10 + 1260 - 30 - 25, 4 + 28, 30, 40);
}

TEST_F(SettingItemsTest, TheValueTextEndsTwentyFivePixelsFromTheRightEnd) {
    SettingItem row(nullptr, nullptr, "", "English", nullptr);
    const SDL_Rect text = draw(row, false).boundsOfAllBut(kBlack);
    EXPECT_LE(text.x + text.w, 10 + 1260 - 85 + 60);
    EXPECT_GT(text.x + text.w, 10 + 1260 - 85 + 60 - 6);
}

TEST_F(SettingItemsTest, DestroyingARowIsLoggedAndDeletesItsAction) {
    int deleted = 0;
    auto* row = new SettingItem(nullptr, nullptr, "x", nullptr, new CountedAction(deleted));
    LogCapture captured;
    delete row;
    EXPECT_EQ(captured.text(), "~SettingItem\n");
    EXPECT_EQ(deleted, 1);
}

class SettingValueItemTest : public SettingItemsTest {
protected:
    std::unique_ptr<OstrelSurface> selLeft = plainSurface(20, 30, kRed);
    std::unique_ptr<OstrelSurface> left = plainSurface(20, 20, kGreen);
    std::unique_ptr<OstrelSurface> selRight = plainSurface(24, 30, kBlue);
    std::unique_ptr<OstrelSurface> right = plainSurface(24, 20, kBlue);
    std::unique_ptr<OstrelSurface> box = plainSurface(500, 60, kGrey);
    std::unique_ptr<SettingValueItem> row(ValueHandler* handler, OstrelSurface* valueBox) {
        return std::make_unique<SettingValueItem>(nullptr, nullptr, selLeft.get(), left.get(), selRight.get(),
                                                  right.get(), valueBox, -1, nullptr, handler);
    }
};

TEST_F(SettingValueItemTest, TheSelectedRowDrawsBoxAndSelectedEnds) {
    log.text = "";
    const Picture picture = draw(*row(new TestValue(log), box.get()), true);
    expectRect(bounds(picture, kRed), 10 + 745, 4 + 33, 20, 30);
    expectRect(bounds(picture, kBlue), 10 + 1173, 4 + 33, 24, 30);
    EXPECT_EQ(picture.at(10 + 745 + 20, 4 + 18), kGrey);
    EXPECT_EQ(picture.at(10 + 745 + 499, 4 + 77), kGrey);
    EXPECT_EQ(picture.at(10 + 745 + 20, 4 + 17), kBlack);
}

TEST_F(SettingValueItemTest, OtherRowsDrawTheUnselectedEndsWithoutABox) {
    log.text = "";
    const Picture picture = draw(*row(new TestValue(log), box.get()), false);
    expectRect(bounds(picture, kGreen), 10 + 745, 4 + 38, 20, 20);
    expectRect(bounds(picture, kBlue), 10 + 1173, 4 + 38, 24, 20);
    EXPECT_EQ(picture.count(kGrey), 0);
}

TEST_F(SettingValueItemTest, WithoutAHandlerOnlyBackgroundAndTitleAreDrawn) {
    const Picture picture = draw(*row(nullptr, box.get()), true);
    EXPECT_EQ(picture.boundsOfAllBut(kBlack).w, 0);
}

TEST_F(SettingValueItemTest, WithABoxTheValueStandsInItsMiddle) {
    SettingValueItem plain(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, box.get(), -1, nullptr,
                           new TestValue(log));
    log.text = "88";
    const SDL_Rect text = draw(plain, false).boundsOfAllBut(kBlack);
    EXPECT_NEAR(text.x + text.w / 2, 10 + 745 + 250, 3);
    EXPECT_NEAR(text.y + text.h / 2, 4 + 48, 6);
}

TEST_F(SettingValueItemTest, WithoutABoxTheValueEndsFortyPixelsFromTheRightEnd) {
    SettingValueItem plain(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, -1, nullptr,
                           new TestValue(log));
    log.text = "88";
    const SDL_Rect text = draw(plain, false).boundsOfAllBut(kBlack);
    EXPECT_LE(text.x + text.w, 10 + 1260 - 40);
    EXPECT_GT(text.x + text.w, 10 + 1260 - 40 - 6);
}

TEST_F(SettingValueItemTest, AValueTextIsCutToSixtyThreeBytes) {
    log.text = std::string(200, 'v');
    const auto value = row(new TestValue(log), nullptr);
    draw(*value, false);
    EXPECT_EQ(std::string(value->valueBuf), std::string(63, 'v'));
}

TEST_F(SettingValueItemTest, ANullValueTextIsEmpty) {
    log.nullText = true;
    const auto value = row(new TestValue(log), nullptr);
    draw(*value, false);
    EXPECT_STREQ(value->valueBuf, "");
}

TEST_F(SettingValueItemTest, MissingImagesAreNotDrawn) {
    SettingValueItem bare(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, -1, nullptr,
                          new TestValue(log));
    log.text = "";
    EXPECT_EQ(draw(bare, true).boundsOfAllBut(kBlack).w, 0);
    EXPECT_EQ(draw(bare, false).boundsOfAllBut(kBlack).w, 0);
}

TEST_F(SettingValueItemTest, LeftAndRightChangeTheValueAndAreLogged) {
    auto* handler = new TestValue(log);
    const auto value = row(handler, nullptr);
    LogCapture captured;
    EXPECT_EQ(value->handleEvent(7), 0);
    EXPECT_EQ(value->handleEvent(8), 0);
    char expected[160];
    std::snprintf(expected, sizeof expected, "mValueChanger %p changeValue 7\nmValueChanger %p changeValue 8\n",
                  static_cast<void*>(handler), static_cast<void*>(handler));
    EXPECT_EQ(captured.text(), expected);
    EXPECT_EQ(log.keys, (std::vector<int>{7, 8}));
}

TEST_F(SettingValueItemTest, OtherKeysAreNotTaken) {
    const auto value = row(new TestValue(log), nullptr);
    for (const int key : {0, 1, 2, 4, 5, 6, 9, 11}) EXPECT_EQ(value->handleEvent(key), -1) << key;
    EXPECT_TRUE(log.keys.empty());
}

TEST_F(SettingValueItemTest, WithoutAHandlerNoKeyIsTaken) { EXPECT_EQ(row(nullptr, nullptr)->handleEvent(7), -1); }

TEST_F(SettingValueItemTest, TheHandlerIsReleasedOnceAndThenDeleted) {
    int actionsDeleted = 0;
    {
        SettingValueItem value(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 0,
                               new CountedAction(actionsDeleted), new TestValue(log));
    }
    EXPECT_EQ(log.released, 1);
    EXPECT_EQ(log.deleted, 1);
    EXPECT_EQ(actionsDeleted, 1);
}

class SettingSwitchItemTest : public SettingItemsTest {
protected:
    std::unique_ptr<OstrelSurface> on = plainSurface(80, 40, kGreen);
    std::unique_ptr<OstrelSurface> off = plainSurface(80, 44, kBlue);
    std::unique_ptr<SettingSwitchItem> row(SwitchHandler* handler) {
        return std::make_unique<SettingSwitchItem>(nullptr, nullptr, on.get(), off.get(), -1, handler);
    }
    std::vector<int> togglingKeys(SettingSwitchItem& item) {
        std::vector<int> keys;
        for (int key = 0; key <= 15; ++key) {
            const bool before = log.on;
            EXPECT_EQ(item.handleEvent(key), 0) << key;
            if (log.on != before) keys.push_back(key);
        }
        return keys;
    }
};

TEST_F(SettingSwitchItemTest, DrawsTheImageOfItsState) {
    const auto item = row(new TestSwitch(log));
    log.on = true;
    expectRect(bounds(draw(*item, false), kGreen), 10 + 1150, 4 + 28, 80, 40);
    log.on = false;
    expectRect(bounds(draw(*item, true), kBlue), 10 + 1150, 4 + 26, 80, 44);
}

TEST_F(SettingSwitchItemTest, WithoutAHandlerOrEitherImageNothingIsDrawn) {
    EXPECT_EQ(draw(*row(nullptr), false).boundsOfAllBut(kBlack).w, 0);
    HandlerLog otherLog;
    SettingSwitchItem noOff(nullptr, nullptr, on.get(), nullptr, -1, new TestSwitch(log));
    log.on = true;
    EXPECT_EQ(draw(noOff, false).boundsOfAllBut(kBlack).w, 0);
    SettingSwitchItem noOn(nullptr, nullptr, nullptr, off.get(), -1, new TestSwitch(otherLog));
    EXPECT_EQ(draw(noOn, false).boundsOfAllBut(kBlack).w, 0);
}

TEST_F(SettingSwitchItemTest, HasNoAction) { EXPECT_EQ(row(nullptr)->action, nullptr); }

TEST_F(SettingSwitchItemTest, WithAConfirmingAYLeftAndRightToggle) {
    EXPECT_EQ(togglingKeys(*row(new TestSwitch(log))), (std::vector<int>{1, 4, 7, 8}));
}

TEST_F(SettingSwitchItemTest, WithBConfirmingBYLeftAndRightToggle) {
    const auto item = row(new TestSwitch(log));
    for (const int setting : {1, 2, -1}) {
        host().shm.values[19] = setting;
        EXPECT_EQ(togglingKeys(*item), (std::vector<int>{2, 4, 7, 8})) << setting;
    }
}

TEST_F(SettingSwitchItemTest, TakesEveryKeyEvenWithoutAHandler) {
    const auto item = row(nullptr);
    for (int key = 0; key <= 15; ++key) EXPECT_EQ(item->handleEvent(key), 0);
    item->switchValue();
}

TEST_F(SettingSwitchItemTest, TheHandlerIsReleasedOnceAndThenDeleted) {
    row(new TestSwitch(log)).reset();
    EXPECT_EQ(log.released, 1);
    EXPECT_EQ(log.deleted, 1);
}

TEST_F(SettingItemsTest, SlotsOfTheHandlersAreTheBinaryInterface) {
    EXPECT_EQ(slotOf(&ValueHandler::changeValue), 3);
    EXPECT_EQ(slotOf(&ValueHandler::release), 4);
    EXPECT_EQ(slotOf(&ValueHandler::getValueText), 5);
    EXPECT_EQ(slotOf(&SwitchHandler::getValue), 3);
    EXPECT_EQ(slotOf(&SwitchHandler::setValue), 4);
    EXPECT_EQ(slotOf(&SwitchHandler::release), 5);
}

TEST_F(SettingItemsTest, TheFieldsOfAPlainRowHaveTheirPlaces) {
    const SettingItem row(nullptr, nullptr, 1, nullptr, nullptr);
    EXPECT_EQ(offsetIn(row, row.action), 8);
    EXPECT_EQ(offsetIn(row, row.selBg), 16);
    EXPECT_EQ(offsetIn(row, row.normalBg), 24);
    EXPECT_EQ(offsetIn(row, row.tailIcon), 32);
    EXPECT_EQ(offsetIn(row, row.titleId), 40);
    EXPECT_EQ(offsetIn(row, row.title), 48);
    EXPECT_EQ(offsetIn(row, row.valueText), 80);
}

TEST_F(SettingValueItemTest, TheFieldsHaveTheirPlaces) {
    const auto value = row(nullptr, nullptr);
    EXPECT_EQ(offsetIn(*value, value->selBg), 16);
    EXPECT_EQ(offsetIn(*value, value->normalBg), 24);
    EXPECT_EQ(offsetIn(*value, value->selLeftImg), 32);
    EXPECT_EQ(offsetIn(*value, value->leftImg), 40);
    EXPECT_EQ(offsetIn(*value, value->selRightImg), 48);
    EXPECT_EQ(offsetIn(*value, value->rightImg), 56);
    EXPECT_EQ(offsetIn(*value, value->valueBoxImg), 64);
    EXPECT_EQ(offsetIn(*value, value->titleId), 72);
    EXPECT_EQ(offsetIn(*value, value->mValueChanger), 80);
    EXPECT_EQ(offsetIn(*value, value->valueBuf), 88);
    EXPECT_EQ(sizeof value->valueBuf, 64U);
}

TEST_F(SettingSwitchItemTest, TheFieldsHaveTheirPlaces) {
    const auto item = row(nullptr);
    EXPECT_EQ(offsetIn(*item, item->selBg), 16);
    EXPECT_EQ(offsetIn(*item, item->normalBg), 24);
    EXPECT_EQ(offsetIn(*item, item->onImg), 32);
    EXPECT_EQ(offsetIn(*item, item->offImg), 40);
    EXPECT_EQ(offsetIn(*item, item->titleId), 48);
    EXPECT_EQ(offsetIn(*item, item->handler), 56);
}

}  // namespace
