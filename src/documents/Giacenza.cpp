#include "documents/Giacenza.h"

#include "platform/values/Numeri.h"

namespace bravona {

void scarica(Giacenza& stock, const RigaDocumento& riga, Date data)
{
    const double quantita = aCentesimi(riga.Quantita).toDouble();
    stock.costoUltimo = riga.PrezzoUnitario;
    stock.carico -= quantita;
    stock.giacenza -= quantita;
    stock.scarico += riga.Quantita;
    stock.scaricoValore += riga.TotaleRiga;
    stock.ultimoScarico = data;
}

}  // namespace bravona
