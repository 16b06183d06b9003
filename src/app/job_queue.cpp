#include "app/job_queue.h"

#include <algorithm>
#include <utility>

namespace kestrum {

JobQueue::JobQueue()
{
    const unsigned count = std::max(2U, std::thread::hardware_concurrency()) - 1;
    for (unsigned i = 0; i < count; ++i) {
        threads_.emplace_back([this] { Labour(); });
    }
}

JobQueue::~JobQueue()
{
    {
        const std::lock_guard lock(mutex_);
        closed_ = true;
        jobs_.clear();
    }
    todo_.notify_all();
    for (std::thread& thread : threads_) {
        thread.join();
    }
}

void JobQueue::Add(Job job)
{
    if (!busy()) {
        added_ = taken_ = 0;
    }
    ++added_;
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
    }
    todo_.notify_one();
}

void JobQueue::Cancel()
{
    const std::lock_guard lock(mutex_);
    jobs_.clear();
    done_.clear();
    ++round_;
    added_ = taken_ = 0;
}

void JobQueue::TakeDone()
{
    std::vector<Taken> done;
    {
        const std::lock_guard lock(mutex_);
        done.swap(done_);
    }
    taken_ += done.size();
    for (const Taken& taken : done) {
        taken();
    }
}

void JobQueue::Labour()
{
    std::unique_lock lock(mutex_);
    for (;;) {
        todo_.wait(lock, [this] { return closed_ || !jobs_.empty(); });
        if (closed_) {
            return;
        }
        const Job job = std::move(jobs_.front());
        jobs_.pop_front();
        const std::size_t round = round_;
        lock.unlock();
        Taken taken = job();
        lock.lock();
        if (round == round_) {
            done_.push_back(std::move(taken));
        }
    }
}

}  // namespace kestrum
