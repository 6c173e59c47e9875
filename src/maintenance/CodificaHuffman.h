#pragma once

#include "maintenance/AlberoCodifica.h"
#include "maintenance/AvanzamentoHuffman.h"
#include "platform/files/Bytes.h"

#include <cstdint>
#include <span>

namespace bravona::huffman {

// How often each value occurs; raises 0 to 7 percent.
Frequenze contaValori(std::span<const std::uint8_t> dati, AvanzamentoHuffman& avanzamento);

// Appends the code bits of the data, closed by zero bits; raises 12 to 100 percent. Does not make `risultato` grow
// beyond what was reserved, if that was enough.
void scriviDati(std::span<const std::uint8_t> dati, const Codici& codici, Bytes& risultato,
                AvanzamentoHuffman& avanzamento);

}  // namespace bravona::huffman
