#pragma once

#include <algorithm>
#include <chrono>
#include <functional>

namespace bravona {

inline double secondi(const std::function<void()>& lavoro)
{
    const auto inizio = std::chrono::steady_clock::now();
    lavoro();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count();
}

// The best time of several runs, in seconds.
inline double migliore(int giri, const std::function<void()>& lavoro)
{
    double tempo = 1e9;
    for (int i = 0; i < giri; ++i) {
        tempo = std::min(tempo, secondi(lavoro));
    }
    return tempo;
}

}  // namespace bravona
