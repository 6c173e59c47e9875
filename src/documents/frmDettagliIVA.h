#pragma once

#include "platform/windowing/Fields.h"
#include "session/Sessione.h"

namespace bravona {

// The VAT summary of the document on the screen.
class frmDettagliIVA final : public Form {
public:
    explicit frmDettagliIVA(Sessione& sessione);

    Label lblTitolo{"C.  Val. Descrizione         Imponibile       Imposta"};
    TextBox txtDettagli{56};
    Button cmdDocumento{"&Chiudi"};
};

}  // namespace bravona
