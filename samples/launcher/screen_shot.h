/// @file  screen_shot.h: pictures of the screen, for who cannot see it.
/// Threads: UI thread.
#pragma once
#include <string>

namespace launcher {

/// Writes what the window shows to the PNG file @p path, turned as the panel is. @return false when it cannot be read
/// or written; SDL_GetError() tells why.
bool saveScreen(const std::string& path);

/// Answers a request from outside: who makes the file /tmp/launcher_shot on the console finds the screen in
/// /tmp/launcher_shot.png once the file is gone again, and no picture when it could not be written. Called in each
/// frame, before it is drawn; without a request that is one look at the file system.
void answerShotRequest();

}  // namespace launcher
