/// @file  settings_values.h: how the settings are read, applied and kept. What they are, settings_rows.h tells.
/// Threads: UI thread.
#pragma once
#include <string>

namespace launcher {

/// Reads features, settings and theme choice at start-up. A theme that has gone is replaced by the first of themes().
/// @param themeDir wins over the theme of the settings file when it is not empty; it ends in "/".
void loadSettings(const std::string& themeDir);
/// Writes the settings file at once.
void saveSettings();
/// Marks the settings as changed; saveSettledSettings writes them when nothing has changed for a second, so that a held
/// key does not write a file for every step.
void settingsChanged();
void saveSettledSettings();
/// Writes what has not settled yet, for a window that leaves.
void savePendingSettings();
/// Makes the process's own clock follow the time zone of the settings; without one, or with one that this machine does
/// not know, it is UTC.
void applyTimeZone();
/// The time of day as the settings want it: "21:07" or "9:07 PM". It is that of systemms(), which a played visit
/// drives.
std::string clockText();

}  // namespace launcher
