#include "realistic_member.h"

#include "report/state_json.h"
#include "sections/families.h"
#include "sections/family_table.h"
#include "sections/read_profiles.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <random>
#include <string_view>

namespace kestrum {

namespace {

class Dice {
public:
    explicit Dice(unsigned seed) : random_(seed) {}

    int Whole(int low, int high)
    {
        return low + static_cast<int>(random_() % static_cast<unsigned>(high - low + 1));
    }
    bool Happens(int percent) { return Whole(1, 100) <= percent; }
    double Between(double low, double high) { return low + (high - low) * Whole(0, 10000) / 1e4; }
    template <class T> T Of(std::initializer_list<T> values)
    {
        return values.begin()[Whole(0, static_cast<int>(values.size()) - 1)];
    }

private:
    std::mt19937 random_;
};

std::string Digits(double value, double step)
{
    return JsonNumber(static_cast<float>(std::round(value / step) * step));
}

void Roll(Entries& in, std::string name, double value, double step)
{
    in.push_back({std::move(name), Digits(value, step)});
}

// The plates of an I section or box in millimetres, as fabricators make them; returns the depth.
double RollPlates(Dice& dice, int family, Entries& in)
{
    const std::string form = "p" + std::to_string(family) + ".";
    const double h =
        family == 24 || family == 25 ? dice.Between(200, 500) : dice.Between(250, 1500);
    const double slender = dice.Between(40, family == 23 || family == 27 ? 120 : 150);
    const double b = h * dice.Between(0.25, 0.6);
    Roll(in, form + "isth", h, 10);
    Roll(in, form + "isttw", std::max(5.0, h / slender), 1);
    Roll(in, form + "istb1", std::max(100.0, b), 10);
    const double thin = dice.Between(12, 40);
    const double tf = std::max(8.0, b / thin);
    if (family == 21 || family == 23) {
        Roll(in, form + "isttf", tf, 1);
        if (family == 23 && dice.Happens(50)) {
            Roll(in, "p23.ista", tf * dice.Between(2, 14), 5);
        }
        return h;
    }
    const double wide =
        b * (family == 24 || family == 25 ? dice.Between(1.2, 2.0) : dice.Between(0.6, 2.0));
    Roll(in, form + "istb2", std::max(100.0, wide), 10);
    Roll(in, form + "isttf1", tf, 1);
    Roll(in, form + "isttf2", std::max(8.0, tf * dice.Between(0.6, 1.5)), 1);
    return h;
}

// Section; returns its depth in mm.
double RollSection(Dice& dice, const Library& library, Entries& in)
{
    static const std::vector<int> kFamilies = FamilyNumbers();
    const int family =
        kFamilies[static_cast<std::size_t>(dice.Whole(0, static_cast<int>(kFamilies.size()) - 1))];
    in.push_back({"family", std::to_string(family)});
    const FamilyTraits& traits = TraitsOf(family);
    if (traits.tables.empty()) {
        switch (family) {
        case 21:
        case 22:
        case 23:
        case 24:
        case 25:
        case 27:
            return RollPlates(dice, family, in);
        case 26:
            Roll(in, "p26.isth", dice.Between(100, 300), 10);
            Roll(in, "p26.istb1", dice.Between(100, 300), 10);
            return 200;
        case 28:
            Roll(in, "p28.isth", dice.Between(80, 300), 10);
            Roll(in, "p28.isttw", dice.Between(8, 40), 1);
            return 150;
        case 31: {
            const double d = dice.Between(60, 600);
            Roll(in, "p31.istd", d, 1);
            Roll(in, "p31.isttw", std::max(3.0, d / dice.Between(15, 60)), 0.5);
            return d;
        }
        case 51:
        case 53:
        case 56: {
            const std::string form = "p" + std::to_string(family) + ".";
            Roll(in, form + "istb1", dice.Between(200, 900), 10);
            Roll(in, form + "isttf1", dice.Between(6, 20), 1);
            Roll(in, form + "isth", dice.Between(100, 700), 10);
            Roll(in, form + "isttw", dice.Between(5, 15), 1);
            return 300;
        }
        case 41:
            in.push_back({"p41.istaz", dice.Of({"3000", "5000", "7000", "10000", "12000"})});
            return 300;
        default:
            return 300;
        }
    }
    const auto series =
        static_cast<std::size_t>(dice.Whole(0, static_cast<int>(traits.tables.size()) - 1));
    if (traits.tables.size() > 1) {
        in.push_back({family == 101 ? "series101" : "series103", std::to_string(series + 1)});
    }
    const Table table = traits.tables[series];
    const int row = dice.Whole(0, RowCount(table) - 1);
    const std::string_view file = ShapeOf(table).file;
    in.push_back({"row." + std::string(file.substr(0, file.find('.'))), std::to_string(row)});
    const float key = library.tables[static_cast<std::size_t>(table)].At(row, 1);
    return key > 20 && key < 1200 ? key : 300;
}

// Returns the length in m.
double RollMember(Dice& dice, double h, Entries& in)
{
    if (dice.Happens(40)) {
        in.push_back({"annexcode", dice.Of({"NO", "SW", "DK", "UK", "FI", "GE", "NK", "UD"})});
    }
    in.push_back({"fykindex", std::to_string(dice.Of({0, 1, 2, 2, 6, 7, 14, 17, 19, 23, 25}))});
    in.push_back({"loadcomb", std::to_string(dice.Of({0, 0, 1, 2, 3, 4, 5}))});
    for (const char* const name : {"psi1index", "psi2index"}) {
        if (dice.Happens(50)) {
            in.push_back({name, std::to_string(dice.Of({2, 4, 5, 6, 9}))});
        }
    }
    const int support = dice.Happens(60) ? 0 : dice.Whole(1, 5);
    const double slender = support == 4 ? dice.Between(4, 10) : dice.Between(8, 30);
    const double l = std::round(std::max(0.5, slender * h / 1000) * 10) / 10;
    Roll(in, "l", l, 0.1);
    in.push_back({"supportcase", std::to_string(support)});
    if (support == 3 || support == 5) {
        Roll(in, "spring", dice.Between(10, 80), 5);
    }
    for (const char* const name : {"ly", "lz"}) {
        in.push_back({name, support == 4 && dice.Happens(60)
                                ? "2"
                                : dice.Of({"1", "1", "1", "0.7", "0.5", "0.001"})});
    }
    in.push_back({"method", dice.Of({"1", "2"})});
    in.push_back({"ltb", dice.Happens(80) ? "1" : "0"});
    in.push_back({"restraints", dice.Of({"0", "0", "0", "1", "2", "3"})});
    in.push_back({"ltbcurve", dice.Of({"2", "3", "3"})});
    in.push_back(
        {"ltbk", support == 4 ? dice.Of({"1", "2", "2"}) : dice.Of({"1", "1", "1", "0.5", "0.7"})});
    in.push_back({"loadlevel", dice.Of({"1", "1", "2", "3"})});
    in.push_back({"endstiff", dice.Of({"0", "1"})});
    if (dice.Happens(30)) {
        in.push_back({"webstiff", "1"});
        Roll(in, "webstiffa", h * dice.Between(1, 3), 50);
    }
    for (const char* const name : {"weldopt", "class23", "rectaxis", "tubehot"}) {
        if (dice.Happens(30)) {
            in.push_back({name, dice.Of({"0", "1", "2"})});
        }
    }
    in.push_back({"selfweight", dice.Of({"0", "1"})});
    in.push_back({"checksls", dice.Happens(10) ? "true" : "false"});
    return l;
}

void RollLoads(Dice& dice, double l, Entries& in)
{
    const auto category = [&] { return std::to_string(dice.Of({0, 1, 2})); };
    if (dice.Happens(15)) {
        in.push_back({"loadmode", "0"});
        for (const char* const name : {"ne", "my1", "my2", "mz1", "mz2", "vz1", "vy1"}) {
            if (dice.Happens(45)) {
                const bool about_z = name[1] == 'z' || name[1] == 'y';
                const double size = name[0] == 'm' && about_z && name[1] == 'z' ? 2 : 10;
                Roll(in, name, (name[0] == 'n' ? 5 : 1) * dice.Between(-0.5 * size, size), 0.1);
            }
        }
        return;
    }
    for (const char* const row : {"[1]", "[2]", "[3]"}) {
        const std::string k = row;
        if (dice.Happens(k == "[1]" ? 80 : 35)) {
            Roll(in, "qload" + k, dice.Happens(85) ? dice.Between(1, 10) : dice.Between(-10, -1),
                 0.1);
            in.push_back({"qtype" + k, category()});
            in.push_back({"qdir" + k, dice.Happens(80) ? "1" : "0"});
            in.push_back({"qchecked" + k, "true"});
        }
        if (dice.Happens(30)) {
            Roll(in, "pm" + k, dice.Between(1, 10), 0.1);
            in.push_back({"pmkind" + k, dice.Happens(80) ? "0" : "1"});
            Roll(in, "pmx" + k, l * dice.Of({0.0, 0.25, 0.3, 0.5, 0.5, 0.7, 1.0}), 0.1);
            in.push_back({"pmtype" + k, category()});
            in.push_back({"pmdir" + k, dice.Happens(85) ? "1" : "0"});
            in.push_back({"pmchecked" + k, "true"});
        }
    }
    if (dice.Happens(40)) {
        Roll(in, "nload[1]", dice.Happens(70) ? dice.Between(5, 60) : dice.Between(-60, -5), 0.1);
        in.push_back({"ntype[1]", category()});
    }
    if (dice.Happens(10)) {
        Roll(in, "qt1[1]", dice.Between(0, 5), 0.1);
        Roll(in, "qt2[1]", dice.Between(0, 10), 0.1);
        in.push_back({"qtx2[1]", JsonNumber(static_cast<float>(l))});
        in.push_back({"qtchecked[1]", "true"});
    }
}

// What few engineers choose; last, so that the rest of a member does not depend on it.
void RollChoices(Dice& dice, Entries& in)
{
    if (dice.Happens(15)) {
        in.push_back({"checkelastic", "true"});
    }
    if (dice.Happens(50)) {
        in.push_back({"safetyclass", dice.Of({"1", "2", "3"})});
    }
}

}  // namespace

Entries RealisticMember(const Library& library, unsigned seed)
{
    Dice dice(seed);
    Entries inputs;
    const double h = RollSection(dice, library, inputs);
    const double l = RollMember(dice, h, inputs);
    RollLoads(dice, l, inputs);
    RollChoices(dice, inputs);
    return inputs;
}

}  // namespace kestrum
