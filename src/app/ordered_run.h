#pragma once

// Work on pieces of a stream by several threads, the pieces handed on in their order. At most a few
// pieces a thread are held, so that memory does not grow with the stream.

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace kestrum {

// Piece is default-constructed a few times and used again and again.
template <class Piece> class OrderedRun {
public:
    using Work = std::function<void(Piece&)>;

    // One element of `work` for each thread.
    explicit OrderedRun(std::vector<Work> work) : slots_(work.size() * 4)
    {
        for (Work& own : work) {
            threads_.emplace_back([this, own = std::move(own)] { Labour(own); });
        }
    }

    ~OrderedRun()
    {
        {
            const std::lock_guard lock(mutex_);
            closed_ = true;
        }
        todo_.notify_all();
        for (std::thread& thread : threads_) {
            thread.join();
        }
    }
    OrderedRun(const OrderedRun&) = delete;
    OrderedRun& operator=(const OrderedRun&) = delete;

    // Fills pieces by `next` until it has no more, on the calling thread, and hands each finished
    // one to `done`, on a thread of its own: what is finished does not wait for what is yet to
    // come. An exception of either, or of a worker, leaves from here.
    void Run(const std::function<bool(Piece&)>& next, const std::function<void(Piece&)>& done)
    {
        std::thread handing([this, &done] { HandOn(done); });
        try {
            while (Fill(next)) {
            }
        } catch (...) {
            Stop(std::current_exception());
        }
        {
            const std::lock_guard lock(mutex_);
            ended_ = true;
        }
        finished_.notify_one();
        handing.join();
        if (failure_) {
            std::rethrow_exception(failure_);
        }
    }

private:
    struct Slot {
        Piece piece{};
        bool finished = false;
        std::exception_ptr failure = nullptr;
    };

    Slot& At(std::size_t number) { return slots_[number % slots_.size()]; }

    // False when there is no more, or somebody failed.
    bool Fill(const std::function<bool(Piece&)>& next)
    {
        {
            std::unique_lock lock(mutex_);
            room_.wait(lock, [this] { return failure_ || filled_ - handed_ < slots_.size(); });
            if (failure_) {
                return false;
            }
        }
        Slot& slot = At(filled_);  // nobody else looks at it before it is counted
        if (!next(slot.piece)) {
            return false;
        }
        {
            const std::lock_guard lock(mutex_);
            slot.finished = false;
            ++filled_;
        }
        todo_.notify_one();
        return true;
    }

    void HandOn(const std::function<void(Piece&)>& done)
    {
        std::unique_lock lock(mutex_);
        for (;;) {
            finished_.wait(lock, [this] {
                return failure_ || (handed_ < filled_ ? At(handed_).finished : ended_);
            });
            if (failure_ || handed_ == filled_) {
                return;
            }
            Slot& slot = At(handed_);
            lock.unlock();
            try {
                if (slot.failure) {
                    std::rethrow_exception(slot.failure);
                }
                done(slot.piece);
            } catch (...) {
                Stop(std::current_exception());
                return;
            }
            lock.lock();
            ++handed_;
            room_.notify_one();
        }
    }

    void Stop(std::exception_ptr failure)
    {
        {
            const std::lock_guard lock(mutex_);
            if (!failure_) {
                failure_ = std::move(failure);
            }
        }
        room_.notify_one();
        finished_.notify_one();
    }

    void Labour(const Work& work)
    {
        std::unique_lock lock(mutex_);
        for (;;) {
            todo_.wait(lock, [this] { return closed_ || taken_ < filled_; });
            if (closed_) {
                return;
            }
            Slot& slot = At(taken_++);
            lock.unlock();
            try {
                work(slot.piece);
            } catch (...) {
                slot.failure = std::current_exception();
            }
            lock.lock();
            slot.finished = true;
            finished_.notify_one();
        }
    }

    std::vector<Slot> slots_;
    std::vector<std::thread> threads_;
    std::mutex mutex_;
    std::condition_variable todo_, finished_, room_;
    std::size_t filled_ = 0;  // pieces put in; changed by the calling thread alone
    std::size_t taken_ = 0;   // pieces that a thread has begun
    std::size_t handed_ = 0;  // pieces handed on
    bool ended_ = false;      // no more will be filled
    bool closed_ = false;
    std::exception_ptr failure_ = nullptr;  // the first; everything stops
};

}  // namespace kestrum
