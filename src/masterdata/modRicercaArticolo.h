#pragma once

#include <cstdint>
#include <string>

#include "masterdata/modRicerca.h"
#include "session/Sessione.h"

namespace bravona {

// In the order of the choices on the screen.
enum class CampoArticolo { codice, codiceBarre, codiceFornitore, descrizione };

// By warehouse code or description, which match anywhere; by bar code or supplier's code, which match whole. One match
// is the answer at once, several are shown to choose from. The key, or ricerca::nessunRecord, ricerca::annullata.
std::int32_t RicercaArticolo(Sessione& sessione, CampoArticolo campo, const std::string& testo);

}  // namespace bravona
