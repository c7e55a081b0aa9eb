#include "letter_pad.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "ostrel/input.h"
#include "ostrel/utf8_string.h"

namespace launcher {
namespace {

constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
constexpr int kFixedKeys = static_cast<int>(sizeof(kLetters)) - 1;
constexpr int kFixedRows = kFixedKeys / LetterPad::kColumns;
static_assert(kFixedRows * LetterPad::kColumns == kFixedKeys, "the offered characters have a row of their own");

constexpr SDL_Rect kFirstKey{22, 156, 56, 56};
constexpr int kKeyStep = 64;

int columnOf(int key) { return key % LetterPad::kColumns; }
int rowOf(int key) { return key / LetterPad::kColumns; }

}  // namespace

bool LetterPad::move(int key) {
    const int rows = rowOf(count() - 1) + 1;
    const int rowStart = rowOf(mCursor) * kColumns;
    const int rowEnd = std::min(rowStart + kColumns, count()) - 1;
    switch (key) {
        case KEY_UP:
        case KEY_DOWN: {
            const int row = (rowOf(mCursor) + (key == KEY_UP ? rows - 1 : 1)) % rows;
            mCursor = std::min(row * kColumns + columnOf(mCursor), count() - 1);
            return true;
        }
        case KEY_LEFT:
            mCursor = mCursor == rowStart ? rowEnd : mCursor - 1;
            return true;
        case KEY_RIGHT:
            if (mCursor == rowEnd) return false;
            ++mCursor;
            return true;
        default:
            return true;
    }
}

void LetterPad::wrapRight() { mCursor = rowOf(mCursor) * kColumns; }

// Who was choosing characters goes on with them as long as there are any, else with the digits above.
void LetterPad::offer(std::vector<NextCharacter> characters) {
    mOffered = std::move(characters);
    mPage = 0;
    mCursor = std::min(mCursor, count() - 1);
}

void LetterPad::turnPage(int direction) {
    if (pageCount() == 0) return;
    mPage = (mPage + pageCount() + direction) % pageCount();
    mCursor = std::min(mCursor, count() - 1);
}

int LetterPad::pageCount() const { return (static_cast<int>(mOffered.size()) + kColumns - 1) / kColumns; }

int LetterPad::offeredCount() const { return std::min(static_cast<int>(mOffered.size()) - mPage * kColumns, kColumns); }

const NextCharacter& LetterPad::offered(int key) const {
    return mOffered[static_cast<std::size_t>(mPage * kColumns + key - kFixedKeys)];
}

int LetterPad::count() const { return kFixedKeys + offeredCount(); }

std::string LetterPad::label(int key) const {
    return key < kFixedKeys ? std::string(1, kLetters[key]) : offered(key).character;
}

SDL_Rect LetterPad::place(int key) const {
    return {kFirstKey.x + kKeyStep * columnOf(key), kFirstKey.y + kKeyStep * rowOf(key), kFirstKey.w, kFirstKey.h};
}

std::string LetterPad::typed(const std::string& word) const {
    if (Utf8String(word.c_str()).length() >= kLongestWord) return word;
    if (mCursor >= kFixedKeys) return offered(mCursor).word;
    return word + static_cast<char>(std::tolower(static_cast<unsigned char>(kLetters[mCursor])));
}

std::string withoutLast(const std::string& word) {
    const Utf8String characters(word.c_str());
    const std::size_t length = characters.length();
    return length == 0 ? "" : characters.substr(0, length - 1).c_str();
}

std::string typable(const std::string& word) {
    return Utf8String(word.c_str()).substr(0, LetterPad::kLongestWord).c_str();
}

}  // namespace launcher
