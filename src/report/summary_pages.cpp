#include "report/summary_pages.h"

#include "core/number_format.h"
#include "core/version.h"
#include "report/figure_tools.h"
#include "report/page_notes.h"
#include "report/summary_chart.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestrum {

namespace {

constexpr double kText = 2.5, kGap = 2;  // of the table
constexpr double kTextDown = 0.9;        // from the middle of a row to the base line of its text
constexpr double kChart = 46;            // height with its heading

constexpr Ink kProgramInk = Ink::load, kStandardInk = Ink::faint;
constexpr const char* kProgramBasis = "Program";
constexpr const char* kStandardBasis = "EN 1993-1-1";

std::string Count(std::size_t count, std::string_view what)
{
    return std::to_string(count) + " " + std::string(what) + (count == 1 ? "" : "s");
}

std::string MassText(double kg)
{
    constexpr double kTonne = 1000, kLarge = 10000;
    return kg < kLarge ? FormatNum(kg, "#0.0") + " kg" : FormatNum(kg / kTonne, "#0.00") + " t";
}

// The text, or its two ends with dots between them where it is too wide: names of members differ
// at either end.
std::string Shortened(const std::string& text, double width, double size)
{
    constexpr std::size_t kMost = 400;  // characters that are looked at
    const std::size_t count = CharacterCount(text);
    if (count <= kMost && TextWidth(text, size) <= width) {
        return text;
    }
    std::string shown;
    for (std::size_t kept = std::min(count, kMost); kept > 0; --kept) {
        const std::size_t front = (kept + 1) / 2, back = kept - front;
        const std::string head = FirstCharacters(text, front);
        const std::size_t behind = FirstCharacters(text, count - back).size();
        shown = head + "..." + text.substr(behind);
        if (TextWidth(shown, size) <= width) {
            break;
        }
    }
    return shown;
}

struct Column {
    std::string head;
    double left = 0, right = 0;
    bool numbers = false;  // aligned to the right
};

// The columns of the table; what the answers do not hold has no width.
struct Layout {
    Column rank{"No", 14, 22, true}, member{"Member"}, section{"Section"}, bar{""}, ratio{"Ratio"},
        standard{kStandardBasis}, clause{"Clause"}, load_case{"Case"}, before{"before kg"},
        mass{"Mass kg"};

    explicit Layout(const MemberSummary& summary)
    {
        constexpr double kRatio = 13, kSection = 21, kClause = 13, kCase = 15, kMass = 12;
        constexpr double kStandardWidth = 18, kMember = 31;
        ratio.numbers = standard.numbers = before.numbers = mass.numbers = true;
        ratio.head = summary.both ? kProgramBasis : "Ratio";
        mass.head = summary.has_before ? "after kg" : "Mass kg";
        double right = kPageRight;
        const auto take = [&right](Column& column, double width, bool wanted) {
            column.right = right;
            right -= wanted ? width : 0;
            column.left = right;
            right -= wanted ? kGap : 0;
        };
        take(mass, kMass, summary.has_mass);
        take(before, kMass, summary.has_before && summary.has_mass);
        take(load_case, kCase, summary.has_case);
        take(clause, kClause, true);
        take(standard, kStandardWidth, summary.both);
        take(ratio, kRatio, true);
        bar.right = right;
        member.left = rank.right + kGap;
        member.right = section.left = section.right = member.left + kMember;
        if (summary.has_section) {
            section.left = member.right + kGap;
            section.right = section.left + kSection;
        }
        bar.left = section.right + kGap;
    }

    std::vector<const Column*> All() const
    {
        return {&rank,     &member, &section,   &bar,    &ratio,
                &standard, &clause, &load_case, &before, &mass};
    }
};

class SummaryWriter {
public:
    SummaryWriter(const MemberSummary& summary, const PrintStamp& stamp, const std::string& file)
        : summary_(summary), stamp_(stamp), file_(file), layout_(summary), axis_(AxisEnd(summary)),
          row_(summary.both ? 5.0 : 4.2)
    {
    }

