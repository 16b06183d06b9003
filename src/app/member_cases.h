#pragma once

// One member under cases of internal forces: prepared once, then case by case to its worst one.
// Tables of text (app/envelope.h) and columns of numbers (library/envelope.cpp) both come here.

#include "analysis/stations.h"
#include "core/library.h"
#include "report/outcome.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct ProjectState;

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
    std::vector<Station> stations{};  // whose notes are not measured yet

    bool Worse(bool other_failed, double other_ir, std::size_t other_line) const;
};

struct EnvelopeCounts {
    std::size_t cases = 0;
    std::size_t above = 0, failed = 0;                    // basis program
    std::size_t above_standard = 0, failed_standard = 0;  // basis standard
};

// One answer: of a member, or of one of its cases.
struct MemberAnswer {
    std::size_t member = static_cast<std::size_t>(-1);
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

// What is to be said of the answer, without what its checks say.
std::vector<std::string> NotesOf(const MemberAnswer& answer, Bases bases);

// Shares of Mx (of the yield torque) and of forces that the family does not carry (of the elastic
// resistance) up to which they are left out without a word and with one.
constexpr double kNamedShare = 0.01;

// The stations of one case as they are read, in any order.
struct CaseRows {
    std::string name{};    // of the case
    std::size_t line = 0;  // of its first station
    std::vector<Station> stations{};
    std::vector<std::size_t> lines{};  // of the stations
    std::string fault{};               // of a station that cannot be read

    bool empty() const { return stations.empty(); }
    void Clear();
};

// Stations that do not run from end to end: why, and the line to blame.
struct CaseFault {
    std::size_t line = 0;
    std::string what{};
};

class MemberCases {
public:
    // `every`: each case is put into words, not only one that may be the worst so far.
    MemberCases(const Library& library, Bases bases, bool every);
    ~MemberCases();
    MemberCases(MemberCases&&) noexcept;

    // The member of the following cases, as read or set; or why there is none.
    void Prepare(const ProjectState& member);
    void Refuse(std::string why);
    // Why no case of the member can run.
    const std::string& refusal() const;

    // The answer of one case, whose stations are put in order. `worst`, of the cases before it,
    // may be null. `fault` is filled where the stations are none.
    MemberAnswer Answer(CaseRows& rows, const MemberAnswer* worst, CaseFault& fault);

    // Finds which deviations act in the worst case by the program, one of the prepared member's;
    // nothing where every case is put into words.
    void Measure(WorstCase& program);

private:
    struct Prepared;
    void Program(const CaseRows& rows, const MemberAnswer* worst, MemberAnswer& answer);
    void Standard(const CaseRows& rows, const MemberAnswer* worst, MemberAnswer& answer);
    void Fail(const CaseRows& rows, const std::string& why, MemberAnswer& answer) const;

    const Library& library_;
    Bases bases_;
    bool every_;
    std::unique_ptr<Prepared> prepared_;
};

}  // namespace kestrum
