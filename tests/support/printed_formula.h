#pragma once

// Calculates what a reader of a report would type into a pocket calculator:
// "0.5·(1 + 0.34·(0.53332 - 0.2) + 0.53332^2)". It shares nothing with the program.

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kestrum {

class PocketCalculator {
public:
    explicit PocketCalculator(std::string_view text) : text_(text) {}

    double Value()
    {
        const double value = Sum();
        Skip();
        if (!text_.empty()) {
            throw std::invalid_argument("left over: " + std::string(text_));
        }
        return value;
    }

private:
    void Skip()
    {
        while (text_.starts_with(' ')) {
            text_.remove_prefix(1);
        }
    }
    bool Take(std::string_view word)
    {
        Skip();
        if (!text_.starts_with(word)) {
            return false;
        }
        text_.remove_prefix(word.size());
        return true;
    }
    void Need(std::string_view word)
    {
        if (!Take(word)) {
            throw std::invalid_argument("no " + std::string(word) + ": " + std::string(text_));
        }
    }
    double Sum()
    {
        double sum = Product();
        for (;;) {
            if (Take("+")) {
                sum += Product();
            } else if (Take("-")) {
                sum -= Product();
            } else {
                return sum;
            }
        }
    }
    double Product()
    {
        double product = PowerOf();
        for (;;) {
            if (Take("·")) {
                product *= PowerOf();
            } else if (Take("/")) {
                product /= PowerOf();
            } else {
                return product;
            }
        }
    }
    double PowerOf()
    {
        const double base = Single();
        return Take("^") ? std::pow(base, Single()) : base;
    }
    double List(const double& (*pick)(const double&, const double&))
    {
        double value = Sum();
        while (Take(";")) {
            value = pick(value, Sum());
        }
        Need(")");
        return value;
    }
    double Angle()
    {
        const double degrees = Sum();
        Need("°)");
        return degrees * std::numbers::pi / 180;
    }
    double Single()
    {
        if (Take("-")) {
            return -Single();
        }
        if (Take("π")) {
            return std::numbers::pi;
        }
        if (Take("√(")) {
            const double value = Sum();
            Need(")");
            return std::sqrt(value);
        }
        if (Take("min(")) {
            return List(std::min<double>);
        }
        if (Take("max(")) {
            return List(std::max<double>);
        }
        if (Take("ln(")) {
            const double value = Sum();
            Need(")");
            return std::log(value);
        }
        if (Take("cos(")) {
            return std::cos(Angle());
        }
        if (Take("sin(")) {
            return std::sin(Angle());
        }
        if (Take("(")) {
            const double value = Sum();
            Need(")");
            return value;
        }
        if (Take("|")) {
            const double value = Sum();
            Need("|");
            return std::abs(value);
        }
        const std::size_t end = std::min(text_.find_first_not_of("0123456789."), text_.size());
        const double value = std::stod(std::string(text_.substr(0, end)));
        text_.remove_prefix(end);
        return value;
    }

    std::string_view text_;
};

// One unit of the last digit of "0.7305", "36.92·10^6".
inline double LastDigit(std::string_view number)
{
    const std::size_t end = std::min(number.find("·"), number.size());
    const std::size_t point = std::min(number.find('.'), end);
    const double decimals = point == end ? 0 : static_cast<double>(end - point - 1);
    const double power =
        end == number.size() ? 1 : PocketCalculator(number.substr(end + 2)).Value();
    return power * std::pow(10.0, -decimals);
}

}  // namespace kestrum
