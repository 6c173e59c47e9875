#include "documents/modScarico.h"

#include "documents/ArchivioDocumenti.h"
#include "documents/Giacenza.h"
#include "platform/text/Text.h"
#include "platform/values/Errore.h"

namespace bravona {

namespace {

std::string condizione(const ScaricoDovuto& scarico)
{
    return " WHERE TipoDocumento=" + std::to_string(scarico.tipoDocumento) +
           " AND IDDocumento=" + std::to_string(scarico.idDocumento);
}

void scaricaRiga(Connection& cn, const RigaDocumento& riga, Date data)
{
    Recordset articolo =
        cn.open("SELECT IDArticolo,CodiceMagazzino,DataUltimoScarico,CostoUltimo,CostoMedio,Carico,Scarico,"
                "Giacenza,ScaricoValore FROM Articoli WHERE CodiceMagazzino = " +
                    traVirgolette(riga.CodiceArticolo),
                OpenMode::updatable);
    Giacenza stock;
    stock.carico = articolo["Carico"].doubleOr(0);
    stock.scarico = articolo["Scarico"].doubleOr(0);
    stock.giacenza = articolo["Giacenza"].doubleOr(0);
    stock.scaricoValore = articolo["ScaricoValore"].currencyOr({});
    scarica(stock, riga, data);
    articolo["CostoUltimo"] = stock.costoUltimo;
    articolo["Carico"] = stock.carico;
    articolo["Giacenza"] = stock.giacenza;
    articolo["Scarico"] = stock.scarico;
    articolo["ScaricoValore"] = stock.scaricoValore;
    articolo["DataUltimoScarico"] = data;
    articolo.update();
}

void cancellaNota(Connection& cn, const ScaricoDovuto& scarico)
{
    cn.execute("DELETE * FROM ScarichiDovuti" + condizione(scarico));
}

}  // namespace

std::string traVirgolette(const std::string& codice)
{
    std::string testo = "\"";
    for (const char c : codice)
        testo += c == '"' ? std::string("\"\"") : std::string(1, c);
    return testo + "\"";
}

void annotaScarico(Connection& cn, const ScaricoDovuto& scarico)
{
    Recordset note = cn.openTable("ScarichiDovuti");
    note.addNew();
    note["TipoDocumento"] = static_cast<int>(scarico.tipoDocumento);
    note["IDDocumento"] = scarico.idDocumento;
    note.update();
}

void ScaricaArticoli(Connection& cn, const ScaricoDovuto& scarico, std::span<const RigaDocumento> righe, Date data)
{
    Transaction transazione(cn);
    for (const RigaDocumento& riga : righe) {
        if (riga.commento())
            continue;
        try {
            scaricaRiga(cn, riga, data);
        } catch (const Errore& errore) {
            throw Errore(errore.numero(), "articolo \"" + riga.CodiceArticolo + "\": " + errore.descrizione());
        }
    }
    cancellaNota(cn, scarico);
    transazione.commit();
}

EsitoScarichi riprendiScarichi(Connection& cn)
{
    std::vector<ScaricoDovuto> dovuti;
    for (Recordset note = cn.open("SELECT * FROM ScarichiDovuti ORDER BY IDScarico"); !note.eof(); note.moveNext())
        dovuti.push_back({note["TipoDocumento"].value().toInt(), note["IDDocumento"].asLong()});
    EsitoScarichi esito;
    for (const ScaricoDovuto& scarico : dovuti) {
        const TabelleDocumento tabelle = tabelleDocumento(scarico.tipoDocumento);
        const std::optional<TestataDocumento> testata = leggiTestata(cn, tabelle, scarico.idDocumento);
        if (!testata) {  // cancelled since
            cancellaNota(cn, scarico);
            continue;
        }
        const std::string nome = tabelle.titolo + " N. " + std::to_string(testata->NumeroDocumento.value_or(0));
        try {
            ScaricaArticoli(cn, scarico, leggiRighe(cn, tabelle, scarico.idDocumento), testata->DataDocumento);
            esito.fatti.push_back(nome);
        } catch (const Errore& errore) {
            esito.mancati.push_back(nome + " (" + errore.descrizione() + ")");
        }
    }
    return esito;
}

}  // namespace bravona
