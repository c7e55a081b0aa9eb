#include "text_layout.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "ostrel/text.h"
#include "ostrel/utf8_string.h"

namespace launcher {
namespace {

constexpr std::size_t kMostTextBytes = 4096;

bool isContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

std::size_t sequenceLength(char lead) {
    const auto byte = static_cast<unsigned char>(lead);
    if (byte < 0x80) return 1;
    if (byte >= 0xC2 && byte < 0xE0) return 2;
    if (byte >= 0xE0 && byte < 0xF0) return 3;
    return byte >= 0xF0 && byte < 0xF5 ? 4 : 0;
}

// How many bytes of text are whole characters; a control character other than line feed and tab makes it 0.
std::size_t wholeText(const std::string& text) {
    std::size_t i = 0;
    while (i < text.size()) {
        const std::size_t length = sequenceLength(text[i]);
        const bool control = static_cast<unsigned char>(text[i]) < 0x20 && text[i] != '\n' && text[i] != '\t';
        if (length == 0 || control) return 0;
        if (i + length > text.size()) return i;  // the reading stopped inside a character
        if (!std::all_of(text.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                         text.begin() + static_cast<std::ptrdiff_t>(i + length), isContinuation)) {
            return 0;
        }
        i += length;
    }
    return i;
}

// How many characters of line go into one row. A break at a space leaves the space behind.
std::size_t charactersThatFit(const std::string& line, TTF_Font* font, int width) {
    int unused = 0;
    int fitting = 0;
    if (TTF_MeasureUTF8(font, line.c_str(), width, &unused, &fitting) != 0) return 0;
    const Utf8String characters(line.c_str());
    const auto fit = static_cast<std::size_t>(std::max(fitting, 1));
    if (fit >= characters.length()) return characters.length();
    for (std::size_t i = fit; i > 0; --i) {
        if (characters.codePointAt(i) == ' ') return i;
    }
    return fit;
}

}  // namespace

std::string cutToFit(TTF_Font* font, const std::string& text, int width) {
    const int kept = getTruncateLen(font, text.c_str(), /*reserved=*/0, width);
    if (kept == 0) return text;
    return std::string(Utf8String(text.c_str()).substr(0, static_cast<std::size_t>(kept)).c_str()) + "...";
}

std::string readTextStart(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return "";  // a pipe would keep us waiting for ever
    std::ifstream file(path, std::ios::binary);
    std::string text(kMostTextBytes, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    std::replace(text.begin(), text.end(), '\t', ' ');
    text.resize(wholeText(text));
    return text;
}

std::vector<std::string> wrapLines(const std::string& text, TTF_Font* font, int width, std::size_t mostLines) {
    std::vector<std::string> lines;
    if (font == nullptr) return lines;
    std::size_t begin = 0;
    while (begin < text.size() && lines.size() < mostLines) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        std::string rest = text.substr(begin, end - begin);
        begin = end + 1;
        do {
            const Utf8String characters(rest.c_str());
            const std::size_t fit = charactersThatFit(rest, font, width);
            if (fit >= characters.length() || fit == 0) {
                lines.push_back(rest);
                break;
            }
            lines.emplace_back(characters.substr(0, fit).c_str());
            rest.erase(0, characters.byteIndex(fit));
            if (!rest.empty() && rest.front() == ' ') rest.erase(0, 1);
        } while (!rest.empty() && lines.size() < mostLines);
    }
    return lines;
}

}  // namespace launcher
