#include "session/frmStartup.h"

#include "platform/values/Numeri.h"
#include "session/modMain.h"

namespace bravona {

frmStartup::frmStartup(Sessione& sessione)
    : Form(sessione.desktop(), "frmStartup", "Apri archivio", WindowStyle::dialog),
      sessione_(sessione)
{
    cmbArchivi.width = 8;
    cmdAzioni.onClick = [this] { Apri(); };
    cmdEnd.onClick = [this] {
        if (consenteAnnullamento()) {
            unload();
        }
    };

    add("cmbArchivi", cmbArchivi);
    add("cmdAzioni", cmdAzioni);
    add("cmdEnd", cmdEnd);
    setLayout(layout::column(
        {layout::form({layout::line("Anno di &riferimento", layout::row({layout::of(cmbArchivi), layout::stretch()}))}),
         layout::rowEnd({layout::of(cmdAzioni), layout::of(cmdEnd)})}));
    setDefaultButton(&cmdAzioni);
    setCancelButton(&cmdEnd);
}

void frmStartup::onLoad()
{
    CentraFinestra(*this, true);
    const std::string ultimo = sessione_.settings().get("Impostazioni", "Anno Riferimento", "-");
    Recordset anni = sessione_.cn.open("SELECT AnnoArchivio FROM Archivi ORDER BY AnnoArchivio DESC");
    for (; !anni.eof(); anni.moveNext()) {
        cmbArchivi.addItem(anni["AnnoArchivio"].text());
    }
    if (!cmbArchivi.selectByText(ultimo) && !cmbArchivi.items().empty()) {
        cmbArchivi.setListIndex(0);
    }
}

bool frmStartup::onQueryUnload(CloseCause cause)
{
    return cause != CloseCause::person || consenteAnnullamento();
}

void frmStartup::Apri()
{
    sessione_.AnnoRiferimento = leadingWholeNumberText(cmbArchivi.text());
    sessione_.settings().save("Impostazioni", "Anno Riferimento", sessione_.AnnoRiferimento);
    MostraAnnoRiferimento(sessione_);
    Annuncia(sessione_, "Aperto l'archivio dell'anno " + sessione_.AnnoRiferimento);
    unload();
}

bool frmStartup::consenteAnnullamento()
{
    if (FormChiamante == "Main") {
        return true;
    }
    if (desktop().ask("Chiudere il programma?", "Bravona")) {
        ChiudiConnessione(sessione_);
        throw FineProcesso{};
    }
    return false;
}

}  // namespace bravona
