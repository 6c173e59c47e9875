#include "maintenance/ArchivioComeFile.h"

#include "support/Fallimento.h"
#include "support/MorteAllIstante.h"
#include "support/ScritturaUccisa.h"

#include <gtest/gtest.h>

#include <set>

namespace bravona {
namespace {

namespace fs = std::filesystem;

class ArchivioUcciso : public ArchivioComeFile {
protected:
    ArchivioUcciso()
    {
        sessione.cn.close();
        fs::copy(cartella.path(), copia_, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
    }
    ~ArchivioUcciso() override
    {
        std::error_code ignorato;
        fs::remove_all(copia_, ignorato);
    }

    void ricomincia()
    {
        fs::remove_all(cartella.path());
        fs::copy(copia_, cartella.path(), fs::copy_options::recursive | fs::copy_options::copy_symlinks);
    }

    // A transaction on half of the rows is in the file, with the journal that undoes it beside it.
    void uccidiUnaTransazione()
    {
        ScritturaUccisa::installa();
        const auto azione = [this] {
            Connection cn;
            cn.open(archivio(), passwordArchivio);
            cn.begin();
            for (int i = 0; i < 400; ++i) {
                cn.execute("INSERT INTO Comuni (Comune, Cap) VALUES ('" + std::to_string(i) + "', '10100')");
            }
            cn.execute("UPDATE Clienti SET Cliente = 'Mezzo'");
            ScritturaUccisa::arma(operazioneInMezzo, ScritturaUccisa::Modo::prima);
            cn.commit();
        };
        const Bytes prima = files.read(archivio());
        EXPECT_ANY_THROW(istantiDi(azione)) << "the transaction was to be killed";
        ASSERT_TRUE(giornaleAccanto(archivio()));
        ASSERT_NE(files.read(archivio()), prima) << "nothing of it is in the file";
    }
    // The flushes of the journal come first; then the pages of the archive.
    static constexpr int operazioneInMezzo = 8;

    const fs::path copia_ = cartella.path().string() + "-copia";
};

TEST_F(ArchivioUcciso, ARestoreKilledAtAnyInstantLeavesTheOldArchiveOrTheNewOne)
{
    std::set<std::string> visti;
    int istante = 1;
    for (;; ++istante) {
        ricomincia();
        const bool ucciso = uccidiAllIstante(istante, [this] { RipristinaArchivio(sessione, huffman, backup()); });
        EXPECT_FALSE(giornaleAccanto(archivio())) << istante;
        const std::string cliente = clienteIn(archivio());
        visti.insert(cliente);
        if (!ucciso) {
            EXPECT_EQ(cliente, "Bianchi");
            break;
        }
        ASSERT_TRUE(cliente == "Rossi" || cliente == "Bianchi") << cliente << " at " << istante;
        if (cliente == "Bianchi") {
            EXPECT_EQ(clienteIn(in("Database/DBBVEURO_precedente.mdb")), "Rossi") << istante;
        }
        // What it left lying about is in nobody's way.
        RipristinaArchivio(sessione, huffman, backup());
        sessione.cn.close();
        EXPECT_EQ(clienteIn(archivio()), "Bianchi") << istante;
        EXPECT_FALSE(fs::exists(in("Database/DBBVEURO_bk.mdb")));
    }
    EXPECT_GT(istante, 8);
    EXPECT_EQ(clienteIn(in("Database/DBBVEURO_precedente.mdb")), "Rossi");
    EXPECT_EQ(visti.size(), 2U);
}

TEST_F(ArchivioUcciso, ABackupKilledAtAnyInstantLeavesTheEarlierOneOrTheNewOne)
{
    std::set<std::string> visti;
    for (int istante = 1;; ++istante) {
        ricomincia();
        const bool ucciso = uccidiAllIstante(istante, [this] { SalvaArchivio(sessione, huffman, backup()); });
        EXPECT_EQ(clienteIn(archivio()), "Rossi") << istante;
        const std::string cliente = clienteIn(originaleDi(backup()));
        visti.insert(cliente);
        if (!ucciso) {
            EXPECT_EQ(cliente, "Rossi");
            break;
        }
        ASSERT_TRUE(cliente == "Rossi" || cliente == "Bianchi") << cliente << " at " << istante;
    }
    EXPECT_EQ(visti.size(), 2U);
}

TEST_F(ArchivioUcciso, ACompactionKilledAtAnyInstantLosesNothing)
{
    const auto compatta = [this] {
        CompattaArchivio(sessione);
        if (!ultimoMessaggio().ends_with("Compattazione dati completata!")) {
            throw std::runtime_error(ultimoMessaggio());
        }
    };
    compatta();  // what is done once in a process (by a sanitizer) is done, and the instants are the same each time
    sessione.cn.close();
    ricomincia();
    const Bytes vecchio = files.read(archivio());
    std::set<Bytes> nuovi;
    const int istanti = istantiDi(compatta, [&](int istante) {
        const Bytes ora = files.read(archivio());
        if (ora != vecchio) {
            nuovi.insert(ora);
        }
        EXPECT_FALSE(giornaleAccanto(archivio())) << istante;
    });
    ASSERT_EQ(nuovi.size(), 1U) << "the old one or the new one, and nothing between";
    EXPECT_EQ(*nuovi.begin(), files.read(archivio()));
    EXPECT_EQ(clienteIn(archivio()), "Rossi");
    EXPECT_FALSE(fs::exists(in("temp_db.mdb")));
    // What comes after a kill is tried at some of them. Most are pages of the temporary file, written one like the
    // other; the replacement comes last.
    constexpr int passo = 29;
    constexpr int ultimi = 16;
    ASSERT_GT(istanti, 2 * passo);
    for (int istante = 1; istante <= istanti; istante += istante < istanti - ultimi ? passo : 1) {
        ricomincia();
        ASSERT_TRUE(uccidiAllIstante(istante, compatta));
        ASSERT_EQ(clienteIn(archivio()), "Rossi") << istante;
        // The person works on, takes away the file that is in the way, and compacts again: a journal of the killed
        // compaction must not bring back the archive of then.
        {
            Connection cn;
            cn.open(archivio(), passwordArchivio);
            cn.execute("UPDATE Clienti SET Cliente = 'Verdi'");
        }
        fs::remove(in("temp_db.mdb"));
        compatta();
        sessione.cn.close();
        ASSERT_EQ(clienteIn(archivio()), "Verdi") << istante;
    }
}

TEST_F(ArchivioUcciso, AKilledTransactionIsNotPlayedIntoTheRestoredArchive)
{
    uccidiUnaTransazione();
    RipristinaArchivio(sessione, huffman, backup());
    sessione.cn.close();
    EXPECT_FALSE(giornaleAccanto(archivio()));
    EXPECT_EQ(clienteIn(archivio()), "Bianchi");
}

TEST_F(ArchivioUcciso, ItsJournalDoesNotOutliveAnArchiveThatCannotBeOpened)
{
    uccidiUnaTransazione();
    files.replace(archivio(), {'r', 'o', 't', 't', 'o'});
    RipristinaArchivio(sessione, huffman, backup());
    sessione.cn.close();
    EXPECT_EQ(clienteIn(archivio()), "Bianchi");
    uccidiUnaTransazione();
    fs::remove(archivio());
    RipristinaArchivio(sessione, huffman, backup());
    sessione.cn.close();
    EXPECT_EQ(clienteIn(archivio()), "Bianchi");
}

TEST_F(ArchivioUcciso, AKilledTransactionIsRolledBackBeforeTheBackup)
{
    uccidiUnaTransazione();
    SalvaArchivio(sessione, huffman, backup());
    EXPECT_FALSE(giornaleAccanto(archivio()));
    EXPECT_EQ(clienteIn(originaleDi(backup())), "Rossi");
}

TEST_F(ArchivioUcciso, AKilledTransactionIsRolledBackBeforeTheCompaction)
{
    uccidiUnaTransazione();
    CompattaArchivio(sessione);
    sessione.cn.close();
    EXPECT_FALSE(giornaleAccanto(archivio()));
    EXPECT_EQ(clienteIn(archivio()), "Rossi");
}

TEST_F(ArchivioUcciso, AnArchiveThatAnotherProgramIsChangingIsLeftAlone)
{
    Connection altro;
    altro.open(archivio(), passwordArchivio);
    altro.begin();
    altro.execute("UPDATE Clienti SET Cliente = 'Altro'");
    EXPECT_EQ(numeroDelFallimento([&] { return RipristinaArchivio(sessione, huffman, backup()); }), 3218U);
    EXPECT_EQ(numeroDelFallimento([&] { return SalvaArchivio(sessione, huffman, backup()); }), 3218U);
    altro.commit();
    altro.close();
    EXPECT_EQ(clienteIn(archivio()), "Altro");
    EXPECT_EQ(clienteIn(originaleDi(backup())), "Bianchi");
}

}  // namespace
}  // namespace bravona
