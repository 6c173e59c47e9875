#include <gtest/gtest.h>

#include <string>

#include "masterdata/frmInformazioniDitta.h"
#include "masterdata/frmModalitaPagamento.h"
#include "support/ProgrammaDiProva.h"

// Texts that the person types or pastes come back as they were, from the store and on the screens.

namespace bravona {
namespace {

std::string lungo(std::size_t caratteri)
{
    std::string testo;
    while (testo.size() < caratteri) {
        testo += "È l'unità 'così' \"detta\" 100%_*?[x]#;";
    }
    return testo;
}

const std::string testi[] = {
    "D'Angelo & C.",
    "'",
    "''''",
    "100% * ? _ # [x] ; --",
    "\"tra virgolette\"",
    "  spazi intorno ",
    "àèìòù €",
    std::string(255, 'x'),
    lungo(5000),
};

// Typed over what the box holds, as one pasted text.
void incolla(UtenteDiProva& utente, Control& casella, const std::string& testo)
{
    utente.focus(casella);
    utente.paste(testo);
}

TEST(DatiDitta, TextsOfTheSheetAreKeptAsTyped)
{
    constexpr std::size_t libere[] = {0, 1, 2, 3, 6, 7};  // those without a filter
    ProgrammaDiProva programma;
    UtenteDiProva& utente = programma.utente;
    for (const std::string& testo : testi) {
        SCOPED_TRACE(testo.substr(0, 40));
        utente.inModal([&](Form& form) {
            auto& ditta = dynamic_cast<frmInformazioniDitta&>(form);
            for (const std::size_t i : libere) {
                incolla(utente, ditta.txtAnagrafica[i], testo);
            }
            utente.click(ditta.Command1[0]);
        });
        programma.menu("mnuDatiAzienda");
        EXPECT_EQ(programma.sessione().DatiDitta.RagioneSocialeRiga1, testo);
        EXPECT_EQ(programma.sessione().DatiDitta.Fax, testo);
        utente.inModal([&](Form& form) {
            auto& ditta = dynamic_cast<frmInformazioniDitta&>(form);
            for (const std::size_t i : libere) {
                EXPECT_EQ(ditta.txtAnagrafica[i].text(), testo) << i;
            }
            EXPECT_FALSE(ditta.Variato);
        });
        programma.menu("mnuDatiAzienda");
    }
    EXPECT_EQ(utente.boxCount(), 0U);
}

TEST(DatiDitta, APastedBreakIsABlankAndFiltersHoldForPastedTextsToo)
{
    ProgrammaDiProva programma;
    UtenteDiProva& utente = programma.utente;
    utente.inModal([&](Form& form) {
        auto& ditta = dynamic_cast<frmInformazioniDitta&>(form);
        incolla(utente, ditta.txtAnagrafica[0], "una\nriga\r\nsola");
        incolla(utente, ditta.txtAnagrafica[4], "to");
        incolla(utente, ditta.txtAnagrafica[5], "I-10121");
        incolla(utente, ditta.txtAnagrafica[8], "IT 0123.456");
        utente.click(ditta.Command1[0]);
    });
    programma.menu("mnuDatiAzienda");
    const DatiDitta& ditta = programma.sessione().DatiDitta;
    EXPECT_EQ(ditta.RagioneSocialeRiga1, "una riga sola");
    EXPECT_EQ(ditta.Provincia, "TO");
    EXPECT_EQ(ditta.Cap, "10121");
    EXPECT_EQ(ditta.PartitaIva, " 0123456");  // a blank passes every filter
}

TEST(DatiDitta, TextsOfTheGridsAreKeptAsTyped)
{
    ProgrammaDiProva programma;
    UtenteDiProva& utente = programma.utente;
    for (const std::string& testo : testi) {
        SCOPED_TRACE(testo.substr(0, 40));
        programma.menu("mnuModalitaPagamento");
        auto& pagamenti = programma.sessione().schermate().as<frmModalitaPagamento>("frmModalitaPagamento");
        utente.goToCell(pagamenti.DataGrid1, pagamenti.DataGrid1.dataRows(), 1);
        utente.paste(testo);
        utente.click(pagamenti.cmdChiudi);
        EXPECT_EQ(programma.valore("SELECT TOP 1 ModalitaPagamento FROM ModalitaPagamento ORDER BY "
                                   "IDmodalitaPagamento DESC"),
                  testo);
        utente.inModal([&](Form& form) {
            auto& ditta = dynamic_cast<frmInformazioniDitta&>(form);
            utente.goToCell(ditta.DataGrid1, ditta.DataGrid1.dataRows(), 2);
            utente.paste(testo);
            utente.key(Key::tab);
            const std::size_t riga = ditta.DataGrid1.row();
            EXPECT_EQ(ditta.DataGrid1.cellText(riga, 2), testo);
            utente.click(ditta.Command1[1]);
        });
        programma.menu("mnuDatiAzienda");
        EXPECT_EQ(programma.valore("SELECT TOP 1 ContoCorrente FROM BancheDitta ORDER BY IDBanca DESC"), testo);
    }
    EXPECT_EQ(utente.boxCount(), 0U);
}

// What counts is the position of the columns: a sheet that wrote by another order would mix them up.
TEST(DatiDitta, TheNineBoxesAreTheFirstNineColumns)
{
    ProgrammaDiProva programma;
    UtenteDiProva& utente = programma.utente;
    utente.inModal([&](Form& form) {
        auto& ditta = dynamic_cast<frmInformazioniDitta&>(form);
        for (std::size_t i = 0; i < ditta.txtAnagrafica.size(); ++i) {
            incolla(utente, ditta.txtAnagrafica[i], std::to_string(i));
        }
        utente.click(ditta.Command1[0]);
    });
    programma.menu("mnuDatiAzienda");
    const DatiDitta& d = programma.sessione().DatiDitta;
    EXPECT_EQ(d.RagioneSocialeRiga1 + d.RagioneSocialeRiga2 + d.Indirizzo + d.Citta + d.Provincia + d.Cap + d.Telefono +
                  d.Fax + d.PartitaIva,
              "012345678");
}

}  // namespace
}  // namespace bravona
