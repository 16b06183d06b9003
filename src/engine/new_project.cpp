#include "engine/new_project.h"

#include "core/annexes.h"
#include "core/load_combination.h"
#include "core/member_choices.h"
#include "core/project_file.h"
#include "core/project_state.h"
#include "core/setup_file.h"
#include "engine/calculate.h"
#include "sections/read_profiles.h"

#include <cstddef>

namespace kestrum {

namespace {

constexpr float kRatioLimit = 1.0f;  // irlimit, set here and nowhere else

void ResetMember(ProjectState& s)
{
    s.filename = "New File";
    s.projname = "Project";
    s.ident = "Test";
    s.l = 5;
    s.supportcase = SupportCase::pinned;
    s.spring = 50;
    s.endstiff = 0;
    s.webstiff = 0;
    s.webstiffa = 5000;
    s.bcy = 0;
    s.bcz = 0;
    s.bucklingcasey = 2;
    s.bucklingcasez = 2;
    s.ly = 1;
    s.lz = 1;
    s.density = 7850;
    s.modal = 0;
    s.loadmode = 1;  // the part-way pass is one of a loaded member
}

void ResetLateralBuckling(ProjectState& s)
{
    s.ltb = 1;
    s.ltbavail = kTrue;
    s.ltbcase = 2;
    s.ltbk = 1;
    s.restraints = 0;
    s.beampart = 0;
    s.cmanual = kFalse;
    s.c1alt = kFalse;
    s.ltbcurve = LtbCurve::rolled;
    s.c1 = 1;
    s.c2 = 1;
    s.c3 = 1;
    s.loadlevel = 1;
    s.za = 0;
}

void ResetLoadRows(ProjectState& s)
{
    s.nload = {0, 100, 0, 0};
    s.ntype = {};
    s.nchecked = {0, kTrue, kFalse, kFalse};
    s.qload = {0, 10, 0, 0, 0};
    s.qtype = {};
    s.qdir = {1, 1, 1, 1, 1};
    s.qchecked = {0, kTrue, kFalse, kFalse, kFalse};
    s.qt1 = s.qt2 = s.qtx1 = s.qtx2 = s.qttype = {};
    s.qtdir = {0, 1, 1, 1};
    s.qtchecked = {0, kTrue, kFalse, kFalse};
    s.pmkind = {};
    s.pm = s.pmx = {};
    s.pmtype = {};
    s.pmdir = {0, 1, 1, 1, 1, 1, 1, 1, 1};
    s.pmchecked = {0, kTrue, 0, 0, 0, 0, 0, 0, 0};
}

void ResetEndForces(ProjectState& s)
{
    s.ne = 100;
    s.my1 = 100;
    s.vz1 = 50;
    s.my2 = s.vy1 = s.vy2 = s.mz1 = s.mz2 = s.vz2 = 0;
}

void ResetLoads(ProjectState& s)
{
    s.selfweight = 0;
    ResetLoadRows(s);
    ResetEndForces(s);
    s.pmrelative = 0;
    s.qtrelative = 0;
    s.cpmode = 0;
    s.cpcount = 1;
    s.cp = {0, 1, 2, 3};
    s.cprelative = 0;
    s.dropped = {};
}

void ResetVortex(ProjectState& s)
{
    s.terrain = 2;
    s.vortexcase = 1;
    s.spare1 = 1;
    s.vb = 25;
    s.zh = 10;
    s.spare2 = 1;
}

void ResetRows(ProjectState& s)
{
    for (std::size_t i = 0; i < kTables; ++i) {
        s.row[i] = ShapeOf(static_cast<Table>(i)).start;
    }
}

void ResetSection(ProjectState& s)
{
    s.family = 1;
    ResetRows(s);
    s.series101 = 1;
    s.series103 = 1;
    s.rectaxis = 1;
    s.hsqopt = 0;
    s.lopt = 1;
    s.weldopt = 0;
    s.tubehot = 1;
    s.class23 = 1;
    s.flangeload = 50;
    s.p21 = {.isth = 600, .istb1 = 300, .isttw = 12, .isttf = 20};
    s.p22 = {.isth = 600, .istb1 = 200, .istb2 = 400, .isttw = 12, .isttf1 = 20, .isttf2 = 20};
    s.p23 = {.isth = 600, .istb1 = 600, .isttw = 10, .isttf = 20, .ista = 50};
    s.p24 = {
        .isth = 300, .istb1 = 300, .istb2 = 540, .isttw = 6, .isttf1 = 25, .isttf2 = 15, .hsqc = 5};
    s.p25 = {.isth = 300,
             .istb1 = 300,
             .istb2 = 430,
             .isttw = 6,
             .isttf1 = 25,
             .isttf2 = 15,
             .istc = 15};
    s.p26 = {.isth = 200, .istb1 = 200, .isttw = 10, .isttf1 = 10};
    s.p27 = {.isth = 600,
             .istb1 = 600,
             .istb2 = 600,
             .isttw = 10,
             .isttf1 = 20,
             .isttf2 = 20,
             .istc = 25};
    s.p28 = {.isth = 150, .isttw = 12};
    s.p31 = {.istd = 300, .isttw = 10};
    s.p41ident = "General";
    s.p41 = {.opn = 3,
             .opmy = 1,
             .opmz = 1,
             .istax = 18720,
             .istay = 12000,
             .istaz = 6720,
             .istix = 1923000,
             .istiy = 1185000000.0f,
             .istiz = 90080000,
             .istiw = 7569000103936.0f,
             .istwely = 3951000,
             .istwelz = 600500,
             .istwply = 4421000,
             .istwplz = 920200};
    s.p51 = {.isth = 200, .istb1 = 600, .isttw = 10, .isttf1 = 10};
    s.p52 = {.istb1 = 600, .istt1 = 10};
    s.p53 = {.isth = 300, .istb1 = 600, .istb2 = 100, .isttw = 11.5, .isttf1 = 10, .isttf2 = 16};
    s.p54 = {.istb1 = 600, .istt1 = 10};
    s.p55 = {.value1 = 250, .value2 = 600, .value3 = 200, .value4 = 8, .value5 = 12, .value6 = 50};
    s.p56 = {.isth = 580, .istb1 = 300, .istb2 = 300, .isttw = 12, .isttf1 = 20, .isttf2 = 20};
}

void LoadSetup(const Library& library, ProjectState& s)
{
    ReadSetup(s, library.setup);  // what it does not hold stays zero
    SetPsi(s);
    s.irlimit = kRatioLimit;
    s.annexindex = AnnexIndexFromCode(s.annexcode);
    ApplyAnnexLoads(s, s, s.annexindex);
    ApplyAnnexMaterial(s, s.annexindex);
}

}  // namespace

void NewProject(const Library& library, ProjectState& s)
{
    ResetMember(s);
    ResetVortex(s);
    Calculate(library, s);
    ResetLateralBuckling(s);  // behind the pass: the old family may have switched it off
    ResetSection(s);
    ResetLoads(s);
}

void StartUp(const Library& library, ProjectState& s)
{
    s.irlimit = kRatioLimit;
    NewProject(library, s);
    LoadSetup(library, s);
}

HeldState StartState(const Library& library)
{
    ProjectState s{};
    StartUp(library, s);
    return s;
}

std::optional<FileFault> ReadFresh(const Library& library, ProjectState& s, std::string_view bytes)
{
    s = StartState(library);
    return ReadProject(s, bytes);
}

}  // namespace kestrum
