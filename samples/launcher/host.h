/// @file  host.h: what every program around the library supplies, and what this launcher adds to it.
/// The library's own names (gShmInfo, gThemePath, file_filter ...) are declared in "ostrel/host.h"; host.cpp defines
/// them. A program that hides its symbols by default must leave exactly these visible.
#pragma once
#include <string>

namespace launcher {

/// Moves the status block into @p file, where other programs reach it, before the settings are loaded into it. Where
/// that cannot be, it stays the launcher's own.
void shareStatus(const std::string& file);

/// Starts to watch for the wish to quit, and opens the sound device and the key click. Without sound the keys are
/// silent, and a line on standard error says why. @param soundFile a WAV file.
void startHost(const std::string& soundFile);
/// Starts game-pads and the Wi-Fi monitor; a played visit goes without, so that nothing outside can disturb it.
void startDevices();
/// Lets go of what the two opened.
void stopHost();

/// Hands the library the key click, or takes it away when the settings have it off.
void applyKeyTone();

/// The key that leaves a window: B, or A where the settings say that B confirms.
int backKey();

}  // namespace launcher
