// Pictures of games: asked for in a frame, decoded beside it, dropped when no frame asks any more.
#include "art_loader.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <filesystem>

#include "held_decoder.h"
#include "support/screen_test.h"

namespace {

using launcher::ArtLoader;
using launchertest::HeldDecoder;
using launchertest::takeDecodedWidths;
using Names = std::vector<std::string>;
using Widths = std::vector<int>;

constexpr int kBox = 40;

class ArtLoaderTest : public ostreltest::ScreenTest {
protected:
    ArtLoaderTest() { takeDecodedWidths(); }

    // Pictures that their widths tell apart.
    Names picturesUpTo(int count) {
        Names names;
        for (int width = 1; width <= count; ++width) names.push_back(picture(width));
        return names;
    }
    std::string picture(int width) {
        const std::string name = std::to_string(width) + ".png";
        ostreltest::writePlainPng(device().path(name), width, 10, ostreltest::kRed);
        return name;
    }
    // A frame that shows these pictures. Returns how many of them are there.
    int frame(const Names& names) {
        int there = 0;
        mLoader->beginFrame();
        for (const std::string& name : names) there += mLoader->get(name, kBox, kBox) != nullptr ? 1 : 0;
        mOnTheWay = mLoader->endFrame();
        return there;
    }
    // As many frames as pictures need that are all on the screen.
    void framesUntilThere(const Names& names) {
        for (int frames = 0; frames < 100; ++frames) {
            frame(names);
            if (!mOnTheWay) return;
            mLoader->awaitIdle();
        }
        ADD_FAILURE() << "pictures are still on their way";
    }

