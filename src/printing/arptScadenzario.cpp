#include "printing/arptScadenzario.h"

#include <array>

#include "printing/DisegnoElenco.h"

namespace bravona {

namespace {

constexpr double larghezza = larghezzaElencoDiTraverso;

constexpr std::array<ColonnaElenco, 11> colonne{{{"Label3", "Cliente", "Cliente", 54},
                                                 {"Label4", "N° Fattura", "NumeroDocumento", 18, Align::right},
                                                 {"Label5", "Data Fattura", "DataDocumento", 22, Align::centre},
                                                 {"Label6", "Modalità Pagamento", "ModalitaPagamento", 38},
                                                 {"Label7", "Descrizione", "Descrizione", 30},
                                                 {"Label8", "Scadenza", "Scadenza", 20, Align::centre},
                                                 {"Label9", "Data Pagamento", "Data_Pagamento", 25, Align::centre},
                                                 {"Label10", "Dare", "Dare", 20, Align::right},
                                                 {"Label11", "Avere", "Avere", 20, Align::right},
                                                 {"Label12", "Saldo", "Saldo", 20, Align::right},
                                                 {"Label13", "Saldo", "Saldato", 10, Align::centre}}};

struct Voce {
    const char* etichetta;
    const char* didascalia;
    const char* nome;
    double x, larghezzaDidascalia, larghezza;  // mm
    int riga;
};

constexpr std::array<Voce, 5> voci{{{"Label2", "Periodo", "Label14", 0, 16, 40, 0},
                                    {"Label16", "Cliente", "Label17", 60, 16, 100, 0},
                                    {"Label18", "Registro", "Label19", 180, 18, 78, 0},
                                    {"Label36", "Totale Documenti", "Label37", 0, 32, 24, 1},
                                    {"Label38", "Totale", "Label39", 60, 16, 50, 1}}};

}  // namespace

Report arptScadenzario()
{
    constexpr double primaRiga = 10;
    constexpr double riga = 5;
    constexpr double paginaLarga = 60;
    Report report = ListaVuota("arptScadenzario", "Bravona - Anteprima Scadenzario", "F");
    report.landscape = true;
    ReportSection& testata = report["H"];
    testata.controls.push_back(Etichetta("Label1", "Scadenzario", {0, 0, larghezza - paginaLarga, 9}, {15, 9, true}));
    // Their number before the page, as this print has always told it; the foot of the sheet has them the usual way.
    testata.controls.push_back(Etichetta("Label15", "Pagina %P di %p", {larghezza - paginaLarga, 2, paginaLarga, riga},
                                         {8.5, 0, false, Align::right, grigioDidascalia}));
    for (const Voce& voce : voci) {
        const double y = primaRiga + voce.riga * riga;
        testata.controls.push_back(Etichetta(voce.etichetta, voce.didascalia,
                                             {voce.x, y, voce.larghezzaDidascalia, riga},
                                             {8.5, 0, false, Align::left, grigioDidascalia}));
        testata.controls.push_back(Etichetta(
            voce.nome, "", {voce.x + voce.larghezzaDidascalia, y, voce.larghezza, riga}, {9, 7, voce.riga == 1}));
    }
    MettiColonne(report, primaRiga + 2 * riga + 1, colonne);
    report["Section1"]["Saldato"].symbol = true;
    MettiPiede(report["F"], 0, larghezza);
    return report;
}

}  // namespace bravona
