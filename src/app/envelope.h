#pragma once

// Members of a frame under all cases of a table of forces: the worst case of each. Reads and writes
// texts only; the command line brings files, threads and the order of the rows.

#include "app/batch.h"
#include "app/force_table.h"
#include "app/member_list.h"
#include "engine/prepared.h"
#include "standard/station_cases.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

enum class Bases : std::uint8_t { program, standard, both };

constexpr double kNowhere = std::numeric_limits<double>::quiet_NaN();

// The worst case in one basis. A case without a ratio is worse than every ratio; of equal ones the
// first in the table counts.
struct WorstCase {
    bool any = false;
    Verdict verdict = Verdict::not_checked;
    bool failed = false;  // it has no ratio; that of an unstable member is NEd/Ncr
    double ir = 0;
    std::size_t line = 0;  // of its first station in the table
    double x = kNowhere;   // m; nowhere for the whole member
    std::string load_case{}, control{}, clause{}, message{};
    std::vector<std::string> notes{};

    bool Worse(bool other_failed, double other_ir, std::size_t other_line) const;
};

struct EnvelopeCounts {
    std::size_t cases = 0;
    std::size_t above = 0, failed = 0;                    // basis program
    std::size_t above_standard = 0, failed_standard = 0;  // basis standard
};

// One answer: of a member, or of one of its cases.
struct MemberAnswer {
    std::size_t member = MemberList::kNone;
    WorstCase program, standard;
    EnvelopeCounts counts;
    double torque = 0;      // share of the yield torque, the largest of the cases
    double mx = 0;          // kNm, its size
    bool nvaried = false;   // N is not constant in some case
    std::string refusal{};  // the member cannot be calculated, or has no forces
    Verdict refused = Verdict::bad;

    void Add(MemberAnswer other);
    // By the basis that decides; the program's unless only the standard is asked.
    Verdict VerdictIn(Bases bases) const;
    double RatioIn(Bases bases) const;
    bool RatedIn(Bases bases) const;
};

// Shares of Mx (of the yield torque) and of forces that the family does not carry (of the elastic
// resistance) up to which they are left out without a word and with one.
constexpr double kNamedShare = 0.01;

// The lines of the answers.
class EnvelopeForm : public AnswerLines {
public:
    EnvelopeForm(TableForm form, Bases bases, CsvTexts texts)
        : AnswerLines(form), bases_(bases), texts_(texts)
    {
    }
    std::string Header() const override;
    void AppendLine(std::string& out, std::string_view member, const MemberAnswer& answer) const;
    Bases bases() const { return bases_; }

private:
    Bases bases_;
    CsvTexts texts_;
};

struct EnvelopePlan {
    const Library& library;
    const ProjectState& base;  // what a member's line does not name
    const MemberList& members;
    Bases bases = Bases::both;
    Manner manner{Assignment::checked};
    bool all = false;     // a line for each case
    std::size_t top = 0;  // so many worst cases of each member
};

// Whole cases of some members, in their order, as they follow each other in the table.
struct ForcePiece {
    std::string lines = {};
    std::size_t line = 1;                   // number of the first record in the table
    std::vector<std::size_t> numbers = {};  // of each record, where they do not follow each other
    std::size_t place = 0;                  // of the first answer in the whole run

    // The answers, one for each member and where `all` one for each case; of top the worst ones.
    std::vector<MemberAnswer> answers = {};
    std::string fault = {};  // messages, a line each
    std::size_t faults = 0;
    std::size_t rows = 0, cases = 0;
};

// Calculates pieces; one for each thread.
class EnvelopeWorker {
public:
    EnvelopeWorker(const EnvelopePlan& plan, ForceColumns columns, std::string table);
    ~EnvelopeWorker();
    EnvelopeWorker(EnvelopeWorker&&) noexcept;

    void Work(ForcePiece& piece);

    // The member of an answer when no case of it could run, or it has none: why.
    std::string RefusalOf(std::size_t member);

private:
    struct Prepared;
    void Record(ForcePiece& piece, std::string_view record, std::size_t line);
    void OpenMember(ForcePiece& piece, std::string_view key, std::size_t line);
    void CloseCase(ForcePiece& piece);
    void CloseMember(ForcePiece& piece);
    void Prepare(std::size_t member);
    void Settle();
    void Program(MemberAnswer& answer);
    void Standard(MemberAnswer& answer);
    void Fail(MemberAnswer& answer, const std::string& why) const;
    void Keep(MemberAnswer answer);
    void Fault(ForcePiece& piece, std::size_t line, const std::string& what) const;

    const EnvelopePlan& plan_;
    ForceColumns columns_;
    std::string table_;
    std::unique_ptr<Prepared> prepared_;
    ForceRow row_;
    std::size_t member_ = MemberList::kNone;
    bool open_ = false;  // a member of the table is at work, known or not
    std::string key_, case_;
    std::vector<Station> stations_;
    std::vector<std::size_t> lines_;  // of the stations
    std::size_t case_line_ = 0;
    std::string case_fault_;
    std::vector<MemberAnswer> kept_;  // of the member at work
};

}  // namespace kestrum
