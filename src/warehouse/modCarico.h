#pragma once

#include "documents/Giacenza.h"

// How goods received move the stock of their article. Quantities and amounts count to the cent, as they are shown.
namespace bravona {

// A row that the stock has not got yet. Errore 11 when nothing was received altogether.
void carica(Giacenza& stock, const RigaDocumento& riga, Date dataOperazione);

// A row that it has: the difference from the old one, not a reversal. The last cost becomes the new price where it
// changed; the average follows only a changed total. Errore 11 as above.
void correggi(Giacenza& stock, const RigaDocumento& nuova, const RigaDocumento& vecchia, Date dataOperazione);

}  // namespace bravona
