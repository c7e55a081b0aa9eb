/// @file  screen.h: the one window, the one renderer, and where drawing goes.
/// Threads: UI thread only (the one that called ScreenInit).  Units: pixels, origin top left.
/// Pixels: textures and read-backs are ABGR8888 (bytes R, G, B, A in memory).
#pragma once
#include <SDL.h>

#include "ostrel/export.h"

class OstrelSurface;

/// The renderer that everything draws with: null before ScreenInit, and again once the screen was let go.
extern OSTREL_API SDL_Renderer* gRenderer;

OSTREL_API int ScreenInit(int width, int height, int depth, int rotate);
OSTREL_API int ScreenUninit();
OSTREL_API int ScreenUpdateAndFlip();
OSTREL_API SDL_Surface* create_surface(int w, int h);
OSTREL_API OstrelSurface* GetRenderTarget();
OSTREL_API int SetRenderTarget(OstrelSurface* s);
OSTREL_API OstrelSurface* ScreenSnapshot();
OSTREL_API void lcd_fb_flip();
OSTREL_API void lcd_fb_wait_for_vsync();
