#pragma once

// A document as data: headings, paragraphs, tables, equations, figures. Writers make HTML,
// Markdown, OpenDocument and pages of it; none of them decides what is said.

#include "document/expression.h"
#include "report/drawing.h"
#include "report/office.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace kestrum {

struct Span {
    enum class Style : std::uint8_t {
        plain,
        strong,
        subscript,
        good,  // within the limit
        bad,   // above it
        bar    // a letter with a bar above
    };
    std::string text;
    Style style = Style::plain;
    bool number = false;  // written with the decimal sign of the document
};

// A run of text with changes of style.
struct Line {
    std::vector<Span> spans{};

    Line() = default;
    Line(std::string text) { Add(std::move(text)); }
    Line(std::string_view text) : Line(std::string(text)) {}
    Line(const char* text) : Line(std::string(text)) {}
    Line(const Symbol& symbol);

    Line& Add(std::string text, Span::Style style = Span::Style::plain, bool number = false);
    Line& operator+=(const Line& other);
    bool Empty() const { return spans.empty(); }
};
Line operator+(Line a, const Line& b);
Line Strong(std::string text);
// A number as it is printed: NumberText.
Line NumberLine(double value, int digits = 5);
// A text without numbers of clauses: what has a decimal point in it is a number.
Line WithNumbers(std::string_view text, Span::Style style = Span::Style::plain);
// The same of a text with clauses in it, which keep their points.
Line Sentence(std::string_view text, Span::Style style = Span::Style::plain);
std::string PlainText(const Line& line, char decimal = '.');

struct Heading {
    int level;  // 0 cover, 1 member, 2 chapter, 3 part of a chapter
    std::string text;
};

struct Paragraph {
    enum class Kind : std::uint8_t { plain, verdict_good, verdict_bad, remark };
    Line text;
    Kind kind = Kind::plain;
};

struct TextTable {
    struct Column {
        Line title{};
        bool right = false;  // numbers
        double share = 1;    // of the width, where not all columns have what they ask for
    };
    std::vector<Column> columns{};
    std::vector<std::vector<Line>> rows{};
    Line caption{};
    bool contents = false;  // row n leads to member n and ends with its page
};

// symbol = formula = numbers = value unit [clause]
struct Equation {
    Symbol symbol{};
    Expr formula{};       // null: the value alone
    int digits = 0;       // of the numbers
    std::string value{};  // as NumberText writes it
    std::string unit{};
    std::string clause{};
    Line remark{};  // behind the clause
};

struct Figure {
    Drawing drawing;
    Line caption;
    double width = 0;  // mm on paper, at most
};

// Figures side by side where there is room.
struct FigureRow {
    std::vector<Figure> figures;
};

struct PageBreak {};

using Block = std::variant<Heading, Paragraph, TextTable, Equation, FigureRow, PageBreak>;

struct DocumentHead {
    std::string title{};
    std::string project{}, ident{};
    std::string company{}, projectnumber{}, author{}, checker{}, revision{}, date{};
    Logo logo{};
    std::string footer{};  // program, version, file and its digest
    char decimal = '.';
};

// What is said and shown has the names of quantities in it set as in the formulas.
struct Document {
    DocumentHead head{};
    std::vector<Block> blocks{};

    void Cover(std::string title);
    void Member(std::string title);
    void Chapter(std::string title);
    void Part(std::string title);
    void Say(Line text, Paragraph::Kind kind = Paragraph::Kind::plain);
    void Show(std::vector<Figure> figures);
    void Add(TextTable table);
    void NewPage();
    // The equation, where its numbers give its value; else the value alone. Returns whether they
    // do.
    bool Add(const Symbol& symbol, const Expr& formula, double value, std::string unit,
             std::string clause, Line remark = {});
    // A value with its clause.
    void Add(const Symbol& symbol, double value, std::string unit, std::string clause,
             Line remark = {});

    // Whether a text leads to the block below it, so that both stand on one page: any to equations
    // and tables, remarks to all but the next heading.
    bool LeadsOn(std::size_t block) const;
};

// With as many digits as its numbers need to give the value within its last digit; without formula
// where no number of digits does, since the formula is then not what the value came from.
Equation EquationOf(const Symbol& symbol, const Expr& formula, double value, std::string unit,
                    std::string clause, Line remark = {});

constexpr int kResultDigits = 5;

}  // namespace kestrum
