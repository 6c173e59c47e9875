#include "maintenance/ArchivioComeFile.h"

#include "maintenance/FRMRipristino.h"
#include "maintenance/FRM_Backup.h"
#include "session/frmMain.h"
#include "support/Fallimento.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(parola(), "Backup di " + testoByte(fs::file_size(backup())) + " byte (archivio " +
                            testoByte(fs::file_size(archivio())) + " byte) in " + backup());
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
    CompattaArchivio(sessione);
    const std::uint64_t dopo = files.size(archivio());
    EXPECT_LT(dopo, prima / 2 + prima / 4);
    EXPECT_EQ(parola(), "Archivio compattato: da " + testoByte(prima) + " a " + testoByte(dopo) + " byte");
    EXPECT_EQ(cliente(), "Rossi");
}

}  // namespace
}  // namespace bravona
