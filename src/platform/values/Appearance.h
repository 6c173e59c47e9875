#pragma once

#include <cstdint>

namespace bravona {

// red + 256 x green + 65536 x blue
using Colour = std::uint32_t;
constexpr Colour rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue)
{
    return red + 256U * green + 65536U * blue;
}
namespace colours {
inline constexpr Colour black = 0;
inline constexpr Colour red = rgb(255, 0, 0);
inline constexpr Colour blue = rgb(0, 0, 255);
inline constexpr Colour white = rgb(255, 255, 255);
inline constexpr Colour focusYellow = rgb(255, 255, 192);
}  // namespace colours

enum class Align { left, right, centre };

}  // namespace bravona
