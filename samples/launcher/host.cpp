#include "host.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <array>
#include <atomic>
#include <cstdio>

#include "file_row.h"
#include "gamepad.h"
#include "ostrel/host.h"
#include "ostrel/input.h"
#include "ostrel/system_state.h"
#include "ostrel/window.h"

// On a console the status block lies in memory that several programs share. One program alone needs no more than this.
struct ShmInfo {
    std::array<int, 21> values{};
};

namespace {

ShmInfo sStatus;
std::string sThemePath;
std::atomic<bool> sQuitRequested{false};

bool isKey(int key) { return key >= 0 && key < static_cast<int>(sStatus.values.size()); }

// The library ends SDL at once when it meets SDL_QUIT, and its windows could not say goodbye. So the event is dropped
// before it enters the queue, and the windows are asked to leave by a key of their own: WIN_QUIT, which the library's
// lists and popups pass on to the loop. Our own windows ask quitRequested.
void askWindowsToQuit() {
    sQuitRequested = true;
    SDL_Event key{};
    key.type = SDL_USEREVENT;
    key.user.code = WIN_QUIT;
    SDL_PushEvent(&key);
}

// SDL shows every event here before it is queued; 0 drops it.
int filterEvent(void* /*unused*/, SDL_Event* event) {
    if (event->type == SDL_QUIT) {
        askWindowsToQuit();
        return 0;
    }
    return launcher::filterPadEvent(*event) ? 1 : 0;
}

}  // namespace

ShmInfo* gShmInfo = &sStatus;
const char* gThemePath = nullptr;

int GetKeyShm(ShmInfo* shm, int key) { return isKey(key) ? shm->values[static_cast<std::size_t>(key)] : 0; }

void SetKeyShm(ShmInfo* shm, int key, int value) {
    if (isKey(key)) shm->values[static_cast<std::size_t>(key)] = value;
}

bool file_filter(const char* name, const char* /*path*/) { return name[0] != '.'; }

TextMenuItem* file_handler(const char* name, const char* path, int type) {
    return launcher::makeFileRow(name, path, type == launcher::kDirectoryEntry);
}

void initJoyStick() { launcher::openFirstPad(); }

namespace launcher {

void setTheme(const std::string& directory) {
    sThemePath = directory;
    gThemePath = sThemePath.c_str();
}

void startHost(const std::string& soundFile) {
    SDL_SetEventFilter(filterEvent, nullptr);
    if (gEnableKeyTone == 0) return;  // the player has switched the clicks off
    if (Mix_OpenAudio(44100, MIX_DEFAULT_FORMAT, 2, 512) == 0) gKeyChunk = Mix_LoadWAV(soundFile.c_str());
    if (gKeyChunk == nullptr) std::fprintf(stderr, "No key click: %s\n", SDL_GetError());
}

void startPads() {
    SDL_InitSubSystem(SDL_INIT_JOYSTICK | SDL_INIT_GAMECONTROLLER);
    initJoyStick();
}

void stopHost() {
    closePad();
    if (gKeyChunk != nullptr) Mix_FreeChunk(gKeyChunk);
    gKeyChunk = nullptr;
    Mix_CloseAudio();
}

bool quitRequested() { return sQuitRequested; }

int backKey() { return GetKeyShm(gShmInfo, SHM_BCONFIRM) == 0 ? KEY_B : KEY_A; }

}  // namespace launcher
