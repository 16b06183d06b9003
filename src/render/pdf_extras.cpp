#include "render/pdf_extras.h"

#include "core/utf8_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <optional>

namespace kestrum {

namespace {

constexpr double kPointsPerMm = 72 / 25.4;

// The number behind the last place of `key`.
std::optional<std::size_t> NumberBehind(std::string_view text, std::string_view key)
{
    std::size_t at = text.rfind(key);
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    at = text.find_first_not_of(" \r\n", at + key.size());
    std::size_t number = 0;
    if (at == std::string_view::npos ||
        std::from_chars(text.data() + at, text.data() + text.size(), number).ec != std::errc{}) {
        return std::nullopt;
    }
    return number;
}

// UTF-16 with a byte order mark, as hexadecimal digits.
std::string PdfText(std::string_view text)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string out = "<FEFF";
    const auto put = [&](unsigned unit) {
        for (int shift = 12; shift >= 0; shift -= 4) {
            out += kDigits[(unit >> static_cast<unsigned>(shift)) & 0xFU];
        }
    };
    const std::string utf8 = AsUtf8(text);
    for (std::size_t at = 0; at < utf8.size();) {
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
        const unsigned first = byte(at++);
        const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
        unsigned code = more == 0 ? first : first & (0x3FU >> static_cast<unsigned>(more));
        for (int i = 0; i < more; ++i) {
            code = (code << 6U) | (byte(at++) & 0x3FU);
        }
        if (code < 0x10000U) {
            put(code);
        } else {
            put(0xD800U + ((code - 0x10000U) >> 10U));
            put(0xDC00U + ((code - 0x10000U) & 0x3FFU));
        }
    }
    return out + ">";
}

std::string Points(double mm)
{
    std::array<char, 32> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), mm * kPointsPerMm,
                                   std::chars_format::fixed, 2);
    return {buffer.data(), end.ptr};
}

class Update {
public:
    explicit Update(std::string pdf) : pdf_(std::move(pdf)) {}

    // Finds objects and pages; false for a file of another build.
    bool Read()
    {
        const auto xref = NumberBehind(pdf_, "startxref");
        const std::size_t trailer = pdf_.rfind("trailer");
        if (!xref || trailer == std::string::npos || *xref >= pdf_.size() ||
            pdf_.compare(*xref, 4, "xref") != 0) {
            return false;
        }
        xref_ = *xref;
        const std::string_view dictionary = std::string_view(pdf_).substr(trailer);
        const auto size = NumberBehind(dictionary, "/Size"),
                   root = NumberBehind(dictionary, "/Root"),
                   info = NumberBehind(dictionary, "/Info");
        if (!size || !root || !info) {
            return false;
        }
        next_ = *size;
        root_ = *root;
        info_ = *info;
        return ReadPages();
    }

    std::size_t PageCount() const { return pages_.size(); }
    std::size_t New() { return next_++; }
    void Put(std::size_t number, std::string content) { objects_[number] = std::move(content); }
    std::string PageRef(std::size_t page) const { return std::to_string(pages_[page]) + " 0 R"; }

    // Adds entries to the dictionary of an object.
    void Extend(std::size_t number, const std::string& entries)
    {
        std::string content = Content(number);
        const std::size_t end = content.rfind(">>");
        if (end != std::string::npos) {
            content.insert(end, entries + "\n");
            Put(number, std::move(content));
        }
    }
    void ExtendRoot(const std::string& entries) { Extend(root_, entries); }
    void ExtendInfo(const std::string& entries) { Extend(info_, entries); }
    void PutAnnotations(std::size_t page, const std::string& list)
    {
        if (const auto number = NumberBehind(Content(pages_[page]), "/Annots")) {
            Put(*number, "[" + list + "]");
        } else {
            Extend(pages_[page], "/Annots [" + list + "]");
        }
    }

    std::string Take()
    {
        std::string out = std::move(pdf_);
        out += "\n";
        std::string table = "xref\n";
        for (const auto& [number, content] : objects_) {
            std::string offset = std::to_string(out.size());
            offset.insert(0, 10 - offset.size(), '0');
            table += std::to_string(number) + " 1\n" + offset + " 00000 n \n";
            out += std::to_string(number) + " 0 obj\n" + content + "\nendobj\n";
        }
        const std::size_t start = out.size();
        return out + table + "trailer\n<<\n/Size " + std::to_string(next_) + "\n/Info " +
               std::to_string(info_) + " 0 R\n/Root " + std::to_string(root_) + " 0 R\n/Prev " +
               std::to_string(xref_) + "\n>>\nstartxref\n" + std::to_string(start) + "\n%%EOF\n";
    }

private:
    // Between "N 0 obj" and "endobj".
    std::string Content(std::size_t number) const
    {
        if (const auto put = objects_.find(number); put != objects_.end()) {
            return put->second;
        }
        const std::string head = "\n" + std::to_string(number) + " 0 obj\n";
        const std::size_t at = pdf_.find(head);
        const std::size_t end = at == std::string::npos ? at : pdf_.find("endobj", at);
        return end == std::string::npos ? std::string()
                                        : pdf_.substr(at + head.size(), end - at - head.size());
    }
    bool ReadPages()
    {
        const auto tree = NumberBehind(Content(root_), "/Pages");
        if (!tree) {
            return false;
        }
        const std::string content = Content(*tree);
        std::size_t at = content.find("/Kids");
        const std::size_t end = content.find(']', at);
        at = content.find('[', at);
        if (at == std::string::npos || end == std::string::npos) {
            return false;
        }
        while ((at = content.find_first_of("0123456789", at)) < end) {
            std::size_t number = 0;
            std::from_chars(content.data() + at, content.data() + end, number);
            pages_.push_back(number);
            at = content.find('R', at);
        }
        return !pages_.empty();
    }

