#pragma once

#include <array>
#include <cstdint>

namespace bravona::huffman {

// Each byte by its table, from [da, a) on to `qui`, which lies apart; returns the end of what is written.
std::uint8_t* traduci(const std::array<std::uint8_t, 256>& tabella, const std::uint8_t* da, const std::uint8_t* a,
                      std::uint8_t* qui);

}  // namespace bravona::huffman
