#include "masterdata/clsArticolo.h"

#include "platform/text/Text.h"
#include "platform/values/Numeri.h"

namespace bravona {

namespace {

std::string testoData(Field campo)
{
    return campo.isNull() ? std::string(clsArticolo::nessunaData) : campo.asDate().text();
}

Value valoreData(const std::string& testo)
{
    return testo.empty() || testo == clsArticolo::nessunaData ? Value() : Value(toDate(testo));
}

}  // namespace

void clsArticolo::setUnitaMisura(const std::string& unita)
{
    unitaMisura_ = trim(unita).empty() ? std::string("Pz") : unita;
}

Esito clsArticolo::RichiamaArticolo(std::int32_t id)
{
    bool trovato = false;
    Esito esito = protetto("RichiamaArticolo", [&] {
        Recordset record = DataBase->open(
            "SELECT Articoli.*, TabellaCodiciIva.CodiceIva, TabellaCodiciIva.AliquotaIva FROM Articoli INNER JOIN "
            "TabellaCodiciIva ON Articoli.IDCodiceIva = TabellaCodiciIva.IDCodiceIva WHERE Articoli.IDArticolo = " +
            std::to_string(id));
        trovato = !record.eof();
        if (!trovato) {
            return;
        }
        leggi(record);
        CodiceIva = record["CodiceIva"].text();
        AliquotaIva = record["AliquotaIva"].doubleOr(0);
    });
    esito.riuscito = esito.riuscito && trovato;
    return esito;
}

Esito clsArticolo::RileggiArticolo(std::int32_t id)
{
    return protetto("RileggiArticolo", [&] {
        Recordset record = DataBase->open("SELECT * FROM Articoli WHERE IDarticolo=" + std::to_string(id));
        if (!record.eof()) {
            leggi(record);
        }
    });
}

void clsArticolo::leggi(Recordset& record)
{
    IDArticolo = record["IDArticolo"].asLong();
    CodiceMagazzino = record["CodiceMagazzino"].text();
    CodiceFornitore = record["CodiceFornitore"].text();
    CodiceBarreFornitore = record["CodiceBarreFornitore"].text();
    DescrizionePrincipale = record["DescrizionePrincipale"].text();
    DescrizioneSecondariaUno = record["DescrizioneSecondaria1"].text();
    DescrizioneSecondariaDue = record["DescrizioneSecondaria2"].text();
    setUnitaMisura(record["UnitaMisura"].text());
    IDCodiceIva = record["IDCodiceIva"].longOr(0);
    QuantitaMinima = record["QuantitaMinima"].doubleOr(0);
    DataPrimoCarico = testoData(record["DataPrimoCarico"]);
    DataUltimoCarico = testoData(record["DataUltimoCarico"]);
    DataUltimoScarico = testoData(record["DataUltimoScarico"]);
    CostoMedio = record["CostoMedio"].currencyOr({});
    CostoUltimo = record["CostoUltimo"].currencyOr({});
    Carico = record["Carico"].doubleOr(0);
    Scarico = record["Scarico"].doubleOr(0);
    Giacenza = record["Giacenza"].doubleOr(0);
    CaricoValore = record["CaricoValore"].currencyOr({});
    ScaricoValore = record["ScaricoValore"].currencyOr({});
    Immagine = record["Immagine"].text();
}

void clsArticolo::scrivi(Recordset& record) const
{
    record["CodiceMagazzino"] = CodiceMagazzino;
    record["CodiceFornitore"] = CodiceFornitore;
    record["CodiceBarreFornitore"] = CodiceBarreFornitore;
    record["DescrizionePrincipale"] = DescrizionePrincipale;
    record["DescrizioneSecondaria1"] = DescrizioneSecondariaUno;
    record["DescrizioneSecondaria2"] = DescrizioneSecondariaDue;
    record["UnitaMisura"] = unitaMisura_;
    record["IDCodiceIva"] = int{IDCodiceIva};
    record["QuantitaMinima"] = QuantitaMinima;
    record["DataPrimoCarico"] = valoreData(DataPrimoCarico);
    record["DataUltimoCarico"] = valoreData(DataUltimoCarico);
    record["DataUltimoScarico"] = valoreData(DataUltimoScarico);
    record["CostoMedio"] = CostoMedio;
    record["CostoUltimo"] = CostoUltimo;
    record["Carico"] = Carico;
    record["Scarico"] = Scarico;
    record["Giacenza"] = Giacenza;
    record["CaricoValore"] = CaricoValore;
    record["ScaricoValore"] = ScaricoValore;
    record["Immagine"] = Immagine;
}

Esito clsArticolo::RegistraArticolo()
{
    return inserisci("RegistraArticolo", "Articoli", "IDArticolo", IDArticolo,
                     {"Cliente",
                      "Attenzione! Il Codice Articolo inserito e' gia' presente in archivio.\n"
                      "Cambiare Codice Articolo per registrare il nuovo record",
                      {}});
}

Esito clsArticolo::ModificaArticolo(std::int32_t id)
{
    return modifica("ModificaArticolo", "SELECT * FROM Articoli WHERE IDarticolo=" + std::to_string(id));
}

Esito clsArticolo::EliminaArticolo(std::int32_t id)
{
    return elimina("EliminaArticolo", "DELETE * FROM Articoli WHERE IDarticolo=" + std::to_string(id));
}

}  // namespace bravona
