// A visit that a test writes itself, played on a console that the test prepares.
#pragma once
#include <cjson/cJSON.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "support/program.h"
#include "support/test_device.h"
#include "written_files.h"

namespace ostreltest {

class PlayedVisitTest : public DeviceTest {
protected:
    // Plays text to its end; its pictures lie in shots().
    void play(const std::string& text, std::vector<std::string> more = {}) {
        device().write("a.visit", text);
        more.insert(more.end(), {"--visit", device().path("a.visit"), "--run", device().path("run"), "--device",
                                 device().root(), "--shots", shots(), "--log"});
        Program player(OSTREL_VISIT, more);
        const int exitCode = player.wait();
        mOutput = player.output();
        ASSERT_EQ(exitCode, 0) << mOutput.substr(mOutput.size() - std::min<std::size_t>(mOutput.size(), 4000));
    }
    const std::string& output() const { return mOutput; }
    std::string shots() { return device().path("shots"); }
    bool isShot(const std::string& name) { return device().exists("shots/" + name + ".png"); }

    // Games of these names, in a folder that the console has and a visit can remove.
    std::string gamesDir() { return device().path("/roms"); }
    void addGame(const std::string& name) { device().write("/roms/" + name, "A game.\n"); }

    // The windows that the launcher starts with, home below them, by their numbers.
    void startIn(int window) {
        device().write(launchertest::kWindowsFile,
                       R"({"list": [{"type": 1}, {"type": )" + std::to_string(window) + "}]}");
    }

    // A number of the settings file, -1 when the file is broken or has none.
    int setting(const char* name) {
        const std::unique_ptr<cJSON, decltype(&cJSON_Delete)> root(
            cJSON_Parse(device().read(launchertest::kSettingsFile).c_str()), &cJSON_Delete);
        const cJSON* item = cJSON_GetObjectItemCaseSensitive(root.get(), name);
        return cJSON_IsNumber(item) != 0 ? item->valueint : -1;
    }

    static constexpr int kGames = 2;
    static constexpr int kSearch = 4;
    static constexpr int kRecent = 5;
    static constexpr int kSettings = 6;
    static constexpr int kAbout = 7;

private:
    std::string mOutput;
};

}  // namespace ostreltest
