#include "core/project_file.h"

#include "core/annexes.h"
#include "core/file_layout.h"
#include "core/load_combination.h"
#include "core/project_state.h"

#include <array>
#include <limits>

namespace kestrum {

namespace {

// Versions from which the layout has something new.
constexpr i16 kCombinationsReordered = 119;  // Eq 6.10 came in front of the list
constexpr i16 kHasUpgrade = 120;             // class23
constexpr i16 kHasTwoLimits = 131;           // deflimitz

// "qload[2]"
std::string Indexed(const char* name, std::size_t index)
{
    return std::string(name) + "[" + std::to_string(index) + "]";
}

template <class File> void Head(File& file, ProjectState& s, i16& version)
{
    file.Value("version", version);
    file.Line("projname", s.projname);
    file.Line("ident", s.ident);
    file.Text("annexcode", s.annexcode);
    file.Value("gammam0", s.gammam0);
    file.Value("gammam1", s.gammam1);
    file.Value("neta", s.neta);
    file.Value("method", s.method);
    MaterialAndOptions(file, s);
    file.Value("loadcomb", s.loadcomb);
    if (File::kReads && file.ok() && version < kCombinationsReordered &&
        s.loadcomb < std::numeric_limits<i16>::max()) {
        ++s.loadcomb;
    }
    file.Value("deflimity", s.deflimity);
    if (version >= kHasTwoLimits) {
        file.Value("deflimitz", s.deflimitz);
    } else if (file.ok()) {
        s.deflimitz = s.deflimity;
    }
    file.Value("safetyclass", s.safetyclass);
    file.Value("psi1index", s.psi1index);
    file.Value("psi2index", s.psi2index);
    UserFactors(file, s);
}

template <class File> void Member(File& file, ProjectState& s)
{
    file.Truth("checksls", s.checksls);
    file.Value("rectaxis", s.rectaxis);
    file.Truth("checkconsercontrol", s.checkconsercontrol);  // stands in the file twice
    file.Value("endstiff", s.endstiff);
    file.Value("webstiff", s.webstiff);
    file.Value("bcy", s.bcy);
    file.Value("bcz", s.bcz);
    file.Value("bucklingcasey", s.bucklingcasey);
    file.Value("bucklingcasez", s.bucklingcasez);
    file.Value("hsqopt", s.hsqopt);
    file.Value("lopt", s.lopt);
    file.Value("modal", s.modal);
    file.Value("supportcase", s.supportcase);
    file.Value("spring", s.spring);
    file.Value("loadmode", s.loadmode);
    file.Value("loadlevel", s.loadlevel);
    file.Value("ltb", s.ltb);
    file.Value("ltbcase", s.ltbcase);
    file.Value("restraints", s.restraints);
    file.Value("beampart", s.beampart);
    file.Truth("cmanual", s.cmanual);
    file.Truth("c1alt", s.c1alt);
    file.Value("ltbcurve", s.ltbcurve);
    file.Value("c1", s.c1);
    file.Value("c2", s.c2);
    file.Value("c3", s.c3);
    file.Value("l", s.l);
    file.Value("webstiffa", s.webstiffa);
    file.Value("ltbk", s.ltbk);
    file.Value("ly", s.ly);
    file.Value("lz", s.lz);
}

template <class File> void EndForces(File& file, ProjectState& s)
{
    file.Value("ne", s.ne);
    file.Value("my1", s.my1);
    file.Value("my2", s.my2);
    file.Value("vy1", s.vy1);
    file.Value("vy2", s.vy2);
    file.Value("mz1", s.mz1);
    file.Value("mz2", s.mz2);
    file.Value("vz1", s.vz1);
    file.Value("vz2", s.vz2);
}

template <class File> void Loads(File& file, ProjectState& s)
{
    for (std::size_t k = 1; k <= 3; ++k) {
        file.Value(Indexed("nload", k), s.nload[k]);
        file.Value(Indexed("ntype", k), s.ntype[k]);
        file.Truth(Indexed("nchecked", k), s.nchecked[k]);
    }
    for (std::size_t k = 1; k <= 4; ++k) {
        file.Value(Indexed("qload", k), s.qload[k]);
        file.Value(Indexed("qtype", k), s.qtype[k]);
        file.Value(Indexed("qdir", k), s.qdir[k]);
        file.Truth(Indexed("qchecked", k), s.qchecked[k]);
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        file.Value(Indexed("qt1", k), s.qt1[k]);
        file.Value(Indexed("qt2", k), s.qt2[k]);
        file.Value(Indexed("qtx1", k), s.qtx1[k]);
        file.Value(Indexed("qtx2", k), s.qtx2[k]);
        file.Value(Indexed("qttype", k), s.qttype[k]);
        file.Value(Indexed("qtdir", k), s.qtdir[k]);
        file.Truth(Indexed("qtchecked", k), s.qtchecked[k]);
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        file.Value(Indexed("pmkind", k), s.pmkind[k]);
        file.Value(Indexed("pm", k), s.pm[k]);
        file.Value(Indexed("pmx", k), s.pmx[k]);
        file.Value(Indexed("pmtype", k), s.pmtype[k]);
        file.Value(Indexed("pmdir", k), s.pmdir[k]);
        file.Truth(Indexed("pmchecked", k), s.pmchecked[k]);
    }
}

struct TableRow {
    int family;
    Table table;
    const char* name;
};
constexpr TableRow kTableRows[] = {
#include "core/file_rows.inc"
};

template <class File> void Row(File& file, ProjectState& s, Table table, const char* name)
{
    file.Value(name, s.row[static_cast<std::size_t>(table)]);
}

// The row of the chosen series alone; an unknown series has none.
template <class File> void BritishRow(File& file, ProjectState& s)
{
    if (s.family == 101) {
        file.Value("series101", s.series101);
        switch (s.series101) {
        case 1:
            return Row(file, s, Table::ub, "row.ub");
        case 2:
            return Row(file, s, Table::uc, "row.uc");
        case 3:
            return Row(file, s, Table::ubp, "row.ubp");
        default:
            return;
        }
    }
    file.Value("series103", s.series103);
    if (s.series103 == 1) {
        Row(file, s, Table::ch, "row.ch");
    } else if (s.series103 == 2) {
        Row(file, s, Table::pfc, "row.pfc");
    }
}

template <class File> void Upgrade(File& file, ProjectState& s, i16 version)
{
    if (version >= kHasUpgrade) {
        file.Value("class23", s.class23);
    } else if (file.ok()) {
        s.class23 = 1;
    }
}

template <class File> void GeneralProfile(File& file, ProjectState& s)
{
    FormP41& p = s.p41;
    file.Text("p41ident", s.p41ident);
    file.Value("p41.opn", p.opn);
    file.Value("p41.opmy", p.opmy);
    file.Value("p41.opmz", p.opmz);
    file.Value("p41.istax", p.istax);
    file.Value("p41.istay", p.istay);
    file.Value("p41.istaz", p.istaz);
    file.Value("p41.istix", p.istix);
    file.Value("p41.istiy", p.istiy);
    file.Value("p41.istiz", p.istiz);
    file.Value("p41.istiw", p.istiw);
    file.Value("p41.istwely", p.istwely);
    file.Value("p41.istwelz", p.istwelz);
    file.Value("p41.istwply", p.istwply);
    file.Value("p41.istwplz", p.istwplz);
}

template <class File> void WeldedBeam(File& file, ProjectState& s, i16 version)
{
    switch (s.family) {
    case 21:
        file.Value("p21.isth", s.p21.isth);
        file.Value("p21.istb1", s.p21.istb1);
        file.Value("p21.isttw", s.p21.isttw);
        file.Value("p21.isttf", s.p21.isttf);
        break;
    case 22:
        file.Value("p22.isth", s.p22.isth);
        file.Value("p22.istb1", s.p22.istb1);
        file.Value("p22.istb2", s.p22.istb2);
        file.Value("p22.isttw", s.p22.isttw);
        file.Value("p22.isttf1", s.p22.isttf1);
        file.Value("p22.isttf2", s.p22.isttf2);
        break;
    case 23:
        file.Value("p23.isth", s.p23.isth);
        file.Value("p23.istb1", s.p23.istb1);
        file.Value("p23.isttw", s.p23.isttw);
        file.Value("p23.isttf", s.p23.isttf);
        file.Value("p23.ista", s.p23.ista);
        file.Value("weldopt", s.weldopt);
        break;
    case 24:
        file.Value("p24.isth", s.p24.isth);
        file.Value("p24.istb1", s.p24.istb1);
        file.Value("p24.istb2", s.p24.istb2);
        file.Value("p24.isttw", s.p24.isttw);
        file.Value("p24.isttf1", s.p24.isttf1);
        file.Value("p24.isttf2", s.p24.isttf2);
        file.Value("p24.hsqc", File::kReads ? s.p24.hsqc : s.p25.istc);  // part of the format
        file.Value("flangeload", s.flangeload);
        Upgrade(file, s, version);
        break;
    case 25:
        file.Value("p25.isth", s.p25.isth);
        file.Value("p25.istb1", s.p25.istb1);
        file.Value("p25.istb2", s.p25.istb2);
        file.Value("p25.isttw", s.p25.isttw);
        file.Value("p25.isttf1", s.p25.isttf1);
        file.Value("p25.isttf2", s.p25.isttf2);
        file.Value("p25.istc", s.p25.istc);
        Upgrade(file, s, version);
        break;
    case 26:
        file.Value("p26.isth", s.p26.isth);
        file.Value("p26.istb1", s.p26.istb1);
        file.Value("p26.isttw", s.p26.isttw);
        file.Value("p26.isttf1", s.p26.isttf1);
        break;
    default:
        file.Value("p27.isth", s.p27.isth);
        file.Value("p27.istb1", s.p27.istb1);
        file.Value("p27.istb2", s.p27.istb2);
        file.Value("p27.isttw", s.p27.isttw);
        file.Value("p27.isttf1", s.p27.isttf1);
        file.Value("p27.isttf2", s.p27.isttf2);
        file.Value("p27.istc", s.p27.istc);
        break;
    }
}

template <class File> void Plate(File& file, ProjectState& s)
{
    switch (s.family) {
    case 51:
        file.Value("p51.isth", s.p51.isth);
        file.Value("p51.istb1", s.p51.istb1);
        file.Value("p51.isttw", s.p51.isttw);
        file.Value("p51.isttf1", s.p51.isttf1);
        break;
    case 52:
        Row(file, s, Table::l3, "row.l3");
        file.Value("p52.istb1", s.p52.istb1);
        file.Value("p52.istt1", s.p52.istt1);
        break;
    case 53:
        file.Value("p53.isth", s.p53.isth);
        file.Value("p53.istb1", s.p53.istb1);
        file.Value("p53.istb2", s.p53.istb2);
        file.Value("p53.isttw", s.p53.isttw);
        file.Value("p53.isttf1", s.p53.isttf1);
        file.Value("p53.isttf2", s.p53.isttf2);
        break;
    case 54:
        Row(file, s, Table::hp, "row.hp");
        file.Value("p54.istb1", s.p54.istb1);
        file.Value("p54.istt1", s.p54.istt1);
        break;
    case 55:
        file.Value("p55.value1", s.p55.value1);
        file.Value("p55.value2", s.p55.value2);
        file.Value("p55.value3", s.p55.value3);
        file.Value("p55.value4", s.p55.value4);
        file.Value("p55.value5", s.p55.value5);
        file.Value("p55.value6", s.p55.value6);
        break;
    default:
        file.Value("p56.isth", s.p56.isth);
        file.Value("p56.istb1", s.p56.istb1);
        file.Value("p56.istb2", s.p56.istb2);
        file.Value("p56.isttw", s.p56.isttw);
        file.Value("p56.isttf1", s.p56.isttf1);
        file.Value("p56.isttf2", s.p56.isttf2);
        break;
    }
}

// A family without an entry has an empty block.
template <class File> void Section(File& file, ProjectState& s, i16 version)
{
    file.Value("family", s.family);
    if (!file.ok()) {
        return;
    }
    for (const TableRow& row : kTableRows) {
        if (row.family != 0 && row.family == s.family) {
            return Row(file, s, row.table, row.name);
        }
    }
    if (s.family >= 21 && s.family <= 27) {
        WeldedBeam(file, s, version);
    } else if (s.family == 28) {
        file.Value("p28.isth", s.p28.isth);
        file.Value("p28.isttw", s.p28.isttw);
    } else if (s.family == 31) {
        file.Value("p31.istd", s.p31.istd);
        file.Value("p31.isttw", s.p31.isttw);
        file.Value("tubehot", s.tubehot);
    } else if (s.family == 41) {
        GeneralProfile(file, s);
    } else if (s.family >= 51 && s.family <= 56) {
        Plate(file, s);
    } else if (s.family == 101 || s.family == 103) {
        BritishRow(file, s);
    }
}

template <class File> void Tail(File& file, ProjectState& s)
{
    file.Value("selfweight", s.selfweight);
    file.Value("cpmode", s.cpmode);
    file.Value("cpcount", s.cpcount);
    for (std::size_t k = 1; k <= 3; ++k) {
        file.Value(Indexed("cp", k), s.cp[k]);
    }
    file.Value("za", s.za);
    file.Value("terrain", s.terrain);
    file.Value("vortexcase", s.vortexcase);
    file.Value("spare1", s.spare1);
    file.Value("vb", s.vb);
    file.Value("zh", s.zh);
    file.Value("spare2", s.spare2);
}

template <class File> void Project(File& file, ProjectState& s)
{
    i16 version = kFileVersion;
    Head(file, s, version);
    Member(file, s);
    if (file.ok() && s.loadmode == 0) {
        EndForces(file, s);
    } else if (file.ok() && s.loadmode == 1) {
        Loads(file, s);
    }
    Section(file, s, version);
    Tail(file, s);
}

}  // namespace

std::optional<FileFault> ReadProject(ProjectState& s, std::string_view bytes)
{
    ReadingFile file(bytes);
    s.dropped = {};  // what was emptied belongs to the project before
    Project(file, s);
    if (!file.ok()) {
        return file.fault();
    }
    SetPsi(s);
    s.annexindex = AnnexIndexFromCode(s.annexcode);
    ApplyAnnexMaterial(s, s.annexindex);
    ApplyAnnexLoads(s, s, s.annexindex);
    return std::nullopt;
}

std::string WriteProject(ProjectState& s)
{
    s.annexcode = AnnexCodeFromIndex(s.annexindex);
    WritingFile file;
    Project(file, s);
    return file.Finish();
}

}  // namespace kestrum
