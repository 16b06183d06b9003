#pragma once

// Work on pieces of a stream by several threads, the pieces handed on in their order. At most a few
// pieces a thread are held, so that memory does not grow with the stream.

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
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

    // Fills pieces by `next` until it has no more and hands each finished one to `done`, both on
    // the calling thread. An exception of a worker leaves from here.
    void Run(const std::function<bool(Piece&)>& next, const std::function<void(Piece&)>& done)
    {
        bool more = true;
        while (more || handed_ < filled_) {
            while (more && filled_ - handed_ < slots_.size()) {
                more = Fill(next);
            }
            if (handed_ < filled_) {
                HandOn(done);
            }
        }
    }

private:
    struct Slot {
        Piece piece{};
        bool finished = false;
        std::exception_ptr failure = nullptr;
    };

    Slot& At(std::size_t number) { return slots_[number % slots_.size()]; }

    bool Fill(const std::function<bool(Piece&)>& next)
    {
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
        Slot& slot = At(handed_);
        {
            std::unique_lock lock(mutex_);
            finished_.wait(lock, [&slot] { return slot.finished; });
        }
        if (slot.failure) {
            std::rethrow_exception(slot.failure);
        }
        done(slot.piece);
        ++handed_;
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
    std::condition_variable todo_, finished_;
    std::size_t filled_ = 0;  // pieces put in
    std::size_t taken_ = 0;   // pieces that a thread has begun
    std::size_t handed_ = 0;  // pieces handed on; the calling thread's own
    bool closed_ = false;
};

}  // namespace kestrum
