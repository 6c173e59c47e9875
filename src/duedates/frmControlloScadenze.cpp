#include "duedates/frmControlloScadenze.h"

#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/values/Numeri.h"
#include "session/modMain.h"

namespace bravona {

frmControlloScadenze::frmControlloScadenze(Sessione& sessione)
    : Form(sessione.desktop(), "frmControlloScadenze", "Controllo Scadenze", WindowStyle::dialog),
      sessione_(sessione)
{
    add("Check1", Check1);
    add("Text1", Text1);
    add("Label2", giorni_);
    Text1.align = Align::right;
    Text1.onKeyPress = [](char32_t& tasto) { tasto = ValidaCifre(tasto); };
    setLayout(layout::column(
        {layout::of(Check1), layout::form({layout::line("A&vverti", layout::row({layout::of(Text1), layout::of(giorni_),
                                                                                 layout::stretch()}))})}));
}

void frmControlloScadenze::onLoad()
{
    CentraFinestra(*this, false);
    try {
        Check1.setChecked(leadingNumber(sessione_.settings().get("Impostazioni", "Allarme")) == 1);
        Text1.setText(sessione_.settings().get("Impostazioni", "AllarmeGG"));
    } catch (const Errore&) {
        return;  // what cannot be read stands as when it is missing
    }
}

bool frmControlloScadenze::onQueryUnload(CloseCause)
{
    sessione_.settings().save("Impostazioni", "Allarme", Check1.checked() ? "1" : "0");
    sessione_.settings().save("Impostazioni", "AllarmeGG",
                              isNumeric(Text1.text()) ? leadingWholeNumberText(Text1.text()) : "0");
    return true;
}

}  // namespace bravona
