#include "sections/delivered_data.h"

#include <algorithm>
#include <iterator>

namespace kestrum {

namespace {

struct Delivered {
    std::string_view name, sha256;
};

constexpr Delivered kDelivered[] = {
#include "sections/delivered_data.inc"
};

}  // namespace

bool IsDelivered(std::string_view name, std::string_view sha256)
{
    return std::any_of(std::begin(kDelivered), std::end(kDelivered), [&](const Delivered& file) {
        return file.name == name && file.sha256 == sha256;
    });
}

}  // namespace kestrum
