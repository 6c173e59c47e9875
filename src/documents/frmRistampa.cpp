#include "documents/frmRistampa.h"

#include <string>

#include "documents/StampaDocumento.h"
#include "documents/TipoDocumento.h"
#include "platform/values/Numeri.h"
#include "platform/windowing/Desktop.h"
#include "session/modMain.h"

namespace bravona {

namespace {
constexpr const char* titoloMessaggi = "Stampa documenti";
}

frmRistampa::frmRistampa(Sessione& sessione)
    : Form(sessione.desktop(), "frmRistampa", "Ristampa documento", WindowStyle::dialog),
      sessione_(sessione)
{
    cboTipoDocumento.width = 24;
    cmdShow.onClick = [this] { conferma(); };
    cmdClose.onClick = [this] { unload(); };

    add("cboTipoDocumento", cboTipoDocumento);
    add(registro);
    add(campoNumero);
    add("cmdShow", cmdShow);
    add("cmdClose", cmdClose);
    using namespace layout;
    setLayout(column(
        {form({line("&Documento", row({of(cboTipoDocumento), stretch()})), registro.linea(), campoNumero.linea()}),
         rowEnd({of(cmdShow), of(cmdClose)})}));
    setDefaultButton(&cmdShow);
    setCancelButton(&cmdClose);
}

void frmRistampa::onLoad()
{
    cboTipoDocumento.addItem("Documento di Trasporto", tipo::ddt);
    cboTipoDocumento.addItem("Fattura", tipo::fattura);
    cboTipoDocumento.addItem("Preventivo di Spesa", tipo::proforma);
    cboTipoDocumento.setListIndex(0);
    registro.carica(sessione_);
}

void frmRistampa::conferma()
{
    if (!isNumeric(campoNumero.txtNumeroDocumento.text())) {
        desktop().inform("Indicare il numero del documento da stampare!", titoloMessaggi);
        campoNumero.txtNumeroDocumento.setFocus();
        return;
    }
    if (const auto numero = campoNumero.numero())
        RistampaDocumento(*numero, registro.registro(), static_cast<std::int16_t>(cboTipoDocumento.itemData()));
}

void frmRistampa::RistampaDocumento(std::int32_t numero, std::int32_t numeroRegistro, std::int16_t tipoDocumento)
{
    const std::optional<Esistente> documento = EsisteDocumento(tipoDocumento, numero, numeroRegistro);
    if (!documento) {
        desktop().inform("Documento inesistente!", titoloMessaggi);
        campoNumero.txtNumeroDocumento.setFocus();
        return;
    }
    stampaDocumento(sessione_, {tipoDocumento, numero, numeroRegistro, documento->RiferimentoBolla == "S"},
                    ChiamanteStampa::ristampa);
}

std::optional<frmRistampa::Esistente> frmRistampa::EsisteDocumento(std::int16_t tipoDocumento, std::int32_t numero,
                                                                   std::int32_t numeroRegistro)
{
    const std::string campi = tipoDocumento == tipo::fattura ? "NumeroDocumento, RiferimentoBolla" : "NumeroDocumento";
    Recordset trovati = sessione_.cn.open("SELECT " + campi + " FROM " + tabelleDocumento(tipoDocumento).testata +
                                          " WHERE NumeroDocumento= " + std::to_string(numero) +
                                          " AND AnnoDocumento=" + sessione_.AnnoRiferimento +
                                          " AND NumeroRegistro=" + std::to_string(numeroRegistro));
    if (trovati.recordCount() == 0)
        return std::nullopt;
    return Esistente{trovati.hasColumn("RiferimentoBolla") ? trovati["RiferimentoBolla"].text() : std::string()};
}

}  // namespace bravona
