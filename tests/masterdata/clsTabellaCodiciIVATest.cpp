#include "masterdata/clsTabellaCodiciIVA.h"

#include <gtest/gtest.h>

#include "support/ConArchivio.h"

namespace bravona {
namespace {

using TabellaIva = ConArchivio;

TEST_F(TabellaIva, LooksUpExactlyAndKnowsNothingElse)
{
    esegui("INSERT INTO TabellaCodiciIva (IDCodiceIva, CodiceIva, AliquotaIva, Descrizione) VALUES (7, 'A', 22.7, "
           "'Ordinaria')");
    const clsTabellaCodiciIVA tabella(sessione);
    EXPECT_EQ(tabella.GetCodiceAliquotaIvaFromID(7), "A");
    EXPECT_EQ(tabella.GetDescrizioneAliquotaIvaFromID(7), "Ordinaria");
    EXPECT_EQ(tabella.GetValoreAliquotaIvaFromID(7), 22);
    EXPECT_EQ(tabella.GetIDAliquotaIvaFromCodice("A"), 7);
    EXPECT_EQ(tabella.GetDescrizioneAliquotaIvaFromCodice("E"), "Esente");
    EXPECT_EQ(tabella.GetValoreAliquotaIvaFromCodice("A"), 22);
    EXPECT_EQ(tabella.GetIDAliquotaIvaFromCodice("a"), 0);
    EXPECT_EQ(tabella.GetDescrizioneAliquotaIvaFromCodice("a"), "");
    EXPECT_EQ(tabella.GetValoreAliquotaIvaFromCodice(""), 0);
    EXPECT_EQ(tabella.GetCodiceAliquotaIvaFromID(8), "");
    EXPECT_EQ(tabella.GetDescrizioneAliquotaIvaFromID(0), "");
    EXPECT_EQ(tabella.GetValoreAliquotaIvaFromID(-5), 0);
}

TEST_F(TabellaIva, AWriterThatFailsLeavesTheTableInMemoryAndThePointerAsTheyWere)
{
    clsTabellaCodiciIVA tabella(sessione);
    ASSERT_TRUE(tabella.AddCodiceIVA("B", Currency::fromTenThousandths(10'5000), "Ridotta").riferisci(utente));
    EXPECT_EQ(riga("SELECT AliquotaIva FROM TabellaCodiciIva WHERE CodiceIva='B'"), "10,5");
    EXPECT_EQ(tabella.GetValoreAliquotaIvaFromCodice("B"), 10);
    EXPECT_FALSE(tabella.AddCodiceIVA("B", Currency(), "Altra").riferisci(utente));
    EXPECT_FALSE(tabella.SetDescrizioneAliquotaIVA(tabella.GetIDAliquotaIvaFromCodice("B"), "").riferisci(utente));
    sessione.cn.setWriteHook([](const std::string&) { throw Errore(3035, "guasto"); });
    EXPECT_FALSE(tabella.SetDescrizioneAliquotaIVA(tabella.GetIDAliquotaIvaFromCodice("B"), "x").riferisci(utente));
    sessione.cn.setWriteHook({});
    EXPECT_NE(ultimoMessaggio().find("\nNel modulo: clsTabellaCodiciIVA\nRoutine: SetDescrizioneAliquotaIva"),
              std::string::npos);
    EXPECT_EQ(tabella.GetDescrizioneAliquotaIvaFromCodice("B"), "Ridotta");
    EXPECT_EQ(utente.pointer(), Pointer::normal);
}

}  // namespace
}  // namespace bravona
