#include "art_loader.h"

#include <condition_variable>
#include <filesystem>
#include <map>
#include <mutex>
#include <tuple>

#include "art_picture.h"
#include "game_system.h"
#include "ostrel/bg_work_thread.h"

namespace launcher {
namespace {

constexpr int kMostWaiting = 12;  // two screens full: what was scrolled past longer ago need not be decoded any more
constexpr int kUploadsInAFrame = 3;

// What the two threads share. The loader and every job hold it, so it outlives whichever goes first.
struct Desk {
    std::mutex mutex;
    std::condition_variable idle;  // the last job has gone
    int jobs = 0;                  // guarded by mutex
};

enum class Progress { Waiting, Decoded, Dropped };

// One wish for a picture, shared by the loader and its job.
struct Request {
    std::string file;
    int width = 0;
    int height = 0;
    // Guarded by the desk's mutex:
    bool wanted = true;
    Progress progress = Progress::Waiting;
    Pixels pixels;  // null for a picture that is missing or broken
};

class ArtJob : public BGWorker {
public:
    ArtJob(std::shared_ptr<Desk> desk, std::shared_ptr<Request> request)
        : mDesk(std::move(desk)), mRequest(std::move(request)) {
        const std::lock_guard<std::mutex> lock(mDesk->mutex);
        ++mDesk->jobs;
    }

    // A job may end without having run: the queue was full, or the loader has gone. The request can be made again then.
    ~ArtJob() override {
        const std::lock_guard<std::mutex> lock(mDesk->mutex);
        if (mRequest->progress == Progress::Waiting) mRequest->progress = Progress::Dropped;
        if (--mDesk->jobs == 0) mDesk->idle.notify_all();
    }

    ArtJob(const ArtJob&) = delete;
    ArtJob& operator=(const ArtJob&) = delete;

    void work() override {
        if (isWanted()) mPixels = loadPicture(mRequest->file, mRequest->width, mRequest->height);
    }

    void done() override {
        const std::lock_guard<std::mutex> lock(mDesk->mutex);
        mRequest->pixels = std::move(mPixels);
        mRequest->progress = Progress::Decoded;
    }

private:
    bool isWanted() const {
        const std::lock_guard<std::mutex> lock(mDesk->mutex);
        return mRequest->wanted;
    }

    std::shared_ptr<Desk> mDesk;
    std::shared_ptr<Request> mRequest;
    Pixels mPixels;
};

using Key = std::tuple<std::string, int, int>;

// A picture that the present frame or the one before has asked for.
struct Entry {
    std::shared_ptr<Request> request;  // null once the picture is there, or known to be missing
    std::unique_ptr<OstrelSurface> picture;
    bool asked = true;  // in the present frame
};

}  // namespace

struct ArtLoader::State {
    std::shared_ptr<Desk> desk = std::make_shared<Desk>();
    std::map<Key, Entry> entries;
    BGWorkThread thread{kMostWaiting};  // goes first: it hands over to nothing afterwards

    void request(const Key& key, Entry& entry) {
        entry.request = std::make_shared<Request>();
        std::tie(entry.request->file, entry.request->width, entry.request->height) = key;
        thread.addWorker(new ArtJob(desk, entry.request));
    }

    // What the worker has done of a request; its pixels are taken over.
    Progress look(Request& request, Pixels& pixels) {
        const std::lock_guard<std::mutex> lock(desk->mutex);
        if (request.progress == Progress::Decoded) pixels = std::move(request.pixels);
        return request.progress;
    }

    void cancel(Entry& entry) {
        if (entry.request == nullptr) return;
        const std::lock_guard<std::mutex> lock(desk->mutex);
        entry.request->wanted = false;
    }
};

ArtLoader::ArtLoader() : mState(std::make_unique<State>()) {}

ArtLoader::~ArtLoader() { clear(); }

OstrelSurface* ArtLoader::get(const std::string& file, int width, int height) {
    if (file.empty() || width < 1 || height < 1) return nullptr;
    const Key key{file, width, height};
    const auto [place, isNew] = mState->entries.try_emplace(key);
    Entry& entry = place->second;
    entry.asked = true;
    if (isNew) mState->request(key, entry);
    return entry.picture.get();
}

void ArtLoader::beginFrame() {
    int uploads = 0;
    for (auto& [key, entry] : mState->entries) {
        if (entry.request == nullptr || uploads == kUploadsInAFrame) continue;
        Pixels pixels;
        const Progress progress = mState->look(*entry.request, pixels);
        if (progress == Progress::Dropped) mState->request(key, entry);
        if (progress != Progress::Decoded) continue;
        entry.request = nullptr;
        if (pixels == nullptr) continue;  // missing, and stays so while the screen asks for it
        entry.picture.reset(CreateSurface(pixels.get()));
        ++uploads;
    }
}

bool ArtLoader::endFrame() {
    bool onTheWay = false;
    for (auto it = mState->entries.begin(); it != mState->entries.end();) {
        Entry& entry = it->second;
        if (!entry.asked) {
            mState->cancel(entry);
            it = mState->entries.erase(it);
            continue;
        }
        entry.asked = false;
        onTheWay = onTheWay || entry.request != nullptr;
        ++it;
    }
    return onTheWay;
}

void ArtLoader::clear() {
    for (auto& [key, entry] : mState->entries) mState->cancel(entry);
    mState->entries.clear();
}

int ArtLoader::loadedCount() const {
    int count = 0;
    for (const auto& [key, entry] : mState->entries) count += entry.picture != nullptr ? 1 : 0;
    return count;
}

bool ArtLoader::idle() const {
    const std::lock_guard<std::mutex> lock(mState->desk->mutex);
    return mState->desk->jobs == 0;
}

void ArtLoader::awaitIdle() const {
    std::unique_lock<std::mutex> lock(mState->desk->mutex);
    mState->desk->idle.wait(lock, [&] { return mState->desk->jobs == 0; });
}

namespace {

std::unique_ptr<ArtLoader>& sharedLoader() {
    static std::unique_ptr<ArtLoader> loader;
    return loader;
}

}  // namespace

ArtLoader& artLoader() {
    if (sharedLoader() == nullptr) sharedLoader() = std::make_unique<ArtLoader>();
    return *sharedLoader();
}

void freeArt() { sharedLoader() = nullptr; }

std::string artOf(const std::string& path, bool isFolder) {
    const std::string name = nameIn(path);
    const std::string title = isFolder ? name : std::filesystem::path(name).stem().string();
    const std::string file = folderOf(path) + "/.art/" + title + ".png";
    std::error_code error;
    return std::filesystem::is_regular_file(file, error) ? file : std::string();
}

}  // namespace launcher
