#pragma once

// A project file as the list of its values: the canonical name of each field and the text that
// stands in its line. Written out by hand from the layout, so that a test holds the layout and not
// a copy of what the program wrote.

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace project_lines {

struct Line {
    std::string name, text;
};
using Lines = std::vector<Line>;

inline std::string Joined(const Lines& lines)
{
    std::string bytes;
    for (const Line& line : lines) {
        bytes += line.text + "\r\n";
    }
    return bytes;
}

inline Lines::iterator Find(Lines& lines, std::string_view name)
{
    const auto at = std::find_if(lines.begin(), lines.end(),
                                 [name](const Line& line) { return line.name == name; });
    if (at == lines.end()) {
        throw std::invalid_argument("no line " + std::string(name));
    }
    return at;
}

inline void Set(Lines& lines, std::string_view name, const std::string& text)
{
    Find(lines, name)->text = text;
}

inline void Erase(Lines& lines, std::string_view name)
{
    lines.erase(Find(lines, name));
}

inline Lines Head()
{
    return {{"version", "131"},
            {"projname", "Project"},
            {"ident", "Test"},
            {"annexcode", "\"EU\""},
            {"gammam0", "1"},
            {"gammam1", "1"},
            {"neta", "1.2"},
            {"method", "1"},
            {"fykindex", "5"},
            {"fyk", "355"},
            {"e", "210000"},
            {"uflimit", "0"},
            {"checkelastic", "#FALSE#"},
            {"checkconsercontrol", "#FALSE#"},
            {"checkflangebuck", "#FALSE#"},
            {"checkwebbuck", "#FALSE#"},
            {"loadcomb", "4"},
            {"deflimity", "300"},
            {"deflimitz", "300"},
            {"safetyclass", "3"},
            {"psi1index", "6"},
            {"psi2index", "6"},
            {"lfulsg", "1"},
            {"lfulsq1", "1.3"},
            {"lfulsq2", ".7"},
            {"lfslsg", "1"},
            {"lfslsq1", "1"},
            {"lfslsq2", "1"},
            {"checksls", "#FALSE#"},
            {"rectaxis", "1"},
            {"checkconsercontrol", "#FALSE#"},
            {"endstiff", "0"},
            {"webstiff", "0"},
            {"bcy", "0"},
            {"bcz", "0"},
            {"bucklingcasey", "2"},
            {"bucklingcasez", "2"},
            {"hsqopt", "0"},
            {"lopt", "1"},
            {"modal", "0"},
            {"supportcase", "0"},
            {"spring", "50"},
            {"loadmode", "1"},
            {"loadlevel", "1"},
            {"ltb", "1"},
            {"ltbcase", "2"},
            {"restraints", "0"},
            {"beampart", "0"},
            {"cmanual", "#FALSE#"},
            {"c1alt", "#FALSE#"},
            {"ltbcurve", "3"},
            {"c1", "1"},
            {"c2", "1"},
            {"c3", "1"},
            {"l", "5"},
            {"webstiffa", "5000"},
            {"ltbk", "1"},
            {"ly", "1"},
            {"lz", "1"}};
}

inline Lines EndForces()
{
    return {{"ne", "100"}, {"my1", "100"}, {"my2", "0"},  {"vy1", "0"}, {"vy2", "0"},
            {"mz1", "0"},  {"mz2", "0"},   {"vz1", "50"}, {"vz2", "0"}};
}

inline Lines Loads()
{
    Lines lines;
    const auto add = [&lines](const char* name, int row, const char* text) {
        lines.push_back({std::string(name) + "[" + std::to_string(row) + "]", text});
    };
    const char* const truth[] = {"#FALSE#", "#TRUE#"};
    for (int k = 1; k <= 3; ++k) {
        add("nload", k, k == 1 ? "100" : "0");
        add("ntype", k, "0");
        add("nchecked", k, truth[k == 1]);
    }
    for (int k = 1; k <= 4; ++k) {
        add("qload", k, k == 1 ? "10" : "0");
        add("qtype", k, "0");
        add("qdir", k, "1");
        add("qchecked", k, truth[k == 1]);
    }
    for (int k = 1; k <= 3; ++k) {
        for (const char* name : {"qt1", "qt2", "qtx1", "qtx2", "qttype"}) {
            add(name, k, "0");
        }
        add("qtdir", k, "1");
        add("qtchecked", k, truth[k == 1]);
    }
    for (int k = 1; k <= 8; ++k) {
        for (const char* name : {"pmkind", "pm", "pmx", "pmtype"}) {
            add(name, k, "0");
        }
        add("pmdir", k, "1");
        add("pmchecked", k, truth[k == 1]);
    }
    return lines;
}

inline Lines Tail()
{
    return {{"selfweight", "0"}, {"cpmode", "0"}, {"cpcount", "1"}, {"cp[1]", "1"},
            {"cp[2]", "2"},      {"cp[3]", "3"},  {"za", "0"},      {"terrain", "2"},
            {"vortexcase", "1"}, {"spare1", "1"}, {"vb", "25"},     {"zh", "10"},
            {"spare2", "1"}};
}

// The file of a new project with the given load mode, family and section block.
inline Lines Project(int loadmode, int family, const Lines& block)
{
    Lines lines = Head();
    Set(lines, "loadmode", std::to_string(loadmode));
    const auto append = [&lines](const Lines& more) {
        lines.insert(lines.end(), more.begin(), more.end());
    };
    append(loadmode == 0 ? EndForces() : loadmode == 1 ? Loads() : Lines{});
    append({{"family", std::to_string(family)}});
    append(block);
    append(Tail());
    return lines;
}

inline Lines DefaultProject()
{
    return Project(1, 1, {{"row.hea", "10"}});
}

// The section block of each family with an entry, at its starting values.
struct Block {
    int family;
    Lines lines;
};

inline std::vector<Block> SectionBlocks()
{
    return {
        {1, {{"row.hea", "10"}}},
        {2, {{"row.heb", "10"}}},
        {3, {{"row.hem", "10"}}},
        {4, {{"row.ipe", "10"}}},
        {5, {{"row.upe", "10"}}},
        {6, {{"row.shs", "50"}}},
        {7, {{"row.rhs", "50"}}},
        {8, {{"row.cfshs", "50"}}},
        {9, {{"row.cfrhs", "50"}}},
        {10, {{"row.l1", "50"}}},
        {11, {{"row.l2", "40"}}},
        {15, {{"row.inp", "11"}}},
        {16, {{"row.unp", "10"}}},
        {21, {{"p21.isth", "600"}, {"p21.istb1", "300"}, {"p21.isttw", "12"}, {"p21.isttf", "20"}}},
        {22,
         {{"p22.isth", "600"},
          {"p22.istb1", "200"},
          {"p22.istb2", "400"},
          {"p22.isttw", "12"},
          {"p22.isttf1", "20"},
          {"p22.isttf2", "20"}}},
        {23,
         {{"p23.isth", "600"},
          {"p23.istb1", "600"},
          {"p23.isttw", "10"},
          {"p23.isttf", "20"},
          {"p23.ista", "50"},
          {"weldopt", "0"}}},
        {24,
         {{"p24.isth", "300"},
          {"p24.istb1", "300"},
          {"p24.istb2", "540"},
          {"p24.isttw", "6"},
          {"p24.isttf1", "25"},
          {"p24.isttf2", "15"},
          {"p24.hsqc", "5"},
          {"flangeload", "50"},
          {"class23", "1"}}},
        {25,
         {{"p25.isth", "300"},
          {"p25.istb1", "300"},
          {"p25.istb2", "430"},
          {"p25.isttw", "6"},
          {"p25.isttf1", "25"},
          {"p25.isttf2", "15"},
          {"p25.istc", "15"},
          {"class23", "1"}}},
        {26,
         {{"p26.isth", "200"}, {"p26.istb1", "200"}, {"p26.isttw", "10"}, {"p26.isttf1", "10"}}},
        {27,
         {{"p27.isth", "600"},
          {"p27.istb1", "600"},
          {"p27.istb2", "600"},
          {"p27.isttw", "10"},
          {"p27.isttf1", "20"},
          {"p27.isttf2", "20"},
          {"p27.istc", "25"}}},
        {28, {{"p28.isth", "150"}, {"p28.isttw", "12"}}},
        {31, {{"p31.istd", "300"}, {"p31.isttw", "10"}, {"tubehot", "1"}}},
        {41,
         {{"p41ident", "\"General\""},
          {"p41.opn", "3"},
          {"p41.opmy", "1"},
          {"p41.opmz", "1"},
          {"p41.istax", "18720"},
          {"p41.istay", "12000"},
          {"p41.istaz", "6720"},
          {"p41.istix", "1923000"},
          {"p41.istiy", "1.185E+09"},
          {"p41.istiz", "9.008E+07"},
          {"p41.istiw", "7.569E+12"},
          {"p41.istwely", "3951000"},
          {"p41.istwelz", "600500"},
          {"p41.istwply", "4421000"},
          {"p41.istwplz", "920200"}}},
        {51,
         {{"p51.isth", "200"}, {"p51.istb1", "600"}, {"p51.isttw", "10"}, {"p51.isttf1", "10"}}},
        {52, {{"row.l3", "5"}, {"p52.istb1", "600"}, {"p52.istt1", "10"}}},
        {53,
         {{"p53.isth", "300"},
          {"p53.istb1", "600"},
          {"p53.istb2", "100"},
          {"p53.isttw", "11.5"},
          {"p53.isttf1", "10"},
          {"p53.isttf2", "16"}}},
        {54, {{"row.hp", "5"}, {"p54.istb1", "600"}, {"p54.istt1", "10"}}},
        {55,
         {{"p55.value1", "250"},
          {"p55.value2", "600"},
          {"p55.value3", "200"},
          {"p55.value4", "8"},
          {"p55.value5", "12"},
          {"p55.value6", "50"}}},
        {56,
         {{"p56.isth", "580"},
          {"p56.istb1", "300"},
          {"p56.istb2", "300"},
          {"p56.isttw", "12"},
          {"p56.isttf1", "20"},
          {"p56.isttf2", "20"}}},
        {101, {{"series101", "1"}, {"row.ub", "10"}}},
        {101, {{"series101", "2"}, {"row.uc", "10"}}},
        {101, {{"series101", "3"}, {"row.ubp", "10"}}},
        {102, {{"row.j", "10"}}},
        {103, {{"series103", "1"}, {"row.ch", "10"}}},
        {103, {{"series103", "2"}, {"row.pfc", "10"}}},
    };
}

inline bool HasBlock(int family)
{
    const auto blocks = SectionBlocks();
    return std::any_of(blocks.begin(), blocks.end(),
                       [family](const Block& block) { return block.family == family; });
}

// The first block of the family.
inline Block BlockOf(int family)
{
    for (Block& block : SectionBlocks()) {
        if (block.family == family) {
            return block;
        }
    }
    throw std::invalid_argument("no block of family " + std::to_string(family));
}

}  // namespace project_lines
