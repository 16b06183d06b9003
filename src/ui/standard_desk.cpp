#include "ui/standard_desk.h"

#include "app/session.h"
#include "app/view_diagram.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "standard/cases.h"
#include "standard/costs.h"

#include <memory>
#include <utility>

namespace kestrum {

void StandardDesk::Follow()
{
    const ProjectState given = AsGiven(session_.state());
    const auto inputs = [](const ProjectState& s) -> const Inputs& { return s; };
    if (calculated_ && inputs(given) == inputs(given_) && failed_ == session_.failed()) {
        if (costed_ && !session_.state().acting) {
            session_.TakeNotes(result_);
        }
        return;
    }
    given_ = given;
    failed_ = session_.failed();
    calculated_ = true;
    costed_ = false;
    result_ = standard::CalculateStandard(session_.library(), given_);
    if (!failed_) {
        shown_ = result_;
        const Library& library = session_.library();
        along_ = {SectionUtilisation(library, session_.state()),
                  result_.rated ? standard::SectionUtilisation(library, given_) : std::nullopt,
                  given_->irlimit};
        NameCombinations(given_, along_);
    }
    AskForCosts();
}

const ProjectState* StandardDesk::program() const
{
    return failed_ ? nullptr : &session_.state();
}

void StandardDesk::AskForCosts()
{
    struct Job {
        const Library& library;
        ProjectState given, program;
        bool failed;
        standard::StandardResult result;
    };
    const auto job =
        std::make_shared<Job>(Job{session_.library(), given_, session_.state(), failed_, result_});
    job_.Run([this, job](const LatestJob::Outdated&, const LatestJob::Hand& hand) {
        standard::CalculateCosts(job->library, job->given, job->failed ? nullptr : &job->program,
                                 job->result);
        hand([this, job] {
            result_ = std::move(job->result);
            costed_ = true;
            session_.TakeNotes(result_);
            for (const auto& show : costs) {
                show();
            }
        });
    });
}

}  // namespace kestrum
