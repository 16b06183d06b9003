#include "document/odt_writer.h"

#include "core/xml_text.h"
#include "document/math_layout.h"
#include "document/mathml.h"
#include "document/notation.h"
#include "document/starmath.h"
#include "document/table_layout.h"
#include "document/zip.h"
#include "report/svg_writer.h"

#include <algorithm>
#include <span>

namespace kestrum {

namespace {

#include "document/odt_styles.inc"

constexpr double kWidth = 175;  // mm between the margins

std::string Mm(double value)
{
    return NumberText(value, 4) + "mm";
}

class OdtWriter {
public:
    explicit OdtWriter(const Document& document) : document_(document) {}

    std::string Take()
    {
        zip_.Add("mimetype", "application/vnd.oasis.opendocument.text");
        for (; at_ < document_.blocks.size(); ++at_) {
            std::visit(*this, document_.blocks[at_]);
        }
        zip_.Add("content.xml",
                 std::string(kXml) + "<office:document-content" + std::string(kNamespaces) + ">" +
                     std::string(kContentStyles) + columns_ +
                     "</office:automatic-styles>\n<office:body><office:text>\n" + body_ +
                     "</office:text></office:body>"
                     "</office:document-content>\n");
        const Logo& logo = document_.head.logo;
        if (!logo.bytes.empty()) {
            zip_.Add(LogoName(), logo.bytes);
            manifest_ += Entry(LogoName(), logo.svg ? "image/svg+xml" : "image/png");
        }
        zip_.Add("styles.xml", Styles());
        zip_.Add("meta.xml", Meta());
        zip_.Add("META-INF/manifest.xml",
                 std::string(kXml) +
                     "<manifest:manifest "
                     "xmlns:manifest=\"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0\" "
                     "manifest:version=\"1.2\">\n" +
                     Entry("/", "application/vnd.oasis.opendocument.text") +
                     Entry("content.xml", "text/xml") + Entry("styles.xml", "text/xml") +
                     Entry("meta.xml", "text/xml") + manifest_ + "</manifest:manifest>\n");
        return zip_.Take();
    }