    std::unique_ptr<ArtLoader> mLoader = std::make_unique<ArtLoader>();
    bool mOnTheWay = false;
};

TEST_F(ArtLoaderTest, APictureIsThereInTheFrameAfterItWasDecoded) {
    const Names one = {picture(7)};
    EXPECT_EQ(frame(one), 0);
    EXPECT_TRUE(mOnTheWay);
    mLoader->awaitIdle();
    EXPECT_EQ(frame(one), 1);
    EXPECT_FALSE(mOnTheWay);
    EXPECT_EQ(mLoader->loadedCount(), 1);
}

TEST_F(ArtLoaderTest, AskingDoesNotWaitForTheDecoder) {
    const HeldDecoder decoder;
    EXPECT_EQ(frame({picture(7)}), 0);
    EXPECT_FALSE(mLoader->idle());
}

TEST_F(ArtLoaderTest, APictureThatStaysOnTheScreenIsDecodedOnce) {
    const Names one = {picture(7)};
    framesUntilThere(one);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(frame(one), 1);
    EXPECT_EQ(takeDecodedWidths(), (Widths{7}));
}

TEST_F(ArtLoaderTest, TheNewestWaitingRequestIsServedFirst) {
    const Names three = picturesUpTo(3);
    const HeldDecoder decoder;
    mLoader->get(three[0], kBox, kBox);
    decoder.awaitDecoding();
    mLoader->get(three[1], kBox, kBox);
    mLoader->get(three[2], kBox, kBox);
    decoder.letGo();
    mLoader->awaitIdle();
    EXPECT_EQ(takeDecodedWidths(), (Widths{1, 3, 2}));
}

TEST_F(ArtLoaderTest, WhatHasLeftTheScreenBeforeItsTurnIsNotDecoded) {
    const Names three = picturesUpTo(3);
    const HeldDecoder decoder;
    mLoader->get(three[0], kBox, kBox);
    decoder.awaitDecoding();
    frame(three);
    frame({three[0]});
    decoder.letGo();
    mLoader->awaitIdle();
    EXPECT_EQ(takeDecodedWidths(), (Widths{1}));
}

TEST_F(ArtLoaderTest, WhatAFrameDoesNotAskForIsLetGo) {
    const Names two = picturesUpTo(2);
    framesUntilThere(two);
    ASSERT_EQ(mLoader->loadedCount(), 2);
    EXPECT_EQ(frame({two[1]}), 1);
    EXPECT_EQ(mLoader->loadedCount(), 1);
    frame({});
    EXPECT_EQ(mLoader->loadedCount(), 0);
}

TEST_F(ArtLoaderTest, WhatComesBackOnTheScreenIsLoadedAgain) {
    const Names one = {picture(7)};
    framesUntilThere(one);
    frame({});
    EXPECT_EQ(frame(one), 0);
    framesUntilThere(one);
    EXPECT_EQ(frame(one), 1);
}

TEST_F(ArtLoaderTest, ARequestThatTheFullQueueDroppedIsMadeAgain) {
    const Names many = picturesUpTo(30);  // more than wait at a time
    {
        const HeldDecoder decoder;
        mLoader->get(many[0], kBox, kBox);
        decoder.awaitDecoding();
        frame(many);
    }
    framesUntilThere(many);
    EXPECT_EQ(frame(many), 30);
}

TEST_F(ArtLoaderTest, AFrameTakesOverThreePicturesAtMost) {
    const Names five = picturesUpTo(5);
    frame(five);
    mLoader->awaitIdle();
    EXPECT_EQ(frame(five), 3);
    EXPECT_TRUE(mOnTheWay);
    EXPECT_EQ(frame(five), 5);
    EXPECT_FALSE(mOnTheWay);
}

TEST_F(ArtLoaderTest, AMissingPictureIsNoneAndNothingStaysOnTheWay) {
    framesUntilThere({"missing.png"});
    EXPECT_EQ(frame({"missing.png"}), 0);
    EXPECT_FALSE(mOnTheWay);
}

TEST_F(ArtLoaderTest, ABrokenPictureIsTriedOnceWhileItIsOnTheScreen) {
    const std::string whole = device().read(picture(7));
    device().write("broken.png", whole.substr(0, whole.size() / 2));
    framesUntilThere({"broken.png"});
    for (int i = 0; i < 5; ++i) EXPECT_EQ(frame({"broken.png"}), 0);
    EXPECT_EQ(takeDecodedWidths(), (Widths{0}));
}

TEST_F(ArtLoaderTest, WhatIsNoPictureFileIsNone) {
    device().write("text.png", "no picture\n");
    device().write("empty.png", "");
    std::filesystem::create_directory("folder.png");
    ASSERT_EQ(mkfifo("pipe.png", 0600), 0);
    const Names none = {"text.png", "empty.png", "folder.png", "pipe.png"};
    framesUntilThere(none);
    EXPECT_EQ(frame(none), 0);
}

TEST_F(ArtLoaderTest, NoNameAndNoRoomAskForNothing) {
    EXPECT_EQ(mLoader->get("", kBox, kBox), nullptr);
    EXPECT_EQ(mLoader->get(picture(7), 0, kBox), nullptr);
    EXPECT_EQ(mLoader->get("7.png", kBox, -1), nullptr);
    EXPECT_TRUE(mLoader->idle());
}

TEST_F(ArtLoaderTest, OneFileInTwoSizesIsTwoPictures) {
    const std::string file = picture(10);
    mLoader->get(file, 20, 20);
    mLoader->get(file, 40, 40);
    mLoader->awaitIdle();
    mLoader->beginFrame();
    EXPECT_EQ(mLoader->get(file, 20, 20)->getWidth(), 20);
    EXPECT_EQ(mLoader->get(file, 40, 40)->getWidth(), 40);
}

TEST_F(ArtLoaderTest, ClearedWhileDecodingThePictureDoesNotArrive) {
    const Names one = {picture(7)};
    {
        const HeldDecoder decoder;
        frame(one);
        decoder.awaitDecoding();
        mLoader->clear();
    }
    mLoader->awaitIdle();
    mLoader->beginFrame();
    EXPECT_EQ(mLoader->loadedCount(), 0);
    framesUntilThere(one);
    EXPECT_EQ(frame(one), 1);
}

TEST_F(ArtLoaderTest, ClearLetsLoadedPicturesGo) {
    framesUntilThere(picturesUpTo(3));
    mLoader->clear();
    EXPECT_EQ(mLoader->loadedCount(), 0);
}

TEST_F(ArtLoaderTest, ALoaderMayEndWhileRequestsWait) {
    {
        const HeldDecoder decoder;
        frame(picturesUpTo(9));
        decoder.awaitDecoding();
    }
    mLoader = nullptr;
    EXPECT_LE(takeDecodedWidths().size(), 9U);
}

TEST_F(ArtLoaderTest, ThePictureOfAGameStandsInAHiddenFolderBesideIt) {
    device().write("games/.art/Quiet Meteor.png", "");
    EXPECT_EQ(launcher::artOf("games/Quiet Meteor.game", false), "games/.art/Quiet Meteor.png");
    EXPECT_EQ(launcher::artOf("games/Quiet Meteor", false), "games/.art/Quiet Meteor.png");
    EXPECT_EQ(launcher::artOf("games/Loud Meteor.game", false), "");
}

TEST_F(ArtLoaderTest, ThePictureOfAFolderHasItsWholeName) {
    device().write("games/.art/Hearth 1.6.png", "");
    EXPECT_EQ(launcher::artOf("games/Hearth 1.6", true), "games/.art/Hearth 1.6.png");
    EXPECT_EQ(launcher::artOf("games/Hearth 1.6/", true), "games/.art/Hearth 1.6.png");
    EXPECT_EQ(launcher::artOf("games/Hearth 1", true), "");
}

TEST_F(ArtLoaderTest, TheSharedLoaderComesBackAfterItWasLetGo) {
    EXPECT_EQ(&launcher::artLoader(), &launcher::artLoader());
    launcher::freeArt();
    EXPECT_EQ(launcher::artLoader().loadedCount(), 0);
    launcher::freeArt();
}

}  // namespace