    PrintedReport Print()
    {
        NewPage();
        Overview();
        Charts();
        Members();
        Notes();
        return Finish();
    }

private:
    PageWriter& page() { return pages_.back(); }

    void NewPage()
    {
        constexpr double kTitle = 5;
        const bool first = pages_.empty();
        pages_.emplace_back("Summary of " + Count(summary_.members.size(), "member"));
        page().MoveTo(kPageTop + kTitle);
        page().Write(kPageLeft, "Kestrum EC3", {.bold = true, .size = kTitle});
        page().Row(1.2);
        page().Write(kPageLeft, "Summary of " + Count(summary_.members.size(), "member"),
                     {.bold = true, .size = kPageHeading});
        if (first) {
            page().Row();
            page().Write(kPageLeft, "Version " + std::string(kVersion));
            page().Row();
            page().Write(kPageLeft, "Answers: " + Shortened(file_, 120, kPageText));
        }
        page().Rule();
        page().Row(2.2);
        page().Foot(stamp_.origin);
    }

    // Page numbers and time, when it is known how many pages there are.
    PrintedReport Finish()
    {
        constexpr double kOffice = 88, kNumbers = 30;  // mm: their left, room of the page number
        PrintedReport report;
        for (std::size_t i = 0; i < pages_.size(); ++i) {
            PageWriter& each = pages_[i];
            const TextStyle right{.align = Align::right};
            each.MoveTo(kPageTop + 5);
            each.Write(kPageRight,
                       "Page " + std::to_string(i + 1) + " of " + std::to_string(pages_.size()),
                       right);
            each.Row(1.2);
            each.Write(kPageRight, stamp_.date + " " + stamp_.time, right);
            each.MoveTo(kPageTop + 5);
            each.Write(kOffice, stamp_.office.company, {.bold = true}, kPageRight - kNumbers);
            each.Row(1.2);
            each.Write(kOffice, OfficeNumbers(stamp_.office), {}, kPageRight - kNumbers);
            PrintedReport one = each.Take();
            report.pages.push_back(std::move(one.pages.front()));
            report.missing.insert(report.missing.end(), one.missing.begin(), one.missing.end());
        }
        return report;
    }

    void Overview()
    {
        constexpr double kFirst = 70, kPitch = 26;
        const char* const heads[] = {"without a ratio", "above limit", "within limits",
                                     "largest ratio"};
        for (std::size_t i = 0; i < std::size(heads); ++i) {
            page().Write(kFirst + kPitch * static_cast<double>(i), heads[i],
                         {.bold = true, .align = Align::right});
        }
        page().Row(1.1);
        const auto line = [&](const char* name, ResultOf basis) {
            const auto counts = CountStandings(summary_, basis);
            page().Write(kPageLeft, name);
            for (std::size_t i = 0; i < kStandings; ++i) {
                const bool fault = i < 2 && counts[i] > 0;
                page().Write(
                    kFirst + kPitch * static_cast<double>(i), std::to_string(counts[i]),
                    {.bold = fault, .align = Align::right, .ink = fault ? Ink::bad : Ink::text});
            }
            page().Write(kFirst + 3 * kPitch, RatioText(LargestRatio(summary_, basis)),
                         {.align = Align::right});
            page().Row(1.1);
        };
        line(summary_.both ? kProgramBasis : "Members", &SummaryMember::result);
        if (summary_.both) {
            line(kStandardBasis, &SummaryMember::standard);
        }
        Masses();
        page().Row(0.6);
    }

    void Masses()
    {
        if (!summary_.has_mass) {
            return;
        }
        const MassSum sum = SumOfMasses(summary_);
        std::string text = "Mass: " + MassText(sum.mass);
        if (summary_.has_before && sum.before > 0) {
            const double saved = sum.before - sum.mass;
            text = "Mass before: " + MassText(sum.before) + ", after: " + MassText(sum.mass) +
                   "; " + MassText(std::abs(saved)) + " (" +
                   FormatNum(std::abs(saved) / sum.before * 100, "0.0") + " percent) " +
                   (saved < 0 ? "more" : "less");
        }
        if (sum.members < summary_.members.size()) {
            text += ", of " + Count(sum.members, "member");
        }
        page().Write(kPageLeft, text);
        page().Row(1.1);
    }

