#include "printing/arptElencoFatturevb.h"

#include <array>

#include "printing/DisegnoElenco.h"

namespace bravona {

namespace {

constexpr std::array<ColonnaElenco, 5> colonne{
    {{"Label1", "Numero", "NumeroDocumento", 20, Align::right},
     {"Label2", "Data", "DataF", 24, Align::centre},
     {"Label3", "Cliente", "Cliente", 70},
     {"Label4", "Mod. pagamento", "ModalitaPagamento", 44},
     {"Label5", "Importo (iva inc.)", "TotaleDocumento", 32, Align::right, "#,##0.00"}}};

struct Totale {
    const char* etichetta;
    const char* didascalia;
    const char* euro;
    const char* nome;
    bool nero;
};

constexpr std::array<Totale, 3> totali{{{"Label6", "Totale Imponibile :", "Label9", "txtTotaleImp", false},
                                        {"Label7", "Totale IVA :", "Label10", "txtTotaleIVA", false},
                                        {"Label8", "Totale :", "Label11", "txtTotale", true}}};

}  // namespace

Report arptElencoFatturevb()
{
    Report report = ListaVuota("arptElencoFatturevb", "Bravona - Anteprima Elenco Fatture", "F");
    report["H"].controls.push_back(
        Etichetta("lblTitolo", "Elenco Fatture", {0, 0, larghezzaElenco, 9}, {14, 9, true, Align::centre}));
    MettiColonne(report, 11, colonne);

    constexpr double riga = 5;
    ReportSection& piede = report["F"];
    piede.controls.push_back(Filo(0, 1, larghezzaElenco, 0, grigioFilo, 16));
    double y = 2;
    piede.controls.push_back(Etichetta("lblNumeroDocumenti", "Numero Documenti:", {1.2, y, 80, riga}, {9}));
    for (const Totale& totale : totali) {
        piede.controls.push_back(
            Etichetta(totale.etichetta, totale.didascalia, {100, y, 48, riga}, {9, 0, totale.nero, Align::right}));
        piede.controls.push_back(Etichetta(totale.euro, "€", {149, y, 6, riga}, {9, 0, totale.nero, Align::centre}));
        piede.controls.push_back(
            Etichetta(totale.nome, "", {155, y, 33.8, riga}, {totale.nero ? 10.0 : 9.0, 7, totale.nero, Align::right}));
        y += riga;
    }
    piede.controls.push_back(
        Etichetta("lblTotaleLire", "", {120, y, 68.8, riga}, {8, 7, false, Align::right, grigioDidascalia}));
    MettiPiede(piede, y + riga);
    return report;
}

}  // namespace bravona
