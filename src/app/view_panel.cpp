#include "app/view_panel.h"

#include "core/check_text.h"
#include "core/project_state.h"
#include "report/panel.h"

namespace kestrum {

std::optional<double> UtilisationOf(const ProjectState& s, const PanelLine& line)
{
    if (!line.row) {
        return std::nullopt;
    }
    const Check& check = s.checklist.row(*line.row);
    if (!IsJudged(check) || check.limit <= 0) {
        return std::nullopt;
    }
    return check.ratio / check.limit;
}

}  // namespace kestrum
