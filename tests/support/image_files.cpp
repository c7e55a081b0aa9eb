#include "support/image_files.h"

#include <SDL.h>
#include <SDL_image.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <stdexcept>
#include <vector>

namespace fs = std::filesystem;

namespace ostreltest {
namespace {

constexpr char kBytesOfSignature[] = "\x89PNG\r\n\x1a\n";

std::string bigEndian(uint32_t value) {
    return {static_cast<char>(value >> 24), static_cast<char>(value >> 16), static_cast<char>(value >> 8),
            static_cast<char>(value)};
}

uint32_t crc32(const std::string& bytes) {
    uint32_t crc = 0xFFFFFFFFU;
    for (const char byte : bytes) {
        crc ^= static_cast<uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~crc;
}

uint32_t adler32(const std::string& bytes) {
    uint32_t low = 1;
    uint32_t high = 0;
    for (const char byte : bytes) {
        low = (low + static_cast<uint8_t>(byte)) % 65521U;
        high = (high + low) % 65521U;
    }
    return high << 16 | low;
}

std::string chunk(const std::string& type, const std::string& data) {
    return bigEndian(static_cast<uint32_t>(data.size())) + type + data + bigEndian(crc32(type + data));
}

// A zlib stream of stored blocks: no compression, nothing to get wrong.
std::string zlibStored(const std::string& data) {
    std::string stream = "\x78\x01";
    constexpr std::size_t kMostInABlock = 65535;
    for (std::size_t at = 0; at < data.size(); at += kMostInABlock) {
        const std::string block = data.substr(at, kMostInABlock);
        const auto length = static_cast<uint16_t>(block.size());
        const auto complement = static_cast<uint16_t>(~length);
        stream += at + block.size() == data.size() ? '\1' : '\0';
        stream += {static_cast<char>(length), static_cast<char>(length >> 8), static_cast<char>(complement),
                   static_cast<char>(complement >> 8)};
        stream += block;
    }
    return stream + bigEndian(adler32(data));
}

std::vector<Colour> paletteOf(const Picture& picture) {
    std::vector<Colour> palette;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const Colour colour = picture.at(x, y);
            if (std::find(palette.begin(), palette.end(), colour) == palette.end()) palette.push_back(colour);
        }
    }
    if (palette.size() > 256) throw std::logic_error("too many colours for a palette");
    return palette;
}

std::string pixelBytes(const Colour& c, PngColours colours, const std::vector<Colour>& palette) {
    const auto byte = [](auto value) { return static_cast<char>(value); };
    switch (colours) {
        case PngColours::Grey:
            return {byte(c.r)};
        case PngColours::Rgb:
            return {byte(c.r), byte(c.g), byte(c.b)};
        case PngColours::Palette:
            return {byte(std::find(palette.begin(), palette.end(), c) - palette.begin())};
        case PngColours::GreyAlpha:
            return {byte(c.r), byte(c.a)};
        case PngColours::Rgba:
            return {byte(c.r), byte(c.g), byte(c.b), byte(c.a)};
    }
    return {};
}

// The picture with three bytes in a pixel; the caller frees it.
SDL_Surface* rgbSurface(const Picture& picture) {
    SDL_Surface* surface =
        SDL_CreateRGBSurfaceWithFormat(0, picture.width(), picture.height(), 24, SDL_PIXELFORMAT_RGB24);
    for (int y = 0; y < picture.height(); ++y) {
        auto* pixel = static_cast<uint8_t*>(surface->pixels) + static_cast<std::ptrdiff_t>(y) * surface->pitch;
        for (int x = 0; x < picture.width(); ++x) {
            const Colour colour = picture.at(x, y);
            *pixel++ = colour.r;
            *pixel++ = colour.g;
            *pixel++ = colour.b;
        }
    }
    return surface;
}

}  // namespace

std::string pngBytes(const Picture& picture, PngColours colours) {
    const std::vector<Colour> palette = colours == PngColours::Palette ? paletteOf(picture) : std::vector<Colour>{};
    std::string header =
        bigEndian(static_cast<uint32_t>(picture.width())) + bigEndian(static_cast<uint32_t>(picture.height()));
    header += {8, static_cast<char>(colours), 0, 0, 0};
    std::string rows;
    for (int y = 0; y < picture.height(); ++y) {
        rows += '\0';
        for (int x = 0; x < picture.width(); ++x) rows += pixelBytes(picture.at(x, y), colours, palette);
    }
    std::string file = kBytesOfSignature + chunk("IHDR", header);
    if (colours == PngColours::Palette) {
        std::string entries;
        for (const Colour& colour : palette) entries += pixelBytes(colour, PngColours::Rgb, {});
        file += chunk("PLTE", entries);
    }
    return file + chunk("IDAT", zlibStored(rows)) + chunk("IEND", "");
}

void writeJpeg(const std::string& path, const Picture& picture) {
    fs::create_directories(fs::path(path).parent_path());
    SDL_Surface* surface = rgbSurface(picture);
    IMG_SaveJPG(surface, path.c_str(), 100);
    SDL_FreeSurface(surface);
}

void writeBmp24(const std::string& path, const Picture& picture) {
    fs::create_directories(fs::path(path).parent_path());
    SDL_Surface* surface = rgbSurface(picture);
    SDL_SaveBMP(surface, path.c_str());
    SDL_FreeSurface(surface);
}

}  // namespace ostreltest
