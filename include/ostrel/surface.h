/// @file  surface.h: the images that windows draw, and the functions that make, cut, turn, fill and save them.
/// Threads: UI thread only (the one that called ScreenInit).  Units: pixels, origin top left.
/// Pixels: textures are ABGR8888 (bytes R, G, B, A in memory).  Owner: who gets a new surface deletes it.
#pragma once
#include <SDL.h>

#include "ostrel/export.h"

/// An image that can be drawn. The order of the virtual operations is the binary interface.
class OSTREL_API OstrelSurface {
public:
    virtual ~OstrelSurface();
    virtual int setBlendMode(SDL_BlendMode mode) = 0;
    virtual int setAlpha(unsigned char alpha) = 0;
    virtual int getBlendMode(SDL_BlendMode* mode) = 0;
    virtual int getAlpha(unsigned char* alpha) = 0;
    virtual int render(SDL_Rect* src, SDL_Rect* dst, bool keepSize, const char* dumpPath) = 0;
    virtual int getWidth() = 0;
    virtual int getHeight() = 0;
    virtual void* getPixels(int* pitch, int* bytesPerPixel, int* width, int* height) = 0;
};

/// The one implementation: a texture and, sometimes, a copy of its pixels in memory.
class OSTREL_API SDL2OstrelSurface : public OstrelSurface {
public:
    SDL2OstrelSurface(SDL_Texture* texture, SDL_Surface* surface);
    SDL2OstrelSurface(const SDL2OstrelSurface&) = delete;
    SDL2OstrelSurface& operator=(const SDL2OstrelSurface&) = delete;
    ~SDL2OstrelSurface() override;
    int setBlendMode(SDL_BlendMode mode) override;
    int setAlpha(unsigned char alpha) override;
    int getBlendMode(SDL_BlendMode* mode) override;
    int getAlpha(unsigned char* alpha) override;
    int render(SDL_Rect* src, SDL_Rect* dst, bool keepSize, const char* dumpPath) override;
    int getWidth() override;
    int getHeight() override;
    void* getPixels(int* pitch, int* bytesPerPixel, int* width, int* height) override;

    SDL_Texture* mTexture;
    SDL_Surface* mSurface;
    int mWidth;
    int mHeight;
};

OSTREL_API void deleteSurface(void* surface);
OSTREL_API OstrelSurface* CreateSurface(SDL_Surface* s);
OSTREL_API OstrelSurface* CreateSurface(int w, int h);
OSTREL_API OstrelSurface* CreateFromPixels(void* pixels, int w, int h, int depth, int pitch, unsigned Rmask,
                                           unsigned Gmask, unsigned Bmask, unsigned Amask);
OSTREL_API OstrelSurface* CropSurface(OstrelSurface* s, SDL_Rect* r);
OSTREL_API OstrelSurface* RotateSurface(OstrelSurface* s, int degrees);
OSTREL_API int FillRect(OstrelSurface* s, SDL_Rect* r, unsigned char r8, unsigned char g8, unsigned char b8,
                        unsigned char a8);
OSTREL_API int ClearRect(OstrelSurface* s, SDL_Rect* r, unsigned char r8, unsigned char g8, unsigned char b8,
                         unsigned char a8);
OSTREL_API int FillRectInternal(OstrelSurface* s, SDL_Rect* r, unsigned char r8, unsigned char g8, unsigned char b8,
                                unsigned char a8, SDL_BlendMode mode);
OSTREL_API void SaveSurface2BMP(OstrelSurface* s, const char* path);
OSTREL_API void getScaledSizeKeepRatio(int w, int h, int maxW, int maxH, int& outW, int& outH);
