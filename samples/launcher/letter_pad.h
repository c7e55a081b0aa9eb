/// @file  letter_pad.h: keys on the screen that a game-pad walks over, and the word they type.
#pragma once
#include <SDL.h>

#include <cstddef>
#include <string>
#include <vector>

#include "game_index.h"

namespace launcher {

/// Six columns: the letters, the digits, and below them a row of characters that the index offers. It draws nothing.
class LetterPad {
public:
    static constexpr int kColumns = 6;
    static constexpr std::size_t kLongestWord = 24;  ///< characters

    /// Moves the cursor; up and down go round the ends of a column. @param key KEY_UP to KEY_RIGHT.
    /// @return false when Right leaves the last column: the cursor stays, and the owner may go on to the right of it.
    bool move(int key);
    /// The cursor goes to the first column, round the end of its row.
    void wrapRight();
    /// Replaces the row of offered characters, and shows their first page. The cursor never stands on none.
    void offer(std::vector<NextCharacter> characters);
    /// Shows the next or, with -1, the previous page of them, round the ends.
    void turnPage(int direction);
    int pageCount() const;
    int page() const { return mPage; }

    /// How many keys there are; they count from 0, row by row.
    int count() const;
    int cursor() const { return mCursor; }
    std::string label(int key) const;
    SDL_Rect place(int key) const;
    /// What @p word becomes when the key under the cursor is pressed; it stays as it is when it is long enough.
    std::string typed(const std::string& word) const;

private:
    int offeredCount() const;
    const NextCharacter& offered(int key) const;

    std::vector<NextCharacter> mOffered;
    int mPage = 0;
    int mCursor = 0;
};

/// @p word without its last character.
std::string withoutLast(const std::string& word);
/// @p word, or the beginning of it that could have been typed.
std::string typable(const std::string& word);

}  // namespace launcher
