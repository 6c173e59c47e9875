#include "masterdata/clsComuni.h"

#include <gtest/gtest.h>

#include "support/ConArchivio.h"

namespace bravona {
namespace {

using Comuni = ConArchivio;

clsComuni comune(Sessione& sessione, const char* nome, const char* provincia, const char* cap)
{
    clsComuni fatto(sessione);
    fatto.Comune = nome;
    fatto.Provincia = provincia;
    fatto.Cap = cap;
    return fatto;
}

TEST_F(Comuni, ARowComesBackAsItWasStoredAndChanged)
{
    clsComuni scritto = comune(sessione, "L'Aquila", "AQ", "67100");
    ASSERT_TRUE(scritto.RegistraComune().riferisci(utente));
    EXPECT_EQ(scritto.IDCodiceComune, 1);
    scritto.Cap = "67101";
    ASSERT_TRUE(scritto.ModificaComune(1).riferisci(utente));
    clsComuni letto(sessione);
    ASSERT_TRUE(letto.RichiamaComune(1).riferisci(utente));
    EXPECT_EQ(letto.Comune + letto.Provincia + letto.Cap, "L'AquilaAQ67101");
    ASSERT_TRUE(letto.EliminaComune(1).riferisci(utente));
    EXPECT_EQ(riga("SELECT COUNT(*) FROM Comuni"), "0");
    EXPECT_EQ(utente.boxCount(), 0U);
}

TEST_F(Comuni, WhatTheArchiveRefusesIsTold)
{
    ASSERT_TRUE(comune(sessione, "Torino", "TO", "10100").RegistraComune().riferisci(utente));
    EXPECT_FALSE(comune(sessione, "TORINO", "to", "10100").RegistraComune().riferisci(utente));
    EXPECT_EQ(ultimoMessaggio(), "Tabella Comuni: Impossibile registrare il comune in quanto è gia presente un comune "
                                 "con la stessa denominazione");
    EXPECT_FALSE(comune(sessione, "", "TO", "10100").RegistraComune().riferisci(utente));
    EXPECT_EQ(ultimoMessaggio(), "Tabella Comuni: Inserire almeno la denominazione del comune!");
    EXPECT_TRUE(comune(sessione, "Torino", "TO", "10121").RegistraComune().riferisci(utente));
}

TEST_F(Comuni, ARowThatIsGoneIsReportedByEachRoutine)
{
    clsComuni assente(sessione);
    EXPECT_FALSE(assente.RichiamaComune(5).riferisci(utente));
    EXPECT_TRUE(ultimoMessaggio().ends_with("\nNel modulo: clsComuni\nNella routine: RichiamaComune"));
    EXPECT_FALSE(assente.ModificaComune(5).riferisci(utente));
    EXPECT_TRUE(ultimoMessaggio().ends_with("\nNel modulo: clsComuni\nNella routine: ModificaComune"));
}

}  // namespace
}  // namespace bravona
