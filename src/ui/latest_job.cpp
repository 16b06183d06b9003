#include "ui/latest_job.h"

#include <utility>

namespace kestrum {

LatestJob::LatestJob(QObject* parent) : QObject(parent)
{
    thread_.setMaxThreadCount(1);
}

LatestJob::~LatestJob()
{
    Drop();
    thread_.clear();
    thread_.waitForDone();
}

void LatestJob::Run(std::function<void(const Outdated&, const Hand&)> work)
{
    const unsigned number = ++latest_;
    thread_.clear();  // of those that have not begun
    thread_.start([this, number, work = std::move(work)] {
        const Outdated outdated = [this, number] { return number != latest_; };
        const Hand hand = [this, outdated](Finish finish) {
            QMetaObject::invokeMethod(
                this,
                [outdated, finish = std::move(finish)] {
                    if (!outdated()) {
                        finish();
                    }
                },
                Qt::QueuedConnection);
        };
        if (!outdated()) {
            work(outdated, hand);
        }
    });
}

}  // namespace kestrum
