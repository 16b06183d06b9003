#include "document/page_layout.h"

#include "document/equation_layout.h"
#include "document/math_layout.h"
#include "document/table_layout.h"
#include "document/text_flow.h"
#include "report/figure_tools.h"

#include <algorithm>
#include <numeric>
#include <optional>

namespace kestrum {

namespace {

constexpr double kPaperWidth = 210, kPaperHeight = 297;
constexpr double kLeft = 20, kRight = 196, kTop = 30, kBottom = 280;
constexpr double kWidth = kRight - kLeft;
constexpr double kText = 3.1, kSmallText = TableLayout::kText;
constexpr double kLine = 1.35;  // of the size, from base line to base line
constexpr double kHeadText = 2.6, kFootText = 2.3;
constexpr double kTogether = 90;  // a table up to this height is not cut

class Layout {
public:
    explicit Layout(const Document& document) : document_(document) { NewPage(); }

    LaidOut Take()
    {
        if (!document_.head.logo.bytes.empty()) {
            logo_ = std::make_shared<const std::string>(document_.head.logo.bytes);
        }
        for (std::size_t i = 0; i < document_.blocks.size(); ++i) {
            at_ = i;
            next_ = i + 1 < document_.blocks.size() ? &document_.blocks[i + 1] : nullptr;
            skip_ = false;
            std::visit(*this, document_.blocks[i]);
            i += skip_ ? 1 : 0;
        }
        FillPageNumbers();
        for (std::size_t i = 0; i < out_.pages.size(); ++i) {
            HeadAndFoot(i);
        }
        return std::move(out_);
    }

    void operator()(const Heading& heading)
    {
        const std::size_t level = LevelOf(heading);
        const double size = kSizes[level];
        y_ += y_ > kTop ? kBefore[level] : 0;
        Need(HeightOf(heading) - kBefore[level] + Following());
        out_.headings.push_back({heading.level, heading.text, out_.pages.size() - 1, y_});
        Wrapped(Strong(heading.text), size, kLeft, kWidth);
        if (level == 2) {
            AddLine(Page(), {kLeft, y_ + 0.3}, {kRight, y_ + 0.3}, Ink::faint);
            y_ += kRule;
        }
        y_ += 1;
    }
    void operator()(const Paragraph& paragraph)
    {
        using Kind = Paragraph::Kind;
        if (paragraph.kind == Kind::verdict_good || paragraph.kind == Kind::verdict_bad) {
            Verdict(paragraph);
            return;
        }
        const bool remark = paragraph.kind == Kind::remark;
        if (document_.LeadsOn(at_)) {
            Need(HeightOf(paragraph) + Following());
        }
        Wrapped(paragraph.text, remark ? kSmallText : kText, kLeft, kWidth,
                remark ? Ink::faint : Ink::text);
        y_ += 1;
    }
    void operator()(const TextTable& table)
    {
        const Beside tables = TablesAt(at_);
        if (!tables.second) {
            PrintTable(table, tables.first, kLeft);
            return;
        }
        Need(tables.height);
        const double top = y_;
        PrintTable(table, tables.first, kLeft);
        const double below = y_;
        y_ = top;
        PrintTable(std::get<TextTable>(*next_), *tables.second,
                   kLeft + tables.first.Width() + kBetween);
        y_ = std::max(y_, below);
        skip_ = true;
    }
    void operator()(const Equation& equation)
    {
        const EquationLayout layout(equation, kWidth, document_.head.decimal);
        Need(layout.Height());
        layout.Place(Page(), {kLeft, y_});
        y_ += layout.Height();
    }
    void operator()(const FigureRow& row)
    {
        constexpr double kGap = 4;
        double x = kLeft, height = 0;
        for (std::size_t from = 0, i = 0; i <= row.figures.size(); ++i) {
            const bool last = i == row.figures.size();
            const double width = last ? 0 : WidthOf(row.figures[i]);
            if (last || x + width > kRight + 0.1) {
                PrintFigures(row, from, i, height, kGap);
                from = i;
                x = kLeft;
                height = 0;
            }
            if (!last) {
                x += width + kGap;
                height = std::max(height, HeightOf(row.figures[i]));
            }
        }
    }
    void operator()(const PageBreak&)
    {
        if (y_ > kTop) {
            NewPage();
        }
    }

private:
    static constexpr double kSizes[] = {8, 5.2, 4.0, 3.3}, kBefore[] = {20, 4, 6, 3}, kRule = 0.8;
    static std::size_t LevelOf(const Heading& heading)
    {
        return static_cast<std::size_t>(std::clamp(heading.level, 0, 3));
    }
    // Of one line, with the room above it.
    static double HeightOf(const Heading& heading)
    {
        const std::size_t level = LevelOf(heading);
        return kBefore[level] + kSizes[level] * kLine + (level == 2 ? kRule : 0) + 1;
    }

