// The inside of the bilinear scaler: one strip of destination columns at a time, by one of two roads that give the
// same bits.
#pragma once
#include <SDL_rect.h>

namespace ostrel {

// Destination columns that are worked on together. What a column needs is the same in every row, so it is computed
// once a strip; the strip is small enough for the stack, because scaling allocates nothing.
struct BilinearStrip {
    static constexpr int kColumns = 256;
    int count;              // columns in use
    int inner;              // the first so many have a right-hand neighbour in their source row; the others have none
    int x[kColumns];        // source column of the left-hand neighbours
    float dx[kColumns];     // weight of the right-hand neighbours
    float restX[kColumns];  // 1 - dx
};

// One destination row of a strip: the two source rows it lies between, and where it goes.
struct BilinearRow {
    const unsigned* above;
    const unsigned* below;
    float dy;     // weight of the row below
    float restY;  // 1 - dy
    unsigned* dst;
};

enum class ChannelOrder { Kept, RedBlueSwapped };
enum class BilinearPath { Portable, Vector };

// Fills in the columns from first on, as many as fit; every x lies within 0 .. srcW - 1.
void fillStrip(BilinearStrip& strip, int first, int srcW, int dstW);

// Whether this processor has the vector path: always on AArch64, with AVX2 and FMA on x86-64.
bool hasVectorPath();

// Scales packed rows of src (from.x wide, from.y high) into packed rows of dst. All sizes are 1 or more.
void scaleBilinear(BilinearPath path, const unsigned* src, SDL_Point from, unsigned* dst, SDL_Point to,
                   ChannelOrder order);

// The vector path of one row. Returns how many columns it did, at most strip.inner; the portable path does the rest.
int scaleRowVector(const BilinearStrip& strip, const BilinearRow& row, ChannelOrder order);

}  // namespace ostrel
