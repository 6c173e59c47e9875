#include "printing/DisegnoElenco.h"

#include <numeric>
#include <utility>

namespace bravona {

namespace {

constexpr double aria = 1.2;  // between a column's edge and its text

}  // namespace

void MettiColonne(Report& report, double y, std::span<const ColonnaElenco> colonne)
{
    ReportSection& testata = report["H"];
    ReportSection& righe = report[report.detailSection];
    const double tutte = std::accumulate(colonne.begin(), colonne.end(), 0.0,
                                         [](double somma, const ColonnaElenco& c) { return somma + c.larghezza; });
    testata.controls.push_back(Fondo({0, y, tutte, altezzaIntestazioni}, grigioIntestazione));
    righe.height = mm(altezzaRigaElenco);
    righe.alternate = true;
    double x = 0;
    for (const ColonnaElenco& colonna : colonne) {
        const double larghezza = colonna.larghezza - 2 * aria;
        ReportControl titolo =
            Etichetta(colonna.etichetta, colonna.titolo, {x + aria, y, larghezza, altezzaIntestazioni},
                      {8, 6.5, true, colonna.allineamento});
        // A blank at the edge of a heading does not put it out of line with its column.
        const int spazio = textWidth(" ", titolo.points, titolo.bold);
        if (colonna.allineamento == Align::left && titolo.caption.front() == ' ') {
            titolo.left -= spazio;
        }
        if (colonna.allineamento == Align::right && titolo.caption.back() == ' ') {
            titolo.width += spazio;
        }
        testata.controls.push_back(std::move(titolo));
        ReportControl campo = Campo(colonna.colonna, {x + aria, 0, larghezza, altezzaRigaElenco},
                                    {8.5, 7.5, false, colonna.allineamento});
        campo.pattern = colonna.formato;
        righe.controls.push_back(std::move(campo));
        x += colonna.larghezza;
    }
    testata.height = mm(y + altezzaIntestazioni + 0.8);
}

void MettiPiede(ReportSection& piede, double y, double larghezza)
{
    constexpr double altezza = 5;
    piede.controls.push_back(Filo(0, y + 1, larghezza, 0));
    piede.controls.push_back(
        Etichetta("lblData", "%D", {0, y + 1.5, 60, altezza}, {8, 0, false, Align::left, grigioDidascalia}));
    piede.controls.push_back(Etichetta("lblPagina", "Pag. %p di %P", {larghezza - 60, y + 1.5, 60, altezza},
                                       {8, 0, false, Align::right, grigioDidascalia}));
    piede.height = mm(y + 1.5 + altezza);
}

}  // namespace bravona
