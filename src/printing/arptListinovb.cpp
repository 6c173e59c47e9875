#include "printing/arptListinovb.h"

#include <array>

#include "printing/DisegnoElenco.h"

namespace bravona {

namespace {

constexpr std::array<ColonnaElenco, 5> colonne{{{"Label2", "Codice articolo", "CodiceMagazzino", 36},
                                                {"Label3", " Descrizione", "DescrizionePrincipale", 96},
                                                {"Label4", "UM", "UnitaMisura", 14, Align::centre},
                                                {"Label5", "IVA", "AliquotaIva", 14, Align::right},
                                                {"Label6", "Prezzo € ", "Prezzo", 30, Align::right, "#,##0.00"}}};

}  // namespace

Report arptListinovb()
{
    Report report = ListaVuota("arptListinovb", "Bravona - Anteprima Listino", "Section3");
    ReportSection& testata = report["H"];
    ReportControl immagine;
    immagine.kind = ReportControl::Kind::image;
    immagine.name = "Image1";
    immagine.visible = false;
    testata.controls.push_back(std::move(immagine));
    ReportControl cornice = Riquadro({0, 0, larghezzaElenco, 15});
    cornice.name = "Shape1";
    testata.controls.push_back(std::move(cornice));
    testata.controls.push_back(Etichetta("lblTitolo", "", {2, 1, larghezzaElenco - 4, 7}, {13, 8, true}));
    testata.controls.push_back(Etichetta("txtDescrizione", "", {2, 8, larghezzaElenco - 4, 6},
                                         {9.5, 7, false, Align::left, grigioDidascalia}));
    testata.controls.push_back(Etichetta("Label1", "Listino", {0, 16, 60, 6}, {11, 0, true}));
    MettiColonne(report, 23, colonne);
    MettiPiede(report["Section3"]);
    return report;
}

}  // namespace bravona
