#pragma once

#include "platform/files/Bytes.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace bravona::riferimento {

/// The format told in the plainest way, one bit and one node at a time: what the codec is compared with.
struct Esito {
    Bytes dati;
    std::vector<std::int16_t> progressi;
};

Esito codifica(const Bytes& originale);
/// Nothing when a step leads out of the data or of the tree, or the checksum differs.
std::optional<Esito> decodifica(const Bytes& codificati);

}  // namespace bravona::riferimento
