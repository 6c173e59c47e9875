#include "masterdata/frmLogo.h"

#include "session/modMain.h"

namespace bravona {

namespace {

constexpr const char* titolo = "Logo Azienda";
constexpr const char* logoInUso = "-";
// The largest logo with its shadow, in pixels.
constexpr int larghezzaRiquadro = 310;
constexpr int altezzaRiquadro = 160;

}  // namespace

frmLogo::frmLogo(Sessione& sessione)
    : Form(sessione.desktop(), "frmLogo", titolo, WindowStyle::dialog),
      sessione_(sessione)
{
    picMain.boxWidth = larghezzaRiquadro;
    picMain.boxHeight = altezzaRiquadro;
    picLogo.boxWidth = larghezzaRiquadro;
    picLogo.boxHeight = altezzaRiquadro;
    picLogo.failureText = "L'immagine non può essere letta";
    picLogo.setAccessibleName("Logo dell'azienda");
    lblMessaggio.style = TextStyle::hint;
    chkBordo.onClick = [this] {
        sessione_.OmbreggiaturaAttiva = chkBordo.checked();
        mostraBordo();
    };
    cmdSfoglia.onClick = [this] { sfoglia(); };
    cmdDelete.onClick = [this] { elimina(); };
    cmdOk.onClick = [this] { unload(); };

    add("picMain", picMain);
    add("picLogo", picLogo);
    add("picShadow", picShadow);
    add("lblMessaggio", lblMessaggio);
    add("lblDimensioni", lblDimensioni);
    add("chkBordo", chkBordo);
    add("cmdSfoglia", cmdSfoglia);
    add("cmdDelete", cmdDelete);
    add("cmdOk", cmdOk);
    using namespace layout;
    setLayout(column(
        {frame(picMain, column({stretch(), row({stretch(), of(picLogo), of(lblMessaggio), stretch()}), stretch()})),
         of(lblDimensioni), of(chkBordo), rowEnd({of(cmdSfoglia), of(cmdDelete), of(cmdOk)})}));
    setCancelButton(&cmdOk);
}

std::string frmLogo::fileLogo() const
{
    return sessione_.cartellaProgramma() + "\\logo\\logo.gif";
}

void frmLogo::onLoad()
{
    chkBordo.setChecked(sessione_.OmbreggiaturaAttiva);
    mostraBordo();
    VisualizzaLogo(logoInUso);
    CentraFinestra(*this, false);
}

bool frmLogo::onQueryUnload(CloseCause)
{
    if (LogoVariato && desktop().ask("Salvare il nuovo logo all'interno dei documenti?", titolo)) {
        // Takes the place of the old one, which stays should this fail.
        sessione_.files().copy(scelto_, fileLogo());
        Annuncia(sessione_, "Logo dei documenti salvato");
    }
    LogoVariato = false;
    return true;
}

void frmLogo::onUnload()
{
    sessione_.settings().save("Documenti", "Ombreggiatura", sessione_.OmbreggiaturaAttiva ? "1" : "0");
}

void frmLogo::VisualizzaLogo(const std::string& nome)
{
    const std::string file = nome == logoInUso ? fileLogo() : nome;
    const bool logo = sessione_.files().exists(file);
    if (logo) {
        picLogo.load(file);
        picLogo.setPosition((picLogo.boxWidth - picLogo.pictureWidth()) / 2,
                            (picLogo.boxHeight - picLogo.pictureHeight()) / 2);
    }
    mostra(logo);
}

void frmLogo::mostra(bool logo)
{
    picLogo.setVisible(logo);
    lblMessaggio.setVisible(!logo);
}

void frmLogo::mostraBordo()
{
    picShadow.setVisible(chkBordo.checked());
    picLogo.setShadow(chkBordo.checked());
}

void frmLogo::sfoglia()
{
    const auto nome =
        desktop().openFile({.title = "Selezione logo", .folder = "c:\\", .filter = "Immagine GIF (*.gif)|*.gif"});
    if (!nome || nome->empty()) {
        return;
    }
    scelto_ = *nome;
    VisualizzaLogo(scelto_);
    LogoVariato = true;
}

void frmLogo::elimina()
{
    if (!picLogo.visible()) {
        desktop().inform("Nessun logo da eliminare", titolo);
        return;
    }
    if (!desktop().askBeforeLosing("Eliminare il logo dell'azienda dalle stampe dei documenti?", titolo)) {
        return;
    }
    try {
        sessione_.files().remove(fileLogo());
    } catch (const Errore&) {
        // A logo that is not there is as good as deleted.
    }
    LogoVariato = false;
    mostra(false);
}

}  // namespace bravona
