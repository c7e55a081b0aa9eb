// The comparer that the picture tests stand on: it must be able to fail.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "support/picture.h"

namespace fs = std::filesystem;

namespace {

using ostreltest::Colour;
using ostreltest::matchesReference;
using ostreltest::Picture;
using ostreltest::picturesMatch;

constexpr Colour kGrey{100, 100, 100, 255};

class PictureComparerTest : public ::testing::Test {
protected:
    // These references are written by nobody: a run that updates others must not bend them to what it finds.
    PictureComparerTest() { unsetenv("OSTREL_UPDATE_REFERENCES"); }
    Picture grey{4, 3, kGrey};
    Picture changedTo(Colour colour) const {
        Picture changed = grey;
        changed.set(2, 1, colour);
        return changed;
    }
};

TEST_F(PictureComparerTest, EqualPicturesMatch) { EXPECT_TRUE(picturesMatch(grey, Picture(4, 3, kGrey))); }

TEST_F(PictureComparerTest, EachOfTheFourChannelsCounts) {
    for (const Colour& colour : {Colour{101, 100, 100, 255}, Colour{100, 99, 100, 255}, Colour{100, 100, 101, 255},
                                 Colour{100, 100, 100, 254}}) {
        EXPECT_FALSE(picturesMatch(changedTo(colour), grey)) << colour;
    }
}

TEST_F(PictureComparerTest, AFailureTellsHowManyPixelsDifferAndWhere) {
    const ::testing::AssertionResult result = picturesMatch(changedTo({110, 100, 100, 255}), grey);
    EXPECT_STREQ(result.message(), "1 pixels differ by up to 10 within (2, 1) - (3, 2)");
}

TEST_F(PictureComparerTest, TheToleranceIsTheLargestDifferenceThatPasses) {
    EXPECT_TRUE(picturesMatch(changedTo({104, 100, 100, 255}), grey, 4));
    EXPECT_FALSE(picturesMatch(changedTo({105, 100, 100, 255}), grey, 4));
}

TEST_F(PictureComparerTest, OtherSizesDoNotMatch) {
    EXPECT_FALSE(picturesMatch(Picture(3, 4, kGrey), grey));
    EXPECT_FALSE(picturesMatch(Picture(), grey));
}

TEST_F(PictureComparerTest, AMissingReferenceFailsAndLeavesThePicture) {
    EXPECT_FALSE(matchesReference(grey, "integration/there_is_no_such_reference"));
    EXPECT_TRUE(fs::exists(OSTREL_BUILD_DIR "/test-pictures/integration/there_is_no_such_reference.actual.png"));
}

TEST_F(PictureComparerTest, AWrongPictureLeavesExpectedActualAndDifference) {
    const std::string name = "integration/comparer";
    EXPECT_TRUE(matchesReference(grey, name));
    EXPECT_FALSE(matchesReference(changedTo({255, 0, 0, 255}), name));
    const std::string left = OSTREL_BUILD_DIR "/test-pictures/" + name;
    EXPECT_TRUE(picturesMatch(Picture::load(left + ".expected.png"), grey));
    EXPECT_EQ(Picture::load(left + ".actual.png").at(2, 1), (Colour{255, 0, 0, 255}));
    const Picture difference = Picture::load(left + ".difference.png");
    EXPECT_EQ(difference.at(0, 0), (Colour{0, 0, 0, 255}));
    EXPECT_EQ(difference.at(2, 1), (Colour{155, 0, 0, 255}));
}

}  // namespace
