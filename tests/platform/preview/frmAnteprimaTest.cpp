#include "platform/preview/frmAnteprima.h"

#include <gtest/gtest.h>

#include "support/ArchivioTemporaneo.h"
#include "support/UtenteDiProva.h"

#include <fstream>

namespace bravona {
namespace {

Pages pagine(int numero)
{
    Pages risultato;
    for (int i = 1; i <= numero; ++i) {
        TextPrimitive testo;
        testo.text = "foglio " + std::to_string(i) + (i == 3 ? " Rossi" : "");
        Page page;
        page.primitives.emplace_back(testo);
        risultato.pages.push_back(page);
    }
    return risultato;
}

class Anteprima : public testing::Test {
protected:
    frmAnteprima& mostra(int numero)
    {
        mostraAnteprima(utente, "Bravona - Anteprima DDT", pagine(numero), "DDT 12 2004 Rossi", false);
        return dynamic_cast<frmAnteprima&>(*utente.front());
    }
    UtenteDiProva utente;
};

TEST_F(Anteprima, opensOnItsFirstPageAndDoesNotCountAsAWindow)
{
    frmAnteprima& form = mostra(3);
    EXPECT_EQ(form.caption(), "Bravona - Anteprima DDT");
    EXPECT_EQ(form.txtPagina.text(), "1");
    EXPECT_EQ(form.lblDi.caption(), "di 3");
    EXPECT_FALSE(form.cmdPrima.enabled());
    EXPECT_TRUE(form.cmdUltima.enabled());
    EXPECT_TRUE(form.pvwPagine.hasFocus());
    EXPECT_EQ(form.cmbZoom.text(), "Larghezza pagina");
    EXPECT_EQ(utente.screens().loadedCount(), 0U);
}

TEST_F(Anteprima, turnsPagesByButtonsAndKeys)
{
    frmAnteprima& form = mostra(4);
    utente.click(form.cmdSuccessiva);
    utente.click(form.cmdSuccessiva);
    EXPECT_EQ(form.txtPagina.text(), "3");
    utente.click(form.cmdPrecedente);
    EXPECT_EQ(form.txtPagina.text(), "2");
    utente.click(form.cmdUltima);
    EXPECT_EQ(form.txtPagina.text(), "4");
    EXPECT_FALSE(form.cmdUltima.enabled());
    EXPECT_TRUE(form.pvwPagine.hasFocus());  // the button that went grey handed it on
    utente.key(Key::home);
    EXPECT_EQ(form.txtPagina.text(), "1");
    utente.key(Key::end);
    EXPECT_EQ(form.txtPagina.text(), "4");
    utente.key({.key = Key::pageUp, .ctrl = true});
    EXPECT_EQ(form.txtPagina.text(), "3");
}

struct Digitata {
    const char* testo;
    const char* pagina;
};
class PaginaDigitata : public Anteprima, public testing::WithParamInterface<Digitata> {};

TEST_P(PaginaDigitata, goesThereOrStays)
{
    frmAnteprima& form = mostra(5);
    form.pvwPagine.setPage(1);
    utente.type(form.txtPagina, std::string(GetParam().testo) + "\n");
    EXPECT_EQ(form.txtPagina.text(), GetParam().pagina);
    EXPECT_EQ(std::to_string(form.pvwPagine.page() + 1), GetParam().pagina);
}

INSTANTIATE_TEST_SUITE_P(Table, PaginaDigitata,
                         testing::Values(Digitata{"4", "4"}, Digitata{"99", "5"}, Digitata{"99999999999", "5"},
                                         Digitata{"0", "2"}, Digitata{"x3y", "3"}));

TEST_F(Anteprima, zoomsByItsListAndByKeys)
{
    frmAnteprima& form = mostra(1);
    form.cmbZoom.setText("Pagina intera");
    EXPECT_EQ(form.pvwPagine.zoom(), PageView::fitPage);
    form.cmbZoom.setText("125 %");
    utente.key({.key = Key::character, .character = U'+', .ctrl = true});
    EXPECT_EQ(form.pvwPagine.zoom(), 150);
    utente.key({.key = Key::character, .character = U'-', .ctrl = true});
    utente.key({.key = Key::character, .character = U'-', .ctrl = true});
    EXPECT_EQ(form.cmbZoom.text(), "100 %");
    form.pvwPagine.setZoom(110);  // the wheel
    EXPECT_EQ(form.cmbZoom.text(), "110 %");
    utente.key({.key = Key::character, .character = U'-', .ctrl = true});
    EXPECT_EQ(form.pvwPagine.zoom(), 100);
}

TEST_F(Anteprima, findsATextOnAnotherPage)
{
    frmAnteprima& form = mostra(4);
    utente.key({.key = Key::character, .character = U'f', .ctrl = true});
    utente.type("rossi");
    EXPECT_EQ(form.pvwPagine.search(), "rossi");
    EXPECT_EQ(form.lblStato.caption(), "non in questa pagina");
    utente.key(Key::enter);
    EXPECT_EQ(form.txtPagina.text(), "3");
    EXPECT_EQ(form.lblStato.caption(), "");
    utente.type(form.txtCerca, "verdi\n");
    EXPECT_EQ(form.txtPagina.text(), "3");
    EXPECT_EQ(form.lblStato.caption(), "Testo non trovato");
}

TEST_F(Anteprima, printsAndSavesTheSamePages)
{
    mostra(2);
    utente.key({.key = Key::character, .character = U'p', .ctrl = true});
    const CartellaTemporanea cartella;
    utente.answerFile(cartella.file("fattura"));
    auto& form = dynamic_cast<frmAnteprima&>(*utente.front());
    utente.click(form.cmdPdf);
    EXPECT_EQ(form.lblStato.caption(), "Salvato: fattura.pdf");
    utente.answerFile("");
    utente.click(form.cmdPdf);
    // The name without its ending is one that nobody has asked about.
    std::ofstream(cartella.file("fattura.pdf")) << "di ieri";
    utente.answerFile(cartella.file("fattura"));
    utente.click(form.cmdPdf);
    EXPECT_TRUE(utente.lastBox().text.ends_with("fattura.pdf\" esiste già. Sostituirlo?"));
    const auto& carte = utente.transcript().papers;
    ASSERT_EQ(carte.size(), 2U);
    EXPECT_EQ(carte[0].path, "");
    EXPECT_EQ(carte[0].title, "Bravona - Anteprima DDT");
    EXPECT_EQ(carte[0].pages.pages.size(), 2U);
    EXPECT_EQ(carte[1].path, cartella.file("fattura.pdf"));
    EXPECT_EQ(carte[1].title, "DDT 12 2004 Rossi");
    EXPECT_EQ(carte[1].pages.pages.size(), 2U);
}

TEST_F(Anteprima, tellsWhenThePdfCannotBeWrittenAndStaysOpen)
{
    frmAnteprima& form = mostra(1);
    const CartellaTemporanea cartella;
    utente.answerFile(cartella.file("manca/fattura.pdf"));
    utente.click(form.cmdPdf);
    EXPECT_TRUE(utente.lastBox().fault);
    EXPECT_EQ(form.lblStato.caption(), "");
    EXPECT_EQ(utente.front(), &form);
}

TEST_F(Anteprima, severalStandSideBySideAndCloseByEscape)
{
    mostra(1);
    mostra(2);
    EXPECT_EQ(utente.windows().size(), 2U);
    utente.key(Key::escape);
    ASSERT_EQ(utente.windows().size(), 1U);
    EXPECT_EQ(dynamic_cast<frmAnteprima&>(*utente.front()).pages().pages.size(), 1U);
    utente.key(Key::escape);
    EXPECT_TRUE(utente.windows().empty());
}

TEST_F(Anteprima, modalReturnsWhenItHasBeenClosed)
{
    int viste = 0;
    utente.inModal([&](Form& form) {
        viste = static_cast<int>(dynamic_cast<frmAnteprima&>(form).pages().pages.size());
        utente.key(Key::escape);
    });
    mostraAnteprima(utente, "Bravona - Anteprima Fattura", pagine(3), "Fattura 1 2004", true);
    EXPECT_EQ(viste, 3);
    EXPECT_TRUE(utente.windows().empty());
}

struct Nome {
    std::vector<std::string> parti;
    const char* nome;
};
class NomiDiFile : public testing::TestWithParam<Nome> {};

TEST_P(NomiDiFile, holdsNoSignThatAFileSystemRefuses)
{
    EXPECT_EQ(nomeFile(GetParam().parti), GetParam().nome);
}

INSTANTIATE_TEST_SUITE_P(Table, NomiDiFile,
                         testing::Values(Nome{{"Fattura", "12", "2004", "Rossi & Figli"},
                                              "Fattura 12 2004 Rossi & Figli"},
                                         Nome{{"DDT", "1", "2004", ""}, "DDT 1 2004"},
                                         Nome{{"DDT", "A/B: \"C\"?", "S.n.c."}, "DDT A-B- -C-- S.n.c"},
                                         Nome{{"", ""}, ""}, Nome{{"riga\nnuova"}, "riga-nuova"}));

TEST(NomeFile, isNoLongerThanAFileNameMayBe)
{
    EXPECT_LE(nomeFile({"Fattura", std::string(400, 'x')}).size(), 120U);
}

}  // namespace
}  // namespace bravona
