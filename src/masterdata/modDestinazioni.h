#pragma once

#include <cstdint>
#include <string>

#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// Whether an invoice goes to this destination. Transport documents are not asked.
bool DestinazioneMerceUtilizzata(Sessione& sessione, std::int32_t id);
// The destination's name: "IDEM" for 0, the empty text for one that is not there.
std::string RilevaDestinazioneMerce(Sessione& sessione, std::int32_t id);

// The columns of every list of destinations.
void ImpostaColonneDestinazioni(ListView& lista);
// A party's destinations in place of what the list holds; the key of a row is "x" and the destination's.
void CaricaElencoDestinazioni(Sessione& sessione, ListView& lista, std::int32_t idCliente);
// Writes one row of such a list for the party; its new key.
std::int32_t RegistraDestinazione(Sessione& sessione, const ListRow& riga, std::int32_t idCliente);
// The same for every row of the list, in their order.
void RegistraElencoDestinazioni(Sessione& sessione, const ListView& lista, std::int32_t idCliente);
// The destination behind such a row's key.
std::int32_t DestinazioneDaChiave(const std::string& chiave);

}  // namespace bravona
