#pragma once

#include <string>

#include "documents/Documento.h"
#include "documents/SceltaRegistro.h"
#include "documents/TipoDocumento.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// Makes an invoice or a transport document of a quotation. `TipoDocumento` is set before the screen is shown: "DDT", or
// anything else for an invoice.
class frmDocumentoDaProforma final : public Form, public DocumentoDaProforma {
public:
    explicit frmDocumentoDaProforma(Sessione& sessione);

    std::string TipoDocumento = "FATTURA";
    void setTipoDocumento(const std::string& tipoDocumento) override { TipoDocumento = tipoDocumento; }

    SceltaRegistro registro;
    Label lblDescrizione{"Selezionare la fattura Proforma da trasformare in"};
    ListView lvwFatture;
    Button cmdShow;
    Button cmdClose{"&Chiudi"};

    void onLoad() override;

private:
    void CaricaProforma();
    void CreaFatturaDaProforma();
    void CreaDDTDaProforma();
    [[nodiscard]] Documento proformaScelta() const;

    Sessione& sessione_;
};

}  // namespace bravona
