#include "calculation/standard_vibration.h"

namespace kestrum {

namespace {

constexpr const char* kMasses = "EN 1990, A1.4.4";

// Section and loads, kg; `mode` that moves them, or all of the loads at rest.
Expr MassOf(const ProjectState& s, const standard::VibrationStudy& study, const std::size_t* mode)
{
    Expr loads;
    for (std::size_t i = 0; i < study.loads.size(); ++i) {
        const standard::MovedLoad& load = study.loads[i];
        const std::string n = std::to_string(i + 1);
        Expr part = Sym("Q_" + n, load.size);
        if (load.factor != 1) {
            part = Sym("ψ_" + n, load.factor) * part;
        }
        if (mode != nullptr && load.share[*mode] != 1) {
            part = Sym("s_" + n + "," + std::to_string(*mode + 1), load.share[*mode]) * part;
        }
        loads = loads == nullptr ? part : loads + part;
    }
    const Expr member = Sym("m_0", s.weight) * Sym("L", s.l);
    return loads == nullptr ? member : member + loads / Num(9.81) * Ten(3);
}

}  // namespace

void AddMovedLoads(const standard::VibrationStudy& study, std::size_t modes, Document& d)
{
    if (study.loads.empty()) {
        return;
    }
    TextTable table{.columns = {{"Load", true}, {"x, m", true}, {"ψ", true}, {"Q, kN", true}},
                    .caption = "Loads that count as masses; s the mean of φ² on the load, the mean "
                               "over the member is 1"};
    for (std::size_t mode = 1; mode <= modes; ++mode) {
        table.columns.push_back({Line(Symbol("s_i," + std::to_string(mode))), true});
    }
    for (std::size_t i = 0; i < study.loads.size(); ++i) {
        const standard::MovedLoad& load = study.loads[i];
        const Line from = NumberLine(load.x1, 4);
        std::vector<Line> row{std::to_string(i + 1),
                              load.point ? from : from + Line(" to ") + NumberLine(load.x2, 4),
                              NumberLine(load.factor), NumberLine(load.size)};
        for (std::size_t mode = 0; mode < modes; ++mode) {
            row.push_back(NumberLine(load.share[mode]));
        }
        table.rows.push_back(std::move(row));
    }
    d.Add(std::move(table));
}

void AddMeanMass(const ProjectState& s, const standard::VibrationStudy& study, double mass,
                 Document& d)
{
    d.Add("m_standard", MassOf(s, study, nullptr) / Sym("L", s.l), mass, "kg/m", kMasses);
}

void AddStandardFrequency(const ProjectState& s, const standard::VibrationStudy& study,
                          std::size_t mode, const std::string& symbol, double frequency,
                          const char* clause, Document& d)
{
    const std::string n = std::to_string(mode + 1);
    d.Add("M_" + n, MassOf(s, study, &mode), study.moved[mode], "kg", clause, "mass that moves");
    d.Add(symbol,
          Square(Sym("κ_" + n, study.root[mode])) / (2 * Pi()) *
              Root(Sym("E", s.e) * Sym("I_y", s.iy) * Ten(-6) /
                   (Sym("M_" + n, study.moved[mode]) * Power(Sym("L", s.l), Num(3)))),
          frequency, "Hz", clause);
}

}  // namespace kestrum
