#include "game_index.h"

#include <strings.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <map>
#include <set>
#include <utility>

#include "ostrel/pinyin.h"
#include "ostrel/utf8_string.h"

namespace fs = std::filesystem;

namespace launcher {
namespace {

using Rows = std::vector<std::unique_ptr<GameRow>>;

// Walks the folders with a list of those still to be read, so that their depth costs no stack.
class Scan {
public:
    Scan(Rows& rows, std::size_t mostGames) : mRows(rows), mMostGames(mostGames) {}

    void run(const std::string& directory) {
        mFolders.emplace_back(directory);
        while (!mFolders.empty() && mRows.size() < mMostGames) {
            const fs::path folder = std::move(mFolders.back());
            mFolders.pop_back();
            if (isNew(folder)) read(folder);
        }
    }

private:
    // The same folder under another name has the same number on the same device.
    bool isNew(const fs::path& folder) {
        struct stat status {};
        return stat(folder.c_str(), &status) == 0 && mSeen.emplace(status.st_dev, status.st_ino).second;
    }

    void read(const fs::path& folder) {
        std::error_code error;
        for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
            if (mRows.size() >= mMostGames) return;
            add(*it);
        }
    }

    void add(const fs::directory_entry& entry) {
        const std::string name = entry.path().filename().string();
        if (!isListed(name.c_str())) return;
        std::error_code ignored;
        if (entry.is_directory(ignored)) {
            mFolders.push_back(entry.path());
        } else if (entry.is_regular_file(ignored)) {
            std::unique_ptr<GameRow> row(makeGameRow(name.c_str(), entry.path().c_str(), DIR_ENTRY_FILE, nullptr));
            if (row != nullptr) mRows.push_back(std::move(row));
        }
    }

    Rows& mRows;
    const std::size_t mMostGames;
    std::vector<fs::path> mFolders;
    std::set<std::pair<dev_t, ino_t>> mSeen;
};

bool comesBefore(const std::unique_ptr<GameRow>& a, const std::unique_ptr<GameRow>& b) {
    const int order = strcasecmp(a->label.c_str(), b->label.c_str());
    return order != 0 ? order < 0 : a->path < b->path;
}

bool beginsWith(const std::string& text, const std::string& start) { return text.compare(0, start.size(), start) == 0; }

// The part of a title that a word stands for.
struct Hit {
    std::size_t begin = 0;
    std::size_t end = 0;
};

bool findHit(GameRow& row, const std::string& word, Hit& hit) {
    const char* title = row.label.c_str();
    const char* start = strcasestr(title, word.c_str());
    auto bytes = static_cast<int>(word.size());
    if (start == nullptr && PinyinStrstr(title, row.getTextD().c_str(), word.c_str(), &start, &bytes) != 0)
        return false;
    hit.begin = static_cast<std::size_t>(start - title);
    hit.end = std::min(hit.begin + static_cast<std::size_t>(bytes), row.label.size());
    return true;
}

// The character at an offset, "" when it can be typed or is no whole character.
std::string untypableAt(const std::string& title, std::size_t offset) {
    const Utf8String rest(title.c_str() + offset);
    const std::string character = rest.substr(0, 1).c_str();
    return character.size() > 1 ? character : "";
}

struct Count {
    NextCharacter next;
    int titles = 0;
};

}  // namespace

GameIndex::GameIndex(const std::string& directory, std::size_t mostGames) {
    Scan(mRows, mostGames).run(directory);
    std::sort(mRows.begin(), mRows.end(), comesBefore);
    find("");
}

const std::vector<GameRow*>& GameIndex::find(const std::string& word) {
    if (mWord.empty() || !beginsWith(word, mWord)) {
        mFound.clear();
        for (const std::unique_ptr<GameRow>& row : mRows) mFound.push_back(row.get());
    }
    mWord = word;
    if (word.empty()) return mFound;
    mFound.erase(std::remove_if(mFound.begin(), mFound.end(), [&word](GameRow* row) { return !row->matches(word); }),
                 mFound.end());
    return mFound;
}

std::vector<NextCharacter> GameIndex::nextCharacters(const std::string& word, std::size_t most) {
    std::vector<Count> counts;
    std::map<std::string, std::size_t> places;  // in counts, by the new word
    for (GameRow* row : find(word)) {
        Hit hit;
        if (!findHit(*row, word, hit)) continue;
        const std::string character = untypableAt(row->label, hit.end);
        if (character.empty()) continue;
        const std::string longer = row->label.substr(hit.begin, hit.end - hit.begin) + character;
        const auto [place, isNew] = places.emplace(longer, counts.size());
        if (isNew) counts.push_back({{character, longer}, 0});
        ++counts[place->second].titles;
    }
    std::stable_sort(counts.begin(), counts.end(), [](const Count& a, const Count& b) { return a.titles > b.titles; });

    std::vector<NextCharacter> next;
    std::set<std::string> offered;
    for (const Count& count : counts) {
        if (next.size() == most) break;
        if (offered.insert(count.next.character).second) next.push_back(count.next);
    }
    return next;
}

}  // namespace launcher
