#include "ostrel/bg_work_thread.h"

#include <memory>
#include <utility>

#include "platform/handles.h"

using ostrel::MutexLock;

namespace {

constexpr int kUsualMaxWorkers = 5;

}  // namespace

BGWorker::~BGWorker() = default;

// The thread comes last: all that it looks at exists by then.
BGWorkThread::BGWorkThread(int maxWorkers)
    : mMaxWorkers(maxWorkers > 0 ? maxWorkers : kUsualMaxWorkers), mMutex(SDL_CreateMutex()), mCond(SDL_CreateCond()) {
    mThread = SDL_CreateThread(work_thread, "bgworker", this);
}

BGWorkThread::~BGWorkThread() {
    {
        const MutexLock lock(mMutex);
        mRunning = false;
        SDL_CondSignal(mCond);
    }
    SDL_WaitThread(mThread, nullptr);
    SDL_DestroyMutex(std::exchange(mMutex, nullptr));
    SDL_DestroyCond(std::exchange(mCond, nullptr));
    // Taken out one by one, without a lock: a job's destructor may still add and take jobs, with nobody beside it.
    while (!mWorkers.empty()) delete getWorker();
}

int BGWorkThread::addWorker(BGWorker* worker) {
    // Deleted when the lock has gone again: a job's destructor may do as it likes.
    std::unique_ptr<BGWorker> dropped;
    const MutexLock lock(mMutex);
    if (mWorkers.size() >= static_cast<std::size_t>(mMaxWorkers)) {
        dropped.reset(mWorkers.back());
        mWorkers.pop_back();
    }
    mWorkers.push_front(worker);
    SDL_CondSignal(mCond);
    return 0;
}

BGWorker* BGWorkThread::getWorker() {
    const MutexLock lock(mMutex);
    if (mWorkers.empty()) return nullptr;
    BGWorker* newest = mWorkers.front();
    mWorkers.pop_front();
    return newest;
}

// @return false when the thread is to end, whatever still waits.
bool BGWorkThread::waitForWorker() {
    const MutexLock lock(mMutex);
    while (mRunning && mWorkers.empty()) SDL_CondWait(mCond, mMutex);
    return mRunning;
}

int BGWorkThread::work_thread(void* thread) {
    auto* self = static_cast<BGWorkThread*>(thread);
    while (self != nullptr && self->waitForWorker()) {
        const std::unique_ptr<BGWorker> worker(self->getWorker());
        if (!worker) continue;  // a null one, or somebody else took it
        worker->work();
        worker->done();
    }
    return 0;
}
