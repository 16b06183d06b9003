#include "core/xml_text.h"

#include "core/utf8_text.h"

namespace kestrum {

namespace {

void AppendUtf8Text(std::string& out, std::string_view text)
{
    for (const char c : text) {
        switch (c) {
        case '&':
            out.append("&amp;");
            break;
        case '<':
            out.append("&lt;");
            break;
        case '>':
            out.append("&gt;");
            break;
        case '"':
            out.append("&quot;");
            break;
        default:
            out.push_back(static_cast<unsigned char>(c) < 0x20 ? ' ' : c);
        }
    }
}

}  // namespace

void AppendXml(std::string& out, std::string_view text)
{
    if (IsUtf8(text)) {
        AppendUtf8Text(out, text);
    } else {
        AppendUtf8Text(out, AsUtf8(text));
    }
}

std::string XmlText(std::string_view text)
{
    std::string out;
    AppendXml(out, text);
    return out;
}

}  // namespace kestrum
