#include "session/frmSplash.h"

#include "session/modMain.h"

namespace bravona {

frmSplash::frmSplash(Sessione& sessione) : Form(sessione.desktop(), "frmSplash", "Bravona", WindowStyle::splash)
{
    picSplash.boxWidth = 480;
    picSplash.boxHeight = 270;
    picSplash.setAccessibleName("Bravona");
    picSplash.onDblClick = [this] { unload(); };
    Timer1.onTimer = [this] { unload(); };
    timers.push_back(&Timer1);

    add("picSplash", picSplash);
    setLayout(layout::of(picSplash));
}

void frmSplash::onLoad()
{
    picSplash.load("splash");
    CentraFinestra(*this, true);
    Timer1.start(durata);
    desktop().timersChanged(*this);
}

}  // namespace bravona
