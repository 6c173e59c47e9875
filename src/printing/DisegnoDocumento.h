#pragma once

#include <string>
#include <vector>

#include "printing/Disegno.h"
#include "session/Sessione.h"

namespace bravona {

// What the four document designs share. All heights in millimetres; the sheet is A4 with the margins of
// `DocumentoVuoto`, 190 wide inside them.

inline constexpr double larghezzaUtile = 190;
inline constexpr double altezzaUtile = 281;   // 297 less the margins
inline constexpr double altezzaTestata = 87;  // section "H", the column headings included

// The words in which the designs differ above their rows.
struct ParoleTestata {
    std::string nomeTitolo;  // control of the title
    std::string titolo;
    std::string numero;         // caption of the number
    std::string pagina;         // page token
    std::string nomeProvincia;  // label of the firm's province
    bool registro = false;
    bool pagamento = false;
};

// Section "H" down to the column headings: logo or company block, title, number, date, page, customer, destination, tax
// numbers.
void DisegnaTestata(Report& report, const ParoleTestata& testata);

// Without a second line of the customer's name his address moves up to the first.
void ImpostaDestinatario(ReportSection& testata, bool secondaRiga);
// The firm's postcode before its town, unless it was written there.
void ImpostaCap(ReportSection& testata, const DatiDitta& ditta);
// What the law wants to read on an invoice stands beneath a logo as letters: name, VAT number and the province, which
// is no part of what a logo replaces.
void ImpostaDatiLegali(ReportSection& testata, const DatiDitta& ditta);

struct ColonnaRighe {
    std::string etichetta;  // control of the heading
    std::string testo;
    double larghezza;
    Align intestazione;
    Align allineamento;
    std::vector<std::string> colonne;  // bound columns that share it
};

// Headings in "H" and rows in "D", with their rules. `altezzaRiga` times `righe` must leave room for the footer.
void DisegnaRighe(Report& report, const std::vector<ColonnaRighe>& colonne, int righe, double altezzaRiga,
                  double punti);

// Blocks of section "F", each from a height on; they return the height behind them.
double DisegnaRiepilogoETotali(ReportSection& piede, double y, const std::string& nomeTotale,
                               const std::string& titoloTotale);
double DisegnaTrasporto(ReportSection& piede, double y, int vettori);
struct ParoleFirme {
    std::string nomeVariazioni, variazioni;
    double altezza = 12;
};
double DisegnaFirme(ReportSection& piede, double y, const ParoleFirme& firme);
void DisegnaSegue(ReportSection& piede, double y);

// Columns and totals of a document with prices.
struct ParoleRighe {
    std::string quantita, prezzo, totaleRiga;
};
std::vector<ColonnaRighe> ColonneFattura(const ParoleRighe& parole);

}  // namespace bravona
