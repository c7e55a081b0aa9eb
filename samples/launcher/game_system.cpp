#include "game_system.h"

#include "json_file.h"
#include "ostrel/system_settings.h"

namespace launcher {
namespace {

constexpr std::size_t kMostSystemBytes = std::size_t{64} * 1024;
constexpr char kFileMark[] = "{file}";

std::string sGamesRoot;

std::string withoutLastSlash(std::string path) {
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

// The member in the language of the user, else the one for all languages.
std::string localText(const cJSON* object, const std::string& name) {
    const std::string local = textIn(object, name + "." + getSystemLanguage());
    return local.empty() ? textIn(object, name) : local;
}

std::vector<std::string> commandIn(const cJSON* object) {
    std::vector<std::string> command;
    const cJSON* arguments = memberIn(object, "command");
    if (cJSON_IsArray(arguments) == 0) return command;
    const cJSON* argument = nullptr;
    cJSON_ArrayForEach(argument, arguments) {
        if (cJSON_IsString(argument) == 0) return {};
        command.emplace_back(argument->valuestring);
    }
    return command;
}

bool isBelow(const std::string& folder, const std::string& root) {
    const std::string start = root == "/" ? root : root + "/";
    return !root.empty() && folder.size() > start.size() && folder.compare(0, start.size(), start) == 0;
}

JsonTree describe(const std::string& folder) { return readJsonFile(folder + "/" + kSystemFile, kMostSystemBytes); }

GameSystem systemFrom(const JsonTree& tree, const std::string& folder) {
    GameSystem system{localText(tree.get(), "name"), textIn(tree.get(), "icon"), commandIn(tree.get())};
    if (system.name.empty()) system.name = nameIn(folder);
    return system;
}

}  // namespace

GameSystem readSystem(const std::string& folder) { return systemFrom(describe(folder), folder); }

void setGamesRoot(const std::string& folder) { sGamesRoot = withoutLastSlash(folder); }

GameSystem systemOf(const std::string& gamePath) {
    const std::string own = folderOf(gamePath);
    for (std::string folder = own; !folder.empty(); folder = folderOf(folder)) {
        if (const JsonTree tree = describe(folder)) return systemFrom(tree, folder);
        if (!isBelow(folder, sGamesRoot)) break;  // the root itself, or a game from elsewhere
    }
    return {nameIn(own), "", {}};
}

std::vector<std::string> commandFor(const GameSystem& system, const std::string& gamePath) {
    std::vector<std::string> command = system.command;
    for (std::string& argument : command) {
        // The path may hold the mark itself, so the search goes on behind what was put in.
        for (std::size_t at = argument.find(kFileMark); at != std::string::npos;
             at = argument.find(kFileMark, at + gamePath.size())) {
            argument.replace(at, sizeof(kFileMark) - 1, gamePath);
        }
    }
    return command;
}

std::string nameIn(const std::string& path) {
    const std::string plain = withoutLastSlash(path);
    const std::size_t slash = plain.rfind('/');
    return slash == std::string::npos || plain.size() == 1 ? plain : plain.substr(slash + 1);
}

std::string folderOf(const std::string& path) {
    const std::string plain = withoutLastSlash(path);
    const std::size_t slash = plain.rfind('/');
    if (slash == std::string::npos || plain.size() == 1) return "";
    return slash == 0 ? "/" : withoutLastSlash(plain.substr(0, slash));
}

}  // namespace launcher
