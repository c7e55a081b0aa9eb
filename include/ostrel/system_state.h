/// @file  system_state.h: the settings file, and JSON members in the language of the user.
/// The settings file is /mnt/UDISK/system.json, one UTF-8 JSON object. loadSystemState spreads its members over the
/// status block, the globals below and the values of system_settings.h; saveSystemState writes them all back.
///     member            lives in                    accepted       otherwise  file unusable
///     vol               SHM_VOL                     0..20          14         14
///     keymap            SHM_KEYMAP                  0..1           0          0
///     mute              SHM_MUTE                    see below      0          0
///     bgmvol            SHM_BGMVOL                  see below      10         10
///     brightness        SHM_BRIGHTNESS              0..10          6          6
///     language          setSystemLanguage           any text       unchanged  unchanged
///     theme             the parameter themeOut      existing path  null       unchanged
///     hostap            SHM_HOSTAP                  switch         unchanged  0
///     netplay           SHM_NETPLAY                 switch         0          0
///     wifi              SHM_WIFI                    switch         unchanged  0
///     cpufreq           SHM_CPUFREQ                 0 and more     0          0
///     ledswitch         SHM_LEDSWITCH               switch         1          1
///     ledvalue          SHM_LEDVALUE                any            4          4
///     menustylel1       SHM_MENUSTYLEL1             any            1          1
///     menustylel2       SHM_MENUSTYLEL2             any            0          0
///     storeurl          gStoreUrl                   any text       null       null
///     bluetooth         SHM_BLUETOOTH               switch         unchanged  0
///     usenetworktime    setSyncTimeFromNetworkFlag  switch         unchanged  1
///     24hourclock       set24HourClockFlag          switch         unchanged  1
///     timezone          getTimeZone                 256 bytes      unchanged  empty
///     rumblelevel       SHM_RUMBLELEVEL             0..5           4          4
///     dimtime           SHM_DIMTIME                 any (seconds)  300        300
///     colorbrightness   setColorBrightness          clamped        unchanged  5
///     colorcontrast     setContrast                 clamped        unchanged  5
///     colortemperature  setColorTemperature         clamped        unchanged  10
///     colorsaturation   setSaturation               clamped        unchanged  5
///     enablehome        gEnableHomeWindow           any            1          1
///     focusontab        gAllowFocusOnTab            any            1          1
///     bconfirm          SHM_BCONFIRM                switch         0          0
///     osdshortcut       SHM_OSDSHORTCUT             any            0          0
///     favoritetab       gEnableFavoriteTab          any            1          1
///     recentplayedtab   gEnableRecentPlayedTab      any            1          1
///     beststab          gEnableBestsTab             any            1          1
///     retrogametab      gEnableRetroGameTab         any            1          1
///     portstab          gEnablePortsTab             any            1          1
///     appstab           gEnableAppsTab              any            1          1
///     netplaytab        gEnableNetPlayTab           any            1          1
///     fanlevel          SHM_FANLEVEL                any            -1         -1
///     usejoystick       gUseJoystick                0..3           1          1
///     enablekeytone     gEnableKeyTone              switch         unchanged  1
///     enablessh         gEnableSSH                  switch         unchanged  0
/// A switch takes every non-zero number as 1. "Otherwise" stands for a member that is missing or of another type, and
/// for a number out of range. A "mute" of any number stands for 1 when "vol" is not 0, else for 0. A "bgmvol" is taken
/// as it is when "vol" is 0..20. For both, a "vol" that is missing or no number counts as 0.
/// Any member of a JSON file that the library reads (settings, features, languages) may be given once more for one
/// language, under its name, a dot and the language file: with "en.lang" selected, "storeurl.en.lang" wins over
/// "storeurl". A "language" selects for the members that are loaded after it: all but the first five.
/// Threads: UI thread only.  Errors: no log lines but those of loadContent and of saveOneItemInSystemState.
#pragma once
#include <cjson/cJSON.h>

#include "ostrel/export.h"
#include "ostrel/host.h"

// Choices of the player that the programs around the library act on; the library itself only keeps them. Non-zero means
// on. All are 1 at load but for gEnableSSH.

