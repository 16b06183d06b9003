#include "sections/delivered_data.h"

#include <algorithm>
#include <iterator>

namespace kestrum {

bool IsDelivered(std::string_view name, std::string_view sha256)
{
    return std::any_of(
        std::begin(kDeliveredFiles), std::end(kDeliveredFiles),
        [&](const DeliveredFile& file) { return file.name == name && file.sha256 == sha256; });
}

}  // namespace kestrum
