#include <gtest/gtest.h>

#include "documents/modScarico.h"
#include "platform/values/Errore.h"
#include "platform/values/Numeri.h"
#include "support/ArchivioTemporaneo.h"
#include "support/Vettori.h"
#include "warehouse/Movimento.h"

namespace bravona {
namespace {

using Json = nlohmann::json;

std::vector<RigaDocumento> righeDi(const Json& elenco)
{
    std::vector<RigaDocumento> righe;
    for (const Json& riga : elenco) {
        RigaDocumento& nuova = righe.emplace_back();
        nuova.IDArticolo = riga["tag"].get<int>();
        nuova.CodiceArticolo = riga["code"].get<std::string>();
        nuova.Quantita = nuova.commento() ? 0 : toDouble(riga["quantity"].get<std::string>());
        nuova.PrezzoUnitario = nuova.commento() ? Currency{} : aCentesimi(riga["price"].get<std::string>());
        nuova.TotaleRiga = nuova.commento() ? Currency{} : aCentesimi(riga["total"].get<std::string>());
        nuova.Aggiornato = riga.value("updated", std::string());
    }
    return righe;
}

// Sales as well: their cases stand among those of receipts.
class GoodsReceived : public ::testing::Test {
protected:
    static Currency importo(const Json& unita) { return Currency::fromTenThousandths(unita.get<std::int64_t>()); }

    void metti(const Json& articoli)
    {
        archivio.cn.execute("DELETE * FROM Articoli");
        Recordset tabella = archivio.cn.openTable("Articoli");
        for (const auto& [codice, a] : articoli.items()) {
            tabella.addNew();
            tabella["CodiceMagazzino"] = codice;
            for (const char* quantita : {"Carico", "Scarico", "Giacenza"})
                tabella[quantita] = a[quantita].get<double>();
            for (const char* valore : {"CostoUltimo", "CostoMedio", "CaricoValore", "ScaricoValore"})
                tabella[valore] = importo(a[valore]);
            for (const char* data : {"DataUltimoCarico", "DataUltimoScarico"})
                tabella[data] = a[data].get<std::string>();
            tabella.update();
        }
    }

    void confronta(const Json& articoli)
    {
        for (const auto& [codice, a] : articoli.items()) {
            SCOPED_TRACE(codice);
            Recordset r = archivio.cn.open("SELECT * FROM Articoli WHERE CodiceMagazzino='" + codice + "'");
            for (const char* quantita : {"Carico", "Scarico", "Giacenza"})
                EXPECT_NEAR(r[quantita].asDouble(), a[quantita].get<double>(), 1e-9) << quantita;
            for (const char* valore : {"CostoUltimo", "CostoMedio", "CaricoValore", "ScaricoValore"})
                EXPECT_EQ(r[valore].asCurrency(), importo(a[valore])) << valore;
            for (const char* data : {"DataUltimoCarico", "DataUltimoScarico"})
                EXPECT_EQ(r[data].text(), a[data].get<std::string>()) << data;
        }
    }

    void esegui(const Json& passo, std::int32_t& id)
    {
        Movimento movimento;
        movimento.IDMovimenti = id;
        movimento.AnnoDocumento = 2005;
        movimento.DataDocumento = movimento.DataOperazione = Date::parse(passo["date"].get<std::string>()).value();
        movimento.righe = righeDi(passo["rows"]);
        Connection& cn = archivio.cn;
        if (passo["operation"] == "unload")
            return ScaricaArticoli(cn, {}, movimento.righe, movimento.DataDocumento);
        Transaction transazione(cn);
        if (passo["operation"] == "receipt")
            id = scriviMovimento(cn, movimento);
        else
            riscriviMovimento(cn, movimento, righeDi(passo["old_rows"]));
        transazione.commit();
    }

    ArchivioTemporaneo archivio;
};

TEST_F(GoodsReceived, ArticlesAgreeWithTheModelStepByStep)
{
    int provati = 0;
    for (const Json& caso : casi("stock.json")) {
        SCOPED_TRACE(caso["name"].get<std::string>());
        metti(caso["articles"]);
        // What a change stands on, where the case begins with it.
        Recordset vecchio = archivio.cn.openTable("MovimentiMagazzino");
        vecchio.addNew();
        vecchio["AnnoDocumento"] = 2005;
        vecchio.update();
        std::int32_t id = vecchio["IDMovimenti"].asLong();
        for (const Json& passo : caso["steps"]) {
            ++provati;
            if (passo["error"].get<std::string>().empty())
                esegui(passo, id);
            else
                EXPECT_THROW(esegui(passo, id), Errore);
            EXPECT_FALSE(archivio.cn.inTransaction());
            confronta(passo["articles_after"]);
        }
    }
    EXPECT_GT(provati, 20);
}

TEST_F(GoodsReceived, AReceiptComesBackAsItWasKept)
{
    metti(Json::parse(R"({"X": {"Carico": 1, "Scarico": 0, "Giacenza": 1, "CostoUltimo": 0, "CostoMedio": 0,
                          "CaricoValore": 0, "ScaricoValore": 0, "DataUltimoCarico": "", "DataUltimoScarico": ""}})"));
    Movimento movimento;
    movimento.NumeroDocumento = 77;
    movimento.AnnoDocumento = 2004;
    movimento.DataDocumento = Date::fromYmd(2004, 1, 10).value();
    movimento.DataOperazione = Date::fromYmd(2004, 1, 15).value();
    movimento.IDFornitore = 9;
    movimento.righe.push_back(rigaCommento("***", "solo testo"));
    RigaDocumento& riga = movimento.righe.emplace_back();
    riga.IDArticolo = 1;
    riga.CodiceArticolo = "X";
    riga.Quantita = 2.345;
    riga.PrezzoUnitario = Currency::fromEuro(3);
    riga.Sconti = {10, 0, 5};
    riga.TotaleRiga = Currency::fromEuro(6);
    riga.Aggiornato = aggiornato::no;
    const Movimento letto = leggiMovimento(archivio.cn, scriviMovimento(archivio.cn, movimento));
    EXPECT_EQ(letto.NumeroDocumento, 77);
    EXPECT_EQ(letto.DataDocumento, movimento.DataDocumento);
    EXPECT_EQ(letto.DataOperazione, movimento.DataOperazione);
    EXPECT_EQ(letto.IDFornitore, 9);
    ASSERT_EQ(letto.righe.size(), 1U);
    EXPECT_EQ(letto.righe[0].Quantita, 2.35);
    EXPECT_EQ(letto.righe[0].Sconti, riga.Sconti);
    EXPECT_EQ(letto.righe[0].Aggiornato, aggiornato::si);
    EXPECT_EQ(archivio.cn.open("SELECT NumeroDettagli FROM MovimentiMagazzino")[0].asLong(), 2);
}

}  // namespace
}  // namespace bravona
