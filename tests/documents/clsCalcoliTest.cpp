#include "documents/clsCalcoli.h"

#include <gtest/gtest.h>

#include <map>

#include "platform/values/Errore.h"
#include "platform/values/Numeri.h"
#include "support/Vettori.h"

namespace bravona {
namespace {

using Json = nlohmann::json;

// A VAT table straight from a case.
class TabellaDiProva final : public TabellaCodiciIva {
public:
    struct Voce {
        std::int16_t aliquota;
        std::string descrizione;
    };
    std::map<std::string, Voce> voci;

    std::string GetCodiceAliquotaIvaFromID(std::int32_t) const override { return {}; }
    std::string GetDescrizioneAliquotaIvaFromID(std::int32_t) const override { return {}; }
    std::int16_t GetValoreAliquotaIvaFromID(std::int32_t) const override { return 0; }
    std::int32_t GetIDAliquotaIvaFromCodice(const std::string&) const override { return 0; }
    std::string GetDescrizioneAliquotaIvaFromCodice(const std::string& codice) const override
    {
        const auto voce = voci.find(codice);
        return voce == voci.end() ? std::string() : voce->second.descrizione;
    }
    std::int16_t GetValoreAliquotaIvaFromCodice(const std::string& codice) const override
    {
        const auto voce = voci.find(codice);
        return voce == voci.end() ? std::int16_t{0} : voce->second.aliquota;
    }
    void Refresh() override {}
};

TEST(RowArithmetic, DiscountsChainOnTheRoundedPrice)
{
    for (const Json& caso : casi("row_totals.json")) {
        const auto sconti = caso["discounts"].get<std::array<double, 3>>();
        const TestiTotaleRiga totale =
            CalcolaTotaleRiga(caso["quantity"].get<std::string>(), caso["price"].get<std::string>(), sconti);
        EXPECT_EQ(totale.prezzoScontato, caso["discounted_price"].get<std::string>()) << caso;
        EXPECT_EQ(totale.totale, caso["row_total"].get<std::string>()) << caso;
    }
}

TEST(RowArithmetic, ALoneMinusBeingTypedIsNotYetANumber)
{
    EXPECT_EQ(CalcolaTotaleRiga("-", "10,00", {}).totale, "0");
    EXPECT_EQ(CalcolaTotaleRiga("1", "-", {}).totale, "0");
}

class DocumentTotals : public ::testing::Test {
protected:
    void prepara(const Json& caso)
    {
        for (const auto& [codice, voce] : caso["vat_table"].items()) {
            tabella.voci[codice] = {voce["rate"].get<std::int16_t>(), voce["description"].get<std::string>()};
        }
        for (const Json& riga : caso["rows"]) {
            RigaDocumento& nuova = righe.emplace_back();
            nuova.IDArticolo = riga["tag"].get<int>();
            nuova.CodiceIva = riga["vat_code"].get<std::string>();
            if (nuova.conImporto())
                nuova.TotaleRiga = toCurrency(riga["total"].get<std::string>());
        }
    }
    static std::int64_t unita(Currency importo) { return importo.tenThousandths(); }

    TabellaDiProva tabella;
    std::vector<RigaDocumento> righe;
    clsCalcoli calcoli{tabella};
};

void confronta(const Json& caso, const clsCalcoli& calcoli)
{
    EXPECT_EQ(calcoli.NumeroRigheValide(), caso["valid_rows"].get<int>());
    int gruppo = 0;
    for (const Json& atteso : caso["groups"]) {
        ++gruppo;
        EXPECT_EQ(calcoli.GetCodiceAliquotaIVA(gruppo), atteso["code"].get<std::string>()) << gruppo;
        EXPECT_EQ(calcoli.GetAliquotaIVA(gruppo), atteso["rate"].get<int>()) << gruppo;
        EXPECT_EQ(calcoli.GetDescrizioneAliquotaIva(gruppo), atteso["description"].get<std::string>()) << gruppo;
        EXPECT_EQ(calcoli.GetImponibile(gruppo).tenThousandths(), atteso["taxable"].get<std::int64_t>()) << gruppo;
        EXPECT_EQ(calcoli.GetImportoIVA(gruppo).tenThousandths(), atteso["tax"].get<std::int64_t>()) << gruppo;
        EXPECT_EQ(calcoli.GetTotale(gruppo).tenThousandths(), atteso["total"].get<std::int64_t>()) << gruppo;
    }
    const Json& totali = caso["totals"];
    EXPECT_EQ(calcoli.TotaleImportoVoci().tenThousandths(), totali["rows"].get<std::int64_t>());
    EXPECT_EQ(calcoli.TotaleImportoImponibile().tenThousandths(), totali["taxable"].get<std::int64_t>());
    EXPECT_EQ(calcoli.TotaleImportoImposta().tenThousandths(), totali["tax"].get<std::int64_t>());
    EXPECT_EQ(calcoli.TotaleImportoDocumento().tenThousandths(), totali["document"].get<std::int64_t>());
    EXPECT_EQ(FormattaImporto(calcoli.TotaleImportoDocumento()), caso["texts"]["document"].get<std::string>());
    EXPECT_EQ(calcoli.riepilogoIva(), caso["vat_summary"].get<std::string>());
}

TEST_F(DocumentTotals, GroupsAndTotalsAgreeWithTheModel)
{
    for (const Json& caso : casi("document_totals.json")) {
        SCOPED_TRACE(caso["name"].get<std::string>());
        tabella.voci.clear();
        righe.clear();
        const std::string errore = caso.value("error", "");
        if (errore.empty()) {
            prepara(caso);
            calcoli.Calcola(righe);
            confronta(caso, calcoli);
            continue;
        }
        try {
            prepara(caso);
            calcoli.Calcola(righe);
            ADD_FAILURE() << "no failure";
        } catch (const Errore& e) {
            EXPECT_EQ(e.numero(), errore == "index" ? errori::indiceFuoriIntervallo : errori::testoNonConvertibile);
        }
    }
}

TEST_F(DocumentTotals, AGroupOutsideOneToFiveIsRefused)
{
    EXPECT_THROW((void)calcoli.GetImponibile(0), Errore);
    EXPECT_THROW((void)calcoli.GetImponibile(6), Errore);
}

}  // namespace
}  // namespace bravona