    double HeightOf(const Paragraph& paragraph) const
    {
        const double size = paragraph.kind == Paragraph::Kind::remark ? kSmallText : kText;
        const std::size_t lines =
            WrapLine(paragraph.text, size, kWidth, document_.head.decimal).size();
        return static_cast<double>(lines) * size * kLine + 1;
    }

    Drawing& Page() { return out_.pages.back(); }
    void NewPage()
    {
        Drawing page;
        page.width = kPaperWidth;
        page.height = kPaperHeight;
        page.title = document_.head.title;
        out_.pages.push_back(std::move(page));
        y_ = kTop;
    }
    void Need(double height)
    {
        if (y_ + height > kBottom && y_ > kTop) {
            NewPage();
        }
    }
    // Height of what a heading must not stand without: figures, a table that is not cut, the first
    // lines of anything else; what leads to them with it.
    double Following() const
    {
        constexpr double kFirst = 11, kRounding = 0.01;  // what is added in another order later
        double height = kRounding;
        int texts = 0;
        for (std::size_t i = at_ + 1; i < document_.blocks.size(); ++i) {
            const Block& block = document_.blocks[i];
            if (const auto* const figures = std::get_if<FigureRow>(&block)) {
                return height + HeightOf(*figures) + 3;
            }
            if (std::holds_alternative<TextTable>(block)) {
                return height + TablesAt(i).height;
            }
            if (const auto* const equation = std::get_if<Equation>(&block)) {
                return height + HeightOf(*equation);
            }
            const auto* const text = std::get_if<Paragraph>(&block);
            const auto* const heading = std::get_if<Heading>(&block);
            if ((text == nullptr && (heading == nullptr || texts > 0)) || texts > 2) {
                break;
            }
            texts += text != nullptr ? 1 : 0;
            height += text != nullptr ? HeightOf(*text) : HeightOf(*heading);
        }
        return height + kFirst;
    }
    // Writes the text in lines of the width; moves below.
    void Wrapped(const Line& text, double size, double x, double width, Ink ink = Ink::text,
                 bool bold = false)
    {
        for (const Line& line : WrapLine(text, size, width, document_.head.decimal)) {
            Need(size * kLine);
            y_ += size;
            PlaceBox(Page(), LineBox(line, size, document_.head.decimal, ink, bold), {x, y_});
            y_ += (kLine - 1) * size;
        }
    }
    void Verdict(const Paragraph& paragraph)
    {
        constexpr double kPadding = 2, kSize = 3.6;
        const bool good = paragraph.kind == Paragraph::Kind::verdict_good;
        Line text;
        for (const Span& span : paragraph.text.spans) {
            text.Add(span.text, good ? Span::Style::good : Span::Style::bad, span.number);
        }
        const std::vector<Line> lines =
            WrapLine(text, kSize, kWidth - 2 * kPadding, document_.head.decimal);
        const double height = static_cast<double>(lines.size()) * kSize * kLine + 2 * kPadding - 1;
        Need(height + 1.5);
        PolygonMark frame;
        frame.rings = {{{kLeft, y_}, {kRight, y_}, {kRight, y_ + height}, {kLeft, y_ + height}}};
        frame.filled = false;
        frame.outline = good ? Ink::good : Ink::bad;
        frame.width = 0.4;
        Page().marks.emplace_back(std::move(frame));
        const double end = y_ + height;
        y_ += kPadding - 0.5;
        Wrapped(text, kSize, kLeft + kPadding, kWidth - 2 * kPadding);
        y_ = end + 1.5;
    }

    // --- Tables ----------------------------------------------------------------------------------

