#include "masterdata/clsArticolo.h"

#include <gtest/gtest.h>

#include <array>

#include "masterdata/modFunzioniComuni.h"
#include "support/ConArchivio.h"

namespace bravona {
namespace {

class Articolo : public ConArchivio {
protected:
    Articolo()
    {
        esegui("INSERT INTO TabellaCodiciIva (IDCodiceIva, CodiceIva, AliquotaIva, Descrizione) VALUES (10, 'A', 20, "
               "'Ordinaria')");
    }

    clsArticolo pieno()
    {
        clsArticolo articolo(sessione);
        articolo.CodiceMagazzino = "A1";
        articolo.CodiceFornitore = "F1";
        articolo.CodiceBarreFornitore = "800";
        articolo.DescrizionePrincipale = "Vite d'ottone";
        articolo.DescrizioneSecondariaUno = "lunga";
        articolo.DescrizioneSecondariaDue = "fragile";
        articolo.setUnitaMisura("Kg");
        articolo.IDCodiceIva = 10;
        articolo.QuantitaMinima = 2.5;
        articolo.DataPrimoCarico = "01/02/2003";
        articolo.DataUltimoCarico = "";
        articolo.DataUltimoScarico = "00/00/0000";
        articolo.CostoMedio = Currency::fromTenThousandths(12'3456);
        articolo.CostoUltimo = Currency::fromTenThousandths(1);
        articolo.Carico = 10;
        articolo.Scarico = 3;
        articolo.Giacenza = 7;
        articolo.CaricoValore = Currency::fromEuro(100);
        articolo.ScaricoValore = Currency::fromEuro(30);
        articolo.Immagine = "images/vite.jpg";
        return articolo;
    }

    static std::string tutti(const clsArticolo& a)
    {
        std::string testo;
        for (const std::string* membro :
             {&a.CodiceMagazzino, &a.CodiceFornitore, &a.CodiceBarreFornitore, &a.DescrizionePrincipale,
              &a.DescrizioneSecondariaUno, &a.DescrizioneSecondariaDue, &a.UnitaMisura(), &a.DataPrimoCarico,
              &a.DataUltimoCarico, &a.DataUltimoScarico, &a.Immagine}) {
            testo += *membro + "|";
        }
        for (const double numero : {a.QuantitaMinima, a.CostoMedio.toDouble(), a.CostoUltimo.toDouble(), a.Carico,
                                    a.Scarico, a.Giacenza, a.CaricoValore.toDouble(), a.ScaricoValore.toDouble()}) {
            testo += std::to_string(numero) + "|";
        }
        return testo + std::to_string(a.IDCodiceIva);
    }
};

TEST_F(Articolo, EveryMemberComesBackAndNoDateIsShownAsZeros)
{
    clsArticolo scritto = pieno();
    ASSERT_TRUE(scritto.RegistraArticolo().riferisci(utente));
    EXPECT_EQ(riga("SELECT DataUltimoCarico, DataUltimoScarico FROM Articoli"), "|");
    clsArticolo letto(sessione);
    ASSERT_TRUE(letto.RichiamaArticolo(scritto.IDArticolo).riferisci(utente));
    scritto.DataUltimoCarico = "00/00/0000";
    EXPECT_EQ(tutti(letto), tutti(scritto));
    EXPECT_EQ(letto.CodiceIva, "A");
    EXPECT_EQ(letto.AliquotaIva, 20);

    letto.DataUltimoScarico = "31/12/2003";
    letto.setUnitaMisura("   ");
    ASSERT_TRUE(letto.ModificaArticolo(letto.IDArticolo).riferisci(utente));
    clsArticolo riletto(sessione);
    ASSERT_TRUE(riletto.RichiamaArticolo(letto.IDArticolo).riferisci(utente));
    EXPECT_EQ(tutti(riletto), tutti(letto));
    EXPECT_EQ(riletto.UnitaMisura(), "Pz");
}

TEST_F(Articolo, WithoutItsVatCodeItIsNotFoundAndNothingIsSaid)
{
    clsArticolo articolo = pieno();
    articolo.IDCodiceIva = 99;
    ASSERT_TRUE(articolo.RegistraArticolo().riferisci(utente));
    EXPECT_FALSE(articolo.RichiamaArticolo(articolo.IDArticolo).riferisci(utente));
    EXPECT_EQ(utente.boxCount(), 0U);
}

TEST_F(Articolo, ACodeThereIsIsRefused)
{
    clsArticolo articolo = pieno();
    ASSERT_TRUE(articolo.RegistraArticolo().riferisci(utente));
    EXPECT_TRUE(EsisteCodiceArticolo(sessione, "a1", -1));
    EXPECT_FALSE(EsisteCodiceArticolo(sessione, "A1", articolo.IDArticolo));
    EXPECT_FALSE(EsisteCodiceArticolo(sessione, "A2", -1));
    EXPECT_FALSE(articolo.RegistraArticolo().riferisci(utente));
    EXPECT_EQ(ultimoMessaggio(),
              "Cliente: Attenzione! Il Codice Articolo inserito e' gia' presente in archivio.\nCambiare "
              "Codice Articolo per registrare il nuovo record");
    articolo.DataPrimoCarico = "31/02/2003";
    EXPECT_FALSE(articolo.ModificaArticolo(articolo.IDArticolo).riferisci(utente));
    EXPECT_NE(ultimoMessaggio().find("13 - "), std::string::npos);
    EXPECT_NE(ultimoMessaggio().find("Nel modulo: clsArticolo\nNella routine: ModificaArticolo"), std::string::npos);
}

TEST_F(Articolo, PricesAreRewrittenTenByTen)
{
    std::array<TextBox, numeroListini> txtEuro;
    txtEuro[0].setText("1.234,50");
    txtEuro[9].setText("0,0001");
    esegui("INSERT INTO ListiniPrezzi (IDArticolo, IDListino, Prezzo) VALUES (7, 11, 5)");
    ASSERT_TRUE(RegistraPrezziArticolo(sessione, 7, txtEuro, std::array<std::string, numeroListini>()));
    EXPECT_EQ(txtEuro[1].text(), "0,00");
    EXPECT_EQ(riga("SELECT COUNT(*), MAX(IDListino), SUM(Prezzo) FROM ListiniPrezzi WHERE IDArticolo=7"),
              "10|10|1234,5001");
    EXPECT_EQ(PrezzoArticolo(sessione, 7, 1), "1.234,50");
    EXPECT_EQ(PrezzoArticolo(sessione, 7, 11), "0,00");

    esegui("INSERT INTO ListiniPrezzi (IDArticolo, IDListino, Prezzo) VALUES (7, 11, 5)");
    std::array<TextBox, numeroListini> letti;
    CaricaPrezziArticolo(sessione, 7, letti);
    EXPECT_EQ(letti[0].text(), "1.234,50");
    EXPECT_EQ(letti[1].text(), "0,00");
    EXPECT_EQ(letti[9].text(), "0,00");
}

TEST_F(Articolo, APriceNobodyTypedIntoStaysAsTheArchiveHasIt)
{
    esegui("INSERT INTO ListiniPrezzi (IDArticolo, IDListino, Prezzo) VALUES (7, 1, 12.3456)");
    esegui("INSERT INTO ListiniPrezzi (IDArticolo, IDListino, Prezzo) VALUES (7, 2, 10)");
    std::array<TextBox, numeroListini> txtEuro;
    CaricaPrezziArticolo(sessione, 7, txtEuro);
    std::array<std::string, numeroListini> mostrati;
    for (std::size_t i = 0; i < numeroListini; ++i) {
        mostrati.at(i) = txtEuro.at(i).text();
    }
    txtEuro[2].setText("7,50");
    esegui("UPDATE ListiniPrezzi SET Prezzo = 11 WHERE IDListino = 2");
    ASSERT_TRUE(RegistraPrezziArticolo(sessione, 7, txtEuro, mostrati));
    EXPECT_EQ(riga("SELECT COUNT(*), SUM(Prezzo) FROM ListiniPrezzi WHERE IDArticolo=7"), "10|30,8456");
    EXPECT_EQ(riga("SELECT Prezzo FROM ListiniPrezzi WHERE IDArticolo=7 AND IDListino=1"), "12,3456");
}

TEST_F(Articolo, APriceThatIsNoAmountIsTold)
{
    std::array<TextBox, numeroListini> txtEuro;
    txtEuro[2].setText("caro");
    EXPECT_FALSE(RegistraPrezziArticolo(sessione, 7, txtEuro, std::array<std::string, numeroListini>()));
    EXPECT_NE(ultimoMessaggio().find("\nModulo: modFunzioniComuni\nRoutine: RegistraPrezziArticolo"),
              std::string::npos);

    TextBox txtPrezzo;
    txtPrezzo.setText("5,00");
    sessione.cn.executeNative("DROP TABLE ListiniPrezzi");
    RichiamaPrezzoArticolo(sessione, 7, 1, txtPrezzo);
    EXPECT_NE(ultimoMessaggio().find("\nRoutine: RichiamaPrezzoArticolo\nModulo: modFunzioniComuni"),
              std::string::npos);
    EXPECT_EQ(txtPrezzo.text(), "5,00");
}

TEST_F(Articolo, CombosOfaRow)
{
    ComboBox iva;
    CaricaComboIva(sessione, iva);
    ASSERT_EQ(iva.items().size(), 2U);
    EXPECT_EQ(iva.items()[0].text, "E - 0%");
    EXPECT_EQ(iva.items()[1].text, "A - 20%");
    EXPECT_EQ(iva.items()[1].data, 10);
    ComboBox unita(true);
    CaricaUnitaMisura(unita);
    std::string sigle;
    for (const ListItem& voce : unita.items()) {
        sigle += voce.text + std::to_string(voce.data) + " ";
    }
    EXPECT_EQ(sigle, "Pz1 Nr2 Mt3 Cm4 Mm5 Kg6 Gr7 Sa8 ");
}

}  // namespace
}  // namespace bravona
