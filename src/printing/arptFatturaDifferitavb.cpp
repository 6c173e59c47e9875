#include "printing/arptFatturaDifferitavb.h"

#include "printing/DisegnoDocumento.h"

namespace bravona {

Report arptFatturaDifferitavb()
{
    Report report = DocumentoVuoto("arptFatturaDifferitavb", "Bravona - Anteprima Fattura");
    ParoleTestata testata;
    testata.nomeTitolo = "lblTitolo";
    testata.titolo = "FATTURA";
    testata.numero = "N. Fattura";
    testata.pagina = "%p di %P";
    testata.nomeProvincia = "Label5";
    testata.registro = true;
    testata.pagamento = true;
    DisegnaTestata(report, testata);
    DisegnaRighe(report, ColonneFattura({"QT", " Prezzo €", "Totale riga € "}), righeFatturaDifferita, 3.75, 8);
    ReportSection& piede = report["F"];
    double y = DisegnaRiepilogoETotali(piede, 1.5, "Label20", "Totale € ");
    y = DisegnaFirme(piede, y, {"Label29", "Variazioni", 12});
    DisegnaSegue(piede, y);
    return report;
}

}  // namespace bravona