    void operator()(const Heading& heading)
    {
        const std::string level = std::to_string(std::clamp(heading.level, 1, 3));
        body_ += "<text:h text:style-name=\"" + (break_ ? "Break" : "Heading_20_" + level) +
                 "\" text:outline-level=\"" + level + "\">";
        if (heading.level == 1) {
            body_ += "<text:bookmark text:name=\"" + MemberName(++members_) + "\"/>";
        }
        body_ += XmlText(heading.text) + "</text:h>\n";
        break_ = false;
    }
    void operator()(const Paragraph& paragraph)
    {
        constexpr std::string_view kStyles[] = {"Standard", "Good", "Bad", "Remark"};
        const std::string style(kStyles[static_cast<std::size_t>(paragraph.kind)]);
        Open(document_.LeadsOn(at_) ? style + "Leading" : style);
        Text(paragraph.text);
        body_ += "</text:p>\n";
    }
    void operator()(const TextTable& table)
    {
        if (!table.caption.Empty()) {
            Open("Caption");
            Text(table.caption);
            body_ += "</text:p>\n";
        }
        const TableLayout layout = LayOutTable(table, kWidth, document_.head.decimal);
        constexpr std::size_t kOnePage = 28;  // rows that stand on one
        const std::string name = "Table" + std::to_string(++tables_);
        columns_ +=
            "<style:style style:name=\"" + name +
            "\" style:family=\"table\"><style:table-properties style:width=\"" +
            Mm(layout.Width()) + "\" table:align=\"left\"" +
            (table.rows.size() > kOnePage ? "" : " style:may-break-between-rows=\"false\"") +
            "/></style:style>\n";
        body_ += "<table:table table:name=\"" + name + "\" table:style-name=\"" + name + "\">";
        for (std::size_t i = 0; i < layout.widths.size(); ++i) {
            const std::string column = name + "." + std::to_string(i);
            columns_ += "<style:style style:name=\"" + column +
                        "\" style:family=\"table-column\"><style:table-column-properties "
                        "style:column-width=\"" +
                        Mm(layout.widths[i]) + "\"/></style:style>\n";
            body_ += "<table:table-column table:style-name=\"" + column + "\"/>";
        }
        std::vector<Line> titles;
        for (const TextTable::Column& column : table.columns) {
            titles.push_back(column.title);
        }
        body_ += "<table:table-header-rows>";
        Row(table, titles, true, 0);
        body_ += "</table:table-header-rows>";
        int member = 0;
        for (const std::vector<Line>& row : table.rows) {
            Row(table, row, false, table.contents ? ++member : 0);
        }
        body_ += "</table:table>\n";
        Open("Standard");
        body_ += "</text:p>\n";
    }
    void operator()(const Equation& equation)
    {
        constexpr double kSize = 3.6;
        const char decimal = document_.head.decimal;
        const std::vector<MathBox> boxes = EquationBoxes(equation, kSize, decimal);
        const std::vector<std::string> parts = MathMlParts(equation, decimal);
        const std::vector<std::string> notes = StarMathParts(equation, decimal);
        Open("Standard");
        for (std::size_t i = 0; i < parts.size() && i < boxes.size(); ++i) {
            Formula(parts[i], notes[i], boxes[i]);
        }
        body_ += "<text:span text:style-name=\"Small\">  ";
        Text(equation.remark);
        body_ += equation.clause.empty() ? "" : "  [" + XmlText(equation.clause) + "]";
        body_ += "</text:span></text:p>\n";
    }
    void operator()(const FigureRow& row)
    {
        for (const Figure& figure : row.figures) {
            const std::string name = "Pictures/" + std::to_string(++pictures_) + ".svg";
            zip_.Add(name, WriteSvg(figure.drawing, 96 / 25.4));
            manifest_ += Entry(name, "image/svg+xml");
            const double width = std::min(figure.width, kWidth);
            const double height = figure.drawing.height * width / figure.drawing.width;
            Open("Caption");  // stays with what follows
            body_ += "<draw:frame text:anchor-type=\"as-char\" svg:width=\"" + Mm(width) +
                     "\" svg:height=\"" + Mm(height) + "\"><draw:image xlink:href=\"" + name +
                     "\" xlink:type=\"simple\" xlink:show=\"embed\" xlink:actuate=\"onLoad\"/>"
                     "<svg:title>" +
                     XmlText(PlainText(figure.caption, document_.head.decimal)) +
                     "</svg:title></draw:frame></text:p>\n";
            Open("Remark");
            Text(figure.caption);
            body_ += "</text:p>\n";
        }
    }
    void operator()(const PageBreak&) { break_ = true; }

private:
    static std::string Entry(const std::string& path, std::string_view type)
    {
        return "<manifest:file-entry manifest:full-path=\"" + path + "\" manifest:media-type=\"" +
               std::string(type) + "\"/>\n";
    }
    void Open(std::string_view style)
    {
        body_.append("<text:p text:style-name=\"").append(style).append("\">");
    }
    // An object of its own, which word processors edit.
    void Formula(const std::string& content, const std::string& note, const MathBox& box)
    {
        const std::string folder = "Formula" + std::to_string(++formulas_);
        zip_.Add(folder + "/content.xml",
                 std::string(kXml) +
                     "<math xmlns=\"http://www.w3.org/1998/Math/MathML\" display=\"block\">"
                     "<semantics><mrow>" +
                     content + "</mrow><annotation encoding=\"StarMath 5.0\">" + XmlText(note) +
                     "</annotation></semantics></math>\n");
        manifest_ += Entry(folder + "/", "application/vnd.oasis.opendocument.formula") +
                     Entry(folder + "/content.xml", "text/xml");
        body_ += "<draw:frame draw:style-name=\"Inline\" text:anchor-type=\"as-char\" "
                 "svg:width=\"" +
                 Mm(std::min(box.width, kWidth)) + "\" svg:height=\"" + Mm(box.above + box.below) +
                 "\"><draw:object xlink:href=\"./" + folder +
                 "\" xlink:type=\"simple\" xlink:show=\"embed\" xlink:actuate=\"onLoad\"/>"
                 "</draw:frame> ";
    }
    void Row(const TextTable& table, std::span<const Line> cells, bool titles, int member)
    {
        body_ += "<table:table-row table:style-name=\"Rows\">";
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            body_ += titles ? "<table:table-cell table:style-name=\"Head\">"
                            : "<table:table-cell table:style-name=\"Body\">";
            Open(std::string(titles ? "Title" : "") + (table.columns[i].right ? "Right" : "Cell"));
            const bool link = member > 0 && i == 0;
            body_ +=
                link ? "<text:a xlink:type=\"simple\" xlink:href=\"#" + MemberName(member) + "\">"
                     : "";
            if (member > 0 && i + 1 == table.columns.size()) {
                body_ += "<text:bookmark-ref text:reference-format=\"page\" text:ref-name=\"" +
                         MemberName(member) + "\">-</text:bookmark-ref>";
            } else if (i < cells.size()) {
                Text(cells[i]);
            }
            body_ += link ? "</text:a>" : "";
            body_ += "</text:p></table:table-cell>";
        }
        body_ += "</table:table-row>";
    }
    void Styled(std::string_view style, std::string_view text)
    {
        body_.append("<text:span text:style-name=\"").append(style).append("\">");
        AppendXml(body_, text);
        body_ += "</text:span>";
    }
    void Text(const Line& line)
    {
        for (const Span& span : line.spans) {
            const std::string_view style = StyleOf(span.style);
            const std::string text = span.number ? NumberInLine(span.text, document_.head.decimal)
                                                 : WithFixedBlanks(span.text);
            const std::size_t power = span.number ? text.find('^') : std::string::npos;
            if (style.empty()) {
                AppendXml(body_, text.substr(0, power));
            } else {
                Styled(style, text.substr(0, power));
            }
            if (power != std::string::npos) {
                Styled("Super", text.substr(power + 1));
            }
        }
    }
    static std::string_view StyleOf(Span::Style style)
    {
        switch (style) {
        case Span::Style::strong:
            return "Strong";
        case Span::Style::subscript:
            return "Sub";
        case Span::Style::good:
            return "GoodText";
        case Span::Style::bad:
            return "BadText";
        case Span::Style::bar:
            return "Bar";
        case Span::Style::plain:
            break;
        }
        return {};
    }
    // The name of a heading that the list of contents leads to, from 1.
    static std::string MemberName(int member) { return "member-" + std::to_string(member); }
    std::string LogoName() const
    {
        return document_.head.logo.svg ? "Pictures/logo.svg" : "Pictures/logo.png";
    }
    // A line above the texts of the head.
    std::string LogoLine() const
    {
        constexpr double kMostWidth = 40, kMostHeight = 12;
        const Logo& logo = document_.head.logo;
        if (logo.bytes.empty()) {
            return {};
        }
        const bool sized = logo.width > 0 && logo.height > 0;
        const double scale =
            sized ? std::min(kMostWidth / logo.width, kMostHeight / logo.height) : kMostHeight;
        return "<text:p text:style-name=\"Edge\"><draw:frame text:anchor-type=\"as-char\" "
               "svg:width=\"" +
               Mm(scale * (sized ? logo.width : 1)) + "\" svg:height=\"" +
               Mm(scale * (sized ? logo.height : 1)) + "\"><draw:image xlink:href=\"" + LogoName() +
               "\" xlink:type=\"simple\" xlink:show=\"embed\" xlink:actuate=\"onLoad\"/>"
               "<svg:title>" +
               XmlText(document_.head.company) + "</svg:title></draw:frame></text:p>";
    }
    std::string Styles() const
    {
        const DocumentHead& head = document_.head;
        const auto line = [](const std::string& left, const std::string& right) {
            return "<text:p text:style-name=\"Edge\">" + XmlText(left) + "<text:tab/>" +
                   XmlText(right) + "</text:p>";
        };
        const auto named = [](std::string_view name, const std::string& value) {
            return value.empty() ? std::string() : "  " + std::string(name) + value;
        };
        return std::string(kXml) + "<office:document-styles" + std::string(kNamespaces) + ">" +
               std::string(kPageStyles) +
               "<office:master-styles><style:master-page style:name=\"Standard\" "
               "style:page-layout-name=\"A4\"><style:header>" +
               LogoLine() +
               line(head.company, named("Project no. ", head.projectnumber) +
                                      named("Rev. ", head.revision) + named("", head.date)) +
               line(head.project + (head.ident.empty() ? "" : ", " + head.ident),
                    named("Author ", head.author) + named("Checker ", head.checker)) +
               "</style:header><style:footer><text:p text:style-name=\"Edge\">" +
               XmlText(head.footer) +
               "<text:tab/>page <text:page-number text:select-page=\"current\"/> of "
               "<text:page-count/></text:p></style:footer></style:master-page>"
               "</office:master-styles></office:document-styles>\n";
    }
    std::string Meta() const
    {
        const DocumentHead& head = document_.head;
        return std::string(kXml) + "<office:document-meta" + std::string(kNamespaces) +
               "><office:meta><meta:generator>Kestrum EC3</meta:generator><dc:title>" +
               XmlText(head.title) + "</dc:title><dc:creator>" + XmlText(head.author) +
               "</dc:creator></office:meta></office:document-meta>\n";
    }

    const Document& document_;
    ZipWriter zip_;
    std::string body_, columns_, manifest_;
    int tables_ = 0, pictures_ = 0, formulas_ = 0;
    int members_ = 0;     // headings of level 1
    std::size_t at_ = 0;  // block in hand
    bool break_ = false;
};

}  // namespace

std::string WriteOdt(const Document& document)
{
    return OdtWriter(document).Take();
}

}  // namespace kestrum
