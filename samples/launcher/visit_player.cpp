// Plays a visit: the launcher without a display, its keys from a file, and a clock that only the player moves. The same
// visit gives the same pictures, to the byte, at every run.
//
// The library's main loop reads systemms() and sleeps with usleep() once a frame. A program's own definitions of the
// two come before the library's, so each sleep of the loop lands here: it moves the clock, and is the moment, between
// two frames, at which the next step is played.
#include <unistd.h>

#include <SDL.h>
#include <SDL_image.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "launcher.h"
#include "options.h"
#include "ostrel/log.h"
#include "ostrel/screen.h"
#include "visit.h"

namespace {

using launcher::VisitStep;

constexpr int kFramesOfKey = 2;  // one reads the key, the next shows what came of it

struct Player {
    std::vector<VisitStep> steps;
    std::string shotFolder;
    std::size_t next = 0;
    int framesToWait = kFramesOfKey;
    int arrowsToSend = 0;
    SDL_Keycode heldKey = SDLK_UNKNOWN;
    bool failed = false;
    bool finished = false;
};
Player sPlayer;
std::atomic<uint64_t> sNowUs{1'000'000'000};  // the key-repeat thread reads it too
const std::thread::id kUiThread = std::this_thread::get_id();

void pushKey(Uint32 type, SDL_Keycode key, bool repeat) {
    SDL_Event event{};
    event.type = type;
    event.key.state = type == SDL_KEYDOWN ? SDL_PRESSED : SDL_RELEASED;
    event.key.repeat = repeat ? 1 : 0;
    event.key.keysym.sym = key;
    SDL_PushEvent(&event);
}

void pressAndRelease(SDL_Keycode key) {
    pushKey(SDL_KEYDOWN, key, /*repeat=*/false);
    pushKey(SDL_KEYUP, key, /*repeat=*/false);
}

bool saveWindow(const std::string& path) {
    int width = 0;
    int height = 0;
    SDL_GetRendererOutputSize(gRenderer, &width, &height);
    SDL_Surface* picture = SDL_CreateRGBSurfaceWithFormat(0, width, height, 24, SDL_PIXELFORMAT_RGB24);
    const bool saved =
        picture != nullptr &&
        SDL_RenderReadPixels(gRenderer, nullptr, SDL_PIXELFORMAT_RGB24, picture->pixels, picture->pitch) == 0 &&
        IMG_SavePNG(picture, path.c_str()) == 0;
    SDL_FreeSurface(picture);
    return saved;
}

void takeShot(const std::string& name) {
    const std::string path = sPlayer.shotFolder + "/" + name + ".png";
    const bool saved = saveWindow(path);
    sPlayer.failed = sPlayer.failed || !saved;
    std::printf("%s%s\n", saved ? "" : "cannot write ", path.c_str());
}

void play(const VisitStep& step) {
    switch (step.kind) {
        case VisitStep::Kind::Key:
            pressAndRelease(step.key);
            sPlayer.framesToWait = kFramesOfKey;
            break;
        case VisitStep::Kind::Hold:
            sPlayer.heldKey = step.key;
            sPlayer.arrowsToSend = step.frames;
            break;
        case VisitStep::Kind::Wait:
            sPlayer.framesToWait = step.frames;
            break;
        case VisitStep::Kind::Shot:
            takeShot(step.name);
            break;
    }
}

// A held direction is a row of arrows, as a keyboard repeats them: one in every frame.
void sendArrow() {
    pushKey(SDL_KEYDOWN, sPlayer.heldKey, /*repeat=*/true);
    if (--sPlayer.arrowsToSend > 0) return;
    pushKey(SDL_KEYUP, sPlayer.heldKey, /*repeat=*/false);
    sPlayer.framesToWait = kFramesOfKey;
}

// Between two frames: goes on to the step that needs frames of its own.
void playOn() {
    if (sPlayer.framesToWait > 0 && --sPlayer.framesToWait > 0) return;
    while (sPlayer.framesToWait == 0 && sPlayer.arrowsToSend == 0 && sPlayer.next < sPlayer.steps.size()) {
        play(sPlayer.steps[sPlayer.next++]);
    }
    if (sPlayer.arrowsToSend > 0) return sendArrow();
    if (sPlayer.framesToWait > 0 || sPlayer.finished) return;
    sPlayer.finished = true;
    SDL_Event quit{};
    quit.type = SDL_QUIT;
    SDL_PushEvent(&quit);
}

void goHeadless() {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_RENDER_DRIVER", "software", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
}

bool prepare(const launcher::Options& options) {
    sPlayer.shotFolder = options.shotFolder;
    const std::string fault = launcher::readVisit(options.visitFile, sPlayer.steps);
    if (!fault.empty()) {
        std::fprintf(stderr, "%s\n", fault.c_str());
        return false;
    }
    std::error_code error;
    std::filesystem::create_directories(sPlayer.shotFolder, error);
    if (error) std::fprintf(stderr, "%s: %s\n", sPlayer.shotFolder.c_str(), error.message().c_str());
    return !error;
}

}  // namespace

uint64_t systemms() { return sNowUs / 1000; }

extern "C" int usleep(useconds_t useconds) {
    if (std::this_thread::get_id() != kUiThread) {
        std::this_thread::sleep_for(std::chrono::microseconds(useconds));
        return 0;
    }
    sNowUs += useconds;
    playOn();
    return 0;
}

int main(int argc, char** argv) {
    launcher::Options options;
    if (const int exitCode = launcher::readOptions(argc, argv, options); exitCode >= 0) return exitCode;
    if (!prepare(options)) return 2;
    goHeadless();
    if (const int exitCode = launcher::runLauncher(options); exitCode != 0) return exitCode;
    if (!sPlayer.finished) std::fprintf(stderr, "The launcher ended before the visit did\n");
    return sPlayer.finished && !sPlayer.failed ? 0 : 1;
}
