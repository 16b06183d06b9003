// A family is its row: HEA under a second, made-up number gives the same results, pages, pictures,
// texts and file as family 1. This program is built with its own list of rows, see twin/.

#include "app/view_section.h"
#include "app/without_effect.h"
#include "core/project_file.h"
#include "core/project_state.h"
#include "report/detailed_table.h"
#include "report/diagrams.h"
#include "report/pages.h"
#include "report/panel_text.h"
#include "report/section_figure.h"
#include "report/svg_writer.h"
#include "sections/families.h"
#include "sections/family_table.h"
#include "service/vortex.h"
#include "support/random_project.h"

namespace kestrum {
namespace {

constexpr i16 kHea = 1, kTwin = 199;
const PrintStamp kStamp{"2024-05-17", "14:05"};

struct Pair {
    ProjectState hea, twin;
};

// The same random member twice, calculated.
Pair Members(std::uint64_t seed)
{
    Pair pair{RandomProject(seed), {}};
    pair.hea.family = kHea;
    pair.twin = pair.hea;
    pair.twin.family = kTwin;
    Calculate(Delivered(), pair.hea);
    Calculate(Delivered(), pair.twin);
    return pair;
}

// Everything that a face shows of the record, as text.
std::string Faces(const ProjectState& s)
{
    std::string text = PanelText(s, true) + DetailedText(FillDetailedResult(s));
    for (const PrintedReport& report :
         {PrintControl(Delivered(), s, kStamp), PrintProperties(Delivered(), s, kStamp)}) {
        for (const Drawing& page : report.pages) {
            text += WriteSvg(page);
        }
    }
    for (const Drawing& picture :
         {DrawSheet(s, LoadAxis::z), DrawSheet(s, LoadAxis::y), DrawSection(s),
          DrawSectionLetters(s.family), SectionIcon(s.family)}) {
        text += WriteSvg(picture);
    }
    for (const auto& values : {SectionDimensions(s), SectionProperties(s), SectionCapacities(s)}) {
        for (const ShownValue& value : values) {
            text += std::string(value.label) + value.value + std::string(value.unit) + "\n";
        }
    }
    text += SectionName(Delivered(), s) + std::string(SectionTitle(s.family)) +
            std::string(VortexRefusal(s.family));
    return text;
}

// `text` with the twin's number written as HEA's where the line or field of the family has it.
std::string AsHea(std::string text, const std::string& before, const std::string& after)
{
    const std::string own = before + std::to_string(kTwin) + after;
    const std::size_t at = text.find(own);
    return at == std::string::npos ? "no number in: " + text
                                   : text.replace(at, own.size(), before + "1" + after);
}

TEST(TwinOfHea, IsAFamily)
{
    ASSERT_NE(FindFamily(kTwin), nullptr);
    EXPECT_EQ(Families().back().id, kTwin);
    EXPECT_EQ(FamilyNumbers().back(), kTwin);
    EXPECT_EQ(TableOf(Member("family=199")), Table::hea);
}

TEST(TwinOfHea, HasTheSameFieldsAndFaces)
{
    int calculated = 0;
    for (std::uint64_t seed = FirstSeed(); seed < FirstSeed() + 150; ++seed) {
        SCOPED_TRACE(seed);
        const Pair pair = Members(seed);
        ASSERT_EQ(AsHea(StateJson(pair.twin), "\"family\": ", ","), StateJson(pair.hea));
        if (pair.hea.calculationerror) {
            continue;
        }
        ++calculated;
        ASSERT_EQ(Faces(pair.twin), Faces(pair.hea));
    }
    EXPECT_GT(calculated, 75);
}

TEST(TwinOfHea, HasTheSameInputsWithoutEffect)
{
    const Pair pair = Members(FirstSeed());
    for (const Field& field : AllFields()) {
        const std::string twin = WithoutEffect(Delivered(), pair.twin, field.name);
        const std::string hea = WithoutEffect(Delivered(), pair.hea, field.name);
        EXPECT_EQ(twin.ends_with("199") ? "the family is 1" : twin, hea) << field.name;
    }
}

TEST(TwinOfHea, HasTheSameFile)
{
    for (std::uint64_t seed = FirstSeed(); seed < FirstSeed() + 20; ++seed) {
        SCOPED_TRACE(seed);
        Pair pair = Members(seed);
        const std::string file = WriteProject(pair.twin);
        ASSERT_EQ(AsHea(file, "\n", "\r\n"), WriteProject(pair.hea));

        Member twin = Member(), hea = twin;
        ASSERT_FALSE(ReadProject(twin, file).has_value());
        ASSERT_FALSE(ReadProject(hea, WriteProject(pair.hea)).has_value());
        EXPECT_EQ(twin.row[0], pair.twin.row[0]);  // that of Table::hea
        EXPECT_EQ(AsHea(StateJson(twin), "\"family\": ", ","), StateJson(hea));
    }
}

}  // namespace
}  // namespace kestrum
