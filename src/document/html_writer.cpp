#include "document/html_writer.h"

#include "core/base64.h"
#include "core/xml_text.h"
#include "document/mathml.h"
#include "document/notation.h"
#include "report/svg_writer.h"

#include <algorithm>
#include <span>

namespace kestrum {

namespace {

#include "document/html_style.inc"

constexpr double kPixelsPerMm = 96 / 25.4;

std::string IdOf(std::size_t block)
{
    return "s" + std::to_string(block);
}

class HtmlWriter {
public:
    explicit HtmlWriter(const Document& document) : document_(document) {}

    std::string Take()
    {
        Head();
        Contents();
        for (std::size_t i = 0; i < document_.blocks.size(); ++i) {
            at_ = i;
            std::visit(*this, document_.blocks[i]);
        }
        out_ += "<footer>" + XmlText(document_.head.footer) + "</footer>\n</body>\n</html>\n";
        return std::move(out_);
    }

    void operator()(const Heading& heading)
    {
        const std::string name = "h" + std::to_string(std::max(heading.level, 1));
        out_ += "<" + name + " id=\"" + IdOf(at_) + "\"" + (new_page_ ? " class=\"new\"" : "") +
                ">" + XmlText(heading.text) + "</" + name + ">\n";
        new_page_ = false;
    }
    void operator()(const Paragraph& paragraph)
    {
        constexpr std::string_view kClasses[] = {"", " class=\"verdict good\"",
                                                 " class=\"verdict bad\"", " class=\"remark\""};
        out_.append("<p").append(kClasses[static_cast<std::size_t>(paragraph.kind)]).append(">");
        Text(paragraph.text);
        out_ += "</p>\n";
    }
    void operator()(const TextTable& table)
    {
        const std::vector<std::string> names = NamesInCells(table);
        constexpr std::size_t kOnePage = 28;  // rows that print on one
        out_ +=
            table.rows.size() > kOnePage ? "<div class=\"scroll long\">" : "<div class=\"scroll\">";
        out_ += names.empty() ? "<table>\n" : "<table class=\"cards\">\n";
        if (!table.caption.Empty()) {
            out_ += "<caption><span>";
            Text(table.caption);
            out_ += "</span></caption>\n";
        }
        std::vector<Line> titles;
        for (const TextTable::Column& column : table.columns) {
            titles.push_back(column.title);
        }
        out_ += "<thead>";
        Row(table, titles, "th", {}, 0);
        out_ += "</thead>\n<tbody>\n";
        std::size_t member = 0;
        for (const std::vector<Line>& row : table.rows) {
            Row(table, row, "td", names, table.contents ? ++member : 0);
        }
        out_ += "</tbody>\n</table></div>\n";
    }
    void operator()(const Equation& equation)
    {
        out_ += "<div class=\"eq\">";
        for (const std::string& part : MathMlParts(equation, document_.head.decimal)) {
            out_ += "<math displaystyle=\"true\">" + part + "</math>";
        }
        if (!equation.remark.Empty()) {
            out_ += "<span class=\"note\">";
            Text(equation.remark);
            out_ += "</span>";
        }
        if (!equation.clause.empty()) {
            out_ += "<span class=\"clause\">[" + XmlText(equation.clause) + "]</span>";
        }
        out_ += "</div>\n";
    }
    void operator()(const FigureRow& row)
    {
        out_ += "<div class=\"figures\">\n";
        for (const Figure& figure : row.figures) {
            out_ += "<figure style=\"--w:" + NumberText(figure.width, 4) + "mm\">" +
                    SvgElement(figure.drawing, kPixelsPerMm) + "<figcaption>";
            Text(figure.caption);
            out_ += "</figcaption></figure>\n";
        }
        out_ += "</div>\n";
    }
    void operator()(const PageBreak&) { new_page_ = true; }

private:
    void Head()
    {
        const DocumentHead& head = document_.head;
        out_ = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
               "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
               "<title>" +
               XmlText(head.title) + "</title>\n";
        if (!head.author.empty()) {
            out_ += "<meta name=\"author\" content=\"" + XmlText(head.author) + "\">\n";
        }
        out_.append("<style>").append(kStyle).append("</style>\n</head>\n<body>\n");
        out_ += "<header class=\"doc\"><div>";
        if (!head.logo.bytes.empty()) {
            out_ += "<img alt=\"" + XmlText(head.company) + "\" src=\"data:image/" +
                    (head.logo.svg ? "svg+xml" : "png") + ";base64," + Base64(head.logo.bytes) +
                    "\">";
        }
        out_ += "<dl>";
        Entry("Company", head.company);
        Entry("Project", head.project);
        Entry("Identification", head.ident);
        Entry("Project number", head.projectnumber);
        out_ += "</dl></div><dl>";
        Entry("Author", head.author);
        Entry("Checker", head.checker);
        Entry("Revision", head.revision);
        Entry("Date", head.date);
        out_ += "</dl></header>\n";
    }
    void Entry(std::string_view name, const std::string& value)
    {
        if (!value.empty()) {
            out_.append("<dt>").append(name).append("</dt><dd>");
            AppendXml(out_, value);
            out_ += "</dd>";
        }
    }
    void Contents()
    {
        out_ += "<nav><ul>\n";
        for (std::size_t i = 0; i < document_.blocks.size(); ++i) {
            const auto* const heading = std::get_if<Heading>(&document_.blocks[i]);
            if (heading != nullptr && heading->level >= 1 && heading->level <= 2) {
                members_ += heading->level == 1 ? IdOf(i) + " " : "";
                out_ +=
                    "<li><a href=\"#" + IdOf(i) + "\">" + XmlText(heading->text) + "</a></li>\n";
            }
        }
        out_ += "</ul></nav>\n";
    }
    // Id of the n-th heading of level 1, from 1.
    std::string MemberId(std::size_t number) const
    {
        std::size_t at = 0;
        for (; number > 1; --number) {
            at = members_.find(' ', at) + 1;
        }
        return members_.substr(at, members_.find(' ', at) - at);
    }
    static std::size_t LengthOf(const Line& line)
    {
        std::size_t length = 0;
        for (const Span& span : line.spans) {
            length += span.text.size();
        }
        return length;
    }
    // Attributes of the cells of a table whose texts a telephone has no room for beside each
    // other: the title of the column, which it writes above each, and whether a text takes a line
    // of its own. None for tables of numbers, which it moves sideways.
    static std::vector<std::string> NamesInCells(const TextTable& table)
    {
        constexpr std::size_t kColumns = 5, kText = 16, kOwnLine = 22;
        std::vector<std::string> names;
        std::size_t longest = 0;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            std::size_t most = 0;
            for (const std::vector<Line>& row : table.rows) {
                most = std::max(most, i < row.size() ? LengthOf(row[i]) : 0);
            }
            longest = i > 0 ? std::max(longest, most) : 0;
            names.push_back(" data-n=\"" + XmlText(PlainText(table.columns[i].title)) +
                            (most > kOwnLine ? "\" data-own=\"" : "") + "\"");
        }
        if (names.size() < kColumns || longest < kText) {
            names.clear();
        }
        return names;
    }
    // `names`: attributes of the cells, or none.
    void Row(const TextTable& table, std::span<const Line> cells, std::string_view name,
             std::span<const std::string> names, std::size_t member)
    {
        out_ += "<tr>";
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            out_.append("<").append(name).append(names.empty() ? "" : names[i]);
            out_ += table.columns[i].right ? " class=\"r\">" : ">";
            const bool link = member > 0 && i == 0;
            out_ += link ? "<a href=\"#" + MemberId(member) + "\">" : "";
            if (i < cells.size()) {
                Text(cells[i]);
            }
            out_ += link ? "</a>" : "";
            out_.append("</").append(name).append(">");
        }
        out_ += "</tr>\n";
    }
    void Text(const Line& line)
    {
        for (const Span& span : line.spans) {
            const auto [open, close] = Tags(span.style);
            out_ += open;
            if (span.number) {
                out_ += RichNumber(span.text, document_.head.decimal);
            } else {
                AppendXml(out_, WithFixedBlanks(span.text));
            }
            out_ += close;
        }
    }
    static std::pair<std::string_view, std::string_view> Tags(Span::Style style)
    {
        switch (style) {
        case Span::Style::strong:
            return {"<b>", "</b>"};
        case Span::Style::subscript:
            return {"<sub>", "</sub>"};
        case Span::Style::good:
            return {"<b class=\"good\">", "</b>"};
        case Span::Style::bad:
            return {"<b class=\"bad\">", "</b>"};
        case Span::Style::bar:
            return {"<span style=\"text-decoration:overline\">", "</span>"};
        case Span::Style::plain:
            break;
        }
        return {};
    }

    const Document& document_;
    std::string out_;
    std::string members_;  // ids of the headings of level 1, each with a blank behind it
    std::size_t at_ = 0;
    bool new_page_ = false;
};

}  // namespace

std::string WriteHtml(const Document& document)
{
    return HtmlWriter(document).Take();
}

}  // namespace kestrum
