// Played visits, compared with reference pictures of the window.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "program.h"
#include "support/picture.h"
#include "support/test_device.h"

namespace fs = std::filesystem;
using ostreltest::matchesReference;
using ostreltest::Picture;
using ostreltest::picturesMatch;
using ostreltest::Program;

namespace {

// The processor's own blending into a window differs by a few steps between kinds of processor.
#ifdef __x86_64__
constexpr int kTolerance = 0;
#else
constexpr int kTolerance = 4;
#endif
// So does blending into a texture, where a turned screen is drawn first.
constexpr int kBlendingTolerance = 4;

class VisitTest : public ostreltest::DeviceTest {
protected:
    // Plays a visit of samples/launcher/visits; its pictures lie in shots(folder).
    void play(const std::string& visit, const std::string& folder, std::vector<std::string> more = {}) {
        more.insert(more.end(), {"--visit", OSTREL_SAMPLE_DIR "/visits/" + visit + ".visit", "--run",
                                 device().workDir() + "/run", "--shots", shots(folder)});
        Program player(OSTREL_VISIT, more);
        EXPECT_EQ(player.wait(), 0) << player.output();
    }
    std::string shots(const std::string& folder) { return device().workDir() + "/" + folder; }

    static std::string bytes(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    // Every shot is as its reference, and no reference has lost its shot.
    void expectReferences(const std::string& visit, const std::string& folder, int count) {
        int seen = 0;
        for (const fs::directory_entry& entry : fs::directory_iterator(shots(folder))) {
            const std::string name = "launcher/" + visit + "/" + entry.path().stem().string();
            EXPECT_TRUE(matchesReference(Picture::load(entry.path()), name, kTolerance)) << name;
            ++seen;
        }
        EXPECT_EQ(seen, count);
    }
};

TEST_F(VisitTest, FirstLightShowsTheReferencePictures) {
    play("first_light", "shots");
    expectReferences("first_light", "shots", 17);
}

TEST_F(VisitTest, AChineseInterfaceShowsTheReferencePictures) {
    play("chinese", "shots", {"--lang", "zh.lang", "--search", "zg"});
    expectReferences("chinese", "shots", 3);
}

TEST_F(VisitTest, TheSameVisitGivesTheSameBytes) {
    play("first_light", "once");
    play("first_light", "again");
    for (const fs::directory_entry& entry : fs::directory_iterator(shots("once"))) {
        const fs::path other = shots("again") / entry.path().filename();
        EXPECT_EQ(bytes(entry.path()), bytes(other)) << entry.path();
    }
}

// A panel mounted turned shows the upright picture by 270 degrees, one pixel to the left.
TEST_F(VisitTest, ARotatedScreenShowsTheSamePictureTurned) {
    play("chinese", "upright");
    play("chinese", "turned", {"--rotate"});
    const Picture upright = Picture::load(shots("upright") + "/01-list.png");
    const Picture turned = Picture::load(shots("turned") + "/01-list.png");
    ASSERT_EQ(turned.width(), 720);
    ASSERT_EQ(turned.height(), 1280);
    Picture expected(719, 1280);
    Picture actual(719, 1280);
    for (int y = 0; y < 1280; ++y) {
        for (int x = 0; x < 719; ++x) {
            expected.set(x, y, upright.at(1279 - y, x + 1));
            actual.set(x, y, turned.at(x, y));
        }
    }
    EXPECT_TRUE(picturesMatch(actual, expected, kBlendingTolerance));
}

}  // namespace
