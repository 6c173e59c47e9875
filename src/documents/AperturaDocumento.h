#pragma once

#include <cstdint>

#include "documents/TipoDocumento.h"
#include "session/Sessione.h"

namespace bravona {

// Which stored document a screen that changes documents is to show.
struct DocumentoDaAprire {
    std::int16_t TipoDocumento = tipo::fattura;
    std::int32_t NumeroDocumento = 0, NumeroRegistro = 1, AnnoDocumento = 0;
    bool modificabile = true;  // a transport document: "&Modifica" can be pressed

    [[nodiscard]] bool FatturaProforma() const { return TipoDocumento == tipo::proforma; }
};

// Implemented by frmModificaFattura (CaricaFatturaEsistente) and frmModificaDDT (CaricaDDTEsistente). Loads the
// document and shows nothing by itself: before or after, the caller shows the screen. A screen in which another
// document is being changed asks its own question first, and on No stays as it is.
class ApreDocumento {
public:
    virtual ~ApreDocumento() = default;
    virtual void ApriDocumento(const DocumentoDaAprire& documento) = 0;
};

// The name of the screen that changes documents of the kind.
[[nodiscard]] constexpr const char* schermataDiModifica(std::int16_t tipoDocumento)
{
    return tipoDocumento == tipo::ddt ? "frmModificaDDT" : "frmModificaFattura";
}

// Loads the document into its screen and shows that. Nothing happens where the program has no such screen.
void apri(Sessione& sessione, const DocumentoDaAprire& documento);
// The same, and closes the one that offered it before its own shows.
void apriAlPostoDi(Sessione& sessione, Form& chiamante, const DocumentoDaAprire& documento);

}  // namespace bravona
