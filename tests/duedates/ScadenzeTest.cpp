#include <gtest/gtest.h>

#include "duedates/GrigliaScadenze.h"
#include "duedates/modScadenze.h"
#include "platform/clock/Clock.h"
#include "platform/values/Errore.h"
#include "platform/values/Numeri.h"
#include "support/ArchivioTemporaneo.h"
#include "support/Vettori.h"

namespace bravona {
namespace {

using Json = nlohmann::json;

Date giorno(const Json& testo)
{
    return Date::parse(testo.get<std::string>()).value();
}

class Instalments : public ::testing::Test {
protected:
    // The method of a case, as the only one of the archive.
    std::int32_t metodo(const Json& caso)
    {
        Connection& cn = archivio.cn;
        cn.execute("DELETE * FROM ModalitaPagamento");
        if (caso["method"].is_null()) {
            return 999;
        }
        Recordset tabella = cn.openTable("ModalitaPagamento");
        tabella.addNew();
        tabella["ModalitaPagamento"] = "prova";
        int rata = 0;
        for (const Json& giorni : caso["method"]["days"]) {
            ++rata;
            if (!giorni.is_null()) {
                tabella["GG-" + std::to_string(rata)] = giorni.get<int>();
            }
        }
        if (!caso["method"]["from"].is_null()) {
            tabella["DF-FM"] = caso["method"]["from"].get<std::string>();
        }
        tabella.update();
        return tabella["IDmodalitaPagamento"].asLong();
    }

    ArchivioTemporaneo archivio;
    FixedClock orologio{Date::fromYmd(2004, 1, 15).value()};
};

TEST_F(Instalments, CountsAndDatesAgreeWithTheModel)
{
    for (const Json& caso : casi("instalments.json", "NumeroRate")) {
        EXPECT_EQ(NumeroRate(archivio.cn, metodo(caso)), caso["count"].get<int>()) << caso;
    }
    for (const Json& caso : casi("instalments.json", "DataScadenzaRata")) {
        EXPECT_EQ(DataScadenzaRata(archivio.cn, metodo(caso), giorno(caso["document_date"]), caso["number"].get<int>()),
                  caso["due"].get<std::string>())
            << caso;
    }
}

TEST_F(Instalments, PlansAgreeWithTheModel)
{
    for (const Json& caso : casi("instalments.json", "GeneraScadenze")) {
        SCOPED_TRACE(caso.dump());
        GrigliaScadenze griglia(orologio);
        const std::vector<Rata> piano =
            calcolaPiano(archivio.cn, metodo(caso), giorno(caso["document_date"]), caso["register"].get<int>(),
                         toCurrency(caso["total"].get<std::string>()));
        griglia.mostra(piano);
        EXPECT_EQ(griglia.rate(), piano);
        ASSERT_EQ(griglia.Rows() - 1, static_cast<int>(caso["instalments"].size()));
        int riga = 0;
        for (const Json& rata : caso["instalments"]) {
            ++riga;
            EXPECT_EQ(griglia.TextMatrix(riga, 0), Value(rata["paid"].get<bool>()));
            EXPECT_EQ(griglia.TextMatrix(riga, 1).text(), rata["due"].get<std::string>());
            EXPECT_EQ(griglia.TextMatrix(riga, 2).text(), rata["avere"].get<std::string>());
            EXPECT_EQ(griglia.TextMatrix(riga, 3).text(), rata["dare"].get<std::string>());
            EXPECT_EQ(griglia.TextMatrix(riga, 4).text(), rata["saldo"].get<std::string>());
            EXPECT_EQ(griglia.TextMatrix(riga, 5).text(), rata["payment_date"].get<std::string>());
        }
    }
}

TEST_F(Instalments, ABalanceRewritesItsAmounts)
{
    for (const Json& caso : casi("instalments.json", "CalcolaSaldo")) {
        GrigliaScadenze griglia(orologio);
        griglia.ImpostaColonne();
        griglia.setRows(2);
        griglia.setTextMatrix(1, 2, caso["avere"].get<std::string>());
        griglia.setTextMatrix(1, 3, caso["dare"].get<std::string>());
        griglia.CalcolaSaldo(1);
        EXPECT_EQ(griglia.TextMatrix(1, 2).text(), caso["avere_after"].get<std::string>()) << caso;
        EXPECT_EQ(griglia.TextMatrix(1, 3).text(), caso["dare_after"].get<std::string>()) << caso;
        EXPECT_EQ(griglia.TextMatrix(1, 4).text(), caso["saldo"].get<std::string>()) << caso;
    }
}

TEST_F(Instalments, AStoredMarkReadsAsPaidOnlyWhenItSaysSo)
{
    GrigliaScadenze griglia(orologio);
    griglia.ImpostaColonne();
    griglia.setRows(2);
    const auto pagata = [&](const Value& segno) {
        griglia.setTextMatrix(1, 0, segno);
        return griglia.TextMatrix(1, 0).toBool();
    };
    for (const Value& segno : {Value(), Value(""), Value("0"), Value(0), Value("Falso"), Value(false)}) {
        EXPECT_FALSE(pagata(segno)) << segno.text();
    }
    for (const Value& segno : {Value("-1"), Value(-1), Value("1"), Value("Vero"), Value(true)}) {
        EXPECT_TRUE(pagata(segno)) << segno.text();
    }
}

TEST_F(Instalments, ThePlanOfAnUnknownMethodFailsAndThatOfNoMethodIsEmpty)
{
    const Date data = orologio.today();
    EXPECT_TRUE(calcolaPiano(archivio.cn, 0, data, 1, Currency::fromEuro(10)).empty());
    EXPECT_THROW(static_cast<void>(calcolaPiano(archivio.cn, 77, data, 1, Currency::fromEuro(10))), Errore);
}

}  // namespace
}  // namespace bravona
