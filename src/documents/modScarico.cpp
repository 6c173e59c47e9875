#include "documents/modScarico.h"

#include "documents/Giacenza.h"

namespace bravona {

void ScaricaArticoli(Connection& cn, std::span<const RigaDocumento> righe, Date data)
{
    Transaction transazione(cn);
    for (const RigaDocumento& riga : righe) {
        if (riga.commento())
            continue;
        Recordset articolo =
            cn.open("SELECT IDArticolo,CodiceMagazzino,DataUltimoScarico,CostoUltimo,CostoMedio,Carico,Scarico,"
                    "Giacenza,ScaricoValore FROM Articoli WHERE CodiceMagazzino = \"" +
                        riga.CodiceArticolo + "\"",
                    OpenMode::updatable);
        Giacenza stock{articolo["Carico"].doubleOr(0),           articolo["Scarico"].doubleOr(0),
                       articolo["Giacenza"].doubleOr(0),         {},
                       articolo["ScaricoValore"].currencyOr({}), {}};
        scarica(stock, riga, data);
        articolo["CostoUltimo"] = stock.costoUltimo;
        articolo["Carico"] = stock.carico;
        articolo["Giacenza"] = stock.giacenza;
        articolo["Scarico"] = stock.scarico;
        articolo["ScaricoValore"] = stock.scaricoValore;
        articolo["DataUltimoScarico"] = data;
        articolo.update();
    }
    transazione.commit();
}

}  // namespace bravona
