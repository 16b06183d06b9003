// A frame under the forces of another program: the worst case of each member, and
// the lightest section for all columns together.

#include <kestrum/kestrum.hpp>

#include <iostream>

namespace {

// Two stations for each column and case: N in kN, positive in compression; My in kNm.
struct Table {
    void add(std::size_t of, std::size_t number, double force, double start, double end, double l)
    {
        for (const bool first : {true, false}) {
            member.push_back(of);
            load_case.push_back(number);
            x.push_back(first ? 0 : l);
            n.push_back(force);
            my.push_back(first ? start : end);
        }
    }
    kestrum::Forces columns() const
    {
        kestrum::Forces forces{};
        forces.rows = x.size();
        forces.member = member.data();
        forces.load_case = load_case.data();
        forces.x = x.data();
        forces.n = n.data();
        forces.my = my.data();
        return forces;
    }

    std::vector<std::size_t> member, load_case;
    std::vector<double> x, n, my;
};

int complain(const kestrum::Error& error)
{
    std::cerr << error.text << '\n';
    return 2;
}

}  // namespace

int main()
{
    const std::vector<double> length = {3.5, 3.5, 4.2};
    Table table;
    for (std::size_t column = 0; column < length.size(); ++column) {
        table.add(column, 1, 420, 0, 38, length[column]);
        table.add(column, 2, 510, -22, 30, length[column]);
    }
    const kestrum::Forces forces = table.columns();

    const auto catalogue = kestrum::Catalogue::builtin();
    kestrum::Member base(catalogue);
    if (const auto error = base.set({{"section", "HEB 160"}, {"steel", "S355"}})) {
        return complain(*error);
    }
    const auto frame = kestrum::Envelope::check(base, {{"l", length}}, length.size(), forces);
    if (!frame) {
        return complain(frame.error());
    }
    for (const kestrum::Fault& fault : frame->faults()) {
        std::cerr << "member " << fault.member << ": " << fault.text << '\n';
    }
    for (std::size_t column = 0; column < frame->members(); ++column) {
        const auto worst = frame->worst(column);
        std::cout << "column " << column << ": " << worst->ratio << ", case "
                  << table.load_case.at(worst->row) << ", " << worst->governing << '\n';
    }

    kestrum::Pool pool(catalogue);
    for (const char* const series : {"HEA", "HEB"}) {
        if (const auto error = pool.add(series)) {
            return complain(*error);
        }
    }
    const std::vector<std::size_t> together(length.size(), 1);
    const auto lightest = kestrum::Selection::check(base, {{"l", length}}, length.size(), &forces,
                                                    pool, {}, together);
    if (!lightest) {
        return complain(lightest.error());
    }
    for (const kestrum::Choice& choice : lightest->found(0)) {
        std::cout << "all columns: " << choice.section << ", " << choice.mass << " kg/m, "
                  << choice.why << '\n';
    }
    if (const auto lighter = lightest->lighter(0)) {
        std::cout << "not " << lighter->section << ": " << lighter->why << '\n';
    }
    return lightest->found(0).empty() ? 1 : 0;
}
