#include "calculation/standard_equations.h"

#include <cmath>

namespace kestrum {

void AddStandardCheck(const Library&, const ProjectState&, standard::CheckId,
                      const standard::Check& check, Document& d)
{
    std::string where = NameOf(check.load_case);
    if (!std::isnan(check.place)) {
        where += ", x/L = " + NumberText(check.place, 4);
    }
    d.Add("IR_standard", check.ir, "", std::string(check.clause),
          "EN 1993-1-1 as written, " + where);
}

}  // namespace kestrum
