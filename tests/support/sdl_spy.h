// Watches SDL make windows, renderers, textures, surfaces and pictures of text, open files and present frames; lets it
// fail on demand.
// While none lives, the calls pass straight through; at most one lives at a time.
#pragma once
#include <SDL.h>
#include <SDL_ttf.h>

#include <functional>
#include <string>
#include <vector>

namespace ostreltest {

class SdlSpy {
public:
    SdlSpy();
    ~SdlSpy();
    SdlSpy(const SdlSpy&) = delete;
    SdlSpy& operator=(const SdlSpy&) = delete;

    struct WindowCall {
        std::string title;
        int x, y, width, height;
        Uint32 flags;
        SDL_Window* window;
    };
    struct RendererCall {
        SDL_Window* window;
        int index;
        Uint32 flags;
    };
    struct TextureCall {
        Uint32 format;
        int access, width, height;
        SDL_Texture* texture;
    };
    struct SurfaceCall {
        int width, height, depth;
        Uint32 redMask, greenMask, blueMask, alphaMask;
    };
    struct FontCall {
        std::string path;
        int size;
        TTF_Font* font;
    };

    // What was asked for, failed calls included.
    std::vector<WindowCall> windows;
    std::vector<RendererCall> renderers;
    std::vector<TextureCall> textures;           // SDL_CreateTexture
    std::vector<SurfaceCall> surfaces;           // SDL_CreateRGBSurface
    std::vector<SDL_Surface*> texturedSurfaces;  // SDL_CreateTextureFromSurface
    std::vector<std::string> renderedTexts;      // TTF_RenderUTF8_Blended
    std::vector<FontCall> fonts;                 // TTF_OpenFont
    std::vector<TTF_Font*> closedFonts;          // TTF_CloseFont
    std::vector<std::string> decodedImages;      // IMG_Load

    std::vector<const void*> destroyed;  // windows, renderers and textures, in order

    int presents = 0;                 // SDL_RenderPresent
    std::function<void()> onPresent;  // called before the frame is shown

    // Which calls fail.
    bool failWindows = false;
    bool failRenderers = false;
    bool failTextures = false;
    bool failTexturesFromSurfaces = false;
    std::function<bool(const SurfaceCall&)> failSurface;
};

}  // namespace ostreltest
