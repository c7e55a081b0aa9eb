// Image files as a theme may hold them: PNG of every colour type, JPEG and BMP.
#pragma once
#include <string>

#include "support/picture.h"

namespace ostreltest {

enum class PngColours { Grey = 0, Rgb = 2, Palette = 3, GreyAlpha = 4, Rgba = 6 };  // numbers of the file format

// The bytes of a PNG file. Grey takes the red channel; a palette holds up to 256 colours, without alpha.
std::string pngBytes(const Picture& picture, PngColours colours);

void writeJpeg(const std::string& path, const Picture& picture);
void writeBmp24(const std::string& path, const Picture& picture);

}  // namespace ostreltest
