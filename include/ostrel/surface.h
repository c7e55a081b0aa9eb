/// @file  surface.h: the images that windows draw, and the functions that make, cut, turn, fill and save them.
/// Threads: UI thread only (the one that called ScreenInit).  Units: pixels, origin top left.
/// Pixels: textures are ABGR8888 (bytes R, G, B, A in memory).  Owner: who gets a new surface deletes it.
/// A failure is one log line with SDL's error text and a null result, unless the name's comment says otherwise. Without
/// that line fail the operations that set and get, the FillRect family, CropSurface where it gives null, and getPixels
/// when memory is short. Null surfaces, rectangles, pixels and paths are allowed everywhere.
#pragma once
#include <SDL.h>

#include "ostrel/export.h"

/// An image that can be drawn. The order of the virtual operations is the binary interface.
class OSTREL_API OstrelSurface {
public:
    /// Frees the image. Where it was the target of drawing, drawing goes back to the screen.
    virtual ~OstrelSurface();
    /// Sets how drawing mixes the image with what is there. @return 0, or -1 when SDL refuses.
    virtual int setBlendMode(SDL_BlendMode mode) = 0;
    /// Makes the image translucent as a whole. @param alpha 0 invisible .. 255 as it is. @return 0, or -1.
    virtual int setAlpha(unsigned char alpha) = 0;
    /// Asks for what setBlendMode set. @return 0, or -1.
    virtual int getBlendMode(SDL_BlendMode* mode) = 0;
    /// Asks for what setAlpha set. @return 0, or -1.
    virtual int getAlpha(unsigned char* alpha) = 0;
    /// Draws the image into the current target (SetRenderTarget). @param src the part to draw, null for all of it.
    /// @param dst where to, null for the whole target. @param keepSize true to take only the position from @p dst and
    /// draw at the image's own size. @param dumpPath a BMP file to write the target to afterwards, red and blue
    /// swapped; null for none. When the target is the window there is neither dump nor log line; when it is a texture,
    /// the renderer's own target is the window afterwards. @return 0, or -1 when SDL refuses.
    virtual int render(SDL_Rect* src, SDL_Rect* dst, bool keepSize, const char* dumpPath) = 0;
    /// @return the width, 0 when the image never had a texture.
    virtual int getWidth() = 0;
    /// @return the height, 0 when the image never had a texture.
    virtual int getHeight() = 0;
    /// Gives the pixels in memory. @param width, height in: a box to scale the image to, keeping its ratio (either null
    /// or not above 0: the image's own size); out: the size of the pixels. @param pitch, bytesPerPixel out. Each may be
    /// null. Pixels of exactly the box's size that are there already are given as they are, and the box is not written.
    /// Otherwise the image is drawn onto the renderer's target, as a rule the window, and read back from there: red and
    /// blue swapped, and what does not fit the target zero. @return the pixels, which stay the surface's and are good
    /// until the next call or the surface's end; or null: without a texture always, with a log line, even when pixels
    /// of the box's size are there.
    virtual void* getPixels(int* pitch, int* bytesPerPixel, int* width, int* height) = 0;
};

/// The one implementation: a texture and, sometimes, a copy of its pixels in memory.
class OSTREL_API SDL2OstrelSurface : public OstrelSurface {
public:
    /// Takes both over; either may be null. The size is the texture's, 0 x 0 without one.
    SDL2OstrelSurface(SDL_Texture* texture, SDL_Surface* surface);
    SDL2OstrelSurface(const SDL2OstrelSurface&) = delete;
    SDL2OstrelSurface& operator=(const SDL2OstrelSurface&) = delete;
    /// Frees both. A texture whose renderer is gone went with it.
    ~SDL2OstrelSurface() override;
    int setBlendMode(SDL_BlendMode mode) override;
    int setAlpha(unsigned char alpha) override;
    int getBlendMode(SDL_BlendMode* mode) override;
    int getAlpha(unsigned char* alpha) override;
    int render(SDL_Rect* src, SDL_Rect* dst, bool keepSize, const char* dumpPath) override;
    int getWidth() override;
    int getHeight() override;
    void* getPixels(int* pitch, int* bytesPerPixel, int* width, int* height) override;

