#pragma once

#include <cstdint>

#include "platform/store/Connection.h"

namespace bravona {

// Fills a delivered archive with a firm that issued `documenti` documents over three years, the same for the same seed:
// parties, articles with prices, payment methods, documents of all kinds with rows and instalments, goods received. One
// transaction.
void popolaArchivio(Connection& cn, int documenti, std::uint64_t seme);

// The years that it fills, the last of them the current one.
inline constexpr int primoAnnoPopolato = 2024;
inline constexpr int ultimoAnnoPopolato = 2026;

}  // namespace bravona
