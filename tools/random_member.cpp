#include "random_member.h"

#include "core/project_state.h"
#include "engine/new_project.h"
#include "sections/families.h"

#include <cmath>
#include <random>
#include <vector>

namespace kestrum {

namespace {

class Dice {
public:
    explicit Dice(std::size_t seed) : random_(static_cast<std::mt19937::result_type>(seed)) {}

    int Whole(int low, int high)
    {
        const auto count = static_cast<std::mt19937::result_type>(high - low + 1);
        return low + static_cast<int>(random_() % count);
    }
    i16 Choice(int low, int high) { return static_cast<i16>(Whole(low, high)); }
    i16 Truth() { return Whole(0, 1) == 0 ? kFalse : kTrue; }
    float Between(double low, double high)
    {
        return static_cast<float>(low + (high - low) * Whole(0, 1000000) / 1e6);
    }

private:
    std::mt19937 random_;
};

void RollLoads(Dice& dice, ProjectState& s)
{
    s.loadmode = dice.Choice(0, 3) == 0 ? 0 : 1;
    for (float* const force : {&s.ne, &s.my1, &s.my2, &s.vz1, &s.vz2, &s.mz1, &s.mz2}) {
        *force = dice.Between(-60, 120);
    }
    s.selfweight = dice.Choice(0, 1);
    for (std::size_t k = 1; k <= 3; ++k) {
        s.nload[k] = dice.Between(-50, 80);
        s.ntype[k] = static_cast<float>(dice.Whole(0, 2));
        if (dice.Whole(0, 2) == 0) {
            s.qt1[k] = dice.Between(0, 15);
            s.qt2[k] = dice.Between(0, 15);
            s.qtx1[k] = s.l * dice.Between(0, 0.4);
            s.qtx2[k] = s.l * dice.Between(0.5, 1);
            s.qttype[k] = static_cast<float>(dice.Whole(0, 2));
            s.qtdir[k] = static_cast<float>(dice.Whole(0, 1));
        }
    }
    for (std::size_t k = 1; k <= 4; ++k) {
        s.qload[k] = dice.Whole(0, 1) == 0 ? 0 : dice.Between(-5, 25);
        s.qtype[k] = dice.Choice(0, 2);
        s.qdir[k] = dice.Choice(0, 3) == 0 ? 0 : 1;
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        if (dice.Whole(0, 3) == 0) {
            s.pmkind[k] = dice.Choice(0, 1);
            s.pm[k] = dice.Between(-20, 40);
            s.pmx[k] = s.l * dice.Between(0.01, 0.99);
            s.pmtype[k] = dice.Choice(0, 2);
            s.pmdir[k] = dice.Choice(0, 3) == 0 ? 0 : 1;
        }
    }
}

void RollSection(Dice& dice, const Library& library, ProjectState& s)
{
    static const std::vector<int> kFamilies = FamilyNumbers();
    s.family = static_cast<i16>(
        kFamilies[static_cast<std::size_t>(dice.Whole(0, static_cast<int>(kFamilies.size()) - 1))]);
    for (std::size_t i = 0; i < kTables; ++i) {
        s.row[i] = dice.Choice(0, library.tables[i].rows - 1);
    }
    s.series101 = dice.Choice(1, 3);
    s.series103 = dice.Choice(1, 2);
    s.rectaxis = dice.Choice(1, 2);
    s.hsqopt = dice.Choice(0, 1);
    s.lopt = dice.Choice(1, 2);
    s.weldopt = dice.Choice(0, 1);
    s.tubehot = dice.Choice(1, 2);
    s.class23 = dice.Choice(0, 1);
    s.flangeload = dice.Between(0, 100);
    s.p21 = {dice.Between(200, 1500), dice.Between(100, 500), dice.Between(4, 20),
             dice.Between(6, 40)};
    s.p22.isth = dice.Between(200, 1500);
    s.p22.istb1 = dice.Between(100, 500);
    s.p22.isttw = dice.Between(4, 20);
    s.p24.isttw = dice.Between(4, 12);
    s.p25.isttw = dice.Between(4, 12);
    s.p26.isttw = dice.Between(6, 20);
    s.p27.isttw = dice.Between(5, 15);
    s.p28.isttw = dice.Between(8, 40);
    s.p31.isttw = dice.Between(4, 20);
}

void RollMember(Dice& dice, ProjectState& s)
{
    s.l = dice.Between(1, 12);
    s.supportcase = dice.Choice(0, 5);
    s.spring = dice.Choice(0, 100);
    s.fykindex = dice.Choice(0, 9);
    s.method = dice.Choice(1, 2);
    s.loadcomb = dice.Choice(0, 5);
    s.safetyclass = dice.Choice(1, 3);
    s.checksls = dice.Truth();
    s.checkelastic = dice.Truth();
    s.checkconsercontrol = dice.Whole(0, 3) == 0 ? kTrue : kFalse;
    s.modal = dice.Choice(0, 1);
    s.ly = dice.Between(0.3, 2);
    s.lz = dice.Between(0.3, 2);
    s.bcy = dice.Choice(0, 5);
    s.bcz = dice.Choice(0, 5);
    s.ltb = dice.Choice(0, 1);
    s.restraints = dice.Choice(0, 5);
    s.beampart = dice.Choice(1, s.restraints + 1);
    s.c1alt = dice.Truth();
    s.ltbcurve = dice.Choice(2, 3);
    s.loadlevel = dice.Choice(1, 4);
    s.za = dice.Between(-100, 100);
    s.webstiff = dice.Choice(0, 1);
    s.webstiffa = dice.Between(300, 900);
    s.endstiff = dice.Choice(0, 1);
    s.cpmode = dice.Choice(0, 1);
    s.cpcount = dice.Choice(1, 3);
}

}  // namespace

ProjectState RandomMember(const Library& library, std::size_t number)
{
    Dice dice(number);
    ProjectState s{};
    StartUp(library, s);
    RollMember(dice, s);
    RollSection(dice, library, s);
    RollLoads(dice, s);
    return s;
}

void MakePlain(ProjectState& s, std::size_t number)
{
    const ProjectState rolled = s;
    s.selfweight = 0;
    s.qload = {};
    s.qt1 = s.qt2 = {};
    s.pm = {};
    s.nload = {};
    s.my1 = s.my2 = s.mz1 = s.mz2 = s.vz1 = s.vz2 = s.vy1 = s.vy2 = s.ne = 0;
    s.checkelastic = s.checkconsercontrol = kFalse;
    s.bcy = s.bcz = 0;
    s.ltb = 0;
    s.restraints = 0;
    s.webstiff = 0;
    s.cpmode = 0;
    s.hsqopt = 1;
    s.supportcase = 0;
    s.loadmode = number % 2 == 0 ? 0 : 1;
    if (s.loadmode == 1) {
        s.loadcomb = 4;
        s.lfulsg = s.lfulsq1 = s.lfulsq2 = s.lfslsg = s.lfslsq1 = s.lfslsq2 = 1;
        s.nload[1] = number % 4 == 1 ? rolled.nload[1] : 0;
        s.qload[1] = number % 4 == 3 ? 1 + std::abs(rolled.nload[2]) / 5 : 0;
        s.qdir[1] = 1;
        return;
    }
    s.ne = number % 3 == 0 ? rolled.ne : 0;
    s.my1 = s.my2 = number % 5 < 2 ? rolled.my1 : 0;
    s.vz1 = s.vz2 = number % 5 == 2 ? rolled.vz1 : 0;
    s.mz1 = s.mz2 = number % 7 == 3 ? rolled.mz1 / 5 : 0;
}

}  // namespace kestrum