    // What of a table stands on one page: all of a short one, else the titles with two rows.
    static constexpr std::size_t kHeadRows = 2;
    static double StartOf(const TableLayout& layout)
    {
        if (layout.Height() <= kTogether) {
            return layout.Height();
        }
        const auto first =
            static_cast<std::ptrdiff_t>(std::min(kHeadRows + 1, layout.heights.size()));
        return std::accumulate(layout.heights.begin(), layout.heights.begin() + first, 0.0);
    }

    // A table, and the one below it where both have room beside each other.
    static constexpr double kBetween = 6;
    struct Beside {
        TableLayout first;
        std::optional<TableLayout> second;
        double height;  // of what stands on one page
    };
    Beside TablesAt(std::size_t block) const
    {
        // What the second gives of its width for that: a little, or what few of its texts take.
        constexpr double kGives = 0.1, kHalf = 0.5, kGrows = 0.25;  // of its height
        constexpr double kUnbroken = 1e4;
        const char decimal = document_.head.decimal;
        const auto& table = std::get<TextTable>(document_.blocks[block]);
        const auto with_caption = [](const TextTable& of, double height) {
            return height + (of.caption.Empty() ? 0 : kText * kLine);
        };
        Beside tables{LayOutTable(table, kWidth, decimal), {}, 0};
        tables.height = with_caption(table, StartOf(tables.first));
        const auto* const other = block + 1 < document_.blocks.size()
                                      ? std::get_if<TextTable>(&document_.blocks[block + 1])
                                      : nullptr;
        if (other == nullptr) {
            return tables;
        }
        const double room = kWidth - kBetween - tables.first.Width();
        TableLayout second = LayOutTable(*other, kWidth, decimal);
        if (second.Width() > room && room >= kHalf * second.Width()) {
            TableLayout narrow = LayOutTable(*other, room, decimal);
            if (narrow.whole_words &&
                (room >= (1 - kGives) * second.Width() ||
                 narrow.Height() <=
                     (1 + kGrows) * LayOutTable(*other, kUnbroken, decimal).Height())) {
                second = std::move(narrow);
            }
        }
        const double height = std::max(with_caption(table, tables.first.Height()),
                                       with_caption(*other, second.Height()));
        if (second.Width() <= room && height <= kBottom - kTop) {
            tables.second = std::move(second);
            tables.height = height;
        }
        return tables;
    }

    void PrintTable(const TextTable& table, const TableLayout& layout, double x)
    {
        constexpr double kBelow = 3;
        const char decimal = document_.head.decimal;
        const double start = StartOf(layout);
        if (!table.caption.Empty()) {
            Need(kText * kLine + start);
            Wrapped(table.caption, kText, x, kRight - x, Ink::text, true);
        }
        Need(start);
        const std::size_t rows = layout.rows.size();
        for (std::size_t row = 0; row < rows; ++row) {
            const bool pair = row + 2 == rows && row > kHeadRows;  // the last two stand together
            const double height = layout.heights[row] + (pair ? layout.heights[row + 1] : 0);
            if (row > 0 && y_ + height > kBottom) {
                NewPage();
                PrintRow(Page(), table, layout, 0, {x, y_}, decimal);
                y_ += layout.heights[0];
            }
            if (table.contents && row > 0) {
                const double right = x + layout.Width();
                out_.links.push_back({out_.pages.size() - 1,
                                      {x, y_, right, y_ + layout.heights[row]},
                                      row,
                                      right - 1});
            }
            PrintRow(Page(), table, layout, row, {x, y_}, decimal);
            y_ += layout.heights[row];
        }
        y_ += kBelow;
    }
    // Numbers of the pages in a list of contents, once they are known.
    void FillPageNumbers()
    {
        for (const PlacedLink& link : out_.links) {
            std::size_t member = 0;
            for (const PlacedHeading& heading : out_.headings) {
                member += heading.level == 1 ? 1 : 0;
                if (heading.level == 1 && member == link.member) {
                    TextMark mark;
                    mark.at = {link.number, link.at.top + kSmallText + 0.3};
                    mark.text = std::to_string(heading.page + 1);
                    mark.size = kSmallText;
                    mark.align = Align::right;
                    out_.pages[link.page].marks.emplace_back(std::move(mark));
                }
            }
        }
    }

