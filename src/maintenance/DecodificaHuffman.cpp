#include "maintenance/DecodificaHuffman.h"

#include "maintenance/BitHuffman.h"
#include "maintenance/TraduzioneByte.h"

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <numeric>

namespace bravona::huffman {

namespace {

constexpr const char* datiInsufficienti = "Il file di backup e' troncato: i dati sono meno di quelli dichiarati";

constexpr std::size_t blocco = std::size_t{64} * 1024;

// What the next bits hold: up to six whole values at once, or the node at which a longer code goes on.
//   bits 0-7   bits taken by the values
//   bits 8-15  number of values; 0: the code is longer, and the node stands in the place of the values
//   bits 16-63 the values, the first one lowest
class TabellaRapida {
public:
    static constexpr std::uint64_t bitIndice = 12;
    static constexpr std::uint64_t valoriMassimi = 6;

    explicit TabellaRapida(const AlberoDecodifica& albero)
    {
        singoli(albero, AlberoDecodifica::radice, 0, 0);
        std::array<std::uint64_t, dimensione> multipli;
        for (std::uint64_t indice = 0; indice < dimensione; ++indice) {
            multipli[indice] = multiplo(indice);
        }
        voci_ = multipli;
    }

    [[nodiscard]] std::uint64_t voce(std::uint64_t bit) const { return voci_[bit & (dimensione - 1)]; }

    static std::uint64_t bit(std::uint64_t voce) { return voce & 0xFF; }
    static std::uint64_t quanti(std::uint64_t voce) { return voce >> 8 & 0xFF; }
    static std::uint64_t valori(std::uint64_t voce) { return voce >> 16; }

private:
    static constexpr std::uint64_t dimensione = std::uint64_t{1} << bitIndice;

    // Every index whose low bits are the code of a value gets that value alone.
    void singoli(const AlberoDecodifica& albero, std::int16_t nodo, std::uint64_t codice, std::uint64_t lunghezza)
    {
        const std::int16_t valore = albero.valore(nodo);
        if (valore >= 0) {
            const std::uint64_t voce = static_cast<std::uint64_t>(valore) << 16 | 1U << 8 | lunghezza;
            for (std::uint64_t i = codice; i < dimensione; i += std::uint64_t{1} << lunghezza) {
                voci_[i] = voce;
            }
        } else if (lunghezza == bitIndice) {
            voci_[codice] = static_cast<std::uint64_t>(nodo) << 16;
        } else {
            singoli(albero, albero.figlio(nodo, 0), codice, lunghezza + 1);
            singoli(albero, albero.figlio(nodo, 1), codice | std::uint64_t{1} << lunghezza, lunghezza + 1);
        }
    }

    [[nodiscard]] std::uint64_t multiplo(std::uint64_t indice) const
    {
        std::uint64_t risultato = voci_[indice];
        std::uint64_t presi = bit(risultato);
        std::uint64_t numero = quanti(risultato);
        if (numero == 0) {
            return risultato;
        }
        while (numero < valoriMassimi) {
            const std::uint64_t altra = voci_[indice >> presi];
            if (quanti(altra) == 0 || presi + bit(altra) > bitIndice) {
                break;
            }
            risultato |= valori(altra) << (16 + 8 * numero);
            presi += bit(altra);
            ++numero;
        }
        return (risultato & ~std::uint64_t{0xFFFF}) | numero << 8 | presi;
    }

    std::array<std::uint64_t, dimensione> voci_{};
};

class Decodificatore {
public:
    Decodificatore(const AlberoDecodifica& albero, std::span<const std::uint8_t> area)
        : albero_(albero),
          tabella_(albero),
          lettura_(area.data(), area.data() + area.size())
    {}

    // Bytes of the area of which a bit was taken.
    [[nodiscard]] std::size_t iniziati() const { return lettura_.iniziati(); }

    // Writes as much as goes fast into [qui, fine), at least one value; `ultimo` when nothing beyond it is wanted.
    // Returns the end of what is written.
    std::uint8_t* riempi(std::uint8_t* qui, std::uint8_t* fine, bool ultimo)
    {
        qui = rapida(qui, fine);
        if (ultimo || !lettura_.rifornibileDiColpo()) {
            while (qui != fine) {
                *qui++ = uno(AlberoDecodifica::radice);
            }
        }
        return qui;
    }

private:
    static constexpr std::uint64_t vociPerGiro = 56 / TabellaRapida::bitIndice;
    // Values of one turn, and the eight bytes of its last store.
    static constexpr std::ptrdiff_t margine = vociPerGiro * TabellaRapida::valoriMassimi + 8;

