#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

// The coded form of a file: what stands where. See docs/bk-format.md.
namespace bravona::huffman {

inline constexpr std::size_t lunghezzaFirma = 4;
inline constexpr std::size_t posizioneSomma = 4;
inline constexpr std::size_t posizioneLunghezza = 5;
inline constexpr std::size_t posizioneValori = 9;
inline constexpr std::size_t posizioneTabella = 11;

inline constexpr std::size_t numeroValori = 256;
// A code is at most as deep as a tree of 256 leaves.
inline constexpr std::size_t lunghezzaCodiceMassima = numeroValori - 1;
// Bytes of an original: its length is stored as a signed 32-bit number.
inline constexpr std::uint64_t lunghezzaMassima = std::numeric_limits<std::int32_t>::max();
// Bytes of a coded form: head, table and codes at their largest, before data that never exceed the original.
inline constexpr std::uint64_t lunghezzaCodificataMassima =
    lunghezzaMassima + posizioneTabella + 2 * numeroValori + (numeroValori * lunghezzaCodiceMassima + 7) / 8;

enum class Forma { memorizzata, compressa };

struct Testata {
    Forma forma = Forma::compressa;
    std::uint8_t somma = 0;
    // 0: there is nothing to decode, and `valori` was not read.
    std::int32_t lunghezza = 0;
    std::int16_t valori = 0;
};

// Reads the first bytes of a coded form. Throws Errore 0x80040000 when they are too few, of an unknown form, or hold a
// length or a number of values that no encoder writes. Only an unknown third byte is reported as a foreign file: other
// wrong bytes of the signature are passed over.
Testata leggiTestata(std::span<const std::uint8_t> dati);

[[noreturn]] void rifiuta(const char* descrizione);

}  // namespace bravona::huffman
