#pragma once

#include <filesystem>

namespace bravona {

/// The folder `tests` of the source tree, where test data and journeys stand.
std::filesystem::path cartellaTest();

/// The folder of the programs just built (`crea_archivio`, `bravona_journey`, ...).
std::filesystem::path cartellaProgrammi();

}  // namespace bravona
