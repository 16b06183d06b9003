#include "app/history.h"

#include <utility>

namespace kestrum {

void History::Push(std::string what)
{
    back_.push_back({now_, std::move(what)});
    if (back_.size() > kMostSteps) {
        back_.pop_front();
    }
    forward_.clear();
    now_.step = ++steps_;
}

void History::Renew(Snapshot now)
{
    now.step = now_.step;
    now_ = std::move(now);
}

std::string_view History::UndoText() const
{
    return back_.empty() ? std::string_view{} : back_.back().what;
}

std::string_view History::RedoText() const
{
    return forward_.empty() ? std::string_view{} : forward_.back().what;
}

const Snapshot& History::Undo()
{
    return Move(back_, forward_);
}

const Snapshot& History::Redo()
{
    return Move(forward_, back_);
}

const Snapshot& History::Move(std::deque<Step>& from, std::deque<Step>& to)
{
    Step step = std::move(from.back());
    from.pop_back();
    to.push_back({std::move(now_), std::move(step.what)});
    now_ = std::move(step.snapshot);
    return now_;
}

void History::Forget()
{
    back_.clear();
    forward_.clear();
}

}  // namespace kestrum
