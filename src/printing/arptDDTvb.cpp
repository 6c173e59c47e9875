#include "printing/arptDDTvb.h"

#include "printing/DisegnoDocumento.h"

namespace bravona {

Report arptDDTvb()
{
    Report report = DocumentoVuoto("arptDDTvb", "Bravona - Anteprima DDT");
    ParoleTestata testata;
    testata.nomeTitolo = "Label5";
    testata.titolo = "DOCUMENTO DI TRASPORTO";
    testata.numero = "N. Documento";
    testata.pagina = "%p di %P";
    testata.nomeProvincia = "Label33";
    DisegnaTestata(report, testata);
    DisegnaRighe(report,
                 {
                     {"Label13", " Codice articolo", 36, Align::left, Align::left, {"CodiceArticolo"}},
                     {"Label14", " Descrizione articolo", 118, Align::left, Align::left, {"Descrizione"}},
                     {"Label15", "UM", 12, Align::centre, Align::centre, {"UnitaMisura"}},
                     {"Label16", "QT", 24, Align::centre, Align::right, {"Quantita"}},
                 },
                 righeDDT, 3.75, 8);
    ReportSection& piede = report["F"];
    double y = DisegnaTrasporto(piede, 1.5, 2);
    y = DisegnaFirme(piede, y, {"lblVariazioni", " Variazioni", 11});
    DisegnaSegue(piede, y);
    return report;
}

}  // namespace bravona
