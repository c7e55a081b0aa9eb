/// @file  settings_rows.h: what a player can set, one entry for each setting, and the handlers that the library's rows
/// drive. A value takes effect at once: in the status block, in the library, or in the device's own files.
/// Threads: UI thread.
#pragma once
#include <string>
#include <vector>

#include "ostrel/setting_menu.h"
#include "texts.h"

namespace launcher {

enum class SettingKind {
    Level,    ///< stops at its ends
    Choice,   ///< goes round its ends
    Switch,   ///< 0 and 1
    Language  ///< chosen from a list; the value is not used
};

/// A setting as a number: a level, a place in a list, or a switch. What a damaged file or another program has left
/// there may lie outside the range; the first step brings it back.
struct Setting {
    Text title;
    SettingKind kind;
    int first;
    int last;
    int (*get)();
    void (*set)(int value);
    std::string (*text)(int value);  ///< null for a switch
};

/// All that this console offers, in the order of the page; Bluetooth only where the features file has it.
std::vector<Setting> settings();

/// Sets a value, in whose range it lies, and marks the settings as changed.
void changeSetting(const Setting& setting, int value);
/// The next value (1), or the one before (-1).
void stepSetting(const Setting& setting, int direction);

/// Another theme cannot be loaded while a row is at work, because the rows with their images are made anew then. So the
/// theme's row leaves a request, which the window carries out between two frames.
bool themeRequested();
/// The theme that was asked for, once; "" when none was.
std::string takeThemeRequest();

/// The name of the selected language as its own file gives it; the file's name when there is no such language.
std::string languageName();
/// Selects a language file and marks the settings as changed.
void chooseLanguage(const std::string& fileName);

/// Steps a Level or a Choice with left and right. Nothing is saved here: the window does when the value has settled.
class SettingValue : public ValueHandler {
public:
    explicit SettingValue(const Setting& setting) : mSetting(setting) {}
    void changeValue(int key) override;
    void release() override {}
    const char* getValueText() override;

private:
    const Setting mSetting;
    std::string mText;
};

/// Turns a Switch.
class SettingSwitch : public SwitchHandler {
public:
    explicit SettingSwitch(const Setting& setting) : mSetting(setting) {}
    bool getValue() override { return mSetting.get() != 0; }
    void setValue(bool on) override { changeSetting(mSetting, on ? 1 : 0); }
    void release() override {}

private:
    const Setting mSetting;
};

}  // namespace launcher
