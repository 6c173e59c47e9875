#pragma once

#include <cstdint>
#include <string>

#include "masterdata/modRicerca.h"
#include "session/Sessione.h"

namespace bravona {

// By name from its start, of the kind in `TipoAnagraficaCorrente` (0), or, of either kind and anywhere, by telephone
// (1), VAT number (2), tax code (3), address (4). `tipoAnagrafica` 0 searches Clienti, 1 Fornitori. One match is the
// answer at once, several are shown to choose from. The key, or ricerca::nessunRecord, ricerca::annullata.
std::int32_t RicercaClientiFornitori(Sessione& sessione, int tipoAnagrafica, const std::string& testo, int indiceCampo);

}  // namespace bravona
