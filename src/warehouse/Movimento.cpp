#include "warehouse/Movimento.h"

#include <functional>

#include "documents/modScarico.h"
#include "platform/values/Errore.h"
#include "platform/values/Numeri.h"
#include "warehouse/modCarico.h"

namespace bravona {

namespace {

void scriviTestata(Recordset& record, const Movimento& movimento)
{
    record["NumeroDocumento"] = movimento.NumeroDocumento;
    record["AnnoDocumento"] = movimento.AnnoDocumento;
    record["DataDocumento"] = movimento.DataDocumento;
    record["DataOperazione"] = movimento.DataOperazione;
    record["IDFornitore"] = movimento.IDFornitore;
    record["NumeroDettagli"] = static_cast<std::int64_t>(movimento.righe.size());
    record.update();
}

void scriviRiga(Recordset& record, std::int32_t idMovimenti, const RigaDocumento& riga)
{
    record.addNew();
    record["IDMovimenti"] = idMovimenti;
    record["IDArticolo"] = riga.IDArticolo;
    record["CodiceArticolo"] = riga.CodiceArticolo;
    record["Descrizione"] = riga.Descrizione;
    record["Quantita"] = aCentesimi(riga.Quantita).toDouble();
    record["PrezzoUnitario"] = aCentesimi(riga.PrezzoUnitario);
    record["Sconto1"] = riga.Sconti[0];
    record["Sconto2"] = riga.Sconti[1];
    record["Sconto3"] = riga.Sconti[2];
    record["TotaleRiga"] = aCentesimi(riga.TotaleRiga);
    record["Aggiornato"] = riga.Aggiornato == aggiornato::no ? aggiornato::si : riga.Aggiornato;
    record.update();
}

void muoviArticolo(Connection& cn, const std::string& codice, const std::function<void(Giacenza&)>& regola)
{
    Recordset articolo = cn.open(
        "SELECT IDArticolo,CodiceMagazzino,DataUltimoCarico,CostoUltimo,CostoMedio,Carico,Giacenza,CaricoValore "
        "FROM Articoli WHERE CodiceMagazzino = " +
            traVirgolette(codice),
        OpenMode::updatable);
    Giacenza stock;
    stock.costoUltimo = articolo["CostoUltimo"].currencyOr({});
    stock.costoMedio = articolo["CostoMedio"].currencyOr({});
    stock.carico = articolo["Carico"].doubleOr(0);
    stock.giacenza = articolo["Giacenza"].doubleOr(0);
    stock.caricoValore = articolo["CaricoValore"].currencyOr({});
    regola(stock);
    articolo["DataUltimoCarico"] = *stock.ultimoCarico;
    articolo["CostoUltimo"] = stock.costoUltimo;
    articolo["Carico"] = stock.carico;
    articolo["Giacenza"] = stock.giacenza;
    articolo["CaricoValore"] = stock.caricoValore;
    articolo["CostoMedio"] = stock.costoMedio;
    articolo.update();
}

// Each row that is kept is written, then moves its article, before the next one is.
void scriviRighe(Connection& cn, std::int32_t id, const Movimento& movimento,
                 const std::function<void(Giacenza&, std::size_t)>& regola)
{
    Recordset dettagli = cn.openTable("MovimentiMagazzino_Dettagli");
    for (std::size_t i = 0; i < movimento.righe.size(); ++i) {
        const RigaDocumento& riga = movimento.righe[i];
        if (riga.commento())
            continue;
        scriviRiga(dettagli, id, riga);
        muoviArticolo(cn, riga.CodiceArticolo, [&](Giacenza& stock) { regola(stock, i); });
    }
}

}  // namespace

std::int32_t scriviMovimento(Connection& cn, const Movimento& movimento)
{
    Recordset testata = cn.openTable("MovimentiMagazzino");
    testata.addNew();
    scriviTestata(testata, movimento);
    const std::int32_t id = testata["IDMovimenti"].asLong();
    scriviRighe(cn, id, movimento,
                [&](Giacenza& stock, std::size_t i) { carica(stock, movimento.righe[i], movimento.DataOperazione); });
    return id;
}

void riscriviMovimento(Connection& cn, const Movimento& movimento, std::span<const RigaDocumento> vecchie)
{
    const std::string id = std::to_string(movimento.IDMovimenti);
    Recordset testata = cn.open("SELECT * FROM MovimentiMagazzino WHERE IDMovimenti=" + id, OpenMode::updatable);
    scriviTestata(testata, movimento);
    cn.execute("DELETE * FROM MovimentiMagazzino_Dettagli WHERE IDMovimenti = " + id);
    scriviRighe(cn, movimento.IDMovimenti, movimento, [&](Giacenza& stock, std::size_t i) {
        const RigaDocumento& riga = movimento.righe[i];
        if (riga.Aggiornato != aggiornato::si)
            return carica(stock, riga, movimento.DataOperazione);
        if (i >= vecchie.size())
            throw Errore(errori::indiceFuoriIntervallo, "Indice non compreso nell'intervallo");
        correggi(stock, riga, vecchie[i], movimento.DataOperazione);
    });
}

Movimento leggiMovimento(Connection& cn, std::int32_t idMovimenti)
{
    const std::string id = std::to_string(idMovimenti);
    Recordset testata = cn.open("SELECT * FROM MovimentiMagazzino WHERE IDMovimenti=" + id);
    Movimento movimento;
    movimento.IDMovimenti = testata["IDMovimenti"].asLong();
    movimento.NumeroDocumento = testata["NumeroDocumento"].longOr(0);
    movimento.AnnoDocumento = testata["AnnoDocumento"].longOr(0);
    movimento.DataDocumento = testata["DataDocumento"].asDate();
    movimento.DataOperazione =
        testata["DataOperazione"].isNull() ? movimento.DataDocumento : testata["DataOperazione"].asDate();
    movimento.IDFornitore = testata["IDFornitore"].longOr(0);
    Recordset dettagli =
        cn.open("SELECT * FROM MovimentiMagazzino_Dettagli WHERE IDMovimenti=" + id + " ORDER BY IDRiga");
    for (; !dettagli.eof(); dettagli.moveNext()) {
        RigaDocumento& riga = movimento.righe.emplace_back();
        riga.IDRiga = dettagli["IDRiga"].asLong();
        riga.IDArticolo = dettagli["IDArticolo"].longOr(righe::libera);
        riga.CodiceArticolo = dettagli["CodiceArticolo"].text();
        riga.Descrizione = dettagli["Descrizione"].text();
        riga.Quantita = dettagli["Quantita"].doubleOr(0);
        riga.PrezzoUnitario = dettagli["PrezzoUnitario"].currencyOr({});
        riga.Sconti = {dettagli["Sconto1"].doubleOr(0), dettagli["Sconto2"].doubleOr(0),
                       dettagli["Sconto3"].doubleOr(0)};
        riga.TotaleRiga = dettagli["TotaleRiga"].currencyOr({});
        riga.Aggiornato = dettagli["Aggiornato"].text();
    }
    return movimento;
}

}  // namespace bravona
