// MinGW's sqrt, pow and log return NaN or infinity without raising the status flags by which a
// failed pass is known (IEEE 754, 7; C, annex F). The linker puts these in their place (--wrap).

#ifdef __MINGW32__

#include <cfenv>
#include <cmath>

namespace {

double Flagged(double result, bool sound, bool pole)
{
    if (std::isnan(result) && sound) {
        std::feraiseexcept(FE_INVALID);
    } else if (std::isinf(result) && pole) {
        std::feraiseexcept(FE_DIVBYZERO);
    }
    return result;
}

}  // namespace

extern "C" {

double __real_sqrt(double value);
double __real_pow(double base, double exponent);
double __real_log(double value);

double __wrap_sqrt(double value);
double __wrap_pow(double base, double exponent);
double __wrap_log(double value);

double __wrap_sqrt(double value)
{
    return Flagged(__real_sqrt(value), !std::isnan(value), false);
}

double __wrap_pow(double base, double exponent)
{
    return Flagged(__real_pow(base, exponent), !std::isnan(base) && !std::isnan(exponent),
                   base == 0 && std::isfinite(exponent));
}

double __wrap_log(double value)
{
    return Flagged(__real_log(value), !std::isnan(value), value == 0);
}

}  // extern "C"

#endif
