#include "report/svg_writer.h"

#include "core/base64.h"
#include "core/xml_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace kestrum {

namespace {

// Three decimals are below what any screen or printer shows.
void Append(std::string& out, double value)
{
    std::array<char, 32> text;
    const double rounded = std::round(value * 1000.0) / 1000.0;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), rounded == 0 ? 0.0 : rounded);
    out.append(text.data(), end.ptr);
}

void Attribute(std::string& out, std::string_view name, double value)
{
    out.append(" ").append(name).append("=\"");
    Append(out, value);
    out.append("\"");
}

void Attribute(std::string& out, std::string_view name, std::string_view value)
{
    out.append(" ").append(name).append("=\"").append(value).append("\"");
}

void Points(std::string& out, const std::vector<Point>& points)
{
    for (std::size_t i = 0; i < points.size(); ++i) {
        out.append(i == 0 ? "M" : "L");
        Append(out, points[i].x);
        out.append(" ");
        Append(out, points[i].y);
    }
}

void Stroke(std::string& out, Ink ink, double width)
{
    Attribute(out, "stroke", PaperColour(ink));
    if (width > 0) {
        Attribute(out, "stroke-width", width);
    } else {  // a hairline keeps its width at any size
        Attribute(out, "stroke-width", 1.0);
        Attribute(out, "vector-effect", "non-scaling-stroke");
    }
}

struct SvgVisitor {
    std::string& out;

    void operator()(const LineMark& line) const
    {
        out.append("<line");
        Attribute(out, "x1", line.from.x);
        Attribute(out, "y1", line.from.y);
        Attribute(out, "x2", line.to.x);
        Attribute(out, "y2", line.to.y);
        Stroke(out, line.ink, line.width);
        if (line.dashed) {
            if (line.width > 0) {
                out.append(" stroke-dasharray=\"");
                Append(out, 4 * line.width);
                out.append(" ");
                Append(out, 3 * line.width);
                out.append("\"");
            } else {
                Attribute(out, "stroke-dasharray", "4 3");
            }
        }
        out.append("/>\n");
    }
    void operator()(const PolygonMark& polygon) const
    {
        out.append("<path d=\"");
        for (const auto& ring : polygon.rings) {
            Points(out, ring);
            out.append("Z");
        }
        out.append("\" fill-rule=\"evenodd\"");
        Attribute(out, "fill", polygon.filled ? PaperColour(polygon.fill) : "none");
        Stroke(out, polygon.outline, polygon.width);
        out.append("/>\n");
    }
    void operator()(const PolylineMark& line) const
    {
        out.append("<path d=\"");
        Points(out, line.points);
        out.append("\" fill=\"none\"");
        Stroke(out, line.ink, line.width);
        out.append("/>\n");
    }
    void operator()(const CircleMark& circle) const
    {
        out.append("<circle");
        Attribute(out, "cx", circle.centre.x);
        Attribute(out, "cy", circle.centre.y);
        Attribute(out, "r", circle.radius);
        Attribute(out, "fill", circle.filled ? PaperColour(circle.ink) : "none");
        Stroke(out, circle.ink, circle.width);
        out.append("/>\n");
    }
    void operator()(const TextMark& text) const
    {
        out.append("<text");
        Attribute(out, "x", text.at.x);
        Attribute(out, "y", text.at.y);
        Attribute(out, "font-size", text.size);
        Attribute(out, "fill", PaperColour(text.ink));
        if (text.align != Align::left) {
            Attribute(out, "text-anchor", text.align == Align::centre ? "middle" : "end");
        }
        if (text.bold) {
            Attribute(out, "font-weight", "bold");
        }
        if (text.italic) {
            Attribute(out, "font-style", "italic");
        }
        if (text.underline) {
            Attribute(out, "text-decoration", "underline");
        }
        if (text.angle != 0) {
            out.append(" transform=\"rotate(");
            Append(out, -text.angle);
            for (const double v : {text.at.x, text.at.y}) {
                out.append(" ");
                Append(out, v);
            }
            out.append(")\"");
        }
        out.append(" xml:space=\"preserve\">");
        AppendXml(out, text.text);
        out.append("</text>\n");
    }
};

void AppendPicture(std::string& out, const PlacedPicture& picture)
{
    out.append("<image");
    Attribute(out, "x", picture.corner.x);
    Attribute(out, "y", picture.corner.y);
    Attribute(out, "width", picture.width);
    Attribute(out, "height", picture.height);
    const std::string type = picture.svg ? "svg+xml" : "png";
    Attribute(out, "href", "data:image/" + type + ";base64," + Base64(*picture.bytes));
    out.append("/>\n");
}

}  // namespace

std::string_view PaperColour(Ink ink)
{
    switch (ink) {
    case Ink::text:
        return "#000000";
    case Ink::member:
        return "#1f2933";
    case Ink::load:
        return "#0b4fb3";
    case Ink::moment:
        return "#b3261e";
    case Ink::good:
        return "#008000";
    case Ink::bad:
        return "#c00000";
    case Ink::faint:
        return "#7b8794";
    case Ink::steel:
        return "#cbd2d9";
    case Ink::shade:
        return "#eef1f4";
    case Ink::paper:
        return "#ffffff";
    }
    return "#000000";
}

std::string WriteSvg(const Drawing& drawing, double pixels_per_unit)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + SvgElement(drawing, pixels_per_unit);
}

std::string SvgElement(const Drawing& drawing, double pixels_per_unit)
{
    std::string out = "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\"";
    Attribute(out, "width", drawing.width * pixels_per_unit);
    Attribute(out, "height", drawing.height * pixels_per_unit);
    out.append(" viewBox=\"0 0 ");
    Append(out, drawing.width);
    out.append(" ");
    Append(out, drawing.height);
    out.append("\" font-family=\"Liberation Sans, Arial, sans-serif\">\n<title>");
    AppendXml(out, drawing.title);
    out.append("</title>\n");
    for (const Mark& mark : drawing.marks) {
        std::visit(SvgVisitor{out}, mark);
    }
    for (const PlacedPicture& picture : drawing.pictures) {
        AppendPicture(out, picture);
    }
    out.append("</svg>\n");
    return out;
}

}  // namespace kestrum
