#include <gtest/gtest.h>

#include <algorithm>

#include "documents/modScarico.h"
#include "platform/values/Errore.h"
#include "platform/values/Numeri.h"
#include "support/ArchivioTemporaneo.h"
#include "support/Vettori.h"

namespace bravona {
namespace {

using Json = nlohmann::json;

class StockUnloading : public ::testing::Test {
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
            for (const char* valore : {"CostoUltimo", "CostoMedio", "CaricoValore", "ScaricoValore"}) {
                tabella[valore] = importo(a[valore]);
            }
            tabella.update();
        }
    }

    void confronta(const Json& articoli)
    {
        for (const auto& [codice, a] : articoli.items()) {
            SCOPED_TRACE(codice);
            Recordset r = archivio.cn.open("SELECT * FROM Articoli WHERE CodiceMagazzino='" + codice + "'");
            for (const char* quantita : {"Carico", "Scarico", "Giacenza"}) {
                EXPECT_NEAR(r[quantita].asDouble(), a[quantita].get<double>(), 1e-9) << quantita;
            }
            for (const char* valore : {"CostoUltimo", "CostoMedio", "CaricoValore", "ScaricoValore"}) {
                EXPECT_EQ(r[valore].asCurrency(), importo(a[valore])) << valore;
            }
            EXPECT_EQ(r["DataUltimoScarico"].text(), a["DataUltimoScarico"].get<std::string>());
        }
    }

    static constexpr ScaricoDovuto nessunaNota{};
    ArchivioTemporaneo archivio;
};

TEST_F(StockUnloading, ArticlesAgreeWithTheModelStepByStep)
{
    int provati = 0;
    for (const Json& caso : casi("stock.json")) {
        const Json& passi = caso["steps"];
        if (!std::ranges::all_of(passi, [](const Json& passo) { return passo["operation"] == "unload"; }))
            continue;
        SCOPED_TRACE(caso["name"].get<std::string>());
        ++provati;
        metti(caso["articles"]);
        for (const Json& passo : passi) {
            std::vector<RigaDocumento> righe;
            for (const Json& riga : passo["rows"]) {
                if (riga["tag"].get<int>() == -5)
                    continue;
                RigaDocumento& nuova = righe.emplace_back();
                nuova.CodiceArticolo = riga["code"].get<std::string>();
                nuova.Quantita = toDouble(riga["quantity"].get<std::string>());
                nuova.PrezzoUnitario = aCentesimi(riga["price"].get<std::string>());
                nuova.TotaleRiga = aCentesimi(riga["total"].get<std::string>());
            }
            const Date data = Date::parse(passo["date"].get<std::string>()).value();
            if (passo["error"].get<std::string>().empty())
                ScaricaArticoli(archivio.cn, nessunaNota, righe, data);
            else
                EXPECT_THROW(ScaricaArticoli(archivio.cn, nessunaNota, righe, data), Errore);
            EXPECT_FALSE(archivio.cn.inTransaction());
            confronta(passo["articles_after"]);
        }
    }
    EXPECT_GT(provati, 0);
}

}  // namespace
}  // namespace bravona
