#include "ostrel/skin.h"

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <utility>

#include "ostrel/screen.h"
#include "ostrel/surface.h"
#include "ostrel/text.h"
#include "support/fake_host.h"
#include "support/log_capture.h"
#include "support/screen_test.h"
#include "support/sdl_spy.h"

namespace {

using ostreltest::DeviceTest;
using ostreltest::host;
using ostreltest::kWhite;
using ostreltest::LogCapture;
using ostreltest::plainSurface;
using ostreltest::ScreenTest;
using ostreltest::SdlSpy;
using ostreltest::writePlainPng;
using Lines = std::vector<std::string>;

constexpr const char* kFiles[] = {
    "skin/ic-video.png",   "skin/ic-folder.png", "skin/bg.png",     "skin/icon-back.png",
    "skin/tips-MENU2.png", "skin/tips-A.png",    "skin/tips-B.png", "skin/float-win-mask.png",
};

int widthOf(OstrelSurface* image) { return image == nullptr ? 0 : image->getWidth(); }

std::vector<int> imageWidths() {
    return {widthOf(gIconVideo), widthOf(gIconFolder), widthOf(gBackground), widthOf(gIconBack),
            widthOf(gIconMenu),  widthOf(gIconA),      widthOf(gIconB),      widthOf(gBackgroundFloat)};
}

std::vector<TTF_Font*> fonts() {
    return {gNavFont,  gNavFontIcon,    gListFontTxt,  gListFontSubtxt, gStatFont,
            gMenuFont, gPopupFontTitle, gPopupFontTxt, gPopupFontBtn};
}

void endSdlTtf() {
    while (TTF_WasInit() != 0) TTF_Quit();
}

// Leaves skin, caches and SDL_ttf as they are at start-up.
struct CleanSkin {
    ~CleanSkin() {
        uninit_shared_skin();
        gIconCache.clear();
        endSdlTtf();
    }
};

class SkinTest : public ScreenTest {
protected:
    // A picture of each file in a directory that ends in "/" or is empty: 10 wide, 11 wide and so on from first on.
    void writeImages(const std::string& directory, int first) {
        int width = first;
        for (const char* file : kFiles) writePlainPng(device().path(directory + file), width++, 4, {1, 2, 3, 255});
    }
    void writeTheme() {
        writeImages("theme/", 10);
        host().setTheme("theme/");
    }

