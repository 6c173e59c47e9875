#include "maintenance/CodificaHuffman.h"

#include "maintenance/BitHuffman.h"
#include "maintenance/TraduzioneByte.h"

#include <algorithm>
#include <array>
#include <memory>

namespace bravona::huffman {

namespace {

constexpr std::size_t tratto = 8192;
// Room for a stretch of the longest codes, and for the eight bytes of the last store.
constexpr std::size_t blocco = tratto * 8;
// From here on the table of pairs is worth its making.
constexpr std::size_t pareggioCoppie = std::size_t{256} * 1024;

// Equal neighbours would wait for one another on a single counter.
class Contatori {
public:
    void conta(const std::uint8_t* da, const std::uint8_t* a)
    {
        for (; a - da >= 8; da += 8) {
            const std::uint64_t otto = leggi64(da);
            ++conti_[0][otto & 0xFF];
            ++conti_[1][otto >> 8 & 0xFF];
            ++conti_[2][otto >> 16 & 0xFF];
            ++conti_[3][otto >> 24 & 0xFF];
            ++conti_[0][otto >> 32 & 0xFF];
            ++conti_[1][otto >> 40 & 0xFF];
            ++conti_[2][otto >> 48 & 0xFF];
            ++conti_[3][otto >> 56];
        }
        for (; da != a; ++da) {
            ++conti_[0][*da];
        }
    }

    [[nodiscard]] Frequenze somma() const
    {
        Frequenze frequenze{};
        for (std::size_t valore = 0; valore < numeroValori; ++valore) {
            for (const auto& corsia : conti_) {
                frequenze[valore] += corsia[valore];
            }
        }
        return frequenze;
    }

private:
    std::array<Frequenze, 4> conti_{};
};

// Any data: each value by itself.
class PerValore {
public:
    explicit PerValore(const Codici& codici)
    {
        std::ranges::transform(codici, parole_.begin(),
                               [](const Codice& codice) { return codice.bit << 8 | codice.lunghezza; });
    }

    std::uint8_t* codifica(const std::uint8_t* da, const std::uint8_t* a, std::uint8_t* qui)
    {
        for (; da != a; ++da) {
            qui = scrittura_.aggiungi(parole_[*da] >> 8, parole_[*da] & 0xFF, qui);
        }
        return qui;
    }

    std::uint8_t* chiudi(std::uint8_t* qui) { return scrittura_.chiudi(qui); }

private:
    friend class PerCoppie;

    // A code and its length in one word, the length in the lowest byte.
    std::array<std::uint64_t, numeroValori> parole_{};
    ScritturaBit scrittura_;
};

// Much data: two values in one look-up, four in one store.
class PerCoppie {
public:
    explicit PerCoppie(const Codici& codici)
        : singoli_(codici),
          coppie_(std::make_unique<std::uint32_t[]>(numeroValori * numeroValori))
    {
        for (std::size_t secondo = 0; secondo < numeroValori; ++secondo) {
            for (std::size_t primo = 0; primo < numeroValori; ++primo) {
                const std::size_t bit = codici[primo].lunghezza + std::size_t{codici[secondo].lunghezza};
                if (bit <= bitMassimi) {
                    const std::uint64_t codice = codici[primo].bit | codici[secondo].bit << codici[primo].lunghezza;
                    coppie_[secondo * numeroValori + primo] = static_cast<std::uint32_t>(codice << 6 | bit);
                }
            }
        }
    }

