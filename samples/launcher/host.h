/// @file  host.h: what every program around the library supplies, and what this launcher adds to it.
/// The library's own names (gShmInfo, gThemePath, file_filter ...) are declared in "ostrel/host.h"; host.cpp defines
/// them. A program that hides its symbols by default must leave exactly these visible.
#pragma once
#include <string>

namespace launcher {

/// Sets gThemePath. @param directory ends in "/"; the text is copied.
void setTheme(const std::string& directory);

/// Starts to watch for the wish to quit, then opens the sound device and loads the key click, unless the settings have
/// it off. Without sound the keys are silent, and a line on standard error says why. @param soundFile a WAV file.
void startHost(const std::string& soundFile);
/// Starts the game-pads too; a played visit goes without, so that a plugged-in pad cannot disturb it.
void startPads();
/// Lets go of what the two opened.
void stopHost();

/// Whether the window was closed or the process was asked to end. Every window asks before it reads a key, because some
/// windows of the library keep the keys they do not know, and the quit key with them.
bool quitRequested();

/// The key that leaves a window: B, or A where the settings say that B confirms.
int backKey();

}  // namespace launcher
