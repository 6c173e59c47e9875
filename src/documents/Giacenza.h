#pragma once

#include <optional>

#include "documents/Documento.h"

namespace bravona {

// What an article's stock is made of, as the archive keeps it.
struct Giacenza {
    double carico = 0;     // received, less what sales took off
    double scarico = 0;    // sold
    double giacenza = 0;   // on hand
    Currency costoUltimo;  // of one piece
    Currency costoMedio;
    Currency caricoValore, scaricoValore;  // received and sold altogether
    std::optional<Date> ultimoCarico, ultimoScarico;
};

// Takes a row of a document from the stock: a sale lowers what was received as well as what is on hand, and overwrites
// the last cost. The quantity rounds to two decimals, except in what was sold altogether.
void scarica(Giacenza& stock, const RigaDocumento& riga, Date data);

}  // namespace bravona
