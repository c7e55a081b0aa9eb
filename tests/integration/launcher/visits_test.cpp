// Played visits, compared with reference pictures of the window.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "support/picture.h"
#include "support/program.h"
#include "support/test_device.h"

namespace fs = std::filesystem;
using ostreltest::kBlendingTolerance;
using ostreltest::matchesReference;
using ostreltest::Picture;
using ostreltest::picturesMatch;
using ostreltest::Program;

namespace {

// A turned screen is drawn into a texture first, where blending takes another path than in the window.
constexpr int kTurnedTolerance = 4;

const char* const kVisits[] = {
    "any_folder", "b_confirms", "charging", "first_light",          "held_keys", "muted",      "offline",
    "restart",    "rotated",    "tour",     "themes_and_languages", "tour_ch",   "tour_light", "tour_light_ch",
    "windows",
};

fs::path visitFile(const std::string& visit) { return fs::path(OSTREL_SAMPLE_DIR "/visits") / (visit + ".visit"); }

std::set<std::string> picturesIn(const fs::path& folder) {
    std::set<std::string> names;
    std::error_code missing;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, missing)) {
        names.insert(entry.path().stem().string());
    }
    return names;
}

class VisitTest : public ostreltest::DeviceTest, public ::testing::WithParamInterface<const char*> {
protected:
    // Plays a visit of samples/launcher/visits in a run folder of its own; its pictures lie in shots(folder).
    void play(const std::string& visit, const std::string& folder, std::vector<std::string> more = {}) {
        more.insert(more.end(),
                    {"--visit", visitFile(visit), "--run", device().path("run-" + folder), "--shots", shots(folder)});
        Program player(OSTREL_VISIT, more);
        EXPECT_EQ(player.wait(), 0) << player.output();
    }
    std::string shots(const std::string& folder) { return device().path(folder); }
    Picture shot(const std::string& folder, const std::string& name) {
        return Picture::load(shots(folder) + "/" + name + ".png");
    }
    static std::string bytes(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_P(VisitTest, ShowsTheReferencePictures) {
    const std::string visit = GetParam();
    play(visit, "shots");
    const std::set<std::string> taken = picturesIn(shots("shots"));
    EXPECT_FALSE(taken.empty());
    for (const std::string& name : taken) {
        EXPECT_TRUE(matchesReference(shot("shots", name), "launcher/" + visit + "/" + name, kBlendingTolerance))
            << name;
    }
    EXPECT_EQ(picturesIn(OSTREL_SOURCE_DIR "/tests/reference/launcher/" + visit), taken);
}

INSTANTIATE_TEST_SUITE_P(Every, VisitTest, ::testing::ValuesIn(kVisits),
                         [](const auto& visit) { return std::string(visit.param); });

TEST_F(VisitTest, EveryVisitIsPlayedAndEveryReferenceHasItsVisit) {
    const std::set<std::string> played(std::begin(kVisits), std::end(kVisits));
    EXPECT_EQ(picturesIn(OSTREL_SAMPLE_DIR "/visits"), played);
    EXPECT_EQ(picturesIn(OSTREL_SOURCE_DIR "/tests/reference/launcher"), played);
}

TEST_F(VisitTest, TheSameVisitGivesTheSameBytesWhateverTheEnvironment) {
    play("first_light", "once");
    for (const char* name : {"LANG", "LC_ALL", "LANGUAGE"}) setenv(name, "zh_CN.UTF-8", 1);
    setenv("TZ", "Asia/Tokyo", 1);
    setenv("SDL_RENDER_SCALE_QUALITY", "2", 1);
    play("first_light", "again");
    EXPECT_EQ(picturesIn(shots("once")), picturesIn(shots("again")));
    for (const std::string& name : picturesIn(shots("once"))) {
        EXPECT_EQ(bytes(shots("once") + "/" + name + ".png"), bytes(shots("again") + "/" + name + ".png")) << name;
    }
}

// A panel mounted turned shows the upright picture by 270 degrees, one pixel to the left.
void expectTurned(const Picture& turned, const Picture& upright, const std::string& name) {
    ASSERT_EQ(turned.width(), 720);
    ASSERT_EQ(turned.height(), 1280);
    const Picture expected = upright.turnedLeft().part({1, 0, 719, 1280});
    const Picture actual = turned.part({0, 0, 719, 1280});
    EXPECT_TRUE(picturesMatch(actual, expected, kTurnedTolerance)) << name;
}

// Behind popups and questions stands the frozen screen, which a turned panel has another shape of.
const std::set<std::string> kFrozenBehind{"03-game-menu", "10-quit-question"};

// What the two visits show is compared with these pictures above.
TEST_F(VisitTest, ARotatedScreenShowsEveryWindowTurned) {
    const fs::path references = OSTREL_SOURCE_DIR "/tests/reference/launcher";
    const std::set<std::string> names = picturesIn(references / "windows");
    EXPECT_EQ(names, picturesIn(references / "rotated"));
    for (const std::string& name : names) {
        if (kFrozenBehind.count(name) != 0) continue;
        const std::string file = name + ".png";
        expectTurned(Picture::load(references / "rotated" / file), Picture::load(references / "windows" / file), name);
    }
}

}  // namespace
