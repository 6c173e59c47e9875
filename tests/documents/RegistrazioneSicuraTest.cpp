#include <gtest/gtest.h>

#include <set>

#include "documents/modScarico.h"
#include "platform/values/Errore.h"
#include "support/OgniIstante.h"
#include "support/ProgrammaDiProva.h"
#include "support/ScritturaUccisa.h"

namespace bravona {
namespace {

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
    std::set<Stato> visti;
    const int uccisioni = uccidiAOgniIstante(
        programma, [&] { programma.utente.click(programma.controllo("cmdDocumento[0]")); },
        [&](Connection& cn) {
            const Stato stato = leggi(cn);
            EXPECT_TRUE(stato == nulla || stato == registrato || stato == scaricato)
                << stato.testate << " headers, " << stato.dettagli << " rows, " << stato.rate << " instalments";
            visti.insert(stato);
            // The next start makes good what was due.
            riprendiScarichi(cn);
            EXPECT_EQ(leggi(cn), stato == nulla ? nulla : scaricato);
            EXPECT_TRUE(cn.open("SELECT * FROM ScarichiDovuti").eof());
        });
    EXPECT_GT(uccisioni, 20);
    EXPECT_EQ(visti, (std::set<Stato>{nulla, registrato, scaricato}));
}

}  // namespace
}  // namespace bravona
