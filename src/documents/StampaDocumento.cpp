#include "documents/StampaDocumento.h"

#include "documents/TipoDocumento.h"
#include "printing/modStampe.h"

namespace bravona {

void stampaDocumento(Sessione& sessione, const DocumentoDaStampare& documento, ChiamanteStampa chiamante)
{
    const auto registro = static_cast<std::int16_t>(documento.registro);
    switch (documento.tipoDocumento) {
    case tipo::ddt:
        return StampaDDT(sessione, documento.numero, registro);
    case tipo::fattura:
        if (documento.daDDT)
            return StampaFatturaDifferita(sessione, documento.numero, registro, "");
        return StampaFatturaImmediata(sessione, documento.numero, registro);
    case tipo::proforma:
        return StampaFatturaProforma(sessione, documento.numero, registro);
    case tipo::notaDebito:
        // Printed at its issue, a debit note is headed as a credit note.
        if (chiamante != ChiamanteStampa::emissione)
            return StampaFatturaDifferita(sessione, documento.numero, registro, "NOTA DI DEBITO");
        [[fallthrough]];
    default:
        return StampaFatturaDifferita(sessione, documento.numero, registro, "NOTA DI CREDITO");
    }
}

}  // namespace bravona
