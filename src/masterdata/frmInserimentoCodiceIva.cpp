#include "masterdata/frmInserimentoCodiceIva.h"

#include "masterdata/frmCodiciIva.h"
#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/values/Numeri.h"
#include "session/modMain.h"

namespace bravona {

frmInserimentoCodiceIva::frmInserimentoCodiceIva(Sessione& sessione)
    : Form(sessione.desktop(), "frmInserimentoCodiceIva", "Codice IVA", WindowStyle::dialog),
      sessione_(sessione)
{
    txtCodice.onKeyPress = filtraTasti(inMaiuscolo, ValidaLettere);
    txtAliquota.onKeyPress = filtraTasti(ValidaCifre);
    txtAliquota.align = Align::right;
    Command1[0].onClick = [this] { Registra(); };
    Command1[1].onClick = [this] {
        annulla();
        unload();
    };

    add("txtCodice", txtCodice);
    add("txtAliquota", txtAliquota);
    add("txtDescrizione", txtDescrizione);
    add("Command1", Command1);
    setLayout(layout::column(
        {layout::form({layout::line("&Codice", layout::row({layout::of(txtCodice), layout::stretch()})),
                       layout::line("A&liquota %", layout::row({layout::of(txtAliquota), layout::stretch()})),
                       layout::line("&Descrizione", layout::of(txtDescrizione))}),
         layout::rowEnd({layout::of(Command1[0]), layout::of(Command1[1])})}));
    setDefaultButton(&Command1[0]);
    setCancelButton(&Command1[1]);
}

void frmInserimentoCodiceIva::Mostra(const std::string& codice, std::int16_t aliquota, const std::string& descrizione)
{
    txtAliquota.setText(std::to_string(aliquota));
    txtCodice.setText(codice);
    txtDescrizione.setText(descrizione);
    txtAliquota.setEnabled(false);
    txtCodice.setEnabled(false);
}

void frmInserimentoCodiceIva::onLoad()
{
    CentraFinestra(*this, false);
    comeMostrati_ = fieldContents();
}

bool frmInserimentoCodiceIva::onQueryUnload(CloseCause cause)
{
    if (cause == CloseCause::person) {
        annulla();
    }
    return true;
}

void frmInserimentoCodiceIva::annulla()
{
    sessione_.schermate().as<frmCodiciIva>("frmCodiciIva").Annulla = true;
}

void frmInserimentoCodiceIva::Registra()
{
    if (txtCodice.text().empty() || txtAliquota.text().empty()) {
        desktop().inform("Indicare codice e aliquota!", "Codici IVA");
        txtCodice.setFocus();
        return;
    }
    std::int16_t aliquota = 0;
    try {
        aliquota = Value(leadingNumber(txtAliquota.text())).toInt();
    } catch (const Errore&) {
        MostraValoreNonValido(txtAliquota);
        return;
    }
    auto& chiamante = sessione_.schermate().as<frmCodiciIva>("frmCodiciIva");
    chiamante.NuovaAliquota = aliquota;
    chiamante.NuovoCodice = txtCodice.text();
    chiamante.Descrizione = txtDescrizione.text();
    unload();
}

}  // namespace bravona
