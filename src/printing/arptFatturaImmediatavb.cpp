#include "printing/arptFatturaImmediatavb.h"

#include "printing/DisegnoDocumento.h"

namespace bravona {

Report arptFatturaImmediatavb()
{
    Report report = DocumentoVuoto("arptFatturaImmediatavb", "Bravona - Anteprima Fattura");
    ParoleTestata testata;
    testata.nomeTitolo = "lblTitolo";
    testata.titolo = "FATTURA IMMEDIATA";
    testata.numero = "N. Fattura";
    testata.pagina = "%p di %P";
    testata.nomeProvincia = "Label5";
    testata.registro = true;
    testata.pagamento = true;
    DisegnaTestata(report, testata);
    DisegnaRighe(report, ColonneFattura({"Quantità", " Prezzo", "Totale riga "}), righeFatturaImmediata, 3.9, 8);
    ReportSection& piede = report["F"];
    double y = DisegnaRiepilogoETotali(piede, 1.5, "Label20", "Totale €  ");
    y = DisegnaTrasporto(piede, y, 1);
    y = DisegnaFirme(piede, y, {"Label29", " Variazioni", 11});
    DisegnaSegue(piede, y);
    return report;
}

}  // namespace bravona
