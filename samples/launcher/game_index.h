/// @file  game_index.h: all games below a directory, for the search.
#pragma once
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "game_row.h"

namespace launcher {

/// A character that titles go on with.
struct NextCharacter {
    std::string character;
    std::string word;  ///< what to search for when it is chosen: the title's own text up to and with the character
};

class GameIndex {
public:
    /// As many are read at most, so that a card full of other files cannot use up the memory.
    static constexpr std::size_t kMostGames = 20000;

    /// Reads @p directory and all folders below it. Hidden entries are left out, a folder that several links lead to is
    /// read once (so links may lead round in a circle), and one that cannot be read counts as empty.
    /// @param mostGames where to stop.
    explicit GameIndex(const std::string& directory, std::size_t mostGames = kMostGames);

    /// The games whose titles @p word is found in, by title; all of them when it is empty. Letter by letter it costs
    /// less and less: a longer word is looked for among what the shorter one has found.
    /// @return rows of the index, good as long as it lives; the list itself until the next call.
    const std::vector<GameRow*>& find(const std::string& word);
    /// What a game-pad cannot type: the characters beyond ASCII that come right behind @p word in the titles that it is
    /// found in, or begin a title when it is empty; the most frequent first, each once. Initials count as what they
    /// stand for: behind "zg" comes what follows 中国, and choosing it searches for 中国 and the character.
    std::vector<NextCharacter> nextCharacters(const std::string& word, std::size_t most);
    std::size_t size() const { return mRows.size(); }

private:
    std::vector<std::unique_ptr<GameRow>> mRows;  // by title
    std::string mWord;                            // of mFound
    std::vector<GameRow*> mFound;
};

}  // namespace launcher
