#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/reports/Report.h"

namespace bravona {

// Pieces of which the designs are made. Measures are millimetres, from the section's upper left corner inside the
// margins.

constexpr int mm(double millimetri)
{
    const double twip = millimetri * 1440.0 / 25.4;
    return static_cast<int>(twip < 0 ? twip - 0.5 : twip + 0.5);
}

inline constexpr Colour grigioIntestazione = rgb(192, 192, 192);
inline constexpr Colour grigioFilo = rgb(110, 110, 110);
inline constexpr Colour grigioRiga = rgb(214, 214, 214);
inline constexpr Colour grigioDidascalia = rgb(70, 70, 70);
inline constexpr Colour grigioFondo = rgb(240, 240, 240);

struct Posto {
    double x = 0, y = 0, larghezza = 0, altezza = 0;
};

// Nothing is set smaller: a text too long at this size ends in an ellipsis.
inline constexpr double puntiMinimi = 7;

struct Stile {
    double punti = 8.5;
    double minimo = puntiMinimi;  // a long text may shrink to this size
    bool nero = false;
    Align allineamento = Align::left;
    Colour colore = colours::black;
    bool corsivo = false;
};

ReportControl Etichetta(std::string nome, std::string testo, Posto posto, Stile stile = {});
// A column heading: grey ground.
ReportControl Intestazione(std::string nome, std::string testo, Posto posto, Align allineamento = Align::centre);
// A field named after its column.
ReportControl Campo(const std::string& colonna, Posto posto, Stile stile = {});
ReportControl Campo(std::string nome, std::string colonna, Posto posto, Stile stile = {});
ReportControl Riquadro(Posto posto);
ReportControl Fondo(Posto posto, Colour colore);
ReportControl Filo(double x, double y, double dx, double dy, Colour colore = grigioFilo, int spessore = 8);

// A box with its small caption, and a value under it when a column is given.
void Casella(ReportSection& sezione, const std::string& nome, const std::string& didascalia, Posto posto,
             const std::string& colonna = {}, Stile stile = {9});

// An empty report with the sections of a document (grouped on the page record) or of a list, in order.
Report DocumentoVuoto(const std::string& nome, const std::string& titoloFinestra);
Report ListaVuota(const std::string& nome, const std::string& titoloFinestra, const std::string& sezionePiede);

}  // namespace bravona
