// Faults that are chosen when the program starts. Put in front of the sources that tools/mutate copies; no part of the
// product. KESTRUM_MUTANT names the one that acts; without it KESTRUM_REACHED names the file for the list of those that ran.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <type_traits>

namespace mutant {

inline constexpr int kCount = KESTRUM_MUTANTS + 1;
inline unsigned char reached[kCount];

struct Choice {
    int id = -1; // 0 before this is made: nothing acts and nothing is listed in the start of the program
    const char* list = nullptr;
    Choice() {
        const char* text = std::getenv("KESTRUM_MUTANT");
        list = std::getenv("KESTRUM_REACHED");
        id = text != nullptr ? std::atoi(text) : -1;
    }
    ~Choice() {
        std::FILE* file = id < 0 && list != nullptr ? std::fopen(list, "ab") : nullptr;
        if (file != nullptr) { // programs that a test starts, and libraries, each add theirs
            std::fwrite(reached, 1, kCount, file);
            std::fclose(file);
        }
    }
};
inline Choice choice;

constexpr bool Acts(int id) {
    if (std::is_constant_evaluated())
        return false;
    if (choice.id < 0)
        reached[id] = 1;
    return choice.id == id;
}

template <class T>
constexpr T Number(int id, T value) {
    return Acts(id) ? static_cast<T>(value * 1.01) : value;
}

// The 2 in 2 * x: an integer as long as the other side is one.
struct Integer {
    int id;
    int value;
    constexpr operator int() const { return value; }
    constexpr Integer operator-() const { return {id, -value}; }
};
#define KESTRUM_INTEGER(op)                                                                                             \
    template <class B>                                                                                                  \
    constexpr auto operator op(Integer a, const B& b)                                                                   \
        requires std::is_arithmetic_v<B>                                                                                \
    {                                                                                                                   \
        using R = decltype(a.value op b);                                                                               \
        return Acts(a.id) ? static_cast<R>(a.value * 1.01 op b) : static_cast<R>(a.value op b);                         \
    }                                                                                                                   \
    template <class A>                                                                                                  \
    constexpr auto operator op(const A& a, Integer b)                                                                   \
        requires std::is_arithmetic_v<A>                                                                                \
    {                                                                                                                   \
        using R = decltype(a op b.value);                                                                               \
        return Acts(b.id) ? static_cast<R>(a op (b.value * 1.01)) : static_cast<R>(a op b.value);                       \
    }
KESTRUM_INTEGER(*)
KESTRUM_INTEGER(/)

template <class T>
constexpr T Signed(int id, const T& value)
    requires std::is_arithmetic_v<T>
{
    return Acts(id) ? static_cast<T>(-value) : value;
}
template <class T>
constexpr const T& Signed(int, const T& value)
    requires(!std::is_arithmetic_v<T>)
{
    return value;
}

// a + b becomes a + At{7} + b, which keeps the rank of the operator.
struct At {
    int id;
};
template <class A>
struct Left {
    const A& a;
    int id;
};
#define KESTRUM_SWAP(op, other)                                                                                         \
    template <class A>                                                                                                  \
    constexpr Left<A> operator op(const A& a, At at) {                                                                  \
        return {a, at.id};                                                                                              \
    }                                                                                                                   \
    template <class A, class B>                                                                                         \
    constexpr auto operator op(const Left<A>& l, const B& b) {                                                          \
        using R = std::decay_t<decltype(l.a op b)>;                                                                     \
        if constexpr (requires { static_cast<R>(l.a other b); })                                                        \
            return Acts(l.id) ? static_cast<R>(l.a other b) : static_cast<R>(l.a op b);                                 \
        else                                                                                                            \
            return l.a op b;                                                                                            \
    }
KESTRUM_SWAP(+, -)
KESTRUM_SWAP(-, +)
KESTRUM_SWAP(*, /)
KESTRUM_SWAP(/, *)
KESTRUM_SWAP(<, <=)
KESTRUM_SWAP(<=, <)
KESTRUM_SWAP(>, >=)
KESTRUM_SWAP(>=, >)
KESTRUM_SWAP(==, !=)
KESTRUM_SWAP(!=, ==)

// a && b becomes (bool(a) == Decides(7, false) ? Decides(7, false) : bool(b)).
constexpr bool Decides(int id, bool deciding) { return Acts(id) ? !deciding : deciding; }

} // namespace mutant
