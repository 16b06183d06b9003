#pragma once

// Work that a window does not wait for: on a thread of its own, the newest job takes the place of
// the older ones, and what an outdated one has found is dropped.

#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <functional>

namespace kestrum {

class LatestJob final : public QObject {
    Q_OBJECT

public:
    // Whether the job is outdated; it may end early then.
    using Outdated = std::function<bool()>;
    // Runs on the window's thread.
    using Finish = std::function<void()>;
    // Hands over what is to be shown, as often as it likes. Holds all that it reads.
    using Hand = std::function<void(Finish)>;

    explicit LatestJob(QObject* parent = nullptr);
    ~LatestJob() override;

    void Run(std::function<void(const Outdated&, const Hand&)> work);
    // The one that runs is outdated.
    void Drop() { ++latest_; }

private:
    QThreadPool thread_;
    std::atomic<unsigned> latest_ = 0;
};

}  // namespace kestrum
