/// @file  bg_work_thread.h: one thread for small jobs that would hold up the drawing, the newest request first.
/// A player who scrolls fast asks for many pictures and looks at the last ones: those are made first, and what has
/// waited longest is dropped once too many wait. Threads: any may add and take jobs. work() and done() run on the
/// worker thread, named "bgworker"; they may load and decode (IMG_Load), but never touch textures or anything else that
/// draws, which belongs to the UI thread.
#pragma once
#include <SDL_mutex.h>
#include <SDL_thread.h>

#include <list>

#include "ostrel/export.h"
#include "ostrel/thread_safety.h"

/// A job. The queue owns it from addWorker on and deletes it after done(), or without calling either when it is
/// dropped: a job that has to report that it was dropped does so in its destructor.
class OSTREL_API BGWorker {
public:
    /// Jobs are deleted through this class.
    virtual ~BGWorker();
    /// Does the job. Runs on the worker thread, with no lock held: it may add further jobs.
    virtual void work() = 0;
    /// Hands the result over. Called right after work(), on the same thread.
    virtual void done() = 0;
};

/// The thread and the jobs that wait for it, last in, first out.
class OSTREL_API BGWorkThread {
public:
    /// Starts the thread. @param maxWorkers how many jobs may wait; 5 when it is 0 or negative. When SDL cannot make a
    /// thread, jobs only wait, without a message.
    explicit BGWorkThread(int maxWorkers);
    /// Lets the running job finish, ends the thread and deletes the jobs that still wait, newest first, on the caller's
    /// thread. Their destructors may still add and take jobs; what they add is deleted as well. Not to be called from a
    /// job.
    ~BGWorkThread();
    BGWorkThread(const BGWorkThread&) = delete;
    BGWorkThread& operator=(const BGWorkThread&) = delete;

    /// Queues @p worker as the newest job, and owns it from here on; a null one takes up a place and is skipped in its
    /// turn. When as many wait as may, the oldest is deleted before this returns, on the caller's thread. @return 0.
    int addWorker(BGWorker* worker);
    /// @return the newest waiting job, now the caller's, or null when none waits. The worker thread takes its jobs
    /// here.
    BGWorker* getWorker();
    /// What the worker thread runs. @param thread the BGWorkThread; null ends at once. @return 0.
    static int work_thread(void* thread);

private:
    OSTREL_HIDDEN bool waitForWorker();

    int mMaxWorkers;
    SDL_mutex* mMutex;
    SDL_cond* mCond;                                          // a worker was added, or the thread is to end
    std::list<BGWorker*> mWorkers OSTREL_GUARDED_BY(mMutex);  // newest first
    SDL_Thread* mThread = nullptr;
    bool mRunning OSTREL_GUARDED_BY(mMutex) = true;
};
