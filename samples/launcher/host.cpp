#include "host.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <cstdio>

#include "game_row.h"
#include "gamepad.h"
#include "ostrel/host.h"
#include "ostrel/input.h"
#include "ostrel/system_state.h"
#include "ostrel/wifi.h"
#include "ostrel/window.h"
#include "play.h"
#include "session.h"
#include "status_block.h"

namespace {

ShmInfo sOwnStatus{};  // until shareStatus finds the block that all programs share, or for good when it does not
Mix_Chunk* sKeyClick = nullptr;

bool isKey(int key) { return key >= 0 && key < static_cast<int>(sOwnStatus.values.size()); }

// SDL shows every event here before it is queued; 0 drops it. The library ends SDL at once when it meets SDL_QUIT, and
// the windows could not say goodbye: it is dropped, and the window on top asked to leave.
int filterEvent(void* /*unused*/, SDL_Event* event) {
    if (event->type == SDL_QUIT) {
        launcher::requestQuit();
        return 0;
    }
    return launcher::filterPadEvent(*event) ? 1 : 0;
}

}  // namespace

ShmInfo* gShmInfo = &sOwnStatus;
const char* gThemePath = nullptr;

int GetKeyShm(ShmInfo* shm, int key) { return isKey(key) ? shm->values[static_cast<std::size_t>(key)].load() : 0; }

void SetKeyShm(ShmInfo* shm, int key, int value) {
    if (isKey(key)) shm->values[static_cast<std::size_t>(key)] = value;
}

bool file_filter(const char* name, const char* /*path*/) { return launcher::isListed(name); }

TextMenuItem* file_handler(const char* name, const char* path, int type) {
    Action* action = type == DIR_ENTRY_FOLDER ? launcher::folderAction() : launcher::gameAction();
    return launcher::makeGameRow(name, path, type, action);
}

void initJoyStick() { launcher::openFirstPad(); }

namespace launcher {

void shareStatus(const std::string& file) {
    if (ShmInfo* shared = mapStatusBlock(file)) gShmInfo = shared;
}

void startHost(const std::string& soundFile) {
    SDL_SetEventFilter(filterEvent, nullptr);
    if (Mix_OpenAudio(44100, MIX_DEFAULT_FORMAT, 2, 512) == 0) sKeyClick = Mix_LoadWAV(soundFile.c_str());
    if (sKeyClick == nullptr) std::fprintf(stderr, "No key click: %s\n", SDL_GetError());
    applyKeyTone();
}

void startDevices() {
    SDL_InitSubSystem(SDL_INIT_JOYSTICK | SDL_INIT_GAMECONTROLLER);
    initJoyStick();
    rx_wifi_monitor_start();
}

void stopHost() {
    rx_wifi_monitor_stop();
    closePad();
    gKeyChunk = nullptr;
    if (sKeyClick != nullptr) Mix_FreeChunk(sKeyClick);
    sKeyClick = nullptr;
    Mix_CloseAudio();
}

void applyKeyTone() { gKeyChunk = gEnableKeyTone != 0 ? sKeyClick : nullptr; }

int backKey() { return GetKeyShm(gShmInfo, SHM_BCONFIRM) == 0 ? KEY_B : KEY_A; }

}  // namespace launcher
