#pragma once

// What the tests of the printed pages share: a member of any family under loads, the texts of a
// page as lines, and whether a page is legible.

#include "core/check_text.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "report/pages.h"
#include "report/panel.h"
#include "support/members.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kestrum {

inline const PrintStamp kStamp{"2024-05-17", "14:05"};

// A short member under small loads in both directions, so that every family carries them.
inline Member Designed(int family, void (*change)(ProjectState&) = nullptr)
{
    Member s = Member().Family(family).Length(2).Axial(1).Load(1);
    s.projname = "Hall 7";
    s.ident = "B-101";
    s.filename = "hall.kst";
    s.qload[2] = 0.5F;
    s.qdir[2] = 0;
    s.checksls = kTrue;
    s.checkconsercontrol = family == 28 ? kTrue : kFalse;  // flat bar: the linear form
    if (change != nullptr) {
        change(s);
    }
    return s.Calculated();
}

inline std::vector<TextMark> TextsOf(const Drawing& page)
{
    std::vector<TextMark> texts;
    for (const Mark& mark : page.marks) {
        if (const auto* text = std::get_if<TextMark>(&mark)) {
            texts.push_back(*text);
        }
    }
    return texts;
}

inline std::vector<TextMark> TextsOf(const PrintedReport& report)
{
    std::vector<TextMark> texts;
    for (const Drawing& page : report.pages) {
        const std::vector<TextMark> more = TextsOf(page);
        texts.insert(texts.end(), more.begin(), more.end());
    }
    return texts;
}

// The texts of each row, from left to right, joined as they follow each other.
inline std::vector<std::string> LinesOf(const Drawing& page)
{
    std::vector<TextMark> texts = TextsOf(page);
    std::stable_sort(texts.begin(), texts.end(), [](const TextMark& a, const TextMark& b) {
        return a.at.y != b.at.y ? a.at.y < b.at.y : BoundsOf(a).left < BoundsOf(b).left;
    });
    std::vector<std::string> lines;
    double y = -1;
    for (const TextMark& text : texts) {
        if (text.at.y != y) {
            lines.emplace_back();
            y = text.at.y;
        }
        lines.back() += text.text;
    }
    return lines;
}

inline std::vector<std::string> LinesOf(const PrintedReport& report)
{
    std::vector<std::string> lines;
    for (const Drawing& page : report.pages) {
        const std::vector<std::string> more = LinesOf(page);
        lines.insert(lines.end(), more.begin(), more.end());
    }
    return lines;
}

// Nothing outside the page, no text over another, all of it large enough to read.
inline void ExpectLegible(const Drawing& page)
{
    EXPECT_EQ(page.width, 210);
    EXPECT_EQ(page.height, 297);
    constexpr double kSixPoints = 6 * 25.4 / 72;  // mm
    const Bounds sheet{5, 5, 205, 292};
    for (const Mark& mark : page.marks) {
        EXPECT_TRUE(BoundsOf(mark).Inside(sheet));
    }
    const std::vector<TextMark> texts = TextsOf(page);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_GE(texts[i].size, kSixPoints) << texts[i].text;
        Bounds box = BoundsOf(texts[i]);
        constexpr double kTouch = 0.1;  // runs of one line touch each other
        box = {box.left + kTouch, box.top + kTouch, box.right - kTouch, box.bottom - kTouch};
        for (std::size_t j = i + 1; j < texts.size(); ++j) {
            EXPECT_FALSE(box.Overlaps(BoundsOf(texts[j])))
                << texts[i].text << " | " << texts[j].text;
        }
    }
}

inline void ExpectLegible(const PrintedReport& report)
{
    ASSERT_THAT(report.pages, ::testing::Not(::testing::IsEmpty()));
    for (const Drawing& page : report.pages) {
        ExpectLegible(page);
    }
}

// The row stands on the page, whole.
inline void ExpectRow(const std::vector<std::string>& lines, const Check& row)
{
    if (row.empty()) {
        return;
    }
    const RowText text = ShownTextOf(row);
    const auto at = std::find_if(lines.begin(), lines.end(), [&](const std::string& line) {
        return line.starts_with(text.label) && line.find(text.calculation) != std::string::npos;
    });
    ASSERT_NE(at, lines.end()) << text.label;
    if (IsJudged(row)) {
        EXPECT_THAT(*at, ::testing::HasSubstr(text.result + std::string(AboveWord(row.status)) +
                                              text.limit));
    }
}

}  // namespace kestrum
