#include "visit.h"

#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

namespace launcher {
namespace {

using Kind = VisitStep::Kind;

struct KeyRow {
    const char* name;
    SDL_Keycode key;
};
constexpr KeyRow kKeyNames[] = {
    {"a", SDLK_SPACE},      {"b", SDLK_LCTRL},      {"x", SDLK_LSHIFT},    {"y", SDLK_LALT},    {"l", SDLK_TAB},
    {"r", SDLK_BACKSPACE},  {"up", SDLK_UP},        {"down", SDLK_DOWN},   {"left", SDLK_LEFT}, {"right", SDLK_RIGHT},
    {"start", SDLK_RETURN}, {"select", SDLK_RCTRL}, {"menu", SDLK_ESCAPE},
};

bool isDirection(SDL_Keycode key) {
    return key == SDLK_UP || key == SDLK_DOWN || key == SDLK_LEFT || key == SDLK_RIGHT;
}

bool readKey(std::istream& words, VisitStep& step) {
    std::string name;
    words >> name;
    for (const KeyRow& row : kKeyNames) {
        if (name != row.name) continue;
        step.key = row.key;
        return true;
    }
    return false;
}

bool readFrames(std::istream& words, VisitStep& step) {
    return words >> step.frames && step.frames > 0 && step.frames <= 10000;
}

bool readHold(std::istream& words, VisitStep& step) {
    return readKey(words, step) && isDirection(step.key) && readFrames(words, step);
}

bool isFileName(const std::string& name) { return name.find('/') == std::string::npos && name.front() != '.'; }

bool readShot(std::istream& words, VisitStep& step) { return words >> step.name && isFileName(step.name); }

// A path stays below the console's root.
bool readPath(std::istream& words, VisitStep& step) {
    words >> step.name;
    const fs::path path = fs::path(step.name).lexically_normal().relative_path();
    step.name = path.string();
    return !path.empty() && *path.begin() != ".." && *path.begin() != ".";
}

bool isHexPair(const std::string& text, std::size_t place) {
    return place + 1 < text.size() && std::isxdigit(static_cast<unsigned char>(text[place])) != 0 &&
           std::isxdigit(static_cast<unsigned char>(text[place + 1])) != 0;
}

// What the escape at @p place, the character behind a backslash, stands for; moves @p place to its last character.
// @return false when there is no such escape.
bool readEscape(const std::string& text, std::size_t& place, char& byte) {
    switch (place < text.size() ? text[place] : ' ') {
        case 'n':
            byte = '\n';
            return true;
        case '0':
            byte = '\0';
            return true;
        case '\\':
            byte = '\\';
            return true;
        case 'x':
            if (!isHexPair(text, place + 1)) return false;
            byte = static_cast<char>(std::stoi(text.substr(place + 1, 2), nullptr, 16));
            place += 2;
            return true;
        default:
            return false;
    }
}

bool readText(std::istream& words, VisitStep& step) {
    std::string text;
    std::getline(words >> std::ws, text);
    text.erase(text.find_last_not_of(" \t") + 1);
    for (std::size_t i = 0; i < text.size(); ++i) {
        char byte = text[i];
        if (byte == '\\' && !readEscape(text, ++i, byte)) return false;
        step.text += byte;
    }
    words.clear();  // the end of the line is no failure; the text may be empty
    return true;
}

bool readDevice(std::istream& words, VisitStep& step) { return readPath(words, step) && readText(words, step); }

bool readNothing(std::istream& /*words*/, VisitStep& /*step*/) { return true; }

struct StepRow {
    const char* verb;
    Kind kind;
    bool (*read)(std::istream& words, VisitStep& step);
};
constexpr StepRow kSteps[] = {
    {"device", Kind::Device, readDevice},    {"remove", Kind::Remove, readPath}, {"key", Kind::Key, readKey},
    {"hold", Kind::Hold, readHold},          {"wait", Kind::Wait, readFrames},   {"shot", Kind::Shot, readShot},
    {"restart", Kind::Restart, readNothing},
};

// @return whether @p words are the rest of a step that begins with @p verb.
bool readStep(const std::string& verb, std::istream& words, VisitStep& step) {
    for (const StepRow& row : kSteps) {
        if (verb != row.verb) continue;
        step.kind = row.kind;
        std::string leftOver;
        return row.read(words, step) && !(words >> leftOver);
    }
    return false;
}

enum class Include { Allowed, Refused };

std::string readFile(const fs::path& path, Visit& visit, Include include);

// One file that includes no other: circles cannot be.
std::string readIncluded(const fs::path& beside, std::istream& words, Visit& visit) {
    std::string name;
    words >> name;
    return readFile(beside.parent_path() / (name + ".visit"), visit, Include::Refused);
}

void readOptionWords(std::istream& words, Visit& visit) {
    std::string word;
    while (words >> word) visit.options.push_back(word);
}

std::string fault(const fs::path& path, int line, const std::string& what) {
    return path.string() + ":" + std::to_string(line) + ": " + what;
}

std::string readFile(const fs::path& path, Visit& visit, Include include) {
    std::ifstream file(path);
    if (!file) return path.string() + ": cannot be read";
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        std::istringstream words(line.substr(0, line.find('#')));
        std::string verb;
        if (!(words >> verb)) continue;
        if (verb == "option") {
            if (!visit.steps.empty()) return fault(path, number, "options come before all steps: " + line);
            readOptionWords(words, visit);
            continue;
        }
        if (verb == "include" && include == Include::Allowed) {
            std::string included = readIncluded(path, words, visit);
            if (!included.empty()) return included;
            continue;
        }
        VisitStep step;
        if (!readStep(verb, words, step)) return fault(path, number, "no such step: " + line);
        visit.steps.push_back(step);
    }
    return "";
}

}  // namespace

std::string readVisit(const std::string& path, Visit& visit) { return readFile(path, visit, Include::Allowed); }

}  // namespace launcher
