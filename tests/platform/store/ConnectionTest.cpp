#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include <sys/wait.h>
#include <unistd.h>

#include "platform/files/Files.h"
#include "platform/store/ConnectionImpl.h"
#include "platform/values/Errore.h"
#include "schema/Schema.h"
#include "support/AltroProgramma.h"
#include "support/ArchivioTemporaneo.h"
#include "support/Fallimento.h"

namespace bravona {
namespace {

namespace fs = std::filesystem;

std::string leggiFile(const std::string& percorso)
{
    std::ifstream file(percorso, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void scriviFile(const std::string& percorso, std::string_view contenuto)
{
    std::ofstream(percorso, std::ios::binary) << contenuto;
}

std::uint32_t apri(const std::string& percorso, std::string_view password = passwordArchivio)
{
    return numeroDelFallimento([&] {
        Connection cn;
        cn.open(percorso, password);
        return cn.open("SELECT * FROM VersioneDB").recordCount();
    });
}

TEST(Archivio, SenzaLaPasswordNonSiLeggeNulla)
{
    ArchivioTemporaneo archivio;
    archivio.cn.execute("INSERT INTO Clienti (Cliente) VALUES ('Segretissimo Rossi')");
    archivio.cn.close();
    const std::string byte = leggiFile(archivio.percorso());
    for (const std::string_view testo : {"Segretissimo", "Clienti", "CREATE TABLE", "SQLite format 3", "zelmar"}) {
        EXPECT_EQ(byte.find(testo), std::string::npos) << testo;
    }
    EXPECT_EQ(apri(archivio.percorso(), "sbagliata"), 3031U);
    EXPECT_EQ(apri(archivio.percorso()), 0U);
}

TEST(Archivio, CioCheNonEUnArchivioSiRifiutaESiLasciaComEra)
{
    ArchivioTemporaneo archivio;
    archivio.cn.close();
    const CartellaTemporanea& cartella = archivio.cartella();
    EXPECT_EQ(apri(cartella.file("manca.mdb")), 3044U);
    fs::create_directory(cartella.file("cartella.mdb"));
    EXPECT_EQ(apri(cartella.file("cartella.mdb")), 3051U);

    const std::string buono = leggiFile(archivio.percorso());
    std::string primaPaginaRotta = buono;
    primaPaginaRotta[100] = static_cast<char>(primaPaginaRotta[100] ^ 1);
    const struct {
        std::string_view nome;
        std::string contenuto;
        std::uint32_t numero;
    } casi[] = {
        {"vuoto", "", 3031},
        {"corto", "ciao", 3031},
        {"pagina rotta", primaPaginaRotta, 3031},
        {"chiaro", "SQLite format 3" + std::string(8000, '\0'), 3031},
        {"troncato", buono.substr(0, buono.size() / 2), 3049},
    };
    for (const auto& caso : casi) {
        SCOPED_TRACE(caso.nome);
        const std::string file = cartella.file("prova.mdb");
        scriviFile(file, caso.contenuto);
        EXPECT_EQ(apri(file), caso.numero);
        EXPECT_EQ(leggiFile(file), caso.contenuto);
        EXPECT_FALSE(fs::exists(file + "-journal"));
    }
    EXPECT_EQ(numeroDelFallimento([&] { return Connection().create(archivio.percorso(), "x"), 0; }), 3204U);
}

TEST(Archivio, UnLegamePortaAlFileStesso)
{
    ArchivioTemporaneo archivio;
    archivio.cn.close();
    const std::string legame = archivio.cartella().file("legame.mdb");
    fs::create_symlink("archivio.mdb", legame);
    archivio.cn.open(legame, passwordArchivio);
    archivio.cn.begin();
    archivio.cn.execute("INSERT INTO Archivi (AnnoArchivio) VALUES (2004)");
    EXPECT_TRUE(fs::exists(archivio.percorso() + "-journal")) << "the journal stands beside the file itself";
    archivio.cn.commit();
    archivio.cn.close();
    EXPECT_TRUE(fs::is_symlink(legame));
    EXPECT_FALSE(fs::exists(archivio.percorso() + "-journal"));
}

TEST(Archivio, UnProcessoUccisoATransazioneApertaNonLasciaTraccia)
{
    ArchivioTemporaneo archivio;
    archivio.cn.close();
    const pid_t figlio = fork();
    if (figlio == 0) {
        Connection cn;
        cn.open(archivio.percorso(), passwordArchivio);
        cn.begin();
        for (int i = 0; i < 2000; ++i) {
            cn.execute("INSERT INTO Comuni (Comune, Cap) VALUES ('Comune', '" + std::to_string(i) + "')");
        }
        // What has been changed goes into the file before the end, as it does in a long transaction.
        sqlite3_db_cacheflush(cn.impl().engine.get());
        _exit(fs::exists(archivio.percorso() + "-journal") ? 0 : 1);
    }
    int esito = 0;
    waitpid(figlio, &esito, 0);
    ASSERT_EQ(esito, 0);
    ASSERT_TRUE(fs::exists(archivio.percorso() + "-journal"));
    archivio.cn.open(archivio.percorso(), passwordArchivio);
    EXPECT_FALSE(fs::exists(archivio.percorso() + "-journal"));
    EXPECT_EQ(archivio.valore("SELECT COUNT(*) FROM Comuni"), "0");
    EXPECT_EQ(archivio.valore("SELECT COUNT(*) FROM DescrizioneListini"), "10");
}

TEST(Archivio, UnTransazioneSiConfermaOSiAnnulla)
{
    ArchivioTemporaneo archivio;
    const auto anni = [&] { return archivio.valore("SELECT COUNT(*) FROM Archivi"); };
    const std::string nuovo = "INSERT INTO Archivi (AnnoArchivio) VALUES (2004)";
    EXPECT_EQ(numeroDelFallimento([&] { return archivio.cn.commit(), 0; }), 3034U);
    EXPECT_EQ(numeroDelFallimento([&] { return archivio.cn.rollback(), 0; }), 3034U);
    archivio.cn.begin();
    EXPECT_EQ(numeroDelFallimento([&] { return archivio.cn.begin(), 0; }), 3246U);
    archivio.cn.execute(nuovo);
    archivio.cn.rollback();
    EXPECT_EQ(anni(), "0");
    {
        Transaction prova(archivio.cn);
        archivio.cn.execute(nuovo);
    }
    EXPECT_EQ(anni(), "0");
    {
        Transaction prova(archivio.cn);
        archivio.cn.execute(nuovo);
        prova.commit();
    }
    EXPECT_EQ(anni(), "1");
    EXPECT_FALSE(archivio.cn.inTransaction());
}

TEST(Archivio, AprireUnaTabellaPerAggiungereNonLeggeNulla)
{
    ArchivioTemporaneo archivio;
    archivio.cn.openTable("Comuni");  // its declaration is looked at once
    std::vector<std::string> istruzioni;
    sqlite3_trace_v2(
        archivio.cn.impl().engine.get(), SQLITE_TRACE_STMT,
        [](unsigned, void* elenco, void*, void* testo) {
            static_cast<std::vector<std::string>*>(elenco)->emplace_back(static_cast<const char*>(testo));
            return 0;
        },
        &istruzioni);
    for (int i = 0; i < 3; ++i) {
        Recordset rs = archivio.cn.openTable("Comuni");
        rs.addNew();
        rs["Comune"] = "Comune " + std::to_string(i);
        rs.update();
        EXPECT_EQ(rs["IDCodiceComune"].asLong(), i + 1);
    }
    sqlite3_trace_v2(archivio.cn.impl().engine.get(), 0, nullptr, nullptr);
    ASSERT_EQ(istruzioni.size(), 3U);
    EXPECT_TRUE(std::ranges::all_of(istruzioni, [](const std::string& s) { return s.starts_with("INSERT"); }));
}

TEST(Archivio, OgniScritturaSiAnnunciaColNomeDellaTabella)
{
    ArchivioTemporaneo archivio;
    std::vector<std::string> scritture;
    archivio.cn.setWriteHook([&](const std::string& tabella) { scritture.push_back(tabella); });
    archivio.cn.execute("INSERT INTO CLIENTI (Cliente) VALUES ('x')");
    archivio.cn.execute("UPDATE Bolle INNER JOIN Fatture_RiferimentoBolle ON Bolle.IDBolla = "
                        "Fatture_RiferimentoBolle.IDBolla SET Bolle.EmessaFattura = 'N'");
    archivio.cn.open("SELECT * FROM Clienti");
    Recordset rs = archivio.cn.openTable("archivi");
    rs.addNew();
    rs["AnnoArchivio"] = 2004;
    rs.update();
    rs.update();  // nothing left to send
    rs["AnnoArchivio"] = 2005;
    rs.update();
    rs.remove();
    EXPECT_EQ(scritture, (std::vector<std::string>{"Clienti", "Bolle", "Archivi", "Archivi", "Archivi"}));
    archivio.cn.setWriteHook([](const std::string&) { throw Errore(61, "guasto di prova"); });
    EXPECT_EQ(numeroDelFallimento([&] { return archivio.cn.execute("DELETE * FROM Clienti"); }), 61U);
    EXPECT_EQ(archivio.valore("SELECT COUNT(*) FROM Clienti"), "1");
}

TEST(Archivio, UnOrdineDeiTestiPiuVecchioSiRifa)
{
    ArchivioTemporaneo archivio;
    const auto versione = [&] { return archivio.cn.impl().engine.number("PRAGMA user_version"); };
    const std::int64_t attuale = versione();
    archivio.cn.executeNative("PRAGMA user_version = 1");
    archivio.cn.open(archivio.percorso(), passwordArchivio);
    EXPECT_EQ(versione(), attuale);
    EXPECT_EQ(archivio.valore("SELECT COUNT(*) FROM DescrizioneListini"), "10");
}

TEST(Archivio, LaCompattazioneTieneTuttoERendeLoSpazio)
{
    ArchivioTemporaneo archivio;
    archivio.cn.begin();
    for (int i = 0; i < 3000; ++i) {
        archivio.cn.execute("INSERT INTO Comuni (Comune, Cap) VALUES ('Comune', '" + std::to_string(i) + "')");
    }
    archivio.cn.execute("DELETE * FROM Comuni");
    archivio.cn.commit();
    archivio.cn.close();
    const std::string copia = archivio.cartella().file("copia.mdb");
    fs::copy_file(archivio.percorso(), copia);
    EXPECT_EQ(numeroDelFallimento([&] { return Connection::compact(copia, "sbagliata"), 0; }), 3031U);
    EXPECT_EQ(fs::file_size(copia), fs::file_size(archivio.percorso()));
    Connection::compact(copia, passwordArchivio);
    EXPECT_LT(fs::file_size(copia), fs::file_size(archivio.percorso()));
    archivio.cn.open(copia, passwordArchivio);
    EXPECT_EQ(archivio.valore("SELECT COUNT(*) FROM DescrizioneListini"), "10");
    archivio.cn.execute("INSERT INTO Comuni (Comune) VALUES ('x')");
    EXPECT_EQ(archivio.valore("SELECT IDCodiceComune FROM Comuni"), "3001") << "no key is given twice";
}

TEST(Archivio, UnAltroProgrammaNonLoCambiaMentreETenuto)
{
    ArchivioTemporaneo archivio;
    archivio.cn.close();
    AltroProgramma altro(archivio.percorso());
    const auto scrive = [&] { return altro.esegui("UPDATE DatiAzienda SET Citta = 'Bra'"); };
    const auto riprende = [](Connection& tenuto) { return numeroDelFallimento([&] { return tenuto.holdAgain(), 0; }); };
    for (const Hold scopo : {Hold::toCopy, Hold::toReplace}) {
        Connection tenuto;
        tenuto.hold(archivio.percorso(), passwordArchivio, scopo);
        EXPECT_EQ(scrive(), 3218U);
        EXPECT_EQ(altro.legge("SELECT Citta FROM DatiAzienda"), scopo == Hold::toCopy ? 0U : 3218U);
        // The system forgets the locks of a process that reads and closes the file by other means.
        static_cast<void>(Files().read(archivio.percorso()));
        EXPECT_EQ(riprende(tenuto), 0U);
        EXPECT_EQ(scrive(), 3218U);
        static_cast<void>(Files().read(archivio.percorso()));
        EXPECT_EQ(scrive(), 0U) << "or else this tests nothing";
        EXPECT_EQ(riprende(tenuto), 3218U);
    }
    EXPECT_EQ(scrive(), 0U);
}

TEST(Archivio, IlDiscoPienoHaIlSuoNumeroENonRovinaNulla)
{
    ArchivioTemporaneo archivio;
    const std::int64_t pagine = archivio.cn.impl().engine.number("PRAGMA page_count");
    archivio.cn.impl().engine.number("PRAGMA max_page_count = " + std::to_string(pagine));
    const std::string lungo(100'000, 'x');
    EXPECT_EQ(numeroDelFallimento(
                  [&] { return archivio.cn.execute("UPDATE DatiAzienda SET RagioneSocialeRiga1 = '" + lungo + "'"); }),
              61U);
    EXPECT_EQ(archivio.valore("SELECT RagioneSocialeRiga1 FROM DatiAzienda"), "Null");
}

}  // namespace
}  // namespace bravona