    void Charts()
    {
        constexpr double kHalf = 90, kWide = 140, kHeight = 38;
        const double top = page().y() - kPageText;
        const double width = summary_.both ? kHalf : kWide;
        page().Picture(
            DrawHistogram(Histogram(summary_, &SummaryMember::result),
                          CountStandings(summary_, &SummaryMember::result)[0],
                          summary_.both ? "Members by ratio, program" : "Members by ratio",
                          kProgramInk, width, kHeight),
            {kPageLeft, top}, 1);
        if (summary_.both) {
            page().Picture(DrawHistogram(Histogram(summary_, &SummaryMember::standard),
                                         CountStandings(summary_, &SummaryMember::standard)[0],
                                         "Members by ratio, EN 1993-1-1", kStandardInk, width,
                                         kHeight),
                           {kPageRight - width, top}, 1);
        }
        page().MoveTo(top + kChart);
    }

    void TableHead()
    {
        for (const Column* const column : layout_.All()) {
            if (column->right > column->left) {
                page().Write(column->numbers ? column->right : column->left, column->head,
                             {.bold = true,
                              .align = column->numbers ? Align::right : Align::left,
                              .size = kText},
                             column->right + kGap);
            }
        }
        if (summary_.both) {
            Key(layout_.ratio, kProgramInk);
            Key(layout_.standard, kStandardInk);
        }
        for (const double tick : {0.0, 0.5, 1.0}) {
            page().Write(BarAt(tick), FormatNum(tick, "0.0"),
                         {.align = Align::centre, .size = kText}, kPageRight);
        }
        page().Rule();
        page().MoveTo(page().y() + kPageRow / 2 + row_ / 2 + 0.4);
    }

    // The colour of its bars in front of the head of a column.
    void Key(const Column& column, Ink ink)
    {
        constexpr double kSize = 1.6;
        const double right = column.right - TextWidth(column.head, kText, true) - 0.8;
        Drawing key;
        DrawBar(key, {right - kSize, page().y() - kSize}, kSize, kSize, ink, false);
        page().Picture(key, {0, 0}, 1);
    }

    double BarAt(double ratio) const
    {
        const double share = std::min(ratio, axis_) / axis_;
        return layout_.bar.left + share * (layout_.bar.right - layout_.bar.left);
    }

    void Members()
    {
        TableHead();
        for (std::size_t i = 0; i < summary_.Listed(); ++i) {
            const SummaryMember& member = summary_.members[i];
            const bool second = summary_.GoverningOf(member).standing == Standing::unrated &&
                                !member.message.empty();
            if (page().Room() < (second ? 1.7 : 0.7) * row_) {
                NewPage();
                TableHead();
            }
            Member(member, i + 1);
            if (second) {
                Message(member.message);
            }
        }
        page().MoveTo(page().y() + kTextDown);
        const std::size_t rest = summary_.members.size() - summary_.Listed();
        if (rest > 0) {
            page().Write(kPageLeft, Count(rest, "member") + " more, of smaller rank");
            page().Row();
        }
    }

    // `page` stands in the middle of the row.
    void Member(const SummaryMember& member, std::size_t rank)
    {
        const SummaryResult& governing = summary_.GoverningOf(member);
        const double middle = page().y();
        page().MoveTo(middle + kTextDown);
        const auto text = [&](const Column& column, const std::string& value,
                              TextStyle style = {}) {
            style.size = kText;
            style.align = column.numbers ? Align::right : Align::left;
            if (column.right > column.left) {
                page().Write(column.numbers ? column.right : column.left,
                             Shortened(value, column.right - column.left, kText), style);
            }
        };
        const auto ratio = [&](const Column& column, const SummaryResult& result) {
            const bool above = result.standing == Standing::above;
            text(
                column, result.standing == Standing::unrated ? "-" : RatioText(result.ir),
                {.bold = above, .ink = result.standing == Standing::within ? Ink::text : Ink::bad});
        };
        const auto mass = [](double kg) { return std::isfinite(kg) ? FormatNum(kg, "#0.0") : "-"; };
        text(layout_.rank, std::to_string(rank));
        text(layout_.member, member.name);
        text(layout_.section, member.section);
        ratio(layout_.ratio, member.result);
        if (summary_.both) {
            ratio(layout_.standard, member.standard);
        }
        text(layout_.clause, governing.clause.substr(0, governing.clause.find(',')));
        text(layout_.load_case, governing.load_case);
        text(layout_.before, mass(member.MassBefore()));
        text(layout_.mass, mass(member.Mass()));
        if (governing.standing == Standing::unrated) {
            const bool standard = &governing == &member.standard;
            text(layout_.bar, (standard ? std::string("EN: ") : "") + governing.verdict,
                 {.bold = true, .ink = Ink::bad});
        } else {
            Bars(member, middle);
        }
        page().MoveTo(middle + row_);
    }

