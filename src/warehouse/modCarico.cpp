#include "warehouse/modCarico.h"

#include "platform/values/Errore.h"
#include "platform/values/Numeri.h"

namespace bravona {

namespace {

double pezzi(const RigaDocumento& riga)
{
    return aCentesimi(riga.Quantita).toDouble();
}

Currency costoMedio(const Giacenza& stock)
{
    if (stock.carico == 0)
        throw Errore(errori::divisionePerZero, "Divisione per zero");
    return Currency::fromDouble(stock.caricoValore.toDouble() / stock.carico);
}

}  // namespace

void carica(Giacenza& stock, const RigaDocumento& riga, Date dataOperazione)
{
    stock.ultimoCarico = dataOperazione;
    stock.costoUltimo = aCentesimi(riga.PrezzoUnitario);
    stock.carico += pezzi(riga);
    stock.giacenza += pezzi(riga);
    stock.caricoValore += aCentesimi(riga.TotaleRiga);
    stock.costoMedio = costoMedio(stock);
}

void correggi(Giacenza& stock, const RigaDocumento& nuova, const RigaDocumento& vecchia, Date dataOperazione)
{
    stock.ultimoCarico = dataOperazione;
    const Currency prezzo = aCentesimi(nuova.PrezzoUnitario);
    if (prezzo != aCentesimi(vecchia.PrezzoUnitario))
        stock.costoUltimo = prezzo;
    if (pezzi(nuova) != pezzi(vecchia)) {
        stock.carico += pezzi(nuova) - pezzi(vecchia);
        stock.giacenza += pezzi(nuova) - pezzi(vecchia);
    }
    const Currency totale = aCentesimi(nuova.TotaleRiga);
    if (totale != aCentesimi(vecchia.TotaleRiga)) {
        stock.caricoValore = aCentesimi(stock.caricoValore) + (totale - aCentesimi(vecchia.TotaleRiga));
        stock.costoMedio = costoMedio(stock);
    }
}

}  // namespace bravona
