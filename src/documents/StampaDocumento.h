#pragma once

#include <cstdint>

#include "session/Sessione.h"

namespace bravona {

enum class ChiamanteStampa { emissione, modifica, archivio, ristampa };

// A document to print, by its number in the session's year.
struct DocumentoDaStampare {
    std::int16_t tipoDocumento = 0;
    std::int32_t numero = 0;
    std::int32_t registro = 1;
    bool daDDT = false;  // an invoice made from transport documents
};

// Shows its preview in the design of its kind, origin and caller. Errore of the store passes through.
void stampaDocumento(Sessione& sessione, const DocumentoDaStampare& documento, ChiamanteStampa chiamante);

}  // namespace bravona
