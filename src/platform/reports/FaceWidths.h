#pragma once

#include <array>
#include <cstdint>

namespace bravona::detail {

// Advance widths of the report face, normal and bold, in units of 2048 to the em; 0 where there is no glyph.
inline constexpr char32_t plainFirst = 0x20;  // up to U+017F in one table
inline constexpr std::size_t plainCount = 0x160;
inline constexpr std::size_t signCount = 49;

struct SignWidth {
    char32_t sign;
    std::uint16_t normal;
    std::uint16_t bold;
};

extern const std::array<std::uint16_t, plainCount> plainNormal;
extern const std::array<std::uint16_t, plainCount> plainBold;
extern const std::array<SignWidth, signCount> signs;  // what else a document may hold, in order

}  // namespace bravona::detail
