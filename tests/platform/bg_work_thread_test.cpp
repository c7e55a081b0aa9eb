#include "ostrel/bg_work_thread.h"

#include <dlfcn.h>
#include <pthread.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "support/abi.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::function<void()>& whenJoining() {
    static std::function<void()> call;
    return call;
}

}  // namespace

// A program's own definition comes before SDL's: the test learns that a destructor has told the thread to end and is
// now waiting for it.
extern "C" void SDL_WaitThread(SDL_Thread* thread, int* status) {
    if (whenJoining()) whenJoining()();
    using Wait = void (*)(SDL_Thread*, int*);
    static const auto sdls = reinterpret_cast<Wait>(dlsym(RTLD_NEXT, "SDL_WaitThread"));
    sdls(thread, status);
}

namespace {

// What the jobs of a test did, in order, and a way to wait for it.
class Journal {
public:
    void write(const std::string& line) {
        const std::lock_guard<std::mutex> guard(mLock);
        mLines.push_back(line);
        mChanged.notify_all();
    }
    void waitFor(const std::string& line) {
        std::unique_lock<std::mutex> guard(mLock);
        mChanged.wait(guard, [&] { return std::find(mLines.begin(), mLines.end(), line) != mLines.end(); });
    }
    std::vector<std::string> lines() {
        const std::lock_guard<std::mutex> guard(mLock);
        return mLines;
    }
    void clear() {
        const std::lock_guard<std::mutex> guard(mLock);
        mLines.clear();
    }

private:
    std::mutex mLock;
    std::condition_variable mChanged;
    std::vector<std::string> mLines;
};

class Job : public BGWorker {
public:
    Job(Journal& journal, std::string name, std::function<void()> onWork = {})
        : mJournal(journal), mName(std::move(name)), mOnWork(std::move(onWork)) {}
    ~Job() override { mJournal.write(mName + " deleted"); }
    void work() override {
        mJournal.write(mName + " works");
        if (mOnWork) mOnWork();
    }
    void done() override { mJournal.write(mName + " done"); }

private:
    Journal& mJournal;
    std::string mName;
    std::function<void()> mOnWork;
};

// A door that a job waits at until the test opens it.
class Door {
public:
    void open() {
        const std::lock_guard<std::mutex> guard(mLock);
        mOpen = true;
        mChanged.notify_all();
    }
    void pass() {
        std::unique_lock<std::mutex> guard(mLock);
        mChanged.wait(guard, [&] { return mOpen; });
    }

private:
    std::mutex mLock;
    std::condition_variable mChanged;
    bool mOpen = false;
};

class BGWorkThreadTest : public ::testing::Test {
protected:
    ~BGWorkThreadTest() override {
        whenJoining() = nullptr;
        door.open();
    }

    Job* job(const std::string& name, std::function<void()> onWork = {}) {
        return new Job(journal, name, std::move(onWork));
    }

    // Gives the thread a job that lasts until the door opens, so that whatever comes now has to wait.
    void keepBusy(BGWorkThread& thread) {
        thread.addWorker(job("busy", [this] { door.pass(); }));
        journal.waitFor("busy works");
        journal.clear();
    }

