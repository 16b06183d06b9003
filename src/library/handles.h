#pragma once

// What stands behind the handles of kestrum.h, and the barrier between its functions and the
// program: no exception leaves, and the caller's floating-point environment is what it was.

#include "app/assign_run.h"
#include "core/held_state.h"
#include "core/library.h"
#include "kestrum/kestrum.h"
#include "report/design_notes.h"
#include "report/outcome.h"
#include "standard/standard.h"

#include <cfenv>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct kestrum_error {
    kestrum_code code;
    std::string text, field, nearest;
    int line;
};

struct kestrum_text {
    std::string text;
};

struct kestrum_catalogue {
    std::shared_ptr<const kestrum::Library> library;
};

struct kestrum_member {
    std::shared_ptr<const kestrum::Library> library;
    kestrum::HeldState state;
};

namespace kestrum::library {

// A result of one basis in the words of the interface; texts end with a zero.
struct Answer {
    kestrum_status status = KESTRUM_NOT_CHECKED;
    double ratio = std::numeric_limits<double>::quiet_NaN();  // none
    std::string verdict, governing, clause, message;
};

struct StoredCheck {
    std::string check, formula, clause, load_case;
    double place, ratio;
    float limit;
    int point = 0, segment = 0, segments = 0;
};

struct StoredNote {
    std::string id, text;
    double cost = std::numeric_limits<double>::quiet_NaN();
};

struct StoredDeviation {
    std::string id, text;
    double cost, without;
    bool unsafe;
};

struct StoredFailure {
    std::string stage, cause, quantity, unit;
};

// The field of an input; refuses a name that is none.
AssignTarget TargetOf(std::string_view name);
FieldRef FieldOf(std::string_view name);
kestrum_status StatusOf(Verdict verdict);
Answer ProgramAnswer(const Outcome& outcome);
Answer StandardAnswer(const standard::StandardResult& standard);
void RequireBasis(unsigned basis);

}  // namespace kestrum::library

struct kestrum_result {
    kestrum::HeldState state;  // after the pass by the rules of the program
    kestrum::library::Answer program, standard;
    kestrum::library::StoredFailure failure;
    std::vector<kestrum::library::StoredCheck> checks, checks_standard;
    std::vector<kestrum::library::StoredNote> notes;
    std::vector<kestrum::library::StoredDeviation> deviations;
};

namespace kestrum::library {

// What a function refuses; caught at the barrier.
struct Refusal {
    kestrum_code code;
    std::string text;
    std::string field = {};
    std::string nearest = {};
    int line = 0;
};

// The caller's floating-point environment: kept aside while the calculation has the usual one.
class FloatingPoint {
public:
    FloatingPoint()
    {
        std::feholdexcept(&kept_);
        std::fesetenv(FE_DFL_ENV);
    }
    ~FloatingPoint() { std::fesetenv(&kept_); }
    FloatingPoint(const FloatingPoint&) = delete;
    FloatingPoint& operator=(const FloatingPoint&) = delete;

private:
    std::fenv_t kept_{};
};

template <class T> const T& Required(const T* argument, const char* name)
{
    if (argument == nullptr) {
        throw Refusal{KESTRUM_NULL, std::string(name) + " is null", name};
    }
    return *argument;
}

inline const char* RequiredText(const char* argument, const char* name)
{
    return &Required(argument, name);
}

template <class T> T& RequiredOut(T* argument, const char* name)
{
    return const_cast<T&>(Required(argument, name));
}

// Stores a description where the caller asks for one; without memory for it the code alone says it.
inline kestrum_code Report(kestrum_error** error, Refusal refusal) noexcept
{
    const kestrum_code code = refusal.code;
    if (error != nullptr) {
        *error = new (std::nothrow)
            kestrum_error{code, std::move(refusal.text), std::move(refusal.field),
                          std::move(refusal.nearest), refusal.line};
    }
    return code;
}

template <class Work> kestrum_code Guarded(kestrum_error** error, Work work) noexcept
{
    if (error != nullptr) {
        *error = nullptr;
    }
    try {
        const FloatingPoint kept;
        work();
        return KESTRUM_OK;
    } catch (Refusal& refusal) {
        return Report(error, std::move(refusal));
    } catch (const std::bad_alloc&) {
        return Report(error, {KESTRUM_NO_MEMORY, {}});
    } catch (const std::length_error&) {
        return Report(error, {KESTRUM_NO_MEMORY, {}});
    } catch (...) {
        return Report(error, {KESTRUM_INTERNAL, {}});
    }
}

// Makes what `make` returns the answer; null after a failure.
template <class T, class Make>
kestrum_code Answered(T** out, kestrum_error** error, Make make) noexcept
{
    if (out != nullptr) {
        *out = nullptr;
    }
    return Guarded(error, [&] {
        RequiredOut(out, "out");
        *out = new T{make()};
    });
}

}  // namespace kestrum::library