    std::string pdf_;
    std::size_t xref_ = 0, next_ = 0, root_ = 0, info_ = 0;
    std::vector<std::size_t> pages_;
    std::map<std::size_t, std::string> objects_;
};

std::string Destination(const Update& update, const PdfMark& mark)
{
    constexpr double kPaperHeight = 297, kAbove = 2;
    return "[" + update.PageRef(mark.page) + " /XYZ null " +
           Points(kPaperHeight - mark.y + kAbove) + " null]";
}

// The bookmarks as the tree that their depths tell.
void AddOutline(Update& update, const std::vector<PdfMark>& marks)
{
    const std::size_t root = update.New();
    std::vector<std::size_t> numbers(marks.size());
    std::generate(numbers.begin(), numbers.end(), [&] { return update.New(); });
    struct Links {
        std::size_t parent = 0, before = 0, after = 0, first = 0, last = 0, count = 0;
    };
    std::vector<Links> links(marks.size());
    Links top;
    std::vector<std::size_t> open;  // of each depth the last one
    for (std::size_t i = 0; i < marks.size(); ++i) {
        while (!open.empty() && marks[open.back()].depth >= marks[i].depth) {
            open.pop_back();
        }
        Links& above = open.empty() ? top : links[open.back()];
        links[i].parent = open.empty() ? root : numbers[open.back()];
        if (above.last != 0) {
            links[i].before = above.last;
            const auto before = std::find(numbers.begin(), numbers.end(), above.last);
            links[static_cast<std::size_t>(before - numbers.begin())].after = numbers[i];
        } else {
            above.first = numbers[i];
        }
        above.last = numbers[i];
        ++above.count;
        open.push_back(i);
    }
    const auto entry = [](std::string_view name, std::size_t number) {
        return number == 0 ? std::string()
                           : "/" + std::string(name) + " " + std::to_string(number) + " 0 R ";
    };
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const Links& at = links[i];
        update.Put(numbers[i],
                   "<< /Title " + PdfText(marks[i].title) + " " + entry("Parent", at.parent) +
                       entry("Prev", at.before) + entry("Next", at.after) +
                       entry("First", at.first) + entry("Last", at.last) +
                       (at.count > 0 ? "/Count -" + std::to_string(at.count) + " " : "") +
                       "/Dest " + Destination(update, marks[i]) + " >>");
    }
    update.Put(root, "<< /Type /Outlines " + entry("First", top.first) + entry("Last", top.last) +
                         "/Count " + std::to_string(top.count) + " >>");
    update.ExtendRoot("/Outlines " + std::to_string(root) + " 0 R /PageMode /UseOutlines");
}

void AddLinks(Update& update, const PdfExtras& extras)
{
    constexpr double kPaperHeight = 297;
    std::map<std::size_t, std::string> of_page;
    for (const PdfLink& link : extras.links) {
        const std::size_t number = update.New();
        update.Put(number, "<< /Type /Annot /Subtype /Link /Border [0 0 0] /Rect [" +
                               Points(link.left) + " " + Points(kPaperHeight - link.bottom) + " " +
                               Points(link.right) + " " + Points(kPaperHeight - link.top) +
                               "] /Dest " + Destination(update, extras.marks[link.mark]) + " >>");
        of_page[link.page] += std::to_string(number) + " 0 R ";
    }
    for (const auto& [page, list] : of_page) {
        update.PutAnnotations(page, list);
    }
}

// The one time that the file holds: a fixed one, in whatever zone it was written.
void Freeze(std::string& pdf)
{
    constexpr std::string_view kKey = "/CreationDate (D:", kTime = "20000101000000";
    const std::size_t key = pdf.find(kKey);
    const std::size_t at = key + kKey.size();
    const std::size_t end = key == std::string::npos ? key : pdf.find(')', key);
    if (end == std::string::npos || end - at < kTime.size()) {
        return;
    }
    pdf.replace(at, kTime.size(), kTime);
    for (std::size_t i = at + kTime.size(); i < end; ++i) {
        pdf[i] = pdf[i] >= '1' && pdf[i] <= '9' ? '0' : pdf[i] == '-' ? '+' : pdf[i];
    }
}

}  // namespace

std::string WithExtras(std::string pdf, const PdfExtras& extras)
{
    if (extras.reproducible) {
        Freeze(pdf);
    }
    Update update(pdf);
    if (!update.Read()) {
        return pdf;
    }
    const auto lost = [&](const auto& placed) { return placed.page >= update.PageCount(); };
    if (std::any_of(extras.marks.begin(), extras.marks.end(), lost) ||
        std::any_of(extras.links.begin(), extras.links.end(), [&](const PdfLink& link) {
            return lost(link) || link.mark >= extras.marks.size();
        })) {
        return pdf;
    }
    if (!extras.marks.empty()) {
        AddOutline(update, extras.marks);
    }
    AddLinks(update, extras);
    if (!extras.author.empty()) {
        update.ExtendInfo("/Author " + PdfText(extras.author));
    }
    return update.Take();
}

}  // namespace kestrum