    std::uint8_t* rapida(std::uint8_t* qui, const std::uint8_t* fine)
    {
        // A copy stays in registers.
        LetturaBit lettura = lettura_;
        while (fine - qui >= margine && lettura.rifornibileDiColpo()) {
            lettura.rifornisciDiColpo();
            std::uint64_t voce = 0;
            for (std::uint64_t i = 0; i < vociPerGiro; ++i) {
                voce = tabella_.voce(lettura.bit());
                scrivi64(qui, TabellaRapida::valori(voce));
                qui += TabellaRapida::quanti(voce);
                lettura.consuma(TabellaRapida::bit(voce));
            }
            // A long code stops every look-up after it, so the last one tells.
            if (TabellaRapida::quanti(voce) == 0) [[unlikely]] {
                lettura.consuma(TabellaRapida::bitIndice);
                lettura_ = lettura;
                *qui++ = uno(static_cast<std::int16_t>(TabellaRapida::valori(voce)));
                lettura = lettura_;
            }
        }
        lettura_ = lettura;
        return qui;
    }

    // Walks from `nodo` down to a value.
    std::uint8_t uno(std::int16_t nodo)
    {
        while (albero_.valore(nodo) < 0) {
            const int bit = lettura_.uno();
            if (bit < 0) {
                rifiuta(datiInsufficienti);
            }
            nodo = albero_.figlio(nodo, bit);
        }
        return static_cast<std::uint8_t>(albero_.valore(nodo));
    }

    const AlberoDecodifica& albero_;
    TabellaRapida tabella_;
    LetturaBit lettura_;
};

// Encrypted data: each byte of the area is the code of one value.
class Traduttore {
public:
    Traduttore(const AlberoDecodifica& albero, std::span<const std::uint8_t> area)
        : inizio_(area.data()),
          qui_(area.data())
    {
        for (std::size_t codice = 0; codice < numeroValori; ++codice) {
            std::int16_t nodo = AlberoDecodifica::radice;
            for (std::size_t i = 0; i < 8; ++i) {
                nodo = albero.figlio(nodo, static_cast<int>(codice >> i & 1));
            }
            tabella_[codice] = static_cast<std::uint8_t>(albero.valore(nodo));
        }
    }

    [[nodiscard]] std::size_t iniziati() const { return static_cast<std::size_t>(qui_ - inizio_); }

    std::uint8_t* riempi(std::uint8_t* qui, const std::uint8_t* fine, bool /*ultimo*/)
    {
        const std::uint8_t* da = qui_;
        qui_ += fine - qui;
        return traduci(tabella_, da, qui_, qui);
    }

private:
    const std::uint8_t* inizio_;
    const std::uint8_t* qui_;
    std::array<std::uint8_t, numeroValori> tabella_{};
};

std::uint8_t sommaDi(std::span<const std::uint8_t> dati)
{
    std::uint64_t otto = 0;
    std::size_t i = 0;
    for (; i + 8 <= dati.size(); i += 8) {
        otto ^= leggi64(dati.data() + i);
    }
    otto ^= otto >> 32;
    otto ^= otto >> 16;
    otto ^= otto >> 8;
    return std::accumulate(dati.begin() + static_cast<std::ptrdiff_t>(i), dati.end(), static_cast<std::uint8_t>(otto),
                           std::bit_xor<>());
}

// By blocks that stay in the cache: summed there, and the result is touched once.
template <class Sorgente>
Originale leggiCon(Sorgente& sorgente, std::size_t inizio, std::size_t lunghezza, AvanzamentoHuffman& avanzamento)
{
    const auto uscita = std::make_unique_for_overwrite<std::uint8_t[]>(blocco);
    Originale originale{roomFor(lunghezza)};
    while (originale.dati.size() < lunghezza) {
        const std::size_t mancanti = lunghezza - originale.dati.size();
        std::uint8_t* fine = uscita.get() + std::min(blocco, mancanti);
        fine = sorgente.riempi(uscita.get(), fine, mancanti <= blocco);
        originale.somma ^= sommaDi({uscita.get(), fine});
        originale.dati.insert(originale.dati.end(), uscita.get(), fine);
        // The byte in work, the last one of the data among them, does not count.
        if (sorgente.iniziati() > 1) {
            avanzamento.raggiunto(inizio + sorgente.iniziati() - 2);
        }
    }
    return originale;
}

}  // namespace

Originale leggiDati(std::span<const std::uint8_t> dati, const AlberoDecodifica& albero, std::size_t lunghezza,
                    AvanzamentoHuffman& avanzamento)
{
    const std::size_t inizio = albero.inizioDati();
    const auto area = dati.subspan(inizio);
    if (lunghezza > area.size() * 8 / albero.codiceMinimo()) {
        rifiuta(datiInsufficienti);
    }
    avanzamento.inizia({.totale = dati.size(), .passo = 10000, .ampiezza = 89}, inizio);
    if (albero.codiceMinimo() == 8 && albero.codiceMassimo() == 8) {
        Traduttore traduttore(albero, area);
        return leggiCon(traduttore, inizio, lunghezza, avanzamento);
    }
    const auto decodificatore = std::make_unique<Decodificatore>(albero, area);
    return leggiCon(*decodificatore, inizio, lunghezza, avanzamento);
}

}  // namespace bravona::huffman
