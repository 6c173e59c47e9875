#include "documents/TipoDocumento.h"

namespace bravona {

TabelleDocumento tabelleDocumento(std::int16_t tipoDocumento)
{
    switch (tipoDocumento) {
    case tipo::ddt:
        return {"Bolle", "Bolle_Dettagli", "IDBolla", "Documento di Trasporto"};
    case tipo::proforma:
        return {"Proforma", "Proforma_Dettagli", "IDFattura", "Preventivo di Spesa"};
    case tipo::notaCredito:
        return {"Fatture", "Fatture_Dettagli", "IDFattura", "Nota di credito"};
    case tipo::notaDebito:
        return {"Fatture", "Fatture_Dettagli", "IDFattura", "Nota di debito"};
    default:
        return {"Fatture", "Fatture_Dettagli", "IDFattura", "Fattura"};
    }
}

}  // namespace bravona