    std::uint8_t* codifica(const std::uint8_t* da, const std::uint8_t* a, std::uint8_t* qui)
    {
        const std::uint32_t* const coppie = coppie_.get();
        ScritturaBit scrittura = singoli_.scrittura_;
        for (; a - da >= 8; da += 8) {
            const std::uint64_t otto = leggi64(da);
            const std::uint64_t p0 = coppie[otto & 0xFFFF];
            const std::uint64_t p1 = coppie[otto >> 16 & 0xFFFF];
            const std::uint64_t p2 = coppie[otto >> 32 & 0xFFFF];
            const std::uint64_t p3 = coppie[otto >> 48];
            if (p0 == 0 || p1 == 0 || p2 == 0 || p3 == 0) [[unlikely]] {
                singoli_.scrittura_ = scrittura;
                qui = singoli_.codifica(da, da + 8, qui);
                scrittura = singoli_.scrittura_;
                continue;
            }
            qui = scrittura.aggiungi(p0 >> 6 | p1 >> 6 << (p0 & 63), (p0 & 63) + (p1 & 63), qui);
            qui = scrittura.aggiungi(p2 >> 6 | p3 >> 6 << (p2 & 63), (p2 & 63) + (p3 & 63), qui);
        }
        singoli_.scrittura_ = scrittura;
        return singoli_.codifica(da, a, qui);
    }

    std::uint8_t* chiudi(std::uint8_t* qui) { return singoli_.chiudi(qui); }

private:
    // Of a pair in one word: 26 bits, and how many they are in the lowest six. Longer pairs stay 0.
    static constexpr std::size_t bitMassimi = 26;

    PerValore singoli_;
    std::unique_ptr<std::uint32_t[]> coppie_;
};

// Encrypted data: each value has a code of one byte.
class PerByte {
public:
    explicit PerByte(const Codici& codici)
    {
        std::ranges::transform(codici, tabella_.begin(),
                               [](const Codice& codice) { return static_cast<std::uint8_t>(codice.bit); });
    }

    std::uint8_t* codifica(const std::uint8_t* da, const std::uint8_t* a, std::uint8_t* qui)
    {
        return traduci(tabella_, da, a, qui);
    }

    static std::uint8_t* chiudi(std::uint8_t* qui) { return qui; }

private:
    std::array<std::uint8_t, numeroValori> tabella_{};
};

template <class Codificatore>
void scriviCon(Codificatore& codificatore, std::span<const std::uint8_t> dati, Bytes& risultato,
               AvanzamentoHuffman& avanzamento)
{
    const auto uscita = std::make_unique_for_overwrite<std::uint8_t[]>(blocco);
    for (std::size_t i = 0; i < dati.size();) {
        avanzamento.raggiunto(i);
        const std::size_t fine = std::min(avanzamento.prossimo(), i + tratto);
        std::uint8_t* qui = codificatore.codifica(dati.data() + i, dati.data() + fine, uscita.get());
        if (fine == dati.size()) {
            qui = codificatore.chiudi(qui);
        }
        risultato.insert(risultato.end(), uscita.get(), qui);
        i = fine;
    }
}

}  // namespace

Frequenze contaValori(std::span<const std::uint8_t> dati, AvanzamentoHuffman& avanzamento)
{
    Contatori contatori;
    avanzamento.inizia({.totale = dati.size(), .passo = 1000, .ampiezza = 7});
    for (std::size_t i = 0; i < dati.size();) {
        avanzamento.raggiunto(i);
        const std::size_t fine = avanzamento.prossimo();
        contatori.conta(dati.data() + i, dati.data() + fine);
        i = fine;
    }
    return contatori.somma();
}

void scriviDati(std::span<const std::uint8_t> dati, const Codici& codici, Bytes& risultato,
                AvanzamentoHuffman& avanzamento)
{
    avanzamento.inizia({.totale = dati.size(), .passo = 10000, .ampiezza = 88, .base = 5, .aggiunta = 7});
    if (std::ranges::all_of(codici, [](const Codice& codice) { return codice.lunghezza == 8; })) {
        PerByte codificatore(codici);
        scriviCon(codificatore, dati, risultato, avanzamento);
    } else if (dati.size() >= pareggioCoppie) {
        PerCoppie codificatore(codici);
        scriviCon(codificatore, dati, risultato, avanzamento);
    } else {
        PerValore codificatore(codici);
        scriviCon(codificatore, dati, risultato, avanzamento);
    }
}

}  // namespace bravona::huffman
