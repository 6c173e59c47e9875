#include "masterdata/frmAggiornamentoListino.h"

#include <gtest/gtest.h>

#include <random>

#include "support/ConArchivio.h"

namespace bravona {
namespace {

class AggiornamentoListino : public ConArchivio {
protected:
    std::vector<std::string> aggiungiPrezzi(const std::vector<std::int64_t>& diecimillesimi)
    {
        Recordset prezzi = sessione.cn.openTable("ListiniPrezzi");
        std::vector<std::string> articoli;
        for (const std::int64_t prezzo : diecimillesimi) {
            const int id = static_cast<int>(articoli.size()) + 1;
            prezzi.addNew();
            prezzi["IDArticolo"] = id;
            prezzi["IDListino"] = 3;
            prezzi["Prezzo"] = Currency::fromTenThousandths(prezzo);
            prezzi.update();
            articoli.push_back(std::to_string(id));
        }
        return articoli;
    }

    std::vector<std::int64_t> prezzi()
    {
        std::vector<std::int64_t> tutti;
        Recordset record = sessione.cn.open("SELECT Prezzo FROM ListiniPrezzi ORDER BY IDArticolo");
        for (; !record.eof(); record.moveNext()) {
            tutti.push_back(record["Prezzo"].asCurrency().tenThousandths());
        }
        return tutti;
    }

    frmAggiornamentoListino& schermata()
    {
        auto& form = sessione.schermate().as<frmAggiornamentoListino>("frmAggiornamentoListino");
        form.show();
        form.cmbListini.setListIndex(2);
        return form;
    }
};

// p more or less q percent of it, to the nearest ten-thousandth, halves to even.
std::int64_t variato(std::int64_t p, std::int64_t q)
{
    const std::int64_t centesimi = p * (100 + q);
    const std::int64_t intero = centesimi / 100;
    const std::int64_t resto = centesimi % 100;
    return intero + (resto > 50 || (resto == 50 && intero % 2 != 0) ? 1 : 0);
}

TEST_F(AggiornamentoListino, EveryPriceIsExactToTheLastDecimal)
{
    std::mt19937 caso(20040115);
    std::vector<std::int64_t> attesi{0, 1, 50, 149, 5'000'050, 99'999'999'999'950};
    for (int i = 0; i < 200; ++i) {
        attesi.push_back(std::uniform_int_distribution<std::int64_t>(0, 20'000'000)(caso));
    }
    const std::vector<std::string> articoli = aggiungiPrezzi(attesi);
    frmAggiornamentoListino& form = schermata();
    for (const int percentuale : {10, -10, 3, -7, 50, -1, 100}) {
        form.cmbVariazione.setListIndex(percentuale > 0 ? 0 : 1);
        ASSERT_TRUE(form.AggiornaPrezzi(articoli, std::to_string(std::abs(percentuale))));
        for (std::int64_t& prezzo : attesi) {
            prezzo = variato(prezzo, percentuale);
        }
        ASSERT_EQ(prezzi(), attesi) << percentuale;
    }
}

TEST_F(AggiornamentoListino, AFailureAnywhereLeavesEveryPriceAndTheNextUpdateWorks)
{
    const std::vector<std::int64_t> prima{10'000, 20'000, 30'000, 40'000};
    const std::vector<std::string> articoli = aggiungiPrezzi(prima);
    frmAggiornamentoListino& form = schermata();
    for (int guasto = 1; guasto <= 4; ++guasto) {
        int scritture = 0;
        sessione.cn.setWriteHook([&](const std::string&) {
            if (++scritture == guasto) {
                throw Errore(3035, "guasto di prova");
            }
        });
        EXPECT_FALSE(form.AggiornaPrezzi(articoli, "10"));
        EXPECT_FALSE(sessione.cn.inTransaction());
        EXPECT_EQ(prezzi(), prima) << guasto;
    }
    sessione.cn.setWriteHook({});
    EXPECT_TRUE(form.AggiornaPrezzi(articoli, "10"));
    EXPECT_EQ(prezzi(), (std::vector<std::int64_t>{11'000, 22'000, 33'000, 44'000}));
}

}  // namespace
}  // namespace bravona
