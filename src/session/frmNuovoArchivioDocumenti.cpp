#include "session/frmNuovoArchivioDocumenti.h"

#include "platform/values/Numeri.h"
#include "session/modMain.h"

namespace bravona {

namespace {
constexpr int primoAnno = 1998;
constexpr int ultimoAnno = 2050;
constexpr const char* titoloControllo = "Controllo archivi";
}  // namespace

frmNuovoArchivioDocumenti::frmNuovoArchivioDocumenti(Sessione& sessione)
    : Form(sessione.desktop(), "frmNuovoArchivioDocumenti", "Crezione nuovo archivio", WindowStyle::dialog),
      sessione_(sessione)
{
    txtNuovoArchivio.align = Align::right;
    upCont.buddy = &txtNuovoArchivio;
    upCont.minimum = primoAnno;
    upCont.maximum = ultimoAnno;
    cmdNuovoArchivio[0].onClick = [this] { Crea(); };
    cmdNuovoArchivio[1].onClick = [this] {
        if (ArchivioVuoto) {
            terminaProgramma();
        }
        unload();
    };

    add("txtNuovoArchivio", txtNuovoArchivio);
    add("upCont", upCont);
    add("cmdNuovoArchivio", cmdNuovoArchivio);
    setLayout(layout::column(
        {layout::form({layout::line("Anno del &nuovo archivio", layout::row({layout::of(txtNuovoArchivio),
                                                                             layout::of(upCont), layout::stretch()}))}),
         layout::rowEnd({layout::of(cmdNuovoArchivio[0]), layout::of(cmdNuovoArchivio[1])})}));
    setDefaultButton(&cmdNuovoArchivio[0]);
    setCancelButton(&cmdNuovoArchivio[1]);
}

void frmNuovoArchivioDocumenti::onLoad()
{
    CentraFinestra(*this, true);
    txtNuovoArchivio.setText(std::to_string(sessione_.clock().today().year()));
}

bool frmNuovoArchivioDocumenti::onQueryUnload(CloseCause cause)
{
    if (cause == CloseCause::person && ArchivioVuoto) {
        terminaProgramma();
    }
    return true;
}

bool frmNuovoArchivioDocumenti::ArchivioEsistente(std::int16_t anno)
{
    return sessione_.cn.open("SELECT IDArchivio FROM Archivi WHERE AnnoArchivio=" + std::to_string(anno))
               .recordCount() >= 1;
}

void frmNuovoArchivioDocumenti::Crea()
{
    std::int16_t anno = 0;
    try {
        anno = Value(leadingNumber(txtNuovoArchivio.text())).toInt();
    } catch (const Errore&) {
        MostraValoreNonValido(txtNuovoArchivio);
        return;
    }
    if (ArchivioEsistente(anno)) {
        desktop().inform("Archivio gia' esistente!", titoloControllo);
        txtNuovoArchivio.setFocus();
        return;
    }
    Recordset archivi = sessione_.cn.openTable("Archivi");
    archivi.addNew();
    archivi["AnnoArchivio"] = int{anno};
    archivi.update();
    archivi.close();
    ArchivioVuoto = false;
    Annuncia(sessione_, "Creato l'archivio dell'anno " + std::to_string(anno));
    unload();
}

void frmNuovoArchivioDocumenti::terminaProgramma()
{
    desktop().inform("Il programma non puo' proseguire senza la creazione di almeno un archivio.\n"
                     "Il programma sara' terminato!",
                     titoloControllo);
    ChiudiConnessione(sessione_);
    throw FineProcesso{};
}

}  // namespace bravona
