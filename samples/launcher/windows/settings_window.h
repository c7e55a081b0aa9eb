/// @file  settings_window.h: the page of settings.
#pragma once
#include <memory>

#include "ostrel/setting_menu.h"
#include "windows/launcher_window.h"

namespace launcher {

class SettingsWindow : public LauncherWindow {
public:
    SettingsWindow();

    /// Saves what has not settled yet.
    void quit() override;
    void saveState(cJSON* obj) override;
    /// Carries out what a row has asked for and must not do itself (another theme), and saves what has settled.
    void onFrame() override;
    void draw() override;
    void themeChanged() override;
    void languageChanged() override;
    /// Puts back what saveState kept.
    void restore(const cJSON* state);

protected:
    int handleInput() override;

private:
    void fill();

    std::unique_ptr<SettingMenu> mMenu;
};

}  // namespace launcher
