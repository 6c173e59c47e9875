#include "masterdata/clsCliente.h"

#include <gtest/gtest.h>

#include "masterdata/modDestinazioni.h"
#include "masterdata/modPagamenti.h"
#include "support/ConArchivio.h"

namespace bravona {
namespace {

using Cliente = ConArchivio;

clsCliente pieno(Sessione& sessione)
{
    clsCliente cliente(sessione);
    cliente.Cliente = "L'Edera";
    cliente.ClienteSecondaRiga = "di Bianchi";
    cliente.Indirizzo = "Via Po 1";
    cliente.Citta = "Torino";
    cliente.Provincia = "TO";
    cliente.Cap = "10100";
    cliente.Telefono = "011";
    cliente.TelefonoCellulare = "333";
    cliente.Fax = "012";
    cliente.PostaElettronica = "a@b.it";
    cliente.PartitaIva = "01234567890";
    cliente.CodiceFiscale = "BNC";
    cliente.Banca = "Cassa";
    cliente.Tipo = "C";
    cliente.ABI = "1";
    cliente.CAB = "2";
    cliente.IDpagamento = 5;
    cliente.IDListino = 3;
    cliente.ScontoMaggiorazione1 = 10;
    cliente.ScontoMaggiorazione2 = 5;
    cliente.ScontoMaggiorazione3 = 2;
    cliente.Stato = "Italia";
    cliente.DescrizioneEsenzioneIVA = "Esente";
    cliente.EstremiEsenzioneIVA = "n. 7";
    cliente.EsenteIva = true;
    cliente.NoteGeneriche = "Citofonare";
    cliente.VisualizzaNoteSuDocumenti = true;
    return cliente;
}

std::string tutti(const clsCliente& c)
{
    std::string testo;
    for (const std::string* membro : {&c.Cliente,
                                      &c.ClienteSecondaRiga,
                                      &c.Indirizzo,
                                      &c.Citta,
                                      &c.Provincia,
                                      &c.Cap,
                                      &c.Telefono,
                                      &c.TelefonoCellulare,
                                      &c.Fax,
                                      &c.PostaElettronica,
                                      &c.PartitaIva,
                                      &c.CodiceFiscale,
                                      &c.Banca,
                                      &c.Tipo,
                                      &c.ABI,
                                      &c.CAB,
                                      &c.Stato,
                                      &c.DescrizioneEsenzioneIVA,
                                      &c.EstremiEsenzioneIVA,
                                      &c.NoteGeneriche}) {
        testo += *membro + "|";
    }
    for (const std::int32_t numero :
         {c.IDpagamento, c.IDListino, c.ScontoMaggiorazione1, c.ScontoMaggiorazione2, c.ScontoMaggiorazione3,
          std::int32_t{c.EsenteIva}, std::int32_t{c.VisualizzaNoteSuDocumenti}}) {
        testo += std::to_string(numero) + "|";
    }
    return testo;
}

TEST_F(Cliente, EveryMemberComesBackAsItWasStored)
{
    clsCliente scritto = pieno(sessione);
    ASSERT_TRUE(scritto.RegistraCliente().riferisci(utente));
    EXPECT_EQ(scritto.IDCliente, 1);
    clsCliente letto(sessione);
    ASSERT_TRUE(letto.RichiamaCliente(1).riferisci(utente));
    EXPECT_EQ(tutti(letto), tutti(scritto));

    letto.Cap = "10121";
    letto.EsenteIva = false;
    ASSERT_TRUE(letto.ModificaCliente(1).riferisci(utente));
    clsCliente riletto(sessione);
    ASSERT_TRUE(riletto.RichiamaCliente(1).riferisci(utente));
    EXPECT_EQ(tutti(riletto), tutti(letto));
}

TEST_F(Cliente, NullsAreReadAsNothing)
{
    esegui("INSERT INTO Clienti (IDCliente, Cliente) VALUES (9, 'Solo')");
    esegui("UPDATE Clienti SET IDpagamento = Null, IDListino = Null, ScontoMaggiorazione1 = Null WHERE IDCliente = 9");
    clsCliente letto(sessione);
    ASSERT_TRUE(letto.RichiamaCliente(9).riferisci(utente));
    EXPECT_EQ(tutti(letto), "Solo||||||||||||||||||||0|0|0|0|0|0|0|");
}

TEST_F(Cliente, APartyOfWhichAnythingCannotBeReadIsNotReadAtAll)
{
    ASSERT_TRUE(pieno(sessione).RegistraCliente().riferisci(utente));
    clsCliente letto(sessione);
    ASSERT_TRUE(letto.RichiamaCliente(1).riferisci(utente));
    esegui("INSERT INTO Clienti (IDCliente, Cliente) VALUES (9, 'Mezzo')");
    sessione.cn.executeNative("UPDATE Clienti SET ScontoMaggiorazione3 = 'rotto' WHERE IDCliente = 9");
    EXPECT_FALSE(letto.RichiamaCliente(9).riferisci(utente));
    EXPECT_NE(ultimoMessaggio().find("Nella routine: RichiamaCliente"), std::string::npos);
    EXPECT_EQ(tutti(letto), tutti(pieno(sessione)));
}

TEST_F(Cliente, ThePriceListOfAnotherPartyKeepsNoName)
{
    clsCliente scritto = pieno(sessione);
    ASSERT_TRUE(scritto.RegistraCliente().riferisci(utente));
    clsCliente letto(sessione);
    letto.Listino = "Listino 2";
    ASSERT_TRUE(letto.RichiamaCliente(1).riferisci(utente));
    EXPECT_EQ(letto.Listino, "");
}

TEST_F(Cliente, RefusalsOfTheStoreAreToldInItsOwnWords)
{
    clsCliente cliente = pieno(sessione);
    ASSERT_TRUE(cliente.RegistraCliente().riferisci(utente));
    EXPECT_FALSE(cliente.RegistraCliente().riferisci(utente));
    EXPECT_EQ(ultimoMessaggio(), "Anagrafica Clienti: Impossibile registrare il cliente in quanto è gia presente un "
                                 "cliente con la stessa denominazione");
    cliente.Cliente.clear();
    EXPECT_FALSE(cliente.RegistraCliente().riferisci(utente));
    EXPECT_EQ(ultimoMessaggio(), "Anagrafica Clienti: Inserire almeno la denominazione del cliente!");
    // A change is refused through the general message.
    EXPECT_FALSE(cliente.ModificaCliente(1).riferisci(utente));
    EXPECT_EQ(ultimoMessaggio().find("Errore - Bravona: Si e' verificato il seguente errore: \n3315 - "), 0U);
    EXPECT_NE(ultimoMessaggio().find("\nNel modulo: clsCliente\nNella routine: ModificaCliente"), std::string::npos);
    EXPECT_FALSE(cliente.RichiamaCliente(77).riferisci(utente));
    EXPECT_NE(ultimoMessaggio().find("3021 - "), std::string::npos);
    EXPECT_EQ(riga("SELECT COUNT(*) FROM Clienti"), "1");
}

TEST_F(Cliente, DestinationsAndPaymentsAreNamed)
{
    esegui("INSERT INTO DestinazioneMerceClienti (IDDestinazione, IDCliente, Destinazione) VALUES (4, 1, 'Magazzino')");
    esegui("INSERT INTO DestinazioneMerceClienti (IDDestinazione, IDCliente, Destinazione) VALUES (5, 1, 'Cantiere')");
    esegui("INSERT INTO Fatture (NumeroDocumento, IDDestinazione) VALUES (1, 4)");
    esegui("INSERT INTO Bolle (NumeroDocumento, IDDestinazione) VALUES (1, 5)");
    EXPECT_EQ(RilevaDestinazioneMerce(sessione, 0), "IDEM");
    EXPECT_EQ(RilevaDestinazioneMerce(sessione, 4), "Magazzino");
    EXPECT_EQ(RilevaDestinazioneMerce(sessione, 44), "");
    EXPECT_TRUE(DestinazioneMerceUtilizzata(sessione, 4));
    EXPECT_FALSE(DestinazioneMerceUtilizzata(sessione, 5)) << "transport documents are not asked";

    esegui("INSERT INTO ModalitaPagamento (IDmodalitaPagamento, ModalitaPagamento) VALUES (8, 'Bonifico')");
    esegui("INSERT INTO ModalitaPagamento (IDmodalitaPagamento, ModalitaPagamento) VALUES (3, 'Contanti')");
    EXPECT_EQ(DescrizioneModalitaPagamento(sessione, 0), "");
    EXPECT_EQ(DescrizioneModalitaPagamento(sessione, 8), "Bonifico");
    EXPECT_EQ(DescrizioneModalitaPagamento(sessione, 9), "");
    EXPECT_EQ(NomePagamento(sessione, 3), "Contanti");
    EXPECT_EQ(NomePagamento(sessione, 9), "");
    ListBox lista;
    CaricaListaPagamenti(sessione, lista);
    ASSERT_EQ(lista.items().size(), 2U);
    EXPECT_EQ(lista.items()[0].text, "Contanti");
    EXPECT_EQ(lista.items()[0].data, 3);
}

}  // namespace
}  // namespace bravona
