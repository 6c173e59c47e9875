#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/reports/Report.h"
#include "platform/values/Errore.h"

namespace bravona {
namespace {

const Date oggi = *Date::parse("15/01/2004");

Recordset lista(int righe)
{
    Recordset dati = Recordset::declare(DeclaredSet{{{"Nome"}, {"Clienti.Prezzo"}}, {}});
    for (int i = 1; i <= righe; ++i) {
        dati.addNew();
        dati["Nome"] = "riga " + std::to_string(i);
        dati["Clienti.Prezzo"] = "1234,5";
        dati.update();
    }
    if (righe > 0) {
        dati.moveFirst();
    }
    return dati;
}

Recordset gruppi(int gruppi, int righe)
{
    Recordset dati = Recordset::declare(
        DeclaredSet{{{"IDdb"}, {"Titolo"}}, {{"Child", "IDdb", "IDdb", {{{"IDdb"}, {"Testo"}}, {}}}}});
    for (int g = 1; g <= gruppi; ++g) {
        dati.addNew();
        dati["IDdb"] = std::to_string(g);
        dati["Titolo"] = "gruppo " + std::to_string(g);
        Recordset& figli = dati.chapter("Child");
        for (int r = 1; r <= righe; ++r) {
            figli.addNew();
            figli["IDdb"] = std::to_string(g);
            figli["Testo"] = std::to_string(g) + "." + std::to_string(r);
            figli.update();
        }
        dati.update();
    }
    dati.moveFirst();
    return dati;
}

ReportControl controllo(ReportControl::Kind tipo, const char* nome, const char* testo, int alto = 0)
{
    ReportControl c;
    c.kind = tipo;
    c.name = nome;
    (tipo == ReportControl::Kind::label ? c.caption : c.column) = testo;
    c.top = alto;
    c.width = 4000;
    c.height = 250;
    return c;
}

ReportControl etichetta(const char* nome, const char* testo, int alto = 0)
{
    return controllo(ReportControl::Kind::label, nome, testo, alto);
}

ReportControl campo(const char* nome, const char* colonna, int alto = 0)
{
    return controllo(ReportControl::Kind::field, nome, colonna, alto);
}

Report elenco()
{
    Report report;
    report.sections = {{"H", 600, {etichetta("lblPagina", "Pag. %p di %P")}, false},
                       {"D", 250, {campo("txtNome", "Nome"), campo("txtPrezzo", "clienti.prezzo")}, true},
                       {"F", 400, {etichetta("lblData", "%D")}, false}};
    return report;
}

Report raggruppato()
{
    Report report;
    report.style = Report::Style::grouped;
    report.sections = {{"H", 600, {campo("Text1", "Titolo"), etichetta("lblPagina", "%p - %P")}, false},
                       {"D", 250, {campo("txtTesto", "Testo")}, false},
                       {"F", 400, {campo("Text2", "IDdb")}, false}};
    return report;
}

const TextPrimitive& testo(const Page& page, const std::string& control)
{
    for (const Primitive& primitive : page.primitives) {
        if (const auto* found = std::get_if<TextPrimitive>(&primitive); found != nullptr && found->control == control) {
            return *found;
        }
    }
    throw std::runtime_error("no text of " + control);
}

TEST(Componi, resolvesThePageTokensOfAList)
{
    Recordset dati = lista(130);
    const Pages pagine = componi(elenco(), dati, oggi);
    // 16838 less margins, header and footer leaves room for 58 rows.
    ASSERT_EQ(pagine.pages.size(), 3U);
    EXPECT_EQ(printedText(pagine.pages[1], "lblPagina"), "Pag. 2 di 3");
    EXPECT_EQ(printedText(pagine.pages[2], "lblData"), "15/01/2004");
    EXPECT_EQ(pagine.pages[0].detailRows, 58);
    EXPECT_EQ(pagine.pages[2].detailRows, 130 - 2 * 58);
    EXPECT_EQ(detailText(pagine.pages[1], 0, "Nome"), "riga 59");
    EXPECT_EQ(detailText(pagine.pages[2], 13, "nome"), "riga 130");
    EXPECT_EQ(detailText(pagine.pages[2], 14, "Nome"), std::nullopt);
}

TEST(Componi, keepsTheRowsOfAListAboveItsFooter)
{
    Recordset dati = lista(58);
    const Pages pagine = componi(elenco(), dati, oggi);
    ASSERT_EQ(pagine.pages.size(), 1U);
    const int piede = testo(pagine.pages[0], "lblData").y;
    EXPECT_EQ(piede, pagine.height - 567 - 400);
    for (const Primitive& primitive : pagine.pages[0].primitives) {
        if (const auto* riga = std::get_if<TextPrimitive>(&primitive); riga != nullptr && riga->detail) {
            EXPECT_LE(riga->y + riga->height, piede);
        }
    }
}

// Whatever the order in which pages are asked for, and more of them than are kept.
TEST(Componi, laysAPageOutOnRequestAsItWouldWithAllOthers)
{
    Recordset dati = lista(58 * 20 + 3);
    const Pages tutte = componi(elenco(), dati, oggi);
    const Pages pagine = componiSuRichiesta(elenco(), lista(58 * 20 + 3), oggi);
    ASSERT_EQ(pagine.pages.size(), tutte.pages.size());
    for (const std::size_t pagina : {20U, 0U, 7U, 19U, 1U, 2U, 3U, 4U, 5U, 6U, 8U, 9U, 0U, 20U}) {
        const Page& richiesta = pagine.pages[pagina];
        const Page& attesa = tutte.pages[pagina];
        EXPECT_EQ(printedText(richiesta, "lblPagina"), printedText(attesa, "lblPagina"));
        ASSERT_EQ(richiesta.detailRows, attesa.detailRows);
        ASSERT_EQ(richiesta.primitives.size(), attesa.primitives.size());
        for (int riga = 0; riga < attesa.detailRows; ++riga) {
            EXPECT_EQ(detailText(richiesta, riga, "Nome"), detailText(attesa, riga, "Nome"));
        }
    }
    EXPECT_THROW(static_cast<void>(pagine.pages.at(21)), std::out_of_range);
}

TEST(Componi, tellsAnUnknownColumnBeforeAnyPageIsAskedFor)
{
    Report report = elenco();
    report["D"]["txtNome"].column = "Manca";
    EXPECT_THROW(componiSuRichiesta(report, lista(1), oggi), Errore);
    EXPECT_EQ(componiSuRichiesta(elenco(), lista(0), oggi).pages.size(), 1U);
}

TEST(Componi, printsOnePageForAListWithoutRows)
{
    Recordset dati = lista(0);
    const Pages pagine = componi(elenco(), dati, oggi);
    ASSERT_EQ(pagine.pages.size(), 1U);
    EXPECT_EQ(printedText(pagine.pages[0], "lblPagina"), "Pag. 1 di 1");
    EXPECT_EQ(pagine.pages[0].detailRows, 0);
}

TEST(Componi, printsOneParentAPageWithItsOwnRows)
{
    Recordset dati = gruppi(3, 4);
    const Pages pagine = componi(raggruppato(), dati, oggi);
    ASSERT_EQ(pagine.pages.size(), 3U);
    for (int g = 0; g < 3; ++g) {
        const Page& pagina = pagine.pages[static_cast<std::size_t>(g)];
        EXPECT_EQ(printedText(pagina, "Titolo"), "gruppo " + std::to_string(g + 1));
        EXPECT_EQ(printedText(pagina, "lblPagina"), std::to_string(g + 1) + " - 3");
        EXPECT_EQ(pagina.detailRows, 4);
        EXPECT_EQ(detailText(pagina, 3, "Testo"), std::to_string(g + 1) + ".4");
    }
    // The footer follows its rows.
    EXPECT_EQ(testo(pagine.pages[0], "Text2").y, 567 + 600 + 4 * 250);
}

TEST(Componi, formatsByPatternAndFindsQualifiedColumnsInAnyCase)
{
    Recordset dati = lista(1);
    Report report = elenco();
    report["D"]["txtPrezzo"].pattern = "#,##0.00";
    EXPECT_EQ(detailText(componi(report, dati, oggi).pages[0], 0, "Clienti.Prezzo"), "1.234,50");
    report["d"]["TXTPREZZO"].pattern.clear();
    EXPECT_EQ(detailText(componi(report, dati, oggi).pages[0], 0, "txtPrezzo"), "1234,5");
}

TEST(Componi, refusesAColumnThatTheDataHasNot)
{
    Recordset dati = lista(1);
    Report report = elenco();
    report["D"]["txtNome"].column = "Cognome";
    try {
        componi(report, dati, oggi);
        FAIL();
    } catch (const Errore& errore) {
        EXPECT_EQ(errore.numero(), 3265U);
    }
    EXPECT_THROW(report["X"], Errore);
    EXPECT_THROW(report["D"]["txtCognome"], Errore);
}

TEST(Componi, keepsHiddenControlsOutOfSightUnderBothNames)
{
    Recordset dati = gruppi(1, 2);
    Report report = raggruppato();
    ReportControl logo = controllo(ReportControl::Kind::image, "image1", "");
    logo.alias = "imgLogo";
    report["H"].controls.push_back(logo);
    report["H"]["Text1"].visible = false;
    report["D"]["txtTesto"].visible = false;
    const Page pagina = componi(report, dati, oggi).pages.at(0);
    EXPECT_TRUE(isHidden(pagina, "Text1"));
    EXPECT_TRUE(isHidden(pagina, "Titolo"));
    EXPECT_TRUE(isHidden(pagina, "image1"));
    EXPECT_TRUE(isHidden(pagina, "imgLogo"));
    EXPECT_FALSE(isHidden(pagina, "lblPagina"));
    EXPECT_FALSE(isHidden(pagina, "txtTesto"));  // of the rows, not of the page
    EXPECT_FALSE(isHidden(pagina, "txtNiente"));
    EXPECT_EQ(printedText(pagina, "Text1"), std::nullopt);
    EXPECT_EQ(detailText(pagina, 1, "Testo"), "1.2");
    EXPECT_FALSE(containsText(pagina, "gruppo"));

    report["H"]["imgLogo"].visible = true;
    report["H"]["image1"].path = "logo.gif";
    const Page conLogo = componi(report, dati, oggi).pages.at(0);
    EXPECT_FALSE(isHidden(conLogo, "image1"));
    EXPECT_EQ(std::get<ImagePrimitive>(conLogo.primitives[1]).path, "logo.gif");
}

TEST(Componi, setsALongTextSmallerBeforeItIsCut)
{
    Recordset dati = gruppi(1, 1);
    Report report = raggruppato();
    ReportControl& titolo = report["H"]["Text1"];
    titolo.points = 12;
    titolo.minPoints = 6;
    titolo.width = textWidth("gruppo 1", 8, false);
    Page pagina = componi(report, dati, oggi).pages.at(0);
    EXPECT_EQ(testo(pagina, "Text1").text, "gruppo 1");
    EXPECT_NEAR(testo(pagina, "Text1").points, 8, 0.1);

    titolo.width = textWidth("gruppo 1", 5, false);
    pagina = componi(report, dati, oggi).pages.at(0);
    EXPECT_EQ(testo(pagina, "Text1").points, 6);
    EXPECT_EQ(testo(pagina, "Text1").text, "grup…");
}

TEST(Componi, leavesTheDesignAsItWas)
{
    Recordset dati = lista(3);
    const Report report = elenco();
    componi(report, dati, oggi);
    EXPECT_EQ(report.find("H")->controls[0].caption, "Pag. %p di %P");
    EXPECT_EQ(dati["Nome"].text(), "riga 1");  // and the set on its first row
}

TEST(ContainsText, readsWhatIsPrintedWithoutRegardToCase)
{
    Recordset dati = gruppi(2, 1);
    const Pages pagine = componi(raggruppato(), dati, oggi);
    EXPECT_TRUE(containsText(pagine.pages[1], "GRUPPO 2"));
    EXPECT_FALSE(containsText(pagine.pages[0], "gruppo 2"));
    EXPECT_FALSE(containsText(pagine.pages[0], ""));
}

}  // namespace
}  // namespace bravona