    Journal journal;
    Door door;
};

TEST(BGWorkerTest, TheOperationsHaveTheirSlots) {
    EXPECT_EQ(ostreltest::slotOf(&BGWorker::work), 3);
    EXPECT_EQ(ostreltest::slotOf(&BGWorker::done), 4);
}

TEST_F(BGWorkThreadTest, JobWorksIsDoneAndIsDeleted) {
    BGWorkThread thread(3);
    EXPECT_EQ(thread.addWorker(job("A")), 0);
    journal.waitFor("A deleted");
    EXPECT_THAT(journal.lines(), ElementsAre("A works", "A done", "A deleted"));
}

TEST_F(BGWorkThreadTest, JobsRunOnTheThreadNamedBgworker) {
    BGWorkThread thread(3);
    std::string name;
    std::thread::id id;
    thread.addWorker(job("A", [&] {
        char text[32] = "";
        pthread_getname_np(pthread_self(), text, sizeof text);
        name = text;
        id = std::this_thread::get_id();
    }));
    journal.waitFor("A deleted");
    EXPECT_EQ(name, "bgworker");
    EXPECT_NE(id, std::this_thread::get_id());
}

TEST_F(BGWorkThreadTest, NewestJobRunsFirst) {
    BGWorkThread thread(3);
    keepBusy(thread);
    for (const char* name : {"A", "B", "C"}) thread.addWorker(job(name));
    door.open();
    journal.waitFor("A deleted");
    EXPECT_THAT(journal.lines(), ElementsAre("busy done", "busy deleted", "C works", "C done", "C deleted", "B works",
                                             "B done", "B deleted", "A works", "A done", "A deleted"));
}

TEST_F(BGWorkThreadTest, OldestJobIsDroppedBeforeAddWorkerReturns) {
    BGWorkThread thread(2);
    keepBusy(thread);
    thread.addWorker(job("A"));
    thread.addWorker(job("B"));
    EXPECT_THAT(journal.lines(), IsEmpty());
    EXPECT_EQ(thread.addWorker(job("C")), 0);
    EXPECT_THAT(journal.lines(), ElementsAre("A deleted"));
    door.open();
    journal.waitFor("B deleted");
    EXPECT_THAT(journal.lines(), ElementsAre("A deleted", "busy done", "busy deleted", "C works", "C done", "C deleted",
                                             "B works", "B done", "B deleted"));
}

TEST_F(BGWorkThreadTest, LimitIsFiveUnlessItIsPositive) {
    for (const int limit : {0, -3}) {
        Door itsDoor;
        BGWorkThread thread(limit);
        thread.addWorker(job("busy", [&] { itsDoor.pass(); }));
        journal.waitFor("busy works");
        journal.clear();
        for (const char* name : {"1", "2", "3", "4", "5"}) thread.addWorker(job(name));
        EXPECT_THAT(journal.lines(), IsEmpty());
        thread.addWorker(job("6"));
        EXPECT_THAT(journal.lines(), ElementsAre("1 deleted"));
        itsDoor.open();
        journal.waitFor("2 deleted");
        journal.clear();
    }
}

TEST_F(BGWorkThreadTest, LimitOfOneKeepsTheNewest) {
    BGWorkThread thread(1);
    keepBusy(thread);
    for (const char* name : {"A", "B", "C"}) thread.addWorker(job(name));
    EXPECT_THAT(journal.lines(), ElementsAre("A deleted", "B deleted"));
    door.open();
    journal.waitFor("C done");
}

class BGWorkThreadLifecycleTest : public BGWorkThreadTest {};

TEST_F(BGWorkThreadLifecycleTest, DestructorLetsTheRunningJobFinishAndDeletesTheRestUnrun) {
    whenJoining() = [this] { door.open(); };
    {
        BGWorkThread thread(5);
        keepBusy(thread);
        for (const char* name : {"A", "B", "C"}) thread.addWorker(job(name));
        thread.addWorker(nullptr);
    }
    EXPECT_THAT(journal.lines(), ElementsAre("busy done", "busy deleted", "C deleted", "B deleted", "A deleted"));
}

// Has somebody else do its work once it is deleted.
class Handing : public Job {
public:
    Handing(Journal& lines, BGWorkThread& queue, BGWorker* heir) : Job(lines, "handing"), mQueue(queue), mHeir(heir) {}
    ~Handing() override { mQueue.addWorker(mHeir); }

private:
    BGWorkThread& mQueue;
    BGWorker* mHeir;
};

TEST_F(BGWorkThreadLifecycleTest, JobDeletedWithTheQueueMayStillAddToIt) {
    whenJoining() = [this] { door.open(); };
    {
        BGWorkThread thread(2);
        keepBusy(thread);
        thread.addWorker(job("A"));
        thread.addWorker(new Handing(journal, thread, job("heir")));
    }
    EXPECT_THAT(journal.lines(),
                ElementsAre("busy done", "busy deleted", "handing deleted", "heir deleted", "A deleted"));
}

TEST_F(BGWorkThreadLifecycleTest, IdleThreadEndsAtOnce) {
    const BGWorkThread thread(5);
    EXPECT_THAT(journal.lines(), IsEmpty());
}

TEST_F(BGWorkThreadTest, JobMayAddJobs) {
    BGWorkThread thread(1);
    thread.addWorker(job("A", [&] { thread.addWorker(job("B")); }));
    journal.waitFor("B deleted");
    EXPECT_THAT(journal.lines(), ElementsAre("A works", "A done", "A deleted", "B works", "B done", "B deleted"));
}

// Has another thread use the queue in each of its steps, which would wait for ever if the lock were held.
class Asking : public Job {
public:
    Asking(Journal& lines, BGWorkThread& queue) : Job(lines, "asking", [this] { ask(); }), mQueue(queue) {}
    ~Asking() override { ask(); }
    void done() override {
        ask();
        Job::done();
    }

private:
    void ask() {
        std::thread([this] { mQueue.getWorker(); }).join();
    }

