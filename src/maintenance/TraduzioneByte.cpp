#include "maintenance/TraduzioneByte.h"

#include "maintenance/BitHuffman.h"

namespace bravona::huffman {

std::uint8_t* traduci(const std::array<std::uint8_t, 256>& tabella, const std::uint8_t* da, const std::uint8_t* a,
                      std::uint8_t* qui)
{
    for (; a - da >= 8; da += 8, qui += 8) {
        const std::uint64_t otto = leggi64(da);
        qui[0] = tabella[otto & 0xFF];
        qui[1] = tabella[otto >> 8 & 0xFF];
        qui[2] = tabella[otto >> 16 & 0xFF];
        qui[3] = tabella[otto >> 24 & 0xFF];
        qui[4] = tabella[otto >> 32 & 0xFF];
        qui[5] = tabella[otto >> 40 & 0xFF];
        qui[6] = tabella[otto >> 48 & 0xFF];
        qui[7] = tabella[otto >> 56];
    }
    for (; da != a; ++da) {
        *qui++ = tabella[*da];
    }
    return qui;
}

}  // namespace bravona::huffman
