#include "duedates/FiltriFatture.h"

#include <utility>

#include "platform/text/Text.h"
#include "session/modMain.h"

namespace bravona {

namespace {

constexpr int mesi = 12;
constexpr std::int32_t interoAnno = -1;

}  // namespace

FiltriFatture::FiltriFatture(Sessione& sessione) : sessione_(sessione)
{
    add("cmbCliente", cmbCliente);
    add("cmbPeriodo", cmbPeriodo);
    add("cmbRegistro", cmbRegistro);
    add("chkFatture", chkFatture);
    add("chkNoteCredito", chkNoteCredito);
    add("chkNoteDebito", chkNoteDebito);
    cmbCliente.width = 40;
    cmbCliente.grows = true;
    cmbPeriodo.width = 16;
    cmbRegistro.width = 22;
    for (ComboBox* combo : {&cmbCliente, &cmbPeriodo, &cmbRegistro}) {
        combo->onClick = [this] { scelto(); };
    }
    for (CheckBox* tipo : {&chkFatture, &chkNoteCredito, &chkNoteDebito}) {
        tipo->onClick = [this, tipo] { scelto(*tipo); };
    }
}

void FiltriFatture::carica(const std::string& clienti, bool tuttiRegistri)
{
    carica_ = true;
    tuttiRegistri_ = tuttiRegistri;
    for (ComboBox* combo : {&cmbCliente, &cmbPeriodo, &cmbRegistro}) {
        combo->clear();
    }
    cmbCliente.addItem("Tutti i Clienti");
    for (Recordset elenco = sessione_.cn.open(clienti); !elenco.eof(); elenco.moveNext()) {
        const std::int32_t id = elenco["IDCliente"].asLong();
        cmbCliente.addItem(elenco["Cliente"].text() + " (" + std::to_string(id) + ")", id);
    }
    cmbPeriodo.addItem("Intero anno", interoAnno);
    for (int mese = 1; mese <= mesi; ++mese) {
        cmbPeriodo.addItem(upper(nomeMese(mese)), mese);
    }
    if (tuttiRegistri) {
        cmbRegistro.addItem("Tutti i Registri");
    }
    CaricaComboRegistri(sessione_, cmbRegistro);
    for (ComboBox* combo : {&cmbCliente, &cmbPeriodo, &cmbRegistro}) {
        if (!combo->items().empty()) {
            combo->setListIndex(0);
        }
    }
    for (CheckBox* tipo : {&chkFatture, &chkNoteCredito, &chkNoteDebito}) {
        tipo->setChecked(true);
    }
    carica_ = false;
}

void FiltriFatture::scelto()
{
    if (!carica_ && cambiato) {
        cambiato();
    }
}

void FiltriFatture::scelto(CheckBox& tipo)
{
    if (!carica_ && !chkFatture.checked() && !chkNoteCredito.checked() && !chkNoteDebito.checked()) {
        sessione_.desktop().messageBox({.title = "Resoconto",
                                        .text = "E' necessario selezionare almeno un tipo di documento!",
                                        .icon = MsgIcon::exclamation});
        tipo.setChecked(true);  // comes here again
        return;
    }
    scelto();
}

std::string FiltriFatture::diCliente() const
{
    return cmbCliente.listIndex() > 0 ? " AND Fatture.IDcliente=" + std::to_string(cmbCliente.itemData())
                                      : std::string();
}

std::string FiltriFatture::diPeriodo() const
{
    return cmbPeriodo.listIndex() > 0 ? " AND Month(DataDocumento)=" + std::to_string(cmbPeriodo.itemData())
                                      : std::string();
}

std::string FiltriFatture::diRegistro() const
{
    return cmbRegistro.listIndex() >= (tuttiRegistri_ ? 1 : 0)
               ? " AND NumeroRegistro=" + std::to_string(cmbRegistro.itemData())
               : std::string();
}

std::string FiltriFatture::diTipo() const
{
    std::string tipi;
    for (const auto& [tipo, codici] :
         {std::pair(&chkFatture, "1,2,"), std::pair(&chkNoteCredito, "4,"), std::pair(&chkNoteDebito, "5,")}) {
        if (tipo->checked()) {
            tipi += codici;
        }
    }
    if (!tipi.empty()) {
        tipi.pop_back();
    }
    return " AND TipoDocumento IN ( " + tipi + ") ";
}

Layout FiltriFatture::layout()
{
    using namespace layout;
    return form({line("C&liente", of(cmbCliente)),
                 line("&Periodo", row({of(cmbPeriodo), line("&Registro", of(cmbRegistro)), stretch()})),
                 line("", row({of(chkFatture), of(chkNoteCredito), of(chkNoteDebito), stretch()}))});
}

}  // namespace bravona
