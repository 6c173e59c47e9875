#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

// Bit areas: the first bit of a byte is its lowest.
namespace bravona::huffman {

inline std::uint64_t leggi64(const std::uint8_t* da)
{
    std::uint64_t valore;
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(&valore, da, sizeof valore);
    } else {
        valore = 0;
        for (std::size_t i = sizeof valore; i-- > 0;) {
            valore = valore << 8 | da[i];
        }
    }
    return valore;
}

inline void scrivi64(std::uint8_t* a, std::uint64_t valore)
{
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(a, &valore, sizeof valore);
    } else {
        for (std::size_t i = 0; i < sizeof valore; ++i) {
            a[i] = static_cast<std::uint8_t>(valore >> (8 * i));
        }
    }
}

// Bits waiting for their byte to be full: fewer than 8 of them between two calls.
class ScritturaBit {
public:
    // Adds at most 56 bits and stores eight bytes at `a`, of which those before the returned place are final.
    std::uint8_t* aggiungi(std::uint64_t bit, std::uint64_t quanti, std::uint8_t* a)
    {
        attesa_ |= bit << quantiInAttesa_;
        quantiInAttesa_ += quanti;
        scrivi64(a, attesa_);
        a += quantiInAttesa_ >> 3;
        attesa_ >>= quantiInAttesa_ & 56;
        quantiInAttesa_ &= 7;
        return a;
    }

    // Fills a partly filled byte with zero bits.
    std::uint8_t* chiudi(std::uint8_t* a)
    {
        if (quantiInAttesa_ > 0) {
            *a++ = static_cast<std::uint8_t>(attesa_);
        }
        attesa_ = 0;
        quantiInAttesa_ = 0;
        return a;
    }

private:
    std::uint64_t attesa_ = 0;
    std::uint64_t quantiInAttesa_ = 0;
};

// A reader of up to 64 bits ahead.
class LetturaBit {
public:
    LetturaBit(const std::uint8_t* inizio, const std::uint8_t* fine) : inizio_(inizio), qui_(inizio), fine_(fine) {}

    [[nodiscard]] bool rifornibileDiColpo() const { return fine_ - qui_ >= 8; }

    // Afterwards at least 56 bits are at hand. Only while eight bytes are left.
    void rifornisciDiColpo()
    {
        bit_ |= leggi64(qui_) << quanti_;
        qui_ += (63 - quanti_) >> 3;
        quanti_ |= 56;
    }

    // Afterwards at least 56 bits are at hand, or all that are left.
    void rifornisci()
    {
        while (quanti_ <= 56 && qui_ != fine_) {
            bit_ |= std::uint64_t{*qui_++} << quanti_;
            quanti_ += 8;
        }
    }

    [[nodiscard]] std::uint64_t bit() const { return bit_; }
    [[nodiscard]] std::uint64_t quanti() const { return quanti_; }

    void consuma(std::uint64_t quanti)
    {
        bit_ >>= quanti & 63;
        quanti_ -= quanti;
    }

    // One bit, or -1 at the end of the area.
    int uno()
    {
        if (quanti_ == 0) {
            rifornisci();
            if (quanti_ == 0) {
                return -1;
            }
        }
        const int valore = static_cast<int>(bit_ & 1);
        consuma(1);
        return valore;
    }

    // Bytes of which at least one bit was taken.
    [[nodiscard]] std::size_t iniziati() const
    {
        return static_cast<std::size_t>(qui_ - inizio_) - static_cast<std::size_t>(quanti_ / 8);
    }

private:
    const std::uint8_t* inizio_;
    const std::uint8_t* qui_;
    const std::uint8_t* fine_;
    std::uint64_t bit_ = 0;
    std::uint64_t quanti_ = 0;
};

}  // namespace bravona::huffman
