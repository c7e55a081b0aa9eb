// A page of settings in the dark theme against reference pictures.
#include <memory>

#include "ostrel/image.h"
#include "ostrel/language.h"
#include "ostrel/log.h"
#include "ostrel/setting_menu.h"
#include "ostrel/skin.h"
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

class FixedValue : public ValueHandler {
public:
    explicit FixedValue(const char* text) : mText(text) {}
    void changeValue(int) override {}
    void release() override {}
    const char* getValueText() override { return mText; }

private:
    const char* mText;
};

class FixedSwitch : public SwitchHandler {
public:
    explicit FixedSwitch(bool on) : mOn(on) {}
    bool getValue() override { return mOn; }
    void setValue(bool) override {}
    void release() override {}

private:
    bool mOn;
};

class SettingPicturesTest : public ScreenTest {
protected:
    SettingPicturesTest() : mStrings(gDefaultStringList) {
        initLogger(0);
        device().linkFont();
        ostreltest::host().setTheme(OSTREL_SOURCE_DIR "/theme/dark/");
        const LogCapture quiet;
        init_shared_skin();
        for (std::size_t i = 0; i < kImageCount; ++i) mImages[i].reset(LoadOstrelSurface(gThemePath, "./", kFiles[i]));
        menu = std::make_unique<SettingMenu>();
        addValue("Volume", "14");
        addValue("Brightness", "6");
        addSwitch("Key tone", true);
        addSwitch("Bluetooth", false);
        addPage("Language", "EN");
        addPage("About", nullptr);
        addPage("Below the page", nullptr);
    }
    ~SettingPicturesTest() override {
        const LogCapture quiet;
        menu.reset();
        uninit_shared_skin();
        gDefaultStringList = mStrings;
    }

    Picture pageWithCursorOn(int row) {
        menu->mCurIndex = row;
        const Canvas canvas(1280, 720);
        gBackground->render(nullptr, nullptr, false, nullptr);
        menu->draw();
        return canvas.picture();
    }

    std::unique_ptr<SettingMenu> menu;

private:
    enum Image { SelBg, NormalBg, SelLeft, Left, SelRight, Right, Box, On, Off, Next, kImageCount };
    static constexpr const char* kFiles[kImageCount] = {
        "skin/bg-set-f.png",    "skin/bg-set-n.png",    "skin/set-left-f.png",    "skin/set-left-n.png",
        "skin/set-right-f.png", "skin/set-right-n.png", "skin/set-value-box.png", "skin/switch-on.png",
        "skin/switch-off.png",  "skin/ic-next.png"};

    OstrelSurface* image(Image which) const { return mImages[which].get(); }
    static int titled(const char* title) {
        gDefaultStringList.emplace_back(title);
        return static_cast<int>(gDefaultStringList.size()) - 1;
    }
    void addValue(const char* title, const char* value) {
        menu->insertSettingItem(new SettingValueItem(image(SelBg), image(NormalBg), image(SelLeft), image(Left),
                                                     image(SelRight), image(Right), image(Box), titled(title), nullptr,
                                                     new FixedValue(value)));
    }
    void addSwitch(const char* title, bool on) {
        menu->insertSettingItem(new SettingSwitchItem(image(SelBg), image(NormalBg), image(On), image(Off),
                                                      titled(title), new FixedSwitch(on)));
    }
    void addPage(const char* title, const char* value) {
        auto* row = new SettingItem(image(SelBg), image(NormalBg), title, value, nullptr);
        if (value == nullptr) row->tailIcon = image(Next);
        menu->insertSettingItem(row);
    }

    std::vector<std::string> mStrings;
    std::unique_ptr<OstrelSurface> mImages[kImageCount];
};

TEST_F(SettingPicturesTest, TheCursorOnAValue) {
    EXPECT_TRUE(matchesReference(pageWithCursorOn(1), "menu/setting_value", kBlendingTolerance));
}

TEST_F(SettingPicturesTest, TheCursorOnASwitch) {
    EXPECT_TRUE(matchesReference(pageWithCursorOn(2), "menu/setting_switch", kBlendingTolerance));
}

}  // namespace
