#include "visit.h"

#include <fstream>
#include <sstream>

namespace launcher {
namespace {

struct KeyRow {
    const char* name;
    SDL_Keycode key;
};
constexpr KeyRow kKeys[] = {
    {"a", SDLK_SPACE},      {"b", SDLK_LCTRL},      {"x", SDLK_LSHIFT},    {"y", SDLK_LALT},    {"l", SDLK_TAB},
    {"r", SDLK_BACKSPACE},  {"up", SDLK_UP},        {"down", SDLK_DOWN},   {"left", SDLK_LEFT}, {"right", SDLK_RIGHT},
    {"start", SDLK_RETURN}, {"select", SDLK_RCTRL}, {"menu", SDLK_ESCAPE},
};

bool isDirection(SDL_Keycode key) {
    return key == SDLK_UP || key == SDLK_DOWN || key == SDLK_LEFT || key == SDLK_RIGHT;
}

bool readKey(std::istream& words, SDL_Keycode& key) {
    std::string name;
    words >> name;
    for (const KeyRow& row : kKeys) {
        if (name != row.name) continue;
        key = row.key;
        return true;
    }
    return false;
}

bool readFrames(std::istream& words, int& frames) { return words >> frames && frames > 0 && frames <= 10000; }

bool readName(std::istream& words, std::string& name) {
    return words >> name && name.find('/') == std::string::npos && name.front() != '.';
}

bool readStep(const std::string& verb, std::istream& words, VisitStep& step) {
    if (verb == "key") {
        step.kind = VisitStep::Kind::Key;
        return readKey(words, step.key);
    }
    if (verb == "hold") {
        step.kind = VisitStep::Kind::Hold;
        return readKey(words, step.key) && isDirection(step.key) && readFrames(words, step.frames);
    }
    if (verb == "wait") {
        step.kind = VisitStep::Kind::Wait;
        return readFrames(words, step.frames);
    }
    step.kind = VisitStep::Kind::Shot;
    return verb == "shot" && readName(words, step.name);
}

}  // namespace

std::string readVisit(const std::string& path, std::vector<VisitStep>& steps) {
    std::ifstream file(path);
    if (!file) return path + ": cannot be read";
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        std::istringstream words(line.substr(0, line.find('#')));
        std::string verb;
        if (!(words >> verb)) continue;
        VisitStep step;
        std::string leftOver;
        if (!readStep(verb, words, step) || words >> leftOver) {
            std::ostringstream fault;
            fault << path << ":" << number << ": no such step: " << line;
            return fault.str();
        }
        steps.push_back(step);
    }
    return "";
}

}  // namespace launcher
