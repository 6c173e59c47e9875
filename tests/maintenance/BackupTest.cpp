#include "maintenance/ArchivioComeFile.h"

#include "maintenance/FRMRipristino.h"
#include "maintenance/FRM_Backup.h"
#include "schema/Tabelle.h"
#include "session/frmMain.h"
#include "support/AltroProgramma.h"
#include "support/Fallimento.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <set>

namespace bravona {
namespace {

namespace fs = std::filesystem;

class Backup : public ArchivioComeFile {
protected:
    Backup() { principale().show(); }
    frmMain& principale() { return sessione.schermate().as<frmMain>("frmMain"); }
    [[nodiscard]] std::string parola() { return principale().statusBar->panels.at(2); }

    template <class Finestra>
    void con(const char* nome, const std::function<void(Finestra&)>& gesti)
    {
        utente.inModal([&](Form& finestra) { gesti(dynamic_cast<Finestra&>(finestra)); });
        utente.guard([&] { sessione.schermate().get(nome).showModal(); });
    }
    [[nodiscard]] std::string cliente() { return riga("SELECT Cliente FROM Clienti WHERE IDCliente = 7"); }
    void scegli(FRMRipristino& finestra, const std::string& file)
    {
        utente.chooseFolder(finestra.Dir1, fs::path(file).parent_path().string());
        const auto& elenco = finestra.File1.files();
        const auto dove = std::find(elenco.begin(), elenco.end(), fs::path(file).filename().string());
        ASSERT_NE(dove, elenco.end());
        utente.selectFile(finestra.File1, static_cast<int>(dove - elenco.begin()));
    }
    void codifica(Bytes originale, const std::string& file)
    {
        huffman.EncodeByte(originale);
        files.replace(file, originale);
    }
};

TEST_F(Backup, ThePersonSeesItAdvanceAndWhereItWentAndHowLargeItIs)
{
    int avanti = 0;
    std::string parole;
    utente.whileWorking = [&] {
        const auto& finestra = dynamic_cast<FRM_Backup&>(*utente.front());
        EXPECT_TRUE(finestra.ProgressBar1.visible() && finestra.Label3.visible());
        EXPECT_GE(finestra.ProgressBar1.value(), avanti);
        avanti = finestra.ProgressBar1.value();
        parole = finestra.Label3.caption();
        EXPECT_EQ(utente.pointer(), Pointer::wait);
    };
    con<FRM_Backup>("FRM_Backup", [&](FRM_Backup& finestra) {
        utente.chooseFolder(finestra.Dir1, in("salvati"));
        EXPECT_EQ(finestra.Text2.text(), in("salvati"));
        utente.click(finestra.Command2);
    });
    EXPECT_EQ(avanti, 100);
    EXPECT_EQ(parole, "Salvataggio Database ...");
    EXPECT_TRUE(ultimoMessaggio().starts_with("Bravona: Il Backup e stato fatto")) << ultimoMessaggio();
    EXPECT_EQ(parola(), "Backup di " + testoByte(fs::file_size(backup())) + " byte (archivio " +
                            testoByte(fs::file_size(archivio())) + " byte) in " + backup() +
                            ", il precedente in DBBVEURO_Backup.bk.1");
    EXPECT_EQ(sessione.schermate().find("FRM_Backup"), nullptr);
    EXPECT_EQ(utente.pointer(), Pointer::normal);
    EXPECT_EQ(cliente(), "Rossi");
}

TEST_F(Backup, EscapeWhileItWorksGivesItUpAndNothingHasChanged)
{
    const Bytes prima = files.read(backup());
    const std::size_t finestre = utente.boxCount();
    utente.whileWorking = [&] { utente.key(Key::escape); };
    con<FRM_Backup>("FRM_Backup", [&](FRM_Backup& finestra) {
        utente.chooseFolder(finestra.Dir1, in("salvati"));
        utente.click(finestra.Command2);
    });
    EXPECT_EQ(files.read(backup()), prima);
    EXPECT_EQ(parola(), "Backup interrotto");
    con<FRMRipristino>("FRMRipristino", [&](FRMRipristino& finestra) {
        scegli(finestra, backup());
        utente.click(finestra.Command1);
    });
    EXPECT_EQ(parola(), "Ripristino interrotto");
    EXPECT_EQ(sessione.schermate().find("FRMRipristino"), nullptr);
    EXPECT_EQ(cliente(), "Rossi");
    EXPECT_EQ(utente.boxCount(), finestre);
}

TEST_F(Backup, ASecondPressWhileItWorksIsNotASecondBackup)
{
    utente.whileWorking = [&] { utente.click(dynamic_cast<FRM_Backup&>(*utente.front()).Command2); };
    const std::size_t finestre = utente.boxCount();
    con<FRM_Backup>("FRM_Backup", [&](FRM_Backup& finestra) {
        utente.chooseFolder(finestra.Dir1, in("salvati"));
        utente.click(finestra.Command2);
    });
    EXPECT_EQ(utente.boxCount(), finestre + 1);
}

TEST_F(Backup, ALinkBackToTheArchiveDoesNotPackItIntoItself)
{
    fs::remove(backup());
    fs::create_symlink(archivio(), backup());
    EXPECT_EQ(numeroDelFallimento([&] { return SalvaArchivio(sessione, huffman, backup()); }),
              errori::erroreDiPercorso);
    EXPECT_EQ(cliente(), "Rossi");
}

TEST_F(Backup, ARestoreSparesTheArchiveInUseAmongItsOwnFiles)
{
    for (const char* nome : {"Database/DBBVEURO_bk.mdb", "Database/DBBVEURO_precedente.mdb"}) {
        fs::copy_file(archivio(), in(nome));
        sessione.PercorsoArchivio = in(nome);
        EXPECT_EQ(numeroDelFallimento([&] { return RipristinaArchivio(sessione, huffman, backup()); }),
                  errori::erroreDiPercorso);
        EXPECT_EQ(clienteIn(in(nome)), "Rossi");
        EXPECT_EQ(clienteIn(archivio()), "Rossi");
    }
}

TEST_F(Backup, ARestoreWithoutRoomLeavesNothingOnTheDisk)
{
    files.failNextWrite(archivio(), errori::discoPieno);
    EXPECT_EQ(numeroDelFallimento([&] { return RipristinaArchivio(sessione, huffman, backup()); }), errori::discoPieno);
    EXPECT_FALSE(fs::exists(in("Database/DBBVEURO_bk.mdb")));
    EXPECT_FALSE(fs::exists(in("Database/DBBVEURO_precedente.mdb")));
    EXPECT_EQ(cliente(), "Rossi");
}

TEST_F(Backup, AnArchiveInUseElsewhereIsNoPlaceForABackupEither)
{
    fs::copy_file(archivio(), in("altrove.mdb"));
    fs::remove(backup());
    fs::create_symlink(in("altrove.mdb"), backup());
    sessione.PercorsoArchivio = in("altrove.mdb");
    EXPECT_EQ(numeroDelFallimento([&] { return SalvaArchivio(sessione, huffman, backup()); }),
              errori::erroreDiPercorso);
    EXPECT_EQ(clienteIn(in("altrove.mdb")), "Rossi");
    // The person is told that the backup is of the other one.
    con<FRM_Backup>("FRM_Backup", [&](FRM_Backup& finestra) {
        utente.chooseFolder(finestra.Dir1, in("salvati"));
        fs::remove(backup());
        utente.click(finestra.Command2);
    });
    EXPECT_TRUE(parola().ends_with(backup() + "; non è l'archivio in uso")) << parola();
}

TEST_F(Backup, WhatWasAchievedIsToldBeforeTheOpeningThatFails)
{
    const auto guasta = [this] { sessione.cn.setWriteHook([](const std::string&) { throw Errore(3035, "prova"); }); };
    esegui("UPDATE VersioneDB SET Versione = 2");  // stamped at each opening
    guasta();
    EXPECT_EQ(SalvaArchivio(sessione, huffman, backup(),
                            [this](const auto&) {
                                EXPECT_FALSE(sessione.cn.isOpen());
                                utente.inform("fatto", "Bravona");
                            })
                  .scritti,
              fs::file_size(backup()));
    EXPECT_EQ(utente.boxCount(), 2U);
    EXPECT_EQ(ultimoMessaggio(), "Errore - Bravona: 3035 - Riapertura dell'archivio: prova");
    EXPECT_EQ(cliente(), "Rossi");

    // Not opened at all, behind a work that failed and one that did not.
    sessione.PercorsoArchivio = in("manca.mdb");
    const std::string chiuso = "Riapertura dell'archivio: Il file \"" + in("manca.mdb") +
                               "\" non esiste.\nL'archivio non è aperto: riavviare Bravona.";
    files.failNextWrite(backup(), errori::discoPieno);
    try {
        SalvaArchivio(sessione, huffman, backup());
        ADD_FAILURE() << "it was to fail";
    } catch (const Errore& errore) {
        EXPECT_EQ(errore.numero(), errori::discoPieno);
        EXPECT_TRUE(errore.descrizione().starts_with("Spazio su disco esaurito: "));
        EXPECT_TRUE(errore.descrizione().ends_with("\n" + chiuso)) << errore.descrizione();
    }
    RipristinaArchivio(sessione, huffman, backup());
    EXPECT_EQ(ultimoMessaggio(), "Errore - Bravona: 3044 - " + chiuso);
    EXPECT_FALSE(fs::exists(in("Database/DBBVEURO_bk.mdb")));
}

TEST_F(Backup, TheArchiveIsOpenAgainAlsoWhenTheProgramEndsInABox)
{
    const auto fine = [](const auto&) { throw FineProcesso{}; };
    EXPECT_THROW(SalvaArchivio(sessione, huffman, backup(), fine), FineProcesso);
    EXPECT_EQ(cliente(), "Rossi");
    EXPECT_THROW(RipristinaArchivio(sessione, huffman, backup(), fine), FineProcesso);
    EXPECT_EQ(cliente(), "Rossi");
}

TEST_F(Backup, NobodyChangesTheArchiveWhileItIsRead)
{
    AltroProgramma altro(archivio());
    std::set<std::uint32_t> risposte;
    utente.whilePainting = [&] { risposte.insert(altro.esegui("UPDATE Clienti SET Cliente = 'Altro'")); };
    SalvaArchivio(sessione, huffman, backup());
    utente.whilePainting = {};
    EXPECT_EQ(risposte, std::set<std::uint32_t>{3218U});
    EXPECT_EQ(clienteIn(originaleDi(backup())), "Rossi");
    EXPECT_EQ(altro.esegui("UPDATE Clienti SET Cliente = 'Altro'"), 0U);
}

TEST_F(Backup, NothingIsWrittenIntoTheArchiveThatACompactionReplaces)
{
    sessione.cn.begin();
    for (int i = 0; i < 3000; ++i) {
        esegui("INSERT INTO Comuni (Comune, Cap) VALUES ('" + std::to_string(i) + "', '10100')");
    }
    sessione.cn.commit();
    AltroProgramma altro(archivio());
    std::set<std::uint32_t> risposte;
    utente.whilePainting = [&] {
        if (fs::exists(in("temp_db.mdb"))) {
            risposte.insert(altro.esegui("UPDATE Clienti SET Cliente = 'Altro'"));
        }
    };
    CompattaArchivio(sessione);
    utente.whilePainting = {};
    EXPECT_EQ(risposte, std::set<std::uint32_t>{3218U});
    // The file that the other one has open is no archive any more: it is told so, and nothing is lost unseen.
    EXPECT_EQ(altro.esegui("UPDATE Clienti SET Cliente = 'Altro'"), 3044U);
    EXPECT_EQ(cliente(), "Rossi");
}

TEST_F(Backup, ATemporaryFileThatStaysIsToldAndTheCompactionDone)
{
    sessione.cn.begin();
    for (int i = 0; i < 3000; ++i) {
        esegui("INSERT INTO Comuni (Comune, Cap) VALUES ('" + std::to_string(i) + "', '10100')");
    }
    sessione.cn.commit();
    const std::string temporaneo = in("temp_db.mdb");
    utente.whilePainting = [&] {
        if (fs::exists(temporaneo)) {
            files.failNextWrite(temporaneo, errori::permessoNegato);  // its removal
        }
    };
    CompattaArchivio(sessione);
    utente.whilePainting = {};
    EXPECT_EQ(ultimoMessaggio(), "Bravona: Compattazione dati completata!");
    EXPECT_TRUE(parola().ends_with("resta da eliminare " + temporaneo)) << parola();
    CompattaArchivio(sessione);
    EXPECT_NE(ultimoMessaggio().find("3204 - "), std::string::npos) << ultimoMessaggio();
    EXPECT_NE(ultimoMessaggio().find("E' il resto di una compattazione interrotta: si può eliminare."),
              std::string::npos)
        << ultimoMessaggio();
    EXPECT_EQ(cliente(), "Rossi");
}

// A disk remounted read-only because it fails is when a backup is wanted most.
TEST_F(Backup, AnArchiveThatCannotBeWrittenIsBackedUp)
{
    fs::permissions(cartella.path(), fs::perms(0755));
    fs::permissions(in("salvati"), fs::perms(0777));
    fs::permissions(archivio(), fs::perms(0444));
    fs::permissions(in("Database"), fs::perms(0555));
    // The administrator may do everything: as one, the test goes on as nobody.
    const bool amministratore = ::geteuid() == 0;
    constexpr uid_t nessuno = 65534;
    if (amministratore) {
        ASSERT_EQ(::seteuid(nessuno), 0);
    }
    const auto backupDi = [&] { return SalvaArchivio(sessione, huffman, in("salvati/altro.bk")); };
    const std::uint32_t salvato = numeroDelFallimento(backupDi);
    const std::uint32_t scritto = numeroDelFallimento([&] { return esegui("UPDATE Clienti SET Cliente = 'x'"), 0; });
    if (amministratore) {
        ASSERT_EQ(::seteuid(0), 0);
    }
    fs::permissions(in("Database"), fs::perms(0755));
    EXPECT_EQ(scritto, 3027U) << "or else this tests nothing";
    EXPECT_EQ(salvato, 0U);
    EXPECT_EQ(clienteIn(originaleDi(in("salvati/altro.bk"))), "Rossi");
}

TEST_F(Backup, ADamagedArchiveDoesNotReplaceAGoodBackup)
{
    const Bytes prima = files.read(backup());
    sessione.cn.close();
    Bytes rotto = files.read(archivio());
    rotto[rotto.size() / 2] ^= 1;
    files.replace(archivio(), rotto);
    EXPECT_EQ(numeroDelFallimento([&] { return SalvaArchivio(sessione, huffman, backup()); }), 3049U);
    EXPECT_EQ(files.read(backup()), prima);
    RipristinaArchivio(sessione, huffman, backup());
    EXPECT_EQ(cliente(), "Bianchi");
}

TEST_F(Backup, WhatIsNoArchiveOfThisProgramTakesNoPlace)
{
    const Bytes buono = files.read(originaleDi(backup()));
    // Two flips that the checksum of the backup does not see.
    Bytes rotto = buono;
    for (const std::size_t dove : {rotto.size() / 2, rotto.size() / 2 + 1}) {
        rotto[dove] ^= 1;
    }
    const auto conTabelle = [this](const std::function<void(Connection&)>& prepara) {
        const std::string file = in("altro.mdb");
        fs::remove(file);
        Connection cn;
        cn.create(file, passwordArchivio);
        prepara(cn);
        cn.close();
        return files.read(file);
    };
    struct Caso {
        const char* nome;
        Bytes originale;
        std::uint32_t numero;
    };
    const Caso casi[] = {
        {"a text", Bytes{'c', 'i', 'a', 'o', ' ', 'c', 'i', 'a', 'o'}, 3031},
        {"a damaged page", rotto, 3049},
        {"cut off", Bytes(buono.begin(), buono.begin() + static_cast<std::ptrdiff_t>(buono.size() / 2)), 3049},
        {"no tables", conTabelle([](Connection& cn) { cn.executeNative("CREATE TABLE t (a)"); }), 3031},
        {"no rows to start from", conTabelle([](Connection& cn) { creaSchema(cn); }), 3031},
        {"the tables without their columns", conTabelle([](Connection& cn) {
             for (const Tabella& tabella : tabelleArchivio()) {
                 const std::string nome(tabella.nome);
                 cn.executeNative("CREATE TABLE " + nome + " (a TEXT)");
                 cn.executeNative("INSERT INTO " + nome + " VALUES ('x')");
             }
         }),
         3031},
        {"one table without a column", conTabelle([](Connection& cn) {
             creaSchema(cn);
             semiMinimi(cn);
             cn.executeNative("DROP TABLE Comuni");
             cn.executeNative("CREATE TABLE Comuni (IDCodiceComune INTEGER PRIMARY KEY, Comune TEXT, Cap TEXT)");
         }),
         3031},
        {"a version that cannot be read", conTabelle([](Connection& cn) {
             creaSchema(cn);
             semiMinimi(cn);
             cn.executeNative("UPDATE VersioneDB SET Versione = 'tre'");
         }),
         3031},
    };
    const Bytes prima = files.read(archivio());
    for (const Caso& caso : casi) {
        SCOPED_TRACE(caso.nome);
        codifica(caso.originale, in("salvati/altro.bk"));
        const std::size_t finestre = utente.boxCount();
        con<FRMRipristino>("FRMRipristino", [&](FRMRipristino& finestra) {
            scegli(finestra, in("salvati/altro.bk"));
            utente.click(finestra.Command1);
            EXPECT_EQ(utente.front(), &finestra) << "the screen stays";
            EXPECT_FALSE(finestra.Label3.visible());
        });
        ASSERT_EQ(utente.boxCount(), finestre + 1);
        EXPECT_EQ(utente.lastBox().number, caso.numero);
        EXPECT_EQ(utente.lastBox().title, "Errore - Bravona");
        EXPECT_EQ(files.read(archivio()), prima);
        EXPECT_FALSE(fs::exists(in("Database/DBBVEURO_bk.mdb")));
        EXPECT_EQ(cliente(), "Rossi") << "the connection is open";
    }
}

TEST_F(Backup, WhatTheSessionHoldsComesFromTheRestoredArchive)
{
    CaricaRegistri(sessione);
    esegui("UPDATE TabellaRegistri SET Descrizione = 'Altro' WHERE CodiceRegistro = 2");
    CaricaRegistri(sessione);
    RipristinaArchivio(sessione, huffman, backup());
    EXPECT_EQ(sessione.ElencoRegistri.at(2), "(2) - Secondo");
    EXPECT_TRUE(sessione.cn.isOpen());
}

TEST_F(Backup, AYearThatTheRestoredArchiveDoesNotHaveIsTold)
{
    for (const bool presente : {false, true}) {
        if (presente) {
            esegui("INSERT INTO Archivi (AnnoArchivio) VALUES (2005)");
            SalvaArchivio(sessione, huffman, backup());
        }
        sessione.AnnoRiferimento = "2005";
        con<FRMRipristino>("FRMRipristino", [&](FRMRipristino& finestra) {
            scegli(finestra, backup());
            utente.click(finestra.Command1);
        });
        EXPECT_EQ(ultimoMessaggio(), "Bravona: Il Database e stato ripristinato. .");
        EXPECT_EQ(parola().starts_with("L'archivio ripristinato non ha l'anno 2005"), !presente) << parola();
        EXPECT_EQ(sessione.AnnoRiferimento, "2005");
    }
}

TEST_F(Backup, TheLinkOfTheProgramFolderStaysALink)
{
    sessione.PercorsoArchivio = in("dbbveuro.mdb");
    CompattaArchivio(sessione);
    RipristinaArchivio(sessione, huffman, backup());
    EXPECT_TRUE(fs::is_symlink(in("dbbveuro.mdb")));
    EXPECT_EQ(cliente(), "Bianchi");
}

TEST_F(Backup, AnArchiveShrinksByWhatWasDeleted)
{
    sessione.cn.begin();
    for (int i = 0; i < 3000; ++i) {
        esegui("INSERT INTO Comuni (Comune, Cap) VALUES ('" + std::to_string(i) + "', '10100')");
    }
    sessione.cn.commit();
    esegui("DELETE * FROM Comuni");
    const std::uint64_t prima = files.size(archivio());
    std::vector<int> avanzamento;
    utente.whilePainting = [&] {
        const std::optional<int> percento = principale().statusBar->progress;
        if (percento && (avanzamento.empty() || avanzamento.back() != *percento)) {
            avanzamento.push_back(*percento);
        }
    };
    CompattaArchivio(sessione);
    EXPECT_EQ(avanzamento, (std::vector<int>{0, 30, 80}));
    EXPECT_EQ(principale().statusBar->progress, std::nullopt);
    const std::uint64_t dopo = files.size(archivio());
    EXPECT_LT(dopo, prima / 2 + prima / 4);
    EXPECT_EQ(parola(), "Archivio compattato: da " + testoByte(prima) + " a " + testoByte(dopo) + " byte");
    EXPECT_EQ(cliente(), "Rossi");
}

}  // namespace
}  // namespace bravona
