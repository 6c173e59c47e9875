#include "maintenance/TraduzioneByte.h"

#include "maintenance/BitHuffman.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace bravona::huffman {

namespace {

#if defined(__x86_64__)

// The whole table in four registers, 64 bytes at a time.
__attribute__((target("avx512f,avx512bw,avx512vbmi"))) void traduciLarghe(const std::array<std::uint8_t, 256>& tabella,
                                                                          const std::uint8_t*& da,
                                                                          const std::uint8_t* a, std::uint8_t*& qui)
{
    const __m512i prima = _mm512_loadu_si512(tabella.data());
    const __m512i seconda = _mm512_loadu_si512(tabella.data() + 64);
    const __m512i terza = _mm512_loadu_si512(tabella.data() + 128);
    const __m512i quarta = _mm512_loadu_si512(tabella.data() + 192);
    for (; a - da >= 64; da += 64, qui += 64) {
        const __m512i valori = _mm512_loadu_si512(da);
        const __m512i bassi = _mm512_permutex2var_epi8(prima, valori, seconda);
        const __m512i alti = _mm512_permutex2var_epi8(terza, valori, quarta);
        _mm512_storeu_si512(qui, _mm512_mask_blend_epi8(_mm512_movepi8_mask(valori), bassi, alti));
    }
}

bool registriLarghi()
{
    static const bool ciSono = __builtin_cpu_supports("avx512vbmi") && __builtin_cpu_supports("avx512bw");
    return ciSono;
}

#endif

}  // namespace

std::uint8_t* traduci(const std::array<std::uint8_t, 256>& tabella, const std::uint8_t* da, const std::uint8_t* a,
                      std::uint8_t* qui)
{
#if defined(__x86_64__)
    if (registriLarghi()) {
        traduciLarghe(tabella, da, a, qui);
    }
#endif
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
