#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace bravona {

using Bytes = std::vector<std::uint8_t>;

// No bytes, and room for `count` of them. The system is asked for large pages where whole ones fit, so that filling
// tens of megabytes does not wait for a fault every four kilobytes; they lie within the room and cost no memory of
// their own.
Bytes roomFor(std::size_t count);

}  // namespace bravona
