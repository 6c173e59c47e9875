#pragma once

#include <cstdint>
#include <string>

#include "masterdata/modRicerca.h"
#include "session/Sessione.h"

namespace bravona {

// In the order of the choices on the screen.
enum class CampoComune { comune, provincia, cap };

// By name, province or postcode, from their start. One match is the answer at once, several are shown to
// choose from. The key, or ricerca::nessunRecord, ricerca::annullata.
std::int32_t RicercaComuni(Sessione& sessione, CampoComune campo, const std::string& testo);

}  // namespace bravona
