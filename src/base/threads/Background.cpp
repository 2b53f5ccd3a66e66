#include "base/threads/Background.h"

#include "base/threads/ThreadName.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tessary {

namespace {

struct Task {
    std::function<void()> work;
    std::stop_source stop;
};

/// The pool. Its threads end when it shuts down; until then an idle one waits for work.
class Pool {
public:
    /// Never released: a thread that hangs may outlive everything else.
    static Pool& shared() {
        static Pool& pool = *new Pool;
        return pool;
    }

    void start(Task task) {
        const std::scoped_lock lock(mutex_);
        if (isShutDown_)
            return;
        waiting_.push_back(std::move(task));
        if (waiting_.size() > idle_ && threads_ < Background::maxThreads) {
            ++threads_;
            std::thread([this, number = threads_] { serve(number); }).detach();
        }
        changed_.notify_one();
    }

    bool shutDown(std::chrono::milliseconds limit) {
        std::deque<Task> dropped;
        std::vector<std::stop_source> toStop;
        std::unique_lock lock(mutex_);
        isShutDown_ = true;
        dropped.swap(waiting_);
        toStop = running_;
        changed_.notify_all();
        // A stop callback may run foreign code: not with the lock held.
        lock.unlock();
        for (std::stop_source& stop : toStop)
            stop.request_stop();
        lock.lock();
        return changed_.wait_for(lock, limit, [this] { return threads_ == 0; });
    }

    void restart() {
        const std::scoped_lock lock(mutex_);
        isShutDown_ = false;
    }

private:
    void serve(std::size_t number) {
        nameCurrentThread(("tessary-bg-" + std::to_string(number)).c_str());
        std::unique_lock lock(mutex_);
        while (true) {
            ++idle_;
            changed_.wait(lock, [this] { return isShutDown_ || !waiting_.empty(); });
            --idle_;
            if (isShutDown_)
                break;
            Task task = std::move(waiting_.front());
            waiting_.pop_front();
            running_.push_back(task.stop);
            lock.unlock();
            task.work();
            task.work = nullptr;
            lock.lock();
            running_.erase(std::find(running_.begin(), running_.end(), task.stop));
        }
        --threads_;
        changed_.notify_all();
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    // All guarded by mutex_:
    std::deque<Task> waiting_;
    std::vector<std::stop_source> running_;
    std::size_t threads_ = 0;
    std::size_t idle_ = 0;
    bool isShutDown_ = false;
};

} // namespace

bool Background::shutDown(std::chrono::milliseconds limit) {
    return Pool::shared().shutDown(limit);
}

void Background::restart() {
    Pool::shared().restart();
}

void Background::start(std::function<void()> work, const std::stop_source& stop) {
    Pool::shared().start({std::move(work), stop});
}

} // namespace tessary
