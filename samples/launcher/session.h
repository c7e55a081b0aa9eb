/// @file  session.h: why the windows end, and what happens then.
/// A window never ends the program by itself. It asks here; the window on top sees that at its next turn, saves the
/// stack and ends the loop, and launcher.cpp does what was asked for.
/// Threads: UI thread, except requestQuit (any, and from an event filter).
#pragma once
#include <string>
#include <vector>

namespace launcher {

/// A game to be run by another program.
struct PlayRequest {
    std::string title;                 ///< for the message when it cannot be started
    std::string path;                  ///< the game's file
    std::vector<std::string> command;  ///< the program and its arguments
};

/// Asks the launcher to end, without a further question.
void requestQuit();
/// Asks the launcher to make room, run @p request and come back to where it was.
void requestPlay(const PlayRequest& request);

/// Whether one of the two was asked for. Windows and popups look before they read a key, because some windows of the
/// library keep the keys they do not know.
bool leaveRequested();
/// Saves the windows of the stack. @return WIN_QUIT, for a window to return.
int leaveLoop();

/// Hands the game over that waits to be run, once. @return whether there is one.
bool takePlayRequest(PlayRequest& request);

/// The folder that the launcher keeps its own files in: "launcher/" beside the settings file, made when it is missing.
/// @return the whole path of @p name there.
std::string dataFile(const std::string& name);
/// Where the device's own file @p path ("/proc/meminfo") lies in the folder that stands for the console.
std::string deviceFile(const std::string& path);
/// Tells where the device's files lie, before anything asks. @param root as for setDeviceRoot.
void setSessionRoot(const std::string& root);

}  // namespace launcher
