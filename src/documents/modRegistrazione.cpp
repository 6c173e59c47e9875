#include "documents/modRegistrazione.h"

#include "documents/RigheDettaglio.h"
#include "documents/TipoDocumento.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"

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

void ScriviGruppiIva(Recordset& testata, const clsCalcoli& calcoli)
{
    for (int gruppo = 1; gruppo <= clsCalcoli::numeroGruppi; ++gruppo) {
        const std::string n = std::to_string(gruppo);
        testata["CodiceIva" + n] = calcoli.GetCodiceAliquotaIVA(gruppo);
        testata["Descrizioneiva" + n] = calcoli.GetDescrizioneAliquotaIva(gruppo);
        testata["AliquotaIva" + n] = static_cast<int>(calcoli.GetAliquotaIVA(gruppo));
        testata["ImponibileIva" + n] = calcoli.GetImponibile(gruppo);
        testata["ImportoIva" + n] = calcoli.GetImportoIVA(gruppo);
    }
}

void ScriviRighe(Connection& cn, const TabelleDocumento& tabelle, std::int32_t idDocumento, const ListView& elenco)
{
    constexpr std::size_t lunghezzaUnita = 2;
    Recordset dettagli = cn.openTable(tabelle.dettagli);
    for (std::size_t i = 0; i < elenco.rowCount(); ++i) {
        const ListRow& riga = elenco.row(i);
        dettagli.addNew();
        dettagli[tabelle.chiave] = idDocumento;
        if (righe::commento(riga)) {
            dettagli["CodiceArticolo"] = trim(riga.text);
            dettagli["Descrizione"] = righe::testo(riga, righe::descrizione);
            dettagli["AliquotaIva"] = 0;
            dettagli["IDArticolo"] = righe::tagComment;
            dettagli["Quantita"] = 0;
            dettagli["PrezzoUnitario"] = 0;
            dettagli["UnitaMisura"] = " ";
            dettagli["CodiceIva"] = " ";
            for (const char* sconto : {"Sconto1", "Sconto2", "Sconto3"})
                dettagli[sconto] = 0;
            dettagli["TotaleRiga"] = 0;
        } else {
            dettagli["IDArticolo"] = riga.tag;
            dettagli["CodiceArticolo"] = riga.text;
            dettagli["Descrizione"] = righe::testo(riga, righe::descrizione);
            dettagli["UnitaMisura"] = left(righe::sub(riga, righe::descrizione).tag, lunghezzaUnita);
            dettagli["Listino"] = righe::testo(riga, righe::listino);
            dettagli["Quantita"] = righe::testo(riga, righe::quantita);
            dettagli["PrezzoUnitario"] = FormattaImporto(righe::testo(riga, righe::prezzo));
            dettagli["Sconto1"] = righe::testo(riga, righe::sconto1);
            dettagli["Sconto2"] = righe::testo(riga, righe::sconto2);
            dettagli["Sconto3"] = righe::testo(riga, righe::sconto3);
            dettagli["TotaleRiga"] = FormattaImporto(righe::testo(riga, righe::totale));
            dettagli["CodiceIva"] = righe::testo(riga, righe::iva);
            dettagli["IDCodiceIva"] = righe::sub(riga, righe::iva).tag;
        }
        dettagli.update();
    }
}

void ScriviScadenze(Connection& cn, std::int32_t idDocumento, std::int32_t registro, const GrigliaScadenze& griglia)
{
    // The column of the running balance is derived and not stored.
    Recordset scadenzario = cn.openTable("Scadenzario");
    for (int riga = 1; riga < griglia.Rows(); ++riga) {
        scadenzario.addNew();
        scadenzario["IDDocumento"] = idDocumento;
        scadenzario["IDRegistro"] = registro;
        scadenzario["Saldato"] = griglia.TextMatrix(riga, 0).toBool() ? "-1" : "0";
        scadenzario["Scadenza"] = griglia.TextMatrix(riga, 1);
        scadenzario["avere"] = griglia.TextMatrix(riga, 2);
        scadenzario["dare"] = griglia.TextMatrix(riga, 3);
        scadenzario["Data_Pagamento"] = griglia.TextMatrix(riga, 5);
        scadenzario.update();
    }
}

std::vector<RigaScarico> righeDaScaricare(const ListView& elenco)
{
    std::vector<RigaScarico> scarico;
    for (std::size_t i = 0; i < elenco.rowCount(); ++i) {
        const ListRow& riga = elenco.row(i);
        if (righe::commento(riga))
            continue;
        scarico.push_back({riga.text, righe::testo(riga, righe::quantita), righe::testo(riga, righe::prezzo),
                           righe::testo(riga, righe::totale)});
    }
    return scarico;
}

void ScaricaArticoli(Connection& cn, const std::vector<RigaScarico>& elenco, Date data)
{
    Transaction transazione(cn);
    for (const RigaScarico& riga : elenco) {
        Recordset articolo =
            cn.open("SELECT IDArticolo,CodiceMagazzino,DataUltimoScarico,CostoUltimo,CostoMedio,Carico,Scarico,"
                    "Giacenza,ScaricoValore FROM Articoli WHERE CodiceMagazzino = \"" +
                        riga.codice + "\"",
                    OpenMode::updatable);
        // The quantity rounds to two decimals through the amount text, except in what was unloaded altogether.
        const double quantita = toDouble(FormattaImporto(riga.quantita));
        articolo["CostoUltimo"] = FormattaImporto(riga.prezzo);
        articolo["Carico"] = articolo["Carico"].doubleOr(0) - quantita;
        articolo["Giacenza"] = articolo["Giacenza"].doubleOr(0) - quantita;
        articolo["Scarico"] = articolo["Scarico"].doubleOr(0) + toDouble(riga.quantita);
        articolo["ScaricoValore"] = articolo["ScaricoValore"].currencyOr({}) + toCurrency(FormattaImporto(riga.totale));
        articolo["DataUltimoScarico"] = data;
        articolo.update();
    }
    transazione.commit();
}

}  // namespace bravona
