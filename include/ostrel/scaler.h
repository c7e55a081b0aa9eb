/// @file  scaler.h: software scalers over raw pixels.
/// Threads: any, except ScaleSurface (UI thread).
#pragma once
#include "ostrel/export.h"

class OstrelSurface;

OSTREL_API void resizeBilinear_cpu(const unsigned* src, unsigned* dst, int srcW, int srcH, int dstW, int dstH,
                                   int swapRB);
OSTREL_API void resizeBilinear_cpu_argb(const unsigned* src, unsigned* dst, int srcW, int srcH, int dstW, int dstH,
                                        int swapRB);
OSTREL_API void bitmap_scale_bilinear(unsigned x, unsigned y, unsigned w, unsigned h, unsigned dstW, unsigned dstH,
                                      unsigned srcPitch, unsigned reserved, unsigned* src, unsigned* dst);
OSTREL_API void bitmap_scale(unsigned short x, unsigned short y, unsigned short w, unsigned short h, unsigned dstW,
                             unsigned dstH, unsigned srcPitch, unsigned dstSkip, unsigned* src, unsigned* dst);
OSTREL_API void sdl_rs90_scale_frame32_bresenham_horz(unsigned* dst, unsigned dstW, unsigned dstH,
                                                      unsigned dstPitchBytes, unsigned* src, unsigned srcW,
                                                      unsigned srcH, unsigned srcPitchBytes);
OSTREL_API void sdl_rs90_scale_frame16_bresenham_horz(unsigned short* dst, unsigned dstW, unsigned dstH,
                                                      unsigned dstPitchBytes, unsigned short* src, unsigned srcW,
                                                      unsigned srcH, unsigned srcPitchBytes);
OSTREL_API void bitmap_scale_bresenham(unsigned x, unsigned y, unsigned w, unsigned h, unsigned dstW, unsigned dstH,
                                       unsigned srcPitch, unsigned dstPitch, unsigned* src, unsigned* dst);
OSTREL_API OstrelSurface* ScaleSurface(OstrelSurface* s, int w, int h);
