#include "printing/Disegno.h"

#include <utility>

namespace bravona {

namespace {

// Air between a rule and the text beside it.
constexpr double rientro = 1.2;

ReportControl Nuovo(ReportControl::Kind tipo, Posto posto)
{
    ReportControl controllo;
    controllo.kind = tipo;
    controllo.left = mm(posto.x);
    controllo.top = mm(posto.y);
    // Edges, not widths, are rounded, so that neighbours share them.
    controllo.width = mm(posto.x + posto.larghezza) - controllo.left;
    controllo.height = mm(posto.y + posto.altezza) - controllo.top;
    return controllo;
}

void Applica(ReportControl& controllo, const Stile& stile)
{
    controllo.points = stile.punti;
    controllo.minPoints = stile.minimo;
    controllo.bold = stile.nero;
    controllo.italic = stile.corsivo;
    controllo.align = stile.allineamento;
    controllo.colour = stile.colore;
}

}  // namespace

ReportControl Etichetta(std::string nome, std::string testo, Posto posto, Stile stile)
{
    ReportControl controllo = Nuovo(ReportControl::Kind::label, posto);
    controllo.name = std::move(nome);
    controllo.caption = std::move(testo);
    Applica(controllo, stile);
    return controllo;
}

ReportControl Intestazione(std::string nome, std::string testo, Posto posto, Align allineamento)
{
    ReportControl controllo =
        Etichetta(std::move(nome), std::move(testo), posto, {7.5, puntiMinimi, true, allineamento});
    controllo.filled = true;
    controllo.fill = grigioIntestazione;
    return controllo;
}

ReportControl Campo(std::string nome, std::string colonna, Posto posto, Stile stile)
{
    ReportControl controllo = Nuovo(ReportControl::Kind::field, posto);
    controllo.name = std::move(nome);
    controllo.column = std::move(colonna);
    Applica(controllo, stile);
    return controllo;
}

ReportControl Campo(const std::string& colonna, Posto posto, Stile stile)
{
    return Campo(colonna, colonna, posto, stile);
}

ReportControl Riquadro(Posto posto)
{
    ReportControl controllo = Nuovo(ReportControl::Kind::box, posto);
    controllo.lineColour = grigioFilo;
    controllo.lineWidth = 8;
    return controllo;
}

ReportControl Fondo(Posto posto, Colour colore)
{
    ReportControl controllo = Nuovo(ReportControl::Kind::box, posto);
    controllo.lineWidth = 0;
    controllo.filled = true;
    controllo.fill = colore;
    return controllo;
}

ReportControl Filo(double x, double y, double dx, double dy, Colour colore, int spessore)
{
    ReportControl controllo = Nuovo(ReportControl::Kind::line, {x, y, dx, dy});
    controllo.lineColour = colore;
    controllo.lineWidth = spessore;
    return controllo;
}

void Casella(ReportSection& sezione, const std::string& nome, const std::string& didascalia, Posto posto,
             const std::string& colonna, Stile stile)
{
    constexpr double altezzaDidascalia = 3.4;
    sezione.controls.push_back(Riquadro(posto));
    const double larghezza = posto.larghezza - 2 * rientro;
    if (!didascalia.empty()) {
        ReportControl etichetta =
            Etichetta(nome, didascalia, {posto.x + rientro, posto.y + 0.5, larghezza, altezzaDidascalia},
                      {7, puntiMinimi, false, Align::left, grigioDidascalia});
        // A blank before a caption does not move it out of line with the others.
        if (didascalia.front() == ' ') {
            etichetta.left -= textWidth(" ", etichetta.points, etichetta.bold);
        }
        sezione.controls.push_back(std::move(etichetta));
    }
    if (!colonna.empty()) {
        const double sotto = 0.5 + altezzaDidascalia;
        sezione.controls.push_back(
            Campo(colonna, {posto.x + rientro, posto.y + sotto, larghezza, posto.altezza - sotto - 0.5}, stile));
    }
}

Report DocumentoVuoto(const std::string& nome, const std::string& titoloFinestra)
{
    Report report;
    report.style = Report::Style::grouped;
    report.name = nome;
    report.windowTitle = titoloFinestra;
    report.marginLeft = report.marginRight = mm(10);
    report.marginTop = report.marginBottom = mm(8);
    for (const char* sezione : {"HHH", "HH", "H", "D", "F", "FF", "FFF"}) {
        report.sections.push_back({sezione, 0, {}, false});
    }
    return report;
}

Report ListaVuota(const std::string& nome, const std::string& titoloFinestra, const std::string& sezionePiede)
{
    Report report;
    report.style = Report::Style::list;
    report.name = nome;
    report.windowTitle = titoloFinestra;
    report.marginLeft = report.marginRight = mm(10);
    report.marginTop = report.marginBottom = mm(10);
    report.detailSection = "Section1";
    report.footerSection = sezionePiede;
    for (const std::string& sezione :
         {std::string("Section4"), std::string("H"), std::string("Section1"), sezionePiede, std::string("Section5")}) {
        report.sections.push_back({sezione, 0, {}, false});
    }
    return report;
}

}  // namespace bravona
