#include <gtest/gtest.h>

#include "platform/store/ConnectionImpl.h"
#include "platform/values/Errore.h"
#include "support/ArchivioTemporaneo.h"
#include "support/Fallimento.h"

namespace bravona {
namespace {

using Righe = std::vector<std::string>;

struct Rifiuto {
    std::string_view istruzione;
    std::uint32_t numero;
    std::string_view dove;  // part of the description
};

TEST(Traduttore, CioCheNonCapisceEUnErroreCheDiceDove)
{
    ArchivioTemporaneo archivio;
    const Rifiuto casi[] = {
        {"SELECT * FROM Clienti; SELECT 1", 3075, "carattere 24"},
        {"SELECT * FROM Clienti WHERE Cliente = 'D'Angelo'", 3075, "carattere 48"},
        {"SELECT * FROM Clienti WHERE Cliente = 'Rossi", 3075, "carattere 39"},
        {"SELECT * FROM Clienti WHERE", 3075, "alla fine"},
        {"SELECT * FROM Clienti WHERE IDCliente = 1,5", 3075, "carattere 42"},
        {"SELECT * FROM Clienti WHERE IDCliente = 12abc", 3075, "carattere 41"},
        {"SELECT * FROM Clienti ORDER BY 1", 3075, "carattere 32"},
        {"SELECT * FROM Clienti WHERE Città = 'è'", 3061, "carattere 29"},
        {"SELECT 'èèè', Ignota FROM Clienti", 3061, "carattere 15"},
        {"SELECT * FROM Ignota", 3078, "carattere 15"},
        {"SELECT Clienti.Ignota FROM Clienti", 3061, "carattere 8"},
        {"SELECT Ignota.* FROM Clienti", 3078, "carattere 8"},
        {"SELECT Citta FROM Clienti INNER JOIN DestinazioneMerceClienti ON Clienti.IDCliente = "
         "DestinazioneMerceClienti.IDCliente",
         3079, "carattere 8"},
        {"SELECT Magia(Cliente) FROM Clienti", 3075, "carattere 8"},
        {"SELECT * FROM Clienti WHERE IDCliente IN (SELECT IDCliente FROM Fatture)", 3075, "carattere 43"},
        {"SELECT DataDocumento + 1 FROM Fatture", 3464, "carattere 22"},
        {"SELECT * FROM Clienti WHERE Cliente > 5", 3464, "carattere 39"},
        {"SELECT * FROM Clienti WHERE IDCliente = Cliente", 3464, "carattere 39"},
        {"UPDATE Clienti SET Ignota = 1", 3061, "carattere 20"},
        {"UPDATE Articoli SET CostoMedio = #01/01/2004#", 3464, "carattere 34"},
        {"INSERT INTO Clienti (Cliente, Citta) VALUES ('x')", 3346, "carattere 13"},
        {"INSERT INTO Clienti (Cliente) VALUES (Citta)", 3061, "carattere 39"},
        {"SELECT Cliente FROM Clienti WHERE Max(IDCliente) = 1", 3075, "carattere 35"},
        {"SELECT Max(Sum(IDCliente)) FROM Clienti", 3075, "carattere 12"},
        {"SELECT Cliente FROM Clienti HAVING Cliente = 'x'", 3075, "carattere 29"},
        {"SELECT * FROM Clienti [a\tb]", 3075, "carattere 23"},
        {"DROP TABLE Clienti", 3075, "carattere 1"},
        {"SELECT * FROM Clienti -- commento", 3075, "carattere 23"},
        {"", 3075, "carattere 1"},
    };
    for (const Rifiuto& caso : casi) {
        SCOPED_TRACE(caso.istruzione);
        try {
            archivio.cn.translated(caso.istruzione);
            ADD_FAILURE() << "understood";
        } catch (const Errore& e) {
            EXPECT_EQ(e.numero(), caso.numero);
            EXPECT_NE(e.descrizione().find(caso.dove), std::string::npos) << e.descrizione();
        }
    }
}

// The engine's own parser goes only so deep; newer ones go deeper.
TEST(Traduttore, UnaFilaDiSegniSiCalcolaOSiRifiutaPerLaSuaProfondita)
{
    ArchivioTemporaneo archivio;
    archivio.cn.execute("INSERT INTO Archivi (AnnoArchivio) VALUES (2004)");
    for (const int segni : {10, 50}) {
        try {
            EXPECT_EQ(archivio.valore("SELECT " + std::string(static_cast<std::size_t>(segni), '-') +
                                      "AnnoArchivio FROM Archivi WHERE AnnoArchivio = 2004"),
                      "2004");
        } catch (const Errore& e) {
            EXPECT_EQ(e.numero(), 3360U) << e.descrizione();
            EXPECT_EQ(segni, 50);
        }
    }
}

TEST(Traduttore, UnaDataScrittaDentroUnaFormaNotaSiControllaOgniVolta)
{
    ArchivioTemporaneo archivio;
    EXPECT_EQ(archivio.righe("SELECT IDArticolo FROM Articoli WHERE DataPrimoCarico = #01/02/2004#"), Righe{});
    EXPECT_EQ(numeroDelFallimento([&] {
                  return archivio.righe("SELECT IDArticolo FROM Articoli WHERE DataPrimoCarico = #31/02/2004#");
              }),
              3075U);
}

struct Calcolo {
    std::string_view prezzo;
    std::string_view espressione;
    std::string_view atteso;
};

TEST(Traduttore, GliImportiSiCalcolanoEsattamente)
{
    ArchivioTemporaneo archivio;
    const Calcolo casi[] = {
        {"100", "Prezzo + (Prezzo/100) * 10", "110.0000"},
        {"0.0333", "Prezzo + (Prezzo/100) * 10", "0.0366"},
        {"0.0005", "Prezzo/2", "0.0002"},  // a half, to the even one
        {"0.0015", "Prezzo/2", "0.0008"},
        {"-0.0005", "Prezzo/2", "-0.0002"},
        {"10", "Prezzo/3*3", "10.0000"},
        {"0.1", "Prezzo*3 - 0.3", "0.0000"},
        {"922337203685477.5807", "Prezzo - 0.0001", "922337203685477.5806"},
        {"90071992547409.9312", "Prezzo + 0.0001", "90071992547409.9313"},
        {"1.1", "Prezzo*IDListino", "1.1000"},
        {"7", "-Prezzo", "-7.0000"},
        {"2.5", "Prezzo*Prezzo", "6.2500"},
    };
    for (const Calcolo& caso : casi) {
        SCOPED_TRACE(caso.espressione);
        archivio.cn.execute("DELETE * FROM ListiniPrezzi");
        archivio.cn.execute("INSERT INTO ListiniPrezzi (IDListino, Prezzo) VALUES (1, " + std::string(caso.prezzo) +
                            ")");
        archivio.cn.execute("UPDATE ListiniPrezzi SET Prezzo = " + std::string(caso.espressione));
        EXPECT_EQ(archivio.valore("SELECT Prezzo FROM ListiniPrezzi"), caso.atteso);
    }
    archivio.cn.execute("UPDATE ListiniPrezzi SET Prezzo = 922337203685477.5807");
    EXPECT_EQ(
        numeroDelFallimento([&] { return archivio.cn.execute("UPDATE ListiniPrezzi SET Prezzo = Prezzo + Prezzo"); }),
        6U);
    EXPECT_EQ(numeroDelFallimento([&] { return archivio.cn.execute("UPDATE ListiniPrezzi SET Prezzo = Prezzo / 0"); }),
              11U);
}

TEST(Traduttore, GliImportiSiConfrontanoEsattamente)
{
    ArchivioTemporaneo archivio;
    archivio.cn.execute("INSERT INTO ListiniPrezzi (IDListino, Prezzo) VALUES (1, 12.3456)");
    for (const auto& [condizione, vale] :
         {std::pair{"Prezzo > 12.34555", true}, {"Prezzo > 12.34565", false}, {"Prezzo*2 = 24.6912", true}}) {
        EXPECT_EQ(archivio.righe(std::string("SELECT IDListino FROM ListiniPrezzi WHERE ") + condizione).size(),
                  vale ? 1U : 0U)
            << condizione;
    }
}

TEST(Traduttore, UnRialzoEUnRibassoNonRidannoIlPrezzo)
{
    ArchivioTemporaneo archivio;
    archivio.cn.execute("INSERT INTO ListiniPrezzi (IDArticolo, IDListino, Prezzo) VALUES (1, 1, 12.3456)");
    archivio.cn.execute("UPDATE ListiniPrezzi SET Prezzo=Prezzo +(Prezzo/100) * 10 WHERE IDArticolo=1 AND IDlistino=1");
    EXPECT_EQ(archivio.valore("SELECT Prezzo FROM ListiniPrezzi"), "13.5802");
    archivio.cn.execute("UPDATE ListiniPrezzi SET Prezzo=Prezzo -(Prezzo/100) * 10 WHERE IDArticolo=1 AND IDlistino=1");
    EXPECT_EQ(archivio.valore("SELECT Prezzo FROM ListiniPrezzi"), "12.2222");
}

TEST(Traduttore, LeSommeDegliImportiSonoEsatte)
{
    ArchivioTemporaneo archivio;
    for (const std::string prezzo : {"0.1", "0.2", "0.0001"}) {
        archivio.cn.execute("INSERT INTO ListiniPrezzi (IDArticolo, IDListino, Prezzo) VALUES (1, 3, " + prezzo + ")");
    }
    EXPECT_EQ(archivio.righe("SELECT SUM(Prezzo), SUM(Prezzo*IDListino), MAX(Prezzo), COUNT(*) FROM ListiniPrezzi"),
              Righe{"0.3001|0.9003|0.2000|3"});
    EXPECT_EQ(archivio.righe("SELECT IDArticolo, SUM(Prezzo) AS Totale FROM ListiniPrezzi GROUP BY IDArticolo"),
              Righe{"1|0.3001"});
    EXPECT_EQ(archivio.righe("SELECT Prezzo/IDListino FROM ListiniPrezzi ORDER BY Prezzo"),
              (Righe{"3.3333333333333335e-05", "0.03333333333333333", "0.06666666666666667"}));
}

TEST(Traduttore, LaDivisioneEReale)
{
    ArchivioTemporaneo archivio;
    EXPECT_EQ(archivio.valore("SELECT 1/4"), "0.25");
    EXPECT_EQ(numeroDelFallimento([&] { return archivio.valore("SELECT 1/0"); }), 11U);
}

struct Cerca {
    std::string_view condizione;
    Righe trovati;
};

TEST(Traduttore, ITestiSiConfrontanoSenzaMaiuscoleEConGliAccenti)
{
    ArchivioTemporaneo archivio;
    for (const std::string nome : {"Città", "CITTA", "perché", "100%"}) {
        archivio.cn.execute("INSERT INTO Clienti (Cliente) VALUES ('" + nome + "')");
    }
    const Cerca casi[] = {
        {"Cliente = 'CITTÀ'", {"Città"}},
        {"Cliente = 'citta'", {"CITTA"}},
        {"Cliente IN ('PERCHÉ', 'x')", {"perché"}},
        {"Cliente <> 'CITTÀ' AND Cliente LIKE 'citt%'", {"CITTA"}},
        {"Cliente LIKE '%TÀ'", {"Città"}},
        {"Cliente LIKE '*tà*'", {"Città"}},
        {"Cliente LIKE 'CITT_'", {"Città", "CITTA"}},
        {"Cliente LIKE 'citt?'", {"Città", "CITTA"}},
        {"Cliente LIKE 'p%c%é'", {"perché"}},
        {"Cliente LIKE ''", {}},
        {"Cliente NOT LIKE '%t%'", {"perché", "100%"}},
        {"Citta LIKE '%'", {}},
        {"Cliente BETWEEN 'o' AND 'Q'", {"perché"}},
        {"NOT (Cliente = 'x' OR Citta IS NULL)", {}},
        {"EsenteIva", {}},
        {"EsenteIva = False AND Cliente = 'PERCHÉ'", {"perché"}},
    };
    for (const Cerca& caso : casi) {
        SCOPED_TRACE(caso.condizione);
        EXPECT_EQ(archivio.righe("SELECT Cliente FROM Clienti WHERE " + std::string(caso.condizione)), caso.trovati);
    }
    EXPECT_EQ(archivio.righe("SELECT Cliente FROM Clienti ORDER BY Cliente DESC"),
              (Righe{"perché", "Città", "CITTA", "100%"}));
    EXPECT_EQ(
        numeroDelFallimento([&] { return archivio.cn.execute("INSERT INTO Clienti (Cliente) VALUES ('PERCHÉ')"); }),
        3022U);
}

TEST(Traduttore, ModificareConUnGiuntoPrendeIValoriDellAltraTabella)
{
    ArchivioTemporaneo archivio;
    archivio.cn.execute("INSERT INTO Articoli (IDArticolo, CodiceMagazzino) VALUES (1, 'A')");
    archivio.cn.execute("INSERT INTO Articoli (IDArticolo, CodiceMagazzino) VALUES (2, 'B')");
    archivio.cn.execute("INSERT INTO ListiniPrezzi (IDArticolo, IDListino, Prezzo) VALUES (2, 1, 8)");
    EXPECT_EQ(archivio.cn.execute("UPDATE Articoli INNER JOIN ListiniPrezzi ON Articoli.IDArticolo = "
                                  "ListiniPrezzi.IDArticolo SET Articoli.CostoMedio = ListiniPrezzi.Prezzo / 2 WHERE "
                                  "ListiniPrezzi.IDListino = 1"),
              1);
    EXPECT_EQ(archivio.righe("SELECT CodiceMagazzino, CostoMedio FROM Articoli"), (Righe{"A|0.0000", "B|4.0000"}));
}

// How the engine goes about a statement.
std::string piano(Connection& cn, const std::string& sql)
{
    EngineStatement s(cn.impl().engine.get(), "EXPLAIN QUERY PLAN " + sql);
    std::string tutto;
    while (s.step()) {
        tutto += std::string(reinterpret_cast<const char*>(sqlite3_column_text(s.get(), 3))) + "; ";
    }
    return tutto;
}

TEST(Traduttore, IFigliEILegamiSiTrovanoSenzaLeggereTuttaLaTabella)
{
    ArchivioTemporaneo archivio;
    TranslateOptions figli;
    figli.relatedColumn = "IDDocumento";
    const std::string sql = archivio.cn.impl().translation("SELECT * From Scadenzario ", figli).sql;
    EXPECT_NE(piano(archivio.cn, sql).find("USING INDEX"), std::string::npos) << sql;
    EXPECT_EQ(piano(archivio.cn, sql).find("SCAN"), std::string::npos) << sql;
    const std::string_view legati =
        "UPDATE Bolle INNER JOIN Fatture_RiferimentoBolle ON Bolle.IDbolla = Fatture_RiferimentoBolle.IDBolla SET "
        "Bolle.EmessaFattura = 'N' WHERE Fatture_RiferimentoBolle.IDFattura=2";
    EXPECT_EQ(piano(archivio.cn, archivio.cn.translated(legati)).find("SCAN"), std::string::npos);
}

}  // namespace
}  // namespace bravona
