#pragma once

// Work beside the window: jobs run on threads of their own in the order in which they came, what
// they return runs on the thread that asks for it.

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace kestrum {

class JobQueue {
public:
    using Taken = std::function<void()>;
    using Job = std::function<Taken()>;

    // One thread fewer than the machine has, at least one.
    JobQueue();
    ~JobQueue();  // drops what has not begun
    JobQueue(const JobQueue&) = delete;
    JobQueue& operator=(const JobQueue&) = delete;

    void Add(Job job);
    // Drops what has not begun. What runs ends soon; its result is not handed over.
    void Cancel();

    // Runs what finished jobs have returned, on this thread, which is that of Add and Cancel.
    void TakeDone();

    bool busy() const { return taken_ < added_; }
    std::size_t added() const { return added_; }  // since the queue was last idle or cancelled
    std::size_t taken() const { return taken_; }

private:
    void Labour();

    std::mutex mutex_;
    std::condition_variable todo_;
    std::deque<Job> jobs_;
    std::vector<Taken> done_;
    std::size_t round_ = 0;  // counts the cancellations
    bool closed_ = false;
    std::size_t added_ = 0, taken_ = 0;  // of the calling thread alone
    std::vector<std::thread> threads_;
};

}  // namespace kestrum
