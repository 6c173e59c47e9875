#pragma once

#include "maintenance/AlberoDecodifica.h"
#include "maintenance/AvanzamentoHuffman.h"
#include "platform/files/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace bravona::huffman {

struct Originale {
    Bytes dati;
    std::uint8_t somma = 0;  // the exclusive or of all of them
};

// Decodes `lunghezza` bytes from the data area; raises 0 to 89 percent. Throws Errore 0x80040000 when the area ends
// before, and without having reserved room when even the shortest code would not fit that often.
Originale leggiDati(std::span<const std::uint8_t> dati, const AlberoDecodifica& albero, std::size_t lunghezza,
                    AvanzamentoHuffman& avanzamento);

}  // namespace bravona::huffman
