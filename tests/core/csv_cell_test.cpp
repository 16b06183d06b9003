#include "core/csv_cell.h"

#include <gtest/gtest.h>

namespace kestrum {
namespace {

struct CellCase {
    const char* text;
    const char* plain;
    const char* safe;
};

class CsvCell : public ::testing::TestWithParam<CellCase> {};

TEST_P(CsvCell, IsOneCellOfOneLine)
{
    std::string plain, safe;
    AppendCell(plain, GetParam().text);
    AppendCell(safe, GetParam().text, CsvTexts::safe);
    EXPECT_EQ(plain, GetParam().plain);
    EXPECT_EQ(safe, GetParam().safe);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CsvCell,
    ::testing::Values(CellCase{"", "", ""}, CellCase{"B1", "B1", "B1"},
                      CellCase{"a,b", "\"a,b\"", "\"a,b\""},
                      CellCase{"5\" pipe", "\"5\"\" pipe\"", "\"5\"\" pipe\""},
                      CellCase{"a\r\nb", "a  b", "a  b"}, CellCase{"a\tb", "a b", "a b"},
                      CellCase{"\x1B[2J", "?[2J", "?[2J"},
                      CellCase{"S\xC3\xB8yle", "S\xC3\xB8yle", "S\xC3\xB8yle"},
                      // What a spreadsheet would run.
                      CellCase{"=1+1", "=1+1", "'=1+1"},
                      CellCase{"@SUM(A1)", "@SUM(A1)", "'@SUM(A1)"},
                      CellCase{"-B12", "-B12", "'-B12"}, CellCase{"+B12", "+B12", "'+B12"},
                      CellCase{"=A1,2", "\"=A1,2\"", "\"'=A1,2\""}, CellCase{" =1", " =1", "' =1"},
                      CellCase{"\t=1", " =1", "' =1"}, CellCase{"-", "-", "'-"},
                      // Levels and other numbers are not run.
                      CellCase{"+4.200", "+4.200", "+4.200"}, CellCase{"-12", "-12", "-12"}));

}  // namespace
}  // namespace kestrum
