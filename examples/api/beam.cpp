// A floor beam: the lightest IPE whose ratios by both sets of rules are within the limit.

#include <kestrum/kestrum.hpp>

#include <iostream>

int main()
{
    const auto catalogue = kestrum::Catalogue::builtin();
    kestrum::Member beam(catalogue);
    const auto refused = beam.set({{"steel", "S355"},
                                   {"l", "7.2"},
                                   {"qload[1]", "12.5"},
                                   {"qload[2]", "15"},
                                   {"qtype[2]", "Q1"},
                                   {"restraints", "2"},
                                   {"checksls", "true"}});
    if (refused) {
        std::cerr << refused->text << '\n';
        return 2;
    }
    const auto names = catalogue.sections("IPE");
    for (const std::string& name : *names) {
        if (const auto error = beam.set("section", name)) {
            std::cerr << error->text << '\n';
            return 2;
        }
        const kestrum::Result result = beam.check();
        std::cout << name << ": " << result.ratio() << " (" << result.governing() << "), "
                  << result.ratio(kestrum::Basis::standard) << " by EN 1993-1-1 as written\n";
        if (result.status() == kestrum::Status::within &&
            result.status(kestrum::Basis::standard) == kestrum::Status::within) {
            std::cout << name << " passes\n";
            for (const kestrum::Note& note : result.notes()) {
                std::cout << note.id << ": " << note.text << '\n';
            }
            return 0;
        }
    }
    std::cout << "none passes\n";
    return 1;
}
