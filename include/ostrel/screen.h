/// @file  screen.h: the one window, the one renderer, and where drawing goes.
/// Threads: UI thread only (the one that called ScreenInit).  Units: pixels, origin top left.
/// Pixels: textures and read-backs are ABGR8888 (bytes R, G, B, A in memory).
/// Rotation: the panel of some consoles is mounted turned. Programs then draw into an off-screen texture of the logical
///   size, which ScreenUpdateAndFlip turns by 270 degrees onto a window whose sides are swapped.
/// Without a screen (before ScreenInit, after ScreenUninit, after SDL has ended) nothing here or in surface.h draws,
///   presents or frees a texture: drawing answers -1, makers of surfaces null; only CropSurface and
///   LoadOstrelSurfaceSpecSized, which work in memory, still give surfaces, without a texture. Surfaces may outlive the
///   screen; they then have no texture, and draw nothing in the next one.
#pragma once
#include <SDL.h>

#include "ostrel/export.h"

class OstrelSurface;

/// The renderer that everything draws with. Null before ScreenInit, when ScreenInit failed to make it, and once the
/// library has answered SDL_QUIT; after ScreenUninit it keeps its value, which nobody may use.
extern OSTREL_API SDL_Renderer* gRenderer;

/// Opens the window "Main" and its renderer, accelerated and in step with the display, and makes the screen the target
/// of drawing. Comes before every surface; a screen that is still there is let go first, as by ScreenUninit.
/// @param width, height the logical size; @param depth only written to the log; @param rotate 0 for a window of this
/// size, anything else for a window of @p height x @p width and a turned picture.
/// @return 1 when window and renderer exist, else 0: the two log lines then tell which is missing, and ScreenUninit
///         frees what was made.
OSTREL_API int ScreenInit(int width, int height, int depth, int rotate);

/// Lets the screen go: empties gTextSurfaceCache and gIconCache, takes their textures from the surfaces that are still
/// alive, then destroys the off-screen texture, the renderer and the window. Once for each ScreenInit, a failed one
/// included; further calls do nothing. @return 0.
OSTREL_API int ScreenUninit();

/// Shows the frame. With rotation the off-screen texture is first turned onto the renderer's target, one pixel further
/// to the left than the window's centre. The frame is not cleared: the windows do that. @return 0.
OSTREL_API int ScreenUpdateAndFlip();

/// @return a new software surface of 32-bit ARGB8888, all zero, which the caller frees with SDL_FreeSurface; null for a
///         negative size, one of more than 2 GiB, or when memory is short. Where surface.h reads a target back into
///         such a surface, red and blue change places: the bytes arrive as R, G, B, A.
OSTREL_API SDL_Surface* create_surface(int w, int h);

/// @return what SetRenderTarget was last given, null included; still the caller's.
OSTREL_API OstrelSurface* GetRenderTarget();

/// Says where surfaces are drawn from now on: into the texture of @p s, or, when @p s is null, on the screen. For a
/// surface without a texture that is the window itself, with rotation too. The renderer's own target changes only for
/// the duration of each draw. @p s stays the caller's; when it is deleted while it is the target, drawing goes back to
/// the screen. @return 0.
OSTREL_API int SetRenderTarget(OstrelSurface* s);

/// Reads what stands in the renderer's target, as a rule the window, into a new surface that the caller owns. It has
/// the window's size, with rotation too, and keeps the pixels in memory, red and blue in their places. What the target
/// does not cover stays transparent black. Only what the renderer's viewport shows is read: a host that set one of its
/// own resets it first. @return the surface, or null when there is no screen. When memory is short, the surface lacks
///         its texture, or is empty: 0 x 0, with neither texture nor pixels. Nothing is logged.
OSTREL_API OstrelSurface* ScreenSnapshot();

/// Does nothing but log "FBIOPAN_DISPLAY fail": no frame buffer is opened. Kept for programs that link to it.
OSTREL_API void lcd_fb_flip();

/// Does nothing. Kept for programs that link to it.
OSTREL_API void lcd_fb_wait_for_vsync();
