#pragma once

#include <cstdint>

namespace bravona {

// What the searches answer instead of a key.
namespace ricerca {
inline constexpr std::int32_t nessunRecord = -1;
inline constexpr std::int32_t annullata = -2;
}  // namespace ricerca

}  // namespace bravona
