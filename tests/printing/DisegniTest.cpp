#include <gtest/gtest.h>

#include <algorithm>

#include "printing/Disegno.h"
#include "printing/arptDDTvb.h"
#include "printing/arptFatturaDifferitavb.h"
#include "printing/arptFatturaImmediatavb.h"
#include "printing/arptFatturaProformavb.h"
#include "support/DocumentoDiProva.h"

namespace bravona {
namespace {

struct Disegno {
    const char* nome;
    Report (*disegna)();
    int righe;
};

class Disegni : public testing::TestWithParam<Disegno> {
protected:
    static Pages pagine(const DocumentoDiProva& documento)
    {
        return pagineDi(GetParam().disegna(), GetParam().righe, documento);
    }
};

struct Ingombro {
    int sinistra, alto, destra, basso;
    const TextPrimitive* testo;
};

// Where the ink of a text may be.
Ingombro ingombro(const TextPrimitive& t)
{
    const int larghezza = textWidth(t.text, t.points, t.bold);
    const int altezza = static_cast<int>(t.points * 20);
    const int x = t.align == Align::left    ? t.x
                  : t.align == Align::right ? t.x + t.width - larghezza
                                            : t.x + (t.width - larghezza) / 2;
    const int y = t.y + (t.height - altezza) / 2;
    return {x, y, x + larghezza, y + altezza, &t};
}

void controllaPagina(const Page& page, const Pages& foglio)
{
    std::vector<Ingombro> testi;
    for (const Primitive& primitive : page.primitives) {
        if (const auto* testo = std::get_if<TextPrimitive>(&primitive)) {
            const Ingombro i = ingombro(*testo);
            EXPECT_GE(i.sinistra, testo->x - 1) << testo->control;
            EXPECT_LE(i.destra, testo->x + testo->width + 1) << testo->control;
            EXPECT_GE(testo->height, testo->points * 20) << testo->control << " is lower than its letters";
            EXPECT_LE(testo->x + testo->width, foglio.width) << testo->control;
            EXPECT_GE(testo->y, 0) << testo->control;
            EXPECT_LE(testo->y + testo->height, foglio.height) << testo->control;
            if (!testo->text.empty()) {
                testi.push_back(i);
            }
        } else if (const auto* riquadro = std::get_if<BoxPrimitive>(&primitive)) {
            EXPECT_GE(riquadro->x, 0);
            EXPECT_LE(riquadro->x + riquadro->width, foglio.width);
            EXPECT_LE(riquadro->y + riquadro->height, foglio.height);
        } else if (const auto* filo = std::get_if<LinePrimitive>(&primitive)) {
            EXPECT_GE(std::min(filo->x1, filo->x2), 0);
            EXPECT_LE(std::max(filo->x1, filo->x2), foglio.width);
            EXPECT_LE(std::max(filo->y1, filo->y2), foglio.height);
        }
    }
    for (std::size_t a = 0; a < testi.size(); ++a) {
        for (std::size_t b = a + 1; b < testi.size(); ++b) {
            const bool sovrapposti = testi[a].sinistra < testi[b].destra && testi[b].sinistra < testi[a].destra &&
                                     testi[a].alto < testi[b].basso && testi[b].alto < testi[a].basso;
            EXPECT_FALSE(sovrapposti) << testi[a].testo->control << " \"" << testi[a].testo->text << "\" over "
                                      << testi[b].testo->control << " \"" << testi[b].testo->text << '"';
        }
    }
}

TEST_P(Disegni, keepEveryTextInItsPlaceHoweverLong)
{
    DocumentoDiProva documento;
    documento.righe = 2 * GetParam().righe + 1;
    documento.lunghi = true;
    documento.milioni = true;
    documento.aliquote = 5;
    const Pages foglio = pagine(documento);
    ASSERT_EQ(foglio.pages.size(), 3U);
    for (const Page& page : foglio.pages) {
        controllaPagina(page, foglio);
        for (const Primitive& primitive : page.primitives) {
            if (const auto* testo = std::get_if<TextPrimitive>(&primitive)) {
                EXPECT_GE(testo->points, puntiMinimi) << testo->control << " \"" << testo->text << '"';
            }
        }
    }
}

TEST_P(Disegni, printAmountsOfMillionsWhole)
{
    DocumentoDiProva documento;
    documento.milioni = true;
    documento.aliquote = 5;
    const Page page = pagine(documento).pages.at(0);
    const bool conPrezzi = detailText(page, 0, "PrezzoUnitario").has_value();
    EXPECT_EQ(detailText(page, 0, "Quantita"), "123456789,12");
    EXPECT_EQ(conPrezzi, std::string(GetParam().nome) != "arptDDTvb");
    if (conPrezzi) {
        for (const char* colonna : {"PrezzoUnitario", "TotaleRiga"}) {
            EXPECT_EQ(detailText(page, 0, colonna), "123.456.789,12") << colonna;
        }
        for (const char* colonna :
             {"TotaleDocumento", "TotaleIvaEsclusa", "ImportoTotaleIva", "ImponibileIva5", "ImportoIva5"}) {
            EXPECT_EQ(printedText(page, colonna), "123.456.789,12") << colonna;
        }
        EXPECT_EQ(printedText(page, "txtTotaleLire"), "239.045.677.069");
    } else {
        EXPECT_FALSE(isHidden(page, "TotaleDocumento"));
        EXPECT_EQ(printedText(page, "TotaleDocumento"), std::nullopt);
    }
}

TEST_P(Disegni, printDiscountsWhole)
{
    DocumentoDiProva documento;
    const std::vector<std::pair<std::string, std::string>> sconti{
        {"Sconto1", "12,75"}, {"Sconto2", "100"}, {"Sconto3", "99,95"}};
    documento.altri = sconti;
    const Page page = pagine(documento).pages.at(0);
    for (const auto& [colonna, sconto] : sconti) {
        EXPECT_EQ(detailText(page, 0, colonna).value_or(sconto), sconto);
    }
}

TEST_P(Disegni, setRowsInLegibleType)
{
    DocumentoDiProva documento;
    documento.righe = GetParam().righe;
    const Pages foglio = pagine(documento);
    ASSERT_EQ(foglio.pages.size(), 1U);
    ASSERT_EQ(foglio.pages[0].detailRows, GetParam().righe);
    for (const Primitive& primitive : foglio.pages[0].primitives) {
        if (const auto* testo = std::get_if<TextPrimitive>(&primitive); testo != nullptr && testo->detail) {
            EXPECT_GE(testo->points, 8) << testo->control << " \"" << testo->text << '"';
        }
    }
}

TEST_P(Disegni, putTheAddressWhereAnEnvelopeShowsIt)
{
    const Page page = pagine({}).pages.at(0);
    // A window of 35 by 90 mm at the right, the sheet somewhere in the envelope's play.
    constexpr double millimetro = 1440 / 25.4;
    int righe = 0;
    for (const Primitive& primitive : page.primitives) {
        const auto* testo = std::get_if<TextPrimitive>(&primitive);
        if (testo == nullptr || (testo->control != "Text17" && testo->control != "Text21")) {
            continue;
        }
        ++righe;
        EXPECT_GE(testo->y, 54 * millimetro);
        EXPECT_LE(testo->y + testo->height, 80 * millimetro);
        EXPECT_GE(testo->x, 104 * millimetro);
        EXPECT_LE(testo->x + testo->width, 196 * millimetro);
    }
    EXPECT_EQ(righe, 2);
}

TEST_P(Disegni, tellOnThePageWhereItGoesOn)
{
    DocumentoDiProva documento;
    documento.righe = GetParam().righe + 1;
    const Pages foglio = pagine(documento);
    ASSERT_EQ(foglio.pages.size(), 2U);
    const bool proforma = std::string(GetParam().nome) == "arptFatturaProformavb";
    EXPECT_EQ(printedText(foglio.pages[0], "SEGUE"), "SEGUE");
    EXPECT_EQ(printedText(foglio.pages[0], "Label12"), proforma ? "1 - 2" : "1 di 2");
    EXPECT_EQ(printedText(foglio.pages[0], "DataF"), "");
    EXPECT_EQ(printedText(foglio.pages[0], "NumeroDoc"), "127");
    EXPECT_EQ(printedText(foglio.pages[1], "SEGUE"), "");
    EXPECT_EQ(printedText(foglio.pages[1], "Text5"), "15/01/2004");
    EXPECT_EQ(printedText(foglio.pages[1], "IDdb"), "2");
    EXPECT_EQ(detailText(foglio.pages[1], 0, "CodiceArticolo"), "A" + std::to_string(GetParam().righe));
    EXPECT_EQ(detailText(foglio.pages[1], 1, "CodiceArticolo"), "");
}

INSTANTIATE_TEST_SUITE_P(
    Table, Disegni,
    testing::Values(Disegno{"arptDDTvb", arptDDTvb, righeDDT},
                    Disegno{"arptFatturaImmediatavb", arptFatturaImmediatavb, righeFatturaImmediata},
                    Disegno{"arptFatturaDifferitavb", arptFatturaDifferitavb, righeFatturaDifferita},
                    Disegno{"arptFatturaProformavb", arptFatturaProformavb, righeFatturaProforma}),
    [](const auto& caso) { return std::string(caso.param.nome); });

struct Parola {
    Report (*disegna)();
    const char* controllo;
    const char* testo;
};

class Parole : public testing::TestWithParam<Parola> {};

TEST_P(Parole, standOnTheDesign)
{
    Report report = GetParam().disegna();
    for (const char* sezione : {"H", "F"}) {
        if (const ReportControl* trovato = report[sezione].find(GetParam().controllo)) {
            EXPECT_EQ(trovato->caption, GetParam().testo);
            return;
        }
    }
    FAIL() << "no control " << GetParam().controllo;
}

INSTANTIATE_TEST_SUITE_P(
    Table, Parole,
    testing::Values(
        Parola{arptDDTvb, "Label5", "DOCUMENTO DI TRASPORTO"}, Parola{arptDDTvb, "Label9", "N. Documento"},
        Parola{arptDDTvb, "Label16", "QT"}, Parola{arptFatturaImmediatavb, "lblTitolo", "FATTURA IMMEDIATA"},
        Parola{arptFatturaImmediatavb, "Label16", "Quantità"}, Parola{arptFatturaImmediatavb, "Label27", " Prezzo"},
        Parola{arptFatturaImmediatavb, "Label32", "Totale riga "}, Parola{arptFatturaImmediatavb, "Label5", "Prov.:"},
        Parola{arptFatturaDifferitavb, "lblTitolo", "FATTURA"}, Parola{arptFatturaDifferitavb, "Label27", " Prezzo €"},
        Parola{arptFatturaDifferitavb, "Label32", "Totale riga € "},
        Parola{arptFatturaDifferitavb, "Label29", "Variazioni"}, Parola{arptFatturaDifferitavb, "Label20", "Totale € "},
        Parola{arptFatturaDifferitavb, "Label47", "Registro :"},
        Parola{arptFatturaProformavb, "Label5", "PREVENTIVO DI SPESA"},
        Parola{arptFatturaProformavb, "Label9", "N. Fattura"}, Parola{arptFatturaProformavb, "Label33", "Prov.:"},
        Parola{arptFatturaProformavb, "Label26", "Banca d'appoggio"}));

}  // namespace
}  // namespace bravona
