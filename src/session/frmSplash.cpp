#include "session/frmSplash.h"

#include "session/modMain.h"

namespace bravona {

frmSplash::frmSplash(Sessione& sessione) : Form(sessione.desktop(), "frmSplash", "Bravona", WindowStyle::splash)
{
    picSplash.boxWidth = 128;
    picSplash.boxHeight = 128;
    picSplash.load("bravona");
    lblNome.style = TextStyle::grand;
    lblVersione.setCaption("Versione " + testoVersione());
    lblVersione.style = TextStyle::hint;
    for (Control* controllo : std::initializer_list<Control*>{&picSplash, &lblNome, &lblVersione}) {
        controllo->onDblClick = [this] { unload(); };
    }
    Timer1.onTimer = [this] { unload(); };
    timers.push_back(&Timer1);

    add("picSplash", picSplash);
    add("lblNome", lblNome);
    add("lblVersione", lblVersione);
    setLayout(layout::row({layout::of(picSplash), layout::column({layout::stretch(), layout::of(lblNome),
                                                                  layout::of(lblVersione), layout::stretch()})}));
}

void frmSplash::onLoad()
{
    CentraFinestra(*this, true);
    Timer1.start(durata);
    desktop().timersChanged(*this);
}

}  // namespace bravona
