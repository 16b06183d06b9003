#include "sections/delivered_data.h"

#include "core/fingerprint.h"

#include <algorithm>
#include <iterator>

namespace kestrum {

bool IsDelivered(std::string_view name, std::string_view bytes)
{
    const std::uint64_t fingerprint = Fingerprint(bytes);
    return std::any_of(std::begin(kDeliveredFiles), std::end(kDeliveredFiles),
                       [&](const DeliveredFile& file) {
                           return file.name == name && file.fingerprint == fingerprint;
                       });
}

}  // namespace kestrum
