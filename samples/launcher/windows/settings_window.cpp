#include "windows/settings_window.h"

#include <algorithm>
#include <string>
#include <vector>

#include "host.h"
#include "icons.h"
#include "ostrel/language.h"
#include "ostrel/skin.h"
#include "ostrel/system_settings.h"
#include "ostrel/text.h"
#include "popups.h"
#include "settings_rows.h"
#include "settings_values.h"
#include "text_layout.h"
#include "theme.h"
#include "window_state.h"

namespace launcher {
namespace {

// Six rows of 96, as SettingMenu draws them, end where the hint row's buttons begin.
constexpr SDL_Rect kSettingsPlace{0, 76, 1280, 576};
constexpr int kTailGap = 25;  // right of the tail icon
constexpr int kValueGap = 16;
constexpr int kWidestValue = 500;

// The confirm key on a row of values: as Right.
class NextValue : public Action {
public:
    explicit NextValue(const Setting& setting) : mSetting(setting) {}
    int dowork(void* /*item*/) override {
        stepSetting(mSetting, 1);
        return 0;
    }

private:
    const Setting mSetting;
};

void relabel(const std::string& languageFile) {
    chooseLanguage(languageFile);
    for (LauncherWindow* window : LauncherWindow::all()) window->languageChanged();
}

// The order of the files' folder is that of its storage, and another on the next card.
std::vector<LangInfo> languagesByName() {
    std::vector<LangInfo> languages = getLangList();
    std::sort(languages.begin(), languages.end(),
              [](const LangInfo& a, const LangInfo& b) { return a.langName < b.langName; });
    return languages;
}

class ChooseLanguage : public Action {
public:
    int dowork(void* /*item*/) override {
        std::vector<Choice> choices;
        int current = 0;
        for (const LangInfo& language : languagesByName()) {
            const std::string file = language.fileName;
            if (file == getSystemLanguage()) current = static_cast<int>(choices.size());
            choices.push_back({language.langName, [file] { relabel(file); }});
        }
        showChoices(choices, current);
        return 0;
    }
};

// A row that leads on. Its value stands left of the arrow, where the library's own rows have no room for one.
class LanguageRow : public SettingItem {
public:
    LanguageRow(OstrelSurface* selected, OstrelSurface* normal)
        : SettingItem(selected, normal, kTextLanguage, /*valueText=*/nullptr, new ChooseLanguage),
          mValue(cutToFit(gListFontTxt, languageName(), kWidestValue)) {
        tailIcon = icons().next.get();
    }
    int draw(SDL_Rect& rect, bool selected) override {
        SettingItem::draw(rect, selected);
        const int arrow = tailIcon == nullptr ? 0 : tailIcon->getWidth();
        const int right = rect.x + rect.w - kTailGap - arrow - kValueGap;
        DrawString(gListFontTxt, {right - kWidestValue, rect.y, kWidestValue, rect.h}, mValue.c_str(), gListColorTxt,
                   kAlignRight, /*shadow=*/false, /*measureOnly=*/false);
        return 0;
    }

private:
    std::string mValue;
};

ItemDrawable* makeRow(const Setting& setting) {
    const Icons& images = icons();
    OstrelSurface* selected = images.settingFocused.get();
    OstrelSurface* normal = images.settingNormal.get();
    switch (setting.kind) {
        case SettingKind::Language:
            return new LanguageRow(selected, normal);
        case SettingKind::Switch:
            return new SettingSwitchItem(selected, normal, images.switchOn.get(), images.switchOff.get(), setting.title,
                                         new SettingSwitch(setting));
        default:
            return new SettingValueItem(selected, normal, images.arrowLeftFocused.get(), images.arrowLeft.get(),
                                        images.arrowRightFocused.get(), images.arrowRight.get(), images.valueBox.get(),
                                        setting.title, new NextValue(setting), new SettingValue(setting));
    }
}

}  // namespace

SettingsWindow::SettingsWindow() : LauncherWindow(kSettingsWindow, kTextSettings) { fill(); }

// Rows hold images and texts, so they are made anew when those have changed. The player stays where they were.
void SettingsWindow::fill() {
    auto menu = std::make_unique<SettingMenu>();
    SDL_Rect place = kSettingsPlace;
    menu->setRect(place);
    for (const Setting& setting : settings()) menu->insertSettingItem(makeRow(setting));
    if (mMenu != nullptr) menu->restorePos(mMenu->mCurIndex, mMenu->mFirstIndex, mMenu->mLastIndex);
    mMenu = std::move(menu);
}

void SettingsWindow::quit() { savePendingSettings(); }
void SettingsWindow::saveState(cJSON* obj) { savePosition(obj, *mMenu); }
void SettingsWindow::restore(const cJSON* state) { restorePosition(state, *mMenu); }
void SettingsWindow::themeChanged() { fill(); }
void SettingsWindow::languageChanged() { fill(); }

void SettingsWindow::onFrame() {
    LauncherWindow::onFrame();
    if (themeRequested()) switchTheme(takeThemeRequest());
    applyKeyTone();
    saveSettledSettings();
}

// Once another theme was asked for, the next key waits until onFrame has brought it.
int SettingsWindow::handleInput() {
    const int result = mMenu->eventHandling();
    if (themeRequested()) return WIN_REDRAW;
    return result == WIN_BACK ? WIN_BACK : 0;
}

void SettingsWindow::draw() {
    LauncherWindow::draw();
    mMenu->draw();
    drawHints({{confirmButton(), kTextHintChange}, {backButton(), kTextBack}});
}

}  // namespace launcher
