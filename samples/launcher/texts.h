/// @file  texts.h: the launcher's own interface texts, numbered behind those of the library.
#pragma once
#include <string>

namespace launcher {

/// Numbers for getLangStr. The first eight belong to the library, which names 0, 1 and 4, 5 for buttons and hint row.
enum Text {
    kTextNone = -1,
    kTextCancel = 0,
    kTextOk = 1,
    kTextOpen = 4,
    kTextBack = 5,
    kTextMenu = 7,

    kTextHome,
    kTextGames,
    kTextSearch,
    kTextRecent,
    kTextSettings,
    kTextAbout,
    kTextQuit,

    // The hint row.
    kTextHintSelect,
    kTextHintQuit,
    kTextHintPlay,
    kTextHintMore,
    kTextHintSearch,
    kTextHintNumbers,
    kTextHintIcons,
    kTextHintChange,
    kTextHintType,
    kTextHintErase,
    kTextHintResults,
    kTextHintLetters,
    kTextHintClear,

    // Lists.
    kTextFile,
    kTextGameCount,
    kTextFound,
    kTextEmptyFolder,
    kTextUnreadableFolder,
    kTextNothingFound,
    kTextTypeToSearch,
    kTextNothingPlayed,
    kTextNoPreview,

    // What can be done with a game.
    kTextPlay,
    kTextDetails,
    kTextForget,
    kTextTimesPlayed,
    kTextCannotPlay,

    // Questions.
    kTextQuitTitle,
    kTextQuitQuestion,
    kTextClearTitle,
    kTextClearQuestion,

    // Settings.
    kTextVolume,
    kTextBrightness,
    kTextColourBrightness,
    kTextContrast,
    kTextColourTemperature,
    kTextSaturation,
    kTextLanguage,
    kTextTimeZone,
    kText24HourClock,
    kTextWifi,
    kTextBluetooth,
    kTextBConfirms,
    kTextKeyTone,
    kTextJoystick,
    kTextShortcut,
    kTextTheme,
    kTextThemeDark,
    kTextThemeLight,
    kTextJoystickOff,
    kTextJoystickLeft,
    kTextJoystickRight,
    kTextJoystickBoth,
    kTextShortcutOff,

    // The console.
    kTextBattery,
    kTextCharger,
    kTextMemory,
    kTextNetwork,
    kTextAddress,
    kTextSignal,
    kTextVersion,
    kTextPluggedIn,
    kTextUnplugged,
    kTextCharging,
    kTextOff,
    kTextConnected,
    kTextNotConnected,
    kTextHotspot,
    kTextMemoryFree,
    kTextUnknown,

    kTextEnd,
};

/// Adds the English texts to the library's list. Call it once, before initLang.
void addTexts();

/// "%d" in the text of @p index replaced by @p number. Language files are written by anybody, so their texts are never
/// used as a printf format.
std::string textWithNumber(Text index, int number);
/// "%s" in the text of @p index replaced by @p word.
std::string textWithWord(Text index, const std::string& word);

}  // namespace launcher
