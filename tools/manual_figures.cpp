// Draws the figures of the manuals as SVG: each section family with the letters of its dimensions.
//
//   kestrum-figures FOLDER

#include "core/file_io.h"
#include "report/section_figure.h"
#include "report/svg_writer.h"
#include "sections/family_table.h"

#include <iostream>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: kestrum-figures FOLDER\n";
        return 2;
    }
    for (const kestrum::FamilyTraits& family : kestrum::Families()) {
        const std::string number = std::to_string(family.id);
        const std::string path = std::string(argv[1]) + "/section-" +
                                 std::string(3 - number.size(), '0') + number + ".svg";
        const std::string fault = kestrum::WriteWholeFile(
            path, kestrum::WriteSvg(kestrum::DrawSectionLetters(family.id), 4));
        if (!fault.empty()) {
            std::cerr << "kestrum-figures: " << path << ": " << fault << '\n';
            return 1;
        }
    }
    return 0;
}
