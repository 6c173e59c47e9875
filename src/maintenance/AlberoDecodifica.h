#pragma once

#include "maintenance/FormatoHuffman.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace bravona::huffman {

// The tree of a coded form, read from its code table and its codes. Every inner node has both children.
class AlberoDecodifica {
public:
    // Reads the table and the codes that follow the head. Throws Errore 0x80040000 when they are cut off or make no
    // tree: values out of order, codes of no bits, one code within another, paths that lead nowhere.
    AlberoDecodifica(std::span<const std::uint8_t> dati, std::size_t valori);

    static constexpr std::int16_t radice = 0;

    // The value at this node, or -1 when it is an inner node.
    [[nodiscard]] std::int16_t valore(std::int16_t nodo) const { return qui(nodo).Value; }
    [[nodiscard]] std::int16_t figlio(std::int16_t nodo, int bit) const
    {
        return bit != 0 ? qui(nodo).RightNode : qui(nodo).LeftNode;
    }

    // Where the data area begins.
    [[nodiscard]] std::size_t inizioDati() const { return inizioDati_; }
    // Bits of the shortest and the longest code.
    [[nodiscard]] std::size_t codiceMinimo() const { return codiceMinimo_; }
    [[nodiscard]] std::size_t codiceMassimo() const { return codiceMassimo_; }

private:
    static constexpr std::int16_t nessuno = -1;

    struct Nodo {
        std::int16_t RightNode = nessuno;
        std::int16_t LeftNode = nessuno;
        std::int16_t Value = nessuno;
    };

    [[nodiscard]] const Nodo& qui(std::int16_t nodo) const { return nodi_[static_cast<std::size_t>(nodo)]; }
    std::int16_t scendi(std::int16_t nodo, int bit);

    // A tree of 256 leaves without dead ends has 511 nodes.
    std::array<Nodo, 2 * numeroValori - 1> nodi_{};
    std::size_t NodesCount_ = 1;
    std::size_t inizioDati_ = 0;
    std::size_t codiceMinimo_ = lunghezzaCodiceMassima;
    std::size_t codiceMassimo_ = 0;
};

}  // namespace bravona::huffman
