#include <gtest/gtest.h>

#include <set>

#include "platform/values/Errore.h"
#include "schema/Schema.h"
#include "support/ArchivioTemporaneo.h"
#include "support/Fallimento.h"

namespace bravona {
namespace {

using Righe = std::vector<std::string>;

struct Rifiuto {
    std::string_view istruzione;
    std::uint32_t numero;
};

TEST(Schema, LeRegoleDelleTabelleRifiutanoColLoroNumero)
{
    ArchivioTemporaneo archivio;
    for (const char* istruzione :
         {"INSERT INTO TabellaCodiciIva (IDCodiceIva, CodiceIva, Descrizione) VALUES (10, 'A', 'Ordinaria')",
          "INSERT INTO TabellaCodiciIva (IDCodiceIva, CodiceIva, Descrizione) VALUES (11, 'B', 'Ridotta')",
          "INSERT INTO TabellaCodiciIva (IDCodiceIva, CodiceIva, Descrizione) VALUES (12, 'C', 'Minima')",
          "INSERT INTO TabellaCodiciIva (IDCodiceIva, CodiceIva, Descrizione) VALUES (13, 'D', 'Speciale')",
          "INSERT INTO TabellaCodiciIva (IDCodiceIva, CodiceIva, Descrizione) VALUES (14, 'F', 'Libera')",
          "INSERT INTO Articoli (CodiceMagazzino, IDCodiceIva) VALUES ('A1', 10)",
          "INSERT INTO Articoli (CodiceMagazzino) VALUES ('A2')",
          "INSERT INTO Fatture_Dettagli (IDFattura, IDCodiceIva) VALUES (1, 11)",
          "INSERT INTO Bolle_Dettagli (IDBolla, IDCodiceIva) VALUES (1, 12)",
          "INSERT INTO Proforma_Dettagli (IDFattura, IDCodiceIva) VALUES (1, 13)",
          "INSERT INTO Clienti (Cliente) VALUES ('Rossi')",
          "INSERT INTO Comuni (Comune, Provincia, Cap) VALUES ('Torino', 'TO', '10121')",
          "INSERT INTO Comuni (Comune, Provincia, Cap) VALUES ('Torino', 'TO', '10122')"}) {
        archivio.cn.execute(istruzione);
    }
    const Rifiuto casi[] = {
        {"INSERT INTO TabellaCodiciIva (CodiceIva, Descrizione) VALUES ('a', 'Doppia')", 3022},
        {"INSERT INTO TabellaCodiciIva (CodiceIva, Descrizione) VALUES ('Z', '')", 3315},
        {"INSERT INTO TabellaCodiciIva (CodiceIva) VALUES ('Z')", 3315},
        {"UPDATE TabellaCodiciIva SET Descrizione = '' WHERE IDCodiceIva = 10", 3315},
        {"DELETE * FROM TabellaCodiciIva WHERE IDCodiceIva = 10", 3200},
        {"DELETE * FROM TabellaCodiciIva WHERE IDCodiceIva = 11", 3200},
        {"DELETE * FROM TabellaCodiciIva WHERE IDCodiceIva = 12", 3200},
        {"DELETE * FROM TabellaCodiciIva WHERE IDCodiceIva = 13", 3200},
        {"DELETE * FROM TabellaCodiciIva WHERE IDCodiceIva = 14", 0},
        {"INSERT INTO Clienti (Cliente, Indirizzo) VALUES ('ROSSI', 'altrove')", 3022},
        {"INSERT INTO Clienti (Cliente) VALUES ('')", 3315},
        {"INSERT INTO Clienti (Indirizzo) VALUES ('Via Po')", 3315},
        {"INSERT INTO Clienti (IDCliente) VALUES (-1)", 0},
        {"UPDATE Articoli SET CodiceMagazzino = 'a1' WHERE CodiceMagazzino = 'A2'", 3022},
        {"INSERT INTO Comuni (Comune, Provincia, Cap) VALUES ('TORINO', 'to', '10121')", 3022},
        {"INSERT INTO Comuni (Comune, Provincia) VALUES ('', 'TO')", 3315},
        {"INSERT INTO DescrizioneListini (IDListino, Descrizione) VALUES (1, 'Doppio')", 3022},
        {"INSERT INTO TabellaRegistri (CodiceRegistro) VALUES (1)", 3022},
    };
    for (const Rifiuto& caso : casi) {
        EXPECT_EQ(numeroDelFallimento([&] { return archivio.cn.execute(caso.istruzione); }), caso.numero)
            << caso.istruzione;
    }
    EXPECT_EQ(archivio.valore("SELECT COUNT(*) FROM TabellaCodiciIva"), "5");
}

TEST(Schema, ConLaTestataVannoLeSueRigheESoloLeSueScadenze)
{
    ArchivioTemporaneo archivio;
    for (const std::string chiave : {"1", "-1"}) {
        archivio.cn.execute("INSERT INTO Fatture (IDFattura) VALUES (" + chiave + ")");
        archivio.cn.execute("INSERT INTO Fatture_Dettagli (IDFattura) VALUES (" + chiave + ")");
        archivio.cn.execute("INSERT INTO Scadenzario (IDDocumento, Descrizione) VALUES (" + chiave + ", 's" + chiave +
                            "')");
    }
    archivio.cn.execute("INSERT INTO Fatture_RiferimentoBolle (IDFattura, IDBolla) VALUES (1, 1)");
    archivio.cn.execute("INSERT INTO Bolle (IDBolla) VALUES (1)");
    archivio.cn.execute("INSERT INTO Bolle_Dettagli (IDBolla) VALUES (1)");
    archivio.cn.execute("INSERT INTO Proforma (IDFattura) VALUES (1)");
    archivio.cn.execute("INSERT INTO Proforma_Dettagli (IDFattura) VALUES (1)");
    archivio.cn.execute("INSERT INTO MovimentiMagazzino (IDMovimenti) VALUES (1)");
    archivio.cn.execute("INSERT INTO MovimentiMagazzino_Dettagli (IDMovimenti) VALUES (1)");
    const auto quante = [&](const std::string& tabella) { return archivio.valore("SELECT COUNT(*) FROM " + tabella); };

    archivio.cn.execute("DELETE * FROM Bolle WHERE IDBolla=1");
    archivio.cn.execute("DELETE * FROM Proforma WHERE IDFattura=1");
    archivio.cn.execute("DELETE * FROM MovimentiMagazzino WHERE IDMovimenti=1");
    EXPECT_EQ(quante("Bolle_Dettagli") + quante("Proforma_Dettagli") + quante("MovimentiMagazzino_Dettagli"), "000");
    EXPECT_EQ(quante("Fatture_Dettagli"), "2");
    EXPECT_EQ(quante("Scadenzario"), "2");

    EXPECT_EQ(archivio.cn.execute("DELETE * FROM Fatture WHERE IDFattura=1"), 1);
    EXPECT_EQ(quante("Fatture_Dettagli"), "1");
    EXPECT_EQ(archivio.righe("SELECT Descrizione FROM Scadenzario"), Righe{"s-1"});
    EXPECT_EQ(quante("Fatture_RiferimentoBolle"), "1") << "the links are the program's own affair";
    archivio.cn.execute("DELETE * FROM Fatture WHERE IDFattura=-1");
    EXPECT_EQ(quante("Scadenzario"), "1") << "a free instalment stays";
}

TEST(Schema, LeChiaviDeiPreventiviNonIncontranoQuelleDelleFatture)
{
    constexpr const char* prima = "1000000001";
    ArchivioTemporaneo archivio;
    archivio.cn.execute("INSERT INTO Proforma (NumeroDocumento) VALUES (1)");
    EXPECT_EQ(archivio.valore("SELECT IDFattura FROM Proforma"), prima);
    archivio.cn.execute("DELETE * FROM Proforma");
    completaSchema(archivio.cn);
    archivio.cn.execute("INSERT INTO Proforma (NumeroDocumento) VALUES (2)");
    EXPECT_EQ(archivio.valore("SELECT IDFattura FROM Proforma"), "1000000002") << "no key is given twice";

    // An archive from before, with quotations and without.
    for (const char* vecchio : {"UPDATE sqlite_sequence SET seq = 4 WHERE name = 'Proforma'",
                                "DELETE FROM sqlite_sequence WHERE name = 'Proforma'"}) {
        archivio.cn.execute("DELETE * FROM Proforma");
        archivio.cn.executeNative(vecchio);
        int scritture = 0;
        archivio.cn.setWriteHook([&](const std::string&) { ++scritture; });
        completaSchema(archivio.cn);
        EXPECT_EQ(scritture, 1);
        completaSchema(archivio.cn);
        EXPECT_EQ(scritture, 1) << "an archive is not written to at each opening";
        archivio.cn.setWriteHook({});
        archivio.cn.execute("INSERT INTO Proforma (NumeroDocumento) VALUES (3)");
        EXPECT_EQ(archivio.valore("SELECT IDFattura FROM Proforma"), prima);
    }
}

TEST(Schema, LArchivioMinimoHaSoltantoLeSueRighe)
{
    ArchivioTemporaneo archivio;
    EXPECT_EQ(archivio.righe("SELECT Versione FROM VersioneDB"), Righe{"3"});
    EXPECT_EQ(archivio.righe("SELECT * FROM DatiAzienda"),
              Righe{"Null|Null|Null|Null|Null|Null|Null|Null|Null|D|Null"});
    EXPECT_EQ(archivio.righe("SELECT * FROM TabellaRegistri"), (Righe{"1|Principale", "2|Secondo"}));
    EXPECT_EQ(archivio.righe("SELECT * FROM TabellaCodiciIva"), Righe{"1|E|0.0000|Esente"});
    EXPECT_EQ(archivio.valore("SELECT COUNT(*) FROM DescrizioneListini WHERE Descrizione LIKE 'Listino *'"), "10");
    for (const char* tabella :
         {"Archivi", "Clienti", "Comuni", "Articoli", "ModalitaPagamento", "Fatture", "BancheDitta"}) {
        EXPECT_EQ(archivio.valore(std::string("SELECT COUNT(*) FROM ") + tabella), "0") << tabella;
    }
    archivio.cn.execute("INSERT INTO TabellaCodiciIva (CodiceIva, Descrizione) VALUES ('A', 'x')");
    EXPECT_EQ(archivio.valore("SELECT MAX(IDCodiceIva) FROM TabellaCodiciIva"), "2");
}

TEST(Schema, LArchivioConsegnatoBastaPerCominciare)
{
    CartellaTemporanea cartella;
    Connection cn;
    cn.create(cartella.file("consegna.mdb"), passwordArchivio);
    creaSchema(cn);
    semiConsegna(cn);
    EXPECT_EQ(cn.open("SELECT Versione FROM VersioneDB")[0].asLong(), 3);
    EXPECT_EQ(cn.open("SELECT * FROM DatiAzienda").recordCount(), 1U);
    EXPECT_GE(cn.open("SELECT * FROM DescrizioneListini").recordCount(), 10U);
    Recordset iva = cn.open("SELECT * FROM TabellaCodiciIva ORDER BY IDCodiceIva");
    EXPECT_EQ(iva["CodiceIva"].text() + " - " + iva["AliquotaIva"].text() + "%", "E - 0%");
    std::set<std::string> iniziali;
    std::set<std::int32_t> aliquote;
    for (; !iva.eof(); iva.moveNext()) {
        const std::string codice = iva["CodiceIva"].text();
        EXPECT_EQ(codice.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ"), std::string::npos);
        EXPECT_TRUE(iniziali.insert(codice.substr(0, 1)).second) << "a grid shows the first letter alone";
        aliquote.insert(iva["AliquotaIva"].asLong());
    }
    EXPECT_EQ(aliquote, (std::set<std::int32_t>{0, 4, 5, 10, 22}));
    EXPECT_GT(cn.open("SELECT * FROM ModalitaPagamento WHERE [GG-6] = 180").recordCount(), 0U);
    EXPECT_EQ(cn.open("SELECT Cap FROM Comuni WHERE Comune = 'forlì'")[0].text(), "47121");
    EXPECT_EQ(cn.open("SELECT * FROM Comuni").recordCount(), 111U);
    EXPECT_EQ(cn.open("SELECT * FROM Archivi").recordCount(), 0U);
}

}  // namespace
}  // namespace bravona
