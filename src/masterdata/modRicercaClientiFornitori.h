#pragma once

#include <cstdint>
#include <string>

#include "masterdata/modRicerca.h"
#include "session/Sessione.h"

namespace bravona {

// In the order of the choices on the screen.
enum class CampoAnagrafica { nome, telefono, partitaIva, codiceFiscale, indirizzo };
enum class TabellaAnagrafica { clienti, fornitori };

// By name from its start, of the kind in `TipoAnagraficaCorrente`, or, of either kind and anywhere, by another field.
// One match is the answer at once, several are shown to choose from. The key, or ricerca::nessunRecord,
// ricerca::annullata. When only the other kind has such a name, the status bar says so.
std::int32_t RicercaClientiFornitori(Sessione& sessione, TabellaAnagrafica tabella, const std::string& testo,
                                     CampoAnagrafica campo);

}  // namespace bravona
