#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/values/Errore.h"
#include "program/CartellaProgramma.h"
#include "support/Fallimento.h"

namespace bravona {
namespace {

namespace fs = std::filesystem;

class CartellaProgramma : public testing::Test {
protected:
    void SetUp() override
    {
        std::string modello = (fs::temp_directory_path() / "bravona-cartella-XXXXXX").string();
        radice_ = mkdtemp(modello.data());
        scrivi("fornita/Database/DBBVEURO.mdb", "consegnato");
        scrivi("fornita/logo/logo.gif", "marchio");
    }
    void TearDown() override { fs::remove_all(radice_); }

    void scrivi(const std::string& nome, const std::string& testo) const
    {
        fs::create_directories((radice_ / nome).parent_path());
        std::ofstream(radice_ / nome) << testo;
    }
    [[nodiscard]] std::string leggi(const std::string& nome) const
    {
        std::ostringstream testo;
        testo << std::ifstream(radice_ / nome).rdbuf();
        return testo.str();
    }
    void prepara(bool archivioScelto = false)
    {
        preparaCartellaProgramma(files_, (radice_ / "programma").string(), (radice_ / "fornita").string(),
                                 archivioScelto);
    }

    fs::path radice_;
    Files files_;
};

TEST_F(CartellaProgramma, IlPrimoAvvioPrendeQuantoEFornito)
{
    prepara();
    EXPECT_EQ(leggi("programma/Database/DBBVEURO.mdb"), "consegnato");
    EXPECT_EQ(leggi("programma/logo/logo.gif"), "marchio");
    EXPECT_TRUE(fs::is_directory(radice_ / "programma" / "images"));
}

TEST_F(CartellaProgramma, IDueNomiSonoLoStessoFile)
{
    prepara();
    scrivi("programma/Database/DBBVEURO.mdb", "lavorato");
    EXPECT_EQ(leggi("programma/dbbveuro.mdb"), "lavorato");
}

TEST_F(CartellaProgramma, UnAltroAvvioLasciaIlLavoroDellaPersona)
{
    prepara();
    scrivi("programma/Database/DBBVEURO.mdb", "lavorato");
    scrivi("programma/logo/logo.gif", "mio");
    fs::remove(radice_ / "programma" / "dbbveuro.mdb");
    prepara();
    EXPECT_EQ(leggi("programma/Database/DBBVEURO.mdb"), "lavorato");
    EXPECT_EQ(leggi("programma/logo/logo.gif"), "mio");
    EXPECT_EQ(leggi("programma/dbbveuro.mdb"), "lavorato");
}

TEST_F(CartellaProgramma, IlGiornaleDiUnArchivioToltoNonGuastaQuelloFornito)
{
    scrivi("programma/Database/DBBVEURO.mdb-journal", "di prima");
    prepara();
    EXPECT_FALSE(fs::exists(radice_ / "programma/Database/DBBVEURO.mdb-journal"));
    // The journal stands where the link leads.
    fs::remove(radice_ / "programma/Database/DBBVEURO.mdb");
    fs::create_symlink("../../disco/vero.mdb", radice_ / "programma/Database/DBBVEURO.mdb");
    scrivi("disco/vero.mdb-journal", "di prima");
    prepara();
    EXPECT_EQ(leggi("disco/vero.mdb"), "consegnato");
    EXPECT_FALSE(fs::exists(radice_ / "disco/vero.mdb-journal"));
}

TEST_F(CartellaProgramma, UnArchivioSceltoEPersoNonESostituitoDaQuelloFornito)
{
    prepara();
    fs::remove(radice_ / "programma/Database/DBBVEURO.mdb");
    prepara(true);
    EXPECT_FALSE(fs::exists(radice_ / "programma/Database/DBBVEURO.mdb"));
}

TEST_F(CartellaProgramma, QuantoFattoPrimaNonELeggibileDaAltri)
{
    prepara();
    scrivi("programma/Database/DBBVEURO_bk.mdb", "resto");
    fs::permissions(radice_ / "programma", fs::perms(0755));
    fs::permissions(radice_ / "programma/Database", fs::perms(0755));
    fs::permissions(radice_ / "programma/Database/DBBVEURO.mdb", fs::perms(0644));
    prepara(true);
    EXPECT_EQ(fs::status(radice_ / "programma").permissions(), fs::perms(0700));
    for (const char* nome : {"DBBVEURO.mdb", "DBBVEURO_bk.mdb"}) {
        EXPECT_EQ(fs::status(radice_ / "programma/Database" / nome).permissions() & fs::perms(0077), fs::perms::none)
            << nome;
    }
}

TEST_F(CartellaProgramma, SenzaArchivioFornitoLAvvioLoDice)
{
    fs::remove_all(radice_ / "fornita");
    EXPECT_EQ(numeroDelFallimento([this] {
                  prepara();
                  return 0;
              }),
              errori::fileMancante);
}

}  // namespace
}  // namespace bravona
