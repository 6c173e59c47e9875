#include "masterdata/SchedaArticolo.h"

#include <gtest/gtest.h>

#include "masterdata/frmRegistraArticolo.h"
#include "masterdata/frmVariazioneArticolo.h"
#include "support/ConArchivio.h"

namespace bravona {
namespace {

class ArticoloSulloSchermo : public ConArchivio {
protected:
    ArticoloSulloSchermo() { form.show(); }

    std::string immagine(const char* nome, int larghezza, int altezza)
    {
        // The heading of a GIF: the scripted user reads no more of it.
        const auto due = [](int n) { return std::string{static_cast<char>(n % 256), static_cast<char>(n / 256)}; };
        const std::string testo = "GIF89a" + due(larghezza) + due(altezza) + std::string(3, '\0');
        std::string percorso = (cartella.path() / nome).string();
        files.replace(percorso, Bytes(testo.begin(), testo.end()));
        return percorso;
    }
    void scegli(const std::string& percorso)
    {
        utente.answerFile(percorso);
        utente.click(form.cmdImmagine);
    }

    frmRegistraArticolo& form = sessione.schermate().as<frmRegistraArticolo>("frmRegistraArticolo");
};

TEST_F(ArticoloSulloSchermo, ABarMovesThePictureAsFarAsItIsTooLargeAndTheNextOneStandsInItsCorner)
{
    form.SSTabSezioni.setTab(3);
    const int largo = form.picChild.boxWidth;
    const int alto = form.picChild.boxHeight;
    scegli(immagine("grande.gif", largo + 70, alto + 5));
    ASSERT_TRUE(form.hsbWidht.visible());
    EXPECT_EQ(form.hsbWidht.maximum(), 70);
    EXPECT_EQ(form.vsbHeight.maximum(), 5);
    utente.scroll(form.hsbWidht, 30);
    utente.scroll(form.vsbHeight, 5);
    EXPECT_EQ(form.picChild.x(), -30);
    EXPECT_EQ(form.picChild.y(), -5);

    scegli(immagine("altra.gif", largo + 70, alto + 5));
    EXPECT_EQ(form.picChild.x(), 0);
    EXPECT_EQ(form.picChild.y(), 0);

    utente.wheel(form.picChild, -3);
    EXPECT_EQ(form.picChild.y(), -3);
    EXPECT_EQ(form.picChild.x(), 0);

    utente.scroll(form.hsbWidht, 70);
    scegli(immagine("giusta.gif", largo, alto));
    EXPECT_FALSE(form.hsbWidht.visible());
    EXPECT_FALSE(form.vsbHeight.visible());
    EXPECT_EQ(form.picChild.x(), 0);
}

TEST_F(ArticoloSulloSchermo, AnArticleThatCannotBeReadAgainIsNotWritten)
{
    form.txtArticolo[0].setText("A1");
    form.txtArticolo[3].setText("Vite");
    utente.answer(MsgAnswer::no);
    utente.click(form.cmdArticolo[0]);
    auto& variazione = sessione.schermate().as<frmVariazioneArticolo>("frmVariazioneArticolo");
    variazione.show();
    utente.type(variazione.txtChiaveRicerca, "a1\n");
    ASSERT_EQ(variazione.txtArticolo[3].text(), "Vite");
    const std::size_t prima = utente.boxCount();
    // A table that has lost a column.
    sessione.cn.executeNative(
        "CREATE TABLE Resto AS SELECT IDArticolo, CodiceMagazzino, DescrizionePrincipale FROM Articoli");
    sessione.cn.executeNative("DROP TABLE Articoli");
    sessione.cn.executeNative("ALTER TABLE Resto RENAME TO Articoli");
    utente.type(variazione.txtArticolo[3], "Dado");
    utente.click(variazione.cmdAzioni[0]);
    EXPECT_NE(ultimoMessaggio().find("Nel modulo: clsArticolo\nNella routine: RileggiArticolo"), std::string::npos);
    EXPECT_EQ(utente.boxCount(), prima + 1);
    EXPECT_EQ(riga("SELECT DescrizionePrincipale FROM Articoli"), "Vite");
}

TEST_F(ArticoloSulloSchermo, APriceTakesOneCommaUnlessWhatIsSelectedHoldsIt)
{
    form.SSTabSezioni.setTab(1);
    TextBox& prezzo = form.txtEuro[0];
    utente.type(prezzo, "1,2,3");
    EXPECT_EQ(prezzo.text(), "1,23");
    utente.focus(form.txtEuro[1]);
    EXPECT_EQ(prezzo.text(), "1,23");
    utente.type(prezzo, ",5");  // over the whole text
    EXPECT_EQ(prezzo.text(), ",5");
    utente.focus(form.txtEuro[1]);
    EXPECT_EQ(prezzo.text(), "0,50");
    utente.paste("7,,8x");
    EXPECT_EQ(form.txtEuro[1].text(), "7,8");
}

}  // namespace
}  // namespace bravona