    CleanSkin mClean;
    SdlSpy mSpy;
};

::testing::AssertionResult isColour(SDL_Color colour, int r, int g, int b, int a) {
    if (colour.r == r && colour.g == g && colour.b == b && colour.a == a) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << int{colour.r} << ", " << int{colour.g} << ", " << int{colour.b} << ", "
                                         << int{colour.a};
}

// ---- colours

TEST_F(SkinTest, EightColoursAreWhite) {
    SDL_Color* const colours[] = {&gNavColorTxt,  &gNavColorIcon, &gListColorTxt,  &gListColorSubtxt,
                                  &gListColorSeq, &gStatColorTxt, &gPopupColorTxt, &gPopupColorBtn};
    for (SDL_Color* colour : colours) *colour = {1, 2, 3, 4};
    init_shared_skin();
    for (const SDL_Color* colour : colours) EXPECT_TRUE(isColour(*colour, 255, 255, 255, 255));
}

TEST_F(SkinTest, HighlightAndTitleAreGreenWithoutAlpha) {
    gHighlightColor = gPopupColorTitle = {1, 2, 3, 4};
    init_shared_skin();
    EXPECT_TRUE(isColour(gHighlightColor, 54, 255, 160, 0));
    EXPECT_TRUE(isColour(gPopupColorTitle, 54, 255, 160, 0));
}

TEST_F(SkinTest, ColoursStayWhenTheSkinGoes) {
    init_shared_skin();
    uninit_shared_skin();
    EXPECT_TRUE(isColour(gStatColorTxt, 255, 255, 255, 255));
    EXPECT_TRUE(isColour(gHighlightColor, 54, 255, 160, 0));
}

// ---- fonts

TEST_F(SkinTest, NineFontsOpenInOrder) {
    device().linkFont();
    init_shared_skin();
    const int sizes[] = {32, 24, 36, 24, 24, 36, 44, 36, 36};
    ASSERT_EQ(mSpy.fonts.size(), 9U);
    for (std::size_t i = 0; i < 9; ++i) {
        EXPECT_EQ(mSpy.fonts[i].path, "./regular.ttf");
        EXPECT_EQ(mSpy.fonts[i].size, sizes[i]) << i;
        EXPECT_NE(fonts()[i], nullptr);
        EXPECT_EQ(fonts()[i], mSpy.fonts[i].font) << i;
    }
}

TEST_F(SkinTest, EachFontLogsItsFile) {
    writeTheme();
    device().linkFont();
    LogCapture log;
    init_shared_skin();
    EXPECT_EQ(log.lines(), Lines(9, "open ./regular.ttf"));
}

TEST_F(SkinTest, AMissingFontIsNullAndSaysNoMore) {
    writeTheme();
    LogCapture log;
    LogCapture error(LogCapture::Stream::Error);
    init_shared_skin();
    EXPECT_EQ(log.lines(), Lines(9, "open ./regular.ttf"));
    EXPECT_EQ(error.text(), "");
    EXPECT_EQ(fonts(), std::vector<TTF_Font*>(9, nullptr));
    EXPECT_NE(gBackground, nullptr);
}

TEST_F(SkinTest, AFileThatIsNoFontIsNull) {
    writeTheme();
    device().write("regular.ttf", "not a font");
    LogCapture log;
    init_shared_skin();
    EXPECT_EQ(log.lines(), Lines(9, "open ./regular.ttf"));
    EXPECT_EQ(fonts(), std::vector<TTF_Font*>(9, nullptr));
}

TEST_F(SkinTest, AFontOfTheThemeIsNotUsed) {
    writeTheme();
    device().linkFont();
    std::filesystem::rename(device().path("regular.ttf"), device().path("theme/regular.ttf"));
    init_shared_skin();
    EXPECT_EQ(gListFontTxt, nullptr);
}

TEST_F(SkinTest, SdlTtfIsStartedWhenNobodyDidAndStaysOn) {
    endSdlTtf();
    device().linkFont();
    init_shared_skin();
    EXPECT_EQ(TTF_WasInit(), 1);
    uninit_shared_skin();
    EXPECT_EQ(TTF_WasInit(), 1);
}

TEST_F(SkinTest, SdlTtfIsNotStartedASecondTime) {
    endSdlTtf();
    TTF_Init();
    device().linkFont();
    init_shared_skin();
    uninit_shared_skin();
    EXPECT_EQ(TTF_WasInit(), 1);
}

// ---- images

TEST_F(SkinTest, EightImagesComeFromTheThemeInOrder) {
    writeTheme();
    writeImages("", 50);
    init_shared_skin();
    EXPECT_EQ(imageWidths(), (std::vector<int>{10, 11, 12, 13, 14, 15, 16, 17}));
    EXPECT_EQ(mSpy.decodedImages,
              (Lines{"theme/skin/ic-video.png", "theme/skin/ic-folder.png", "theme/skin/bg.png",
                     "theme/skin/icon-back.png", "theme/skin/tips-MENU2.png", "theme/skin/tips-A.png",
                     "theme/skin/tips-B.png", "theme/skin/float-win-mask.png"}));
}

TEST_F(SkinTest, AnImageThatTheThemeLacksComesFromTheWorkingDirectory) {
    writeTheme();
    writeImages("", 50);
    device().remove("theme/skin/tips-A.png");
    LogCapture log;
    init_shared_skin();
    EXPECT_EQ(widthOf(gIconA), 55);
    EXPECT_EQ(widthOf(gIconB), 16);
    Lines expected(9, "open ./regular.ttf");
    expected.emplace_back("theme//skin/tips-A.png open fail, use .//skin/tips-A.png");
    EXPECT_EQ(log.lines(), expected);
}

TEST_F(SkinTest, WithoutAThemeEveryImageComesFromTheWorkingDirectory) {
    writeImages("", 50);
    LogCapture log;
    init_shared_skin();
    EXPECT_EQ(imageWidths(), (std::vector<int>{50, 51, 52, 53, 54, 55, 56, 57}));
    ASSERT_EQ(log.lines().size(), 17U);
    EXPECT_EQ(log.lines()[9], "(null)/skin/ic-video.png open fail, use .//skin/ic-video.png");
    EXPECT_EQ(log.lines()[16], "(null)/skin/float-win-mask.png open fail, use .//skin/float-win-mask.png");
}

TEST_F(SkinTest, OnlyAMissingBackgroundIsReported) {
    host().setTheme("theme/");
    LogCapture log;
    LogCapture error(LogCapture::Stream::Error);
    init_shared_skin();
    Lines expected(9, "open ./regular.ttf");
    expected.emplace_back("open background fail: Couldn't open ./skin/bg.png");
    EXPECT_EQ(log.lines(), expected);
    EXPECT_EQ(error.text(), "");
    EXPECT_EQ(imageWidths(), std::vector<int>(8, 0));
}

TEST_F(SkinTest, AMissingBackgroundIsReportedInItsTurn) {
    writeImages("", 50);
    device().remove("skin/bg.png");
    LogCapture log;
    init_shared_skin();
    ASSERT_EQ(log.lines().size(), 17U);
    EXPECT_EQ(log.lines()[10], "(null)/skin/ic-folder.png open fail, use .//skin/ic-folder.png");
    EXPECT_EQ(log.lines()[11], "open background fail: Couldn't open ./skin/bg.png");
    EXPECT_EQ(log.lines()[12], "(null)/skin/icon-back.png open fail, use .//skin/icon-back.png");
}

TEST_F(SkinTest, ABrokenImageIsNull) {
    writeTheme();
    device().write("theme/skin/tips-B.png", "not a picture");
    LogCapture log;
    init_shared_skin();
    EXPECT_EQ(gIconB, nullptr);
    EXPECT_EQ(log.lines(), Lines(9, "open ./regular.ttf"));
}

// ---- the end

TEST_F(SkinTest, TheEndClosesFontsInOrderAndForgetsEverything) {
    writeTheme();
    device().linkFont();
    init_shared_skin();
    const std::vector<TTF_Font*> opened = fonts();
    LogCapture log;
    uninit_shared_skin();
    EXPECT_EQ(mSpy.closedFonts, opened);
    EXPECT_EQ(fonts(), std::vector<TTF_Font*>(9, nullptr));
    EXPECT_EQ(imageWidths(), std::vector<int>(8, 0));
    EXPECT_EQ(log.text(), "");
}

TEST_F(SkinTest, ASecondEndDoesNothing) {
    writeTheme();
    device().linkFont();
    init_shared_skin();
    uninit_shared_skin();
    uninit_shared_skin();
    EXPECT_EQ(mSpy.closedFonts.size(), 9U);
}

// The caches are released while the program ends, after or before SDL's own end.
TEST_F(SkinTest, AProgramMayEndWithoutCleaningUp) {
    writeTheme();
    device().linkFont();
    const auto runAndExit = [] {
        init_shared_skin();
        DrawString(gListFontTxt, {0, 0, 60, 40}, "OK", kWhite, 1, true, false);
        getIconFromCache("skin/tips-B.png");
        std::exit(0);
    };
    EXPECT_EXIT(runAndExit(), ::testing::ExitedWithCode(0), "");
}

// Tells when it is deleted.
class Tracked : public OstrelSurface {
public:
    Tracked(std::string name, Lines& deleted) : mName(std::move(name)), mDeleted(deleted) {}
    ~Tracked() override { mDeleted.push_back(mName); }
    int setBlendMode(SDL_BlendMode) override { return 0; }
    int setAlpha(unsigned char) override { return 0; }
    int getBlendMode(SDL_BlendMode*) override { return 0; }
    int getAlpha(unsigned char*) override { return 0; }
    int render(SDL_Rect*, SDL_Rect*, bool, const char*) override { return 0; }
    int getWidth() override { return 0; }
    int getHeight() override { return 0; }
    void* getPixels(int*, int*, int*, int*) override { return nullptr; }

private:
    std::string mName;
    Lines& mDeleted;
};

TEST_F(SkinTest, FontsCloseBeforeTheImagesGo) {
    writeTheme();
    device().linkFont();
    init_shared_skin();
    // Counts the fonts that are closed when it goes.
    struct Late : SDL2OstrelSurface {
        Late(const SdlSpy& spy, std::size_t& closed)
            : SDL2OstrelSurface(nullptr, nullptr), mSpy(spy), mClosed(closed) {}
        ~Late() override { mClosed = mSpy.closedFonts.size(); }
        const SdlSpy& mSpy;
        std::size_t& mClosed;
    };
    std::size_t closed = 0;
    deleteSurface(gIconFolder);
    gIconFolder = new Late(mSpy, closed);
    uninit_shared_skin();
    EXPECT_EQ(closed, 9U);
}

TEST_F(SkinTest, ImagesAreReleasedFolderFirst) {
    Lines deleted;
    gIconVideo = new Tracked("video", deleted);
    gIconFolder = new Tracked("folder", deleted);
    gBackground = new Tracked("background", deleted);
    gIconBack = new Tracked("back", deleted);
    gIconMenu = new Tracked("menu", deleted);
    gIconA = new Tracked("A", deleted);
    gIconB = new Tracked("B", deleted);
    gBackgroundFloat = new Tracked("float", deleted);
    uninit_shared_skin();
    EXPECT_EQ(deleted, (Lines{"folder", "video", "background", "back", "menu", "A", "B", "float"}));
}

TEST_F(SkinTest, TheEndEmptiesTheTextsAndKeepsTheIcons) {
    OstrelSurface* icon = plainSurface(1, 1, {}).release();
    gIconCache.put("icon", icon);
    gTextSurfaceCache.put("text", plainSurface(1, 1, {}).release());
    uninit_shared_skin();
    EXPECT_EQ(gTextSurfaceCache.get("text"), nullptr);
    EXPECT_EQ(gIconCache.get("icon"), icon);
}

// ---- icons by name

class IconCacheTest : public SkinTest {
protected:
    IconCacheTest() { host().setTheme("theme/"); }
    void writeIcon(const std::string& name, int width = 8) {
        writePlainPng(device().path(name), width, 8, {1, 2, 3, 255});
    }
};

TEST_F(IconCacheTest, TheSecondCallOpensNothing) {
    writeIcon("theme/icons/gb.png");
    OstrelSurface* first = getIconFromCache("icons/gb.png");
    ASSERT_NE(first, nullptr);
    device().remove("theme/icons/gb.png");
    EXPECT_EQ(getIconFromCache("icons/gb.png"), first);
    EXPECT_EQ(mSpy.decodedImages, Lines{"theme/icons/gb.png"});
}

TEST_F(IconCacheTest, NamesAreKeysAsTheyArePassed) {
    writeIcon("theme/icons/gb.png");
    OstrelSurface* icon = getIconFromCache("icons/gb.png");
    EXPECT_EQ(gIconCache.get("icons/gb.png"), icon);
    EXPECT_NE(getIconFromCache("icons//gb.png"), icon);
}

TEST_F(IconCacheTest, AMissingIconIsLookedForAgain) {
    LogCapture log;
    EXPECT_EQ(getIconFromCache("icons/gb.png"), nullptr);
    EXPECT_EQ(getIconFromCache("icons/gb.png"), nullptr);
    EXPECT_EQ(mSpy.decodedImages.size(), 4U);  // the theme and the working directory, twice
    writeIcon("theme/icons/gb.png");
    EXPECT_NE(getIconFromCache("icons/gb.png"), nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(IconCacheTest, MissingIconsTakeNoPlaceInTheCache) {
    writeIcon("theme/gb.png");
    getIconFromCache("gb.png");
    for (int i = 0; i < 150; ++i) getIconFromCache("missing.png");
    device().remove("theme/gb.png");
    EXPECT_NE(getIconFromCache("gb.png"), nullptr);
}

TEST_F(IconCacheTest, AnIconThatTheThemeLacksComesFromTheWorkingDirectory) {
    writeIcon("icons/gb.png", 21);
    LogCapture log;
    EXPECT_EQ(widthOf(getIconFromCache("icons/gb.png")), 21);
    EXPECT_EQ(widthOf(getIconFromCache("icons/gb.png")), 21);
    EXPECT_EQ(log.text(), "theme//icons/gb.png open fail, use .//icons/gb.png\n");
}

TEST_F(IconCacheTest, AnAbsoluteNameIsTakenAsItIs) {
    writeIcon("/mnt/SDCARD/icon.png", 22);
    EXPECT_EQ(widthOf(getIconFromCache(device().path("/mnt/SDCARD/icon.png").c_str())), 22);
}

TEST_F(IconCacheTest, NoNameIsNoIcon) {
    LogCapture log;
    EXPECT_EQ(getIconFromCache(nullptr), nullptr);
    EXPECT_EQ(getIconFromCache(""), nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(IconCacheTest, HoldsAHundredAndOneIcons) {
    for (int i = 0; i < 101; ++i) {
        writeIcon("theme/" + std::to_string(i));
        ASSERT_NE(getIconFromCache(std::to_string(i).c_str()), nullptr);
    }
    getIconFromCache("0");  // still there, and now the newest
    EXPECT_EQ(mSpy.decodedImages.size(), 101U);
    writeIcon("theme/new");
    getIconFromCache("new");  // pushes out the oldest, which is 1
    getIconFromCache("0");
    EXPECT_EQ(mSpy.decodedImages.size(), 102U);
    getIconFromCache("1");
    EXPECT_EQ(mSpy.decodedImages.size(), 103U);
}

// ---- start-up and shut-down in every order, under valgrind too

class SkinLifecycle : public DeviceTest {
protected:
    SkinLifecycle() {
        device().linkFont();
        for (const char* file : kFiles) {
            writePlainPng(device().path(std::string("dark/") + file), 10, 4, {1, 2, 3, 255});
            writePlainPng(device().path(std::string("light/") + file), 20, 4, {250, 250, 250, 255});
        }
        host().setTheme("dark/");
    }
    ~SkinLifecycle() override {
        uninit_shared_skin();
        ScreenUninit();
        endSdlTtf();
    }

    // Uses every font, the images and the icon cache once.
    static void drawAFrame() {
        for (TTF_Font* font : fonts()) DrawString(font, {0, 0, 60, 40}, "中a", kWhite, 1, true, false);
        for (OstrelSurface* image : {gBackground, gIconA, getIconFromCache("skin/tips-B.png")}) {
            if (image != nullptr) image->render(nullptr, nullptr, false, nullptr);
        }
        ScreenUpdateAndFlip();
    }
};

TEST_F(SkinLifecycle, EndsBeforeTheScreen) {
    ScreenInit(64, 48, 32, 0);
    init_shared_skin();
    drawAFrame();
    uninit_shared_skin();
    ScreenUninit();
    EXPECT_EQ(fonts(), std::vector<TTF_Font*>(9, nullptr));
}

TEST_F(SkinLifecycle, EndsAfterTheScreen) {
    ScreenInit(64, 48, 32, 1);
    init_shared_skin();
    drawAFrame();
    ScreenUninit();
    drawAFrame();
    uninit_shared_skin();
    uninit_shared_skin();
    EXPECT_EQ(imageWidths(), std::vector<int>(8, 0));
}

TEST_F(SkinLifecycle, StartsAgain) {
    for (int i = 0; i < 2; ++i) {
        ScreenInit(64, 48, 32, 0);
        init_shared_skin();
        drawAFrame();
        EXPECT_EQ(widthOf(getIconFromCache("skin/tips-B.png")), 10);
        uninit_shared_skin();
        ScreenUninit();
    }
}

TEST_F(SkinLifecycle, OutlivesAScreenThatStartsAgain) {
    ScreenInit(64, 48, 32, 0);
    init_shared_skin();
    drawAFrame();
    ScreenUninit();
    ScreenInit(64, 48, 32, 0);
    drawAFrame();
    EXPECT_EQ(DrawString(gListFontTxt, {0, 0, 60, 40}, "OK", kWhite, 0, false, false), 47);
}

TEST_F(SkinLifecycle, StartsWithoutAScreen) {
    init_shared_skin();
    EXPECT_NE(gListFontTxt, nullptr);
    EXPECT_EQ(imageWidths(), std::vector<int>(8, 0));
    EXPECT_EQ(getIconFromCache("skin/tips-B.png"), nullptr);
    drawAFrame();
}

TEST_F(SkinLifecycle, EndsWithoutAStart) {
    uninit_shared_skin();
    EXPECT_EQ(gNavFont, nullptr);
}

// SDL_ttf frees what its fonts are made of when it ends; the shells are out of reach then. The checker of leaks finds
// them here.
std::vector<TTF_Font*>& shellsOfFonts() {
    static auto* shells = new std::vector<TTF_Font*>;
    return *shells;
}

TEST_F(SkinLifecycle, AHostMayEndSdlTtfFirst) {
    const SdlSpy spy;
    ScreenInit(64, 48, 32, 0);
    init_shared_skin();
    drawAFrame();
    shellsOfFonts() = fonts();
    endSdlTtf();
    uninit_shared_skin();
    EXPECT_TRUE(spy.closedFonts.empty());
    EXPECT_EQ(fonts(), std::vector<TTF_Font*>(9, nullptr));
    init_shared_skin();
    drawAFrame();
    EXPECT_EQ(DrawString(gListFontTxt, {0, 0, 60, 40}, "OK", kWhite, 0, false, false), 47);
}

TEST_F(SkinLifecycle, TheThemeChangesWhileRunning) {
    SdlSpy spy;
    ScreenInit(64, 48, 32, 0);
    init_shared_skin();
    drawAFrame();
    uninit_shared_skin();
    host().setTheme("light/");
    gIconCache.clear();
    init_shared_skin();
    EXPECT_EQ(imageWidths(), std::vector<int>(8, 20));
    EXPECT_EQ(widthOf(getIconFromCache("skin/tips-B.png")), 20);
    // Nothing is drawn from texts of the closed fonts, wherever the new ones lie in memory.
    spy.renderedTexts.clear();
    drawAFrame();
    EXPECT_EQ(spy.renderedTexts.size(), 18U);
}

}  // namespace