    BGWorkThread& mQueue;
};

TEST_F(BGWorkThreadTest, JobWorksIsDoneAndIsDeletedWithoutTheLock) {
    BGWorkThread thread(1);
    thread.addWorker(new Asking(journal, thread));
    journal.waitFor("asking deleted");
    EXPECT_THAT(journal.lines(), ElementsAre("asking works", "asking done", "asking deleted"));
}

TEST_F(BGWorkThreadTest, DroppedJobIsDeletedWithoutTheLock) {
    BGWorkThread thread(1);
    keepBusy(thread);
    thread.addWorker(new Asking(journal, thread));
    thread.addWorker(nullptr);
    EXPECT_THAT(journal.lines(), ElementsAre("asking deleted"));
    door.open();
}

TEST_F(BGWorkThreadTest, NullJobTakesUpAPlace) {
    BGWorkThread thread(2);
    keepBusy(thread);
    thread.addWorker(job("A"));
    EXPECT_EQ(thread.addWorker(nullptr), 0);
    thread.addWorker(job("B"));
    EXPECT_THAT(journal.lines(), ElementsAre("A deleted"));
    door.open();
    journal.waitFor("B deleted");
}

TEST_F(BGWorkThreadTest, NullJobIsSkippedInItsTurn) {
    BGWorkThread thread(3);
    keepBusy(thread);
    thread.addWorker(job("A"));
    thread.addWorker(nullptr);
    door.open();
    journal.waitFor("A deleted");
    thread.addWorker(job("B"));
    journal.waitFor("B deleted");
}

TEST_F(BGWorkThreadTest, GetWorkerHandsTheNewestOver) {
    BGWorkThread thread(3);
    keepBusy(thread);
    BGWorker* a = job("A");
    BGWorker* b = job("B");
    thread.addWorker(a);
    thread.addWorker(b);
    EXPECT_EQ(thread.getWorker(), b);
    EXPECT_EQ(thread.getWorker(), a);
    EXPECT_EQ(thread.getWorker(), nullptr);
    EXPECT_THAT(journal.lines(), IsEmpty());
    delete a;
    delete b;
    door.open();
}

TEST_F(BGWorkThreadTest, ThreadOfNothingEndsAtOnce) { EXPECT_EQ(BGWorkThread::work_thread(nullptr), 0); }

TEST_F(BGWorkThreadTest, JobsOfManyThreadsAreEachDeletedOnce) {
    static std::atomic<int> alive;
    static std::atomic<int> started;
    static std::atomic<int> finished;
    alive = started = finished = 0;
    class Counted : public BGWorker {
    public:
        Counted() { ++alive; }
        ~Counted() override { --alive; }
        void work() override { ++started; }
        void done() override { ++finished; }
    };
    {
        BGWorkThread thread(4);
        const auto addMany = [&] {
            for (int i = 0; i < 300; ++i) thread.addWorker(new Counted);
        };
        std::thread other(addMany);
        addMany();
        other.join();
    }
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(started, finished);
}

}  // namespace
