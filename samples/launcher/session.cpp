#include "session.h"

#include <atomic>
#include <filesystem>

#include "ostrel/window.h"

namespace fs = std::filesystem;

namespace launcher {
namespace {

std::atomic<bool> sQuitRequested{false};
bool sPlayRequested = false;
PlayRequest sPlayRequest;
std::string sDeviceRoot;

}  // namespace

void requestQuit() { sQuitRequested = true; }

void requestPlay(const PlayRequest& request) {
    sPlayRequest = request;
    sPlayRequested = true;
}

bool leaveRequested() { return sQuitRequested || sPlayRequested; }

int leaveLoop() {
    saveWindowsState(*gWinList, dataFile("windows.json").c_str());
    return WIN_QUIT;
}

// The wish to quit wins: whoever closes the window while a game is about to start does not want to play.
bool takePlayRequest(PlayRequest& request) {
    const bool play = sPlayRequested && !sQuitRequested;
    sPlayRequested = false;
    sQuitRequested = false;
    if (play) request = sPlayRequest;
    return play;
}

std::string dataFile(const std::string& name) {
    const fs::path folder = deviceFile("/mnt/UDISK/launcher");
    std::error_code ignored;
    fs::create_directories(folder, ignored);
    return (folder / name).string();
}

std::string deviceFile(const std::string& path) { return sDeviceRoot + path; }

void setSessionRoot(const std::string& root) { sDeviceRoot = root; }

}  // namespace launcher
