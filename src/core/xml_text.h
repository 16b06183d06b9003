#pragma once

// Texts on their way into XML and HTML.

#include <string>
#include <string_view>

namespace kestrum {

// Appends the text in UTF-8 with its markup characters as entities. Control characters, which a
// project title may hold, have no place in XML and become blanks.
void AppendXml(std::string& out, std::string_view text);

std::string XmlText(std::string_view text);

}  // namespace kestrum
