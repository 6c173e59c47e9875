#include "maintenance/AlberoDecodifica.h"

#include "maintenance/BitHuffman.h"

#include <algorithm>

namespace bravona::huffman {

namespace {

constexpr const char* nonAlbero = "Il file di backup e' danneggiato: la tabella dei codici non e' un albero";

}  // namespace

AlberoDecodifica::AlberoDecodifica(std::span<const std::uint8_t> dati, std::size_t valori)
{
    const std::size_t inizioCodici = posizioneTabella + 2 * valori;
    if (dati.size() < inizioCodici) {
        rifiuta("Il file di backup e' troncato: manca una parte della tabella dei codici");
    }
    const auto tabella = dati.subspan(posizioneTabella, 2 * valori);
    std::size_t bitCodici = 0;
    for (std::size_t i = 0; i < tabella.size(); i += 2) {
        const std::size_t lunghezza = tabella[i + 1];
        if (lunghezza == 0 || (i > 0 && tabella[i] <= tabella[i - 2])) {
            rifiuta(nonAlbero);
        }
        bitCodici += lunghezza;
        codiceMinimo_ = std::min(codiceMinimo_, lunghezza);
        codiceMassimo_ = std::max(codiceMassimo_, lunghezza);
    }
    inizioDati_ = inizioCodici + (bitCodici + 7) / 8;
    if (dati.size() < inizioDati_) {
        rifiuta("Il file di backup e' troncato: manca una parte dei codici");
    }

    LetturaBit codici(dati.data() + inizioCodici, dati.data() + inizioDati_);
    for (std::size_t i = 0; i < tabella.size(); i += 2) {
        std::int16_t nodo = radice;
        for (std::size_t bit = tabella[i + 1]; bit > 0; --bit) {
            nodo = scendi(nodo, codici.uno());
        }
        Nodo& foglia = nodi_[static_cast<std::size_t>(nodo)];
        if (foglia.Value != nessuno || foglia.LeftNode != nessuno || foglia.RightNode != nessuno) {
            rifiuta(nonAlbero);
        }
        foglia.Value = tabella[i];
    }
    // Fewer nodes cannot be; more of them mean an inner node with one child.
    if (NodesCount_ != 2 * valori - 1) {
        rifiuta(nonAlbero);
    }
}

std::int16_t AlberoDecodifica::scendi(std::int16_t nodo, int bit)
{
    Nodo& padre = nodi_[static_cast<std::size_t>(nodo)];
    if (padre.Value != nessuno) {
        rifiuta(nonAlbero);
    }
    std::int16_t& figlio = bit != 0 ? padre.RightNode : padre.LeftNode;
    if (figlio == nessuno) {
        if (NodesCount_ == nodi_.size()) {
            rifiuta(nonAlbero);
        }
        figlio = static_cast<std::int16_t>(NodesCount_++);
    }
    return figlio;
}

}  // namespace bravona::huffman
