#include "maintenance/AlberoCodifica.h"

#include <cstddef>

namespace bravona::huffman {

namespace {

constexpr std::int16_t nessuno = -1;

struct Nodo {
    std::int16_t ParentNode = nessuno;
    std::int16_t RightNode = nessuno;
    std::int16_t LeftNode = nessuno;
    std::int16_t Value = nessuno;
    std::int32_t Weight = 0;
};

struct Albero {
    std::array<Nodo, 2 * numeroValori> nodi{};
    std::size_t NodesCount = 0;

    Nodo& nodo(std::int16_t indice) { return nodi[static_cast<std::size_t>(indice)]; }
};

struct Coppia {
    std::int16_t primo = nessuno;
    std::int16_t secondo = nessuno;
};

// The two lightest nodes without parent. Which of two candidates is held as first and which as second decides the bits,
// ties included: every archive ever packed was packed by exactly this order of comparisons.
Coppia dueLeggeri(Albero& albero)
{
    Coppia coppia;
    std::int32_t peso1 = 0;
    std::int32_t peso2 = 0;
    for (std::size_t i = 0; i < albero.NodesCount; ++i) {
        const Nodo& nodo = albero.nodi[i];
        if (nodo.ParentNode != nessuno) {
            continue;
        }
        const auto indice = static_cast<std::int16_t>(i);
        const bool prende1 = coppia.primo == nessuno || (coppia.secondo != nessuno && nodo.Weight < peso1 &&
                                                         (nodo.Weight >= peso2 || peso1 >= peso2));
        if (prende1) {
            coppia.primo = indice;
            peso1 = nodo.Weight;
        } else if (coppia.secondo == nessuno || nodo.Weight < peso2) {
            coppia.secondo = indice;
            peso2 = nodo.Weight;
        }
    }
    return coppia;
}

void CreateTree(Albero& albero, const Frequenze& frequenze)
{
    for (std::size_t valore = 0; valore < numeroValori; ++valore) {
        if (frequenze[valore] > 0) {
            Nodo& foglia = albero.nodi[albero.NodesCount++];
            foglia.Weight = static_cast<std::int32_t>(frequenze[valore]);
            foglia.Value = static_cast<std::int16_t>(valore);
        }
    }
    for (std::size_t unioni = albero.NodesCount; unioni > 1; --unioni) {
        const Coppia coppia = dueLeggeri(albero);
        const auto indice = static_cast<std::int16_t>(albero.NodesCount++);
        Nodo& nodo = albero.nodo(indice);
        nodo.Weight = albero.nodo(coppia.primo).Weight + albero.nodo(coppia.secondo).Weight;
        nodo.LeftNode = coppia.primo;
        nodo.RightNode = coppia.secondo;
        albero.nodo(coppia.primo).ParentNode = indice;
        albero.nodo(coppia.secondo).ParentNode = indice;
    }
}

void CreateBitSequences(Albero& albero, std::int16_t indice, const Codice& codice, Codici& codici)
{
    const Nodo& nodo = albero.nodo(indice);
    if (nodo.Value != nessuno) {
        codici[static_cast<std::size_t>(nodo.Value)] = codice;
        return;
    }
    const auto lunghezza = static_cast<std::uint8_t>(codice.lunghezza + 1);
    CreateBitSequences(albero, nodo.LeftNode, {codice.bit, lunghezza}, codici);
    CreateBitSequences(albero, nodo.RightNode, {codice.bit | std::uint64_t{1} << codice.lunghezza, lunghezza}, codici);
}

}  // namespace

Codici creaCodici(const Frequenze& frequenze)
{
    Albero albero;
    CreateTree(albero, frequenze);
    Codici codici{};
    if (albero.NodesCount > 0) {
        CreateBitSequences(albero, static_cast<std::int16_t>(albero.NodesCount - 1), {}, codici);
    }
    return codici;
}

}  // namespace bravona::huffman
