/// @file  scaler.h: software scalers over raw pixels, for thumbnails and for the frames of games.
/// Threads: any, except ScaleSurface (UI thread).  Units: pixels, unless a name ends in Bytes.
/// Pixels: 32 bits in four channels of 8, in any order, or 16 bits in RGB565.  Owner: the buffers stay with the caller,
/// and nothing is allocated.  Failures: a null buffer, and a size of 0 or below 0 (which an unsigned parameter takes
/// for one beyond the largest int), leave the destination as it is, without a message, unless a function says
/// otherwise; the caller answers for the sizes of both buffers, which must not overlap.
#pragma once
#include "ostrel/export.h"

class OstrelSurface;

/// Scales a picture of packed 32-bit rows into another one, each pixel blended from its four neighbours. Single
/// precision with stated rounding: the result is the same to the bit on every processor. Destination pixel (j, i) lies
/// at column j * (srcW - 1) / dstW and row i * (srcH - 1) / dstH of the source, so the last source column and row are
/// approached and never reached, and a picture scaled to its own size is not its own copy.
/// @param swapRB non-zero exchanges the channels in bits 0-7 and 16-23 (red and blue); the others keep their places.
OSTREL_API void resizeBilinear_cpu(const unsigned* src, unsigned* dst, int srcW, int srcH, int dstW, int dstH,
                                   int swapRB);

/// The same as resizeBilinear_cpu, after one log line with the four sizes, whatever they are.
OSTREL_API void resizeBilinear_cpu_argb(const unsigned* src, unsigned* dst, int srcW, int srcH, int dstW, int dstH,
                                        int swapRB);

/// resizeBilinear_cpu_argb of w * h packed pixels that begin at pixel (@p x, @p y) of @p src.
/// @param srcPitch where row @p y begins: it finds the first pixel alone, the rows after it are read @p w apart, not
///        @p srcPitch. @param reserved not used.
OSTREL_API void bitmap_scale_bilinear(unsigned x, unsigned y, unsigned w, unsigned h, unsigned dstW, unsigned dstH,
                                      unsigned srcPitch, unsigned reserved, unsigned* src, unsigned* dst);

/// Scales the rectangle (@p x, @p y, @p w, @p h) of @p src to the nearest pixels above and to the left, in 16.16 fixed
/// point. Columns and rows are counted modulo 65536.
/// @param dstW, dstH at least 1: one pixel and one row are written even when they are 0.
/// @param w, h of 0 repeat the pixel at @p x or the row at @p y.
/// @param srcPitch pixels from one row of @p src to the next. @param dstSkip pixels left alone after each written row.
OSTREL_API void bitmap_scale(unsigned short x, unsigned short y, unsigned short w, unsigned short h, unsigned dstW,
                             unsigned dstH, unsigned srcPitch, unsigned dstSkip, unsigned* src, unsigned* dst);

/// Scales a frame of 32-bit pixels line by line: source rows are taken or left out, never blended; along a row two
/// neighbours are averaged where at least half the step between them is done. A row that shrinks by less than a third
/// waits for longer: for 2 * dstW - srcW of the step's dstW parts, so that most of its pixels stay sharp. Averages
/// round up in the three colours of bits 0-23, and the top channel loses its carry (two times 0xFF averages to 0x7F).
/// @param dstPitchBytes, srcPitchBytes from one row to the next; what is left of a whole pixel is cut off. In rows that
///        grow, the last average may take in the pixel behind the row's end, but never one behind the last row's.
OSTREL_API void sdl_rs90_scale_frame32_bresenham_horz(unsigned* dst, unsigned dstW, unsigned dstH,
                                                      unsigned dstPitchBytes, unsigned* src, unsigned srcW,
                                                      unsigned srcH, unsigned srcPitchBytes);

/// The same for a frame of RGB565 pixels; averages round up in all three colours.
OSTREL_API void sdl_rs90_scale_frame16_bresenham_horz(unsigned short* dst, unsigned dstW, unsigned dstH,
                                                      unsigned dstPitchBytes, unsigned short* src, unsigned srcW,
                                                      unsigned srcH, unsigned srcPitchBytes);

/// sdl_rs90_scale_frame32_bresenham_horz of the rectangle (@p x, @p y, @p w, @p h) of @p src.
/// @param srcPitch, dstPitch in pixels; a @p dstPitch of 0 stands for @p dstW.
OSTREL_API void bitmap_scale_bresenham(unsigned x, unsigned y, unsigned w, unsigned h, unsigned dstW, unsigned dstH,
                                       unsigned srcPitch, unsigned dstPitch, unsigned* src, unsigned* dst);

/// Makes a copy of @p s of another size out of the pixels that it keeps in memory; @p s is unchanged. A source of 32
/// bits per pixel is scaled by resizeBilinear_cpu. One of any other depth is not scaled: its top left corner is taken
/// at the new size, transparent where @p s is smaller, and then smoothed by the same scaler.
/// @return a new surface with pixels in memory (ARGB8888), the caller's; or null, without a message, when @p s is null
///         or keeps no pixels, a size is below 1, memory is short or the texture fails.
OSTREL_API OstrelSurface* ScaleSurface(OstrelSurface* s, int w, int h);
