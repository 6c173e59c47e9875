#include <gtest/gtest.h>

#include <string>

#include "documents/TipoDocumento.h"
#include "support/ProgrammaDiProva.h"

namespace bravona {
namespace {

constexpr int rateDelPiano = 3;

void registra(ProgrammaDiProva& programma, std::int16_t tipoDocumento)
{
    programma.componi(tipoDocumento, 1);
    programma.utente.click(programma.controllo("cmdDocumento[0]"));
    programma.utente.click(programma.controllo("cmdDocumento[1]"));
    programma.utente.click(programma.controllo("cmdAzioni[1]"));
}

void modifica(ProgrammaDiProva& programma, std::int16_t tipoDocumento, std::int32_t numero)
{
    programma.apri(tipoDocumento, numero);
    programma.utente.click(programma.controllo("cmdDocumento[0]"));
    programma.utente.click(programma.controllo("cmdDocumento[0]"));
}

// Invoices and quotations registered in one order and saved again in another: every sequence of four documents, the
// bits of `ordine` telling which are quotations.
TEST(QuotationsAndInvoices, TheirInstalmentsNeverMeetWhateverTheOrder)
{
    constexpr unsigned documenti = 4;
    for (unsigned ordine = 0; ordine < 1U << documenti; ++ordine) {
        SCOPED_TRACE("order " + std::to_string(ordine));
        ProgrammaDiProva programma;
        std::vector<std::pair<std::int16_t, std::int32_t>> fatti;
        std::int32_t fatture = 0;
        std::int32_t preventivi = 0;
        for (unsigned i = 0; i < documenti; ++i) {
            const bool preventivo = (ordine >> i & 1U) != 0;
            const std::int16_t tipoDocumento = preventivo ? tipo::proforma : tipo::fattura;
            registra(programma, tipoDocumento);
            fatti.emplace_back(tipoDocumento, preventivo ? ++preventivi : ++fatture);
        }
        for (auto documento = fatti.rbegin(); documento != fatti.rend(); ++documento) {
            modifica(programma, documento->first, documento->second);
        }
        EXPECT_EQ(programma.valore("SELECT COUNT(*) FROM Fatture INNER JOIN Scadenzario ON Fatture.IDFattura = "
                                   "Scadenzario.IDDocumento"),
                  std::to_string(fatture * rateDelPiano));
        EXPECT_EQ(programma.valore("SELECT COUNT(*) FROM Proforma INNER JOIN Scadenzario ON Proforma.IDFattura = "
                                   "Scadenzario.IDDocumento"),
                  std::to_string(preventivi * rateDelPiano));
        EXPECT_EQ(programma.valore("SELECT COUNT(*) FROM Scadenzario"),
                  std::to_string((fatture + preventivi) * rateDelPiano));
    }
}

}  // namespace
}  // namespace bravona
