#include <gtest/gtest.h>

#include <set>

#include "documents/TipoDocumento.h"
#include "platform/values/Errore.h"
#include "support/OgniIstante.h"
#include "support/ProgrammaDiProva.h"
#include "support/ScritturaUccisa.h"

namespace bravona {
namespace {

constexpr int righe = 3;

// What the archive holds of documents and stock, the keys of rows and instalments aside.
std::string contenuto(Connection& cn)
{
    std::string testo;
    for (const char* domanda :
         {"SELECT * FROM Fatture ORDER BY IDFattura", "SELECT * FROM Bolle ORDER BY IDBolla",
          "SELECT * FROM Proforma ORDER BY IDFattura",
          "SELECT IDFattura, IDArticolo, CodiceArticolo, Descrizione, UnitaMisura, Quantita, PrezzoUnitario, "
          "TotaleRiga FROM Fatture_Dettagli ORDER BY IDRiga",
          "SELECT IDBolla, IDArticolo, CodiceArticolo, Descrizione, UnitaMisura, Quantita, PrezzoUnitario, TotaleRiga "
          "FROM Bolle_Dettagli ORDER BY IDRiga",
          "SELECT IDFattura, IDArticolo, CodiceArticolo, Quantita, TotaleRiga FROM Proforma_Dettagli ORDER BY IDRiga",
          "SELECT IDDocumento, IDRegistro, Saldato, Scadenza, avere, dare FROM Scadenzario ORDER BY ID",
          "SELECT * FROM Articoli ORDER BY IDArticolo"}) {
        for (Recordset record = cn.open(domanda); !record.eof(); record.moveNext()) {
            for (std::size_t i = 0; i < record.columns().size(); ++i) {
                testo += record[i].text() + "|";
            }
            testo += "\n";
        }
        testo += "--\n";
    }
    return testo;
}

struct Caso {
    const char* nome;
    std::int16_t tipoDocumento;
    int scritture;  // of one saving
};

class Modification : public testing::TestWithParam<Caso> {
protected:
    Modification()
    {
        ScritturaUccisa::installa();
        programma_ = std::make_unique<ProgrammaDiProva>();
        registra();
        cambia();
    }

    ProgrammaDiProva& programma() { return *programma_; }
    void premi(const char* nome) { programma_->utente.click(programma_->controllo(nome)); }
    void aggiorna() { premi("cmdDocumento[0]"); }

private:
    // A document of three rows, registered.
    void registra()
    {
        programma_->componi(GetParam().tipoDocumento, righe);
        premi("cmdDocumento[0]");
        premi("cmdDocumento[1]");
        premi("cmdAzioni[1]");
    }

    // The same on its screen, with a fourth row typed in and the first one's quantity changed.
    void cambia()
    {
        UtenteDiProva& utente = programma_->utente;
        programma_->apri(GetParam().tipoDocumento, 1);
        premi("cmdDocumento[0]");
        const char* schede = GetParam().tipoDocumento == tipo::ddt ? "SSTabDocumento" : "SSTab1";
        utente.chooseTab(dynamic_cast<TabControl&>(programma_->controllo(schede)), 1);
        utente.type(programma_->controllo("txtCodiceArticolo"), "B1");
        utente.key(Key::f3);
        premi("cmdDettagli[0]");
        utente.selectRow(programma_->controllo("lvwDettagli"), 0);
        premi("cmdDettagli[1]");
        utente.type(programma_->controllo("txtQuantita"), "7");
        premi("cmdDettagli[1]");
    }

    std::unique_ptr<ProgrammaDiProva> programma_;
};

TEST_P(Modification, AFailureAtAnySingleWriteLeavesTheDocumentAsItWas)
{
    Connection& cn = programma().sessione().cn;
    const std::string prima = contenuto(cn);
    constexpr int tentativiMassimi = 100;
    int fallimento = 0;
    bool fallito = true;
    while (fallito && fallimento < tentativiMassimi) {
        ++fallimento;
        int scritture = 0;
        fallito = false;
        cn.setWriteHook([&](const std::string&) {
            if (++scritture == fallimento) {
                fallito = true;
                throw Errore(3035, "guasto di prova");
            }
        });
        const std::size_t finestre = programma().utente.boxCount();
        aggiorna();
        ASSERT_EQ(programma().utente.boxCount(), finestre + 1);
        if (!fallito) {
            break;
        }
        EXPECT_EQ(programma().utente.lastBox().text.substr(0, 63),
                  "Attenzione! Operazione annullata a causa dell'errore n.3035\ngua");
        EXPECT_EQ(contenuto(cn), prima) << "write " << fallimento;
        EXPECT_FALSE(cn.inTransaction());
        EXPECT_EQ(dynamic_cast<Button&>(programma().controllo("cmdDocumento[0]")).caption(), "&Aggiorna");
        EXPECT_EQ(dynamic_cast<ListView&>(programma().controllo("lvwDettagli")).rowCount(), 4U);
    }
    EXPECT_EQ(fallimento, GetParam().scritture + 1);
    EXPECT_NE(contenuto(cn), prima);
}

TEST_P(Modification, AKillAtAnyInstantLeavesTheDocumentBeforeOrAfterIt)
{
    const std::string prima = contenuto(programma().sessione().cn);
    std::set<std::string> visti;
    std::string ultimo;
    const int uccisioni = uccidiAOgniIstante(
        programma(), [&] { aggiorna(); },
        [&](Connection& cn) {
            ultimo = contenuto(cn);
            visti.insert(ultimo);
        });
    EXPECT_GT(uccisioni, 20);
    EXPECT_NE(ultimo, prima);
    EXPECT_EQ(visti, (std::set<std::string>{prima, ultimo}));
}

// Header; old rows away, four rows; old instalments away, three instalments.
INSTANTIATE_TEST_SUITE_P(Documents, Modification,
                         testing::Values(Caso{"ddt", tipo::ddt, 1 + 1 + 4},
                                         Caso{"fattura", tipo::fattura, 1 + 1 + 4 + 1 + 3},
                                         Caso{"proforma", tipo::proforma, 1 + 1 + 4 + 1 + 3}),
                         [](const auto& caso) { return caso.param.nome; });

}  // namespace
}  // namespace bravona
