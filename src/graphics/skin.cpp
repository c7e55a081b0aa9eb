#include "ostrel/skin.h"

#include <string>
#include <utility>

#include "graphics/screen_internal.h"
#include "graphics/sdl_handles.h"
#include "graphics/surface_internal.h"
#include "ostrel/host.h"
#include "ostrel/image.h"
#include "ostrel/log.h"
#include "ostrel/surface.h"
#include "ostrel/text.h"

TTF_Font* gNavFont = nullptr;
TTF_Font* gNavFontIcon = nullptr;
TTF_Font* gListFontTxt = nullptr;
TTF_Font* gListFontSubtxt = nullptr;
TTF_Font* gStatFont = nullptr;
TTF_Font* gMenuFont = nullptr;
TTF_Font* gPopupFontTitle = nullptr;
TTF_Font* gPopupFontTxt = nullptr;
TTF_Font* gPopupFontBtn = nullptr;

SDL_Color gNavColorTxt;
SDL_Color gNavColorIcon;
SDL_Color gListColorTxt;
SDL_Color gListColorSubtxt;
SDL_Color gListColorSeq;
SDL_Color gStatColorTxt;
SDL_Color gPopupColorTxt;
SDL_Color gPopupColorBtn;
SDL_Color gHighlightColor;
SDL_Color gPopupColorTitle;

OstrelSurface* gIconVideo = nullptr;
OstrelSurface* gIconFolder = nullptr;
OstrelSurface* gBackground = nullptr;
OstrelSurface* gIconBack = nullptr;
OstrelSurface* gIconMenu = nullptr;
OstrelSurface* gIconA = nullptr;
OstrelSurface* gIconB = nullptr;
OstrelSurface* gBackgroundFloat = nullptr;

namespace {

constexpr int kIconCapacity = 100;
constexpr const char* kFontFile = "regular.ttf";

constexpr SDL_Color kWhite{255, 255, 255, 255};
constexpr SDL_Color kGreen{54, 255, 160, 0};  // the alpha is stored as it is and draws opaque

struct SkinColour {
    SDL_Color* colour;
    SDL_Color value;
};
constexpr SkinColour kColours[] = {
    {&gNavColorTxt, kWhite},    {&gNavColorIcon, kWhite},    {&gListColorTxt, kWhite},  {&gListColorSubtxt, kWhite},
    {&gListColorSeq, kWhite},   {&gStatColorTxt, kWhite},    {&gPopupColorTxt, kWhite}, {&gPopupColorBtn, kWhite},
    {&gHighlightColor, kGreen}, {&gPopupColorTitle, kGreen},
};

struct SkinFont {
    TTF_Font** font;
    int size;
};
constexpr SkinFont kFonts[] = {
    {&gNavFont, 32},  {&gNavFontIcon, 24},    {&gListFontTxt, 36},  {&gListFontSubtxt, 24}, {&gStatFont, 24},
    {&gMenuFont, 36}, {&gPopupFontTitle, 44}, {&gPopupFontTxt, 36}, {&gPopupFontBtn, 36},
};

struct SkinImage {
    OstrelSurface** image;
    const char* file;
};
constexpr SkinImage kImages[] = {
    {&gIconVideo, "skin/ic-video.png"},  {&gIconFolder, "skin/ic-folder.png"},
    {&gBackground, "skin/bg.png"},       {&gIconBack, "skin/icon-back.png"},
    {&gIconMenu, "skin/tips-MENU2.png"}, {&gIconA, "skin/tips-A.png"},
    {&gIconB, "skin/tips-B.png"},        {&gBackgroundFloat, "skin/float-win-mask.png"},
};

// Not the order of loading: the folder goes before the video. (ImagesAreReleasedFolderFirst)
constexpr OstrelSurface** kReleaseOrder[] = {
    &gIconFolder, &gIconVideo, &gBackground, &gIconBack, &gIconMenu, &gIconA, &gIconB, &gBackgroundFloat,
};

// The library starts SDL_ttf when nobody did, and never ends it: the host may have fonts of its own.
TTF_Font* openSkinFont(int size) {
    const std::string path = std::string(ostrel::kWorkingDirectory) + kFontFile;
    tprintf("open %s\n", path.c_str());
    if (TTF_WasInit() == 0) TTF_Init();
    return TTF_OpenFont(path.c_str(), size);
}

void closeSkinFont(TTF_Font*& font) {
    ostrel::FontPtr closing{std::exchange(font, nullptr)};
    // The host ended SDL_ttf already, and what the font is made of with it: closing it now would crash.
    if (TTF_WasInit() == 0) static_cast<void>(closing.release());
}

void loadSkinImage(const SkinImage& row) {
    *row.image = LoadOstrelSurface(gThemePath, ostrel::kWorkingDirectory, row.file);
    if (row.image == &gBackground && gBackground == nullptr) tprintf("open background fail: %s\n", SDL_GetError());
}

}  // namespace

LRUCache gIconCache(deleteSurface, kIconCapacity);
static const ostrel::ScreenBoundCache sIconsUntilTheScreenEnds(gIconCache);

void init_shared_skin() {
    for (const SkinColour& row : kColours) *row.colour = row.value;
    for (const SkinFont& row : kFonts) *row.font = openSkinFont(row.size);
    for (const SkinImage& row : kImages) loadSkinImage(row);
}

void uninit_shared_skin() {
    for (const SkinFont& row : kFonts) closeSkinFont(*row.font);
    for (OstrelSurface** image : kReleaseOrder) deleteSurface(std::exchange(*image, nullptr));
    // Rendered texts are found by the address of their font, and the next font may get the address of a closed one.
    gTextSurfaceCache.clear();
}

OstrelSurface* getIconFromCache(const char* name) {
    if (name == nullptr) return nullptr;
    auto* cached = static_cast<OstrelSurface*>(gIconCache.get(name));
    if (cached != nullptr) return cached;
    OstrelSurface* icon = LoadOstrelSurface(gThemePath, ostrel::kWorkingDirectory, name);
    if (icon != nullptr) gIconCache.put(name, icon);
    return icon;
}