extern OSTREL_API int gEnableKeyTone;          ///< the click of a key
extern OSTREL_API int gUseJoystick;            ///< joystick mode 0..3
extern OSTREL_API int gEnableNetPlayTab;       ///< the tab for games over the network
extern OSTREL_API int gEnableAppsTab;          ///< the tab for programs
extern OSTREL_API int gEnablePortsTab;         ///< the tab for ported games
extern OSTREL_API int gEnableRetroGameTab;     ///< the tab for retro games
extern OSTREL_API int gEnableBestsTab;         ///< the tab for the best games
extern OSTREL_API int gEnableRecentPlayedTab;  ///< the tab for games played of late
extern OSTREL_API int gAllowFocusOnTab;        ///< the row of tabs can be entered
extern OSTREL_API int gEnableFavoriteTab;      ///< the tab for favourites
extern OSTREL_API int gEnableHomeWindow;       ///< the launcher begins with its home window
extern OSTREL_API int gEnableSSH;              ///< remote login; 0 at load

/// The address of the game store, null when unset. Whoever replaces it frees the old text and gives one made by malloc:
/// the library frees it on the next load.
extern OSTREL_API char* gStoreUrl;

/// Reads the settings file once at start-up and applies every member as the table says. A file that is missing, of a
/// size that loadContent refuses or no JSON is unusable.
/// @param shm the status block, passed on to SetKeyShm.
/// @param themeOut null, or where to put the theme directory: a new text that the caller frees, or null when the member
///        is no text or names nothing that exists. Untouched when the file is unusable.
OSTREL_API void loadSystemState(ShmInfo* shm, char** themeOut);

/// Reads "theme" alone from the settings file. @param themeOut as for loadSystemState.
OSTREL_API void loadThemeInfo(char** themeOut);

/// Replaces the settings file by all members in the order of the table, and waits until the storage has it (sync), so
/// that the power may be cut. Members that the table does not know are lost. "storeurl" and "timezone" are written only
/// when set, "mute" as 0 or 1. Nothing is logged. When the file cannot be opened nothing happens; opening empties it,
/// and it stays empty when memory is short for one of the first six members or for the whole text. A later member that
/// finds no memory is skipped.
/// @param shm the status block, read through GetKeyShm.
/// @param themePath the value of "theme"; null leaves it out.
OSTREL_API void saveSystemState(ShmInfo* shm, const char* themePath);

/// Sets one number of the settings file, which is made when it is missing. Members of that name, in letters of either
/// case, are replaced by one at the end; all others, those of a language too, keep their values and their order. There
/// is no sync. A file that cannot be opened for reading counts as missing.
/// @return 0 once the file is open for writing; the new content is logged then, even if a full storage takes only a
/// part
///         of it. Else -1, and the file stays as it is: after "parse json ... fail while save ..." when the file cannot
///         be read (after the line of loadContent, if its size is refused), holds no JSON object or memory is short for
///         either; after "open ... fail" when it cannot be opened for writing; in silence when @p key is null or memory
///         is short for the new content.
OSTREL_API int saveOneItemInSystemState(const char* key, int value);

/// @return @p key, a dot and getSystemLanguage(), cut to 63 bytes. The text stands in one static buffer that the next
///         call overwrites; @p key may be that buffer. A null key counts as empty.
OSTREL_API char* getLocalKey(const char* key);

extern "C" {
/// Looks up the member @p string of @p object for the language of the user: the member getLocalKey(string) if there is
/// one, whatever its type, else the member of that very name. ASCII letters of either case are alike, and the first of
/// several members counts. The static buffer of getLocalKey is not touched, so its text may be passed.
/// A program that links the library before libcjson gets this look-up in place of libcjson's, in its own calls and in
/// those of libcjson (cJSON_HasObjectItem, cJSON_DetachItemFromObject and cJSON_DeleteItemFromObject).
/// @return the member, which @p object keeps; null when there is none or an argument is null.
// NOLINTNEXTLINE(readability-redundant-declaration): cJSON.h declares it without the mark that exports it.
OSTREL_API cJSON* cJSON_GetObjectItem(const cJSON* object, const char* string);
}
