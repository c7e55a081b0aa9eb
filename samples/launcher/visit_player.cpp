// Plays a visit: the launcher without a display, its keys from a file, and a clock that only the player moves. The same
// visit gives the same pictures, to the byte, at every run.
//
// The library's main loop reads systemms() and sleeps with usleep() once a frame. A program's own definitions of the
// two come before the library's, so each sleep of the loop lands here: it moves the clock, and is the moment, between
// two frames, at which the next step is played.
//
// A visit that restarts the launcher is played in parts, each in a process of its own: what the second one shows of the
// first, it has read from the console's files.
#include <getopt.h>
#include <sys/wait.h>
#include <unistd.h>

#include <SDL.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "art_loader.h"
#include "launcher.h"
#include "options.h"
#include "ostrel/device_root.h"
#include "ostrel/log.h"
#include "screen_shot.h"
#include "visit.h"
#include "visit_console.h"

namespace {

using launcher::Visit;
using launcher::VisitStep;

constexpr int kFramesToSettle = 4;  // from a key to a picture: read, shown, and two that bring six thumbnails
constexpr uint64_t kStartSeconds = 1'773'481'260;  // Saturday, 14 March 2026, 9:41 in the morning, UTC
constexpr uint64_t kSecondsBetweenParts = 600;

struct Player {
    std::vector<VisitStep> steps;
    std::string shotFolder;
    std::string console;
    std::size_t next = 0;
    int framesToWait = 1;
    int framesSinceInput = 0;
    int arrowsToSend = 0;
    SDL_Keycode heldKey = SDLK_UNKNOWN;
    bool failed = false;
    bool closing = false;

