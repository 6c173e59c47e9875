#pragma once

#include <cstdint>
#include <functional>

#include "documents/Documento.h"
#include "documents/SceltaRegistro.h"
#include "documents/derivazioni.h"
#include "platform/windowing/Form.h"
#include "session/Sessione.h"

namespace bravona {

// How a screen issues documents that it derives from stored ones.
struct Emissione {
    std::int16_t tipoDocumento;  // of the new document
    const char* routine;         // the lines of a failure's box
    const char* modulo;
    const char* titolo;  // of the question afterwards: what was issued (the number follows), and whether to open it
    const char* emesso;
    const char* domanda;
    // The document, from what is chosen on the screen.
    std::function<Documento(const NuovoDocumento&)> deriva;
    // What else is written with it; its header has its key then.
    std::function<void(const TestataDocumento&)> collega;
    // It is in the archive: the same is not to be issued again.
    std::function<void()> emessoOra;
};

// Issues the next document of the register, all or nothing, with its plan of instalments where its kind has one, and
// offers to open it in place of the screen. A failure is told.
void emetti(Sessione& sessione, Form& schermata, const SceltaRegistro& registro, const Emissione& emissione);

}  // namespace bravona
