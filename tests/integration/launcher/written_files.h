// The files of a console that the launcher writes.
#pragma once

namespace launchertest {

inline constexpr char kSettingsFile[] = "/mnt/UDISK/system.json";
inline constexpr char kWindowsFile[] = "/mnt/UDISK/launcher/windows.json";
inline constexpr char kRecentFile[] = "/mnt/UDISK/launcher/recent.json";

}  // namespace launchertest