    void Bars(const SummaryMember& member, double middle)
    {
        constexpr double kOne = 2.2, kOfTwo = 1.5;
        Drawing bars;
        const auto bar = [&](const SummaryResult& result, double top, double height, Ink ink) {
            DrawBar(bars, {BarAt(0), top}, BarAt(result.ir) - BarAt(0), height,
                    result.standing == Standing::above ? Ink::bad : ink, result.ir > axis_);
        };
        if (summary_.both) {
            bar(member.result, middle - kOfTwo - 0.1, kOfTwo, kProgramInk);
            bar(member.standard, middle + 0.1, kOfTwo, kStandardInk);
        } else {
            bar(member.result, middle - kOne / 2, kOne, kProgramInk);
        }
        for (const double tick : {0.0, 1.0}) {
            AddLine(bars, {BarAt(tick), middle - row_ / 2}, {BarAt(tick), middle + row_ / 2},
                    Ink::member);
        }
        page().Picture(bars, {0, 0}, 1);
    }

    void Message(const std::string& message)
    {
        constexpr double kCloser = 1.4;
        const double middle = page().y() - kCloser;
        page().MoveTo(middle + kTextDown);
        page().Write(layout_.bar.left,
                     Shortened(message, kPageRight - layout_.bar.left, kPageSmallText - 0.2),
                     {.ink = Ink::bad, .size = kPageSmallText - 0.2});
        page().MoveTo(middle + row_);
    }

    void Notes()
    {
        constexpr std::size_t kMost = 40;
        const std::vector<NoteCount> notes = CountNotes(summary_);
        if (notes.empty()) {
            return;
        }
        page().Row();
        for (std::size_t i = 0; i < std::min(notes.size(), kMost); ++i) {
            constexpr double kLongest = 5 * kPageRow;  // of a note, with the heading
            if (page().Room() < kLongest) {
                NewPage();
            }
            if (i == 0) {
                page().Heading(kPageLeft, "Notes");
            }
            const std::string sentence = NoteSentence(notes[i].note);
            PrintWrapped(page(),
                         Shortened(notes[i].note, 600, kPageText) + " (" +
                             Count(notes[i].members, "member") + ")" +
                             (sentence.empty() ? "" : ": " + sentence),
                         {.size = kPageSmallText});
        }
        if (notes.size() > kMost) {
            page().Write(kPageLeft, Count(notes.size() - kMost, "note") + " more in the tables");
        }
    }

    const MemberSummary& summary_;
    const PrintStamp& stamp_;
    const std::string& file_;
    const Layout layout_;
    const double axis_;
    const double row_;  // height of a member's row
    std::vector<PageWriter> pages_;
};

}  // namespace

std::string RatioText(double ratio)
{
    constexpr double kLarge = 1000;
    return !std::isfinite(ratio) ? "infinite"
           : ratio < kLarge      ? FormatNum(ratio, "0.000")
                                 : FormatNum(ratio, "0.00E+0");
}

PrintedReport PrintSummary(const MemberSummary& summary, const PrintStamp& stamp,
                           const std::string& file)
{
    return SummaryWriter(summary, stamp, file).Print();
}

}  // namespace kestrum
