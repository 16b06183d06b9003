#include "document/markdown_writer.h"

#include "document/notation.h"

#include <algorithm>
#include <span>

namespace kestrum {

namespace {

class MarkdownWriter {
public:
    explicit MarkdownWriter(const Document& document) : document_(document) {}

    std::string Take()
    {
        Head();
        for (const Block& block : document_.blocks) {
            std::visit(*this, block);
        }
        out_ += "\n---\n" + Escaped(document_.head.footer) + "\n";
        return std::move(out_);
    }

    void operator()(const Heading& heading)
    {
        out_ += "\n" + std::string(static_cast<std::size_t>(std::max(heading.level, 1)), '#') +
                " " + Escaped(heading.text) + "\n\n";
    }
    void operator()(const Paragraph& paragraph)
    {
        const bool strong = paragraph.kind == Paragraph::Kind::verdict_good ||
                            paragraph.kind == Paragraph::Kind::verdict_bad;
        const std::string text = Escaped(PlainText(paragraph.text, document_.head.decimal));
        EndList();
        out_ += (strong ? "**" + text + "**" : text) + "\n\n";
    }
    void operator()(const TextTable& table)
    {
        EndList();
        if (!table.caption.Empty()) {
            out_ += "**" + Escaped(PlainText(table.caption, document_.head.decimal)) + "**\n\n";
        }
        std::vector<Line> titles;
        std::string rule = "|";
        for (const TextTable::Column& column : table.columns) {
            titles.push_back(column.title);
            rule += column.right ? "---:|" : "---|";
        }
        Row(table, titles);
        out_ += rule + "\n";
        for (const std::vector<Line>& row : table.rows) {
            Row(table, row);
        }
        out_ += "\n";
    }
    void operator()(const Equation& equation)
    {
        const char decimal = document_.head.decimal;
        out_ += "- `" + SymbolInLine(equation.symbol);
        if (equation.formula != nullptr) {
            if (HasSymbols(equation.formula)) {
                out_ += " = " + FormulaInLine(equation.formula, decimal);
            }
            out_ += " = " + CalculationInLine(equation.formula, equation.digits, decimal);
        }
        out_ += " = " + NumberInLine(equation.value, decimal);
        out_ += (equation.unit.empty() ? "" : " " + UnitText(equation.unit)) + "`";
        out_ += equation.clause.empty() ? "" : " \\[" + Escaped(equation.clause) + "\\]";
        const std::string remark = PlainText(equation.remark, decimal);
        out_ += (remark.empty() ? "" : " " + Escaped(remark)) + "\n";
    }
    void operator()(const FigureRow& row)
    {
        for (const Figure& figure : row.figures) {
            out_ +=
                "\nFigure: " + Escaped(PlainText(figure.caption, document_.head.decimal)) + "\n\n";
        }
    }
    void operator()(const PageBreak&) {}

private:
    // What follows a line of a list would be part of it.
    void EndList()
    {
        if (!out_.ends_with("\n\n")) {
            out_ += "\n";
        }
    }
    void Head()
    {
        const DocumentHead& head = document_.head;
        const auto entry = [&](std::string_view name, const std::string& value) {
            if (!value.empty()) {
                out_.append("- ").append(name).append(": ").append(Escaped(value)).append("\n");
            }
        };
        entry("Company", head.company);
        entry("Project", head.project);
        entry("Identification", head.ident);
        entry("Project number", head.projectnumber);
        entry("Author", head.author);
        entry("Checker", head.checker);
        entry("Revision", head.revision);
        entry("Date", head.date);
    }
    void Row(const TextTable& table, std::span<const Line> cells)
    {
        out_ += "|";
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            const std::string text =
                i < cells.size() ? PlainText(cells[i], document_.head.decimal) : "";
            out_ += " " + Escaped(text) + " |";
        }
        out_ += "\n";
    }
    // What Markdown would take for markup, and line ends.
    static std::string Escaped(std::string_view text)
    {
        std::string out;
        for (const char c : text) {
            if (std::string_view("\\`*_[]<>|#").find(c) != std::string_view::npos) {
                out += '\\';
            }
            out += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
        }
        return out;
    }

    const Document& document_;
    std::string out_;
};

}  // namespace

std::string WriteMarkdown(const Document& document)
{
    return MarkdownWriter(document).Take();
}

}  // namespace kestrum
