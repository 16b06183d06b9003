#include "cli/print_stamp.h"

#include <array>
#include <charconv>
#include <ctime>

namespace kestrum::cli {

namespace {

std::string Digits(int value, std::size_t places)
{
    std::array<char, 8> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    std::string text(buffer.data(), end);
    text.insert(0, text.size() < places ? places - text.size() : 0, '0');
    return text;
}

}  // namespace

PrintStamp StampOfNow()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    return {Digits(local.tm_year + 1900, 4) + "-" + Digits(local.tm_mon + 1, 2) + "-" +
                Digits(local.tm_mday, 2),
            Digits(local.tm_hour, 2) + ":" + Digits(local.tm_min, 2)};
}

}  // namespace kestrum::cli
