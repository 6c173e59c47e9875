#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <set>

#include "documents/modScarico.h"
#include "platform/values/Errore.h"
#include "schema/Schema.h"
#include "support/ProgrammaDiProva.h"
#include "support/ScritturaUccisa.h"

namespace bravona {
namespace {

namespace fs = std::filesystem;

constexpr int righe = 3;

// What an archive holds of the one document, and of its effect on the stock.
struct Stato {
    int testate = 0, dettagli = 0, rate = 0;
    bool scaricati = false, interi = true;
    auto operator<=>(const Stato&) const = default;
};
constexpr Stato nulla{0, 0, 0, false, true};
constexpr Stato registrato{1, righe, 3, false, true};
constexpr Stato scaricato{1, righe, 3, true, true};

Stato leggi(Connection& cn)
{
    const auto conta = [&cn](const std::string& tabella) {
        return static_cast<int>(cn.open("SELECT * FROM " + tabella).recordCount());
    };
    Stato stato;
    stato.testate = conta("Fatture");
    stato.dettagli = conta("Fatture_Dettagli");
    stato.rate = conta("Scadenzario");
    Recordset articoli = cn.open("SELECT Giacenza FROM Articoli ORDER BY IDArticolo");
    const double primo = articoli[0].asDouble();
    articoli.moveNext();
    const double secondo = articoli[0].asDouble();
    stato.scaricati = primo == 998 && secondo == 999;
    stato.interi = stato.scaricati || (primo == 1000 && secondo == 1000);
    return stato;
}

TEST(Registration, AFailureAtAnySingleWriteLeavesNoTraceOfIt)
{
    ProgrammaDiProva programma;
    programma.componiFattura(righe);
    Connection& cn = programma.sessione().cn;
    constexpr int tentativiMassimi = 100;
    int fallimento = 0;
    while (leggi(cn) == nulla && fallimento < tentativiMassimi) {
        ++fallimento;
        int scritture = 0;
        cn.setWriteHook([&](const std::string&) {
            if (++scritture == fallimento) {
                throw Errore(3035, "guasto di prova");
            }
        });
        const std::size_t finestre = programma.utente.boxCount();
        programma.utente.click(programma.controllo("cmdDocumento[0]"));
        ASSERT_GT(programma.utente.boxCount(), finestre) << "the failure was not told";
    }
    // Header, rows, instalments and the note of the stock failed in turn; then the first write to the stock did, and
    // the document stayed.
    EXPECT_EQ(fallimento, 1 + righe + 3 + 1 + 1);
    EXPECT_EQ(leggi(cn), registrato);
    EXPECT_FALSE(cn.inTransaction());
}

TEST(Registration, AKillAtAnyInstantLeavesTheArchiveBeforeOrAfterIt)
{
    ScritturaUccisa::installa();
    ProgrammaDiProva programma;
    programma.componiFattura(righe);
    const fs::path archivio = programma.archivio();
    const fs::path prima = programma.cartella() / "prima.mdb";
    const fs::path dopo = programma.cartella() / "dopo.mdb";
    const auto giornale = [](const fs::path& file) { return fs::path(file.string() + "-journal"); };
    fs::copy_file(archivio, prima);

    std::set<Stato> visti;
    int istanti = 0;
    for (const auto modo : {ScritturaUccisa::Modo::prima, ScritturaUccisa::Modo::mezza}) {
        for (bool ucciso = true; ucciso;) {
            ++istanti;
            const pid_t figlio = ::fork();
            if (figlio == 0) {
                ScritturaUccisa::arma(istanti, modo);
                programma.utente.click(programma.controllo("cmdDocumento[0]"));
                ::_exit(0);
            }
            int esito = 0;
            ASSERT_EQ(::waitpid(figlio, &esito, 0), figlio);
            ucciso = WIFSIGNALED(esito);
            if (!ucciso) {
                ASSERT_EQ(WEXITSTATUS(esito), 0);
            }

            fs::copy_file(archivio, dopo, fs::copy_options::overwrite_existing);
            fs::remove(giornale(dopo));
            if (fs::exists(giornale(archivio))) {
                fs::copy_file(giornale(archivio), giornale(dopo));
            }
            fs::copy_file(prima, archivio, fs::copy_options::overwrite_existing);
            fs::remove(giornale(archivio));

            Connection cn;
            cn.open(dopo.string(), passwordArchivio);
            const Stato stato = leggi(cn);
            EXPECT_TRUE(stato == nulla || stato == registrato || stato == scaricato)
                << "operation " << istanti << ": " << stato.testate << " headers, " << stato.dettagli << " rows, "
                << stato.rate << " instalments";
            visti.insert(stato);
            // The next start makes good what was due.
            riprendiScarichi(cn);
            EXPECT_EQ(leggi(cn), stato == nulla ? nulla : scaricato) << "operation " << istanti;
            EXPECT_TRUE(cn.open("SELECT * FROM ScarichiDovuti").eof());
        }
        EXPECT_GT(istanti, 10);
        istanti = 0;
    }
    EXPECT_EQ(visti, (std::set<Stato>{nulla, registrato, scaricato}));
}

}  // namespace
}  // namespace bravona
