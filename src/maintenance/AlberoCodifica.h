#pragma once

#include "maintenance/FormatoHuffman.h"

#include <array>
#include <cstdint>

namespace bravona::huffman {

using Frequenze = std::array<std::uint32_t, numeroValori>;

// The code of one byte value: its first bit is the lowest of `bit`. Length 0: the value has no code. An original of the
// format's length gives codes of at most 44 bits.
struct Codice {
    std::uint64_t bit = 0;
    std::uint8_t lunghezza = 0;
};

using Codici = std::array<Codice, numeroValori>;

// The codes for these frequencies, whose sum is a length of the format. A single value gets a code of no bits.
Codici creaCodici(const Frequenze& frequenze);

}  // namespace bravona::huffman