    /// Owned. Null when none could be made, or when the screen it was made for is gone.
    SDL_Texture* mTexture;
    /// Owned copy of the pixels, or null. Copies made by a read-back have red and blue swapped.
    SDL_Surface* mSurface;
    /// The texture's width.
    int mWidth = 0;
    /// The texture's height.
    int mHeight = 0;
};

/// Deletes an OstrelSurface; in the shape that LRUCache wants. @param surface an OstrelSurface*, or null.
OSTREL_API void deleteSurface(void* surface);

/// Makes a surface that shows the pixels of @p s, without a copy in memory; @p s stays the caller's.
/// @return the surface, or null when there is no texture for it; nothing is logged.
OSTREL_API OstrelSurface* CreateSurface(SDL_Surface* s);

/// Makes a blank surface that can be drawn on (SetRenderTarget, FillRect). Its content is undefined: clear it first.
OSTREL_API OstrelSurface* CreateSurface(int w, int h);

/// Makes a surface of raw pixels and keeps a copy of them in memory; @p pixels stay the caller's. @param depth bits in
/// a pixel, @param pitch bytes in a row, @param Rmask, Gmask, Bmask, Amask the bits of each channel.
/// @return the surface, or null: with a line on standard error, not in the log, when SDL refuses the layout; silently
///         when @p pixels is null or no texture can be made.
OSTREL_API OstrelSurface* CreateFromPixels(void* pixels, int w, int h, int depth, int pitch, unsigned Rmask,
                                           unsigned Gmask, unsigned Bmask, unsigned Amask);

/// Cuts the rectangle @p r out of the CPU copy of @p s into a new surface; @p s is unchanged. Translucent pixels are
/// blended with transparent black, and parts of @p r outside @p s stay transparent. Logs two lines on the pixel format.
/// @return a new surface, or null when @p r is null, @p s has no CPU copy, or memory is short. When only the texture
///         fails, one line is logged and the result still owns the pixels but draws nothing.
OSTREL_API OstrelSurface* CropSurface(OstrelSurface* s, SDL_Rect* r);

/// Turns @p s clockwise about its centre into a new surface that just holds it, its sides rounded down. The copy in
/// memory has red and blue swapped; when memory is short there is none, in silence. @return the surface, or null when
/// @p s has no texture or none can be made.
OSTREL_API OstrelSurface* RotateSurface(OstrelSurface* s, int degrees);

/// Blends a colour over the rectangle @p r (null for all of it) of @p s, or of the current target when @p s is null.
/// Alpha 0 changes nothing. When @p s has no texture, the renderer's own target is filled, as a rule the window.
/// @return 0, or -1 when SDL refuses or @p s cannot be drawn on, as loaded images cannot.
OSTREL_API int FillRect(OstrelSurface* s, SDL_Rect* r, unsigned char r8, unsigned char g8, unsigned char b8,
                        unsigned char a8);

/// As FillRect, but the colour, alpha included, replaces what is there.
OSTREL_API int ClearRect(OstrelSurface* s, SDL_Rect* r, unsigned char r8, unsigned char g8, unsigned char b8,
                         unsigned char a8);

/// As FillRect, with the blend mode @p mode. The renderer's colour, blend mode and target are put back.
OSTREL_API int FillRectInternal(OstrelSurface* s, SDL_Rect* r, unsigned char r8, unsigned char g8, unsigned char b8,
                                unsigned char a8, SDL_BlendMode mode);

/// Writes the CPU copy of @p s to the BMP file @p path. Without a CPU copy, nothing is written; a file that cannot be
/// written is no error.
OSTREL_API void SaveSurface2BMP(OstrelSurface* s, const char* path);

/// Gives the largest size of the ratio of @p w x @p h that fits @p maxW x @p maxH: it fills the box on one axis, so
/// small images grow too. Computed in single precision and truncated; a division by zero gives 0.
OSTREL_API void getScaledSizeKeepRatio(int w, int h, int maxW, int maxH, int& outW, int& outH);
