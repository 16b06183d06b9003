#pragma once

// What the user must know about the result in sight, in words: the verdict with the ratio that
// governs, and everything that it does not cover. It decides nothing; the verdict is that of
// report/outcome.

#include "app/session.h"
#include "standard/standard.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kestrum {

// The sign of the head: nothing to add, something that the verdict does not cover, or no result
// that can be used.
enum class StatusKind : std::uint8_t { good, caution, bad };

struct StatusView {
    StatusKind kind = StatusKind::good;
    std::string head;                // "within limits, 1 note on the unsafe side:  IR 0.63, ..."
    std::string facts;               // "HEA 200,  42.3 kg/m,  254 kg,  EN 1990 Eq 6.10a/b"
    std::vector<std::string> lines;  // the gravest first
    // The same verdict by EN 1993-1-1 as written: "within limits:  IR 0.71, ..."; empty: unknown.
    StatusKind standardkind = StatusKind::good;
    std::string standard{};
};

// `standard`: the result by EN 1993-1-1 as written, where there is one.
StatusView StatusOf(const Session& session, const standard::StandardResult* standard = nullptr);

// Verdict, facts, result panel and deviations as plain text, for the clipboard.
std::string ResultsAsText(const Session& session,
                          const standard::StandardResult* standard = nullptr);

}  // namespace kestrum
