#pragma once

#include <cstdint>
#include <string>

#include "masterdata/modRicerca.h"
#include "session/Sessione.h"

namespace bravona {

// By name (0), province (1) or postcode (2), from their start. One match is the answer at once, several are shown to
// choose from. The key, or ricerca::nessunRecord, ricerca::annullata.
std::int32_t RicercaComuni(Sessione& sessione, int indiceCampo, const std::string& testo);

}  // namespace bravona
