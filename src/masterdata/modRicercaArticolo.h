#pragma once

#include <cstdint>
#include <string>

#include "masterdata/modRicerca.h"
#include "session/Sessione.h"

namespace bravona {

// By warehouse code (0) or description (3), which match anywhere; by bar code (1) or supplier's code (2), which match
// whole. One match is the answer at once, several are shown to choose from. The key, or ricerca::nessunRecord,
// ricerca::annullata. The text goes into the statement as it is: a quote in it is an Errore of the store.
std::int32_t RicercaArticolo(Sessione& sessione, int indiceCampo, const std::string& testo);

}  // namespace bravona
