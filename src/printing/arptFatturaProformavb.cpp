#include "printing/arptFatturaProformavb.h"

#include "printing/DisegnoDocumento.h"

namespace bravona {

Report arptFatturaProformavb()
{
    Report report = DocumentoVuoto("arptFatturaProformavb", "Bravona - Anteprima Preventivo di Spesa");
    ParoleTestata testata;
    testata.nomeTitolo = "Label5";
    testata.titolo = "PREVENTIVO DI SPESA";
    testata.numero = "N. Fattura";
    testata.pagina = "%p - %P";
    testata.nomeProvincia = "Label33";
    testata.pagamento = true;
    DisegnaTestata(report, testata);
    DisegnaRighe(report, ColonneFattura({"QT", " Prezzo €", "Totale riga € "}), righeFatturaProforma, 3.75, 8);
    ReportSection& piede = report["F"];
    double y = DisegnaRiepilogoETotali(piede, 1.5, "Label20", "Totale € ");
    y = DisegnaFirme(piede, y, {"Label29", "Variazioni", 12});
    DisegnaSegue(piede, y);
    return report;
}

}  // namespace bravona
