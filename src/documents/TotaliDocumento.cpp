#include "documents/TotaliDocumento.h"

#include "documents/frmDettagliIVA.h"
#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/values/Numeri.h"

namespace bravona {

TotaliDocumento::TotaliDocumento(Sessione& sessione, clsCalcoli::Gruppi gruppi)
    : sessione_(sessione),
      calcoli_(*sessione.TabellaIva, gruppi)
{
    add("fraTotali", fraTotali);
    add("txtNumeroRighe", txtNumeroRighe);
    add("txtTotaleImportoRigheDocumento", txtTotaleImportoRigheDocumento);
    add("txtScontoGenerale", txtScontoGenerale);
    add("txtTotaleImportoImponibile", txtTotaleImportoImponibile);
    add("txtTotaleImportoIVA", txtTotaleImportoIVA);
    add("txtTotaleImportoDocumento", txtTotaleImportoDocumento);
    add("cmdDettagliIVA", cmdDettagliIVA);

    for (TextBox* campo : {&txtNumeroRighe, &txtTotaleImportoRigheDocumento, &txtTotaleImportoImponibile,
                           &txtTotaleImportoIVA, &txtTotaleImportoDocumento}) {
        campo->setLocked(true);
        campo->align = Align::right;
    }
    txtTotaleImportoDocumento.style = TextStyle::grand;
    txtScontoGenerale.align = Align::right;
    txtScontoGenerale.onKeyPress = filtraTasti(ValidaSconto);
    txtScontoGenerale.onLostFocus = [this] {
        if (!isNumeric(txtScontoGenerale.text()))
            txtScontoGenerale.setText("0");
        if (scontoLasciato)
            scontoLasciato();
    };
    cmdDettagliIVA.setToolTip("Dettagli IVA");
    cmdDettagliIVA.setAccessibleName("Dettagli IVA");
    cmdDettagliIVA.onClick = [this] {
        auto& finestra = sessione_.schermate().as<frmDettagliIVA>("frmDettagliIVA");
        finestra.txtDettagli.setText(calcoli_.riepilogoIva());
        finestra.showModal();
    };
}

Currency TotaliDocumento::totaleDocumento() const
{
    return aCentesimi(calcoli_.TotaleImportoDocumento());
}

std::int32_t TotaliDocumento::sconto() const
{
    return toInt32(txtScontoGenerale.text());
}

void TotaliDocumento::setSconto(std::int32_t percento)
{
    txtScontoGenerale.setText(std::to_string(percento));
}

void TotaliDocumento::azzera()
{
    calcoli_.Calcola({});
    mostra();
    setSconto(0);
}

void TotaliDocumento::aggiorna(std::span<const RigaDocumento> righe)
{
    calcoli_.Calcola(righe);
    mostra();
}

void TotaliDocumento::mostra()
{
    txtTotaleImportoRigheDocumento.setText(FormattaImporto(calcoli_.TotaleImportoVoci()));
    txtTotaleImportoImponibile.setText(FormattaImporto(calcoli_.TotaleImportoImponibile()));
    txtTotaleImportoIVA.setText(FormattaImporto(calcoli_.TotaleImportoImposta()));
    txtTotaleImportoDocumento.setText(FormattaImporto(calcoli_.TotaleImportoDocumento()));
    txtNumeroRighe.setText(std::to_string(calcoli_.NumeroRigheValide()));
}

bool TotaliDocumento::CodiciIvaPresenti(const std::string& titolo) const
{
    for (const GruppoIVA& gruppo : calcoli_.gruppi()) {
        if (!gruppo.Codice.empty() && sessione_.TabellaIva->GetIDAliquotaIvaFromCodice(gruppo.Codice) == 0) {
            sessione_.desktop().inform("Il codice IVA " + gruppo.Codice + " non è più nella tabella dei codici IVA.\n" +
                                           "Cambiare il codice delle righe che lo usano.",
                                       titolo);
            return false;
        }
    }
    return true;
}

Layout TotaliDocumento::layout()
{
    using namespace layout;
    return frame(fraTotali,
                 row({form({line("N.righe", of(txtNumeroRighe)), line("Sconto", of(txtScontoGenerale))}), stretch(),
                      form({line("Totale importo ", of(txtTotaleImportoRigheDocumento)),
                            line("Imponibile IVA ", of(txtTotaleImportoImponibile))}),
                      form({line("Importo IVA ", row({of(txtTotaleImportoIVA), of(cmdDettagliIVA)})),
                            line("Totale ", of(txtTotaleImportoDocumento))})}));
}

}  // namespace bravona