    // --- Figures ---------------------------------------------------------------------------------

    static double WidthOf(const Figure& figure) { return std::min(figure.width, kWidth); }
    static double HeightOf(const Figure& figure)
    {
        return figure.drawing.height * WidthOf(figure) / figure.drawing.width + kSmallText * kLine;
    }
    double HeightOf(const Equation& equation) const
    {
        return EquationLayout(equation, kWidth, document_.head.decimal).Height();
    }
    static double HeightOf(const FigureRow& row)
    {
        double height = 0;
        for (const Figure& figure : row.figures) {
            height = std::max(height, HeightOf(figure));
        }
        return height;
    }
    void PrintFigures(const FigureRow& row, std::size_t from, std::size_t to, double height,
                      double gap)
    {
        if (from == to) {
            return;
        }
        Need(height + 2);
        double x = kLeft;
        for (std::size_t i = from; i < to; ++i) {
            const Figure& figure = row.figures[i];
            const double width = WidthOf(figure);
            Place(Page(), figure.drawing, {x, y_}, width / figure.drawing.width);
            const MathBox caption =
                LineBox(figure.caption, kSmallText, document_.head.decimal, Ink::faint);
            PlaceBox(Page(), caption, {x, y_ + HeightOf(figure) - 0.3 * kSmallText});
            x += width + gap;
        }
        y_ += height + 2;
    }

    // --- Head and foot ---------------------------------------------------------------------------

    void HeadAndFoot(std::size_t number)
    {
        Drawing& page = out_.pages[number];
        const DocumentHead& head = document_.head;
        const auto write = [&](double x, double y, const std::string& text, Align align, bool bold,
                               Ink ink) {
            TextMark mark;
            mark.at = {x, y};
            mark.text = FitText(text, kHeadText, bold, kWidth / 2 - 2);
            mark.size = kHeadText;
            mark.align = align;
            mark.bold = bold;
            mark.ink = ink;
            page.marks.emplace_back(std::move(mark));
        };
        const auto joined = [](std::string_view name, const std::string& value) {
            return value.empty() ? std::string() : std::string(name) + value + "   ";
        };
        const double row = kHeadText * 1.4;
        double y = 13;
        if (logo_) {
            constexpr double kLogoTop = 9, kLogoWidth = 40, kLogoHeight = 12;
            page.pictures.push_back({{(kLeft + kRight - kLogoWidth) / 2, kLogoTop},
                                     kLogoWidth,
                                     kLogoHeight,
                                     logo_,
                                     head.logo.svg});
        }
        write(kLeft, y, head.company.empty() ? "Kestrum EC3" : head.company, Align::left, true,
              Ink::text);
        write(kRight, y,
              joined("Project no. ", head.projectnumber) + joined("Rev. ", head.revision) +
                  head.date,
              Align::right, false, Ink::text);
        y += row;
        write(kLeft, y, head.project, Align::left, false, Ink::text);
        write(kRight, y, joined("Author ", head.author) + joined("Checker ", head.checker),
              Align::right, false, Ink::text);
        y += row;
        write(kLeft, y, head.ident, Align::left, false, Ink::text);
        AddLine(page, {kLeft, y + 1.5}, {kRight, y + 1.5}, Ink::text, 0.25);
        AddLine(page, {kLeft, 284}, {kRight, 284}, Ink::faint, 0.15);
        TextMark foot;
        foot.at = {kLeft, 284 + row};
        foot.text = FitText(head.footer, kFootText, false, kWidth - 24);
        foot.size = kFootText;
        foot.ink = Ink::faint;
        page.marks.emplace_back(std::move(foot));
        write(kRight, 284 + row,
              "page " + std::to_string(number + 1) + " of " + std::to_string(out_.pages.size()),
              Align::right, false, Ink::text);
    }

    const Document& document_;
    std::shared_ptr<const std::string> logo_{};  // of all pages
    LaidOut out_;
    std::size_t at_ = 0;  // block in hand
    const Block* next_ = nullptr;
    bool skip_ = false;  // the next block stands already
    double y_ = kTop;
};

}  // namespace

LaidOut LayOut(const Document& document)
{
    return Layout(document).Take();
}

}  // namespace kestrum