    bool finished() const { return next == steps.size() && arrowsToSend == 0; }
};
Player sPlayer;
std::atomic<uint64_t> sNowUs{0};  // the key-repeat thread reads it too
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

void takeShot(const std::string& name) {
    const std::string path = sPlayer.shotFolder + "/" + name + ".png";
    const bool saved = launcher::saveScreen(path);
    sPlayer.failed = sPlayer.failed || !saved;
    std::printf("%s%s\n", saved ? "" : "cannot write ", path.c_str());
}

void changeConsole(const VisitStep& step) {
    sPlayer.failed = !launcher::changeConsole(sPlayer.console, step) || sPlayer.failed;
}

// One frame reads it.
void beginInput() {
    sPlayer.framesToWait = 1;
    sPlayer.framesSinceInput = 0;
}

void play(const VisitStep& step) {
    switch (step.kind) {
        case VisitStep::Kind::Device:
        case VisitStep::Kind::Remove:
            changeConsole(step);
            launcher::refreshWifi();
            beginInput();
            break;
        case VisitStep::Kind::Key:
            pressAndRelease(step.key);
            beginInput();
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
        case VisitStep::Kind::Restart:  // parts two processes, and is played in neither
            break;
    }
}

// A held direction is a row of arrows, as a keyboard repeats them: one in every frame.
void sendArrow() {
    pushKey(SDL_KEYDOWN, sPlayer.heldKey, /*repeat=*/true);
    if (--sPlayer.arrowsToSend > 0) return;
    pushKey(SDL_KEYUP, sPlayer.heldKey, /*repeat=*/false);
    beginInput();
}

void closeWindow() {
    if (sPlayer.closing) return;
    sPlayer.closing = true;
    SDL_Event quit{};
    quit.type = SDL_QUIT;
    SDL_PushEvent(&quit);
}

// Between two frames: goes on to the step that needs frames of its own.
void playOn() {
    ++sPlayer.framesSinceInput;
    if (sPlayer.framesToWait > 0 && --sPlayer.framesToWait > 0) return;
    while (sPlayer.framesToWait == 0 && sPlayer.arrowsToSend == 0 && sPlayer.next < sPlayer.steps.size()) {
        const VisitStep& step = sPlayer.steps[sPlayer.next];
        if (step.kind == VisitStep::Kind::Shot && sPlayer.framesSinceInput < kFramesToSettle) return;
        ++sPlayer.next;
        play(step);
    }
    if (sPlayer.arrowsToSend > 0) return sendArrow();
    if (sPlayer.framesToWait == 0) closeWindow();
}

// Pictures come from a thread of their own, however fast it is: the next frame has all that this one has asked for.
void waitForPictures() {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!launcher::artLoader().idle()) {
        if (std::chrono::steady_clock::now() > deadline) {
            std::fprintf(stderr, "A picture does not get loaded\n");
            std::exit(1);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
}

// Nothing of the user's environment shows in a picture but the programs that there are.
void setEnvironment(const std::string& console) {
    const char* path = std::getenv("PATH");
    const std::string programs = path != nullptr ? path : "/usr/bin:/bin";
    clearenv();
    setenv("PATH", programs.c_str(), 1);
    setenv("TZ", "UTC", 1);
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_RENDER_DRIVER", "software", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    launcher::useConsolePrograms(console);
}

// Reads the command line, and the visit that it names. The visit's own options come first, so that what somebody types
// wins over them. @return as readOptions.
int readCommandLine(int argc, char** argv, launcher::Options& options, Visit& visit) {
    if (const int exitCode = launcher::readOptions(argc, argv, options); exitCode >= 0) return exitCode;
    const std::string fault = launcher::readVisit(options.visitFile, visit);
    if (!fault.empty()) {
        std::fprintf(stderr, "%s\n", fault.c_str());
        return 2;
    }
    std::vector<char*> words{argv[0]};
    for (std::string& word : visit.options) words.push_back(word.data());
    words.insert(words.end(), argv + 1, argv + argc + 1);
    options = launcher::Options{};
    optind = 0;  // getopt begins anew
    return launcher::readOptions(static_cast<int>(words.size()) - 1, words.data(), options);
}

// A console that somebody names is used as it is; else each visit has a new one.
bool prepare(launcher::Options& options) {
    if (!options.deviceGiven) {
        options.deviceRoot = options.runFolder + "/visit-device";
        options.deviceGiven = true;
        if (!launcher::makeFreshConsole(options.deviceRoot)) return false;
    }
    std::error_code error;
    std::filesystem::create_directories(options.shotFolder, error);
    if (error) std::fprintf(stderr, "%s: %s\n", options.shotFolder.c_str(), error.message().c_str());
    return !error;
}

std::vector<std::vector<VisitStep>> partsOf(const std::vector<VisitStep>& steps) {
    std::vector<std::vector<VisitStep>> parts(1);
    for (const VisitStep& step : steps) {
        if (step.kind == VisitStep::Kind::Restart) {
            parts.emplace_back();
        } else {
            parts.back().push_back(step);
        }
    }
    return parts;
}

void changeConsoleBeforeStart() {
    const auto isChange = [](const VisitStep& step) {
        return step.kind == VisitStep::Kind::Device || step.kind == VisitStep::Kind::Remove;
    };
    while (!sPlayer.finished() && isChange(sPlayer.steps[sPlayer.next])) changeConsole(sPlayer.steps[sPlayer.next++]);
    setDeviceRoot(sPlayer.console.c_str());
    launcher::refreshWifi();
}

// @return the exit code.
int playPart(const std::vector<VisitStep>& steps, const launcher::Options& options) {
    sPlayer.steps = steps;
    sPlayer.shotFolder = options.shotFolder;
    sPlayer.console = options.deviceRoot;
    changeConsoleBeforeStart();
    if (const int exitCode = launcher::runLauncher(options); exitCode != 0) return exitCode;
    if (!sPlayer.finished()) std::fprintf(stderr, "The launcher ended before the visit did\n");
    return sPlayer.finished() && !sPlayer.failed ? 0 : 1;
}

// @return the exit code, or 1 when a signal has ended it.
int waitFor(pid_t process) {
    int status = 0;
    waitpid(process, &status, 0);
    if (WIFEXITED(status)) return WEXITSTATUS(status);
    std::fprintf(stderr, "The launcher ended with signal %d\n", WTERMSIG(status));
    return 1;
}

int playPartInChild(const std::vector<VisitStep>& steps, const launcher::Options& options) {
    std::fflush(nullptr);  // else the child would write what is buffered once more
    const pid_t child = fork();
    if (child < 0) std::perror("fork");
    if (child == 0) std::exit(playPart(steps, options));
    return child > 0 ? waitFor(child) : 1;
}

int playParts(const std::vector<std::vector<VisitStep>>& parts, const launcher::Options& options) {
    sNowUs = kStartSeconds * 1'000'000;
    if (parts.size() == 1) return playPart(parts.front(), options);
    for (const std::vector<VisitStep>& steps : parts) {
        if (const int exitCode = playPartInChild(steps, options); exitCode != 0) return exitCode;
        sNowUs += kSecondsBetweenParts * 1'000'000;
    }
    return 0;
}

}  // namespace

uint64_t systemms() { return sNowUs / 1000; }

extern "C" int usleep(useconds_t useconds) {
    if (std::this_thread::get_id() != kUiThread) {
        std::this_thread::sleep_for(std::chrono::microseconds(useconds));
        return 0;
    }
    waitForPictures();
    sNowUs += useconds;
    playOn();
    return 0;
}

int main(int argc, char** argv) {
    launcher::Options options;
    Visit visit;
    if (const int exitCode = readCommandLine(argc, argv, options, visit); exitCode >= 0) return exitCode;
    if (!prepare(options)) return 2;
    setEnvironment(options.deviceRoot);
    return playParts(partsOf(visit.steps), options);
}
