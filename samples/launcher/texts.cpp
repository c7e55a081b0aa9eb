#include "texts.h"

#include <array>

#include "ostrel/language.h"

namespace launcher {
namespace {

struct TextRow {
    Text number;
    const char* english;
};
// One row for each number, in their order, because the library counts them from the end of its own.
constexpr TextRow kTexts[] = {
    {kTextHome, "Home"},
    {kTextGames, "Games"},
    {kTextSearch, "Search"},
    {kTextRecent, "Recently played"},
    {kTextSettings, "Settings"},
    {kTextAbout, "About"},
    {kTextQuit, "Quit"},

    {kTextHintSelect, "OPEN"},
    {kTextHintQuit, "QUIT"},
    {kTextHintPlay, "PLAY"},
    {kTextHintMore, "MORE"},
    {kTextHintSearch, "SEARCH"},
    {kTextHintNumbers, "NUMBERS"},
    {kTextHintIcons, "ICONS"},
    {kTextHintChange, "CHANGE"},
    {kTextHintType, "TYPE"},
    {kTextHintErase, "ERASE"},
    {kTextHintResults, "GAMES"},
    {kTextHintLetters, "LETTERS"},
    {kTextHintClear, "CLEAR"},

    {kTextFile, "File"},
    {kTextGameCount, "Games: %d"},
    {kTextFound, "Found: %d"},
    {kTextEmptyFolder, "This folder is empty"},
    {kTextUnreadableFolder, "This folder cannot be read"},
    {kTextNothingFound, "No game is called that"},
    {kTextTypeToSearch, "Title or initials"},
    {kTextNothingPlayed, "Nothing played yet"},
    {kTextNoPreview, "There is no text to show"},

    {kTextPlay, "Play"},
    {kTextDetails, "Details"},
    {kTextForget, "Remove from list"},
    {kTextTimesPlayed, "Times played: %d"},
    {kTextCannotPlay, "Cannot be started"},

    {kTextQuitTitle, "Quit"},
    {kTextQuitQuestion, "Leave the launcher?"},
    {kTextClearTitle, "Clear the list"},
    {kTextClearQuestion, "Forget what was played?\nThe games themselves stay."},

    {kTextVolume, "Volume"},
    {kTextBrightness, "Brightness"},
    {kTextColourBrightness, "Colour brightness"},
    {kTextContrast, "Contrast"},
    {kTextColourTemperature, "Colour temperature"},
    {kTextSaturation, "Saturation"},
    {kTextLanguage, "Language"},
    {kTextTimeZone, "Time zone"},
    {kText24HourClock, "24-hour clock"},
    {kTextWifi, "Wi-Fi"},
    {kTextBluetooth, "Bluetooth"},
    {kTextBConfirms, "B confirms"},
    {kTextKeyTone, "Key tone"},
    {kTextJoystick, "Joystick"},
    {kTextShortcut, "Overlay shortcut"},
    {kTextTheme, "Theme"},
    {kTextThemeDark, "Dark"},
    {kTextThemeLight, "Light"},
    {kTextJoystickOff, "Off"},
    {kTextJoystickLeft, "Left"},
    {kTextJoystickRight, "Right"},
    {kTextJoystickBoth, "Both"},
    {kTextShortcutOff, "Off"},

    {kTextBattery, "Battery"},
    {kTextCharger, "Charger"},
    {kTextMemory, "Memory"},
    {kTextNetwork, "Network"},
    {kTextAddress, "Address"},
    {kTextSignal, "Signal"},
    {kTextVersion, "Version"},
    {kTextPluggedIn, "Plugged in"},
    {kTextUnplugged, "Not plugged in"},
    {kTextCharging, "Charging"},
    {kTextOff, "Off"},
    {kTextConnected, "Connected"},
    {kTextNotConnected, "Not connected"},
    {kTextHotspot, "Hotspot"},
    {kTextMemoryFree, "%s free"},
    {kTextUnknown, "Unknown"},
};

constexpr bool inOrder() {
    int number = kTextHome;
    for (const TextRow& row : kTexts) {
        if (row.number != number++) return false;
    }
    return number == kTextEnd;
}
static_assert(inOrder(), "one text for each number");

std::string replaceOnce(std::string text, const char* mark, const std::string& word) {
    const std::size_t place = text.find(mark);
    if (place != std::string::npos) text.replace(place, 2, word);
    return text;
}

}  // namespace

void addTexts() {
    for (const TextRow& row : kTexts) gDefaultStringList.emplace_back(row.english);
}

std::string textWithNumber(Text index, int number) {
    return replaceOnce(getLangStr(index), "%d", std::to_string(number));
}

std::string textWithWord(Text index, const std::string& word) { return replaceOnce(getLangStr(index), "%s", word); }

}  // namespace launcher
