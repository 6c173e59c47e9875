#pragma once

#include <cstdint>
#include <span>

namespace bravona {

// Chance that is the same on every machine for the same seed.
class Caso {
public:
    explicit Caso(std::uint64_t seme) : stato_(seme * 2 + 1) {}

    // 0 to n-1.
    std::size_t sotto(std::size_t n) { return static_cast<std::size_t>(prossimo() % n); }
    int fra(int minimo, int massimo)
    {
        return minimo + static_cast<int>(sotto(static_cast<std::size_t>(massimo - minimo) + 1));
    }
    bool unoSu(std::size_t n) { return sotto(n) == 0; }
    template <class T>
    const T& scelta(std::span<const T> voci)
    {
        return voci[sotto(voci.size())];
    }

private:
    std::uint64_t prossimo()
    {
        stato_ = stato_ * 6364136223846793005ULL + 1442695040888963407ULL;
        std::uint64_t x = stato_;
        x ^= x >> 33;
        x *= 0xff51afd7ed558ccdULL;
        return x ^ (x >> 33);
    }
    std::uint64_t stato_;
};

}  // namespace bravona
