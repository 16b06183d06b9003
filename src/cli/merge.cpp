// The answers of shards put together as one run would have written them.

#include "app/cell_reader.h"
#include "cli/batch_output.h"
#include "cli/commands.h"
#include "cli/many.h"
#include "cli/text_stream.h"
#include "core/file_io.h"
#include "core/utf8_path.h"
#include "core/utf8_text.h"

#include <algorithm>
#include <cerrno>
#include <iostream>
#include <map>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

namespace kestrum::cli {

namespace {

// The answers of a shard with what they belong to.
class Part {
public:
    explicit Part(const std::string& name) : name_(name)
    {
        const std::string told = ShardName(name);
        std::string text;
        if (const std::string fault = ReadWholeFile(told, text); !fault.empty()) {
            throw BadInput(told + ": " + fault + "; a run with --shard writes it");
        }
        const std::string head = std::string("\n") + kOrderHead;
        const std::size_t at = text.find(head);
        if (at == std::string::npos || !order_.Read(text.substr(at + head.size())) ||
            !BatchOrigin::ReadShardOf(text.substr(0, at), shard_, common_)) {
            throw BadInput(told + ": is not what a run with --shard writes");
        }
        file_.reset(OpenFile(Utf8Path(name), "rb"));
        if (!file_) {
            throw BadInput(name + ": " + std::generic_category().message(errno));
        }
        form_ = name.ends_with(".csv") ? TableForm::csv : TableForm::ndjson;
        if (form_ == TableForm::csv) {
            header_ = TakeLine();
        }
        Advance();
    }

    // One line with its end.
    std::string TakeLine()
    {
        std::size_t end = 0;
        while ((end = text_.find('\n', at_)) == std::string::npos) {
            text_.erase(0, at_);
            at_ = 0;
            block_.resize(std::size_t{1} << 16);
            const std::size_t got = std::fread(block_.data(), 1, block_.size(), file_.get());
            if (got == 0) {
                throw BadInput(name_ + ": ends before its last answer");
            }
            text_.append(block_, 0, got);
        }
        std::string line = text_.substr(at_, end + 1 - at_);
        at_ = end + 1;
        return line;
    }

    // To the next member; behind the last nothing may follow.
    void Advance()
    {
        there_ = order_.Next(member_);
        if (!there_ && (at_ < text_.size() || std::fgetc(file_.get()) != EOF)) {
            throw BadInput(name_ + ": goes on behind its last answer");
        }
    }

    bool there() const { return there_; }
    const ShardOrder::Member& member() const { return member_; }
    const std::string& name() const { return name_; }
    const std::string& header() const { return header_; }
    const std::string& common() const { return common_; }
    const Shard& shard() const { return shard_; }
    TableForm form() const { return form_; }

private:
    std::string name_, header_, common_;
    Shard shard_;
    ShardOrder order_;
    ShardOrder::Member member_{};
    bool there_ = false;
    TableForm form_ = TableForm::csv;
    File file_;
    std::string text_, block_;
    std::size_t at_ = 0;
};

using Parts = std::vector<std::unique_ptr<Part>>;

// Answers under the line of names of the parts.
class MergedForm : public AnswerLines {
public:
    explicit MergedForm(const Part& part)
        : AnswerLines(part.form(), CsvOf(part.header())), header_(part.header())
    {
    }
    std::string Header() const override { return header_; }

private:
    static CsvForm CsvOf(std::string_view header)
    {
        CsvForm csv;
        csv.delimiter = SeparatorOf(header);
        return csv;
    }

    std::string header_;
};

// All shards of one run, each once.
void RequireWhole(const Parts& parts)
{
    const std::size_t count = parts.front()->shard().count;
    std::map<std::size_t, const Part*> found;
    for (const auto& part : parts) {
        if (part->common() != parts.front()->common() || part->shard().count != count ||
            part->header() != parts.front()->header() || part->form() != parts.front()->form()) {
            throw BadInput(part->name() + ": is of another run than " + parts.front()->name());
        }
        const auto [at, fresh] = found.try_emplace(part->shard().index, part.get());
        if (!fresh) {
            throw BadInput(part->name() + ": is the same part as " + at->second->name());
        }
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (!found.contains(i)) {
            throw BadInput("part " + std::to_string(i + 1) + " of " + std::to_string(count) +
                           " is missing");
        }
    }
}

// A heap with the part in front whose member comes first.
bool Behind(const std::unique_ptr<Part>& one, const std::unique_ptr<Part>& other)
{
    return one->member().place > other->member().place;
}

}  // namespace

int Merge(const Options& options, const MergeArguments& arguments)
{
    RequireAnswerName(options, arguments.out);
    Parts parts;
    for (const std::string& name : arguments.parts) {
        SpareInput(arguments.out.empty() ? "-" : arguments.out, name);
        parts.push_back(std::make_unique<Part>(name));
    }
    RequireWhole(parts);
    const MergedForm form(*parts.front());
    if (IsFile(arguments.out) && FormOf(options, arguments.out) != form.form()) {
        throw BadInput(arguments.out + ": the parts hold " +
                       (form.form() == TableForm::csv ? "CSV" : "NDJSON"));
    }
    BatchOutput output(arguments.out, false, false);
    output.Begin(form, BatchOrigin({}, "merge"));
    std::erase_if(parts, [](const auto& part) { return !part->there(); });
    std::make_heap(parts.begin(), parts.end(), Behind);
    Tally tally;
    std::string text, name;
    std::size_t next = 0, answers = 0;
    while (!parts.empty()) {
        std::pop_heap(parts.begin(), parts.end(), Behind);
        Part& part = *parts.back();
        if (part.member().place < next) {
            throw BadInput(part.name() + ": answers a member that another part answers");
        }
        next = part.member().place + 1;
        for (std::size_t i = 0; i < part.member().lines; ++i) {
            const std::string line = part.TakeLine();
            Verdict verdict{};
            double ir = 0;
            if (!form.ReadBack(line, name, verdict, ir)) {
                throw BadInput(part.name() + ": holds a line that is no answer");
            }
            tally.Add(answers++, name, verdict, ir);
            text += line;
        }
        constexpr std::size_t kFull = std::size_t{1} << 18;
        if (text.size() > kFull) {
            output.Write(std::exchange(text, {}));
        }
        part.Advance();
        if (part.there()) {
            std::push_heap(parts.begin(), parts.end(), Behind);
        } else {
            parts.pop_back();
        }
    }
    output.Write(text);
    output.Finish();
    if (!options.quiet) {
        std::cerr << PrintableLines(tally.Summary());
    }
    return kAllWithin;
}

}  // namespace kestrum::cli
