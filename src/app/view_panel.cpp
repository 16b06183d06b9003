#include "app/view_panel.h"

#include "core/check_text.h"
#include "core/project_state.h"
#include "report/panel.h"

namespace kestrum {

std::optional<double> UtilisationOf(const ProjectState& s, const PanelLine& line)
{
    if (!line.row || !IsJudged(s.checklist.row(*line.row)) || s.irlimit <= 0) {
        return std::nullopt;
    }
    return s.checklist.row(*line.row).ratio / s.irlimit;
}

}  // namespace kestrum
