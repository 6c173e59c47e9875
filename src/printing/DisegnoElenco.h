#pragma once

#include <span>
#include <string>

#include "printing/Disegno.h"

namespace bravona {

// What the lists have alike: column headings above aligned columns, and the line at the foot of each page.

inline constexpr double larghezzaElenco = 190;            // mm between the margins
inline constexpr double larghezzaElencoDiTraverso = 277;  // of a sheet laid across

struct ColonnaElenco {
    const char* etichetta;  // name of the heading
    const char* titolo;
    const char* colonna;  // of the data
    double larghezza;     // mm
    Align allineamento = Align::left;
    const char* formato = "";
};

// Headings on grey in "H" from `y` down, one line high; the fields of a row of the list under them.
void MettiColonne(Report& report, double y, std::span<const ColonnaElenco> colonne);  // as wide as they are
inline constexpr double altezzaIntestazioni = 6;
inline constexpr double altezzaRigaElenco = 5.3;

// Page and date at the foot of each sheet, `y` down in the footer; the height that the footer then has.
void MettiPiede(ReportSection& piede, double y = 0, double larghezza = larghezzaElenco);

}  // namespace bravona
