#include "documents/frmZoomDescrizione.h"

namespace bravona {

frmZoomDescrizione::frmZoomDescrizione(Sessione& sessione)
    : Form(sessione.desktop(), "frmZoomDescrizione", "Descrizione", WindowStyle::dialog)
{
    add("Text1", Text1);
    add("cmdOk", cmdOk);
    add("cmdAnnulla", cmdAnnulla);
    Text1.fixedPitch = true;
    Text1.multiLine = true;
    Text1.lines = 10;
    Text1.selectOnFocus = false;
    Text1.setAccessibleName("Descrizione");
    cmdOk.onClick = [this] {
        if (controlloChiamante_ != nullptr)
            controlloChiamante_->setText(Text1.text());
        unload();
    };
    cmdAnnulla.onClick = [this] { unload(); };
    setLayout(
        layout::column({layout::grow(layout::of(Text1)), layout::rowEnd({layout::of(cmdOk), layout::of(cmdAnnulla)})}));
    setDefaultButton(&cmdOk);
    setCancelButton(&cmdAnnulla);
}

void frmZoomDescrizione::setControlloChiamante(TextBox& controllo)
{
    controlloChiamante_ = &controllo;
    Text1.setText(controllo.text());
}

}  // namespace bravona
